// Bullets and numbering, in the older form (\pn) and by list tables (\ls).
#include <algorithm>

#include "platform/rich_text/rich_text_numbering.h"
#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {
namespace {

// RTF 1.9.1, \levelnfc
ListKinds KindOfLevel(int levelNumberFormat) {
    switch (levelNumberFormat) {
    case 1:
        return ListKinds::UpperRoman;
    case 2:
        return ListKinds::LowerRoman;
    case 3:
        return ListKinds::UpperLetter;
    case 4:
        return ListKinds::LowerLetter;
    case 23:
        return ListKinds::Bullet;
    case 255:
        return ListKinds::None;
    default:
        return ListKinds::Decimal;
    }
}

bool IsBlank(const QString& marker) {
    return std::all_of(marker.begin(), marker.end(), [](QChar character) { return character.isSpace(); });
}

} // namespace

void RtfReader::OnOldListKind(const Word& word) {
    if (m_state.destination == RtfDestination::OldList) {
        m_oldList.kind = word.argument;
        m_oldList.active = true;
    }
}

void RtfReader::OnOldListStart(const Word&) {
    m_oldList.start = std::clamp(m_token.parameter, 0, 32'767);
}

// A list, a level of it, an override: each begins a group of its own.
void RtfReader::OnList(const Word& word) {
    if (m_state.destination != RtfDestination::ListTable)
        return;
    if (word.argument == 0) {
        if (m_lists.size() < static_cast<std::size_t>(kMostLists))
            m_lists.push_back({});
        m_listLevel = -1;
    } else if (word.argument == 1) {
        m_listLevel = std::min(m_listLevel + 1, 8);
    } else {
        m_overrideId = 0;
    }
}

void RtfReader::OnListNumber(const Word& word) {
    if (m_state.destination != RtfDestination::ListTable)
        return;
    if (word.argument == kListId) {
        m_overrideId = m_token.parameter;
        // within an override the number refers to a list, within a list it names it
        if (!m_state.inOverride && !m_lists.empty())
            m_listNumbers.insert(m_token.parameter, static_cast<int>(m_lists.size()) - 1);
        return;
    }
    if (m_lists.empty() || m_listLevel < 0 || m_state.inOverride)
        return;
    ListLevelDefinition& level = m_lists.back().levels[static_cast<std::size_t>(m_listLevel)];
    (word.argument == kLevelKind ? level.kind : level.start) = std::clamp(m_token.parameter, 0, 32'767);
}

void RtfReader::OnParagraphList(const Word&) {
    if (m_state.destination != RtfDestination::ListTable) {
        m_state.para.list = std::clamp(m_token.parameter, 0, 0x7FFF);
        return;
    }
    if (m_overrides.size() >= kMostLists)
        return;
    if (const auto list = m_listNumbers.constFind(m_overrideId); list != m_listNumbers.constEnd())
        m_overrides.insert(m_token.parameter, *list);
}

RtfReader::ListDefinition* RtfReader::ListOf(int override) {
    const auto list = m_overrides.constFind(override);
    return list == m_overrides.constEnd() ? nullptr : &m_lists[static_cast<std::size_t>(*list)];
}

// The bullet or number of the paragraph that ends now; as the writing program showed it where it did.
QString RtfReader::Marker() {
    QString marker = std::exchange(m_marker, {});
    const bool shown = std::exchange(m_hasMarker, false);
    const RtfParaState& para = m_state.para;
    QString counted;
    if (ListDefinition* list = ListOf(para.list))
        counted = NextNumber(*list, std::min(para.listLevel, 8));
    else if (para.oldList.active)
        counted = NextOldNumber(para.oldList);
    if (!para.oldList.active)
        m_countedList = {};
    if (para.list == 0 && !para.oldList.active)
        return {};
    if (!shown || IsBlank(marker)) // some programs leave the number to whoever reads
        return counted;
    while (marker.endsWith(u'\t') || marker.endsWith(u' '))
        marker.chop(1);
    while (marker.startsWith(u'\t'))
        marker.remove(0, 1);
    return marker;
}

// Paragraphs of one list follow each other and tell the same of it.
QString RtfReader::NextOldNumber(const RtfOldList& list) {
    const auto kind = static_cast<ListKinds>(list.kind);
    m_oldNumber = list == m_countedList ? std::min(m_oldNumber + 1, 1'000'000) : list.start;
    m_countedList = list;
    switch (kind) {
    case ListKinds::None:
        return {};
    case ListKinds::Bullet:
        return list.before;
    default:
        return list.before + ListNumberText(m_oldNumber, kind) + list.after;
    }
}

QString RtfReader::NextNumber(ListDefinition& list, int level) {
    const auto index = static_cast<std::size_t>(level);
    list.counters[index] = std::min(list.counters[index] + 1, 1'000'000);
    std::fill(list.counters.begin() + level + 1, list.counters.end(), 0);
    const ListLevelDefinition& definition = list.levels[index];
    const bool isNumbered = std::any_of(definition.text.begin(), definition.text.end(),
                                        [](QChar character) { return character.unicode() <= 8; });
    if (isNumbered && KindOfLevel(definition.kind) == ListKinds::Bullet)
        return QStringLiteral("\u2022");
    QString marker;
    for (const QChar character : definition.text.left(64)) {
        if (character.unicode() > 8) {
            marker.append(character);
            continue;
        }
        const std::size_t other = character.unicode();
        const int count = list.levels[other].start + std::max(list.counters[other], 1) - 1;
        marker.append(ListNumberText(count, KindOfLevel(list.levels[other].kind)));
    }
    if (marker.endsWith(u';'))
        marker.chop(1);
    return marker;
}

} // namespace platform
