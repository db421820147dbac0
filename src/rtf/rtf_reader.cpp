#include "rtf/rtf_reader.h"

#include "rtf/rtf_parser.h"

#include <algorithm>

namespace rtf {

bool isRtf(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark)
        bytes.remove_prefix(byteOrderMark.size());
    const auto skipBlanks = [&] {
        bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
    };
    skipBlanks();
    if (!bytes.starts_with('{'))
        return false;
    bytes.remove_prefix(1);
    skipBlanks();
    return bytes.starts_with("\\rtf");
}

Document read(std::string_view bytes) {
    return Parser(bytes).run();
}

} // namespace rtf
