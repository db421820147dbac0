#include "aids/abbreviations.h"

#include "aids/letter_case.h"

#include <algorithm>

namespace aids {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t longestLine = 16'384; // bytes

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

bool isControl(char16_t unit) {
    return unit < u' ' || (unit >= 0x7F && unit < 0xA0) || unit == u'\u2028' || unit == u'\u2029';
}

bool isBlankOrControl(char16_t unit) {
    return isControl(unit) || unit == u' ' || unit == u'\u00A0' || unit == u'\u202F';
}

} // namespace

Abbreviations::Abbreviations(std::string_view bytes) {
    for (std::size_t begin = 0; begin <= bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
        Line& line = lines_.emplace_back(Line{std::string(bytes.substr(begin, end - begin)), {}});
        begin = end + 1;
        std::string_view text = line.bytes;
        if (lines_.size() == 1 && text.starts_with(byteOrderMark))
            text.remove_prefix(byteOrderMark.size());
        text = withoutBlanks(text);
        if (text.empty() || text.front() == '#')
            continue;
        auto known = parsed(text);
        // Of two lines for one short form, the first counts.
        if (known && places_.try_emplace(known->shortForm, lines_.size() - 1).second)
            line.known = std::move(*known);
        else
            skipped_.push_back(lines_.size());
    }
}

std::optional<Abbreviation> Abbreviations::parsed(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || line.size() > longestLine || !base::isUtf8(line))
        return std::nullopt;
    Abbreviation found{base::fromUtf8(withoutBlanks(line.substr(0, equals))),
                       base::fromUtf8(withoutBlanks(line.substr(equals + 1)))};
    return isUsable(found.shortForm, found.text) ? std::optional(std::move(found)) : std::nullopt;
}

bool Abbreviations::isUsable(base::TextView shortForm, base::TextView text) {
    return !shortForm.empty() && shortForm.size() <= longestShort && !text.empty() &&
           text.size() <= longestText && shortForm.front() != u'#' &&
           shortForm.find(u'=') == base::TextView::npos &&
           std::ranges::none_of(shortForm, isBlankOrControl) && std::ranges::none_of(text, isControl);
}

std::string Abbreviations::bytes() const {
    std::string all;
    for (const Line& line : lines_)
        (&line == lines_.data() ? all : all += '\n') += line.bytes;
    return all;
}

std::vector<Abbreviation> Abbreviations::all() const {
    std::vector<Abbreviation> known;
    for (const Line& line : lines_)
        if (!line.known.shortForm.empty())
            known.push_back(line.known);
    return known;
}

// In the style of the file's first line.
std::string Abbreviations::written(base::TextView shortForm, base::TextView text) const {
    const bool hasReturns = !lines_.empty() && lines_.front().bytes.ends_with('\r');
    return base::toUtf8(shortForm) + " = " + base::toUtf8(text) + (hasReturns ? "\r" : "");
}

void Abbreviations::set(base::TextView shortForm, base::TextView text) {
    Line fresh{written(shortForm, text), {base::Text(shortForm), base::Text(text)}};
    const auto known = places_.find(fresh.known.shortForm);
    if (known != places_.end()) {
        const bool hasMark = lines_[known->second].bytes.starts_with(byteOrderMark);
        lines_[known->second] = std::move(fresh);
        if (hasMark)
            lines_[known->second].bytes.insert(0, byteOrderMark);
        return;
    }
    // The last line is empty if the file ends in a line feed.
    if (!lines_.empty() && lines_.back().bytes.empty())
        lines_.pop_back();
    places_.emplace(fresh.known.shortForm, lines_.size());
    lines_.push_back(std::move(fresh));
    lines_.emplace_back();
}

void Abbreviations::remove(base::TextView shortForm) {
    const auto known = places_.find(base::Text(shortForm));
    if (known == places_.end())
        return;
    const std::size_t place = known->second;
    if (lines_[place].bytes.starts_with(byteOrderMark) && place + 1 < lines_.size())
        lines_[place + 1].bytes.insert(0, byteOrderMark);
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(place));
    index();
}

void Abbreviations::index() {
    places_.clear();
    for (std::size_t place = 0; place < lines_.size(); ++place)
        if (const base::Text& shortForm = lines_[place].known.shortForm; !shortForm.empty())
            places_.emplace(shortForm, place);
}

const Abbreviations::Line* Abbreviations::line(const base::Text& shortForm) const {
    const auto known = places_.find(shortForm);
    return known == places_.end() ? nullptr : &lines_[known->second];
}

std::optional<Abbreviations::Found> Abbreviations::find(base::TextView typed) const {
    if (typed.empty() || typed.size() > longestShort)
        return std::nullopt;
    const base::Text exact(typed);
    if (const Line* const hit = line(exact))
        return Found{hit->known.text, Case::AsWritten};
    const base::Text small = lowered(typed);
    const Line* const hit = small == exact ? nullptr : line(small);
    if (!hit)
        return std::nullopt;
    if (exact == capitalised(small))
        return Found{hit->known.text, Case::Capital};
    return exact == raised(small) ? std::optional(Found{hit->known.text, Case::Upper}) : std::nullopt;
}

FilledText filled(const Abbreviations::Found& found, const Fillings& fillings) {
    FilledText result;
    bool begins = true; // nothing of the text stands yet
    const auto addPlain = [&](base::TextView plain) {
        if (found.as == Abbreviations::Case::Upper)
            result.text += raised(plain);
        else
            result.text +=
                found.as == Abbreviations::Case::Capital && begins ? capitalised(plain) : base::Text(plain);
        begins = begins && plain.empty();
    };
    base::TextView rest = found.text;
    while (!rest.empty()) {
        const std::size_t open = std::min(rest.find(u'{'), rest.size());
        addPlain(rest.substr(0, open));
        rest.remove_prefix(open);
        const auto take = [&](base::TextView name) {
            const bool hit = rest.starts_with(name);
            rest.remove_prefix(hit ? name.size() : 0);
            return hit;
        };
        if (take(u"{caret}")) {
            if (!result.caret)
                result.caret = result.text.size();
        } else if (take(u"{time}")) {
            result.text += fillings.time();
            begins = false;
        } else if (take(u"{speaker}")) {
            result.text += fillings.speaker();
            begins = false;
        } else if (!rest.empty()) {
            addPlain(rest.substr(0, 1));
            rest.remove_prefix(1);
        }
    }
    return result;
}

} // namespace aids
