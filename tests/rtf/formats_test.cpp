#include "rtf/reading.h"

#include <gtest/gtest.h>

using reading::document;
using reading::letter;
using reading::paragraph;

TEST(RtfFormats, LetterWords_SetWhatTheyName) {
    const rtf::CharFormat usual;
    const auto with = [&](auto change) {
        rtf::CharFormat format = usual;
        change(format);
        return format;
    };
    const rtf::Colour red{false, 255, 0, 0};
    const std::pair<std::string, rtf::CharFormat> rows[] = {
        {"x", usual},
        {"\\b x", with([](auto& f) { f.bold = true; })},
        {"\\b\\b0 x", usual},
        {"\\i x", with([](auto& f) { f.italic = true; })},
        {"\\ul x", with([](auto& f) { f.underline = true; })},
        {"\\uldb x", with([](auto& f) { f.underline = true; })},
        {"\\ul\\ulnone x", usual},
        {"\\ul\\ul0 x", usual},
        {"\\strike x", with([](auto& f) { f.strike = true; })},
        {"\\v x", with([](auto& f) { f.hidden = true; })},
        {"\\caps\\scaps x", with([](auto& f) { f.capitals = f.smallCapitals = true; })},
        {"\\super x", with([](auto& f) { f.raised = rtf::Raised::Super; })},
        {"\\sub x", with([](auto& f) { f.raised = rtf::Raised::Sub; })},
        {"\\super\\nosupersub x", usual},
        {"\\fs30 x", with([](auto& f) { f.size = 30; })},
        {"\\fs99999 x", with([](auto& f) { f.size = 3276; })},
        {"\\fs-4 x", usual},
        {"\\cf1 x", with([&](auto& f) { f.colour = red; })},
        {"\\cf1\\cf0 x", usual},
        {"\\cf77 x", usual},
        {"\\highlight1 x", with([&](auto& f) { f.background = red; })},
        {"\\highlight1\\highlight0 x", usual},
        {R"(\b\i\fs30\cf1\plain x)", usual},
        {"{\\b\\i}x", usual},
        {"{\\b\\par}x", with([](auto& f) { f.bold = true; })},
    };
    for (const auto& [body, format] : rows)
        EXPECT_EQ(letter(body), format) << body;
}

TEST(RtfFormats, Fonts_AreThoseInUse_InTheOrderOfTheirUse) {
    const rtf::Document read = document(R"(\f2 a\f0 b\f2 c\f9 d)");
    EXPECT_EQ(read.fonts,
              (std::vector<rtf::Font>{{u"Courier", 204}, {u"Arial", 0}, {u"Times New Roman", 0}}));
}

TEST(RtfFormats, FontTable_TakesEveryFormOfEntry) {
    const std::pair<std::string, base::Text> rows[] = {
        {R"({\fonttbl{\f0\fswiss Arial;}})", u"Arial"},
        {R"({\fonttbl\f0\fswiss Arial;\f1 Courier;})", u"Arial"},
        {R"({\fonttbl{\f0{\*\panose 020b}Arial{\*\falt Other};}})", u"Arial"},
        {R"({\fonttbl{\f0\fcharset204 \'cf\'f0;}})", u"Пр"},
        {R"({\fonttbl{\f0 \u1071?;}})", u"Я"},
        {"{\\fonttbl{\\f0 ;}}", u"Times New Roman"},
        {"{\\fonttbl}", u"Times New Roman"},
        {R"(\deff5{\fonttbl{\f0 Arial;}{\f5 Courier;}})", u"Courier"},
    };
    for (const auto& [table, name] : rows)
        EXPECT_EQ(rtf::read("{\\rtf1" + table + " x}").fonts.at(0).name, name) << table;
}

TEST(RtfFormats, ParagraphWords_SetWhatTheyName) {
    const auto with = [](auto change) {
        rtf::ParagraphFormat format;
        change(format);
        return format;
    };
    const std::pair<std::string, rtf::ParagraphFormat> rows[] = {
        {"x", {}},
        {"\\qc x", with([](auto& f) { f.alignment = rtf::Alignment::Centre; })},
        {"\\qr x", with([](auto& f) { f.alignment = rtf::Alignment::Right; })},
        {"\\qj x", with([](auto& f) { f.alignment = rtf::Alignment::Justified; })},
        {"\\qc\\pard x", {}},
        {"{\\qc x\\par}", with([](auto& f) { f.alignment = rtf::Alignment::Centre; })},
        {"{\\qc x}\\par", {}},
        {R"(\li720\ri10\fi-360 x)",
         with([](auto& f) { f.leftIndent = 720, f.rightIndent = 10, f.firstIndent = -360; })},
        {"\\sb120\\sa60 x", with([](auto& f) { f.spaceBefore = 120, f.spaceAfter = 60; })},
        {R"(\s3\tqr\tx1440 \sl240 x)", with([](auto& f) { f.kept = R"(\s3\tqr\tx1440\sl240)"; })},
        {"\\ls2\\ilvl1 x", with([](auto& f) { f.list = "\\ls2\\ilvl1"; })},
    };
    for (const auto& [body, format] : rows)
        EXPECT_EQ(paragraph(document(body)), format) << body;
}

TEST(RtfFormats, LastParagraph_EndsOrNot) {
    const std::tuple<std::string, std::size_t, bool> rows[] = {{"", 1, false},
                                                               {"a", 1, false},
                                                               {"a\\par", 1, true},
                                                               {"a\\par\\par", 2, true},
                                                               {"\\par b", 2, false}};
    for (const auto& [body, paragraphs, ends] : rows) {
        const rtf::Document read = document(body);
        EXPECT_EQ(read.paragraphs.size(), paragraphs) << body;
        EXPECT_EQ(read.lastParagraphEnds, ends) << body;
    }
}
