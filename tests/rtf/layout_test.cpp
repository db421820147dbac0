#include "rtf/reading.h"

#include <gtest/gtest.h>

using reading::document;
using reading::paragraph;
using reading::plain;

TEST(RtfTables, Cells_BecomeTextPartedByTabs) {
    const std::pair<std::string, std::string> rows[] = {
        {R"(\trowd\cellx1\intbl a\cell b\cell\row c)", "a\tb\nc"},
        {R"(a\cell\cell\row c)", "a\t\nc"},
        {R"(\cell b\cell\row)", "\tb"},
        {R"(a\cell b\par c\cell\row d)", "a\tb\nc\nd"},
        {"a\\cell b", "a\tb"},
        {"\\row a", "\na"},
        {R"(a\nestcell b\nestcell{\*\nesttableprops\trowd\nestrow}{\nonesttables\par}c\cell\row)", "a\tb\nc"},
        {R"(a\cell{\b b}\cell\row)", "a\tb"},
    };
    for (const auto& [body, text] : rows)
        EXPECT_EQ(plain(body), text) << body;
}

TEST(RtfLists, Labels_AreBulletsOrText) {
    const std::tuple<std::string, bool, std::string> rows[] = {
        {R"({\pntext\f1\'B7\tab}{\*\pn\pnlvlblt\pnf1{\pntxtb\'B7}}a)", true, "a"},
        {R"({\pntext\'95\tab}a)", true, "a"},
        {R"({\listtext\f1\'b7\tab}\ls1 a)", true, "a"},
        {R"({\listtext o\tab}\ls1 a)", true, "a"},
        {"{\\listtext - }a", true, "a"},
        {R"({\*\pn\pnlvlblt\pnf1{\pntxtb\'B7}}a)", true, "a"},
        {R"({\listtext 1.\tab}\ls1 a)", false, "1.\ta"},
        {R"({\pntext 7\tab}{\*\pn\pnlvlbody\pndec{\pntxta.}}a)", false, "7\ta"},
        {R"({\*\pn\pnlvlblt}{\pntext (a)\tab}a)", false, "(a)\ta"},
        {"{\\listtext\\tab}a", false, "a"},
        {R"({\*\pn\pnlvlblt}\pard a)", false, "a"},
    };
    for (const auto& [body, bullet, text] : rows) {
        const rtf::Document read = document(body);
        EXPECT_EQ(paragraph(read).bullet, bullet) << body;
        EXPECT_EQ(base::toUtf8(rtf::plainText(read)), text) << body;
    }
}

TEST(RtfLists, Label_HoldsForItsParagraph_OldListUntilTheNextDefaults) {
    const rtf::Document labels = document(R"({\pntext\'95}a\par b)");
    EXPECT_TRUE(paragraph(labels, 0).bullet);
    EXPECT_FALSE(paragraph(labels, 1).bullet);
    const rtf::Document list = document(R"({\*\pn\pnlvlblt}a\par b\par\pard c)");
    EXPECT_TRUE(paragraph(list, 1).bullet);
    EXPECT_FALSE(paragraph(list, 2).bullet);
}

TEST(RtfLists, TypedNumber_LeavesTheList) {
    EXPECT_EQ(paragraph(document("{\\listtext 1.\\tab}\\ls1\\ilvl0 a")).list, "");
    EXPECT_EQ(paragraph(document("{\\listtext\\'95\\tab}\\ls1\\ilvl0 a")).list, "\\ls1\\ilvl0");
}

TEST(RtfFields, Instruction_TellsWhereALinkLeads) {
    const std::pair<std::string, std::string> rows[] = {
        {"HYPERLINK \"http://a.b/c?d=e&f\"", "http://a.b/c?d=e&f"},
        {R"( hyperlink http://a.b \\o "tip")", "http://a.b"},
        {R"(HYPERLINK \\l "place")", "#place"},
        {R"(HYPERLINK "a.rtf" \\l "place")", "a.rtf#place"},
        {R"(HYPERLINK \\n "C:\\\\x y\\\\z")", "C:\\x y\\z"},
        {R"(HYPERLINK "a\\\\l")", "a\\l"},
        {"HYPERLINK \"a#\"", "a#"},
        {"HYPERLINK \"#\"", "#"},
        {R"(HYPERLINK "say \\"hi\\"")", "say \"hi\""},
        {R"(HYPERLINK "\u1071?\{")", "Я{"},
    };
    for (const auto& [instruction, target] : rows) {
        const std::string field = R"({\field{\*\fldinst{)" + instruction + "}}{\\fldrslt{\\ul x}}}";
        const rtf::Document read = document(field + "y");
        ASSERT_EQ(read.links.size(), 1U) << instruction;
        EXPECT_EQ(base::toUtf8(read.links[0]), target) << instruction;
        EXPECT_EQ(read.formats[read.runs[0].format].link, 0U);
        EXPECT_EQ(read.formats[read.runs[1].format].link, rtf::none);
        EXPECT_EQ(rtf::read(rtf::write(read)), read) << instruction;
    }
}

TEST(RtfFields, OtherFields_ShowTheirResult) {
    const std::pair<std::string, std::string> rows[] = {
        {R"({\field{\*\fldinst PAGE}{\fldrslt 3}})", "3"},
        {R"({\field\flddirty{\*\fldinst DATE}{\fldrslt{\b today}}}!)", "today!"},
        {R"({\field{\*\fldinst HYPERLINK "u"}{\fldrslt a{\field{\*\fldinst PAGE}{\fldrslt 3}}b}})", "a3b"},
        {R"({\field{\*\fldinst IF {\field{\*\fldinst PAGE}{\fldrslt 3}} = 3}{\fldrslt yes}})", "yes"},
        {R"({\field{\*\fldinst SYMBOL 183 \\f "Symbol"}})", "\uF0B7"},
        {R"({\field{\*\fldinst SYMBOL 183}{\fldrslt x}})", "x"},
        {"{\\fldrslt x}", "x"},
        {"{\\*\\fldinst x}", ""},
    };
    for (const auto& [body, text] : rows)
        EXPECT_EQ(plain(body), text) << body;
    EXPECT_TRUE(document("{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt}}x").links.empty());
}
