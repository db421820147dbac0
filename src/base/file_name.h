// File names within the length limit of file systems.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

inline constexpr std::size_t longestFileName = 255; // bytes

// The name, cut to at most `most` bytes at a character boundary of UTF-8.
std::string_view wholeLetters(std::string_view name, std::size_t most);

// A name of at most `most` bytes, which must be 20 or more: the name itself, or its beginning and a hash of
// all of it. The result for a name never changes.
std::string shortenedName(std::string_view name, std::size_t most);

} // namespace base
