#include "aids/language_tags.h"

#include "base/text.h"

#include <algorithm>
#include <tuple>

namespace aids {

LanguageTag tagOfProgram(base::TextView fileLingua) {
    static constexpr struct {
        base::TextView file;
        LanguageTag tag;
    } rows[] = {
        {u"brazilian.lng", {"pt_BR", "hunspell-pt-br"}}, {u"français.lng", {"fr_FR", "hunspell-fr"}},
        {u"hungarian.lng", {"hu_HU", "hunspell-hu"}},    {u"italiano.lng", {"it_IT", "hunspell-it"}},
        {u"nederlands.lng", {"nl_NL", "hunspell-nl"}},   {u"polish.lng", {"pl_PL", "hunspell-pl"}},
        {u"russian.lng", {"ru_RU", "hunspell-ru"}},      {u"spanish.lng", {"es_ES", "hunspell-es"}},
        {u"svenska.lng", {"sv_SE", "hunspell-sv"}},
    };
    const base::Text file = base::lowered(fileLingua);
    for (const auto& row : rows)
        if (row.file == file)
            return row.tag;
    return {"en_US", "hunspell-en-us"};
}

bool isSameLanguage(std::string_view a, std::string_view b) {
    return a.substr(0, a.find('_')) == b.substr(0, b.find('_'));
}

void putFirst(std::string_view tag, std::vector<platform::SpellingLanguage>& languages) {
    std::sort(languages.begin(), languages.end(), [&](const auto& a, const auto& b) {
        const auto rank = [&](const platform::SpellingLanguage& language) {
            return std::tuple(language.tag != tag, !isSameLanguage(language.tag, tag),
                              base::TextView(language.name));
        };
        return rank(a) < rank(b);
    });
}

} // namespace aids
