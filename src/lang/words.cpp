#include "lang/words.h"

#include "base/carry_on.h"
#include "base/files.h"

namespace lang {

WordList readWordList(base::TextView path) {
    std::string bytes;
    base::carryOn([&] { bytes = base::readFile(path); });
    std::string_view rest = bytes;
    if (constexpr std::string_view mark = "\xEF\xBB\xBF"; rest.starts_with(mark))
        rest.remove_prefix(mark.size());
    WordList words;
    while (!rest.empty()) {
        std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const auto tab = line.find('\t');
        if (tab != std::string_view::npos && tab > 0)
            words.insert_or_assign(base::fromUtf8(line.substr(0, tab)), base::fromUtf8(line.substr(tab + 1)));
    }
    return words;
}

base::Text filledIn(base::TextView text, std::span<const base::TextView> parts) {
    base::Text filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t digit = text[at] == u'%' && at + 1 < text.size() ? text[at + 1] : u'0';
        const auto part = static_cast<std::size_t>(digit - u'1');
        if (digit < u'1' || digit > u'9' || part >= parts.size()) {
            filled += text[at];
        } else {
            filled += parts[part];
            ++at;
        }
    }
    return filled;
}

base::Text Words::operator()(English text) const {
    if (shown_ != fileLingua_) {
        shown_ = fileLingua_;
        const base::Text stem = shown_.substr(0, shown_.rfind(u'.'));
        words_ = readWordList(folder_.languages(stem + u".words"));
    }
    const auto found = words_.find(base::TextView(text));
    return found == words_.end() ? base::Text(text) : found->second;
}

void Words::follow(std::function<void()> show) {
    show();
    followers_.push_back(std::move(show));
}

void Words::languageChanged() const {
    for (const auto& show : followers_)
        show();
}

} // namespace lang
