// The letters of a file on their way into UTF-16: bytes of code pages, \u numbers and what stands in for
// them.
#pragma once

#include "rtf/document.h"
#include "rtf/read/code_pages.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace rtf {

// How bytes above ASCII are to be taken.
struct Encoding {
    int codePage = 1252;
    bool symbols = false; // a font of symbols: bytes above the blank become U+F021 to U+F0FF
};

// True when all bytes are printable ASCII, so that they are letters of every page.
bool isPrintableAscii(std::string_view bytes);

// Collects bytes until a letter is whole, and pairs of surrogates until both halves are there.
class TextInput {
public:
    // Collects bytes that are decoded together.
    void addBytes(std::string_view bytes) { bytes_ += bytes; }
    void addByte(std::int32_t byte) { bytes_ += static_cast<char>(byte); }
    bool hasBytes() const { return !bytes_.empty(); }

    // The text of the bytes collected, without control characters; the view holds until the next call.
    TextView takeBytes(const Encoding& encoding);

    // The text of a \u number, signed or not: a view of none, one or two units that holds until the next
    // call.
    TextView unicode(std::int32_t number);

    // A first half of a pair that waits in vain becomes U+FFFD: the view holds until the next call.
    TextView takeHalf();
    bool hasHalf() const { return half_ != 0; }

    // After a \u, `units` letters are passed over.
    void passOver(std::int32_t units) { passOver_ = units; }
    bool passesOver() const { return passOver_ > 0; }
    void passedOne() { --passOver_; }
    void stopPassing() { passOver_ = 0; }

    // What is left of plain bytes when those to be passed over are gone.
    std::string_view rest(std::string_view bytes);

private:
    CodePages pages_;
    std::string bytes_;
    Text text_;
    char16_t half_ = 0;
    std::int32_t passOver_ = 0;
};

} // namespace rtf
