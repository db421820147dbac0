// One line of a bookmark file: the position in eight characters, two blanks, the name, fifteen blanks and the
// position again. The part before the fifteen blanks is the key ("ChiaveBM"), which the user sees.
#pragma once

#include "base/text.h"

namespace bookmarks {

// Pads a player position ("mm:ss" or "h:mm:ss") on the left to "hh:mm:ss".
base::Text paddedPosition(base::TextView position);

// The key of a bookmark at this padded position.
base::Text ChiaveBM(base::TextView position, base::TextView name);

// The complete line of a bookmark.
base::Text lineOf(base::TextView key, base::TextView position);

// The key of a line, without trailing blanks. Throws base::Failure if the line is too short to have one.
base::Text keyOf(base::TextView line);

// The time at the end of a line, in whole seconds. The line of an old file ends in "mm:ss" and is read at the
// same character positions: mm as hours, ss as minutes and as seconds.
double secondsOf(base::TextView line);

// Puts "00:" before a line of an old file, which starts with "mm:ss" and two blanks. Other lines, and the end
// of the line, stay unchanged.
base::Text mended(base::TextView line);

} // namespace bookmarks
