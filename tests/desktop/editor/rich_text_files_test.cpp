#include "rich_text_fixture.h"

#include "editor/text_edits.h"
#include "rtf/read/reader.h"

using tests::RichText;

TEST_F(RichText, LoadFile_DetectsTheEncoding_AndConvertsLineEndsToCrLf) {
    using namespace std::string_literals;
    const std::pair<std::string, base::TextView> rows[] = {
        {"", u""},
        {"one\ntwo\rthree\r\r\nfour", u"one\r\ntwo\r\nthree\r\n\r\nfour"},
        // A Unicode paragraph separator, and a character reserved by Qt that would act as one.
        {"\xEF\xBB\xBFone\xE2\x80\xA9two\xEF\xB7\x90", u"one\r\ntwo\uFFFD"},
        {"caf\xE9 \x80", u"caf\u00E9 \u20AC"},
        {"\xEF\xBB\xBF\xD0\x96\xF0\x9F\x98\x80", u"\u0416\U0001F600"},
        {"\xD0\x96\xC3\xA9", u"\u0416\u00E9"},
        {"\xD0\x96\xC3", u"\u00D0\u2013\u00C3"},
        {"\xEF\xBB\xBF{\n\\rtf1 late}", u"late"},
        {"\xFF\xFE\x16\x04\x0D\x00\x0A\x00\x3D\xD8\x00\xDE"s, u"\u0416\r\n\U0001F600"},
        {"\xFE\xFF\x04\x16\x00\x0A\xD8\x3D\xDE\x00"s, u"\u0416\r\n\U0001F600"},
        {"\xFF\xFE\x16\x04\x0D"s, u"\u0416"},
        {"a {\\rtf1 is no start}", u"a {\\rtf1 is no start}"},
        {R"({\rtf1\ansi\ansicpg1251 \'c6 {\b bold}\par})", u"\u0416 bold"},
        {"\r\n{\\rtf1 late}", u"late"},
    };
    const fakes::TemporaryFolder folder;
    for (const auto& [bytes, text] : rows) {
        folder.write("file", bytes);
        rtb.setText(u"before");
        rtb.setSelStart(3);
        changes = 0;
        rtb.LoadFile(folder.text("file"));
        EXPECT_EQ(rtb.Text(), text);
        EXPECT_EQ(rtb.textLength(), static_cast<std::int32_t>(text.size()));
        EXPECT_EQ(rtb.SelStart(), 0);
        EXPECT_EQ(changes, 1);
    }
}

TEST_F(RichText, WhatStandsBesideLetters_IsSavedAndDragged_AndMarksArePainted) {
    const fakes::TemporaryFolder folder;
    rtb.setText(u"one\r\ntwo");
    rtb.SaveFile(folder.text("plain"));
    rtb.Beside = [](std::int32_t from, std::int32_t count) {
        return std::to_string(from) + "/" + std::to_string(count);
    };
    std::string told;
    rtb.Arrives = [&](std::int32_t from, std::int32_t removed, const std::string& beside) {
        told += std::to_string(from) + " " + std::to_string(removed) + " " + beside + ";";
    };
    rtb.SaveFile(folder.text("file"));
    EXPECT_NE(rtb.takeAllParagraphs().find("0/8"), std::string::npos);
    rtb.LoadFile(folder.text("file"));
    rtb.LoadFile(folder.text("plain"));
    EXPECT_EQ(std::exchange(told, {}), "0 8 0/8;0 8 ;");
    fakes::select(rtb, 0, 3);
    const std::unique_ptr<QMimeData> offer(rtb.createMimeDataFromSelection());
    EXPECT_EQ(offer->data(QStringLiteral("text/rtf")).indexOf("quillmoments"), -1);
    QTextCursor end = rtb.textCursor();
    end.movePosition(QTextCursor::End);
    rtb.moveSelection(*offer, end);
    EXPECT_EQ(rtb.Text(), u"\r\ntwoone");
    EXPECT_EQ(told, "5 0 0/3;");
    rtb.MarksIn = [](std::int32_t, std::int32_t) {
        return std::vector{platform::MarkedPart{2, 3, platform::Mark::Heard}};
    };
    const QImage seen = rtb.viewport()->grab().toImage();
    int marked = 0;
    for (int x = 0; x < seen.width(); ++x)
        for (int y = 0; y < seen.height(); ++y)
            marked += seen.pixelColor(x, y) == QColor(0xFF, 0xE0, 0x82);
    EXPECT_GT(marked, 100);
}

TEST_F(RichText, ReplacedWord_KeepsItsFormat_AlsoWhenUndone) {
    const std::pair<base::Text, base::Text> rows[] = {{u"speling", u"spelling"},
                                                      {u"ello", u"hello"},
                                                      {u"hhello", u"hello"},
                                                      {u"alot", u"a lot"},
                                                      {u"xyz", u"abc"},
                                                      {u"\U00010330b", u"\U00010331b"},
                                                      {u"a\U00010330", u"a\U00010730"}};
    editor::UndoRedo records(rtb);
    rtb.Change = [&] {
        if (records.RegistraUndo)
            records.record();
    };
    records.RegistraUndo = true;
    for (const auto& [word, with] : rows) {
        const auto length = static_cast<std::int32_t>(word.size());
        rtb.setText(u"say " + word + u" now");
        fakes::select(rtb, 4, length);
        rtb.setSelBold(true);
        editor::replaceWord(rtb, records, 4, length, with);
        EXPECT_EQ(rtb.Text(), u"say " + with + u" now");
        fakes::select(rtb, 4, static_cast<int>(with.size()));
        EXPECT_EQ(rtb.SelBold(), platform::Setting::On) << base::toUtf8(with);
        EXPECT_FALSE(rtb.isBold(3));
        records.EseguiUndo();
        EXPECT_EQ(rtb.Text(), u"say " + word + u" now");
    }
    rtb.Change = [] {};
}

TEST_F(RichText, LoadFile_DropsTheFormatOfTheOldText) {
    const fakes::TemporaryFolder folder;
    folder.write("file", R"({\rtf1{\fonttbl{\f0 Courier New;}}\f0\fs40 x})");
    rtb.setSelBold(true);
    rtb.setSelText(u"before");
    rtb.LoadFile(folder.text("file"));
    EXPECT_EQ(rtb.SelFontSize(), 20.0);
    QTest::keyClick(&rtb, 'y');
    rtb.SaveFile(folder.text("file"));
    const rtf::Document saved = rtf::read(folder.read("file"));
    EXPECT_EQ(saved.text, u"yx");
    ASSERT_EQ(saved.formats.size(), 1U) << "both characters have the same format";
    EXPECT_EQ(saved.fonts.front().name, u"Courier New");
    rtb.setText(u"");
    EXPECT_EQ(rtb.SelFontSize(), 12.0);
}

TEST_F(RichText, LoadFile_WithATooLongFile_KeepsTheOldText) {
    const fakes::TemporaryFolder folder;
    std::string line;
    line.resize(10'000'001, 'x');
    folder.write("large", "");
    std::filesystem::resize_file(folder.path() / "large", 200'000'000);
    folder.write("line", line);
    folder.write("rtf", "{\\rtf1 " + line + '}');
    rtb.setText(u"before");
    changes = 0;
    for (const char* const name : {"large", "line", "rtf"}) {
        EXPECT_THROW(rtb.LoadFile(folder.text(name)), platform::TextTooLarge) << name;
        EXPECT_EQ(rtb.Text(), u"before");
        EXPECT_EQ(changes, 0);
    }
}
