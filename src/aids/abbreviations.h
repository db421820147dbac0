#pragma once

#include "base/text.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace aids {

// A short form and the text that it stands for.
struct Abbreviation {
    base::Text shortForm;
    base::Text text;

    bool operator==(const Abbreviation&) const = default;
};

// The file of abbreviations: lines "short = text" in UTF-8. Empty lines and those that begin with "#" are
// comments. A line that cannot be used is skipped. Lines that nobody changes stay as they are, byte by byte.
class Abbreviations {
public:
    static constexpr std::size_t longestShort = 64;  // units
    static constexpr std::size_t longestText = 4000; // units

    Abbreviations() = default;
    explicit Abbreviations(std::string_view bytes);

    std::string bytes() const;
    // All of them, in the order of the file.
    std::vector<Abbreviation> all() const;
    bool empty() const { return places_.empty(); }
    // Line numbers of the damaged lines, which were skipped; the first line is 1.
    const std::vector<std::size_t>& skipped() const { return skipped_; }

    // True if this can be a line of the file.
    static bool isUsable(base::TextView shortForm, base::TextView text);
    bool knows(base::TextView shortForm) const { return places_.contains(base::Text(shortForm)); }
    // Changes the text of a short form, or adds both at the end. They must be usable.
    void set(base::TextView shortForm, base::TextView text);
    void remove(base::TextView shortForm);

    // How the text is written: as in the file, with a capital first letter, or in capitals.
    enum class Case { AsWritten, Capital, Upper };
    struct Found {
        base::TextView text; // as the file has it
        Case as = Case::AsWritten;
    };
    // Looks up what was typed. The short form "bc" is found as "bc", "Bc" and "BC", one with capitals in the
    // file only as it stands there.
    std::optional<Found> find(base::TextView typed) const;

private:
    struct Line {
        std::string bytes;
        Abbreviation known; // empty for a comment or a line that was skipped
    };
    static std::optional<Abbreviation> parsed(std::string_view line);
    std::string written(base::TextView shortForm, base::TextView text) const;
    const Line* line(const base::Text& shortForm) const;
    void index();

    std::vector<Line> lines_; // as separated by line feeds
    std::unordered_map<base::Text, std::size_t> places_;
    std::vector<std::size_t> skipped_;
};

// What stands for the names in braces.
struct Fillings {
    std::function<base::Text()> time = [] { return base::Text(); };
    std::function<base::Text()> speaker = [] { return base::Text(); };
};

// A text of an abbreviation as it is inserted.
struct FilledText {
    base::Text text;
    std::optional<std::size_t> caret; // where the caret belongs, if not behind it all
};

// Replaces {time} and {speaker}; the first {caret} is where the caret goes, and none of them stays. Other
// names in braces are plain text.
FilledText filled(const Abbreviations::Found& found, const Fillings& fillings);

} // namespace aids
