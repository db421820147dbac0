// The readers, one for each form. Each takes text that was told to be of its form, throws Damage when it
// cannot be read, and asks `goesOn` now and then.
#pragma once

#include "drafts/draft.h"

#include <functional>
#include <string>
#include <string_view>

namespace drafts {

// Is told what share of the file has been read, 0 to 1; answers false to give up.
using Progress = std::function<bool(double share)>;

// Stands in the JSON that this program exports: what is read from it is exactly what was written.
inline constexpr std::string_view exactMember = "quillmere_transcript";

Draft readSubRip(TextView text);
Draft readWebVtt(TextView text);
Draft readStampedText(TextView text);

// HTML with stamps as spans of the class "timestamp".
Draft readStampedHtml(TextView html);

// `json` is UTF-8. Throws Cancelled when `progress` says so.
Draft readJson(const std::string& json, const Progress& progress);

} // namespace drafts
