#include "rtf/rtf_builder.h"

#include <functional>

namespace rtf {

namespace {

// A file can grow words on each of its paragraphs so that every one becomes a format of its own. No writer
// does, and what exceeds this many bytes over all formats is rubbish.
constexpr std::size_t mostKeptWords = 1U << 20U;

std::size_t mix(std::size_t seed, std::size_t value) {
    return (seed ^ value) * 0x9E3779B97F4A7C15ULL ^ seed >> 29U;
}

std::size_t numberOf(const Colour& colour) {
    return static_cast<std::size_t>(colour.automatic) << 24U | static_cast<std::size_t>(colour.red) << 16U |
           static_cast<std::size_t>(colour.green) << 8U | colour.blue;
}

// The index of a part in its table, where it is put when it is new.
template <class Part>
std::uint32_t indexOf(const Part& part, auto& known, std::vector<Part>& table) {
    const auto [place, isNew] = known.try_emplace(part, static_cast<std::uint32_t>(table.size()));
    if (isNew)
        table.push_back(part);
    return place->second;
}

} // namespace

std::size_t PartHash::operator()(const CharFormat& format) const {
    const std::size_t marks = format.bold | format.italic << 1U | format.underline << 2U |
                              format.strike << 3U | format.hidden << 4U | format.capitals << 5U |
                              format.smallCapitals << 6U | static_cast<unsigned>(format.raised) << 7U;
    std::size_t hash = mix(marks, format.font);
    hash = mix(hash, static_cast<std::size_t>(format.link) << 16U | format.size);
    return mix(hash, numberOf(format.colour) << 32U | numberOf(format.background));
}

std::size_t PartHash::operator()(const ParagraphFormat& format) const {
    std::size_t hash = mix(static_cast<std::size_t>(format.alignment), format.bullet ? 1 : 0);
    for (const std::int32_t measure :
         {format.leftIndent, format.rightIndent, format.firstIndent, format.spaceBefore, format.spaceAfter})
        hash = mix(hash, static_cast<std::uint32_t>(measure));
    return mix(mix(hash, std::hash<std::string>()(format.list)), std::hash<std::string>()(format.kept));
}

std::size_t PartHash::operator()(const Font& font) const {
    return mix(std::hash<Text>()(font.name), static_cast<std::size_t>(font.charset));
}

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

Document DocumentBuilder::finish() {
    document_.lastParagraphEnds = !lastParagraphCounts();
    return std::move(document_);
}

} // namespace rtf
