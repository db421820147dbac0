#include "safety/records.h"

#include <array>

namespace safety {

namespace {

constexpr std::size_t numberSize = 4;
constexpr std::size_t headSize = 2 * numberSize + 1; // length, checksum, type

constexpr std::array<std::uint32_t, 256> makeTable() {
    constexpr std::uint32_t polynomial = 0xEDB88320;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? polynomial ^ (value >> 1U) : value >> 1U;
        table[byte] = value;
    }
    return table;
}

void appendNumber(std::string& bytes, std::uint32_t value) {
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift);
}

std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < numberSize; ++i)
        value |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
    return value;
}

} // namespace

std::uint32_t checksum(std::string_view bytes) {
    static constexpr auto table = makeTable();
    std::uint32_t value = 0xFFFFFFFF;
    for (const char byte : bytes)
        value = table[(value ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (value >> 8U);
    return ~value;
}

std::string framed(RecordType type, std::string_view payload) {
    std::string body(1, static_cast<char>(type));
    body += payload;
    std::string record;
    record.reserve(headSize + payload.size());
    appendNumber(record, static_cast<std::uint32_t>(payload.size()));
    appendNumber(record, checksum(body));
    return record += body;
}

std::vector<Record> intactRecords(std::string_view bytes) {
    std::vector<Record> records;
    while (bytes.size() >= headSize) {
        const std::size_t length = numberAt(bytes, 0);
        if (length > bytes.size() - headSize)
            break;
        const std::string_view body = bytes.substr(headSize - 1, length + 1);
        if (checksum(body) != numberAt(bytes, numberSize))
            break;
        records.push_back({static_cast<RecordType>(body.front()), std::string(body.substr(1))});
        bytes.remove_prefix(headSize + length);
    }
    return records;
}

Packer& Packer::number(std::uint32_t value) {
    appendNumber(packed_, value);
    return *this;
}

Packer& Packer::bytes(std::string_view value) {
    appendNumber(packed_, static_cast<std::uint32_t>(value.size()));
    packed_ += value;
    return *this;
}

std::uint32_t Unpacker::number() {
    if (rest_.size() < numberSize) {
        rest_ = {};
        return 0;
    }
    const std::uint32_t value = numberAt(rest_, 0);
    rest_.remove_prefix(numberSize);
    return value;
}

std::string_view Unpacker::bytes() {
    const std::size_t length = number();
    if (length > rest_.size()) {
        rest_ = {};
        return {};
    }
    const std::string_view value = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return value;
}

} // namespace safety
