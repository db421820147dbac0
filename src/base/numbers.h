// Rules for numbers: 16-bit arithmetic where the program prescribes it, decimal text with a point in any
// locale.
#pragma once

#include "base/text.h"

#include <cstdint>

namespace base {

// The decimal number (sign, digits, one point, exponent) at the start of the text, after blanks; 0 if there
// is none. "12abc" is 12, "abc" is 0.
double val(TextView text);

// True if the whole text is one decimal number in the form that val reads.
bool isNumber(TextView text);

// Rounds to a signed 16-bit number, halves to even. Throws Failure if the value does not fit.
std::int16_t toInt16(double value);

// Product of two 16-bit numbers. Throws Failure on overflow.
std::int16_t productInt16(std::int16_t a, std::int16_t b);

// Sum of two 16-bit numbers. Throws Failure on overflow.
std::int16_t sumInt16(std::int16_t a, std::int16_t b);

// Decimal text without blanks, with at most 15 significant digits: 1.2000000000000002 is "1.2", 75 is "75".
Text numberText(double value);
// A count in decimal digits.
Text countText(std::size_t count);

// A time as the player shows it: "mm:ss" below an hour, "h:mm:ss" from one hour on. Fractions of a second are
// cut off; a negative time counts as 0.
Text clockText(double seconds);

} // namespace base
