#include "sound/map_file.h"

#include <bit>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <type_traits>

namespace sound {

namespace {

constexpr std::string_view magic = "QMSOUND1";
constexpr std::uint64_t nsPerSec = 1'000'000'000;

std::uint64_t checksum(std::string_view bytes) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    return sum;
}

class Writer {
public:
    template <typename Number>
    void number(Number value) {
        const auto bits = static_cast<std::make_unsigned_t<Number>>(value);
        for (std::size_t i = 0; i < sizeof bits; ++i)
            bytes.push_back(static_cast<char>(static_cast<unsigned char>(bits >> (8 * i))));
    }
    void count(std::size_t size) { number(static_cast<std::uint32_t>(size)); }

    std::string bytes;
};

// Reads what is there; from the first missing byte on, all numbers are 0.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    template <typename Number>
    Number number() {
        const std::string_view from = text(sizeof(Number));
        std::make_unsigned_t<Number> bits = 0;
        for (std::size_t i = 0; i < from.size(); ++i)
            bits |= static_cast<std::make_unsigned_t<Number>>(
                static_cast<std::make_unsigned_t<Number>>(static_cast<unsigned char>(from[i])) << (8 * i));
        return static_cast<Number>(bits);
    }
    // The number of entries of so many bytes that follow.
    std::size_t count(std::size_t bytes) {
        const auto size = number<std::uint32_t>();
        whole_ = whole_ && size <= rest_.size() / bytes;
        return whole_ ? size : 0;
    }
    std::string_view text(std::size_t size) {
        whole_ = whole_ && size <= rest_.size();
        const std::string_view read = rest_.substr(0, whole_ ? size : 0);
        rest_.remove_prefix(read.size());
        return read;
    }
    bool isWhole() const { return whole_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool whole_ = true;
};

Phrases readPhrases(Reader& reader) {
    std::vector<Phrase> phrases(reader.count(8));
    for (Phrase& phrase : phrases) {
        phrase.begin = reader.number<std::int32_t>();
        phrase.end = reader.number<std::int32_t>();
    }
    std::vector<Gap> gaps(reader.count(5));
    for (Gap& gap : gaps) {
        gap.at = reader.number<std::int32_t>();
        gap.depth = reader.number<std::uint8_t>();
    }
    return {std::move(phrases), std::move(gaps)};
}

} // namespace

std::optional<Recording> Recording::at(const base::Text& path) {
    struct stat status {};
    if (::stat(base::toUtf8(path).c_str(), &status) != 0)
        return std::nullopt;
    return Recording{path, static_cast<std::uint64_t>(status.st_size),
                     status.st_mtim.tv_sec * static_cast<std::int64_t>(nsPerSec) + status.st_mtim.tv_nsec};
}

base::Text mapName(const base::Text& recordingPath) {
    static constexpr base::TextView digits = u"0123456789abcdef";
    base::Text name;
    for (std::uint64_t sum = checksum(base::toUtf8(recordingPath)); name.size() < 16; sum >>= 4U)
        name += digits[sum & 15U];
    return name + u".map";
}

std::string packed(const Recording& recording, const SoundMap& map) {
    Writer file;
    file.number(recording.size);
    file.number(recording.changed);
    const std::string path = base::toUtf8(recording.path);
    file.count(path.size());
    file.bytes += path;
    file.count(map.phrases.all().size());
    for (const Phrase& phrase : map.phrases.all()) {
        file.number(phrase.begin);
        file.number(phrase.end);
    }
    file.count(map.phrases.gaps().size());
    for (const Gap& gap : map.phrases.gaps()) {
        file.number(gap.at);
        file.number(gap.depth);
    }
    const std::vector<Peak>& columns = map.waveform.level(0);
    file.count(columns.size());
    for (const Peak& peak : columns) {
        file.number(peak.most);
        file.number(peak.average);
    }
    Writer head;
    head.bytes = magic;
    head.number(checksum(file.bytes));
    return head.bytes + file.bytes;
}

std::optional<SoundMap> unpacked(std::string_view bytes, const Recording& recording) {
    if (!bytes.starts_with(magic))
        return std::nullopt;
    bytes.remove_prefix(magic.size());
    Reader head(bytes);
    const auto sum = head.number<std::uint64_t>();
    bytes.remove_prefix(std::min(bytes.size(), sizeof sum));
    if (checksum(bytes) != sum)
        return std::nullopt;
    Reader file(bytes);
    Recording found;
    found.size = file.number<std::uint64_t>();
    found.changed = file.number<std::int64_t>();
    found.path = base::fromUtf8(file.text(file.count(1)));
    if (found != recording)
        return std::nullopt;
    SoundMap map;
    map.phrases = readPhrases(file);
    std::vector<Peak> columns(file.count(2));
    for (Peak& peak : columns) {
        peak.most = file.number<std::uint8_t>();
        peak.average = file.number<std::uint8_t>();
    }
    if (!file.isWhole())
        return std::nullopt;
    map.waveform = Waveform(std::move(columns));
    return map;
}

} // namespace sound
