// What Qt cannot lay out in a time that a user would wait for.
#pragma once

#include "base/text.h"
#include "rtf/document.h"

#include <QStringView>

namespace desktop {

// True for a text with a paragraph that would freeze the program: Qt lays one out as a whole, 2 million units
// in a second.
bool cannotBeLaidOut(base::TextView text);
bool cannotBeLaidOut(const rtf::Document& document);

// True for a paragraph with a word so long that Qt, which goes over it again for each of its lines, has to be
// told to break lines anywhere.
bool hasEndlessWord(QStringView paragraph);

} // namespace desktop
