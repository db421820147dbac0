// The reported changes are sufficient to rebuild the text and the document.
#include "desktop/text/rtf_bridge.h"
#include "rich_text_fixture.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"
#include "safety/work.h"

using tests::RichText;

namespace {

std::string canonical(rtf::Document document) {
    document.lastParagraphEnds = true;
    return rtf::write(rtf::read(rtf::write(document)));
}

// True if no paragraph keeps lines of its earlier text.
bool linesAreCurrent(const QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const int lines = block.layout()->lineCount();
        const QTextLine last = lines > 0 ? block.layout()->lineAt(lines - 1) : QTextLine();
        if (last.isValid() && last.textStart() + last.textLength() != block.length() - 1)
            return false;
    }
    return true;
}

} // namespace

TEST_F(RichText, ParagraphChanges_Replayed_RebuildTheDocument) {
    constexpr int steps = 400;
    const std::string starts[] = {
        "{\\rtf1 one\\par two\\par three}",
        // Page breaks within paragraphs and between them; sections with a header, with and without contents.
        "{\\rtf1\\sectd\\lndscpsxn{\\header top}one\\page a\\par two\\page b\\page c\\par\\page three"
        "\\sect\\sectd\\pard four\\par\\sect\\sectd\\sbknone five\\par six\\sect\\sectd\\cols2 seven\\page "
        "d}",
    };
    unsigned seed = 116; // contains edits together in lists, of which Qt reports too little
    rtb.show();
    for (const std::string& start : starts) {
        tests::RandomEdits edits(seed++);
        rtb.setSource(start);
        std::vector<safety::Record> records = {{safety::RecordType::Source, rtb.takeParagraphs()->source}};
        int taken = 0, wholes = 0;
        for (int step = 0; step < steps; ++step) {
            if (edits.upTo(15) == 0 && &start != starts)
                rtb.setSelRTF(u"{\\rtf1 e\\page f\\par\\page g}");
            else
                edits.edit(rtb);
            ASSERT_EQ(watch.told, rtb.Text()) << step;
            ASSERT_TRUE(linesAreCurrent(*rtb.document())) << step;
            // Several changes may be reported as one.
            if (edits.upTo(2) == 0 && step != steps - 1)
                continue;
            if (const auto change = rtb.takeParagraphs()) {
                const bool whole = change->whole;
                wholes += whole ? 1 : 0;
                ++taken;
                records.push_back({whole ? safety::RecordType::Source : safety::RecordType::Change,
                                   whole ? change->source : safety::packed(*change)});
            }
            ASSERT_FALSE(rtb.takeParagraphs());
            const safety::Work work = safety::replay(records);
            ASSERT_TRUE(work.whole) << step;
            ASSERT_EQ(canonical(rtf::read(work.source)),
                      canonical(desktop::rtfOf(static_cast<desktop::EditorDocument&>(*rtb.document()))))
                << step;
            // As the disk thread does with a long journal.
            if (step % 50 == 0)
                records = {{safety::RecordType::Source, work.source}};
        }
        EXPECT_GT(taken, 100);
        EXPECT_LT(wholes, 10) << "a change is not the whole text";
        const base::Text before = rtb.Text();
        rtb.setSource(safety::replay(records).source);
        rtb.setSource(rtb.source());
        EXPECT_EQ(rtb.Text(), before);
    }
}
