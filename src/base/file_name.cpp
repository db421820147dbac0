#include "base/file_name.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace base {

namespace {

constexpr std::size_t hashLength = 17; // a sign and 16 digits

// FNV-1a. It is part of file names, so it must never change.
std::uint64_t hashOf(std::string_view bytes) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    return hash;
}

} // namespace

std::string_view wholeLetters(std::string_view name, std::size_t most) {
    std::size_t length = std::min(name.size(), most);
    while (length > 0 && length < name.size() && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U)
        --length;
    return name.substr(0, length);
}

std::string shortenedName(std::string_view name, std::size_t most) {
    if (name.size() <= most)
        return std::string(name);
    std::array<char, hashLength + 1> hash{};
    std::snprintf(hash.data(), hash.size(), "~%016llx", static_cast<unsigned long long>(hashOf(name)));
    return std::string(wholeLetters(name, most - hashLength)) + hash.data();
}

} // namespace base
