#include "rtf/write/writer.h"

#include "rtf/fields.h"
#include "rtf/write/tables.h"

#include <cstddef>
#include <string_view>

namespace rtf {

namespace {

// Writes one document; used once.
class Writer {
public:
    explicit Writer(const Document& document)
        : document_(document), fonts_(document), colours_(document),
          hasListTable_(document.head.find("\\listtable") != std::string::npos) {}

    std::string write() {
        out_.reserve(document_.text.size() + document_.text.size() / 4);
        head();
        for (std::size_t index = 0; index < document_.paragraphs.size(); ++index)
            paragraph(index);
        moments();
        out_ += "}\r\n";
        return std::move(out_);
    }

private:
    void head();
    void paragraph(std::size_t index);
    void moments();
    void paragraphEnd(std::size_t index);
    void section(std::size_t paragraph);
    void paragraphFormat(const ParagraphFormat& format);
    void bullet(const ParagraphFormat& format);
    void runs(std::size_t count);
    bool isRaised(const Run& run) const { return document_.formats[run.format].raised != Raised::No; }
    template <typename Content>
    void raised(const Run& run, Content&& content);
    void openLink(std::uint32_t link);
    void letterFormat(const CharFormat& format);
    void run(const Run& run);
    void symbols(TextView text);

    void word(std::string_view name, std::int64_t number) { (out_ += name) += std::to_string(number); }
    void wordIf(bool holds, std::string_view name) { out_ += holds ? name : std::string_view(); }

