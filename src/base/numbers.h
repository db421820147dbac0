// Rules for numbers: 16 bits wide where the program says so, decimal text with a point whatever the locale.
#pragma once

#include "base/text.h"

#include <cstdint>

namespace base {

// The number at the head of the text: blanks are skipped, then as many characters are read as form a decimal
// number (sign, digits, one point, exponent); 0 when there is none. "12abc" is 12, "abc" is 0.
double val(TextView text);

// True when the whole text is one decimal number, in the form that val reads.
bool isNumber(TextView text);

// To a signed 16-bit number, halves to the nearest even value. Throws Failure when the value does not fit.
std::int16_t toInt16(double value);

// Product of two 16-bit numbers. Throws Failure on overflow.
std::int16_t productInt16(std::int16_t a, std::int16_t b);

// Sum of two 16-bit numbers. Throws Failure on overflow.
std::int16_t sumInt16(std::int16_t a, std::int16_t b);

// Decimal text without blanks, of 15 significant digits at most: 1.2000000000000002 is "1.2", 75 is "75".
Text numberText(double value);

// Hours, minutes and seconds as the player tells them: "mm:ss" below an hour, "h:mm:ss" from there on.
// Seconds are counted whole, a started one not yet; negative counts as 0.
Text clockText(double seconds);

} // namespace base
