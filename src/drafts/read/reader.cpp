#include "drafts/read/reader.h"

#include "drafts/letters.h"
#include "drafts/read/stamps.h"

#include <algorithm>

namespace drafts {

namespace {

constexpr TextView replacement = u"\uFFFD";

std::optional<bool> utf16IsBig(std::string_view bytes) {
    const std::string_view mark = bytes.substr(0, 2);
    if (mark == "\xFE\xFF" || mark == "\xFF\xFE")
        return mark == "\xFE\xFF";
    return std::nullopt;
}

// True for bytes that are UTF-8 but for a few: recognisers cut letters where their tokens end.
bool isDamagedUtf8(TextView decoded) {
    const auto foreign = std::count_if(decoded.begin(), decoded.end(),
                                       [](char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; });
    const auto sound = std::count_if(decoded.begin(), decoded.end(), [](char16_t unit) {
        return unit >= 0x80 && (unit < 0xDC80 || unit > 0xDCFF);
    });
    return foreign <= 2 * sound;
}

// Replaces surrogates without a partner: bytes that are no UTF-8, or a damaged UTF-16 file. True if there
// were any.
bool replaceLoneSurrogates(Text& text) {
    bool replaced = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto kind = text[i] & 0xFC00;
        if (kind == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00) {
            ++i;
        } else if (kind == 0xD800 || kind == 0xDC00) {
            text[i] = replacement[0];
            replaced = true;
        }
    }
    return replaced;
}

bool isJson(TextView text) {
    text = stripped(text);
    const TextView inside = stripped(text.substr(std::min<std::size_t>(text.size(), 1)));
    return !inside.empty() && ((text[0] == u'{' && (inside[0] == u'"' || inside[0] == u'}')) ||
                               (text[0] == u'[' && (inside[0] == u'{' || inside[0] == u']')));
}

// A few lines tell whether the text has times of any form.
bool hasArrows(const std::vector<TextView>& all) {
    return std::any_of(all.begin(), all.end(), [](TextView line) {
        line = stripped(line);
        const bool digit = !line.empty() && line[0] >= u'0' && line[0] <= u'9';
        return digit && line.find(u"-->") != TextView::npos;
    });
}

Draft readText(TextView text) {
    const TextView head = stripped(text.substr(0, 100));
    if (head.substr(0, 6) == u"WEBVTT" && (head.size() == 6 || isBlank(head[6])))
        return readWebVtt(text);
    if (head.substr(0, 5) == u"{\\rtf")
        throw Damage(Fault::UnknownForm, 1);
    return hasArrows(lines(text)) ? readSubRip(text) : readStampedText(text);
}

} // namespace

Text decoded(std::string_view bytes, const base::CodePage& page) {
    const auto big = utf16IsBig(bytes);
    if (!big)
        return base::decodeFile(bytes, page);
    Text text((bytes.size() - 2) / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 + i * 2]);
        const auto second = static_cast<unsigned char>(bytes[3 + i * 2]);
        text[i] = static_cast<char16_t>(*big ? first << 8U | second : second << 8U | first);
    }
    return text;
}

Draft read(std::string bytes, const base::CodePage& page, const Progress& progress) {
    bool badLetters = false;
    Text text = decoded(std::string_view(bytes).substr(0, 1000), page);
    const bool json = isJson(text);
    if (!base::isUtf8(bytes) && !utf16IsBig(bytes) && json) {
        text = base::fromUtf8(bytes);
        badLetters = isDamagedUtf8(text);
        if (!badLetters)
            text = decoded(bytes, page);
        replaceLoneSurrogates(text);
        bytes = base::toUtf8(text);
    } else if (!json || utf16IsBig(bytes)) {
        text = decoded(bytes, page);
        badLetters = replaceLoneSurrogates(text);
        bytes = json ? base::toUtf8(text) : std::string();
    }
    if (json && bytes.substr(0, 3) == "\xEF\xBB\xBF")
        bytes.erase(0, 3);
    Draft draft = json ? readJson(bytes, progress) : readText(text);
    if (badLetters)
        draft.note(Fault::BadLetters, 1);
    const bool timed = std::any_of(draft.segments.begin(), draft.segments.end(), [](const Segment& segment) {
        return segment.startMs != noTime || !segment.words.empty();
    });
    if (!timed)
        throw Damage(draft.form == Form::StampedText ? Fault::UnknownForm : Fault::NoTimes, 1);
    return draft;
}

} // namespace drafts
