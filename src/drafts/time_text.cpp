#include "drafts/time_text.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace drafts {

namespace {

constexpr std::int64_t latest = 500LL * 3600 * 1000; // ms

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

std::size_t digitsAt(TextView text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    return end - at;
}

std::int64_t number(TextView digits) {
    std::int64_t value = 0;
    for (const char16_t digit : digits)
        value = value * 10 + (digit - u'0');
    return value;
}

// Thousandths of the digits behind the point, rounded.
std::int64_t thousandths(TextView digits) {
    const std::int64_t kept = number(digits.substr(0, 3));
    const std::int64_t scale = digits.size() == 1 ? 100 : digits.size() == 2 ? 10 : 1;
    return kept * scale + (digits.size() > 3 && digits[3] >= u'5' ? 1 : 0);
}

} // namespace

std::optional<TimeText> timeAtHead(TextView text) {
    TimeText time;
    std::int64_t seconds = 0;
    while (true) {
        const std::size_t digits = digitsAt(text, time.length);
        if (digits == 0 || digits > 9)
            return std::nullopt;
        const std::int64_t part = number(text.substr(time.length, digits));
        if (time.colons > 0 && part >= 60)
            return std::nullopt;
        seconds = seconds * 60 + part;
        time.length += digits;
        if (time.colons == 2 || time.length >= text.size() || text[time.length] != u':' ||
            digitsAt(text, time.length + 1) == 0)
            break;
        ++time.colons;
        ++time.length;
    }
    std::int64_t ms = seconds * 1000;
    if (time.length < text.size() && (text[time.length] == u'.' || text[time.length] == u',')) {
        if (const std::size_t digits = digitsAt(text, time.length + 1); digits > 0) {
            time.fraction = text[time.length];
            ms += thousandths(text.substr(time.length + 1, digits));
            time.length += 1 + digits;
        }
    }
    if (ms > latest)
        return std::nullopt;
    time.ms = static_cast<Ms>(ms);
    return time;
}

Ms toMs(double seconds) {
    const double ms = std::round(seconds * 1000);
    return ms >= 0 && ms <= static_cast<double>(latest) ? static_cast<Ms>(ms) : noTime;
}

Text timeText(Ms ms, char16_t separator) {
    const auto padded = [](Ms value, std::size_t width) {
        std::string digits = std::to_string(value);
        digits.insert(0, width - std::min(width, digits.size()), '0');
        return Text(digits.begin(), digits.end());
    };
    const Ms seconds = std::max(ms, 0) / 1000;
    Text text =
        padded(seconds / 3600, 2) + u':' + padded(seconds / 60 % 60, 2) + u':' + padded(seconds % 60, 2);
    if (separator != u'\0')
        text += separator + padded(std::max(ms, 0) % 1000, 3);
    return text;
}

} // namespace drafts
