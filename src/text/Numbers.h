// Numbers as users type them and as statements, screens and pages show them.
#pragma once

#include <QString>

// Whether the text is a number as a whole: blanks around it, a sign, digits with at most one point, an
// exponent. Full-width digits, signs and points count as their half-width forms. Digit grouping ("1,000")
// is not a number, since its leading number would be another one.
bool isNumeric(const QString& text);

// The number that the text begins with (leading blanks are passed over), 0 when there is none.
double leadingNumber(const QString& text);

// Rounded to the nearest whole number, halves to the even one. Raises error 6 outside 16 and 32 bits.
qint16 toInteger(double number);
qint32 toLong(double number);

// The shortest decimal text that reads back as the same double, as statements carry it; without an exponent
// from 1e-15 to 1e15. Raises error 6 for a number beyond the doubles.
QString decimalText(double number);

// `number` in a pattern such as "0.0000", "0.####", "##0", "0000". Rounds half away from zero on the shortest
// decimal text of the double, so that 0.00005 shows as 0.0001.
QString formatNumber(double number, const QString& pattern);

// The `digits` characters after the first of the whole number's decimal text: 10000 + 13 with 4 digits gives
// "0013", 10000 + 12345 "2345". Numbers that lists show with leading zeros are cut so.
QString digitsAfterFirst(qint64 number, int digits);
