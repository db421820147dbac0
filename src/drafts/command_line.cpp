#include "drafts/command_line.h"

#include "moments/word_units.h"

#include <utility>

namespace drafts {

namespace {

constexpr base::TextView escapedInQuotes = u"\"\\$`";

// Takes the line unit by unit.
class Splitter {
public:
    Splitter(base::TextView line, base::TextView home) : line_(line), home_(home) {}

    CommandLine run() {
        while (at_ < line_.size())
            take(line_[at_++]);
        endWord();
        if (quote_ != 0)
            result_.fault = CommandFault::OpenQuote;
        else if (result_.words.empty())
            result_.fault = CommandFault::Empty;
        return std::move(result_);
    }

private:
    void take(char16_t unit) {
        if (quote_ != 0 && unit == quote_)
            quote_ = 0;
        else if (escapes(unit))
            add(line_[at_++]);
        else if (quote_ == 0 && (unit == u'"' || unit == u'\''))
            quote_ = begin(unit);
        else if (quote_ == 0 && moments::isBlank(unit))
            endWord();
        else if (unit == u'~' && isHome())
            add(home_);
        else
            add(unit);
    }

    bool escapes(char16_t unit) const {
        if (unit != u'\\' || at_ == line_.size() || quote_ == u'\'')
            return false;
        return quote_ == 0 || escapedInQuotes.find(line_[at_]) != base::TextView::npos;
    }

    // "~" alone, or before a slash.
    bool isHome() const {
        return !inWord_ && (at_ == line_.size() || line_[at_] == u'/' || moments::isBlank(line_[at_]));
    }

    char16_t begin(char16_t quote) {
        inWord_ = true;
        return quote;
    }
    void add(char16_t unit) { add(base::TextView(&unit, 1)); }
    void add(base::TextView text) {
        word_ += text;
        inWord_ = true;
    }
    void endWord() {
        if (std::exchange(inWord_, false))
            result_.words.push_back(std::exchange(word_, {}));
    }

    base::TextView line_;
    base::TextView home_;
    std::size_t at_ = 0;
    char16_t quote_ = 0; // the open one
    bool inWord_ = false;
    base::Text word_;
    CommandLine result_;
};

// Calls `text` with what stands between the signs, `sign` with the letter behind each "%".
template <typename Literal, typename Sign>
void forEachSign(base::TextView word, Literal&& text, Sign&& sign) {
    for (std::size_t at = 0; at < word.size(); ++at) {
        const bool isSign = word[at] == u'%' && at + 1 < word.size() &&
                            (word[at + 1] == u'i' || word[at + 1] == u'o' || word[at + 1] == u'%');
        if (isSign)
            sign(word[++at]);
        else
            text(word[at]);
    }
}

} // namespace

CommandLine parseCommand(base::TextView line, base::TextView home) {
    CommandLine command = Splitter(line, home).run();
    bool hasInput = false;
    for (const base::Text& word : command.words)
        forEachSign(
            word, [](char16_t) {},
            [&](char16_t sign) {
                hasInput = hasInput || sign == u'i';
                command.hasOutput = command.hasOutput || sign == u'o';
            });
    if (command.fault == CommandFault::None && !hasInput)
        command.fault = CommandFault::NoInput;
    return command;
}

std::vector<base::Text> filledIn(const CommandLine& command, base::TextView input, base::TextView output) {
    std::vector<base::Text> words;
    for (const base::Text& word : command.words) {
        base::Text filled;
        forEachSign(
            word, [&](char16_t unit) { filled += unit; },
            [&](char16_t sign) {
                if (sign == u'%')
                    filled += u'%';
                else
                    filled += sign == u'i' ? input : output;
            });
        words.push_back(std::move(filled));
    }
    return words;
}

} // namespace drafts
