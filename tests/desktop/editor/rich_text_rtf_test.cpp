#include "desktop/text/editor_layout.h"
#include "desktop/text/rtf_bridge.h"
#include "rich_text_fixture.h"
#include "rtf/read/reader.h"

#include <QAbstractTextDocumentLayout>

using tests::RichText;

namespace {

// More fonts than the program shows.
std::string manyFonts() {
    std::string table;
    std::string letters;
    for (int i = 0; i < 1100; ++i) {
        const std::string number = std::to_string(i);
        table.append("{\\f" + number).append(" Face " + number).append(";}");
        letters.append("{\\f" + number).append(" x}");
    }
    return "{\\rtf1{\\fonttbl" + table + '}' + letters + '}';
}

// Documents that cover everything the control shows or keeps.
const std::string documents[] = {
    R"({\rtf1 })",
    R"({\rtf1\ansi one\par two\par\par})",
    R"({\rtf1\ansi{\fonttbl{\f0 Arial;}{\f1\fcharset204 Times New Roman;}}\f0 a{\f1\fs28 b}\par\fs20\par c})",
    R"({\rtf1\ansi{\colortbl;\red255\green0\blue0;}{\b b}{\i i}{\ul u}{\strike s})" +
        std::string(
            R"({\cf1 red}{\v hid}{\super up}{\sub low}{\caps big}{\scaps small}{\highlight1 lit}\par})"),
    R"({\rtf1\ansi\qr right\par\pard\qc centre\par\pard\qj even\par\pard\li720\ri360\fi-180\sb120\sa60 in\par})",
    R"({\rtf1\ansi{\pntext\'b7\tab}{\*\pn\pnlvlblt{\pntxtb\'b7}}\fi-360\li720 one\par )" +
        std::string(R"({\pntext\'b7\tab}two\par\pard plain\par})"),
    manyFonts(),
    R"({\rtf1\ansi a{\v\b h\page i}{\v d}b{\v{\pict\pngblip 00}}\par{\v\par}\v e\par})",
    R"({\rtf1\ansi a{\b\page}b\page\par\page\page c\par\qc\pagebb\fi-180\li360\sb120 d\page e\par f\par})",
    R"({\rtf1\ansi{\pntext\'b7\tab}a\page b\par c\page})",
    R"({\rtf1\ansi a\line b\tab c\page d\~e\u1087?\u-10179?\u-8704?\par})",
    R"({\rtf1\ansi see {\field{\*\fldinst{HYPERLINK "https://example.org/"}}{\fldrslt there}} now\par})",
    R"({\rtf1\ansi pic {\pict\pngblip\picwgoal300\pichgoal150 )" + tests::pngDigits(QSize(2, 1), Qt::red) +
        R"(} and note{\footnote a {\b note}} end\par})",
    R"({\rtf1\ansi{\stylesheet{\s1 Heading;}}{\info{\author A}}\paperw11906{\header top\par}\s1\tx720 a\par)" +
        std::string(R"(\sect\sectd\sbknone{\footer low\par}b\par c\par})"),
};

} // namespace

