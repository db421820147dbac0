#include "moments/layer.h"

#include "base/files.h"
#include "moments/alignment.h"
#include "moments/word_units.h"

#include <array>
#include <cmath>

namespace moments {

namespace {

constexpr std::uint32_t version = 1;
constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint32_t hasEnd = 1;
constexpr std::uint32_t hasConfidence = 2;

std::uint32_t checksum(base::TextView text) {
    std::uint32_t sum = 2166136261U;
    for (const char16_t unit : text)
        sum = (sum ^ unit) * 16777619U;
    return sum;
}

std::string asAscii(std::string_view bytes) {
    std::string ascii;
    ascii.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::uint32_t group = 0;
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        for (std::size_t i = 0; i < 3; ++i)
            group = group << 8U | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            ascii += i <= count ? digits[group >> (18 - 6 * i) & 63U] : '=';
    }
    return ascii;
}

// Anything that is no digit is passed over.
std::string fromAscii(std::string_view ascii) {
    static const auto values = [] {
        std::array<std::int8_t, 256> table{};
        table.fill(-1);
        for (std::size_t i = 0; i < digits.size(); ++i)
            table[static_cast<unsigned char>(digits[i])] = static_cast<std::int8_t>(i);
        return table;
    }();
    std::string bytes;
    bytes.reserve(ascii.size() / 4 * 3);
    std::uint32_t group = 0;
    int bits = 0;
    for (const char digit : ascii) {
        const int value = values[static_cast<unsigned char>(digit)];
        if (value < 0)
            continue;
        group = group << 6U | static_cast<std::uint32_t>(value);
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>(group >> static_cast<unsigned>(bits));
        }
    }
    return bytes;
}

// Small numbers take one byte.
class Writer {
public:
    void number(std::uint64_t value) {
        for (; value >= 0x80; value >>= 7U)
            bytes += static_cast<char>(value | 0x80U);
        bytes += static_cast<char>(value);
    }
    void moment(const std::optional<Moment>& moment) {
        if (!moment)
            return number(0);
        const std::int64_t step = std::int64_t{moment->start} - last_;
        last_ = moment->start;
        const bool ends = moment->end != Moment::noEnd;
        const bool known = moment->confidence != Moment::noConfidence;
        const std::uint64_t folded = static_cast<std::uint64_t>(step < 0 ? -2 * step - 1 : 2 * step);
        number(1 + (folded << 2U | (ends ? hasEnd : 0U) | (known ? hasConfidence : 0U)));
        if (ends)
            number(static_cast<std::uint64_t>(std::max(moment->end - moment->start, 0)));
        if (known)
            bytes += static_cast<char>(moment->confidence);
    }

    std::string bytes;

private:
    std::int64_t last_ = 0;
};

// The same in reverse; `good` turns false where the bytes make no sense.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    std::uint8_t byte() {
        if (rest_.empty()) {
            good = false;
            return 0;
        }
        const auto value = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return value;
    }
    std::uint64_t number() {
        std::uint64_t value = 0;
        for (unsigned shift = 0; good; shift += 7) {
            const std::uint8_t next = byte();
            value |= std::uint64_t{next & 0x7FU} << shift;
            if ((next & 0x80U) == 0)
                return value;
            good = good && shift < 49;
        }
        return 0;
    }
    std::uint32_t size(std::uint64_t most) {
        const std::uint64_t value = number();
        good = good && value <= most;
        return good ? static_cast<std::uint32_t>(value) : 0;
    }
    std::string_view bytes(std::size_t count) {
        good = good && count <= rest_.size();
        const std::string_view part = rest_.substr(0, good ? count : 0);
        rest_.remove_prefix(part.size());
        return part;
    }
    std::optional<Moment> moment() {
        const std::uint64_t key = number();
        if (key == 0 || !good)
            return std::nullopt;
        const std::uint64_t folded = (key - 1) >> 2U;
        last_ += folded % 2 == 1 ? -static_cast<std::int64_t>(folded / 2) - 1
                                 : static_cast<std::int64_t>(folded / 2);
        good = good && last_ >= 0 && last_ <= INT32_MAX;
        Moment moment{.start = good ? static_cast<std::int32_t>(last_) : 0};
        if (((key - 1) & hasEnd) != 0)
            moment.end = moment.start + static_cast<std::int32_t>(
                                            size(static_cast<std::uint64_t>(INT32_MAX - moment.start)));
        if (((key - 1) & hasConfidence) != 0)
            moment.confidence = std::min<std::uint8_t>(byte(), 100);
        return moment;
    }
    std::size_t left() const { return rest_.size(); }

    bool good = true;

private:
    std::string_view rest_;
    std::int64_t last_ = 0;
};

// A word of the text that was packed.
struct OldWord {
    std::uint32_t gap = 0; // units in front of it
    std::uint16_t hash = 0;
    std::size_t runs = 0; // the first of them
    std::size_t count = 0;
    std::uint32_t length = 0;
};

class Runs {
public:
    explicit Runs(const Timed& timed) : runs_(timed.runs) {}

