#include "rtf/rtf_kept.h"

#include <algorithm>
#include <array>

namespace rtf {

namespace {

bool isPlainByte(char byte) {
    return byte != '\0' && static_cast<unsigned char>(byte) < 0x80;
}

void appendHex(std::string_view bytes, std::string_view before, std::string& out) {
    static constexpr std::string_view digits = "0123456789abcdef";
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        out += before;
        out += digits[value / 16];
        out += digits[value % 16];
    }
}

// Copies tokens as 7-bit ASCII. What it writes comes out the same when it is copied again.
class Copier {
public:
    explicit Copier(std::string& out) : out_(out), open_(out.empty() || out.back() != ' ') {}

    void add(const Token& token) {
        switch (token.kind) {
        case TokenKind::Plain:
            addText(token.raw);
            break;
        case TokenKind::Binary:
            addHex(token.text);
            break;
        case TokenKind::Symbol:
            // A backslash whose other byte cannot be written would take hold of what comes next.
            if (token.text.empty() || !isPlainByte(token.text[0]))
                break;
            [[fallthrough]];
        default:
            out_ += token.raw;
            open_ = mayGoOn(token);
        }
    }

private:
    static bool mayGoOn(const Token& token) {
        constexpr std::size_t wholeHex = 4;
        return (token.kind == TokenKind::Word && token.raw.back() != ' ') ||
               (token.kind == TokenKind::Hex && token.raw.size() < wholeHex);
    }

    // True for a byte that would become part of a word in front of it.
    static bool goesOn(char byte) {
        return byte == ' ' || byte == '-' || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
               (byte >= 'A' && byte <= 'Z');
    }

    void addHex(std::string_view bytes) {
        if (bytes.empty())
            return;
        if (open_)
            out_ += '\n';
        appendHex(bytes, "", out_);
        open_ = false;
    }

    void addText(std::string_view bytes) {
        for (const char byte : bytes) {
            if (byte == '\0')
                continue;
            if (!isPlainByte(byte)) {
                appendHex(std::string_view(&byte, 1), "\\'", out_);
            } else {
                // The tokenizer leaves line ends out, but one may have been what ended the word.
                if (open_ && goesOn(byte))
                    out_ += '\n';
                out_ += byte;
            }
            open_ = false;
        }
    }

    std::string& out_;
    bool open_; // the last token would take more bytes
};

} // namespace

void KeptReferences::note(std::string_view range) {
    static constexpr std::array<std::string_view, 4> fontWords{"f", "af", "deff", "pnf"};
    static constexpr std::array<std::string_view, 14> colourWords{
        "cf",  "cb",     "highlight", "chcbpat", "chcfpat", "cbpat",   "cfpat",
        "ulc", "brdrcf", "clcbpat",   "clcfpat", "pncf",    "trcbpat", "trcfpat"};
    constexpr std::int32_t mostColours = 0x7FFF;
    const auto isOneOf = [](std::string_view word, const auto& names) {
        return std::find(names.begin(), names.end(), word) != names.end();
    };
    Tokenizer tokens(range);
    for (Token token = tokens.next(); token.kind != TokenKind::End; token = tokens.next()) {
        if (token.kind != TokenKind::Word || !token.hasNumber || token.number < 0)
            continue;
        if (isOneOf(token.text, fontWords))
            fonts.insert(token.number);
        else if (token.number <= mostColours && isOneOf(token.text, colourWords))
            highestColour = std::max(highestColour, token.number);
    }
}

void copyGroup(Tokenizer& tokens, std::string& out) {
    Copier copier(out);
    for (std::size_t depth = 1; depth > 0;) {
        const Token token = tokens.next();
        if (token.kind == TokenKind::End) {
            out.append(depth, '}');
            return;
        }
        if (token.kind == TokenKind::GroupOpen)
            ++depth;
        else if (token.kind == TokenKind::GroupClose)
            --depth;
        copier.add(token);
    }
}

void skipGroup(Tokenizer& tokens) {
    for (std::size_t depth = 1; depth > 0;) {
        const TokenKind kind = tokens.next().kind;
        if (kind == TokenKind::End)
            return;
        if (kind == TokenKind::GroupOpen)
            ++depth;
        else if (kind == TokenKind::GroupClose)
            --depth;
    }
}

} // namespace rtf
