// The moments of a text as a file keeps them: one line of ASCII letters, digits, "+", "/" and "=".
#pragma once

#include "moments/word_moments.h"

#include <string>
#include <string_view>

namespace moments {

// Moments with the recording that they belong to.
struct Layer {
    base::Text recording;    // name of its file, without the folder; empty for none
    std::int32_t length = 0; // of the recording, ms; 0 where it is not known
    Timed timed;
};

// The layer of a recording of this path and length, without words.
Layer layerOf(base::TextView path, double seconds);

// The layer of this text, with a checksum of the text and a number for each of its words.
std::string pack(const Layer& layer, base::TextView text);

// The layer for this text, with runs for all of its letters. Where the text has changed since it was packed,
// its words are aligned with those of the layer: a word that is still there has its moments. Nothing for a
// layer that is damaged or of a later version.
std::optional<Layer> unpack(std::string_view packed, base::TextView text);

} // namespace moments
