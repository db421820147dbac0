#include "rtf/read/structure.h"
#include "rtf/reading.h"

using reading::document;
using reading::expectTexts;
using reading::rewritten;
using reading::usual;

namespace {

const std::string bullet =
    R"({\pntext\f1\'b7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'b7}}\plain\f0\fs24 )";

} // namespace

TEST(RtfTables, Cells_BecomeTextSeparatedByTabs) {
    expectTexts({
        {R"(\trowd\cellx1\intbl a\cell{\b b}\cell\row c)", "a\tb\nc"},
        {R"(a\cell\cell\row c)", "a\t\nc"},
        {R"(a\cell b\par c\cell\row d)", "a\tb\nc\nd"},
        {R"(a\cell b)", "a\tb"},
        {R"(\row a)", "\na"},
        {R"(a\nestcell b\nestcell{\*\nesttableprops\trowd\nestrow}{\nonesttables\par}c\cell\row)", "a\tb\nc"},
    });
}

TEST(RtfLists, Labels_InBothSyntaxes_AreBulletsOrText) {
    for (const std::string label :
         {R"({\pntext\f1\'B7\tab}{\*\pn\pnlvlblt\pnf1{\pntxtb\'B7}})", R"({\pntext\'95\tab})",
          R"({\listtext o\tab})", "{\\listtext - }", R"({\*\pn\pnlvlblt\pnf1{\pntxtb\'B7}})"})
        EXPECT_EQ(rewritten(label + 'a'), "\\pard\\ql " + bullet + 'a');
    const std::pair<std::string, std::string> rows[] = {
        {R"({\listtext 1.\tab}\ls1\ilvl0 a)", "1.\\tab a"}, // is no longer in the list
        {R"({\pntext 7\tab}{\*\pn\pnlvlbody\pndec{\pntxta.}}a)", "7\\tab a"},
        {R"({\*\pn\pnlvlblt}{\pntext (a)\tab}a)", "(a)\\tab a"},
        {R"({\listtext\tab}a)", "a"},
        {R"({\listtext z\tab}a)", "z\\tab a"},
        {R"({\*\pn\pnlvlblt}\pard a)", "a"},
    };
    for (const auto& [body, written] : rows)
        EXPECT_EQ(rewritten(body), usual + written);
}

TEST(RtfStructure, TablesBookmarksAndFieldsOtherThanLinks_AreLost) {
    for (const auto& [body, lost] : {std::pair{R"({\fldinst PAGE})", true},
                                     {R"({\fldinst{\b HYPERLINK "http://a.example"}})", false},
                                     {R"(\trowd a\cell)", true},
                                     {R"({\*\bkmkstart a})", true},
                                     {R"(\b a)", false}})
        EXPECT_EQ(rtf::losesStructure(R"({\rtf1 )" + std::string(body) + '}'), lost) << body;
}

TEST(RtfLists, Label_AppliesToItsParagraph_OldListsUntilTheNextReset) {
    EXPECT_EQ(rewritten(R"({\pntext\'95}a\par b)"), "\\pard\\ql " + bullet + "a\\par\\pard\\ql b");
    EXPECT_EQ(rewritten(R"({\*\pn\pnlvlblt}a\par b\par\pard c)"),
              "\\pard\\ql " + bullet +
                  R"(a\par{\pntext\f1\'b7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'b7}}b\par\pard\ql c)");
}

TEST(RtfLists, ListTableItem_IsPreserved_AndWrittenInTheNewSyntaxOnly) {
    const std::string item = R"(\ls1\ilvl0 {\listtext\'95\tab}a)";
    EXPECT_EQ(rewritten(item), R"(\pard\ls1\ilvl0\ql )" + bullet + 'a');
    EXPECT_EQ(
        rewritten(R"({\*\listtable{\list\listid1}}{\*\listoverridetable{\listoverride\listid1\ls1}})" + item),
        R"(\pard\ls1\ilvl0\ql {\listtext\f1\'b7\tab}\plain\f0\fs24 a)");
}

TEST(RtfFields, Instruction_GivesTheLinkTarget) {
    const std::pair<std::string, std::string> rows[] = {
        {"HYPERLINK \"http://a.b/c?d=e&f\"", "http://a.b/c?d=e&f"},
        {R"( hyperlink http://a.b \\o "tip")", "http://a.b"},
        {R"(HYPERLINK \\l "place")", "#place"},
        {R"(HYPERLINK "a.rtf" \\l "place")", "a.rtf#place"},
        {R"(HYPERLINK \\n "C:\\\\x y\\\\l")", "C:\\x y\\l"},
        {R"({\upr{x}{\*\ud HYPERLINK b}})", "b"},
        {"HYPERLINK \"a#\"", "a#"},
        {"HYPERLINK \"#\"", "#"},
        {R"(HYPERLINK "say \\"\u1071?\{\\"")", "say \"Я{\""},
    };
    for (const auto& [instruction, target] : rows) {
        const rtf::Document read =
            document(R"({\field{\*\fldinst{)" + instruction + "}}{\\fldrslt{\\ul x}}}y");
        ASSERT_EQ(read.links.size(), 1U) << instruction;
        EXPECT_EQ(base::toUtf8(read.links[0]), target);
        EXPECT_EQ(read.formats[read.runs[0].format].link, 0U);
        EXPECT_EQ(read.formats[read.runs[1].format].link, rtf::none);
    }
    EXPECT_TRUE(document("{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt}}x").links.empty());
}

TEST(RtfFields, OtherFields_ShowTheirResult) {
    expectTexts({
        {R"({\field\flddirty{\*\fldinst DATE}{\fldrslt{\b today}}}!)", "today!"},
        {R"({\field{\*\fldinst HYPERLINK "u"}{\fldrslt a{\field{\*\fldinst PAGE}{\fldrslt 3}}b}})", "a3b"},
        {R"({\field{\*\fldinst IF {\field{\*\fldinst PAGE}{\fldrslt 3}} = 3}{\fldrslt yes}})", "yes"},
        {R"({\field{\*\fldinst SYMBOL 183 \\f "Symbol"}})", "\uF0B7"},
        {R"({\field{\*\fldinst SYMBOL 183}{\fldrslt x}})", "x"},
        {R"({\fldrslt x}{\*\fldinst y})", "x"},
        {"{\\field{\\*\\fldinst DATE \\\n}{\\fldrslt x}}", "x"},
    });
}
