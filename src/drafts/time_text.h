// Times as transcripts and subtitle files write them.
#pragma once

#include "drafts/draft.h"

#include <optional>

namespace drafts {

// A time at the head of a text.
struct TimeText {
    Ms ms = 0;
    std::size_t length = 0;    // units that it takes
    int colons = 0;            // 2 with hours, 1 without, 0 for seconds alone
    char16_t fraction = u'\0'; // the separator before the fraction, if there is one
};

// Reads hours, minutes, seconds and a fraction behind "." or ","; hours and minutes may be missing. Seconds
// and minutes behind a colon are below 60. None when the text does not begin with a time, or with one beyond
// 500 hours.
std::optional<TimeText> timeAtHead(TextView text);

// Seconds of a file as milliseconds, rounded; noTime for what is no time.
Ms toMs(double seconds);

// "hh:mm:ss" and the fraction behind the separator; without it when that is NUL.
Text timeText(Ms ms, char16_t separator);

} // namespace drafts
