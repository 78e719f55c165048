#pragma once

#include <QString>
#include <algorithm>
#include <optional>

namespace quillbrook {

// How the Search page is laid out for the number of titles found. All in twips.
struct ResultLayout {
    const char* caption;           // of fmeSearchResult; empty: the number of forms
    int frameHeight;               // of fmeSearchResult
    bool listShown;                // lstSearch
    std::optional<int> listHeight; // of lstSearch; empty: unchanged
    int paneTop;                   // of txtContent
};

constexpr ResultLayout kEmptyQueryLayout = {"Please enter something!", 435, false, std::nullopt, 2580};

constexpr ResultLayout kResultLayouts[] = {
    // by the number of titles; the last row is that of all larger ones
    {"No Forms Found!!", 435, false, std::nullopt, 2550},
    {"1 Form Found!", 1035, true, 540, 3120},
    {"2 Forms Found!", 1035, true, 540, 3120},
    {"3 Forms Found!", 1275, true, 780, 3420},
    {"4 Forms Found!", 1515, true, 1020, 3660},
    {"", 1755, true, 1260, 3900},
};

constexpr const ResultLayout& LayoutOf(qsizetype titles) {
    return kResultLayouts[std::clamp<qsizetype>(titles, 0, std::size(kResultLayouts) - 1)];
}

// The count message.
inline QString ResultCaption(qsizetype titles) {
    const QString caption = QString::fromLatin1(LayoutOf(titles).caption);
    return caption.isEmpty() ? QString::number(titles) + QStringLiteral(" Forms Found!") : caption;
}

// Tops of the controls that stand at the foot of the frame, in twips.
struct HitControlTops {
    int buttons; // btnPreviousHit and btnNextHit
    int label;   // lblDisplayHits
};

constexpr HitControlTops PlaceHitControls(int frameTop, int frameHeight, int buttonHeight, int labelHeight) {
    const int buttons = frameTop + frameHeight - buttonHeight - 20;
    return {buttons, buttons - labelHeight};
}

} // namespace quillbrook
