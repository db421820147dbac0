#include "base/failure.h"
#include "fakes/temporary_folder.h"
#include "lang/language_table.h"
#include "testing.h"

struct LanguageTableTest : testing::Test {
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

TEST_F(LanguageTableTest, Lines_LoseTheirFirst3Characters_AndAShorterFileKeepsTheLaterEntries) {
    load(lines(136));
    load("\xEF\xBB\xBF"
         "000\xD0\xAF\r\n001\r\n00\r\n\r\n004 x");
    const base::TextView expected[] = {u"Я", u"", u"", u"", u" x", u"5"};
    for (int n = 0; n < 6; ++n)
        EXPECT_EQ(Lingua(n), expected[n]) << n;
    EXPECT_EQ(Lingua(136), u"");
}

TEST_F(LanguageTableTest, LineBeyondTheTable_Fails_AfterFillingTheTable) {
    load(lines(151));
    EXPECT_EQ(Lingua(150), u"150");
    EXPECT_THROW(load("xyzNew\r\n" + lines(151)), base::Failure);
    EXPECT_EQ(Lingua(0), u"New");
    EXPECT_EQ(Lingua(150), u"149");
}

TEST(LanguageChoice, Country_IsMatchedByTheFirstTwoLettersOfItsEnglishName) {
    const std::pair<base::Text, base::Text> rows[] = {
        {u"Italy", u"Italiano.lng"},  {u"RUSSIA", u"Russian.lng"},   {u"France", u"Français.lng"},
        {u"Estonia", u"Spanish.lng"}, {u"Portugal", u"English.lng"}, {u"Sweden", u"English.lng"},
        {u"i", u"English.lng"},       {u"sv-fi", u"Svenska.lng"},
    };
    for (const auto& [country, file] : rows)
        EXPECT_EQ(lang::languageFileForCountry(country), file) << base::toUtf8(country);
}
