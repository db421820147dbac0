#include "base/carry_on.h"
#include "desktop/editor/rtf_bridge.h"
#include "fakes/temporary_folder.h"
#include "rich_text_fixture.h"
#include "rtf/rtf_reader.h"

#include <QBuffer>
#include <QImage>
#include <QTextBlock>

using platform::Setting;
using tests::RichText;

namespace {

// A picture of 20 by 10 pixels on the screen, whatever it has itself.
std::string pictureRtf() {
    QImage image(2, 1, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    image.save(&buffer, "PNG");
    return "{\\pict\\pngblip\\picwgoal300\\pichgoal150 " + png.toHex().toStdString() + "}";
}

// Documents with each of the things that the control shows or keeps.
const std::string documents[] = {
    "{\\rtf1 }",
    "{\\rtf1\\ansi one line}",
    "{\\rtf1\\ansi one\\par two\\par\\par}",
    "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset204 Times New Roman;}}\\f0 a{\\f1\\fs28 "
    "b}\\par\\fs20\\par c}",
    "{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}{\\b b}{\\i i}{\\ul u}{\\strike s}{\\cf1 red}{\\v hid}"
    "{\\super up}{\\sub low}{\\caps big}{\\scaps small}{\\highlight1 lit}\\par}",
    "{\\rtf1\\ansi\\qr right\\par\\pard\\qc centre\\par\\pard\\qj "
    "even\\par\\pard\\li720\\ri360\\fi-180\\sb120\\sa60 in\\par}",
    "{\\rtf1\\ansi{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}\\fi-360\\li720 one\\par "
    "{\\pntext\\'b7\\tab}two\\par\\pard plain\\par}",
    "{\\rtf1\\ansi a\\line b\\tab c\\page d\\~e\\u1087?\\u-10179?\\u-8704?\\par}",
    "{\\rtf1\\ansi see {\\field{\\*\\fldinst{HYPERLINK \"https://example.org/\"}}{\\fldrslt there}} "
    "now\\par}",
    "{\\rtf1\\ansi pic " + pictureRtf() + " and note{\\footnote a {\\b note}} end\\par}",
    "{\\rtf1\\ansi{\\stylesheet{\\s1 Heading;}}{\\info{\\author A}}\\paperw11906{\\header "
    "top\\par}\\s1\\tx720 a\\par"
    "\\sect\\sectd\\sbknone{\\footer low\\par}b\\par c\\par}",
};

} // namespace

TEST_F(RichText, SaveFile_OfWhatWasLoaded_WritesAnEqualDocument) {
    const fakes::TemporaryFolder folder;
    for (const std::string& source : documents) {
        folder.write("in.rtf", source);
        rtb.LoadFile(folder.text("in.rtf"));
        rtb.SaveFile(folder.text("out.txt"));
        const std::string written = folder.read("out.txt");
        EXPECT_TRUE(written.starts_with("{\\rtf1"));
        EXPECT_EQ(rtf::read(written), rtf::read(source)) << source << "\n" << written;
    }
}

TEST_F(RichText, SelRTF_OfEverything_PutsTheSameIntoAnEmptyText) {
    for (const std::string& source : documents) {
        rtb.setText(u"");
        rtb.setSelRTF(base::fromUtf8(source));
        const base::Text text = rtb.Text();
        select(0, rtb.textLength());
        const base::Text taken = rtb.SelRTF();
        rtb.setText(u"");
        rtb.setSelRTF(taken);
        EXPECT_EQ(rtb.Text(), text) << source;
        select(0, rtb.textLength());
        EXPECT_EQ(rtb.SelRTF(), taken);
    }
}

TEST_F(RichText, SelRTF_Written_GoesInWithItsParagraphEnds) {
    struct Row {
        const char* text;
        int start, length;
        base::TextView source;
        const char* after;
    };
    const Row rows[] = {
        {"ab", 1, 0, u"{\\rtf1 x}", "ax|b"},
        {"ab", 1, 0, u"{\\rtf1 x\\par}", "ax\r\n|b"},
        {"ab", 1, 0, u"{\\rtf1 x\\par y}", "ax\r\ny|b"},
        {"ab", 0, 2, u"{\\rtf1 \\b x}", "x|"},
        {"ab", 1, 0, u"{\\rtf1 }", "a|b"},
        {"ab", 1, 1, u"", "a|"},
        {"ab", 1, 0, u"no {rtf}", "ano {rtf}|b"},
        {"ab", 1, 0, u"\uFEFF \r\n{\\rtf1 \u043F\\'e9}", "a\u043F\u00E9|b"},
        {"a\r\nb", 0, 3, u"{\\rtf1 x\\par}", "x\r\n|b"},
        {"", 0, 0, u"{\\rtf1 cut {\\b of", "cut of|"},
    };
    for (const Row& row : rows) {
        rtb.setText(base::fromUtf8(row.text));
        select(row.start, row.length);
        rtb.setSelRTF(row.source);
        EXPECT_EQ(shown(), row.after) << base::toUtf8(row.source);
    }
}

TEST_F(RichText, SelRTF_OfNothing_InsertsNothingAgain) {
    rtb.setText(u"ab");
    rtb.setSelStart(1);
    const base::Text skeleton = rtb.SelRTF();
    EXPECT_TRUE(skeleton.starts_with(u"{\\rtf1"));
    rtb.setSelRTF(skeleton);
    EXPECT_EQ(shown(), "a|b");
}

TEST_F(RichText, SelRTF_OfPartOfAText_CarriesFormatsAndParagraphEnds) {
    rtb.setSelRTF(u"{\\rtf1 a{\\b bc}d\\par\\qc e\\par f}");
    for (const auto& [start, length] : {std::pair{0, 2}, {1, 2}, {3, 3}, {4, 2}, {2, 6}, {9, 1}}) {
        select(start, length);
        const base::Text text = rtb.SelText();
        const base::Text taken = rtb.SelRTF();
        const Setting bold = rtb.SelBold();
        desktop::RichTextEdit other(base::CodePage(1252));
        other.setSelRTF(taken);
        EXPECT_EQ(other.Text(), text);
        other.setSelLength(0);
        other.setSelStart(0);
        other.setSelLength(other.textLength());
        EXPECT_EQ(other.SelBold(), bold) << start;
    }
}

TEST_F(RichText, Paste_InsideAParagraph_KeepsTheAlignmentOfTheRest) {
    const auto alignment = [&](int paragraph) {
        return rtb.document()->findBlockByNumber(paragraph).blockFormat().alignment();
    };
    rtb.setText(u"ab");
    rtb.setSelAlignment(platform::ParagraphAlignment::Right);
    rtb.setSelStart(1);
    rtb.setSelRTF(u"{\\rtf1\\qc x\\par y}");
    EXPECT_EQ(rtb.Text(), u"ax\r\nyb");
    EXPECT_EQ(alignment(0), Qt::AlignRight);
    EXPECT_EQ(alignment(1), Qt::AlignRight);
}

TEST_F(RichText, Picture_InAText_IsOneUnitThatIsDrawn) {
    rtb.setSelRTF(base::fromUtf8("{\\rtf1 a" + pictureRtf() + "b}"));
    EXPECT_EQ(rtb.Text(), u"a\uFFFCb");
    QTextCursor cursor(rtb.document());
    cursor.setPosition(2);
    const QTextImageFormat image = cursor.charFormat().toImageFormat();
    EXPECT_EQ(image.width(), 20);
    EXPECT_EQ(image.height(), 10);
    const auto picture = rtb.document()->resource(QTextDocument::ImageResource, QUrl(image.name()));
    EXPECT_EQ(picture.value<QImage>().size(), QSize(2, 1));
}

TEST_F(RichText, Bullets_OfAFile_CanBeTakenAwayAndGiven) {
    rtb.setSelRTF(base::fromUtf8(documents[6]));
    rtb.setSelStart(0);
    EXPECT_EQ(rtb.SelBullet(), Setting::On);
    rtb.setSelBullet(false);
    EXPECT_EQ(rtb.SelBullet(), Setting::Off);
    rtb.setSelStart(5);
    EXPECT_EQ(rtb.SelBullet(), Setting::On);
    rtb.setSelStart(10);
    EXPECT_EQ(rtb.SelBullet(), Setting::Off);
    rtb.setSelBullet(true);
    EXPECT_EQ(rtb.SelBullet(), Setting::On);
}

TEST_F(RichText, SaveFile_AfterASectionsParagraphWasCut_WritesTheSectionOnce) {
    const fakes::TemporaryFolder folder;
    rtb.setText(u"");
    folder.write("in.rtf", "{\\rtf1 a\\par\\sect\\sectd\\sbknone bc\\par}");
    rtb.LoadFile(folder.text("in.rtf"));
    rtb.Find(u"c", 0, 0);
    rtb.setSelText(u"\r\nc");
    rtb.SaveFile(folder.text("out.rtf"));
    EXPECT_EQ(rtf::read(folder.read("out.rtf")).sections.size(), 2U);
}
