// Converts a file's letters to UTF-16: bytes of code pages, \u numbers and their fallbacks.
#pragma once

#include "rtf/document.h"
#include "rtf/read/code_pages.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace rtf {

// The encoding of bytes above ASCII.
struct Encoding {
    int codePage = 1252;
    bool symbols = false; // a symbol font: bytes above the blank become U+F021 to U+F0FF
};

// True if all bytes are printable ASCII, which is the same in every code page.
bool isPrintableAscii(std::string_view bytes);

// Buffers bytes until a letter is complete, and surrogates until the pair is complete.
class TextInput {
public:
    // Adds bytes that are decoded together.
    void addBytes(std::string_view bytes) { bytes_ += bytes; }
    void addByte(std::int32_t byte) { bytes_ += static_cast<char>(byte); }
    bool hasBytes() const { return !bytes_.empty(); }

    // Decodes the buffered bytes, without control characters; the view is valid until the next call.
    TextView takeBytes(const Encoding& encoding);

    // The text of a \u number, signed or unsigned: zero to two units. The view is valid until the next call.
    TextView unicode(std::int32_t number);

    // Replaces a high surrogate without a low one by U+FFFD; the view is valid until the next call.
    TextView takeHalf();
    bool hasHalf() const { return half_ != 0; }

    // After a \u: the next `units` letters are its fallback and are skipped.
    void passOver(std::int32_t units) { passOver_ = units; }
    bool passesOver() const { return passOver_ > 0; }
    void passedOne() { --passOver_; }
    void stopPassing() { passOver_ = 0; }

    // The plain bytes without those that are part of a fallback.
    std::string_view rest(std::string_view bytes);

private:
    CodePages pages_;
    std::string bytes_;
    Text text_;
    char16_t half_ = 0;
    std::int32_t passOver_ = 0;
};

} // namespace rtf
