// What Qt cannot lay out in a time that a user would wait for.
#pragma once

#include "base/text.h"
#include "rtf/rtf_document.h"

namespace desktop {

// True for a text with a paragraph, or a word in one, that would freeze the program: Qt lays a paragraph out
// as a whole, 2 million units in a second, and goes over a word without an end anew for each of its lines.
bool cannotBeLaidOut(base::TextView text);
bool cannotBeLaidOut(const rtf::Document& document);

} // namespace desktop
