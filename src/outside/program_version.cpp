#include "outside/program_version.h"

#include "base/numbers.h"

namespace outside {

namespace {

std::string field(int number) {
    std::string digits;
    if (number < 100)
        digits = "0" + std::to_string(number);
    if (number < 10)
        digits = "00" + std::to_string(number);
    return digits;
}

} // namespace

std::string Version::digits() const {
    return field(major) + field(minor) + field(revision);
}

base::Text Version::shown() const {
    return base::numberText(major) + u"." + base::numberText(minor) + u".0." + base::numberText(revision);
}

} // namespace outside
