// What the tests of the RTF room say again and again.
#pragma once

#include "rtf/rtf_reader.h"
#include "rtf/rtf_writer.h"

#include <string>
#include <string_view>

namespace reading {

// The fonts that the samples use: 0 western, 1 symbols, 2 Cyrillic, 3 Japanese, 4 Thai.
inline constexpr std::string_view head =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fnil\\fcharset2 "
    "Symbol;}"
    "{\\f2\\fcharset204 Courier;}{\\f3\\fcharset128 Gothic;}{\\f4\\fcharset222 Thai;}}"
    "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}";

inline rtf::Document document(std::string_view body) {
    return rtf::read(std::string(head).append(body).append("}"));
}

inline std::string plain(std::string_view body) {
    return base::toUtf8(rtf::plainText(document(body)));
}

// The format of the first letter.
inline rtf::CharFormat letter(std::string_view body) {
    const rtf::Document read = document(body);
    return read.formats[read.runs.front().format];
}

inline rtf::ParagraphFormat paragraph(const rtf::Document& read, std::size_t index = 0) {
    return read.paragraphFormats[read.paragraphs[index].format];
}

} // namespace reading
