#include "rtf/builder.h"

namespace rtf {

namespace {

// Limits memory on malicious files, which can make every paragraph a new format by adding words to each. More
// than this many bytes over all formats is rubbish; no writer produces that.
constexpr std::size_t mostKeptWords = 1U << 20U;

// The index of a part in its table; appends the part if it is new.
template <class Part>
std::uint32_t indexOf(const Part& part, auto& known, std::vector<Part>& table) {
    const auto [place, isNew] = known.try_emplace(part, static_cast<std::uint32_t>(table.size()));
    if (isNew)
        table.push_back(part);
    return place->second;
}

} // namespace

DocumentBuilder::DocumentBuilder() {
    document_.sections.emplace_back();
}

std::uint32_t DocumentBuilder::font(const Font& font) {
    return indexOf(font, fonts_, document_.fonts);
}

std::uint32_t DocumentBuilder::link(const Text& target) {
    return indexOf(target, links_, document_.links);
}

void DocumentBuilder::useFormat(const CharFormat& format) {
    format_ = indexOf(format, formats_, document_.formats);
}

void DocumentBuilder::ensureRun() {
    if (document_.runs.size() > paragraphRuns_) {
        const Run& last = document_.runs.back();
        if (last.format == format_ && last.kept == none)
            return;
    }
    document_.runs.push_back({.length = 0, .format = format_, .kept = none});
}

void DocumentBuilder::addAscii(std::string_view ascii) {
    ensureRun();
    const std::size_t before = document_.text.size();
    document_.text.resize(before + ascii.size());
    char16_t* to = document_.text.data() + before;
    for (const char byte : ascii)
        *to++ = static_cast<char16_t>(byte);
    document_.runs.back().length += static_cast<std::uint32_t>(ascii.size());
}

void DocumentBuilder::addText(TextView text) {
    if (text.empty())
        return;
    ensureRun();
    document_.text += text;
    document_.runs.back().length += static_cast<std::uint32_t>(text.size());
}

void DocumentBuilder::addKept(std::string range) {
    document_.runs.push_back(
        {.length = 1, .format = format_, .kept = static_cast<std::uint32_t>(document_.kept.size())});
    document_.text += anchorUnit;
    document_.kept.push_back(std::move(range));
}

bool DocumentBuilder::extendKept(std::string_view range) {
    if (document_.runs.size() == paragraphRuns_ || document_.runs.back().kept == none)
        return false;
    document_.kept.back() += range;
    return true;
}

void DocumentBuilder::endParagraph(ParagraphFormat format) {
    if (document_.runs.size() == paragraphRuns_)
        ensureRun();
    if (keptWords_ > mostKeptWords) {
        format.kept.clear();
        format.list.clear();
    }
    const std::size_t formatsBefore = document_.paragraphFormats.size();
    Paragraph paragraph;
    paragraph.format = indexOf(format, paragraphFormats_, document_.paragraphFormats);
    if (document_.paragraphFormats.size() > formatsBefore)
        keptWords_ += format.kept.size() + format.list.size();
    paragraph.length = static_cast<std::uint32_t>(document_.text.size() - paragraphText_);
    paragraph.runs = static_cast<std::uint32_t>(document_.runs.size() - paragraphRuns_);
    paragraph.section = std::exchange(nextSection_, none);
    document_.paragraphs.push_back(paragraph);
    paragraphText_ = document_.text.size();
    paragraphRuns_ = document_.runs.size();
}

void DocumentBuilder::endSection(ParagraphFormat format) {
    endParagraph(std::move(format));
    nextSection_ = static_cast<std::uint32_t>(document_.sections.size());
    document_.sections.emplace_back();
}

bool DocumentBuilder::lastParagraphCounts() const {
    return !paragraphIsEmpty() || nextSection_ != none;
}

Document DocumentBuilder::finish(bool lastParagraphEnds) {
    document_.lastParagraphEnds = lastParagraphEnds;
    return std::move(document_);
}

} // namespace rtf
