#include "rtf/read/code_pages.h"
#include "rtf/reading.h"

using reading::expectTexts;

TEST(RtfText, Bytes_AreDecodedInTheFontsCodePage) {
    expectTexts({
        {R"(caf\'e9 \'80\f2 \'cf\'f0\f4 \'a1\f1 \'b7 a\f9 \'E9)", "café €Прก\uF0B7 \uF061é"},
        {"caf\xE9", "café"},
        {R"({\f2 \'cf}\'cf)", "ПÏ"},
        {R"(\f3 \'83\'65\'83X\'83\\\'96\{\'b1 a\'83)", "テスソ本ｱ a\uFFFD"},
        {R"(\'09\'0d\'00x)", "\tx"},
    });
}

TEST(RtfText, DocumentCodePage_AppliesIfTheFontHasNone) {
    const std::pair<std::string, std::string> rows[] = {{R"(\ansi\ansicpg1251 \'c6)", "Ж"},
                                                        {R"(\ansi\mac \'8e)", "é"},
                                                        {R"(\ansi\pc \'82)", "é"},
                                                        {R"(\ansi\pca \'9b)", "ø"},
                                                        {R"(\ansi\ansicpg936 \'c4\'e3)", "你"},
                                                        {R"(\ansi\ansicpg949 \'c7\'d1)", "한"},
                                                        {R"(\ansi\ansicpg950 \'a7\'41)", "你"},
                                                        {R"(\ansicpg65001 \'e2\'82\'ac)", "€"},
                                                        {R"(\ansi\ansicpg37 \'e9a)", "éa"},
                                                        {R"(\ansicpg99999 \'e9)", "é"}};
    for (const auto& [body, text] : rows)
        EXPECT_EQ(base::toUtf8(rtf::plainText(rtf::read("{\\rtf1" + body + '}'))), text) << body;
}

TEST(RtfText, CharacterSets_HaveTheirCodePages) {
    const std::pair<int, int> rows[] = {{0, 1252},   {1, 0},      {2, 0},      {77, 10000},
                                        {128, 932},  {129, 949},  {134, 936},  {136, 950},
                                        {161, 1253}, {204, 1251}, {238, 1250}, {255, 850}};
    for (const auto& [charset, page] : rows)
        EXPECT_EQ(rtf::codePageOfCharset(charset), page) << charset;
}

TEST(RtfText, UnicodeEscapes_ReplaceTheirFallbackCharacters) {
    expectTexts({
        {R"({\uc2\u1071??b\u1071\'c3\'c4b}{\uc0\u1071?b}\u1071?b\u1071 ?b)", "ЯbЯbЯ?bЯbЯb"},
        {R"(\u1071{?}b\u8212\emdash b\u1071\b ?b\u1071\tab b\u1071\{b\u1071\~b)", "Я?b—bЯ?bЯ\tbЯbЯb"},
        {"\\u1071\r\n?b", "Яb"},
        {R"(\u-10179?\u-8704?\u55357?\u56832?{\u-10179?}{\u-8704?}\u128512?)", "😀😀😀😀"},
        {R"(\u-10179?\u1071?\u-8704?x\u-10179?\par\u-10179?)", "\uFFFDЯ\uFFFDx\uFFFD\n\uFFFD"},
        {R"(\u-3913?\u8233?\u7?x)", "\uF0B7\nx"},
    });
}

TEST(RtfText, ControlWordsAndSymbols_BecomeCharacters) {
    expectTexts({
        {R"(a\tab b\line c\page d\~e\_f\-g)", "a\tb\nc\nd\u00A0e\u2011f\u00ADg"},
        {R"(\lquote a\rquote\ldblquote b\rdblquote\endash\emdash\bullet\{\}\\)", "‘a’“b”–—•{}\\"},
        {R"(a\unknown5 b{\*\unknown c{d}}{\v e}{\xe f}{\*\ud g}{\*\bkmkstart h}i)", "abi"},
        {R"({\upr{a}{\*\ud b}}c)", "bc"},
        {"a\r\nb\nc\\\nd", "abc\nd"},
    });
}

TEST(RtfText, InvalidControlWords_LoseNoText) {
    expectTexts({{"\\fs24  x", " x"},
                 {"\\b-x", "-x"},
                 {"\\b\r\n1", "1"},
                 {"\\'4}b", ""},
                 {"\\'zz", "zz"},
                 {"\\fs99999999999x", "x"},
                 {"a\\bin3 {}\\b", "ab"},
                 {"a\\bin99 b", "a"},
                 {"\\bin-1 a", "a"},
                 {"a\\bin", "a"}});
}

TEST(RtfText, Text_IsOnlyWhatTheOutermostBracesHold) {
    for (const std::string bytes :
         {"{\\rtf1 a}b{c}", "}}{\\rtf1 a", "\r\n{\r\n\\rtf1 a", "\xEF\xBB\xBF{\n \\rtf1 a}b"})
        EXPECT_EQ(rtf::plainText(rtf::read(bytes)), u"a") << bytes;
    EXPECT_EQ(rtf::plainText(rtf::read("")), u"");
}

TEST(RtfText, IsRtf_DependsOnTheBeginning) {
    for (const std::string bytes : {"{\\rtf", "\xEF\xBB\xBF{\\rtf1}", "\r\n {\n \\rtf1}"})
        EXPECT_TRUE(rtf::isRtf(bytes)) << bytes;
    for (const std::string bytes : {"", "{", "plain", "{\\rt", "\\rtf1", "x{\\rtf1}"})
        EXPECT_FALSE(rtf::isRtf(bytes)) << bytes;
}
