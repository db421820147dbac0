#include "rtf/read/picture.h"

#include "rtf/read/tokens.h"

#include <cstdint>

namespace rtf {

namespace {

int digitOf(char byte) {
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const char letter = static_cast<char>(byte | 0x20);
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

// Collects bytes from hexadecimal digits.
class HexBytes {
public:
    void add(std::string_view digits) {
        for (const char byte : digits) {
            const int digit = digitOf(byte);
            if (digit < 0)
                continue;
            if (half_ >= 0)
                bytes_ += static_cast<char>(half_ * 16 + digit);
            half_ = half_ >= 0 ? -1 : digit;
        }
    }

    void addBinary(std::string_view bytes) { bytes_ += bytes; }

    std::string take() { return std::move(bytes_); }

private:
    std::string bytes_;
    int half_ = -1;
};

// The size in a picture group, in twips and per cent.
struct Size {
    std::int64_t goal = 0;
    std::int64_t scale = 100;

    int twips() const {
        constexpr std::int64_t widest = 144000; // 100 inches
        const std::int64_t scaled = goal * (scale > 0 && scale <= 10000 ? scale : 100) / 100;
        return scaled > 0 && scaled <= widest ? static_cast<int>(scaled) : 0;
    }
};

// Reads one picture group, from after its first control word.
std::optional<Picture> readPicture(Tokenizer& tokens) {
    Picture picture;
    HexBytes bytes;
    Size width;
    Size height;
    bool drawable = false;
    for (std::size_t depth = 1; depth > 0;) {
        const Token token = tokens.next();
        if (token.kind == TokenKind::End)
            break;
        if (token.kind == TokenKind::GroupOpen)
            ++depth;
        else if (token.kind == TokenKind::GroupClose)
            --depth;
        else if (token.kind == TokenKind::Binary)
            bytes.addBinary(token.text);
        else if (depth > 1)
            continue; // properties, and the picture's unique id
        else if (token.kind == TokenKind::Plain)
            bytes.add(token.text);
        else if (token.text == "pngblip" || token.text == "jpegblip") {
            drawable = true;
            picture.kind = token.text == "pngblip" ? PictureKind::Png : PictureKind::Jpeg;
        } else if (token.text == "picwgoal")
            width.goal = token.number;
        else if (token.text == "pichgoal")
            height.goal = token.number;
        else if (token.text == "picscalex")
            width.scale = token.number;
        else if (token.text == "picscaley")
            height.scale = token.number;
    }
    picture.bytes = bytes.take();
    picture.width = width.twips();
    picture.height = height.twips();
    return drawable && !picture.bytes.empty() ? std::optional(std::move(picture)) : std::nullopt;
}

} // namespace

std::optional<Picture> pictureOf(std::string_view range) {
    Tokenizer tokens(range);
    for (Token token = tokens.next(); token.kind != TokenKind::End; token = tokens.next())
        if (token.kind == TokenKind::Word && token.text == "pict")
            if (auto picture = readPicture(tokens))
                return picture;
    return std::nullopt;
}

} // namespace rtf
