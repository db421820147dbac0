#include "rtf/fields.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace rtf {

namespace {

// A word of a field instruction. A quoted word is never an option.
struct InstructionWord {
    Text text;
    bool quoted = false;

    bool isOption(TextView letters) const {
        return !quoted && text.size() == 2 && text[0] == u'\\' &&
               letters.find(base::lowered(text)[1]) != TextView::npos;
    }
};

// Splits an instruction into words. Quoted words may contain blanks; a backslash escapes quotes and
// backslashes.
class InstructionWords {
public:
    explicit InstructionWords(TextView instruction) : rest_(instruction) {}

    std::optional<InstructionWord> next() {
        while (!rest_.empty() && isBlank(rest_.front()))
            rest_.remove_prefix(1);
        if (rest_.empty())
            return std::nullopt;
        InstructionWord word;
        word.quoted = rest_.front() == u'"';
        if (word.quoted)
            rest_.remove_prefix(1);
        while (!rest_.empty() && !(word.quoted ? rest_.front() == u'"' : isBlank(rest_.front()))) {
            if (isEscape())
                rest_.remove_prefix(1);
            word.text += rest_.front();
            rest_.remove_prefix(1);
        }
        if (word.quoted && !rest_.empty())
            rest_.remove_prefix(1);
        return word;
    }

private:
    static bool isBlank(char16_t unit) {
        return unit == u' ' || unit == u'\t' || unit == lineBreak || unit == 0xA0;
    }

    bool isEscape() const {
        return rest_.size() > 1 && rest_[0] == u'\\' && (rest_[1] == u'\\' || rest_[1] == u'"');
    }

    TextView rest_;
};

} // namespace

Text linkTarget(TextView instruction) {
    InstructionWords words(instruction);
    const auto command = words.next();
    if (!command || base::lowered(command->text) != u"hyperlink")
        return {};
    Text address;
    Text place;
    while (auto word = words.next()) {
        if (word->isOption(u"l"))
            place = words.next().value_or(InstructionWord()).text;
        else if (word->isOption(u"ot"))
            words.next();
        else if (!word->isOption(u"hnm") && address.empty())
            address = std::move(word->text);
    }
    return place.empty() ? address : address + u'#' + place;
}

char16_t symbolOf(TextView instruction) {
    InstructionWords words(instruction);
    const auto command = words.next();
    if (!command || base::lowered(command->text) != u"symbol")
        return 0;
    const double value = base::val(words.next().value_or(InstructionWord()).text);
    // A one-byte number is a position in the symbol font that the instruction names.
    if (value >= 0x20 && value < 0x100)
        return static_cast<char16_t>(0xF000 + value);
    return value >= 0x100 && value < 0xD800 ? static_cast<char16_t>(value) : u'\0';
}

Text linkInstruction(TextView target) {
    Text escaped;
    for (const char16_t unit : target) {
        if (unit == u'"' || unit == u'\\')
            escaped += u'\\';
        escaped += unit;
    }
    const std::size_t hash = std::min(escaped.find(u'#'), escaped.size());
    const bool hasPlace = hash + 1 < escaped.size();
    const Text address = hasPlace ? escaped.substr(0, hash) : escaped;
    Text instruction = u"HYPERLINK ";
    if (!address.empty())
        instruction += u'"' + address + u"\" ";
    if (hasPlace)
        instruction += u"\\l \"" + escaped.substr(hash + 1) + u"\" ";
    return instruction;
}

} // namespace rtf
