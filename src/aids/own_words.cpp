#include "aids/own_words.h"

#include "aids/checked_words.h"
#include "aids/letter_case.h"
#include "base/carry_on.h"
#include "base/files.h"
#include "drafts/letters.h"

#include <string_view>

namespace aids {

namespace {

constexpr std::size_t longestWord = 100; // units
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

} // namespace

void OwnWords::load() {
    base::carryOn([this] { read(); });
}

// A line that is not UTF-8, or longer than any word, harms nobody: no word of a text equals it.
std::string OwnWords::read() {
    std::string bytes = base::fileExists(path_) ? base::readFile(path_) : std::string();
    std::string_view rest = bytes;
    if (rest.starts_with(byteOrderMark))
        rest.remove_prefix(byteOrderMark.size());
    const base::Text text = base::fromUtf8(rest);
    for (const base::TextView line : drafts::lines(text))
        if (const base::TextView word = drafts::stripped(line); !word.empty() && word.size() <= longestWord)
            words_.insert(dictionaryForm(word));
    return bytes;
}

bool OwnWords::has(const base::Text& form) const {
    return ignored_.contains(form) || words_.contains(form) || words_.contains(lowered(form));
}

void OwnWords::add(const base::Text& form) {
    words_.insert(form);
    std::string bytes = read();
    if (!bytes.empty() && !bytes.ends_with('\n'))
        bytes += "\r\n";
    base::replaceFile(path_, bytes + base::toUtf8(form) + "\r\n");
}

} // namespace aids
