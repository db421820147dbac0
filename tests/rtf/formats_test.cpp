#include "rtf/reading.h"

using reading::document;
using reading::rewritten;
using reading::usual;

TEST(RtfFormats, CharacterControlWords_SetTheirFormat_AndAreWritten) {
    const std::pair<std::string, std::string> rows[] = {
        {"\\b", "\\fs24\\b"},           {"\\i", "\\fs24\\i"},
        {"\\ul", "\\fs24\\ul"},         {"\\uldb", "\\fs24\\ul"},
        {"\\strike", "\\fs24\\strike"}, {"\\v", "\\fs24\\v"},
        {"\\caps", "\\fs24\\caps"},     {"\\scaps", "\\fs24\\scaps"},
        {"\\fs30", "\\fs30"},           {"\\fs99999999999", "\\fs3276"},
        {"\\fs-4", "\\fs24"},           {"\\cf1", "\\fs24\\cf1"},
        {"\\cf77", "\\fs24"},           {"\\b\\b0", "\\fs24"},
        {"\\ul\\ul0", "\\fs24"},        {"\\cf1\\cf0", "\\fs24"}};
    for (const auto& [words, written] : rows)
        EXPECT_EQ(rewritten(words + " x"), "\\pard\\ql \\plain\\f0" + written + " x");
    for (const std::string words :
         {"\\ul\\ulnone", "\\super\\nosupersub", "\\highlight1\\highlight0", R"(\b\i\fs30\cf1\plain)"})
        EXPECT_EQ(rewritten(words + " x"), usual + "x");
    const std::pair<std::string, std::string> raised[] = {
        {"{\\super a}b", "{\\plain\\f0\\fs24\\super a}\\plain\\f0\\fs24 b"},
        {"a{\\sub b{\\pict 0}}",
         "\\plain\\f0\\fs24 a{\\plain\\f0\\fs24\\sub b}{\\plain\\f0\\fs24\\sub {\\pict 0}}"},
        {"{\\super\\par}a", "{\\plain\\f0\\fs24\\super \\par}\\plain\\f0\\fs24 a"},
        {"a\\sect\\super", // without a paragraph end that the group could enclose
         "\\plain\\f0\\fs24 a\\sect\\sectd\\pard\\ql \\plain\\f0\\fs24\\super "}};
    for (const auto& [body, written] : raised)
        EXPECT_EQ(rewritten(body), "\\pard\\ql " + written) << "in a group";
    EXPECT_EQ(rewritten("\\highlight1 x"), "\\pard\\ql \\plain\\f0\\fs24\\highlight1 x");
    EXPECT_EQ(rewritten("{\\b\\par}x"), "\\pard\\ql \\plain\\f0\\fs24\\b \\par\\plain\\f0\\fs24 x")
        << "the format of text typed there";
}

TEST(RtfFormats, ParagraphControlWords_SetTheirFormat_AndAreWritten) {
    const std::pair<std::string, std::string> rows[] = {
        {"\\qc x", "\\qc"},
        {"\\qr x", "\\qr"},
        {"\\qj x", "\\qj"},
        {"\\qc\\pard x", "\\ql"},
        {R"(\li720\ri10\fi-360 x)", R"(\ql\fi-360\li720\ri10)"},
        {"\\sb120\\sa60 x", "\\ql\\sb120\\sa60"},
        {R"(\s3\tqr\tx1440 \sl240 x)", R"(\s3\tqr\tx1440\sl240\ql)"},
        {"\\pagebb x", "\\pagebb\\ql"},
        {"\\pagebb\\pagebb0 x", "\\ql"},
        {"\\ls2\\ilvl1 x", "\\ls2\\ilvl1\\ql"},
    };
    for (const auto& [body, written] : rows)
        EXPECT_EQ(rewritten(body), "\\pard" + written + " \\plain\\f0\\fs24 x");
    EXPECT_EQ(rewritten("{\\qc x\\par}y"), "\\pard\\qc \\plain\\f0\\fs24 x\\par\\pard\\ql y");
    for (const std::string end : {"\\par ", "\\\n", "\\\r"})
        EXPECT_EQ(rewritten("x" + end + "y"), usual + "x\\pary");
    EXPECT_EQ(rewritten("{\\qc x}\\par"), usual + "x\\par") << "valid at the paragraph's end";
    for (const std::string body : {"", "a", "a\\par", "a\\par\\par"})
        EXPECT_EQ(rewritten(body), usual + body) << "with or without a final paragraph end";
}

TEST(RtfFormats, Fonts_AreThoseInUse_InOrderOfUse) {
    EXPECT_EQ(document(R"(\f2 a\f0 b\f2 c\f9 d)").fonts,
              (std::vector<rtf::Font>{{u"Courier", 204}, {u"Arial", 0}, {u"Times New Roman", 0}}));
}

TEST(RtfFormats, FontTable_AcceptsEveryFormOfEntry) {
    const std::pair<std::string, base::Text> rows[] = {
        {R"({\fonttbl\f0\fswiss Arial;\f1 Courier;})", u"Arial"},
        {R"({\fonttbl{\f0{\*\panose 020b}Arial{\*\falt Other};}})", u"Arial"},
        {R"({\fonttbl{\f0\fcharset204 \'cf\'f0;}})", u"Пр"},
        {R"({\fonttbl{\f0 \u1071?;}})", u"Я"},
        {"{\\fonttbl{\\f0 ;}}", u"Times New Roman"},
        {R"(\deff5{\fonttbl{\f0 Arial;}{\f5 Courier;}})", u"Courier"},
    };
    for (const auto& [table, name] : rows)
        EXPECT_EQ(rtf::read("{\\rtf1" + table + " x}").fonts.at(0).name, name) << table;
}

TEST(RtfFormats, FontWithoutACharset_GetsItFromItsName) {
    const std::tuple<std::string, int, base::Text> rows[] = {
        {"Arial CE", 238, u"Ć"},         {"Arial Cyr", 204, u"Ж"},
        {"Arial Greek", 161, u"Ζ"},      {"Arial Tur", 162, u"Æ"},
        {"Arial Baltic", 186, u"Ę"},     {"Arial (Hebrew)", 177, u"\u05B6"},
        {"Arial CEx", 0, u"Æ"},          {"Arial (Arabic)", 178, u"ئ"},
        {"Arial (Thai)", 222, u"ฦ"},     {"Arial (Vietnamese)", 163, u"Æ"},
        {"\\fcharset1 A CE", 238, u"Ć"}, {"\\fcharset0 Arial CE", 0, u"Æ"},
        {"\\cpg1253 Arial CE", 0, u"Ζ"}, {"Arial CE;\\fcharset161", 161, u"Ζ"},
    };
    for (const auto& [entry, charset, text] : rows) {
        const rtf::Document read = rtf::read("{\\rtf1{\\fonttbl{\\f0 " + entry + ";}}\\f0 \\'c6}");
        EXPECT_EQ(read.fonts.at(0).charset, charset) << entry;
        EXPECT_EQ(read.text, text) << entry;
    }
}
