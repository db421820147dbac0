// Checks every shipped language file for errors that a translator would not notice: the file format,
// conflicting mnemonics in one menu, and texts that the program compares or joins.
#include "base/files.h"
#include "lang/words.h"
#include "testing.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

namespace fs = std::filesystem;
using base::Text;
using Pairs = std::vector<std::pair<int, int>>;

static const std::string languages[] = {"Brazilian",  "English", "Fran\303\247ais", "Hungarian", "Italiano",
                                        "Nederlands", "Polish",  "Russian",         "Spanish",   "Svenska"};
static const char* const folder = LANGUAGE_FILES_DIR;
constexpr size_t entryCount = 136;
// The program does not use these; they may be empty.
static const std::set<size_t> unused = {24, 28, 29, 58, 69, 73, 83, 108, 109, 117, 119};
// Menu entries that are also used as tool tip, window title or state.
static const std::set<int> plain = {3, 7, 8, 21, 84, 85, 86, 93, 104, 116, 124, 125, 126};
// The captions that alternate in one place of a menu; negative if the program itself prepends the "&".
struct Place : std::vector<int> {
    Place(int only) : vector{only} {}
    Place(std::initializer_list<int> turns) : vector(turns) {}
};
static const std::vector<Place> menus[] = {
    {2, 6, 87, 13, 74}, // the player: menu bar ("&?" has no letter), file, playback, view, options, ...
    {3, 4, 104, 5},
    {{7, 8}, 9, 11, 10, 129, 130, 12, 93, 94, 95},
    {{86, 116}, {84, 85}},
    {81, 30, 14, 124, 125, 126, 135, 80, 103, -15, 101},
    {17},
    {16, 102, 18, 19},
    {2, 47, 71, 134}, // the editor: menu bar, file, edit, tools
    {42, 43, 44, 45, 46},
    {70, 82, 48, 49, 50, 51, 59},
    {72},
    {{-111, -112, 8}, 9},                // buttons of the recorder
    {{-56, 57}, 59, 60, 61, 63, 64, 21}, // find and replace
};

// The lower-case letter if a keyboard types it without a dead key (ASCII, Cyrillic); otherwise 0.
static char16_t plainLetter(char16_t c) {
    const char16_t low = (c >= u'A' && c <= u'Z') || (c >= 0x410 && c <= 0x42F) ? c + 0x20 : c;
    return (low >= u'a' && low <= u'z') || (low >= 0x430 && low <= 0x44F) ? low : 0;
}

struct LanguageFile : testing::TestWithParam<std::string> {
    void SetUp() override {
        std::ifstream in(fs::path(folder) / (GetParam() + ".lng"), std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(in), {});
        marked = bytes.starts_with("\xEF\xBB\xBF");
        std::istringstream rest(bytes.substr(marked ? 3 : 0));
        for (std::string line; std::getline(rest, line); lines.push_back(line))
            entries.push_back(base::fromUtf8(line.substr(0, line.find('\r'))).erase(0, 3));
        ASSERT_EQ(lines.size(), entryCount);
    }
    char16_t mnemonic(int entry) const {
        const Text text = entry < 0 ? u"&" + entries[-entry] : entries[entry];
        const size_t at = text.find(u'&');
        return at == Text::npos ? 0 : plainLetter(text[at + 1]);
    }
    std::string bytes;
    bool marked;
    std::vector<std::string> lines;
    std::vector<Text> entries;
};

TEST(LanguageFolder, Folder_HoldsTheTenShippedLanguages) {
    std::set<std::string> found;
    for (const auto& file : fs::directory_iterator(folder))
        if (file.path().extension() == ".lng")
            found.insert(file.path().stem().string());
    EXPECT_EQ(found, std::set<std::string>(std::begin(languages), std::end(languages)));
}

TEST_P(LanguageFile, Bytes_AreUtf8WithAByteOrderMarkIfNeeded_InNumberedLines) {
    const Text text = base::fromUtf8(bytes.substr(marked ? 3 : 0));
    EXPECT_EQ(marked, std::ranges::any_of(text, [](char16_t c) { return c >= 0x80; }));
    EXPECT_TRUE(std::ranges::none_of(text, [](char16_t c) { return c >= 0xD800 && c <= 0xDFFF; }));
    EXPECT_TRUE(bytes.ends_with("\r\n"));
    for (size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].substr(0, 3), std::to_string(1000 + i).substr(1));
        EXPECT_EQ(lines[i].find('\r'), lines[i].size() - 1) << lines[i];
    }
}

TEST_P(LanguageFile, Entries_AreTrimmedAndNotEmpty_WithOneMnemonicWhereAllowed) {
    std::set<int> allowed;
    for (const auto& menu : menus)
        for (const auto& place : menu)
            allowed.insert(place.begin(), place.end());
    for (int i = 0; i < int(entryCount); ++i) {
        EXPECT_TRUE(!entries[i].empty() || unused.contains(i)) << i;
        EXPECT_FALSE(entries[i].starts_with(u' ') || entries[i].ends_with(u' ')) << i;
        const auto count = std::ranges::count(entries[i], u'&');
        EXPECT_TRUE(!count || (count == 1 && allowed.contains(i) && !plain.contains(i) && mnemonic(i))) << i;
        EXPECT_TRUE(!allowed.contains(-i) || mnemonic(-i)) << i << " gets a leading ampersand";
    }
}

