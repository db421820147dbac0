// How large the picture of an image file is.
#pragma once

#include <string_view>

namespace drafts {

struct ImageSize {
    int width = 0; // twips
    int height = 0;
};

// The size of a PNG or JPEG file at 96 pixels an inch; an inch in each direction when the file does not tell.
ImageSize sizeInTwips(std::string_view bytes);

} // namespace drafts
