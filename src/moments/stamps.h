// Times that stand in a text: "[00:12:34]" and the other common forms.
#pragma once

#include "moments/word_moments.h"

#include <optional>
#include <vector>

namespace moments {

// A time in a text, with the signs around it.
struct Stamp {
    std::int32_t position = 0; // UTF-16 units
    std::int32_t length = 0;
    std::int32_t ms = 0;

    bool operator==(const Stamp&) const = default;
};

// The stamp that begins at this place: [hh:mm:ss], (mm:ss), {hh:mm:ss}, #hh:mm:ss-t#, with or without the
// hours, or hh:mm:ss without signs; each with "." or "," and one to three digits of a fraction.
std::optional<Stamp> stampAt(base::TextView text, std::size_t position);

// All stamps of the text, in order.
std::vector<Stamp> stampsIn(base::TextView text);

// The form that the program writes: "[hh:mm:ss] ", by whole seconds.
base::Text stampText(std::int32_t ms);

// Moments for a text that has none but stamps: the word behind a stamp begins at its time.
Timed momentsOfStamps(base::TextView text);

} // namespace moments
