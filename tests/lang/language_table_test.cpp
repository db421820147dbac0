#include "base/carry_on.h"
#include "fakes/temporary_folder.h"
#include "lang/language_table.h"

#include <gtest/gtest.h>

class LanguageTableTest : public testing::Test {
protected:
    void load(const std::string& bytes) {
        folder.write("Files/Lang/x.lng", bytes);
        Lingua.FileLingua = u"x.lng";
        Lingua.load();
    }
    static std::string lines(int count) {
        std::string bytes;
        for (int n = 0; n < count; ++n)
            bytes += "abc" + std::to_string(n) + "\r\n";
        return bytes;
    }

    fakes::TemporaryFolder folder;
    base::TextFiles files{base::CodePage(1252)};
    base::ProgramFolder programFolder{folder.text("")};
    lang::LanguageTable Lingua{files, programFolder};
};

TEST_F(LanguageTableTest, Lines_LoseTheirFirstThreeCharacters) {
    load("001Apri\r\n002\r\n00\r\n\r\n005 x\r\n");
    const base::Text expected[] = {u"Apri", u"", u"", u"", u" x"};
    for (int n = 0; n < 5; ++n)
        EXPECT_EQ(Lingua(n), expected[n]) << n;
}

TEST_F(LanguageTableTest, ShorterFile_LeavesTheLaterEntries) {
    load(lines(136));
    load("\xEF\xBB\xBF"
         "000\xD0\xAF\r\n001b");
    EXPECT_EQ(Lingua(0), u"Я");
    EXPECT_EQ(Lingua(1), u"b");
    EXPECT_EQ(Lingua(2), u"2");
    EXPECT_EQ(Lingua(135), u"135");
    EXPECT_EQ(Lingua(136), u"");
}

TEST_F(LanguageTableTest, LineBeyondTheTable_Fails_WithTheTableFull) {
    load(lines(151));
    EXPECT_EQ(Lingua(150), u"150");
    EXPECT_THROW(load("xyzNew\r\n" + lines(151)), base::Failure);
    EXPECT_EQ(Lingua(0), u"New");
    EXPECT_EQ(Lingua(150), u"149");
    Lingua.FileLingua = u"none.lng";
    EXPECT_THROW(Lingua.load(), base::Failure);
}

TEST(LanguageChoice, Country_GoesByTheFirstTwoLettersOfItsEnglishName) {
    const std::pair<base::Text, base::Text> rows[] = {
        {u"Italy", u"Italiano.lng"},   {u"Brazil", u"Brazilian.lng"}, {u"Hungary", u"Hungarian.lng"},
        {u"RUSSIA", u"Russian.lng"},   {u"France", u"Français.lng"},  {u"Estonia", u"Spanish.lng"},
        {u"Portugal", u"English.lng"}, {u"Sweden", u"English.lng"},   {u"Netherlands", u"English.lng"},
        {u"", u"English.lng"},         {u"i", u"English.lng"},        {u"sv-fi", u"Svenska.lng"},
    };
    for (const auto& [country, file] : rows)
        EXPECT_EQ(lang::languageFileForCountry(country), file) << base::toUtf8(country);
}
