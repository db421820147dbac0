#include "rtf/read/kept.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

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

// Copies tokens as 7-bit ASCII. Copying its output again yields the same output.
class Copier {
public:
    // Starts after `word`, the first control word of an open group.
    Copier(std::string_view word, std::string& out)
        : out_(out), extensible_(out.empty() || out.back() != ' ') {
        noteWord(word);
    }

    bool isDone() const { return depth_ == 0; }

    void add(const Token& token) {
        switch (token.kind) {
        case TokenKind::Plain:
            addText(token.raw);
            break;
        case TokenKind::Binary:
            if (data_.empty() || data_.back() == depth_)
                addHex(token.text);
            else
                appendHex(token.text, "", deeperData_);
            break;
        case TokenKind::Symbol:
            // Without its second byte, a backslash would combine with the next byte.
            if (!token.text.empty() && isPlainByte(token.text[0]))
                copy(token);
            break;
        case TokenKind::Word:
            noteWord(token.text);
            copy(token);
            break;
        case TokenKind::GroupOpen:
            ++depth_;
            copy(token);
            break;
        case TokenKind::GroupClose:
            copy(token);
            closeGroup();
            break;
        case TokenKind::Hex:
            copy(token);
            break;
        case TokenKind::End:
            while (!isDone()) {
                out_ += '}';
                closeGroup();
            }
        }
    }

private:
    // Hexadecimal digits count as data directly in the picture's or object's group; binary data may be nested
    // deeper.
    void noteWord(std::string_view word) {
        const bool holdsData = word == "pict" || word == "objdata";
        if (holdsData && (data_.empty() || data_.back() != depth_))
            data_.push_back(depth_);
    }

    void closeGroup() {
        if (!data_.empty() && data_.back() == depth_)
            data_.pop_back();
        --depth_;
        if (!data_.empty() && data_.back() == depth_)
            out_ += std::exchange(deeperData_, {});
    }

    void copy(const Token& token) {
        out_ += token.raw;
        extensible_ = canBeExtended(token);
    }

    static bool canBeExtended(const Token& token) {
        constexpr std::size_t wholeHex = 4;
        return (token.kind == TokenKind::Word && token.raw.back() != ' ') ||
               (token.kind == TokenKind::Hex && token.raw.size() < wholeHex);
    }

    // True for a byte that would extend a preceding control word.
    static bool extendsAWord(char byte) {
        return byte == ' ' || byte == '-' || (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
               (byte >= 'A' && byte <= 'Z');
    }

    void addHex(std::string_view bytes) {
        if (bytes.empty())
            return;
        if (extensible_)
            out_ += '\n';
        appendHex(bytes, "", out_);
        extensible_ = false;
    }

    void addText(std::string_view bytes) {
        for (const char byte : bytes) {
            if (byte == '\0')
                continue;
            if (!isPlainByte(byte)) {
                appendHex(std::string_view(&byte, 1), "\\'", out_);
            } else {
                // The tokenizer skips line ends, but one may have separated the control word from this byte.
                if (extensible_ && extendsAWord(byte))
                    out_ += '\n';
                out_ += byte;
            }
            extensible_ = false;
        }
    }

    std::string& out_;
    bool extensible_; // the last token would absorb following bytes
    std::size_t depth_ = 1;
    std::vector<std::size_t> data_; // depths of the open picture and object groups
    std::string deeperData_;        // digits of binary data nested in the innermost of these groups
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

void copyGroup(Tokenizer& tokens, std::string_view word, std::string& out) {
    Copier copier(word, out);
    while (!copier.isDone())
        copier.add(tokens.next());
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
