#include "drafts/read/reader.h"
#include "drafts/transcript.h"
#include "drafts/write/documents.h"
#include "drafts/write/image_size.h"
#include "rtf/read/reader.h"
#include "testing.h"

#include <fstream>
#include <minizip/unzip.h>

namespace {

rtf::Document document(const std::string& body) {
    return rtf::read(
        R"({\rtf1{\fonttbl{\f0 Arial;}{\f1 A&B;}}{\colortbl;\red255\green0\blue16;}\paperw11906 )" + body +
        "}");
}

// A file out of the zip file; empty when it is not there.
std::string unzipped(const std::string& zip, const char* name) {
    const std::string path = testing::TempDir() + "drafts_test.zip";
    std::ofstream(path, std::ios::binary) << zip;
    std::string bytes;
    unzFile file = unzOpen(path.c_str());
    if (unzLocateFile(file, name, 1) == UNZ_OK && unzOpenCurrentFile(file) == UNZ_OK) {
        std::array<char, 4096> part{};
        for (int count = 0; (count = unzReadCurrentFile(file, part.data(), part.size())) > 0;)
            bytes.append(part.data(), static_cast<std::size_t>(count));
        EXPECT_EQ(unzCloseCurrentFile(file), UNZ_OK) << "its checksum";
    }
    unzClose(file);
    std::filesystem::remove(path);
    return bytes;
}

const std::string pixel = "{\\pict\\pngblip\\picwgoal150\\pichgoal300 89504e47}";

} // namespace

TEST(DraftDocuments, Markdown) {
    const std::pair<std::string, std::string> rows[] = {
        {R"(\b Ann:\b0  one \i two\i0 , \strike x\strike0\par three)",
         "**Ann:** one *two*, ~~x~~\n\nthree\n"},
        {R"(a*b_c [x] #1\par # no\par 12. no\par - no)",
         "a\\*b\\_c \\[x\\] #1\n\n\\# no\n\n12\\. no\n\n\\- no\n"},
        {R"({\pntext\'B7\tab}{\*\pn\pnlvlblt{\pntxtb\'B7}}\fi-360\li720 one\par two\par\pard three)",
         "- one\n- two\n\nthree\n"},
        {R"(a{\v hidden}\line b {\field{\*\fldinst HYPERLINK "http://x/(y) z"}{\fldrslt link}} c)",
         "a\\\nb [link](http://x/%28y%29%20z) c\n"},
        {R"(\b\i x \b0 y)", "***x*** *y*\n"},
        {"", ""},
    };
    for (const auto& [body, expected] : rows)
        EXPECT_EQ(drafts::markdown(document(body)).bytes, expected) << body;
    EXPECT_EQ(drafts::markdown(document("a")).losses, drafts::Losses());
    const drafts::Losses all{
        .letters = true, .paragraphs = true, .pictures = true, .objects = true, .headers = true};
    EXPECT_EQ(drafts::markdown(document("{\\header x}\\qc\\ul a" + pixel + "{\\footnote x}")).losses, all);
}

TEST(DraftDocuments, BoldAndItalics_ComeFromSubtitlesIntoTheTranscript) {
    const std::pair<std::string, std::string> rows[] = {
        {"<b>Ann:</b> one <i>two\nthree</i> <B.loud>fo</B>ur", "**Ann:** one *two three* **fo**ur\n"},
        {"<i>a <b>b c</i> d</b> </b><i></i>e<br>f", "*a* ***b c*** **d** ef\n"},
        {"<i>open {\\an8}", "*open*\n"},
    };
    for (const auto& [cue, expected] : rows) {
        const auto draft = drafts::read("1\n00:00:01,000 --> 00:00:09,000\n" + cue, base::CodePage(1252));
        EXPECT_EQ(drafts::markdown(drafts::transcript(drafts::turns(draft, {}), {}).document).bytes,
                  expected);
    }
}

