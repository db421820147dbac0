// Records of a file that grows at its end and may be cut off anywhere.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace safety {

// What a record of the journal is about. The numbers stand in files.
enum class RecordType : std::uint8_t {
    Source = 1, // the whole text as RTF
    Change = 2, // paragraphs that gave way to others
    State = 3,  // path, title, caret and flag of the document
    Marks = 4   // the bookmarks of the open recording
};

struct Record {
    RecordType type = RecordType::Source;
    std::string payload;
};

// The record as it stands in the file: length, checksum, type, payload. Numbers are little-endian.
std::string framed(RecordType type, std::string_view payload);

// The intact records from the beginning on. The first one that is torn or damaged ends them: what follows
// cannot be trusted to belong to what stands before.
std::vector<Record> intactRecords(std::string_view bytes);

// CRC-32 as in ISO 3309, the one of zip files.
std::uint32_t checksum(std::string_view bytes);

// Puts numbers and texts into a payload, one behind the other.
class Packer {
public:
    Packer& number(std::uint32_t value);
    Packer& bytes(std::string_view value);
    Packer& text(base::TextView value) { return bytes(base::toUtf8(value)); }
    std::string take() { return std::move(packed_); }

private:
    std::string packed_;
};

// Takes them out in the same order. A payload that is too short gives 0 and empty texts from there on.
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
