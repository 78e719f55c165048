#include "library/list_numbering.h"

#include <array>
#include <utility>

namespace quillbrook {
namespace {

constexpr char16_t kBullet = u'\u2022';

constexpr std::array<std::pair<int, const char*>, 13> kRoman = {{
    {1000, "m"},
    {900, "cm"},
    {500, "d"},
    {400, "cd"},
    {100, "c"},
    {90, "xc"},
    {50, "l"},
    {40, "xl"},
    {10, "x"},
    {9, "ix"},
    {5, "v"},
    {4, "iv"},
    {1, "i"},
}};

QString Roman(int number) {
    QString text;
    for (const auto& [value, letters] : kRoman)
        for (; number >= value; number -= value)
            text += QLatin1String(letters);
    return text;
}

QString Letters(int number) {
    return QString((number - 1) / 26 + 1, QChar(static_cast<char16_t>(u'a' + (number - 1) % 26)));
}

// RTF 1.9.1, \levelnfc
int NumberFormatCode(Numbering numbering) {
    switch (numbering) {
    case Numbering::Decimal:
        return 0;
    case Numbering::UpperRoman:
        return 1;
    case Numbering::LowerRoman:
        return 2;
    case Numbering::UpperLetter:
        return 3;
    case Numbering::LowerLetter:
        return 4;
    case Numbering::Bullet:
        return 23;
    }
    return 0;
}

// RTF 1.9.1, \leveltext: its length, then the text with \'00 where the level's number goes; \levelnumbers
// tells where that is.
QByteArray LevelText(const List& list) {
    if (list.numbering == Numbering::Bullet)
        return QByteArrayLiteral("{\\leveltext\\'01\\u8226 ?;}{\\levelnumbers;}");
    if (list.inBrackets)
        return QByteArrayLiteral("{\\leveltext\\'03(\\'00);}{\\levelnumbers\\'02;}");
    return QByteArrayLiteral("{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}");
}

} // namespace

QString NumberText(Numbering numbering, int number) {
    switch (numbering) {
    case Numbering::Decimal:
        return QString::number(number);
    case Numbering::LowerLetter:
        return Letters(number);
    case Numbering::UpperLetter:
        return Letters(number).toUpper();
    case Numbering::LowerRoman:
        return Roman(number);
    case Numbering::UpperRoman:
        return Roman(number).toUpper();
    case Numbering::Bullet:
        break;
    }
    return QString(QChar(kBullet));
}

QString MarkerText(const List& list, int number) {
    const QString text = NumberText(list.numbering, number);
    if (list.numbering == Numbering::Bullet)
        return text;
    return list.inBrackets ? u'(' + text + u')' : text + u'.';
}

int ListTable::Add(const List& list) {
    const QByteArray id = QByteArray::number(++m_count);
    m_lists += "{\\list\\listtemplateid" + id + "\\listsimple1{\\listlevel\\levelnfc" +
               QByteArray::number(NumberFormatCode(list.numbering)) +
               "\\leveljc0\\levelfollow0\\levelstartat" + QByteArray::number(list.start) + LevelText(list) +
               "\\fi-720\\li720}{\\listname ;}\\listid" + id + '}';
    m_overrides += "{\\listoverride\\listid" + id + "\\listoverridecount0\\ls" + id + '}';
    return m_count;
}

QByteArray ListTable::Source() const {
    if (m_count == 0)
        return {};
    return "{\\*\\listtable" + m_lists + "}{\\*\\listoverridetable" + m_overrides + '}';
}

} // namespace quillbrook
