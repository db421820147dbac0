// Texts that Qt cannot lay out in an acceptable time.
#pragma once

#include "base/text.h"
#include "rtf/document.h"

#include <QStringView>

namespace desktop {

// True if the text has a paragraph that would freeze the program: Qt always lays out a whole paragraph, at 2
// million units a second.
bool cannotBeLaidOut(base::TextView text);
bool cannotBeLaidOut(const rtf::Document& document);

// True if the paragraph has a word so long that lines must be allowed to break anywhere: Qt scans the word
// again for each of its lines.
bool hasEndlessWord(QStringView paragraph);

} // namespace desktop
