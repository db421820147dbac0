#include "rich_text_fixture.h"

using tests::RichText;

TEST_F(RichText, Find_ByItsOptions_TellsTheFirstPlace) {
    constexpr int word = platform::findWholeWord;
    constexpr int exact = platform::findMatchCase;
    const struct {
        base::TextView text, wanted;
        int start, options, expected;
    } rows[] = {
        {u"one two one", u"one", 1, 0, 8},
        {u"one two one", u"one", 9, 0, -1},
        {u"one two one", u"", 0, 0, -1},
        {u"One one", u"one", 0, exact, 4},
        {u"needle\r\nneedle", u"needle", 1, 0, 8},
        // Case in every script
        {u"ПРИВЕТ привет", u"привет", 0, exact, 7},
        {u"ΟΔΥΣΣΕΥΣ", u"οδυσσευς", 0, 0, 0},
        {u"STRA\u1E9EE", u"straße", 0, 0, 0},
        {u"x \U00010400", u"\U00010428", 0, 0, 2},
        // Whole words
        {u"concat cat's cat", u"cat", 0, word, 13},
        {u"cats cat sat", u"cat", 0, word, 5},
        {u"3.14 3", u"3", 0, word, 5},
        {u"a_cat cat9 cat", u"cat", 0, word, 11},
        {u"cat́ cat", u"cat", 0, word, 5},
        {u"the cat sat", u"cat sat", 0, word, 4},
        // Over the ends of paragraphs
        {u"one\r\ntwo", u"e\r\nt", 0, 0, 2},
        {u"one\r\ntwo", u"e\r\nT", 0, exact, -1},
        {u"one\r\ntwo", u"one\r\ntwo", 0, word, 0},
        {u"one\r\ntwo", u"one\r\ntw", 0, word, -1},
        {u"a\r\n\r\nb\r\nc", u"\r\n\r\nb\r\n", 0, 0, 1},
        {u"a\r\n\r\nb\r\nc", u"\r\n\r\n", 3, 0, -1},
        {u"x\r\na\r\nb\r\na\r\nc", u"a\r\nc", 0, 0, 9},
        {u"ab\u000Bcd", u"b\u000Bc", 0, 0, 1},
    };
    for (const auto& row : rows) {
        rtb.setText(row.text);
        const auto told = "\"" + base::toUtf8(row.wanted) + "\" in \"" + base::toUtf8(row.text) + "\"";
        EXPECT_EQ(rtb.Find(row.wanted, row.start, row.options), row.expected) << told;
        if (row.expected >= 0) {
            EXPECT_EQ(rtb.SelStart(), row.expected) << told;
            EXPECT_EQ(rtb.SelLength(), static_cast<std::int32_t>(row.wanted.size())) << told;
        }
    }
}

TEST_F(RichText, Find_GoesFromTheCaret_AndSelectsNothingButAHitToHighlight) {
    rtb.setText(u"one one one");
    select(1, 2);
    EXPECT_EQ(rtb.Find(u"three", 0, 0), -1);
    EXPECT_EQ(rtb.Find(u"one", 0, platform::findNoHighlight), 0);
    EXPECT_EQ(shown(), "o[ne] one one");
    EXPECT_EQ(rtb.Find(u"one", std::nullopt, 0), 4);
    rtb.setSelText(u"one!");
    EXPECT_EQ(rtb.Find(u"one", std::nullopt, 0), 9);
}

TEST_F(RichText, EditsTogether_EachTellOfItself_AndShowOnce) {
    base::Text words;
    for (int i = 0; i < 1500; ++i)
        words += u"one\r\n"; // farther than the first piece that a search looks into
    rtb.setText(words);
    std::vector<std::int32_t> lengths;
    rtb.Change = [&] { lengths.push_back(rtb.textLength()); };
    rtb.together([&] {
        EXPECT_EQ(rtb.Find(u"ONE", 7490, 0), 7490);
        rtb.setSelRTF(u"three");
        EXPECT_EQ(rtb.SelStart(), 7495);
        rtb.setSelStart(0);
        rtb.setSelRTF(u""); // changes nothing
        EXPECT_EQ(rtb.Find(u"three", std::nullopt, 0), 7490);
        rtb.setSelText(u"two");
        EXPECT_EQ(rtb.textCursor().position(), 0) << "was shown while the edits ran";
    });
    EXPECT_EQ(lengths, (std::vector<std::int32_t>{7502, 7500}));
    EXPECT_EQ(rtb.SelStart(), 7493);
    EXPECT_EQ(rtb.Text().substr(7485, 10), u"one\r\ntwo\r\n");
    rtb.setSelText(u"!");
    EXPECT_EQ(lengths.size(), 3U);
}