    const Document& document_;
    FontNumbers fonts_;
    ColourIndices colours_;
    bool hasListTable_;
    std::string out_;
    std::size_t at_ = 0;  // offset in the text
    std::size_t run_ = 0; // index of the next run
    std::uint32_t format_ = none;
    std::uint32_t paragraphFormat_ = none;
};

void Writer::head() {
    out_ += "{\\rtf1\\ansi";
    word("\\ansicpg", document_.keptTables.codePage);
    word("\\uc1\\deff", document_.keptTables.defaultFont);
    out_ += "\r\n";
    fonts_.appendTable(out_);
    colours_.appendTable(out_);
    out_ += document_.head;
    out_ += "{\\*\\generator Quillmere;}\r\n";
    out_ += document_.pageWords;
}

// In lines, for programs that read a file line by line.
void Writer::moments() {
    constexpr std::size_t lineLength = 120;
    if (document_.moments.empty())
        return;
    out_ += "{\\*\\quillmoments";
    for (std::size_t at = 0; at < document_.moments.size(); at += lineLength)
        (out_ += "\r\n") += std::string_view(document_.moments).substr(at, lineLength);
    out_ += '}';
}

void Writer::paragraph(std::size_t index) {
    const Paragraph& paragraph = document_.paragraphs[index];
    if (paragraph.section != none)
        section(index);
    const ParagraphFormat& format = document_.paragraphFormats[paragraph.format];
    if (paragraph.format != paragraphFormat_)
        paragraphFormat(format);
    paragraphFormat_ = paragraph.format;
    if (format.bullet)
        bullet(format);
    const bool hasEnd = document_.lastParagraphEnds || index + 1 < document_.paragraphs.size();
    if (paragraph.length == 0 && hasEnd && isRaised(document_.runs[run_])) {
        raised(document_.runs[run_++], [&] { paragraphEnd(index); });
        return;
    }
    runs(paragraph.runs);
    if (hasEnd)
        paragraphEnd(index);
}

void Writer::paragraphEnd(std::size_t index) {
    const bool isLast = index + 1 == document_.paragraphs.size();
    out_ += !isLast && document_.paragraphs[index + 1].section != none ? "\\sect\r\n" : "\\par\r\n";
}

void Writer::section(std::size_t paragraph) {
    const Section& section = document_.sections[document_.paragraphs[paragraph].section];
    paragraphFormat_ = none;
    if (paragraph > 0 || !section.words.empty())
        out_ += "\\sectd";
    out_ += section.words;
    out_ += section.headers;
}

void Writer::paragraphFormat(const ParagraphFormat& format) {
    static constexpr std::string_view alignments[] = {"\\ql", "\\qr", "\\qc", "\\qj"};
    out_ += "\\pard";
    out_ += format.kept;
    out_ += format.list;
    wordIf(format.pageBreakBefore, "\\pagebb");
    out_ += alignments[static_cast<std::size_t>(format.alignment)];
    if (format.firstIndent != 0)
        word("\\fi", format.firstIndent);
    if (format.leftIndent != 0)
        word("\\li", format.leftIndent);
    if (format.rightIndent != 0)
        word("\\ri", format.rightIndent);
    if (format.spaceBefore != 0)
        word("\\sb", format.spaceBefore);
    if (format.spaceAfter != 0)
        word("\\sa", format.spaceAfter);
    out_ += ' ';
}

// Written twice: as a list in the old format, and as plain text for readers that know no lists. If the
// paragraph belongs to a list of the list table, the old format is left out, because with both some readers
// number the paragraph instead.
void Writer::bullet(const ParagraphFormat& format) {
    const std::string font = std::to_string(fonts_.bulletNumber());
    if (!format.list.empty() && hasListTable_)
        out_ += "{\\listtext\\f" + font + R"(\'b7\tab})";
    else
        out_ +=
            "{\\pntext\\f" + font + R"(\'b7\tab}{\*\pn\pnlvlblt\pnf)" + font + R"(\pnindent0{\pntxtb\'b7}})";
}

void Writer::runs(std::size_t count) {
    std::uint32_t link = none;
    std::uint32_t formatOutside = format_;
    const auto closeLink = [&] {
        out_ += link != none ? "}}" : "";
        format_ = link != none ? formatOutside : format_;
    };
    for (const std::size_t end = run_ + count; run_ < end; ++run_) {
        const Run& next = document_.runs[run_];
        const CharFormat& format = document_.formats[next.format];
        if (format.link != link) {
            closeLink();
            formatOutside = format_;
            link = format.link;
            if (link != none)
                openLink(link);
        }
        if (isRaised(next) && next.length > 0) {
            raised(next, [&] { run(next); });
            continue;
        }
        if (next.format != format_)
            letterFormat(format);
        format_ = next.format;
        run(next);
    }
    closeLink();
}

// Written as a group of its own: some office suites buffer all text after \super or \sub until the group
// closes, and would otherwise reorder it.
template <typename Content>
void Writer::raised(const Run& run, Content&& content) {
    out_ += '{';
    letterFormat(document_.formats[run.format]);
    content();
    out_ += '}';
}

void Writer::openLink(std::uint32_t link) {
    out_ += R"({\field{\*\fldinst{)";
    appendText(linkInstruction(document_.links[link]), out_);
    out_ += "}}{\\fldrslt ";
}

void Writer::letterFormat(const CharFormat& format) {
    word("\\plain\\f", fonts_.number(format.font));
    word("\\fs", format.size);
    wordIf(format.bold, "\\b");
    wordIf(format.italic, "\\i");
    wordIf(format.underline, "\\ul");
    wordIf(format.strike, "\\strike");
    wordIf(format.hidden, "\\v");
    wordIf(format.capitals, "\\caps");
    wordIf(format.smallCapitals, "\\scaps");
    wordIf(format.raised == Raised::Super, "\\super");
    wordIf(format.raised == Raised::Sub, "\\sub");
    if (!format.colour.automatic)
        word("\\cf", static_cast<std::int64_t>(colours_.index(format.colour)));
    if (!format.background.automatic)
        word("\\highlight", static_cast<std::int64_t>(colours_.index(format.background)));
    out_ += ' ';
}

void Writer::run(const Run& run) {
    const TextView text = TextView(document_.text).substr(at_, run.length);
    at_ += run.length;
    if (run.kept != none)
        out_ += document_.kept[run.kept];
    else if (document_.fonts[document_.formats[run.format].font].charset == symbolCharset)
        symbols(text);
    else
        appendText(text, out_);
}

// In a symbol font a plain byte would be read as the symbol at that position.
void Writer::symbols(TextView text) {
    static constexpr std::string_view digits = "0123456789abcdef";
    for (const char16_t unit : text) {
        if (unit > 0xF020 && unit <= 0xF0FF) {
            out_ += "\\'";
            out_ += digits[unit / 16 % 16];
            out_ += digits[unit % 16];
        } else if (unit > 0x20 && unit < 0x7F) {
            word("\\u", unit);
            out_ += '?';
        } else {
            appendText(TextView(&unit, 1), out_);
        }
    }
}

} // namespace

std::string write(const Document& document) {
    return Writer(document).write();
}

} // namespace rtf
