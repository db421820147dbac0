// Pictures in kept ranges, for an editor that draws them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rtf {

enum class PictureKind { Png, Jpeg };

// A picture as the bytes of its file.
struct Picture {
    PictureKind kind = PictureKind::Png;
    std::string bytes;
    int width = 0; // twips, 0 where the range does not tell
    int height = 0;
};

// The first picture of the range in a format that can be drawn; empty when there is none.
std::optional<Picture> pictureOf(std::string_view range);

} // namespace rtf
