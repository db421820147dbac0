#include "base/numbers.h"

#include "base/failure.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace base {

namespace {

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

// Length of the decimal number at the start of `text`, without skipping blanks; 0 if there is none.
std::size_t numberLength(TextView text) {
    const auto at = [&](std::size_t i) { return i < text.size() ? text[i] : u'\0'; };
    std::size_t end = at(0) == u'+' || at(0) == u'-' ? 1 : 0;
    std::size_t digits = 0;
    for (; isDigit(at(end)); ++end)
        ++digits;
    if (at(end) == u'.') {
        ++end;
        for (; isDigit(at(end)); ++end)
            ++digits;
    }
    if (digits == 0)
        return 0;
    if (at(end) == u'e' || at(end) == u'E') {
        std::size_t exponent = end + 1;
        if (at(exponent) == u'+' || at(exponent) == u'-')
            ++exponent;
        if (isDigit(at(exponent))) {
            while (isDigit(at(exponent)))
                ++exponent;
            end = exponent;
        }
    }
    return end;
}

std::int16_t fitted(std::int32_t value) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (value < Limits::min() || value > Limits::max())
        throw Failure("Overflow");
    return static_cast<std::int16_t>(value);
}

} // namespace

bool isNumber(TextView text) {
    return !text.empty() && numberLength(text) == text.size();
}

double val(TextView text) {
    while (!text.empty() && (text.front() == u' ' || text.front() == u'\t'))
        text.remove_prefix(1);
    text = text.substr(0, numberLength(text));
    if (!text.empty() && text.front() == u'+')
        text.remove_prefix(1);
    const std::string digits(text.begin(), text.end());
    double value = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (read.ec != std::errc::result_out_of_range)
        return value;
    // The exponent is out of range: beyond every caller's limit, or so small that it counts as 0.
    if (digits.find("e-") != std::string::npos || digits.find("E-") != std::string::npos)
        return 0;
    return digits.front() == '-' ? -HUGE_VAL : HUGE_VAL;
}

std::int16_t toInt16(double value) {
    const double rounded = std::nearbyint(value);
    if (!(std::abs(rounded) <= 40000))
        throw Failure("Overflow");
    return fitted(static_cast<std::int32_t>(rounded));
}

std::int16_t productInt16(std::int16_t a, std::int16_t b) {
    return fitted(std::int32_t{a} * b);
}

std::int16_t sumInt16(std::int16_t a, std::int16_t b) {
    return fitted(std::int32_t{a} + b);
}

Text numberText(double value) {
    std::array<char, 32> digits{};
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::general, 15);
    return {digits.data(), written.ptr};
}

Text countText(std::size_t count) {
    return fromUtf8(std::to_string(count));
}

Text clockText(double seconds) {
    const auto whole = static_cast<std::int64_t>(seconds > 0 ? seconds : 0);
    const auto twoDigits = [](std::int64_t n) {
        return Text{static_cast<char16_t>(u'0' + n / 10), static_cast<char16_t>(u'0' + n % 10)};
    };
    Text minutesAndSeconds = twoDigits(whole / 60 % 60) + u":" + twoDigits(whole % 60);
    if (whole < 3600)
        return minutesAndSeconds;
    return numberText(std::floor(seconds / 3600)) + u":" + minutesAndSeconds;
}

} // namespace base
