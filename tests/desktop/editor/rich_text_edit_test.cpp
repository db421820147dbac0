#include "base/carry_on.h"
#include "desktop/editor/text_units.h"
#include "rich_text_fixture.h"

#include <QTest>
#include <QTextBlock>
#include <cmath>
#include <functional>

using platform::Setting;
using tests::RichText;

namespace {

constexpr base::TextView mixedText =
    u"\r\nfirst \U0001F600 line\r\n\r\n\r\nпривет\u000Bsoft \uFFFC\r\n\U0001F3B5\U0001F3B5\r\n";

} // namespace

TEST_F(RichText, Text_AfterWriting_IsTheSameText) {
    for (const base::TextView text : {base::TextView(u""), base::TextView(u"one"), base::TextView(u"\r\n"),
                                      base::TextView(u"a\r\n\r\nb\u000Bc\u00A0d\te"), mixedText}) {
        rtb.setText(text);
        EXPECT_EQ(rtb.Text(), text);
        EXPECT_EQ(rtb.textLength(), static_cast<std::int32_t>(text.size()));
        EXPECT_EQ(rtb.SelStart(), 0);
    }
}

TEST_F(RichText, Text_WrittenWithOtherLineEnds_HasCrLf) {
    rtb.setText(u"a\nb\rc\u2029d\r\r\ne\uFDD0f");
    EXPECT_EQ(rtb.Text(), u"a\r\nb\r\nc\r\nd\r\n\r\ne\uFFFDf");
}

TEST_F(RichText, SelStart_AtEveryPlace_IsTheNearestPlaceBefore) {
    rtb.setText(mixedText);
    const base::Text text(mixedText);
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t place = -3; place <= length + 3; ++place) {
        std::int32_t expected = std::clamp(place, 0, length);
        if (expected > 0 && expected < length) {
            const auto at = static_cast<std::size_t>(expected);
            const bool inCrLf = text[at - 1] == u'\r' && text[at] == u'\n';
            const bool inPair = QChar::isHighSurrogate(text[at - 1]) && QChar::isLowSurrogate(text[at]);
            expected -= inCrLf || inPair ? 1 : 0;
        }
        rtb.setSelStart(place);
        EXPECT_EQ(rtb.SelStart(), expected) << place;
        EXPECT_EQ(rtb.SelLength(), 0);
        // The text in front of the place is what a user would count.
        rtb.setSelStart(0);
        rtb.setSelLength(place);
        EXPECT_EQ(rtb.SelText(), text.substr(0, static_cast<std::size_t>(expected))) << place;
        EXPECT_EQ(rtb.SelLength(), expected);
    }
}

TEST_F(RichText, Positions_OfTheWholeDocument_GoThereAndBack) {
    rtb.setText(mixedText);
    const QTextDocument& document = *rtb.document();
    std::int32_t expected = 0;
    for (int place = 0; place < document.characterCount(); ++place) {
        EXPECT_EQ(desktop::programPosition(document, place), expected) << place;
        const bool inPair = document.characterAt(place).isLowSurrogate();
        EXPECT_EQ(desktop::documentPosition(document, expected), place - (inPair ? 1 : 0));
        expected += document.characterAt(place) == QChar::ParagraphSeparator ? 2 : 1;
    }
}

TEST_F(RichText, SelText_Written_ReplacesAndLeavesTheCaretBehind) {
    struct Row {
        int start, length;
        base::TextView text;
        const char* after;
    };
    const Row rows[] = {
        {0, 0, u"x", "x|ab\r\ncd"},
        {1, 0, u"x\r\ny", "ax\r\ny|b\r\ncd"},
        {1, 4, u"", "a|d"},
        {2, 2, u"-", "ab-|cd"},
        {2, 0, u"\r\n", "ab\r\n|\r\ncd"},
        {0, 99, u"all", "all|"},
        {6, 0, u"[00:00:01] ", "ab\r\ncd[00:00:01] |"},
        {0, 2, u"zz", "zz|\r\ncd"},
    };
    for (const Row& row : rows) {
        rtb.setText(u"ab\r\ncd");
        select(row.start, row.length);
        rtb.setSelText(row.text);
        EXPECT_EQ(shown(), row.after);
    }
}

