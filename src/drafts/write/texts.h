// Exports as text: subtitles, plain text and JSON, all in UTF-8.
#pragma once

#include "drafts/turns.h"
#include "drafts/write/captions.h"

#include <string>
#include <vector>

namespace drafts {

// The speaker's name stands before the first caption of a turn, where the captions were made with room for
// it.
std::string subRip(const std::vector<Caption>& captions);

// Speakers are voices.
std::string webVtt(const std::vector<Caption>& captions);

struct PlainTextOptions {
    bool stamps = false;  // "[hh:mm:ss] " before a paragraph whose words have a time
    bool speakers = true; // "Name: " where a speaker begins
};

// A line for each paragraph.
std::string plainText(const std::vector<Turn>& turns, const PlainTextOptions& options);

// Segments with words, times in seconds and scores, as recognisers write them. Read again it gives the same
// turns.
std::string json(const std::vector<Turn>& turns);

} // namespace drafts
