#include "rtf/reading.h"

using reading::document;
using reading::rewritten;
using reading::usual;

TEST(RtfWriting, Samples_RoundTrip) {
    for (const char* sample :
         {R"(\qc a\par\pard\li720\fi-360\sa120 b\par\qr\par)",
          R"({\field{\*\fldinst HYPERLINK "u"}{\fldrslt a{\b b}\par c}}d)",
          R"(\b {\field{\*\fldinst HYPERLINK "u"}{\fldrslt\i a}} b)",
          R"({\field{\*\fldinst HYPERLINK "u"}{\fldrslt a}}{\field{\*\fldinst HYPERLINK "v"}{\fldrslt b}})",
          R"(\f1 \'b7 \u97?\u1071?\{\tab\f2 \'cf\u-4?\'7f\u8203?1 )",
          R"(\uc3{\footnote\u1071?12}a{\pict 00}{\pict 01}\par{\pict 02}{\b\par}{\fs40\par}x)",
          R"(a\sect b\sect)"})
        document(sample);
}

TEST(RtfWriting, Document_IsWrittenInItsSimplestForm) {
    EXPECT_EQ(rtf::write(document(R"({\pntext\'95\tab}\f2\fs28\b\cf2 \'cf\par\pard\qr b)")),
              "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\r\n"
              "{\\fonttbl{\\f0\\fnil\\fcharset204 Courier;}{\\f1\\fnil\\fcharset2 Symbol;}}\r\n"
              "{\\colortbl ;\\red0\\green0\\blue255;}\r\n"
              "{\\*\\generator Quillmere;}\r\n"
              "\\pard\\ql {\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}"
              "\\plain\\f0\\fs28\\b\\cf1 \\u1055?\\par\r\n"
              "\\pard\\qr b}\r\n");
}

TEST(RtfWriting, Sections_BeginWithSectd) {
    EXPECT_EQ(rewritten(R"(a\sect\cols2 b)"), usual + R"(a\sect\sectd\cols2\pard\ql b)");
    EXPECT_TRUE(rtf::write(document(R"(\cols2 a)")).ends_with("}\r\n\\sectd\\cols2" + usual + "a}\r\n"));
}

TEST(RtfWriting, EmptyDocument_RoundTrips) {
    EXPECT_EQ(rtf::plainText(rtf::read(rtf::write({}))), u"");
}
