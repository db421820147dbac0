#include "rtf/reading.h"

#include <chrono>
#include <gtest/gtest.h>

using reading::document;

namespace {

std::string repeated(std::string_view piece, std::size_t times) {
    std::string all;
    all.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all += piece;
    return all;
}

// What the document takes in memory, about, in bytes.
std::size_t sizeOf(const rtf::Document& read) {
    std::size_t size = read.text.capacity() * 2 + read.runs.capacity() * sizeof(rtf::Run) +
                       read.paragraphs.capacity() * sizeof(rtf::Paragraph) +
                       read.formats.capacity() * sizeof(rtf::CharFormat) + read.head.capacity();
    for (const rtf::ParagraphFormat& format : read.paragraphFormats)
        size += sizeof format + format.kept.capacity() + format.list.capacity();
    for (const std::string& range : read.kept)
        size += sizeof(std::string) + range.capacity();
    for (const rtf::Section& section : read.sections)
        size += sizeof section + section.words.capacity() + section.headers.capacity();
    return size;
}

} // namespace

TEST(RtfHostile, Megabytes_OfOneThing_CostTimeAndMemoryInProportion) {
    const std::pair<std::string, std::string> rows[] = {
        {"", "{"},
        {"", "}"},
        {"", "{\\b "},
        {"", "\\par"},
        {"", "\\sect"},
        {"", "\\u1?"},
        {"", "\\'"},
        {"", "\\"},
        {"", "\\pict"},
        {"", "{\\pict"},
        {"", "{\\field"},
        {"", "\\cell"},
        {"", "\\row"},
        {"", "\\chftn"},
        {"", "\\tx1"},
        {"", "\\tx1\\par"},
        {"", "\\bin9"},
        {"", "{\\*\\x"},
        {"\\ansicpg932 ", "\\'81"},
        {"", R"(\sectd\cols2\sect)"},
        {"", "{\\pntext 1}"},
        {"{\\fonttbl", "{\\f1 a;}"},
        {"{\\colortbl", "\\red1;"},
        {"{\\stylesheet", "{\\f1"},
        {"{\\fonttbl{\\f0 ", "a"},
        {"", "{\\header a}"},
        {"", "{\\*\\atnid a}"},
        {R"({\field{\*\fldinst HYPERLINK )", "\\\\"},
        {"", R"({\field{\*\fldinst HYPERLINK a}{\fldrslt b}})"},
    };
    for (const auto& [before, piece] : rows) {
        const std::string bytes = "{\\rtf1" + before + repeated(piece, (2U << 20U) / piece.size());
        const auto start = std::chrono::steady_clock::now();
        const rtf::Document read = rtf::read(bytes);
        const std::string written = rtf::write(read);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        EXPECT_LT(time.count(), 5) << piece;
        EXPECT_LT(sizeOf(read), bytes.size() * 40) << piece;
        EXPECT_EQ(rtf::read(written), read) << piece;
    }
}

TEST(RtfHostile, NumberedThings_EachANewOne_CostTimeAndMemoryInProportion) {
    const std::pair<std::string, std::string> rows[] = {
        {"\\f", " a"},
        {"\\fs", " a"},
        {"\\cpg", " "},
        {"\\ansicpg", "\\'e9"},
        {"\\tx", "\\par"},
        {"\\s", " "},
        {"\\li", "\\par"},
        {"\\uc", "\\u1071?"},
        {"{\\fonttbl{\\f", "\\cpg50000 \\'e9;}}"},
        {R"({\field{\*\fldinst HYPERLINK )", "}{\\fldrslt a}}"},
        {"{\\footnote\\f", "}"},
    };
    for (const auto& [before, behind] : rows) {
        std::string bytes = "{\\rtf1";
        for (int number = 0; number < 40000; ++number)
            bytes.append(before).append(std::to_string(number)).append(behind);
        const auto start = std::chrono::steady_clock::now();
        const rtf::Document read = rtf::read(bytes);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        EXPECT_LT(time.count(), 5) << before;
        EXPECT_LT(sizeOf(read), 16U << 20U) << before;
        EXPECT_EQ(rtf::read(rtf::write(read)), read) << before;
    }
}

TEST(RtfHostile, LongLink_OverManyParagraphs_IsNotWrittenForEachOfThem) {
    const std::string field = R"({\field{\*\fldinst HYPERLINK )" + std::string(2000, 'u') + "}{\\fldrslt ";
    const rtf::Document read = document(field + repeated("a\\par ", 100000));
    EXPECT_EQ(read.paragraphs.size(), 100000U);
    EXPECT_LT(rtf::write(read).size(), 100U << 20U);
    EXPECT_EQ(document(field + repeated("\\fldrslt ", 100000) + "a").links.size(), 1U);
    EXPECT_TRUE(document(R"({\field{\*\fldinst HYPERLINK )" + std::string(3000, 'u') + "}{\\fldrslt a}}")
                    .links.empty());
}

TEST(RtfHostile, FontTable_Of32768Fonts_TellsThemAll) {
    std::string bytes = "{\\rtf1{\\fonttbl";
    std::string text;
    for (int number = 0; number < 32768; ++number) {
        bytes += "{\\f" + std::to_string(number) + " Font " + std::to_string(number) + ";}";
        text.append("\\f").append(std::to_string(number)).append(" a");
    }
    const rtf::Document read = rtf::read(bytes + '}' + text);
    EXPECT_EQ(read.fonts.size(), 32768U);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(rtf::read(rtf::write(read)), read);
    EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), 10);
}

TEST(RtfHostile, DeepGroups_KeepTheirText) {
    const std::string deep =
        repeated("{\\b0", 10000) + "a{\\pict 00}{\\fonttbl b}c" + repeated("}", 10000) + "d";
    EXPECT_EQ(rtf::plainText(document(deep)), u"acd");
}

TEST(RtfHostile, File_CutAtAnyByte_ReadsAndIsWritten) {
    const std::string whole = std::string(reading::head) +
                              "{\\stylesheet{\\s1 Head;}}{\\*\\generator x;}{\\info{\\title "
                              "t}}\\pard\\qc\\tx720{\\b bold}\\u1071?\\'e9"
                              "{\\field{\\*\\fldinst{HYPERLINK \"http://a.b\"}}{\\fldrslt{\\ul "
                              "link}}}\\par{\\pntext\\f1\\'B7\\tab}item\\par "
                              "{\\*\\shppict{\\pict\\pngblip\\bin4 \x89PNG}}{\\nonshppict{\\pict "
                              "01}}\\chftn{\\footnote note}\\trowd a\\cell "
                              "b\\cell\\row\\sect\\sectd{\\header h}\\f3\\'83\\'65\\u-10179?\\u-8704?\\par}";
    std::size_t longest = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const rtf::Document read = rtf::read(std::string_view(whole).substr(0, length));
        EXPECT_EQ(rtf::read(rtf::write(read)), read) << length;
        longest = std::max(longest, read.text.size());
    }
    EXPECT_EQ(rtf::read(whole).text.size(), longest);
}
