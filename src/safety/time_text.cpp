#include "safety/time_text.h"

#include <array>
#include <ctime>

namespace safety {

base::Text timeText(std::int64_t seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    ::localtime_r(&time, &parts);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts);
    return base::fromUtf8(text.data());
}

} // namespace safety
