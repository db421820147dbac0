// One line of a bookmark file: the position in eight characters, two blanks, the name, fifteen blanks and the
// position again. All before the fifteen blanks is what the user sees, the key ("ChiaveBM").
#pragma once

#include "base/text.h"

namespace bookmarks {

// A position of the player ("mm:ss" or "h:mm:ss") filled up to "hh:mm:ss" on its left.
base::Text paddedPosition(base::TextView position);

// The key of a bookmark at this padded position.
base::Text ChiaveBM(base::TextView position, base::TextView name);

// The whole line of a bookmark.
base::Text lineOf(base::TextView key, base::TextView position);

// The key in a line, without the blanks at its end. Throws base::Failure for a line too short to hold one.
base::Text keyOf(base::TextView line);

// The seconds that the end of a line tells, whole. The line of an old file, whose end is "mm:ss", is read by
// the same places: mm as hours, ss as minutes and as seconds.
double secondsOf(base::TextView line);

// A line of an old file, which began with "mm:ss" and two blanks, with hours put before it; any other as it
// is. The end of the line stays.
base::Text mended(base::TextView line);

} // namespace bookmarks
