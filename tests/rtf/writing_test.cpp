#include "rtf/reading.h"

#include <algorithm>
#include <gtest/gtest.h>

using reading::document;

TEST(RtfWriting, Samples_ReadTheSameAgain) {
    const std::string samples[] = {
        "",
        "a",
        "a\\par",
        "\\par\\par",
        " a  b ",
        R"({\b a}{\i\fs40 b}\cf1 c\highlight2 d{\super e}\v f)",
        R"(\qc a\par\pard\li720\fi-360\sa120 b\par\qr\par)",
        R"({\pntext\'95\tab}{\*\pn\pnlvlblt}\ls1\tx720 a\par b\par\pard c)",
        R"({\field{\*\fldinst HYPERLINK "u"}{\fldrslt a{\b b}\par c}}d)",
        R"(\b {\field{\*\fldinst HYPERLINK "u"}{\fldrslt\i a}} b)",
        R"({\field{\*\fldinst HYPERLINK "u"}{\fldrslt a}}{\field{\*\fldinst HYPERLINK "v"}{\fldrslt b}})",
        R"(\f1 \'b7 \u97?\u1071?\{\tab\f2 \'cf)",
        R"(\{\}\\\~\-\_\line\page\tab\u-10179?\u-8704?\u-4?\'7f)",
        "a\\u8203?1\\u1071?1",
        R"(a\cell b\cell\row)",
        R"(\uc3{\footnote\u1071?12}a{\pict 00}{\pict 01}\par{\pict 02})",
        R"({\b\par}{\fs40\par}x)",
        "a\\sect b\\sect",
    };
    for (const std::string& sample : samples) {
        const rtf::Document read = document(sample);
        const std::string written = rtf::write(read);
        EXPECT_EQ(rtf::read(written), read) << sample << '\n' << written;
        EXPECT_TRUE(std::all_of(written.begin(), written.end(), [](char byte) { return byte > 0; }))
            << sample;
        EXPECT_TRUE(rtf::isRtf(written)) << sample;
    }
}

TEST(RtfWriting, Document_IsWrittenInPlainWords) {
    EXPECT_EQ(rtf::write(document("\\f2\\fs28\\b\\cf2 \\'cf\\par\\pard\\qr b")),
              "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\r\n"
              "{\\fonttbl{\\f0\\fnil\\fcharset204 Courier;}}\r\n"
              "{\\colortbl ;\\red0\\green0\\blue255;}\r\n"
              "{\\*\\generator Quillmere;}\r\n"
              "\\pard\\ql \\plain\\f0\\fs28\\b\\cf1 \\u1055?\\par\r\n"
              "\\pard\\qr b}\r\n");
}

TEST(RtfWriting, Bullet_OfAListInTheTable_IsSaidInTheNewWayOnly) {
    const rtf::Document read = document(
        R"({\*\listtable{\list\listid1}}{\*\listoverridetable{\listoverride\listid1\ls1}}{\listtext\'95\tab}\ls1\ilvl0 a\par {\listtext\'95\tab}\ls1\ilvl0 b)");
    const std::string written = rtf::write(read);
    EXPECT_NE(written.find("\\pard\\ls1\\ilvl0\\ql {\\listtext\\f1\\'b7\\tab}"), std::string::npos)
        << written;
    EXPECT_EQ(written.find("\\pn"), std::string::npos);
    EXPECT_EQ(rtf::read(written).paragraphFormats, read.paragraphFormats);
}

TEST(RtfWriting, Bullet_IsSaidInBothWays) {
    const std::string written = rtf::write(document(R"({\pntext\'95\tab}a)"));
    EXPECT_NE(written.find("{\\f1\\fnil\\fcharset2 Symbol;}"), std::string::npos) << written;
    EXPECT_NE(written.find("{\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}"),
              std::string::npos);
}

TEST(RtfWriting, EmptyDocument_IsASkeleton) {
    const std::string written = rtf::write(rtf::Document());
    EXPECT_TRUE(rtf::isRtf(written));
    EXPECT_EQ(rtf::plainText(rtf::read(written)), u"");
}

TEST(RtfWriting, DocumentMadeByHand_ReadsAsItself) {
    rtf::Document made;
    made.text = u"Speaker: да";
    made.runs = {{8, 0, rtf::none}, {3, 1, rtf::none}};
    made.paragraphs = {{11, 2, 0, 0}};
    made.formats.resize(2);
    made.formats[0].bold = true;
    made.paragraphFormats.resize(1);
    made.fonts = {{u"Arial", 0}};
    made.sections.resize(1);
    EXPECT_EQ(rtf::read(rtf::write(made)), made);
}
