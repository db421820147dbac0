#include "moments/stamps.h"

#include "moments/word_units.h"

#include <array>
#include <cstdio>

namespace moments {

namespace {

constexpr bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool isNameUnit(char16_t unit) {
    return isDigit(unit) || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           unit == u':' || unit == u'.';
}

// Reads a text from one place on.
class Scanner {
public:
    Scanner(base::TextView text, std::size_t at) : text_(text), at_(at) {}

    char16_t unit() const { return at_ < text_.size() ? text_[at_] : u'\0'; }
    bool skip(char16_t unit) {
        const bool there = this->unit() == unit && unit != u'\0';
        at_ += there ? 1 : 0;
        return there;
    }
    // A number of so many digits.
    std::optional<int> number(int least, int most) {
        int value = 0;
        int count = 0;
        for (; count < most && isDigit(unit()); ++count)
            value = 10 * value + (text_[at_++] - u'0');
        return count < least || isDigit(unit()) ? std::nullopt : std::optional(value);
    }
    // hh:mm:ss or mm:ss with its fraction, in ms.
    std::optional<std::int32_t> time(bool hoursNeeded) {
        std::array<int, 3> parts{};
        std::size_t count = 0;
        do {
            const auto part = number(count == 0 ? 1 : 2, 2);
            if (!part)
                return std::nullopt;
            parts[count++] = *part;
        } while (count < parts.size() && skip(u':'));
        if (count < (hoursNeeded ? 3U : 2U) || unit() == u':')
            return std::nullopt;
        const int hours = count == 3 ? parts[0] : 0;
        const int minutes = parts[count - 2];
        const int seconds = parts[count - 1];
        if (seconds > 59 || (count == 3 && minutes > 59))
            return std::nullopt;
        return ((hours * 60 + minutes) * 60 + seconds) * 1000 + fraction();
    }
    std::size_t place() const { return at_; }

private:
    // A point or comma that no digit follows ends a sentence.
    int fraction() {
        const std::size_t before = at_;
        if (!skip(u'.') && !skip(u','))
            return 0;
        int ms = 0;
        int scale = 100;
        for (; isDigit(unit()) && scale > 0; scale /= 10)
            ms += scale * (text_[at_++] - u'0');
        if (scale == 100 || isDigit(unit()))
            at_ = before;
        return at_ == before ? 0 : ms;
    }

    base::TextView text_;
    std::size_t at_;
};

} // namespace

std::optional<Stamp> stampAt(base::TextView text, std::size_t position) {
    struct Form {
        char16_t begin;
        base::TextView end;
    };
    static constexpr std::array<Form, 4> forms{{{u'[', u"]"}, {u'(', u")"}, {u'{', u"}"}, {u'#', u"-t#"}}};
    Scanner at(text, position);
    const auto stamp = [&](std::int32_t ms) {
        return Stamp{static_cast<std::int32_t>(position), static_cast<std::int32_t>(at.place() - position),
                     ms};
    };
    for (const Form& form : forms) {
        if (!at.skip(form.begin))
            continue;
        const auto ms = at.time(false);
        if (!ms)
            return std::nullopt;
        for (const char16_t unit : form.end)
            if (!at.skip(unit))
                return std::nullopt;
        return stamp(*ms);
    }
    if (!isDigit(at.unit()) || (position > 0 && isNameUnit(text[position - 1])))
        return std::nullopt;
    const auto ms = at.time(true);
    if (!ms)
        return std::nullopt;
    const char16_t behind = at.unit();
    const bool goesOn = behind == u'.' || behind == u','
                            ? at.place() + 1 < text.size() && isDigit(text[at.place() + 1])
                            : isNameUnit(behind);
    return goesOn ? std::nullopt : std::optional(stamp(*ms));
}

std::vector<Stamp> stampsIn(base::TextView text) {
    std::vector<Stamp> stamps;
    for (std::size_t at = text.find_first_of(u"[({#0123456789"); at != base::TextView::npos;) {
        const auto stamp = stampAt(text, at);
        if (stamp)
            stamps.push_back(*stamp);
        at =
            text.find_first_of(u"[({#0123456789", at + (stamp ? static_cast<std::size_t>(stamp->length) : 1));
    }
    return stamps;
}

base::Text stampText(std::int32_t ms) {
    const int seconds = ms / 1000;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "[%02d:%02d:%02d] ", seconds / 3600, seconds / 60 % 60,
                  seconds % 60);
    return base::fromUtf8(text.data());
}

Timed momentsOfStamps(base::TextView text) {
    Timed timed;
    std::size_t covered = 0;
    for (const Stamp& stamp : stampsIn(text)) {
        std::size_t begin = static_cast<std::size_t>(stamp.position) + static_cast<std::size_t>(stamp.length);
        while (begin < text.size() && isBlank(text[begin]))
            ++begin;
        if (begin < covered || begin == text.size() || stampAt(text, begin))
            continue;
        std::size_t end = begin + 1;
        while (end < text.size() && inOneWord(text[end - 1], text[end]))
            ++end;
        timed.runs.push_back({static_cast<std::uint32_t>(begin - covered), {}});
        timed.runs.push_back({static_cast<std::uint32_t>(end - begin), Moment{.start = stamp.ms}});
        covered = end;
    }
    timed.runs.push_back({static_cast<std::uint32_t>(text.size() - covered), {}});
    return timed;
}

} // namespace moments
