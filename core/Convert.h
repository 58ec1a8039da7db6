#pragma once
// Numbers of the shop: every amount, price and quantity that comes from a text
// box or a grid cell goes through these functions, and nowhere else.
//
//  - Money and quantities live as 32-bit floats and are written into SQL as the
//    float's shortest decimal text (FloatText).
//  - Amounts of a sale are rounded half to even through a 16-bit integer
//    (CInt), which fails with an overflow outside -32768..32767.
//  - IsNumeric is the numeric test of the input boxes: a thousands comma
//    passes ("1,000"), "12a" does not.
//  - Val is "the leading number of the text": it stops at the first character
//    that cannot belong to a number, and gives 0 for an empty text.
//  - CSng / CDbl are the strict conversions: a text that is not a number
//    raises a type mismatch.
#include <QString>
#include <QVariant>
#include <cstdint>

namespace Convert {

bool IsNumeric(const QString& text);
bool IsNumeric(const QVariant& value);

// Strict conversions; throw RuntimeError (type mismatch) on a non-number.
double CDbl(const QString& text);
float CSng(const QString& text);
// Round half to even into 16 or 32 bits; throw RuntimeError (overflow) when out of range.
int16_t CInt(double value);
int16_t CInt(const QString& text);
int32_t CLng(double value);
int32_t CLng(const QString& text);
// Narrow a double to single precision the way an assignment to a 32-bit
// float does; throws overflow outside the float's range.
float ToSingle(double value);

// The leading number of the text; 0 for empty text or no digits.
double Val(const QString& text);

// Round half to even to a whole number (no range check).
double RoundHalfEven(double value);

// Text of a 32-bit figure: the shortest decimal text that reads back as the
// same float.
QString FloatText(float value);
// Text of a 64-bit figure as the classic run-time writes it: at most 15
// significant digits (99.9 - 84 gives "15.9"), never an exponent.
QString DblText(double value);

// Text of a value read from the database, as a grid or a text box shows it:
// null gives "", numbers their shortest text, everything else its string.
QString VarText(const QVariant& value);

// Numeric value of a database value, null as 0 (strict for text that is not numeric).
double VarDbl(const QVariant& value);

// A value shown in a grid with a display format. "d" shows a whole number;
// an empty format shows the value as it is.
QString Formatted(double value, const QString& format);

}  // namespace Convert
