#pragma once

#include <QString>

namespace quillbrook {

// The number that a text begins with, its blanks left out: a sign, digits with a point among them, an
// exponent. 0 for a text that does not begin with a number, whatever follows is not looked at. Never fails: a
// number too large for a double is the largest one.
double ReadNumber(const QString& text);

// At most 15 significant digits, without trailing zeros and without a zero before the point; a blank in front
// of zero and of positive numbers, a minus in front of negative ones. Takes finite numbers.
QString WriteNumber(double number);

} // namespace quillbrook