    // The runs of the next `count` letters.
    std::vector<Timed::Run> take(std::size_t count) {
        std::vector<Timed::Run> part;
        while (count > 0 && at_ < runs_.size()) {
            const std::size_t here = std::min<std::size_t>(count, runs_[at_].length - used_);
            if (!part.empty() && part.back().moment == runs_[at_].moment)
                part.back().length += static_cast<std::uint32_t>(here);
            else if (here > 0)
                part.push_back({static_cast<std::uint32_t>(here), runs_[at_].moment});
            used_ += here;
            count -= here;
            if (used_ == runs_[at_].length) {
                ++at_;
                used_ = 0;
            }
        }
        return part;
    }

private:
    const std::vector<Timed::Run>& runs_;
    std::size_t at_ = 0;
    std::size_t used_ = 0;
};

std::optional<Moment> firstOf(const Timed& timed, const OldWord& word) {
    for (std::size_t run = word.runs; run < word.runs + word.count; ++run)
        if (timed.runs[run].moment)
            return timed.runs[run].moment;
    return std::nullopt;
}

} // namespace

Layer layerOf(base::TextView path, double seconds) {
    Layer layer;
    layer.recording = base::afterLast(path, base::pathSeparator);
    layer.length = static_cast<std::int32_t>(std::lround(seconds * 1000));
    return layer;
}

std::string pack(const Layer& layer, base::TextView text) {
    Writer out;
    const std::string name = base::toUtf8(layer.recording);
    out.number(version);
    out.number(name.size());
    out.bytes += name;
    out.number(static_cast<std::uint64_t>(std::max(layer.length, 0)));
    out.number(checksum(text));
    std::size_t words = 0;
    forEachWord(text, [&](std::size_t, base::TextView) { ++words; });
    out.number(words);
    Runs runs(layer.timed);
    std::size_t at = 0;
    forEachWord(text, [&](std::size_t begin, base::TextView word) {
        runs.take(begin - at);
        const std::vector<Timed::Run> part = runs.take(word.size());
        const std::uint16_t hash = wordHash(word);
        out.number(begin - at);
        out.bytes += static_cast<char>(hash & 0xFFU);
        out.bytes += static_cast<char>(hash >> 8U);
        // One run for all of it, as nearly every word has, or a list of them.
        const bool plain = part.size() == 1 && part.front().length == word.size();
        out.number(word.size() * 2 + (plain ? 0 : 1));
        if (!plain)
            out.number(part.size());
        for (const Timed::Run& run : part) {
            if (!plain)
                out.number(run.length);
            out.moment(run.moment);
        }
        at = begin + word.size();
    });
    return asAscii(out.bytes);
}

std::optional<Layer> unpack(std::string_view packed, base::TextView text) {
    const std::string bytes = fromAscii(packed);
    Reader in(bytes);
    if (in.number() != version)
        return std::nullopt;
    Layer layer;
    layer.recording = base::fromUtf8(in.bytes(in.size(in.left())));
    layer.length = static_cast<std::int32_t>(in.size(INT32_MAX));
    const std::uint64_t sum = in.number();
    std::vector<OldWord> words(in.size(in.left() / 4));
    Timed old;
    for (OldWord& word : words) {
        word.gap = in.size(INT32_MAX);
        word.hash = in.byte();
        word.hash = static_cast<std::uint16_t>(word.hash | in.byte() << 8U);
        const std::uint32_t form = in.size(INT32_MAX);
        word.length = form / 2;
        word.runs = old.runs.size();
        word.count = form % 2 == 0 ? 1 : in.size(in.left());
        for (std::size_t run = 0; run < word.count && in.good; ++run) {
            const std::uint32_t length = form % 2 == 0 ? word.length : in.size(word.length);
            old.runs.push_back({length, in.moment()});
        }
        if (!in.good)
            return std::nullopt;
    }
    std::vector<std::uint16_t> oldHashes;
    std::vector<std::uint16_t> hashes;
    for (const OldWord& word : words)
        oldHashes.push_back(word.hash);
    forEachWord(text, [&](std::size_t, base::TextView word) { hashes.push_back(wordHash(word)); });
    std::vector<std::size_t> matches;
    if (sum == checksum(text) && words.size() == hashes.size())
        for (std::size_t word = 0; word < words.size(); ++word)
            matches.push_back(word);
    else
        matches = align(oldHashes, hashes);
    std::size_t at = 0;
    std::size_t next = 0;
    forEachWord(text, [&](std::size_t begin, base::TextView letters) {
        layer.timed.runs.push_back({static_cast<std::uint32_t>(begin - at), {}});
        at = begin + letters.size();
        const std::size_t match = matches[next++];
        const auto size = static_cast<std::uint32_t>(letters.size());
        if (match == unmatched) {
            layer.timed.runs.push_back({size, {}});
            return;
        }
        const OldWord& word = words[match];
        std::uint64_t covered = 0;
        for (std::size_t run = word.runs; run < word.runs + word.count; ++run)
            covered += old.runs[run].length;
        if (covered != size || word.length != size) {
            layer.timed.runs.push_back({size, firstOf(old, word)});
            return;
        }
        for (std::size_t run = word.runs; run < word.runs + word.count; ++run)
            layer.timed.runs.push_back(old.runs[run]);
    });
    layer.timed.runs.push_back({static_cast<std::uint32_t>(text.size() - at), {}});
    return layer;
}

} // namespace moments
