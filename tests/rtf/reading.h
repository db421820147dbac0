// Shared helpers of the RTF tests.
#pragma once

#include "rtf/read/reader.h"
#include "rtf/write/writer.h"
#include "testing.h"

namespace reading {

// Fonts of the samples: 0 Western, 1 symbols, 2 Cyrillic, 3 Japanese, 4 Thai.
inline constexpr std::string_view head =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fnil\\fcharset2 "
    "Symbol;}"
    "{\\f2\\fcharset204 Courier;}{\\f3\\fcharset128 Gothic;}{\\f4\\fcharset222 Thai;}}"
    "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}";

// Reads a body. Also expects that writing and reading it again gives the same document, in plain ASCII.
inline rtf::Document document(std::string_view body) {
    rtf::Document read = rtf::read(std::string(head).append(body).append("}"));
    const std::string written = rtf::write(read);
    EXPECT_EQ(rtf::read(written), read) << body << '\n' << written;
    EXPECT_TRUE(std::all_of(written.begin(), written.end(), [](char byte) { return byte > 0; })) << body;
    return read;
}

// Expects each body to read as the text beside it.
inline void expectTexts(std::initializer_list<std::pair<std::string_view, std::string_view>> rows) {
    for (const auto& [body, text] : rows)
        EXPECT_EQ(base::toUtf8(rtf::plainText(document(body))), text) << body;
}

// The body as the writer writes it, from its first paragraph on, without line ends.
inline std::string rewritten(std::string_view body) {
    std::string written = rtf::write(document(body));
    std::erase_if(written, [](char byte) { return byte == '\r' || byte == '\n'; });
    return written.substr(written.find("\\pard"), written.rfind('}') - written.find("\\pard"));
}

// What the writer writes at the beginning of a paragraph with default formats.
inline const std::string usual = R"(\pard\ql \plain\f0\fs24 )";

} // namespace reading
