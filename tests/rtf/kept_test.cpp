#include "rtf/read/picture.h"
#include "rtf/reading.h"

using reading::document;

TEST(RtfKept, KeptRanges_HaveAnAnchorInTheText) {
    const std::pair<std::string, std::string> rows[] = {
        {R"({\*\shppict{\pict 00}}{\nonshppict{\pict 01}})",
         R"({\*\shppict{\pict 00}}{\nonshppict{\pict 01}})"},
        {R"({\object\objemb{\*\objdata 01}{\result r}})", R"({\object\objemb{\*\objdata 01}{\result r}})"},
        {R"({\super\chftn{\footnote\pard\chftn note}})", R"(\chftn {\footnote\pard\chftn note})"},
        {R"({\*\atnid x}\chatn{\*\annotation y})", R"({\*\atnid x}\chatn {\*\annotation y})"},
        {"{\\b\\pict 00}", "{\\pict 00}"},
        {"{\\uc2\\footnote a}", "{\\footnote \\uc2 a}"},
        {"{\\footnote\r\na\xE9\\bin2 \xFF}}", "{\\footnote\na\\'e9ff7d}"},
        // moved into the picture's own group
        {"{\\pict 0{\\*\\x {\\bin2 \xFF}}}1}", "{\\pict 0{\\*\\x {}}ff7d1}"},
        {"{\\footnote \\b\r\n1\\'4\r\n1}", "{\\footnote \\b\n1\\'4\n1}"},
    };
    for (const auto& [body, range] : rows) {
        const rtf::Document read = document("a" + body + "b");
        ASSERT_EQ(read.kept.size(), 1U) << body;
        EXPECT_EQ(read.kept[0], range) << body;
        EXPECT_EQ(read.text[1], rtf::anchorUnit);
        EXPECT_EQ(read.runs[1], (rtf::Run{1, read.runs[1].format, 0})) << body;
    }
}

TEST(RtfKept, HeadAndHeaders_AreStoredInTheDocument) {
    const rtf::Document read =
        document(R"({\stylesheet{\s1 Head;}}{\info{\title t}}{\*\listtable{\list}}\paperw100 )"
                 R"({\header top}a\sect\sectd\cols2{\footer end}b)");
    EXPECT_EQ(read.head, R"({\stylesheet{\s1 Head;}}{\info{\title t}}{\*\listtable{\list}})");
    EXPECT_EQ(read.pageWords, "\\paperw100");
    EXPECT_EQ(read.sections,
              (std::vector<rtf::Section>{{"", "{\\header top}"}, {"\\cols2", "{\\footer end}"}}));
    EXPECT_EQ(read.paragraphs[1].section, 1U);
    EXPECT_EQ(rtf::plainText(read), u"a\nb");
}

TEST(RtfKept, Tables_HoldTheFontsAndColoursOfKeptRanges) {
    const rtf::Document read = document(R"(\f2\cf2 a{\footnote\f3\cf1 b}{\*\atnid \f4 dropped}c)");
    ASSERT_EQ(read.keptTables.fonts.size(), 2U);
    EXPECT_EQ(read.keptTables.fonts[1], (rtf::NumberedFont{3, {u"Gothic", 128}}));
    EXPECT_EQ(read.keptTables.colours, (std::vector<rtf::Colour>{{}, {false, 255, 0, 0}}));
    EXPECT_EQ(document("{\\f3\\cf1 a}").keptTables, rtf::KeptTables());
}

TEST(RtfPicture, Bytes_AreDecodedFromHexAndBinary) {
    const std::string binary = std::string(R"({\pict\jpegblip\bin3 )") + '\xFF' + "}\\}";
    const std::tuple<std::string, rtf::PictureKind, std::string, int> rows[] = {
        {"{\\pict\\picwgoal100\\pichgoal50\\picscalex50\\pngblip{\\*\\blipuid 00ff}\n89 50\n4E47}",
         rtf::PictureKind::Png, "\x89PNG", 50},
        {R"({\*\shppict{\pict\wmetafile8 01}}{\nonshppict{\pict\pngblip\picwgoal-5\pichgoal-5 89504e47}})",
         rtf::PictureKind::Png, "\x89PNG", 0},
        {binary, rtf::PictureKind::Jpeg, "\xFF}\\", 0},
        {"{\\pict\\pngblip{\\*\\blipuid 00}{\\bin2 \x89P}}", rtf::PictureKind::Png, "\x89P", 0},
        {document(binary).kept.at(0), rtf::PictureKind::Jpeg, "\xFF}\\", 0},
    };
    for (const auto& [range, kind, bytes, size] : rows) {
        const auto picture = rtf::pictureOf(range);
        ASSERT_TRUE(picture) << range;
        EXPECT_EQ(picture->kind, kind) << range;
        EXPECT_EQ(picture->bytes, bytes) << range;
        EXPECT_EQ(picture->width, size) << range;
        EXPECT_EQ(picture->height, size) << range;
    }
    for (const std::string range :
         {"", "{\\pict\\wmetafile8 0102}", "{\\pict\\pngblip}", "{\\footnote a}", "{\\pict\\pngblip 8"})
        EXPECT_FALSE(rtf::pictureOf(range)) << range;
}
