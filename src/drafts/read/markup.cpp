#include "drafts/read/markup.h"

#include "drafts/letters.h"
#include "drafts/time_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace drafts {

namespace {

constexpr std::size_t longestStyle = 200; // units of "{\\an8\\pos(1,2)}"

bool isAsciiLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

Text fromCodePoint(std::uint32_t codePoint) {
    if (codePoint == 0 || codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF))
        return u"\uFFFD";
    if (codePoint < 0x10000)
        return Text(1, static_cast<char16_t>(codePoint));
    return {static_cast<char16_t>(0xD7C0 + (codePoint >> 10)),
            static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF))};
}

// The character of "#1234" or "#x1f"; none when it is not such a number.
std::optional<Text> numbered(TextView body) {
    const bool hex = body.size() > 1 && (body[1] == u'x' || body[1] == u'X');
    body.remove_prefix(hex ? 2 : 1);
    if (body.empty() || body.size() > 7)
        return std::nullopt;
    std::uint32_t value = 0;
    for (const char16_t unit : body) {
        const bool digit = unit >= u'0' && unit <= u'9';
        const char16_t small = static_cast<char16_t>(unit | 0x20);
        if (!digit && !(hex && small >= u'a' && small <= u'f'))
            return std::nullopt;
        value = value * (hex ? 16 : 10) + static_cast<std::uint32_t>(digit ? unit - u'0' : small - u'a' + 10);
    }
    return fromCodePoint(value);
}

// Puts the text together, with one space for each run of blanks.
class Collector {
public:
    void add(char16_t unit) {
        if (isBlank(unit)) {
            blank_ = !cue.text.empty();
            return;
        }
        if (std::exchange(blank_, false))
            cue.text += u' ';
        cue.text += unit;
        addStyle();
    }

    // Takes the tag <b>, <i> or <u>, with a class or not, and its end; ignores any other.
    void takeStyleTag(TextView inside) {
        const int step = inside.starts_with(u'/') ? -1 : 1;
        inside.remove_prefix(step < 0 ? 1 : 0);
        if (inside.empty() || (inside.size() > 1 && inside[1] != u'.' && !isBlank(inside[1])))
            return;
        const auto kind = TextView(u"biuBIU").find(inside.front());
        if (kind != TextView::npos)
            open_[kind % 3] = std::max(open_[kind % 3] + step, 0);
    }

    // Where the next letter will stand.
    std::size_t place() const { return cue.text.size() + (blank_ ? 1 : 0); }

    CueText cue;

private:
    // The last letter has the styles of the open tags, and so has a blank before it.
    void addStyle() {
        StyledPart letter{0, 0, open_[0] > 0, open_[1] > 0, open_[2] > 0};
        if (letter == StyledPart())
            return;
        const auto end = static_cast<std::uint32_t>(cue.text.size());
        StyledPart* const last = cue.styles.empty() ? nullptr : &cue.styles.back();
        const bool goesOn = last && last->begin + last->length + 2 >= end && last->bold == letter.bold &&
                            last->italic == letter.italic && last->underline == letter.underline;
        if (goesOn) {
            last->length = end - last->begin;
        } else {
            letter.begin = end - 1;
            letter.length = 1;
            cue.styles.push_back(letter);
        }
    }

    bool blank_ = false;
    std::array<int, 3> open_{}; // how many of <b>, <i> and <u> are open
};

// Takes what a tag of WebVTT says; `inside` is what stands between the brackets.
void takeCueTag(TextView inside, Collector& to) {
    if (const auto time = timeAtHead(inside); time && time->length == inside.size()) {
        to.cue.stamps.push_back({to.place(), time->ms});
    } else if (inside == u"/v") {
        to.cue.voices.push_back({to.place(), {}});
    } else if (inside.size() > 1 && inside[0] == u'v' && (isBlank(inside[1]) || inside[1] == u'.')) {
        const auto blank = std::find_if(inside.begin(), inside.end(), isBlank);
        const TextView name(blank, inside.end());
        to.cue.voices.push_back({to.place(), cueText(name, Tags::Styles).text});
    }
}

// The length of the tag at the head of the text; 0 when there is none.
std::size_t tagAtHead(TextView text, Tags tags) {
    if (text.substr(0, 2) == u"{\\" && tags == Tags::Styles) {
        const auto end = text.substr(0, longestStyle).find(u'}');
        return end == TextView::npos ? 0 : end + 1;
    }
    const auto end = text.find_first_of(u"<>", 1);
    if (end == TextView::npos || text[end] == u'<')
        return 0;
    const std::size_t name = text[1] == u'/' ? 2 : 1;
    return tags == Tags::Cues || isAsciiLetter(text[name]) ? end + 1 : 0;
}

} // namespace

std::optional<Entity> entityAtHead(TextView text) {
    static constexpr std::pair<TextView, TextView> known[] = {
        {u"amp", u"&"},        {u"lt", u"<"},          {u"gt", u">"},         {u"quot", u"\""},
        {u"apos", u"'"},       {u"nbsp", u"\u00A0"},   {u"lrm", u"\u200E"},   {u"rlm", u"\u200F"},
        {u"shy", u"\u00AD"},   {u"hellip", u"\u2026"}, {u"ndash", u"\u2013"}, {u"mdash", u"\u2014"},
        {u"lsquo", u"\u2018"}, {u"rsquo", u"\u2019"},  {u"ldquo", u"\u201C"}, {u"rdquo", u"\u201D"},
        {u"laquo", u"\u00AB"}, {u"raquo", u"\u00BB"},
    };
    const auto end = text.substr(0, 10).find(u';');
    if (end == TextView::npos || end < 2)
        return std::nullopt;
    const TextView body = text.substr(1, end - 1);
    if (body[0] == u'#') {
        const auto character = numbered(body);
        return character ? std::optional<Entity>({*character, end + 1}) : std::nullopt;
    }
    const auto* const row = std::find_if(std::begin(known), std::end(known),
                                         [&](const auto& pair) { return pair.first == body; });
    return row == std::end(known) ? std::nullopt : std::optional<Entity>({Text(row->second), end + 1});
}

CueText cueText(TextView marked, Tags tags) {
    Collector collected;
    while (!marked.empty()) {
        const char16_t unit = marked.front();
        if (const std::size_t length = unit == u'<' || unit == u'{' ? tagAtHead(marked, tags) : 0;
            length > 0) {
            if (unit == u'<')
                collected.takeStyleTag(stripped(marked.substr(1, length - 2)));
            if (tags == Tags::Cues)
                takeCueTag(stripped(marked.substr(1, length - 2)), collected);
            marked.remove_prefix(length);
        } else if ((unit == u'<' || unit == u'{') && marked.size() > 1 && marked[1] == noTag) {
            collected.add(unit);
            marked.remove_prefix(2);
        } else if (const auto entity = unit == u'&' ? entityAtHead(marked) : std::nullopt) {
            for (const char16_t letter : entity->text)
                collected.add(letter);
            marked.remove_prefix(entity->length);
        } else {
            collected.add(unit);
            marked.remove_prefix(1);
        }
    }
    return std::move(collected.cue);
}

} // namespace drafts
