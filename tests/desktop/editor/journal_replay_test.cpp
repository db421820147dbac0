// The reported changes are sufficient to rebuild the text and the document.
#include "rich_text_fixture.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"
#include "safety/work.h"

using tests::RichText;

TEST_F(RichText, ParagraphChanges_Replayed_RebuildTheDocument) {
    constexpr int steps = 400;
    tests::RandomEdits edits(3);
    rtb.setText(u"one\r\ntwo\r\nthree");
    std::vector<safety::Record> records = {{safety::RecordType::Source, rtb.takeParagraphs()->source}};
    for (int step = 0; step < steps; ++step) {
        edits.edit(rtb);
        ASSERT_EQ(watch.told, rtb.Text()) << step;
        // Several changes may be reported as one.
        if (edits.upTo(2) == 0 && step != steps - 1)
            continue;
        if (const auto change = rtb.takeParagraphs()) {
            const bool whole = change->whole;
            records.push_back({whole ? safety::RecordType::Source : safety::RecordType::Change,
                               whole ? change->source : safety::packed(*change)});
        }
        ASSERT_FALSE(rtb.takeParagraphs());
        if (step % 10 == 0 || step == steps - 1) {
            const safety::Work work = safety::replay(records);
            ASSERT_TRUE(work.whole) << step;
            ASSERT_EQ(rtf::write(rtf::read(work.source)), rtf::write(rtf::read(rtb.takeAllParagraphs())))
                << step;
            // As the disk thread does with a long journal.
            if (step % 50 == 0)
                records = {{safety::RecordType::Source, work.source}};
        }
    }
    EXPECT_GT(records.size(), 20U);
    const base::Text before = rtb.Text();
    rtb.setSource(safety::replay(records).source);
    rtb.setSource(rtb.source());
    EXPECT_EQ(rtb.Text(), before);
}
