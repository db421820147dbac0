#include "rtf/read/reader.h"

#include "rtf/read/parser.h"

#include <algorithm>

namespace rtf {

namespace {

// Length of the prefix before "\rtf": byte-order mark, white space and the first brace; 0 if the bytes are
// not RTF.
std::size_t openingOf(std::string_view bytes) {
    const std::size_t whole = bytes.size();
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark)
        bytes.remove_prefix(byteOrderMark.size());
    const auto skipBlanks = [&] {
        bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
    };
    skipBlanks();
    if (!bytes.starts_with('{'))
        return 0;
    bytes.remove_prefix(1);
    skipBlanks();
    return bytes.starts_with("\\rtf") ? whole - bytes.size() : 0;
}

} // namespace

bool isRtf(std::string_view bytes) {
    return openingOf(bytes) > 0;
}

Document read(std::string_view bytes) {
    const std::size_t opening = openingOf(bytes);
    return Parser(bytes.substr(opening), opening > 0).run();
}

} // namespace rtf
