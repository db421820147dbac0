#include "base/code_page.h"
#include "base/failure.h"
#include "base/field_reader.h"
#include "base/text.h"

#include <gtest/gtest.h>
#include <set>

using base::Text;

TEST(Text, Utf8_AnyBytes_RoundTrip) {
    for (const std::string bytes : {"caf\xC3\xA9", "\xF0\x9F\x8E\xA4", "broken \xC3", "\xFF\xFE",
                                    "\xED\xA0\x80", "\xC0\xAF over\xE0\x80\xAFlong", "\xF4\x90\x80\x80"})
        EXPECT_EQ(base::toUtf8(base::fromUtf8(bytes)), bytes);
    EXPECT_EQ(base::fromUtf8("\xF0\x9F\x8E\xA4"), u"\U0001F3A4");
    EXPECT_EQ(base::toUtf8(Text{0xD800, u'x'}), "\xEF\xBF\xBDx");
}

TEST(CodePage, EveryByte_OfEveryPage_DecodesToADistinctCharacter) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 65001}) {
        const base::CodePage page(number);
        const Text read = page.decode(all);
        EXPECT_EQ(std::set(read.begin(), read.end()).size(), all.size()) << number;
    }
    EXPECT_EQ(base::CodePage(base::CodePage::numberForLanguage("hu")).decode("\xF5"), u"ő");
    EXPECT_EQ(base::CodePage(base::CodePage::numberForLanguage("it")).decode("\x80\xE9"), u"€é");
}

TEST(CodePage, File_IsWrittenAsUtf8_AndReadInTheCodePageIfNotUtf8) {
    EXPECT_EQ(base::encodeFile(u"deja"), "deja");
    EXPECT_EQ(base::encodeFile(u"déjà"), "\xEF\xBB\xBF"
                                         "d\xC3\xA9j\xC3\xA0");
    for (const int number : {1252, 1251}) {
        const base::CodePage page(number);
        for (const Text text : {u"déjà", u"Я и ты", u"\uFEFFa mark", u""})
            EXPECT_EQ(base::decodeFile(base::encodeFile(text), page), text);
        EXPECT_EQ(base::decodeFile("d\xC3\xA9j\xC3\xA0", page), u"déjà");
        EXPECT_EQ(base::decodeFile("\xE4\xC3\xA9", page), number == 1251 ? u"дГ©" : u"äÃ©");
    }
}

TEST(FieldReader, Fields_EndAtCommasLineEndsAndQuotes) {
    base::FieldReader fields(u"  a b ,\"c, d\" x,e\r\n\r\n\"f\"\ng,\r\n  \"open");
    for (const Text expected : {u"a b ", u"c, d", u"e", u"", u"f", u"g", u"", u"open"})
        EXPECT_EQ(fields.text(), expected);
    EXPECT_THROW(fields.text(), base::Failure);
}

TEST(FieldReader, Number_OutOfRange_FailsAndIsConsumed) {
    base::FieldReader fields(u"40000\r\n7\r\nrubbish");
    EXPECT_THROW(fields.int16(), base::Failure);
    EXPECT_EQ(fields.int16(), 7);
    EXPECT_EQ(fields.int16(), 0);
}
