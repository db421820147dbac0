#include "rtf/read/tables.h"

#include "rtf/read/code_pages.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace rtf {

namespace {

constexpr TextView usualFont = u"Times New Roman";
constexpr int defaultCharset = 1; // the character set of the system that reads the file
constexpr std::size_t longestName = 64;
constexpr std::size_t mostColours = 1U << 16U;

// Old systems with a single code page had one font per script, marked by a suffix of the name. 0 for other
// names.
int charsetOfName(TextView name) {
    static constexpr std::pair<TextView, int> ends[] = {
        {u" CE", 238},       {u" Cyr", 204},    {u" Greek", 161},
        {u" Tur", 162},      {u" Baltic", 186}, {u" (Hebrew)", 177},
        {u" (Arabic)", 178}, {u" (Thai)", 222}, {u" (Vietnamese)", 163},
    };
    const auto* const row = std::find_if(std::begin(ends), std::end(ends),
                                         [&](const auto& end) { return name.ends_with(end.first); });
    return row == std::end(ends) ? 0 : row->second;
}

bool isLeadingSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

} // namespace

FontTable::FontTable() {
    unknown_.font.name = usualFont;
}

void FontTable::begin(std::int32_t number) {
    end();
    current_ = &entries_[number];
    *current_ = FontEntry();
    named_ = false;
}

void FontTable::charset(std::int32_t number) {
    if (current_ == nullptr || number < 0 || number > 255)
        return;
    current_->font.charset = number;
    if (current_->codePage == 0)
        current_->codePage = codePageOfCharset(number);
}

void FontTable::codePage(std::int32_t number) {
    if (current_ != nullptr && number > 0)
        current_->codePage = number;
}

void FontTable::name(TextView part) {
    if (current_ == nullptr || named_)
        return;
    Text& name = current_->font.name;
    for (const char16_t unit : part) {
        if (unit == u';') {
            named_ = true;
            return;
        }
        const bool leadsText = unit == u' ' && name.empty();
        const bool fits = name.size() < longestName || isLeadingSurrogate(name.back());
        if (unit >= u' ' && !leadsText && fits)
            name += unit;
    }
}

void FontTable::end() {
    if (current_ == nullptr)
        return;
    Font& font = current_->font;
    if (font.name.empty())
        font.name = usualFont;
    if (current_->codePage == 0 && font.charset <= defaultCharset)
        if (const int told = charsetOfName(font.name); told != 0)
            charset(told);
    current_ = nullptr;
}

int FontTable::entryPage() const {
    return current_ == nullptr ? 0 : current_->codePage;
}

FontEntry& FontTable::find(std::int32_t number) {
    const auto place = entries_.find(number);
    const bool complete = place != entries_.end() && !place->second.font.name.empty();
    return complete ? place->second : unknown_;
}

void ColourTable::part(int part, std::int32_t value) {
    const auto byte = static_cast<std::uint8_t>(std::clamp(value, 0, 255));
    (part == 0 ? current_.red : part == 1 ? current_.green : current_.blue) = byte;
    current_.automatic = false;
}

void ColourTable::endEntry() {
    if (colours_.size() < mostColours)
        colours_.push_back(current_);
    current_ = Colour();
}

Colour ColourTable::find(std::int32_t index) const {
    const bool known = index >= 0 && static_cast<std::size_t>(index) < colours_.size();
    return known ? colours_[static_cast<std::size_t>(index)] : Colour();
}

std::vector<Colour> ColourTable::first(std::size_t count) const {
    std::vector<Colour> colours(
        colours_.begin(), colours_.begin() + static_cast<std::ptrdiff_t>(std::min(count, colours_.size())));
    colours.resize(count);
    return colours;
}

} // namespace rtf