TEST_F(RichText, Change_AfterEachCommand_ComesOnceForTextAndNeverForFormat) {
    struct Row {
        const char* what;
        std::function<void()> command;
        int expected;
    };
    const Row rows[] = {
        {"text", [&] { rtb.setText(u"new"); }, 1},
        {"no text in place of none",
         [&] {
             rtb.setText(u"");
             rtb.setText(u"");
         },
         2},
        {"typed at the caret", [&] { rtb.setSelText(u"x"); }, 1},
        {"nothing in place of nothing", [&] { rtb.setSelText(u""); }, 0},
        {"a selection deleted",
         [&] {
             select(0, 2);
             rtb.setSelText(u"");
         },
         1},
        {"a selection of the same length",
         [&] {
             select(0, 2);
             rtb.setSelText(u"zz");
         },
         1},
        {"two paragraphs",
         [&] {
             select(1, 5);
             rtb.setSelText(u"1\r\n2");
         },
         1},
        {"RTF", [&] { rtb.setSelRTF(u"{\\rtf1 a{\\b b}\\par c}"); }, 1},
        {"RTF of the same length",
         [&] {
             select(0, 2);
             rtb.setSelRTF(u"{\\rtf1 \\b y\\i z}");
         },
         1},
        {"text as RTF", [&] { rtb.setSelRTF(u"plain"); }, 1},
        {"a place",
         [&] {
             rtb.setSelStart(3);
             rtb.setSelLength(2);
         },
         0},
        {"letters",
         [&] {
             select(0, 9);
             rtb.setSelBold(true);
             rtb.setSelItalic(true);
             rtb.setSelUnderline(true);
             rtb.setSelStrikeThru(true);
             rtb.setSelFontName(u"Courier");
             rtb.setSelFontSize(20);
             rtb.setSelColor(0xFF0000);
         },
         0},
        {"letters of what is typed next",
         [&] {
             rtb.setSelStart(1);
             rtb.setSelBold(true);
         },
         0},
        {"letters of the last paragraph",
         [&] {
             select(6, 99);
             rtb.setSelBold(true);
         },
         0},
        {"paragraphs",
         [&] {
             select(0, 99);
             rtb.setSelAlignment(platform::ParagraphAlignment::Centre);
         },
         0},
        {"bullets",
         [&] {
             select(0, 99);
             rtb.setSelBullet(true);
             rtb.setSelBullet(false);
         },
         0},
        {"a search", [&] { rtb.Find(u"cd", 0, 0); }, 0},
    };
    for (const Row& row : rows) {
        rtb.setText(u"ab\r\ncd\r\n");
        changes = 0;
        row.command();
        EXPECT_EQ(changes, row.expected) << row.what;
    }
}

TEST_F(RichText, Change_WhenItComes_FindsTheTextAndTheCaretAsTheyAre) {
    std::string seen;
    rtb.setText(u"ab");
    rtb.setSelStart(1);
    rtb.Change = [&] { seen = shown(); };
    rtb.setSelText(u"xyz");
    EXPECT_EQ(seen, "axyz|b");
    QTest::keyClick(&rtb, Qt::Key_Return);
    EXPECT_EQ(seen, "axyz\r\n|b");
}

