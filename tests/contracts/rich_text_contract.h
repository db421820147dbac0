#pragma once

#include "base/failure.h"
#include "contracts/contract.h"
#include "fakes/temporary_folder.h"
#include "fakes/watched_text.h"
#include "platform/rich_text.h"

#include <cmath>

namespace contracts {

struct RichTextBench {
    virtual ~RichTextBench() = default;
    virtual platform::RichText& text() = 0;
    // whether it can fold the case of all letters in `text`
    virtual bool foldsCaseOf(base::TextView text) = 0;
};

struct RichTextContract : Contract<RichTextBench> {
    // Expects this text and selection, reached by exactly one reported change.
    void expectOneChange(const char* after) {
        EXPECT_EQ(fakes::shown(text), after);
        EXPECT_EQ(watch.seen, after) << "the text during the notification";
        EXPECT_EQ(std::exchange(watch.changes, 0), 1) << after;
        EXPECT_EQ(watch.told, text.Text());
    }

    platform::RichText& text = bench->text();
    fakes::WatchedText watch{text};
};

TEST_P(RichTextContract, SelStart_AtAnyPosition_SnapsToTheNearestValidOneBefore) {
    const base::Text whole =
        u"\r\nfirst \U0001F600 line\r\n\r\n\r\nпривет\u000Bsoft \uFFFC\r\n\U0001F3B5\U0001F3B5\r\n";
    text.setText(whole);
    EXPECT_EQ(text.Text(), whole);
    const auto length = static_cast<std::int32_t>(whole.size());
    EXPECT_EQ(text.textLength(), length);
    for (std::int32_t place = -3; place <= length + 3; ++place) {
        std::int32_t expected = std::clamp(place, 0, length);
        if (expected > 0 && expected < length) {
            const base::Text around = whole.substr(static_cast<std::size_t>(expected) - 1, 2);
            expected -= around == u"\r\n" || around == u"\xD83D\xDE00" || around == u"\xD83C\xDFB5" ? 1 : 0;
        }
        text.setSelStart(place);
        EXPECT_EQ(text.SelStart(), expected) << place;
        EXPECT_EQ(text.SelLength(), 0);
        // The text before the position is what a user would count.
        fakes::select(text, 0, place);
        EXPECT_EQ(text.SelText(), whole.substr(0, static_cast<std::size_t>(expected))) << place;
        EXPECT_EQ(text.SelLength(), expected);
    }
}

TEST_P(RichTextContract, Edit_IsOneChange_AndLeavesTheCaretAfterIt) {
    const std::tuple<int, int, base::TextView, const char*> rows[] = {
        {1, 0, u"x\r\ny", "ax/y|b/cd"},  {1, 4, u"", "a|d"},
        {2, 0, u"\r\n", "ab/|/cd"},      {0, 99, u"all", "all|"},
        {6, 0, u"{00} ", "ab/cd{00} |"}, {0, 2, u"zz", "zz|/cd"},
    };
    for (const auto& [start, length, written, after] : rows) {
        for (const auto write : {&platform::RichText::setSelText, &platform::RichText::setSelRTF}) {
            text.setText(u"ab\r\ncd");
            expectOneChange("|ab/cd");
            fakes::select(text, start, length);
            (text.*write)(written);
            expectOneChange(after);
        }
    }
    // A selection read as RTF can be inserted again; an empty one inserts nothing.
    fakes::select(text, 1, 3);
    const base::Text source = text.SelRTF();
    text.setSelStart(0);
    text.setSelRTF(source);
    expectOneChange("z/|zz/cd");
    text.setSelRTF(text.SelRTF());
    EXPECT_EQ(watch.changes, 0);
}

TEST_P(RichTextContract, FormattingAndSearching_AreNoChange) {
    text.setText(u"ab\r\ncd\r\n");
    watch.changes = 0;
    for (const auto& [start, length] : {std::pair{0, 9}, {1, 0}, {6, 99}}) {
        fakes::select(text, start, length);
        text.setSelBold(true);
        text.setSelUnderline(true);
        text.setSelFontName(u"Courier");
        text.setSelFontSize(20);
        text.setSelColor(0xFF0000);
        text.setSelAlignment(platform::ParagraphAlignment::Centre);
        text.setSelBullet(true);
        text.setSelBullet(false);
    }
    EXPECT_EQ(watch.changes, 0);
    for (const auto& format : std::initializer_list<std::function<void()>>{
             [&] { text.setSelBold(true); }, [&] { text.setSelFontName(u"Arial"); },
             [&] { text.setSelFontSize(10); }, [&] { text.setSelColor(0xFF); },
             [&] { text.setSelBullet(true); },
             [&] { text.setSelAlignment(platform::ParagraphAlignment::Right); }}) {
        fakes::select(text, 0, 2);
        watch.formats = 0;
        format();
        EXPECT_GT(watch.formats, 0);
    }
    EXPECT_EQ(text.SelAlignment(), platform::ParagraphAlignment::Right);
    watch.formats = 0;
    text.Find(u"cd", 0, 0);
    text.setSelStart(0);
    text.setSelText(u"");
    EXPECT_EQ(watch.changes, 0);
    text.setSelItalic(true);
    EXPECT_EQ(watch.formats, 0) << "only the format of what is typed next";
    text.setText(u"");
    EXPECT_EQ(watch.formats, 0);
    text.setText(u"");
    EXPECT_EQ(watch.changes, 2) << "replacing nothing by nothing is a change too";
}

TEST_P(RichTextContract, Styles_AreIndependent_AndGoWithTheText) {
    using Text = platform::RichText;
    const std::pair<platform::Setting (Text::*)() const, void (Text::*)(bool)> styles[] = {
        {&Text::SelBold, &Text::setSelBold},
        {&Text::SelItalic, &Text::setSelItalic},
        {&Text::SelUnderline, &Text::setSelUnderline},
        {&Text::SelStrikeThru, &Text::setSelStrikeThru},
        {&Text::SelBullet, &Text::setSelBullet}};
    const auto expectOn = [&](auto only) {
        for (const auto& style : styles)
            EXPECT_EQ((text.*style.first)() == platform::Setting::On, style.first == only);
    };
    for (const auto& [read, write] : styles) {
        text.setText(u"a");
        expectOn(nullptr);
        fakes::select(text, 0, 1);
        (text.*write)(true);
        expectOn(read);
        (text.*write)(false);
        expectOn(nullptr);
        (text.*write)(true);
    }
}

TEST_P(RichTextContract, SelFontSize_IsRoundedToHalfPoints_WithinItsLimits) {
    text.setText(u"abc");
    fakes::select(text, 0, 2);
    for (const auto& [written, expected] :
         {std::pair{1.0, 1.0}, {1638.0, 1638.0}, {10.2, 10.0}, {13.4, 13.5}}) {
        text.setSelFontSize(written);
        EXPECT_EQ(text.SelFontSize(), expected);
    }
    for (const double wrong : {0.99, 1638.5, std::nan("")})
        EXPECT_THROW(text.setSelFontSize(wrong), base::Failure);
    EXPECT_EQ(text.SelFontSize(), 13.5);
}

TEST_P(RichTextContract, LoadFile_IsOneChange_AndAFailureKeepsTheText) {
    const fakes::TemporaryFolder folder;
    folder.write("text", "one\ntwo\r\n");
    text.LoadFile(folder.text("text"));
    expectOneChange("|one/two/");
    text.SaveFile(folder.text("saved.txt"));
    EXPECT_TRUE(folder.read("saved.txt").starts_with("{\\rtf1")) << "whatever the extension";
    text.setText(u"before");
    text.setSelStart(3);
    watch.changes = 0;
    text.LoadFile(folder.text("saved.txt"));
    expectOneChange("|one/two/");
    EXPECT_THROW(text.SaveFile(folder.text("no such folder/file")), base::Failure);
    for (const char* const name : {"none", ""}) {
        EXPECT_THROW(text.LoadFile(folder.text(name)), base::Failure) << name;
        EXPECT_EQ(fakes::shown(text), "|one/two/");
        EXPECT_EQ(watch.changes, 0);
    }
}

TEST_P(RichTextContract, WhatStandsBesideLetters_ArrivesBeforeThem_OrIsWithdrawn) {
    const fakes::TemporaryFolder folder;
    std::vector<std::string> told;
    text.Arrives = [&](std::int32_t position, std::int32_t removed, const std::string& beside) {
        told.push_back(fakes::shown(text) + " " + std::to_string(position) + " " + std::to_string(removed) +
                       " " + beside);
    };
    const auto expectTold = [&](const std::vector<std::string>& expected) {
        EXPECT_EQ(std::exchange(told, {}), expected);
    };
    text.setText(u"abcd");
    expectTold({"| 0 0 "});
    fakes::select(text, 1, 2);
    text.insert(u"xyz", "B");
    expectTold({"a[bc]d 1 2 B"});
    text.insert(u"plain", "");
    text.setSelText(u".");
    EXPECT_THROW(text.LoadFile(folder.text("none")), base::Failure);
    expectTold({});
    EXPECT_EQ(fakes::shown(text), "axyzplain.|d");
    text.insert(u"", "B");
    EXPECT_TRUE(told.empty() || told.back() == "axyzplain.|d -1 0 ") << told.back();
    EXPECT_TRUE(text.SelRTF().find(u"moments") == base::Text::npos);
}

TEST_P(RichTextContract, Find_WithItsOptions_ReturnsTheFirstPosition) {
    constexpr int word = platform::findWholeWord;
    constexpr int exact = platform::findMatchCase;
    const std::tuple<base::TextView, base::TextView, int, int, int> rows[] = {
        {u"one two one", u"one", 1, 0, 8},
        {u"one two one", u"one", -5, 0, 0},
        {u"one two one", u"one", 9, 0, -1},
        {u"one two one", u"one", 99, 0, -1},
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
        // Across paragraph ends
        {u"one\r\ntwo", u"e\r\nt", 0, 0, 2},
        {u"one\r\ntwo", u"e\r\nT", 0, exact, -1},
        {u"one\r\ntwo", u"one\r\ntwo", 0, word, 0},
        {u"one\r\ntwo", u"one\r\ntw", 0, word, -1},
        {u"a\r\n\r\nb\r\nc", u"\r\n\r\nb\r\n", 0, 0, 1},
        {u"a\r\n\r\nb\r\nc", u"\r\n\r\n", 3, 0, -1},
        {u"x\r\na\r\nb\r\na\r\nc", u"a\r\nc", 0, 0, 9},
        {u"ab\u000Bcd", u"b\u000Bc", 0, 0, 1},
    };
    for (const auto& [whole, wanted, start, options, expected] : rows) {
        if (!bench->foldsCaseOf(whole))
            continue;
        text.setText(whole);
        SCOPED_TRACE("\"" + base::toUtf8(wanted) + "\" in \"" + base::toUtf8(whole) + "\"");
        EXPECT_EQ(text.Find(wanted, start, options), expected);
        EXPECT_EQ(text.SelLength(), expected >= 0 ? static_cast<std::int32_t>(wanted.size()) : 0);
        EXPECT_EQ(text.SelStart(), std::max(expected, 0));
    }
}

TEST_P(RichTextContract, Find_StartsAtTheCaret_AndSelectsOnlyAHighlightedHit) {
    text.setText(u"one one one");
    fakes::select(text, 1, 2);
    EXPECT_EQ(text.Find(u"three", 0, 0), -1);
    EXPECT_EQ(text.Find(u"one", 0, platform::findNoHighlight), 0);
    EXPECT_EQ(fakes::shown(text), "o[ne] one one");
    EXPECT_EQ(text.Find(u"one", std::nullopt, 0), 4);
    text.setSelText(u"one!");
    EXPECT_EQ(text.Find(u"one", std::nullopt, 0), 9);
}

} // namespace contracts
