#include "output/number_text.h"

#include <QByteArray>
#include <QLocale>
#include <algorithm>
#include <limits>

namespace quillbrook {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

qsizetype SkipDigits(const QByteArray& text, qsizetype from) {
    while (from < text.size() && IsDigit(text[from]))
        ++from;
    return from;
}

bool IsSign(const QByteArray& text, qsizetype at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-');
}

// Length of the number at the start of a text without blanks, 0 for none.
qsizetype NumberLength(const QByteArray& text) {
    const qsizetype whole = IsSign(text, 0) ? 1 : 0;
    qsizetype end = SkipDigits(text, whole);
    qsizetype digits = end - whole;
    if (end < text.size() && text[end] == '.') {
        const qsizetype fraction = end + 1;
        end = SkipDigits(text, fraction);
        digits += end - fraction;
    }
    if (digits == 0)
        return 0;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const qsizetype power = IsSign(text, end + 1) ? end + 2 : end + 1;
        const qsizetype powerEnd = SkipDigits(text, power);
        if (powerEnd > power)
            end = powerEnd;
    }
    return end;
}

} // namespace

double ReadNumber(const QString& text) {
    QByteArray plain = text.toLatin1(); // what is not Latin 1 becomes '?', which ends a number as well
    plain.removeIf([](char c) { return c == ' ' || c == '\t'; });
    plain.truncate(NumberLength(plain));
    const double number = QLocale::c().toDouble(QLatin1String(plain)); // infinite when too large
    constexpr double kLargest = std::numeric_limits<double>::max();
    return std::clamp(number, -kLargest, kLargest);
}

QString WriteNumber(double number) {
    if (number == 0.0)
        return QStringLiteral(" 0");
    // "-d.dddde+xx" gives the digits, already rounded, and the place of the point
    const QByteArray scientific = QByteArray::number(number, 'e', 14);
    const qsizetype e = scientific.indexOf('e');
    const bool isNegative = scientific.startsWith('-');
    QByteArray digits = scientific.left(e);
    digits.removeIf([](char c) { return !IsDigit(c); });
    while (digits.size() > 1 && digits.endsWith('0'))
        digits.chop(1);
    const qsizetype point = scientific.mid(e + 1).toInt() + 1; // digits before it; negative: zeros behind it
    if (point <= 0)
        digits = '.' + QByteArray(-point, '0') + digits;
    else if (point >= digits.size())
        digits.append(QByteArray(point - digits.size(), '0'));
    else
        digits.insert(point, '.');
    return QLatin1Char(isNegative ? '-' : ' ') + QString::fromLatin1(digits);
}

} // namespace quillbrook
