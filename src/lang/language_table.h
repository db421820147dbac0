#pragma once

#include "base/files.h"
#include "base/program_folder.h"
#include "base/text.h"

#include <array>

namespace lang {

// Every caption, tool tip and message of the program by index: `Lingua(n)` is entry n. A language file fills
// the table by position: line n + 1, without its first three characters, is entry n.
class LanguageTable {
public:
    static constexpr int size = 151;

    LanguageTable(const base::TextFiles& files, const base::ProgramFolder& folder)
        : files_(files), folder_(folder) {}

    // Entry `index`, 0 to 150.
    const base::Text& operator()(int index) const { return entries_.at(static_cast<std::size_t>(index)); }

    // Loads the file FileLingua from the program's language folder. Entries without a line in the file keep
    // their text. Throws Failure if the file cannot be read, with the table unchanged, and if it has more
    // than 151 lines, with the table filled from the first 151.
    void load();

    // The name of the language file without a folder, such as "English.lng".
    base::Text FileLingua;

private:
    const base::TextFiles& files_;
    const base::ProgramFolder& folder_;
    std::array<base::Text, size> entries_;
};

// A language entry in the form of a tool tip.
inline base::Text toolTip(base::TextView entry) {
    return u" " + base::TogliAmp(entry) + u" ";
}

// The language file for a user in the country with this English name. The key is the name's first two
// letters; some rows have keys that no country's name begins with. Settled behaviour.
base::Text languageFileForCountry(base::TextView englishName);

} // namespace lang
