#include "drafts/letters.h"
#include "drafts/write/documents.h"

#include <algorithm>

namespace drafts {

namespace {

using rtf::CharFormat;
using rtf::Document;
using rtf::Text;
using rtf::TextView;

// Letters that would be taken for marks have a backslash; so has what would begin a list or a heading.
Text escaped(TextView text, bool beginsLine) {
    static constexpr TextView marks = u"\\`*_{}[]<>~|&";
    Text out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool first = beginsLine && i == 0;
        const bool listMark = first && TextView(u"#+-=").find(text[i]) != TextView::npos;
        const bool afterNumber = beginsLine && i > 0 && (text[i] == u'.' || text[i] == u')') &&
                                 std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(i),
                                             [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
        if (marks.find(text[i]) != TextView::npos || listMark || afterNumber)
            out += u'\\';
        out += text[i];
    }
    return out;
}

Text address(TextView target) {
    Text out;
    for (const char16_t unit : target) {
        if (unit == u' ')
            out += u"%20";
        else if (unit == u'(' || unit == u')')
            out += unit == u'(' ? u"%28" : u"%29";
        else if (!isBlank(unit))
            out += unit;
    }
    return out;
}

// Writes a document, one paragraph after the other.
class MarkdownWriter {
public:
    explicit MarkdownWriter(const Document& document) : document_(document) {}

    Exported write() {
        std::size_t at = 0;
        std::size_t run = 0;
        for (const rtf::Paragraph& paragraph : document_.paragraphs) {
            const rtf::ParagraphFormat& format = document_.paragraphFormats[paragraph.format];
            losses_.paragraphs = losses_.paragraphs || format.alignment != rtf::Alignment::Left ||
                                 format.leftIndent != 0 || format.rightIndent != 0 || format.firstIndent != 0;
            const std::size_t before = out_.size();
            lineBegins_ = true;
            for (const std::size_t end = run + paragraph.runs; run < end; ++run) {
                addRun(document_.runs[run], TextView(document_.text).substr(at, document_.runs[run].length));
                at += document_.runs[run].length;
            }
            closeMarks();
            if (out_.size() == before)
                continue;
            const Text lead = format.bullet ? u"- " : u"";
            out_.insert(before, (before == 0 ? u"" : format.bullet && afterBullet_ ? u"\n" : u"\n\n") + lead);
            afterBullet_ = format.bullet;
        }
        for (const rtf::Section& section : document_.sections)
            losses_.headers = losses_.headers || !section.headers.empty();
        return {base::toUtf8(out_) + (out_.empty() ? "" : "\n"), losses_};
    }

private:
    void addRun(const rtf::Run& run, TextView text) {
        const CharFormat& format = document_.formats[run.format];
        if (run.kept != rtf::none) {
            (document_.kept[run.kept].find("\\pict") != std::string::npos ? losses_.pictures
                                                                          : losses_.objects) = true;
            return;
        }
        if (format.hidden || text.empty())
            return;
        const CharFormat& first = document_.formats.front();
        losses_.letters = losses_.letters || format.underline || !format.colour.automatic ||
                          !format.background.automatic || format.font != first.font ||
                          format.size != first.size || format.raised != rtf::Raised::No || format.capitals ||
                          format.smallCapitals;
        while (!text.empty()) {
            const auto end = std::min(text.find_first_of(Text{rtf::lineBreak, rtf::pageBreak}), text.size());
            addText(text.substr(0, end), format);
            if (end < text.size()) {
                closeMarks();
                out_ += text[end] == rtf::lineBreak ? u"\\\n" : u"";
                lineBegins_ = true;
            }
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }

    // Blanks at the ends stand outside of the marks, which would not be marks otherwise.
    void addText(TextView text, const CharFormat& format) {
        const TextView inner = stripped(text);
        if (inner.empty()) {
            pending_ += text;
            return;
        }
        const auto lead = static_cast<std::size_t>(inner.data() - text.data());
        Text marks;
        marks += format.bold ? u"**" : u"";
        marks += format.italic ? u"*" : u"";
        marks += format.strike ? u"~~" : u"";
        const std::uint32_t link = format.link;
        if (marks != marks_ || link != link_)
            closeMarks();
        out_ += lineBegins_ ? Text() : pending_ + Text(text.substr(0, lead));
        pending_.clear();
        if (marks != marks_ || link != link_) {
            out_ += link == rtf::none ? Text() : Text(u"[");
            out_ += marks;
            marks_ = marks;
            link_ = link;
        }
        out_ += escaped(inner, lineBegins_ && marks.empty() && link == rtf::none);
        lineBegins_ = false;
        pending_ = text.substr(lead + inner.size());
    }

    void closeMarks() {
        out_ += Text(marks_.rbegin(), marks_.rend());
        if (link_ != rtf::none)
            out_ += u"](" + address(document_.links[link_]) + u')';
        marks_.clear();
        link_ = rtf::none;
    }

    const Document& document_;
    Text out_;
    Text pending_; // blanks behind what has been written
    Text marks_;   // that are open
    std::uint32_t link_ = rtf::none;
    bool lineBegins_ = true;
    bool afterBullet_ = false;
    Losses losses_;
};

} // namespace

Exported markdown(const rtf::Document& document) {
    return MarkdownWriter(document).write();
}

} // namespace drafts
