#include "appearance/hover_caption.h"

namespace quillbrook {

std::optional<QString> HoverCaption(const HoverList& list, bool isButtonDown, std::optional<int> item,
                                    const std::function<QString(int)>& text) {
    if (isButtonDown)
        return std::nullopt;
    if (!item || *item < 0)
        return QString(QLatin1String(list.offListTitle));
    return text(*item);
}

} // namespace quillbrook
