#include "rtf/reading.h"
#include "rtf/rtf_code_pages.h"

#include <gtest/gtest.h>

using reading::plain;

TEST(RtfText, Bytes_AreLettersOfTheFontsCodePage) {
    const std::pair<std::string, std::string> rows[] = {
        {"caf\\'e9 \\'80", "café €"},
        {"caf\xE9", "café"},
        {R"(\f2 \'cf\'f0\'e8)", "При"},
        {R"({\f2 \'cf}\'cf)", "ПÏ"},
        {R"(\f3 \'83\'65\'83X\'83g)", "テスト"},
        {R"(\f3 \'83\\\'96\{)", "ソ本"},
        {"\\f3 \\'83", "\uFFFD"},
        {"\\f3 \\'b1 a", "ｱ a"},
        {"\\f4 \\'a1", "ก"},
        {"\\f1 \\'b7 a", "\uF0B7 \uF061"},
        {"\\f9 \\'e9", "é"},
        {R"(\'09\'0d\'00x)", "\tx"},
    };
    for (const auto& [body, text] : rows)
        EXPECT_EQ(plain(body), text) << body;
}

TEST(RtfText, DocumentCodePage_HoldsWhereTheFontTellsNone) {
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"\\ansi\\ansicpg1251", "\\'c6", "Ж"},
        {"\\mac", "\\'8e", "é"},
        {"\\pc", "\\'82", "é"},
        {"\\pca", "\\'9b", "ø"},
        {"\\ansi\\ansicpg936", "\\'c4\\'e3", "你"},
        {"\\ansi\\ansicpg949", "\\'c7\\'d1", "한"},
        {"\\ansi\\ansicpg950", "\\'a7\\'41", "你"},
        {"\\ansi\\ansicpg65001", R"(\'e2\'82\'ac)", "€"},
        {"\\ansi\\ansicpg37", "\\'e9a", "éa"},
        {"\\ansi\\ansicpg99999", "\\'e9", "é"},
        {"", "\\'e9", "é"},
    };
    for (const auto& [page, bytes, text] : rows)
        EXPECT_EQ(base::toUtf8(rtf::plainText(
                      rtf::read(std::string("{\\rtf1").append(page).append(" ").append(bytes).append("}")))),
                  text)
            << page;
}

TEST(RtfText, CharacterSets_HaveTheirCodePages) {
    const std::pair<int, int> rows[] = {{0, 1252},   {1, 0},      {2, 0},      {77, 10000},
                                        {128, 932},  {129, 949},  {134, 936},  {136, 950},
                                        {161, 1253}, {204, 1251}, {238, 1250}, {255, 850}};
    for (const auto& [charset, page] : rows)
        EXPECT_EQ(rtf::codePageOfCharset(charset), page) << charset;
}

TEST(RtfText, CodePages_MoreThanThereAre_StayWestern) {
    rtf::CodePages pages;
    base::Text text;
    for (int page = 50000; page < 50200; ++page)
        pages.append(page, "\xE9", text);
    EXPECT_EQ(text, base::Text(200, u'é'));
}

TEST(RtfText, UnicodeNumbers_ReplaceTheLettersThatStandIn) {
    const std::pair<std::string, std::string> rows[] = {
        {"\\u1071?b", "Яb"},
        {"\\u1071 ?b", "Яb"},
        {"\\u-3913?", "\uF0B7"},
        {"\\uc2\\u1071??b", "Яb"},
        {R"(\uc2\u1071\'c3\'c4b)", "Яb"},
        {"\\uc0\\u1071?b", "Я?b"},
        {R"({\uc0\u1071}\u1071?b)", "ЯЯb"},
        {"\\u1071{?}b", "Я?b"},
        {"\\u8212\\emdash b", "—b"},
        {"\\u1071\\b ?", "Я?"},
        {"\\u1071\\tab b", "Я\tb"},
        {"\\u1071\\~b", "Яb"},
        {"\\u1071\\{b", "Яb"},
        {"\\u1071\r\n?b", "Яb"},
        {"\\u-10179?\\u-8704?", "😀"},
        {"\\u55357?\\u56832?", "😀"},
        {"{\\u-10179?}{\\u-8704?}", "😀"},
        {"\\u128512?", "😀"},
        {"\\u-10179?x", "\uFFFDx"},
        {"\\u-10179?\\u1071?", "\uFFFDЯ"},
        {"\\u-8704?x", "\uFFFDx"},
        {"\\u-10179?", "\uFFFD"},
        {"\\u-10179?\\par x", "\uFFFD\nx"},
        {"\\u8233?x", "\nx"},
        {"\\u7?x", "x"},
    };
    for (const auto& [body, text] : rows)
        EXPECT_EQ(plain(body), text) << body;
}

TEST(RtfText, WordsAndSymbols_StandForLetters) {
    const std::pair<std::string, std::string> rows[] = {
        {"a\\tab b", "a\tb"},
        {"a\\line b", "a\nb"},
        {"a\\page b", "a\nb"},
        {"a\\\nb", "a\nb"},
        {"\\lquote a\\rquote", "‘a’"},
        {"\\ldblquote a\\rdblquote", "“a”"},
        {"\\endash\\emdash", "–—"},
        {"\\bullet", "•"},
        {R"(a\~b\_c\-d)", "a\u00A0b\u2011c\u00ADd"},
        {R"(\{\}\\)", "{}\\"},
        {"a\\unknown5 b", "ab"},
        {"a{\\*\\unknown b{c}}d", "ad"},
        {"a{\\v b}c", "ac"},
        {"a{\\xe b}c", "ac"},
        {R"(a{\*\ud b}c)", "ac"},
        {R"(\upr{a}{\*\ud b})", "b"},
        {R"({\upr{a}{\*\ud b}}c)", "bc"},
        {"a{\\*\\bkmkstart b}c", "ac"},
        {"a\\b0", "a"},
    };
    for (const auto& [body, text] : rows)
        EXPECT_EQ(plain("{" + body + "}"), text) << body;
}

TEST(RtfText, File_EndsWithItsOutermostBrace) {
    EXPECT_EQ(base::toUtf8(rtf::plainText(rtf::read("{\\rtf1 a}b{c}"))), "a");
    EXPECT_EQ(base::toUtf8(rtf::plainText(rtf::read("}}{\\rtf1 a"))), "a");
    EXPECT_EQ(base::toUtf8(rtf::plainText(rtf::read(""))), "");
}

TEST(RtfText, Beginning_TellsRtfFromOtherText) {
    for (const std::string bytes : {"{\\rtf1 a}", "\xEF\xBB\xBF{\\rtf1}", "\r\n {\n \\rtf1}", "{\\rtf"})
        EXPECT_TRUE(rtf::isRtf(bytes)) << bytes;
    for (const std::string bytes : {"", "{", "plain", "{\\rt", "\\rtf1", "x{\\rtf1}"})
        EXPECT_FALSE(rtf::isRtf(bytes)) << bytes;
}