TEST_F(RichText, Documents_SavedAndCopiedAsRtf_RoundTrip) {
    const fakes::TemporaryFolder folder;
    for (const std::string& source : documents) {
        folder.write("in.rtf", source);
        rtb.LoadFile(folder.text("in.rtf"));
        rtb.SaveFile(folder.text("out.txt"));
        const std::string written = folder.read("out.txt");
        EXPECT_EQ(rtf::read(written), rtf::read(source)) << source << "\n" << written;

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

// Compares pictures of both layouts on a narrow page, with a selection and the caret.
TEST_F(RichText, Documents_LookAsInQtsOwnLayout) {
    for (const std::string& source : documents) {
        QImage pictures[] = {QImage(200, 700, QImage::Format_RGB32), QImage(200, 700, QImage::Format_RGB32)};
        for (QImage& picture : pictures) {
            const auto document = desktop::documentOfRtf(rtf::read(source), rtb.font());
            if (&picture == &pictures[0])
                document->setDocumentLayout(new desktop::EditorLayout(*document));
            document->setPageSize(QSizeF(150, -1));
            QAbstractTextDocumentLayout::PaintContext context;
            QTextCursor cursor(document.get());
            cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
            cursor.setPosition(1, QTextCursor::KeepAnchor);
            QTextCharFormat selected;
            selected.setBackground(Qt::yellow);
            context.selections = {{cursor, selected}};
            context.cursorPosition = 1;
            picture.fill(Qt::white);
            QPainter painter(&picture);
            document->documentLayout()->draw(&painter, context);
        }
        EXPECT_EQ(pictures[0], pictures[1]) << source.substr(0, 300);
    }
}

TEST_F(RichText, Bullets_InALongText_AreSplitIntoSeveralLists) {
    const auto expectShortLists = [&] {
        select(0, rtb.textLength());
        EXPECT_EQ(rtb.SelBullet(), platform::Setting::On);
        for (QTextBlock block = rtb.document()->begin(); block.isValid(); block = block.next())
            ASSERT_TRUE(block.textList() && block.textList()->count() <= desktop::BulletLists::longest);
    };
    base::Text lines = u"line";
    for (int i = 0; i < 3 * desktop::BulletLists::longest; ++i)
        lines += u"\r\nline";
    rtb.setText(lines);
    select(0, rtb.textLength());
    rtb.setSelBullet(true);
    expectShortLists();
    const base::Text source = rtb.SelRTF();
    rtb.setSelRTF(source);
    expectShortLists();
    EXPECT_EQ(rtb.SelRTF(), source);
}

TEST_F(RichText, HiddenText_HasNoWidth_AndDoesNotHideTextTypedAfterIt) {
    const auto width = [&](base::TextView source) {
        rtb.setText(u"");
        rtb.setSelRTF(source);
        return rtb.document()->idealWidth();
    };
    EXPECT_EQ(width(u"{\\rtf1 a{\\v hidden}{\\v{\\pict\\pngblip\\picwgoal300\\pichgoal300 00}}b}"),
              width(u"{\\rtf1 ab}"));
    rtb.setText(u"ab");
    rtb.setSelStart(2);
    rtb.setSelRTF(u"{\\rtf1{\\v c}}");
    rtb.setSelText(u"d");
    EXPECT_EQ(rtb.Text(), u"ab\uFFFCd");
    select(0, rtb.textLength());
    EXPECT_EQ(rtf::plainText(rtf::read(base::toUtf8(rtb.SelRTF()))), u"abd");
}

TEST_F(RichText, PageBreaks_AreWrittenOnce_AfterAnyEditOfTheirParagraphs) {
    // What is saved: "|" is a page break within a paragraph, "^" one in front of it.
    const std::tuple<int, int, base::TextView, std::string> rows[] = {
        {4, 0, u"\r\n", "a|b\n\n^c\n"}, {3, 0, u"\r\n", "a|\nb\n^c\n"}, {1, 2, u"", "ab\n^c\n"},
        {7, 0, u"\r\n", "a|b\n^c\n\n"}, {0, 3, u"", "b\n^c\n"},
    };
    for (const auto& [start, length, typed, expected] : rows) {
        rtb.setText(u"");
        rtb.setSelRTF(u"{\\rtf1 a\\page b\\par\\pagebb c\\par}");
        select(start, length);
        rtb.setSelText(typed);
        select(0, rtb.textLength());
        const rtf::Document saved = rtf::read(base::toUtf8(rtb.SelRTF()));
        std::string written;
        std::size_t at = 0;
        for (const rtf::Paragraph& paragraph : saved.paragraphs) {
            written += saved.paragraphFormats[paragraph.format].pageBreakBefore ? "^" : "";
            for (const char16_t unit : saved.text.substr(at, paragraph.length))
                written += unit == rtf::pageBreak ? '|' : static_cast<char>(unit);
            at += paragraph.length;
            written += '\n';
        }
        EXPECT_EQ(written, expected);
    }
}

TEST_F(RichText, SetSelRTF_InsertsTheParagraphEnds_AsOneChange) {
    const base::Text nothing = rtb.SelRTF();
    const base::Text nul(u"\0x\0", 3);
    const std::tuple<base::TextView, int, int, base::TextView, const char*> rows[] = {
        {u"ab", 1, 0, u"{\\rtf1 x}", "ax|b"},
        {u"ab", 1, 0, u"{\\rtf1 x\\par}", "ax/|b"},
        {u"ab", 1, 0, u"{\\rtf1 x\\par y}", "ax/y|b"},
        {u"ab", 0, 2, u"{\\rtf1 \\b xy}", "xy|"}, // the same length as before
        {u"", 0, 0, nothing, "|"},
        {u"ab", 1, 1, nothing, "a|"},
        {u"ab", 1, 0, nul, "ax|b"},
        {u"ab", 1, 0, u"no {rtf}", "ano {rtf}|b"},
        {u"ab", 1, 0, u"\uFEFF \r\n{\\rtf1 \u043F\\'e9}", "a\u043F\u00E9|b"},
        {u"a\r\nb", 0, 3, u"{\\rtf1 x\\par}", "x/|b"},
        {u"", 0, 0, u"{\\rtf1 cut {\\b of", "cut of|"},
    };
    for (const auto& [text, start, length, source, after] : rows) {
        rtb.setText(text);
        select(start, length);
        changes = 0;
        rtb.setSelRTF(source);
        EXPECT_EQ(shown(), after) << base::toUtf8(source);
        EXPECT_EQ(changes, source == nothing && length == 0 ? 0 : 1) << base::toUtf8(source);
    }
}

TEST_F(RichText, Paste_InsideAParagraph_KeepsTheAlignmentOfTheRest) {
    const auto alignment = [&](int paragraph) {
        return rtb.document()->findBlockByNumber(paragraph).blockFormat().alignment();
    };
    rtb.setText(u"ab\r\nc\r\nd");
    select(0, 5); // nothing of the third paragraph
    rtb.setSelAlignment(platform::ParagraphAlignment::Right);
    rtb.setSelStart(1);
    rtb.setSelRTF(u"{\\rtf1\\qc x\\par y}");
    EXPECT_EQ(rtb.Text(), u"ax\r\nyb\r\nc\r\nd");
    for (const int paragraph : {0, 1, 2})
        EXPECT_EQ(alignment(paragraph), Qt::AlignRight);
    EXPECT_EQ(alignment(3), QTextBlockFormat().alignment());
}

TEST_F(RichText, SaveFile_AfterSplittingASectionsParagraph_WritesTheSectionOnce) {
    const fakes::TemporaryFolder folder;
    folder.write("in.rtf", R"({\rtf1 a\par\sect\sectd\sbknone bc\par})");
    rtb.LoadFile(folder.text("in.rtf"));
    rtb.Find(u"c", 0, 0);
    rtb.setSelText(u"\r\nc");
    rtb.SaveFile(folder.text("out.rtf"));
    EXPECT_EQ(rtf::read(folder.read("out.rtf")).sections.size(), 2U);
}

TEST_F(RichText, Exported_HasTheTextWithItsFormats_AndNothingHidden) {
    const std::string picture = "{\\pict\\pngblip " + tests::pngDigits({2, 3}, Qt::red) + "}";
    const std::string source =
        R"({\rtf1{\fonttbl{\f0 Liberation Serif;}}{\colortbl;\red200\green0\blue0;}\qc )"
        R"({\b bold}{\v secret} {\f0\fs40\i\cf1 large}\par )" +
        picture + "}";
    const std::string page = rtb.exported(source, platform::ExportForm::Html);
    for (const char* part : {"align=\"center\"", "bold</span>", "font-weight:700", "'Liberation Serif'",
                             "font-size:20pt", "font-style:italic", "#c80000", "data:image/png;base64,"})
        EXPECT_NE(page.find(part), std::string::npos) << part << '\n' << page;
    EXPECT_EQ(page.find("secret"), std::string::npos);
    const std::string odt = rtb.exported(source, platform::ExportForm::OpenDocument);
    EXPECT_EQ(odt.substr(0, 2), "PK");
    EXPECT_NE(odt.find("mimetypeapplication/vnd.oasis.opendocument.text"), std::string::npos);
    EXPECT_NE(odt.find("Pictures/"), std::string::npos);
    EXPECT_EQ(changes, 0) << "the document of the control is another one";
}
