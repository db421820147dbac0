#pragma once

#include "base/text.h"
#include "platform/worker.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace moments {

// Where the user stopped in each recording: a file of lines "ms<TAB>path", the newest first.
class LastPositions {
public:
    static constexpr std::size_t most = 200; // recordings

    // Reads the file; one that cannot be read has no lines.
    explicit LastPositions(base::Text path);

    // The last position in this recording, in ms.
    std::optional<std::int32_t> of(base::TextView recording) const;
    void set(base::TextView recording, std::int32_t ms);
    // Writes the file by this worker if a position has changed. A failure keeps the old file, until the next
    // change of a position.
    void save(platform::Worker& disk);

private:
    base::Text path_;
    std::vector<std::pair<base::Text, std::int32_t>> positions_;
    bool changed_ = false;
};

} // namespace moments
