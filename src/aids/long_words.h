#pragma once

#include "editor/snapshot_text.h"
#include "platform/rich_text.h"

#include <cstddef>
#include <cstdint>
#include <map>

namespace aids {

// The long words of a text, through every change of it. The text is read in parts; a change costs only what
// it touches.
class LongWords {
public:
    static constexpr std::size_t least = 8;           // letters
    static constexpr std::size_t most = 64;           // letters
    static constexpr std::size_t mostWords = 100'000; // different ones; further ones are left out

    // Forgets all words: the text is to be read again from its beginning.
    void reset();
    // Reads on for about so many units.
    void read(const editor::SnapshotText& text, std::int32_t units);
    bool isRead(const editor::SnapshotText& text) const { return read_ >= text.length(); }
    void change(const editor::SnapshotText& before, const editor::SnapshotText& after,
                const platform::TextChange& change);

    // The rest of the most frequent word that begins so; empty for none. A capital may begin a word that is
    // known without it.
    base::Text restOf(base::TextView begun) const;

private:
    void count(base::TextView word, int by);
    base::Text likeliest(base::TextView begun) const;

    std::map<base::Text, int, std::less<>> words_; // with their number
    std::int32_t read_ = 0;                        // the words that begin before are known
};

} // namespace aids
