// What the control tells of its changes is enough to build the document again.
#include "rich_text_fixture.h"
#include "rtf/rtf_reader.h"
#include "rtf/rtf_writer.h"
#include "safety/work.h"

using tests::RichText;

TEST_F(RichText, ChangesOfParagraphs_ReplayedOneByOne_GiveTheDocument) {
    constexpr int steps = 400;
    std::mt19937 random(3);
    const auto below = [&](std::int32_t limit) { return static_cast<std::int32_t>(random() % (limit + 1U)); };
    rtb.setText(u"one\r\ntwo\r\nthree");
    std::vector<safety::Record> records = {{safety::RecordType::Source, rtb.takeParagraphs()->source}};
    for (int step = 0; step < steps; ++step) {
        const std::int32_t begin = below(rtb.textLength());
        select(begin, below(std::min(rtb.textLength() - begin, 5)));
        switch (below(9)) {
        case 0:
            rtb.setSelBold(true);
            break;
        case 1:
            rtb.setSelBullet(below(1) == 0);
            break;
        case 2:
            rtb.setSelAlignment(platform::ParagraphAlignment::Centre);
            break;
        case 3:
            rtb.setSelText(u"\r\n");
            break;
        case 4:
            rtb.setSelText(u"a\r\n\r\nb");
            break;
        case 5:
            rtb.setSelText(u"");
            break;
        case 6:
            rtb.setSelRTF(u"{\\rtf1 {\\fonttbl{\\f0 Courier;}}x{\\b y}\\par\\qr z\\par}");
            break;
        case 7:
            rtb.setSelRTF(u"{\\rtf1 {\\pict\\pngblip 00}{\\cf1\\super s}}");
            break;
        case 8:
            rtb.together([&] {
                rtb.setSelText(u"here");
                rtb.setSelStart(0);
                rtb.setSelText(u"there\r\n");
            });
            break;
        default:
            rtb.setSelText(u"typed");
        }
        // Several changes may be told as one.
        if (below(2) == 0 && step != steps - 1)
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
        }
    }
    EXPECT_GT(records.size(), 50U);
    const base::Text before = rtb.Text();
    rtb.setSource(safety::replay(records).source);
    rtb.setSource(rtb.source());
    EXPECT_EQ(rtb.Text(), before);
}
