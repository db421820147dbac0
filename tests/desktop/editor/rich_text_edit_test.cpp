#include "base/carry_on.h"
#include "rich_text_fixture.h"

#include <QTextBlock>
#include <cmath>

using platform::Setting;
using tests::RichText;

namespace {

constexpr base::TextView mixedText =
    u"\r\nfirst \U0001F600 line\r\n\r\n\r\nпривет\u000Bsoft \uFFFC\r\n\U0001F3B5\U0001F3B5\r\n";

} // namespace

TEST_F(RichText, SelStart_AtEveryPlace_IsTheNearestPlaceBefore) {
    rtb.setText(mixedText);
    EXPECT_EQ(rtb.Text(), mixedText);
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

TEST_F(RichText, SelText_Written_ReplacesWithOneChange_AndLeavesTheCaretBehind) {
    const struct {
        int start, length;
        base::TextView text;
        const char* after;
    } rows[] = {
        {1, 0, u"x\r\ny", "ax\r\ny|b\r\ncd"}, {1, 4, u"", "a|d"},
        {2, 0, u"\r\n", "ab\r\n|\r\ncd"},     {0, 99, u"all", "all|"},
        {6, 0, u"[00] ", "ab\r\ncd[00] |"},   {0, 2, u"zz", "zz|\r\ncd"},
    };
    for (const auto& row : rows) {
        rtb.setText(u"ab\r\ncd");
        select(row.start, row.length);
        changes = 0;
        rtb.setSelText(row.text);
        EXPECT_EQ(shown(), row.after);
        EXPECT_EQ(seen, row.after) << "what the program finds while it is told";
        EXPECT_EQ(changes, 1) << row.after;
    }
}

TEST_F(RichText, WhatLeavesTheText_IsNoChange) {
    rtb.setText(u"ab\r\ncd\r\n");
    changes = 0;
    for (const auto& [start, length] : {std::pair{0, 9}, {1, 0}, {6, 99}}) {
        select(start, length);
        rtb.setSelBold(true);
        rtb.setSelUnderline(true);
        rtb.setSelFontName(u"Courier");
        rtb.setSelFontSize(20);
        rtb.setSelColor(0xFF0000);
        rtb.setSelAlignment(platform::ParagraphAlignment::Centre);
        rtb.setSelBullet(true);
        rtb.setSelBullet(false);
    }
    rtb.Find(u"cd", 0, 0);
    rtb.setSelStart(0);
    rtb.setSelText(u"");
    EXPECT_EQ(changes, 0);
    rtb.setText(u"");
    rtb.setText(u"");
    EXPECT_EQ(changes, 2) << "no text in place of none is one all the same";
}

TEST_F(RichText, SelRTF_OfTextThatQtCouldNotLayOut_IsRefusedAndChangesNothing) {
    rtb.setText(u"kept");
    const base::Text word(10'000'001, u'x');
    EXPECT_THROW(rtb.setSelRTF(word), base::Failure);
    EXPECT_THROW(rtb.setSelRTF(u"{\\rtf1 " + word + u"}"), base::Failure);
    EXPECT_EQ(rtb.Text(), u"kept");
    changes = 0;
    rtb.setSelRTF(base::Text(150'000, u'x')); // a word without an end
    EXPECT_EQ(changes, 1) << "a refusal leaves no edit open";
}

TEST_F(RichText, Style_OfSelections_IsOnOffOrMixed) {
    using Edit = desktop::RichTextEdit;
    const std::pair<Setting (Edit::*)() const, void (Edit::*)(bool)> styles[] = {
        {&Edit::SelBold, &Edit::setSelBold},
        {&Edit::SelItalic, &Edit::setSelItalic},
        {&Edit::SelUnderline, &Edit::setSelUnderline},
        {&Edit::SelStrikeThru, &Edit::setSelStrikeThru}};
    const struct {
        int start, length;
        Setting expected;
    } rows[] = {{1, 2, Setting::On},  {0, 2, Setting::Mixed}, {0, 9, Setting::Mixed}, {7, 5, Setting::On},
                {4, 3, Setting::Off}, {2, 0, Setting::On},    {1, 0, Setting::Off}};
    for (const auto& [read, write] : styles) {
        // Of "abcd", "ef" and an empty paragraph "bc" and "f" have the style.
        rtb.setText(u"abcd\r\nef\r\n");
        select(0, 9);
        (rtb.*write)(true);
        for (const int plain : {0, 3, 6}) {
            select(plain, 1);
            (rtb.*write)(false);
        }
        for (const auto& row : rows) {
            select(row.start, row.length);
            EXPECT_EQ((rtb.*read)(), row.expected) << row.start << ", " << row.length;
        }
    }
}

TEST_F(RichText, SelFontSize_Written_IsKeptInHalvesWithinItsBounds) {
    rtb.setText(u"abc");
    select(0, 2);
    for (const auto& [written, expected] :
         {std::pair{1.0, 1.0}, {1638.0, 1638.0}, {10.2, 10.0}, {13.4, 13.5}}) {
        rtb.setSelFontSize(written);
        EXPECT_EQ(rtb.SelFontSize(), expected);
    }
    for (const double wrong : {0.99, 1638.5, std::nan("")})
        EXPECT_THROW(rtb.setSelFontSize(wrong), base::Failure);
    EXPECT_EQ(rtb.SelFontSize(), 13.5);
    select(0, 3);
    EXPECT_EQ(rtb.SelFontSize(), std::nullopt);
}

TEST_F(RichText, SelBullet_OfParagraphs_IsOnOffOrMixedAndLeavesNoIndentBehind) {
    rtb.setText(u"a\r\nb\r\n\r\nc");
    const auto expectBullets = [&](int start, int length, Setting expected) {
        select(start, length);
        EXPECT_EQ(rtb.SelBullet(), expected) << start << ", " << length;
    };
    select(0, 99);
    rtb.setSelBullet(true);
    select(3, 3);
    rtb.setSelBullet(false);
    expectBullets(0, 1, Setting::On);
    expectBullets(0, 4, Setting::Mixed);
    expectBullets(3, 3, Setting::Off);
    expectBullets(8, 0, Setting::On);
    select(0, 99);
    rtb.setSelBullet(false);
    for (QTextBlock block = rtb.document()->begin(); block.isValid(); block = block.next())
        EXPECT_EQ(block.blockFormat().leftMargin(), 0);
}
