#include "recorder/recording_journal.h"

#include "base/carry_on.h"
#include "base/numbers.h"
#include "recorder/wav_header.h"

#include <algorithm>
#include <array>

namespace recorder {

namespace {

constexpr std::ptrdiff_t mostEntries = 50;

// Parses a line: channels, bits, samples per second, and the path after the third comma; a path may have
// commas.
std::optional<RecordingJournal::Entry> parsed(base::TextView line) {
    std::array<int, 3> numbers{};
    for (int& number : numbers) {
        const auto comma = line.find(u',');
        if (comma == base::TextView::npos)
            return std::nullopt;
        number = static_cast<int>(base::val(line.substr(0, comma)));
        line.remove_prefix(comma + 1);
    }
    const auto [channels, bits, samples] = numbers;
    const bool possible =
        (channels == 1 || channels == 2) && (bits == 8 || bits == 16) && samples > 0 && samples <= 192000;
    if (!possible || line.empty())
        return std::nullopt;
    return RecordingJournal::Entry{base::Text(line), pcmFormat(channels, bits, samples)};
}

base::Text line(const RecordingJournal::Entry& entry) {
    base::Text text;
    for (const int number :
         {int{entry.format.channels}, int{entry.format.bitsPerSample}, int{entry.format.samplesPerSec}})
        text += base::numberText(number) + u',';
    return text + entry.path;
}

} // namespace

void RecordingJournal::begun(base::TextView recording, const platform::WaveFormat& format) {
    std::vector<Entry> all = entries();
    std::erase_if(all, [&](const Entry& entry) { return entry.path == recording; });
    if (std::ssize(all) >= mostEntries)
        all.erase(all.begin(), all.end() - (mostEntries - 1));
    all.push_back({base::Text(recording), format});
    write(all);
}

void RecordingJournal::finished(base::TextView recording) {
    std::vector<Entry> all = entries();
    if (std::erase_if(all, [&](const Entry& entry) { return entry.path == recording; }) > 0)
        write(all);
}

std::vector<RecordingJournal::Entry> RecordingJournal::entries() const {
    std::vector<base::Text> lines;
    base::carryOn([&] { lines = files_.readLines(path_); });
    std::vector<Entry> all;
    for (const base::Text& line : lines) {
        if (auto entry = parsed(line))
            all.push_back(std::move(*entry));
    }
    return all;
}

std::optional<platform::WaveFormat> RecordingJournal::formatOf(base::TextView recording) const {
    for (const Entry& entry : entries()) {
        if (entry.path == recording)
            return entry.format;
    }
    return std::nullopt;
}

void RecordingJournal::write(const std::vector<Entry>& entries) const {
    if (entries.empty()) {
        base::removeFile(path_);
        return;
    }
    std::vector<base::Text> lines;
    std::transform(entries.begin(), entries.end(), std::back_inserter(lines), line);
    files_.writeLines(path_, lines);
}

} // namespace recorder
