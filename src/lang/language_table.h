#pragma once

#include "base/files.h"
#include "base/program_folder.h"
#include "base/text.h"

#include <array>

namespace lang {

// Every caption, tip and message of the program by its index: `Lingua(n)` is entry n. A file fills it by
// position: line n + 1 gives entry n, less its first three characters.
class LanguageTable {
public:
    static constexpr int size = 151;

    LanguageTable(const base::TextFiles& files, const base::ProgramFolder& folder)
        : files_(files), folder_(folder) {}

    // Entry `index`, 0 to 150.
    const base::Text& operator()(int index) const { return entries_.at(static_cast<std::size_t>(index)); }

    // Fills the table from the file FileLingua of the program's language folder. Entries that the file has no
    // line for keep their text. Throws Failure when the file cannot be read, with the table as it was, and
    // when it has more than 151 lines, with the table filled by the first.
    void load();

    // Name of the language file, without a folder, such as "English.lng".
    base::Text FileLingua;

private:
    const base::TextFiles& files_;
    const base::ProgramFolder& folder_;
    std::array<base::Text, size> entries_;
};

// An entry as the text of a tool tip.
inline base::Text toolTip(base::TextView entry) {
    return u" " + base::TogliAmp(entry) + u" ";
}

// The name of the language file for a user in the country of this English name. The key is its first two
// letters; that some rows are keys of languages that no country's name begins with is settled behaviour.
base::Text languageFileForCountry(base::TextView englishName);

} // namespace lang