TEST_P(LanguageFile, Mnemonics_AreUniqueWithinTheirMenu_ForAllAlternatingCaptions) {
    for (const auto& menu : menus) {
        std::set<char16_t> taken;
        for (const auto& place : menu) {
            std::set<char16_t> turns;
            for (int entry : place)
                turns.insert(mnemonic(entry));
            for (char16_t letter : turns)
                EXPECT_TRUE(!letter || taken.insert(letter).second) << "letter of entry " << place[0];
        }
    }
}

TEST_P(LanguageFile, Texts_ComparedAsState_AreDistinct) {
    for (auto [one, other] : Pairs{{7, 8}, {84, 85}, {86, 116}, {113, 114}})
        EXPECT_NE(entries[one], entries[other]) << one;
    EXPECT_EQ(std::set({entries[32], entries[35], entries[39], entries[93], entries[124]}).size(), 5u);
    for (auto [prompt, start] : Pairs{{125, 126}, {126, 125}, {34, 125}, {34, 126}})
        EXPECT_FALSE(entries[prompt].starts_with(entries[start])) << prompt << " begins like " << start;
}

TEST_P(LanguageFile, Texts_JoinedWithOthers_FitTheirContinuation) {
    EXPECT_TRUE(entries[15].size() > 3 && entries[15].ends_with(u"...")); // the dots are cut off for a title
    // followed by a number, a name, "...", ":", "?"
    for (int i : {33, 40, 56, 59, 75, 97, 104, 118, 125, 126})
        EXPECT_TRUE(entries[i].find_last_of(u".?!\u2026") != entries[i].size() - 1) << i;
    EXPECT_FALSE(entries[118].ends_with(u':'));
    EXPECT_EQ(entries[97].find_first_of(u"\\/:*?\"<>|"), Text::npos); // used in a file name
    for (size_t i = 0; i < entryCount; ++i) {
        EXPECT_EQ(entries[i].find(u"nnn") != Text::npos, i == 128) << i;
        EXPECT_EQ(entries[i].find(u"<BR>") != Text::npos, i == 131) << i;
    }
    Text word; // a boolean or number here would disable a menu item
    std::ranges::transform(entries[133], std::back_inserter(word), plainLetter);
    EXPECT_TRUE(word != u"true" && word != u"false" && entries[133].find_first_of(u"0123456789+-.&#") != 0);
}

TEST_P(LanguageFile, Captions_InNarrowPlaces_AreShortEnough) {
    std::set<Text> letters;
    for (int button : {90, 91, 92, 115})
        EXPECT_TRUE(entries[button].size() == 1 && letters.insert(entries[button]).second) << button;
    int pixels = 0; // approximation: six captions and their margins must fit into 348
    for (int i : {2, 6, 87, 13, 74})
        for (char16_t c : entries[i])
            pixels += c == u'&' ? 0 : c < 0x400 ? 7 : 8;
    EXPECT_LE(pixels, 38 * 7);
}

// All texts of the sources that are translated in .words files: u"Close"_en, possibly split into several
// literals.
static std::set<Text> textsOfSources() {
    std::set<Text> texts;
    const std::regex mark(R"re(((?:u"(?:[^"\\]|\\.)*"\s*)+)_en\b)re");
    const std::regex literal(R"re(u"((?:[^"\\]|\\.)*)")re");
    for (const auto& file : fs::recursive_directory_iterator(SOURCES_DIR)) {
        if (file.path().extension() != ".cpp" && file.path().extension() != ".h")
            continue;
        const std::string source = base::readFile(base::fromUtf8(file.path().string()));
        for (std::sregex_iterator hit(source.begin(), source.end(), mark), end; hit != end; ++hit) {
            const std::string literals = (*hit)[1];
            Text text;
            for (std::sregex_iterator part(literals.begin(), literals.end(), literal); part != end; ++part)
                text += base::fromUtf8((*part)[1].str());
            texts.insert(text);
        }
    }
    return texts;
}

static std::multiset<Text> placesForParts(const Text& text) {
    std::multiset<Text> places;
    for (size_t at = text.find(u'%'); at != Text::npos; at = text.find(u'%', at + 1))
        places.insert(text.substr(at, 2));
    return places;
}

TEST_P(LanguageFile, WordsFile_HasEveryTextOfTheSources_WithItsPlaceholdersAndAFreeMnemonic) {
    static const std::set<Text> texts = textsOfSources();
    ASSERT_GT(texts.size(), 20U);
    const auto path = base::fromUtf8((fs::path(folder) / (GetParam() + ".words")).string());
    const lang::WordList words = lang::readWordList(path);
    const auto shown = [&](const Text& text) {
        const auto found = words.find(text);
        return GetParam() == "English" ? text : found == words.end() ? Text() : found->second;
    };
    for (const Text& text : texts) {
        const std::string name = base::toUtf8(text);
        EXPECT_NE(shown(text), u"") << name;
        EXPECT_EQ(placesForParts(shown(text)), placesForParts(text)) << name;
        EXPECT_EQ(std::ranges::count(shown(text), u'&'), std::ranges::count(text, u'&')) << name;
    }
    const Text menu = shown(u"T&ranscript");
    const char16_t letter = plainLetter(menu[menu.find(u'&') + 1]);
    for (int entry : {2, 47, 71, 134}) // its neighbours in the menu bar
        EXPECT_NE(letter, mnemonic(entry)) << entry;
}

INSTANTIATE_TEST_SUITE_P(Shipped, LanguageFile, testing::ValuesIn(languages));
