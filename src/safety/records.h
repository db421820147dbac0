// Records of an append-only file that may be cut off anywhere.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace safety {

// The type of a journal record. The numbers are part of the file format.
enum class RecordType : std::uint8_t {
    Source = 1, // the whole text as RTF
    Change = 2, // replaced paragraphs
    State = 3,  // path, title, caret and state of the document
    Marks = 4   // the bookmarks of the open recording
};

struct Record {
    RecordType type = RecordType::Source;
    std::string payload;
};

// Encodes a record as stored in the file: length, checksum, type, payload. Numbers are little-endian.
std::string framed(RecordType type, std::string_view payload);

// The intact records up to the first damaged one. Later records are ignored, because they may depend on the
// damaged one.
std::vector<Record> intactRecords(std::string_view bytes);

// CRC-32 of ISO 3309, as used in zip files.
std::uint32_t checksum(std::string_view bytes);

// Encodes numbers and texts into a payload.
class Packer {
public:
    Packer& number(std::uint32_t value);
    Packer& bytes(std::string_view value);
    Packer& text(base::TextView value) { return bytes(base::toUtf8(value)); }
    std::string take() { return std::move(packed_); }

private:
    std::string packed_;
};

// Decodes them in the same order. After the end of the payload it returns 0 and empty texts.
class Unpacker {
public:
    explicit Unpacker(std::string_view packed) : rest_(packed) {}
    std::uint32_t number();
    std::string_view bytes();
    base::Text text() { return base::fromUtf8(bytes()); }

private:
    std::string_view rest_;
};

} // namespace safety
