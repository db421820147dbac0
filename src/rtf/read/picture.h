// Extracts pictures from kept ranges, so that an editor can draw them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rtf {

enum class PictureKind { Png, Jpeg };

// A picture as the bytes of its image file.
struct Picture {
    PictureKind kind = PictureKind::Png;
    std::string bytes;
    int width = 0; // twips, 0 if unknown
    int height = 0;
};

// The first picture of the range in a drawable format; none if there is none.
std::optional<Picture> pictureOf(std::string_view range);

} // namespace rtf
