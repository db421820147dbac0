#include "desktop/text/changed_stretch.h"
#include "desktop/text/text_units.h"
#include "rich_text_fixture.h"

using platform::Setting;
using tests::RichText;

TEST_F(RichText, SelRTF_WithTextTooLongToLayOut_IsRefusedWithoutAChange) {
    rtb.setText(u"kept");
    const base::Text word(10'000'001, u'x');
    EXPECT_THROW(rtb.setSelRTF(word), base::Failure);
    EXPECT_THROW(rtb.setSelRTF(u"{\\rtf1 " + word + u"}"), base::Failure);
    EXPECT_EQ(rtb.Text(), u"kept");
    changes = 0;
    rtb.setSelRTF(base::Text(150'000, u'x')); // a word without a line-break opportunity
    EXPECT_EQ(changes, 1) << "a refusal ends the edit";
}

TEST_F(RichText, Style_OfASelection_IsOnOffOrMixed) {
    using Edit = desktop::RichTextEdit;
    const std::pair<Setting (Edit::*)() const, void (Edit::*)(bool)> styles[] = {
        {&Edit::SelBold, &Edit::setSelBold},
        {&Edit::SelItalic, &Edit::setSelItalic},
        {&Edit::SelUnderline, &Edit::setSelUnderline},
        {&Edit::SelStrikeThru, &Edit::setSelStrikeThru}};
    const std::tuple<int, int, Setting> rows[] = {
        {1, 2, Setting::On},  {0, 2, Setting::Mixed}, {0, 9, Setting::Mixed}, {7, 5, Setting::On},
        {4, 3, Setting::Off}, {2, 0, Setting::On},    {1, 0, Setting::Off}};
    for (const auto& [read, write] : styles) {
        // In "abcd", "ef" and an empty paragraph, "bc" and "f" have the style.
        rtb.setText(u"abcd\r\nef\r\n");
        select(0, 9);
        (rtb.*write)(true);
        for (const int plain : {0, 3, 6}) {
            select(plain, 1);
            (rtb.*write)(false);
        }
        for (const auto& [start, length, expected] : rows) {
            select(start, length);
            EXPECT_EQ((rtb.*read)(), expected) << start << ", " << length;
        }
    }
    select(0, 1);
    rtb.setSelFontSize(20);
    select(0, 2);
    EXPECT_EQ(rtb.SelFontSize(), std::nullopt);
}

TEST_F(RichText, SelBullet_OfParagraphs_IsOnOffOrMixed_AndLeavesNoIndent) {
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

TEST_F(RichText, Together_ReportsEachEdit_AndUpdatesTheScreenOnce) {
    base::Text words;
    for (int i = 0; i < 1500; ++i)
        words += u"one\r\n"; // longer than the first piece that a search examines
    rtb.setText(words);
    std::vector<std::int32_t> lengths;
    rtb.Change = [&] { lengths.push_back(rtb.textLength()); };
    rtb.together([&] {
        EXPECT_EQ(rtb.Find(u"ONE", 7490, 0), 7490);
        rtb.setSelRTF(u"three");
        EXPECT_EQ(rtb.SelStart(), 7495);
        rtb.setSelStart(0);
        rtb.setSelRTF(u""); // no change
        EXPECT_EQ(rtb.Find(u"three", std::nullopt, 0), 7490);
        rtb.setSelText(u"two");
        EXPECT_EQ(rtb.textCursor().position(), 0) << "the screen was updated during the edits";
    });
    EXPECT_EQ(lengths, (std::vector<std::int32_t>{7502, 7500}));
    EXPECT_EQ(rtb.SelStart(), 7493);
    EXPECT_EQ(rtb.Text().substr(7485, 10), u"one\r\ntwo\r\n");
    rtb.setSelText(u"!");
    EXPECT_EQ(lengths.size(), 3U);

    rtb.setSelStart(0);
    rtb.show();
    rtb.verticalScrollBar()->setValue(500); // away from the caret
    for (const int caret : {0, 3}) {
        rtb.together([&] {
            rtb.setSelStart(rtb.textLength());
            rtb.setSelText(u"\r\nnew");
            rtb.setSelStart(caret);
        });
        EXPECT_EQ(rtb.verticalScrollBar()->value() == 500, caret == 0);
    }
}

TEST(ChangedStretch, SeveralChanges_AreOneRange_ThatHoldsThemAllAndLittleElse) {
    QTextDocument document;
    document.documentLayout(); // without a layout it reports nothing
    desktop::ChangedStretch stretch;
    QObject::connect(&document, &QTextDocument::contentsChange, [&](int position, int removed, int added) {
        stretch.note(document, position, removed, added);
    });
    std::mt19937 random(4);
    const auto upTo = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit + 1));
    };
    const QString pieces[] = {{}, QStringLiteral("word"), QStringLiteral("\n"), QStringLiteral("a\nb\n")};
    base::Text told;
    for (int step = 0; step < 500; ++step) {
        int least = document.characterCount();
        for (int edits = upTo(3); edits >= 0; --edits) {
            QTextCursor cursor(&document);
            const int start = upTo(document.characterCount() - 1);
            cursor.setPosition(start);
            cursor.setPosition(std::min(start + upTo(4), document.characterCount() - 1),
                               QTextCursor::KeepAnchor);
            cursor.insertText(pieces[upTo(3)]);
            least = std::min(least, start);
        }
        const auto [program, units] = stretch.take();
        const base::Text now = desktop::programText(document.toRawText(), document.blockCount() - 1);
        told.replace(
            static_cast<std::size_t>(program.begin), static_cast<std::size_t>(program.removed),
            now.substr(static_cast<std::size_t>(program.begin), static_cast<std::size_t>(program.added)));
        ASSERT_EQ(told, now) << step;
        const bool any = program.removed + program.added > 0;
        EXPECT_TRUE(!any || units.begin >= least - 1) << step;
        EXPECT_EQ(desktop::programPosition(document, units.begin), program.begin);
        EXPECT_EQ(desktop::programPosition(document, units.begin + units.added),
                  program.begin + program.added);
    }
}
