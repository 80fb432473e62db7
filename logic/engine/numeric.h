#pragma once

#include <QString>

#include <cstdint>

// The keyboard's number rules, shared by every window: checked conversions that never
// truncate silently, lenient reading of typed numbers, and the text forms of numbers.
namespace quellpad {

// Rounds half to even, then fails with OverflowError outside 0..255.
std::uint8_t ToByte(double value);
// Rounds half to even, then fails with OverflowError outside -32768..32767.
std::int16_t ToInt16(double value);
// Rounds half to even, then fails with OverflowError outside the 32-bit range.
std::int32_t ToInt32(double value);

// The numeric value of a text's leading number; blanks are skipped, text without a
// number is 0 ("12ab" is 12, "" and "." are 0, "2.5" is 2.5, "-3" is -3).
double Val(const QString& text);

// The integer part, rounded towards minus infinity (Int(-2.5) is -3).
double IntPart(double value);

// Nearest whole number, halves to the even neighbour (2.5 gives 2, 3.5 gives 4).
double RoundHalfEven(double value);

// The number as text with a leading blank for zero and positive numbers
// (12 gives " 12", -3 gives "-3", 0.5 gives " .5").
QString Str(double value);

// Decimal digits with no sign and no blanks (12 gives "12").
QString Digits(long long value);

// A loosely typed command value: a number, or numeric text read leniently.
class LooseNumber {
public:
    LooseNumber(int value) : value_(value) {}
    LooseNumber(double value) : value_(value) {}
    LooseNumber(const QString& text) : value_(Val(text)) {}
    LooseNumber(const char* text) : value_(Val(QString::fromLatin1(text))) {}
    double Value() const { return value_; }

private:
    double value_;
};

} // namespace quellpad
