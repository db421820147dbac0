#include "rtf/reading.h"

#include <ctime>
#include <malloc.h>

using reading::document;

namespace {

std::string repeated(std::string_view piece, std::size_t times) {
    std::string all;
    all.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all += piece;
    return all;
}

std::size_t memoryInUse() {
    const auto told = mallinfo2();
    return told.uordblks + told.hblkhd;
}

// Reads, writes and reads again; time and memory must be proportional to the size.
rtf::Document readInProportion(const std::string& bytes) {
    const std::size_t before = memoryInUse();
    const std::clock_t start = std::clock();
    rtf::Document read = rtf::read(bytes);
    EXPECT_LT(memoryInUse(), before + bytes.size() * 40);
    EXPECT_EQ(rtf::read(rtf::write(read)), read);
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
    return read;
}

} // namespace

TEST(RtfHostile, MegabytesOfOneElement_CostProportionalTimeAndMemory) {
    const auto readMany = [](const std::string& before, const std::string& piece) {
        SCOPED_TRACE(before + piece);
        readInProportion("{\\rtf1" + before + repeated(piece, (2U << 20U) / piece.size()));
    };
    for (const char* piece :
         {"{", "}", "{\\b ", "\\par", "\\sect", "\\u1?", "\\'", "{\\pict", "{\\field", "\\cell", "\\chftn",
          "\\tx1", "\\tx1\\par", "\\bin9", "{\\*\\x", "{\\header a}", "{\\*\\atnid a}", "{\\pntext 1}",
          R"({\field{\*\fldinst HYPERLINK a}{\fldrslt b}})"})
        readMany("", piece);
    readMany("\\ansicpg932 ", "\\'81");
    readMany("{\\fonttbl", "{\\f1 a;}");
    readMany("{\\fonttbl{\\f0 ", "a");
    readMany("{\\colortbl", "\\red1;");
    readMany("{\\stylesheet", "{\\f1");
}

TEST(RtfHostile, ManyDistinctNumbers_CostProportionalTimeAndMemory) {
    // "#" is replaced by the number.
    for (const std::string piece : {"\\f# a", "\\fs# a", "\\cpg# ", "\\ansicpg#\\'e9", "\\tx#\\par", "\\s# ",
                                    "\\li#\\par", "\\uc#\\u1071?", "{\\fonttbl{\\f#\\cpg50000 \\'e9;}}",
                                    R"({\field{\*\fldinst HYPERLINK #}{\fldrslt a}})", "{\\footnote\\f#}"}) {
        SCOPED_TRACE(piece);
        std::string bytes = "{\\rtf1";
        for (int number = 0; number < 40000; ++number)
            bytes += std::string(piece).replace(piece.find('#'), 1, std::to_string(number));
        readInProportion(bytes);
    }
}

TEST(RtfHostile, LongLink_OverManyParagraphs_IsNotWrittenForEach) {
    const std::string field = R"({\field{\*\fldinst HYPERLINK )" + std::string(2000, 'u') + "}{\\fldrslt ";
    const rtf::Document read = document(field + repeated("a\\par ", 100000));
    EXPECT_EQ(read.paragraphs.size(), 100000U);
    EXPECT_LT(rtf::write(read).size(), 100U << 20U);
    EXPECT_EQ(document(field + repeated("\\fldrslt ", 100000) + "a").links.size(), 1U);
}

TEST(RtfHostile, FontTable_With32768Fonts_IsReadCompletely) {
    std::string table = "{\\rtf1{\\fonttbl";
    std::string text = "}";
    for (int number = 0; number < 32768; ++number) {
        table += "{\\f" + std::to_string(number) + " Font " + std::to_string(number) + ";}";
        text += "\\f" + std::to_string(number) + " a";
    }
    EXPECT_EQ(readInProportion(table + text).fonts.size(), 32768U);
}

TEST(RtfHostile, DistinctParagraphFormats_AreKeptUpToALimit) {
    std::string body;
    for (int number = 0; number < 6000; ++number)
        body += "\\pard\\s" + std::to_string(number) + repeated("\\tx12345", 30) + " a\\par ";
    const rtf::Document read = document(body);
    EXPECT_EQ(read.paragraphs.size(), 6000U);
    EXPECT_NEAR(static_cast<double>(read.paragraphFormats.size()), (1U << 20U) / 245.0, 20);
}

TEST(RtfHostile, DeeplyNestedGroups_KeepTheirText) {
    reading::expectTexts(
        {{repeated("{\\b0", 10000) + "a{\\pict 00}{\\fonttbl b}c" + repeated("}", 10000) + "d", "acd"}});
}

TEST(RtfHostile, File_TruncatedAtAnyByte_IsReadAndWritten) {
    const std::string whole =
        std::string(reading::head) + R"({\stylesheet{\s1 Head;}}{\*\generator x;}{\info{\title t}}
        \pard\qc\tx720{\b bold}\u1071?\'e9{\field{\*\fldinst{HYPERLINK "http://a.b"}}{\fldrslt{\ul link}}}
        \par{\pntext\f1\'B7\tab}item\par{\*\shppict{\pict\pngblip\bin4 \PNG}}{\nonshppict{\pict 01}}
        \chftn{\footnote note}\trowd a\cell b\cell\row\sect\sectd{\header h}\f3\'83\'65\u-10179?\u-8704?\par})";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const rtf::Document read = rtf::read(std::string_view(whole).substr(0, length));
        EXPECT_EQ(rtf::read(rtf::write(read)), read) << length;
    }
}