TEST(DraftDocuments, Docx_HasWhatTheEditorShows) {
    const std::pair<std::string, std::string> rows[] = {
        {"a <&> \"b\"\\tab c\\line d\\page e",
         "<w:t xml:space=\"preserve\">a &lt;&amp;&gt; &quot;b&quot;</w:t><w:tab/><w:t "
         "xml:space=\"preserve\">c</w:t><w:br/>"
         "<w:t xml:space=\"preserve\">d</w:t><w:br w:type=\"page\"/><w:t xml:space=\"preserve\">e</w:t>"},
        {R"(\f1\fs30\b\i\ul\strike\cf1\highlight1\super x)",
         "<w:r><w:rPr><w:rFonts w:ascii=\"A&amp;B\" w:hAnsi=\"A&amp;B\" w:eastAsia=\"A&amp;B\" "
         "w:cs=\"A&amp;B\"/><w:b/><w:bCs/><w:i/><w:iCs/>"
         "<w:strike/><w:color w:val=\"FF0010\"/><w:sz w:val=\"30\"/><w:szCs w:val=\"30\"/><w:u "
         "w:val=\"single\"/><w:shd w:val=\"clear\" "
         "w:color=\"auto\" w:fill=\"FF0010\"/><w:vertAlign w:val=\"superscript\"/></w:rPr><w:t"},
        {R"(\qc\li720\ri10\fi-360\sb120\sa60 x)",
         "<w:pPr><w:spacing w:before=\"120\" w:after=\"60\"/><w:ind w:left=\"720\" w:right=\"10\" "
         "w:hanging=\"360\"/><w:jc w:val=\"center\"/>"},
        {R"({\pntext\'B7\tab}{\*\pn\pnlvlblt{\pntxtb\'B7}}\fi-360\li720 x)",
         "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>"},
        {R"({\field{\*\fldinst HYPERLINK "http://x/?a&b"}{\fldrslt x}})", "<w:hyperlink r:id=\"rId3\"><w:r>"},
        {pixel, "<wp:extent cx=\"95250\" cy=\"190500\"/>"},
        {"x", "<w:pgSz w:w=\"11906\" w:h=\"15840\"/>"},
        {"\\u-10179?\\u-8704?\\u1? x", "<w:t xml:space=\"preserve\">\U0001F600 x</w:t>"},
    };
    for (const auto& [body, expected] : rows)
        EXPECT_THAT(unzipped(drafts::docx(document(body)).bytes, "word/document.xml"),
                    testing::HasSubstr(expected))
            << body;
    const drafts::Exported made =
        drafts::docx(document("{\\field{\\*\\fldinst HYPERLINK \"http://x/?a&b\"}{\\fldrslt x}}" + pixel));
    EXPECT_EQ(unzipped(made.bytes, "word/media/image1.png"), "\x89PNG");
    EXPECT_THAT(unzipped(made.bytes, "word/_rels/document.xml.rels"),
                testing::AllOf(testing::HasSubstr("Target=\"http://x/?a&amp;b\" TargetMode=\"External\""),
                               testing::HasSubstr("media/image1.png")));
    EXPECT_EQ(made.losses, drafts::Losses());
    EXPECT_EQ(
        made.bytes,
        drafts::docx(document("{\\field{\\*\\fldinst HYPERLINK \"http://x/?a&b\"}{\\fldrslt x}}" + pixel))
            .bytes);
    EXPECT_EQ(drafts::docx(document("{\\header x}a{\\footnote x}")).losses,
              (drafts::Losses{.objects = true, .headers = true}));
}

TEST(DraftDocuments, SizesOfImages) {
    using namespace std::string_literals;
    const std::tuple<std::string, int, int> rows[] = {
        {"\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x02\0\0\x01\0"s, 30, 3840},
        {"\xFF\xD8\xFF\xE0\0\x04xx\xFF\xC0\0\x0B\x08\0\x10\0\x20"s, 480, 240},
        {"\x89PNG", 1440, 1440},
        {"\xFF\xD8\xFF\xE0\xFF\xFFxxxxx"s, 1440, 1440},
        {"\x89PNG\r\n\x1a\n\0\0\0\rIHDR\xFF\xFF\xFF\xFF\0\0\x01\0"s, 1440, 1440},
    };
    for (const auto& [bytes, width, height] : rows) {
        EXPECT_EQ(drafts::sizeInTwips(bytes).width, width);
        EXPECT_EQ(drafts::sizeInTwips(bytes).height, height);
    }
}
