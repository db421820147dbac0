#include "lang/language_table.h"

#include "base/failure.h"

#include <utility>

namespace lang {

namespace {

constexpr std::size_t prefixLength = 3;

} // namespace

void LanguageTable::load() {
    std::size_t counter = 0;
    for (const base::Text& line : files_.readLines(folder_.languages(FileLingua))) {
        if (counter >= entries_.size())
            throw base::Failure("Subscript out of range");
        entries_[counter] = line.size() > prefixLength ? line.substr(prefixLength) : base::Text();
        ++counter;
    }
}

base::Text languageFileForCountry(base::TextView englishName) {
    static constexpr std::pair<base::TextView, base::TextView> names[] = {
        {u"br", u"Brazilian"},  {u"pt", u"Brazilian"},  {u"hu", u"Hungarian"}, {u"it", u"Italiano"},
        {u"nl", u"Nederlands"}, {u"ru", u"Russian"},    {u"es", u"Spanish"},   {u"fr", u"Français"},
        {u"sv", u"Svenska"},    {u"sv-fi", u"Svenska"},
    };
    const base::Text code = base::lowered(englishName).substr(0, 2);
    base::Text name = u"English";
    for (const auto& [key, language] : names) {
        if (key == code) {
            name = language;
            break;
        }
    }
    return name + u".lng";
}

} // namespace lang
