#include "platform/rich_text/rich_text_numbering.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "platform/rich_text/rich_text_markers.h"

namespace platform {
namespace {

constexpr int kBlocksAround = 400;     // how far the items of one list are looked for
constexpr std::size_t kMostLists = 32; // of one edit that are counted again
constexpr qsizetype kMostDigits = 6;

struct RomanDigit {
    int value;
    QLatin1StringView text;
};

constexpr RomanDigit kRomanDigits[] = {
    {1000, QLatin1StringView("m")}, {900, QLatin1StringView("cm")}, {500, QLatin1StringView("d")},
    {400, QLatin1StringView("cd")}, {100, QLatin1StringView("c")},  {90, QLatin1StringView("xc")},
    {50, QLatin1StringView("l")},   {40, QLatin1StringView("xl")},  {10, QLatin1StringView("x")},
    {9, QLatin1StringView("ix")},   {5, QLatin1StringView("v")},    {4, QLatin1StringView("iv")},
    {1, QLatin1StringView("i")},
};

QString Roman(int number) {
    QString text;
    for (const auto& [value, digits] : kRomanDigits) {
        for (; number >= value && text.size() < 32; number -= value)
            text.append(digits);
    }
    return text;
}

// a to z, then aa to zz, and so on
QString Letters(int number) {
    const int count = std::clamp((number - 1) / 26 + 1, 1, 32);
    return QString(count, QChar(u'a' + (std::max(number, 1) - 1) % 26));
}

std::optional<int> NumberOfRoman(const QString& text) {
    int number = 0;
    QStringView rest(text);
    for (const auto& [value, digits] : kRomanDigits) {
        for (; rest.startsWith(digits); rest = rest.mid(digits.size()))
            number += value;
    }
    if (!rest.isEmpty() || number == 0 || Roman(number) != text)
        return std::nullopt;
    return number;
}

std::optional<int> NumberOfLetters(const QString& text) {
    if (text.isEmpty() || text.size() > 32 || text[0] < u'a' || text[0] > u'z' ||
        text.count(text[0]) != text.size())
        return std::nullopt;
    return int(text.size() - 1) * 26 + (text[0].unicode() - u'a') + 1;
}

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool IsLetter(QChar character) {
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
}

// What holds the items of one list together.
struct ListKey {
    int list = 0; // number of the list override, 0 for lists of the older form
    int level = 0;
    double left = 0; // where the older form's paragraphs stand
    double indent = 0;
    bool operator==(const ListKey&) const = default;
};

// An item with a number in its marker.
struct Item {
    QTextBlock block;
    ListKey key;
    QString before; // of the marker, around the number
    QString number;
    QString after;
};

std::optional<Item> ItemOf(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    const QString marker = format.stringProperty(BulletText);
    qsizetype end = marker.size();
    while (end > 0 && !IsDigit(marker[end - 1]) && !IsLetter(marker[end - 1]))
        --end;
    qsizetype start = end;
    while (start > 0 && (IsDigit(marker[end - 1]) ? IsDigit(marker[start - 1]) : IsLetter(marker[start - 1])))
        --start;
    if (start == end)
        return std::nullopt;
    Item item{block, {}, marker.left(start), marker.mid(start, end - start), marker.mid(end)};
    item.key.list = format.intProperty(ListOverride);
    item.key.level = format.intProperty(ListLevel);
    if (item.key.list == 0) {
        const QTextBlockFormat file = FileBlockFormat(format);
        item.key.left = file.leftMargin();
        item.key.indent = file.textIndent();
    }
    return item;
}

std::vector<ListKinds> KindsOf(const QString& number) {
    std::vector<ListKinds> kinds;
    for (const ListKinds kind : {ListKinds::Decimal, ListKinds::LowerRoman, ListKinds::UpperRoman,
                                 ListKinds::LowerLetter, ListKinds::UpperLetter}) {
        if (ListNumberOf(number, kind))
            kinds.push_back(kind);
    }
    return kinds;
}

// The items of a list before a block, the nearest first.
std::vector<Item> ItemsBefore(const QTextBlock& block, const ListKey& key) {
    std::vector<Item> items;
    QTextBlock other = block.previous();
    for (int i = 0; i < kBlocksAround && other.isValid(); ++i, other = other.previous()) {
        std::optional<Item> item = ItemOf(other);
        if (item && item->key == key)
            items.push_back(std::move(*item));
        else if (key.list == 0 && !other.blockFormat().hasProperty(BulletText))
            break; // lists of the older form have no gaps
    }
    return items;
}

// "i" may be the first number or the ninth letter: the items before it tell, else it begins a list.
std::optional<ListKinds> KindOf(const Item& item, const std::vector<Item>& before) {
    std::vector<ListKinds> kinds = KindsOf(item.number);
    if (kinds.empty())
        return std::nullopt;
    QString first = item.number;
    for (const Item& other : before) {
        std::vector<ListKinds> common;
        for (const ListKinds kind : KindsOf(other.number)) {
            if (std::find(kinds.begin(), kinds.end(), kind) != kinds.end())
                common.push_back(kind);
        }
        if (common.empty())
            break;
        kinds = std::move(common);
        first = other.number;
    }
    if (kinds.size() > 1 && first.size() == 1 && first.toLower() != QLatin1String("i"))
        return kinds.back();
    return kinds.front();
}

void SetNumber(const Item& item, int number, ListKinds kind) {
    QTextBlockFormat format = FileBlockFormat(item.block.blockFormat());
    format.setProperty(BulletText, item.before + ListNumberText(number, kind) + item.after);
    if (format.hasProperty(ListStart))
        format.setProperty(ListStart, number);
    QTextCursor(item.block)
        .setBlockFormat(ShownBlockFormat(format, FirstCharFormat(item.block), *item.block.document()));
}

// Counts on from the item, which is the first of its list that the edit can have moved.
void ContinueFrom(const Item& first, int to, int paragraphs) {
    const std::vector<Item> before = ItemsBefore(first.block, first.key);
    const std::optional<ListKinds> kind = KindOf(first, before);
    if (!kind)
        return;
    int previous = before.empty() ? 0 : ListNumberOf(before.front().number, *kind).value_or(0);
    int lastOld = -1; // of the item changed last, -1 for none
    int sought = 0;
    for (QTextBlock block = first.block; block.isValid() && sought < kBlocksAround;
         block = block.next(), ++sought) {
        const std::optional<Item> item = ItemOf(block);
        if (!item || item->key != first.key) {
            if (first.key.list == 0 && !block.blockFormat().hasProperty(BulletText))
                return;
            continue;
        }
        const std::optional<int> old = ListNumberOf(item->number, *kind);
        if (!old)
            return;
        const bool isInside = block.position() <= to;
        if (*old == previous + 1) {
            if (!isInside)
                return;
            lastOld = -1;
        } else {
            const bool goesOn = lastOld >= 0 && *old == lastOld + 1;
            const bool isNear = (isInside || lastOld < 0) && std::abs(*old - previous - 1) <= paragraphs;
            if (!goesOn && !isNear) {
                if (!isInside)
                    return;
                previous = *old; // begins at a number of its own
                lastOld = -1;
                continue;
            }
            SetNumber(*item, previous + 1, *kind);
            lastOld = *old;
        }
        ++previous;
        sought = 0;
    }
}

} // namespace

QString ListNumberText(int number, ListKinds kind) {
    switch (kind) {
    case ListKinds::LowerLetter:
        return Letters(number);
    case ListKinds::UpperLetter:
        return Letters(number).toUpper();
    case ListKinds::LowerRoman:
        return Roman(number);
    case ListKinds::UpperRoman:
        return Roman(number).toUpper();
    case ListKinds::None:
    case ListKinds::Bullet:
        return {};
    case ListKinds::Decimal:
        break;
    }
    return QString::number(number);
}

std::optional<int> ListNumberOf(QStringView text, ListKinds kind) {
    const QString lower = text.toString().toLower();
    const bool isLower = text == lower;
    const bool isUpper = text == lower.toUpper();
    switch (kind) {
    case ListKinds::Decimal: {
        if (text.isEmpty() || text.size() > kMostDigits || !std::all_of(text.begin(), text.end(), IsDigit))
            return std::nullopt;
        return text.toInt();
    }
    case ListKinds::LowerLetter:
        return isLower ? NumberOfLetters(lower) : std::nullopt;
    case ListKinds::UpperLetter:
        return isUpper ? NumberOfLetters(lower) : std::nullopt;
    case ListKinds::LowerRoman:
        return isLower ? NumberOfRoman(lower) : std::nullopt;
    case ListKinds::UpperRoman:
        return isUpper ? NumberOfRoman(lower) : std::nullopt;
    case ListKinds::None:
    case ListKinds::Bullet:
        break;
    }
    return std::nullopt;
}

void ContinueNumbers(QTextDocument& document, int from, int to, int paragraphs) {
    std::vector<ListKey> known;
    int behind = 0;
    QTextCursor edit(&document);
    edit.beginEditBlock(); // laid out once, not for each number
    for (QTextBlock block = document.findBlock(from);
         block.isValid() && behind < kBlocksAround && known.size() < kMostLists; block = block.next()) {
        behind += block.position() > to ? 1 : 0;
        const std::optional<Item> item = ItemOf(block);
        if (!item || std::find(known.begin(), known.end(), item->key) != known.end())
            continue;
        known.push_back(item->key);
        // what stands behind the edit is of a list that it can have moved only if that list began before
        if (block.position() > to && item->key.list == 0 && behind > 1)
            continue;
        ContinueFrom(*item, to, paragraphs);
    }
    edit.endEditBlock();
}

} // namespace platform