TEST_F(RichText, SelRTF_OfTextThatQtCouldNotLayOut_IsRefusedAndChangesNothing) {
    rtb.setText(u"kept");
    const base::Text word(150'000, u'x');
    EXPECT_THROW(rtb.setSelRTF(word), base::Failure);
    EXPECT_THROW(rtb.setSelRTF(u"{\\rtf1 " + word + u"}"), base::Failure);
    EXPECT_EQ(rtb.Text(), u"kept");
    changes = 0;
    rtb.setSelRTF(u"more ");
    EXPECT_EQ(changes, 1) << "a refusal leaves no edit open";
}

TEST_F(RichText, AParagraphFromTheRight_InALongText_RunsFromTheRight) {
    base::Text text;
    while (text.size() < 60'000)
        text += u"from the left\r\n";
    const auto lastRuns = [&] { return rtb.document()->lastBlock().textDirection(); };
    rtb.setText(text + u"\u05E9\u05DC\u05D5\u05DD");
    EXPECT_EQ(lastRuns(), Qt::RightToLeft);
    rtb.setText(text);
    rtb.setSelStart(rtb.textLength());
    rtb.setSelText(u"left");
    EXPECT_EQ(rtb.document()->defaultTextOption().textDirection(), Qt::LeftToRight);
    rtb.setSelText(u"\r\n\u0633\u0644\u0627\u0645");
    EXPECT_EQ(lastRuns(), Qt::RightToLeft);
}

TEST_F(RichText, Style_OfSelections_IsOnOffOrMixed) {
    using Read = Setting (desktop::RichTextEdit::*)() const;
    using Write = void (desktop::RichTextEdit::*)(bool);
    using Edit = desktop::RichTextEdit;
    const std::pair<Read, Write> styles[] = {{&Edit::SelBold, &Edit::setSelBold},
                                             {&Edit::SelItalic, &Edit::setSelItalic},
                                             {&Edit::SelUnderline, &Edit::setSelUnderline},
                                             {&Edit::SelStrikeThru, &Edit::setSelStrikeThru}};
    struct Row {
        int start, length;
        Setting expected;
    };
    // Of "abcd", "ef" and an empty paragraph "bc" and "f" have the style.
    const Row rows[] = {{0, 1, Setting::Off},   {1, 2, Setting::On},    {0, 2, Setting::Mixed},
                        {2, 2, Setting::Mixed}, {0, 9, Setting::Mixed}, {7, 1, Setting::On},
                        {7, 5, Setting::On},    {4, 3, Setting::Off},   {2, 0, Setting::On},
                        {1, 0, Setting::Off},   {10, 0, Setting::Off},  {8, 2, Setting::On}};
    for (const auto& [read, write] : styles) {
        rtb.setText(u"abcd\r\nef\r\n");
        select(1, 2);
        (rtb.*write)(true);
        select(7, 1);
        (rtb.*write)(true);
        for (const Row& row : rows) {
            select(row.start, row.length);
            EXPECT_EQ((rtb.*read)(), row.expected) << row.start << ", " << row.length;
        }
        select(0, 4);
        (rtb.*write)(true);
        EXPECT_EQ((rtb.*read)(), Setting::On);
        (rtb.*write)(false);
        EXPECT_EQ((rtb.*read)(), Setting::Off);
    }
}

TEST_F(RichText, Formats_SetAtTheCaret_AreThoseOfWhatIsTypedNext) {
    rtb.setText(u"ab");
    rtb.setSelStart(1);
    rtb.setSelBold(true);
    rtb.setSelFontSize(13);
    EXPECT_EQ(rtb.SelBold(), Setting::On);
    EXPECT_EQ(rtb.SelFontSize(), 13);
    QTest::keyClicks(&rtb, QStringLiteral("xy"));
    EXPECT_EQ(rtb.SelFontSize(), 13);
    select(1, 2);
    EXPECT_EQ(rtb.SelBold(), Setting::On);
    select(3, 1);
    EXPECT_EQ(rtb.SelBold(), Setting::Off);
}

TEST_F(RichText, SelFontSize_Written_IsKeptInHalvesWithinItsBounds) {
    rtb.setText(u"abc");
    EXPECT_EQ(rtb.SelFontSize(), 12);
    select(0, 2);
    for (const auto& [written, expected] :
         {std::pair{1.0, 1.0}, {13.4, 13.5}, {1638.0, 1638.0}, {10.2, 10.0}}) {
        rtb.setSelFontSize(written);
        EXPECT_EQ(rtb.SelFontSize(), expected);
    }
    for (const double wrong : {0.0, 0.99, -5.0, 1638.5, std::nan("")}) {
        EXPECT_THROW(rtb.setSelFontSize(wrong), base::Failure);
        EXPECT_EQ(rtb.SelFontSize(), 10);
    }
    select(0, 3);
    EXPECT_EQ(rtb.SelFontSize(), std::nullopt);
}

TEST_F(RichText, SelBullet_OfParagraphs_IsOnOffOrMixedAndLeavesNoIndentBehind) {
    rtb.setText(u"a\r\nb\r\n\r\nc");
    select(3, 3);
    rtb.setSelBullet(true);
    EXPECT_EQ(rtb.SelBullet(), Setting::On);
    select(0, 4);
    EXPECT_EQ(rtb.SelBullet(), Setting::Mixed);
    rtb.setSelStart(0);
    EXPECT_EQ(rtb.SelBullet(), Setting::Off);
    rtb.setSelStart(8);
    EXPECT_EQ(rtb.SelBullet(), Setting::Off);
    select(0, 99);
    rtb.setSelBullet(true);
    EXPECT_EQ(rtb.SelBullet(), Setting::On);
    rtb.setSelBullet(false);
    EXPECT_EQ(rtb.SelBullet(), Setting::Off);
    for (QTextBlock block = rtb.document()->begin(); block.isValid(); block = block.next())
        EXPECT_EQ(block.blockFormat().leftMargin(), 0);
}

TEST_F(RichText, SelAlignment_OfASelection_IsThatOfEachParagraphItTouches) {
    rtb.setText(u"a\r\nb\r\nc");
    select(1, 3);
    using platform::ParagraphAlignment;
    for (const auto& [written, shown] : {std::pair{ParagraphAlignment::Right, Qt::AlignRight},
                                         {ParagraphAlignment::Centre, Qt::AlignHCenter},
                                         {ParagraphAlignment::Left, Qt::AlignLeft}}) {
        rtb.setSelAlignment(written);
        const auto alignment = [&](int paragraph) {
            return rtb.document()->findBlockByNumber(paragraph).blockFormat().alignment();
        };
        EXPECT_EQ(alignment(0), shown);
        EXPECT_EQ(alignment(1), shown);
        EXPECT_EQ(alignment(2), QTextBlockFormat().alignment());
    }
}
