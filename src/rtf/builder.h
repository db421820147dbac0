// Puts a document together from first letter to last.
#pragma once

#include "rtf/document.h"
#include "rtf/hash.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace rtf {

// Collects text, formats and kept ranges; each table entry is made when first used.
class DocumentBuilder {
public:
    DocumentBuilder();

    // Indices in the tables of the document.
    std::uint32_t font(const Font& font);
    std::uint32_t link(const Text& target);

    // How the text that follows looks.
    void useFormat(const CharFormat& format);

    // Adds text; `ascii` holds bytes from 0x20 to 0x7E alone.
    void addAscii(std::string_view ascii);
    void addText(TextView text);

    // Adds the anchor of a kept range.
    void addKept(std::string range);

    // Joins a range to the one in front of the place reached. False when there is none directly in front.
    bool extendKept(std::string_view range);

    void endParagraph(ParagraphFormat format);
    void endSection(ParagraphFormat format);
    bool paragraphIsEmpty() const { return document_.text.size() == paragraphText_; }

    // The section in which the place reached lies, and what belongs to no place.
    Section& section() { return document_.sections.back(); }
    Document& document() { return document_; }

    // False for an empty paragraph behind the end of another: it is not there, unless more comes.
    bool lastParagraphCounts() const;

    // Gives the document out.
    Document finish(bool lastParagraphEnds);

private:
    void ensureRun();

    Document document_;
    std::unordered_map<CharFormat, std::uint32_t, PartHash> formats_;
    std::unordered_map<ParagraphFormat, std::uint32_t, PartHash> paragraphFormats_;
    std::unordered_map<Font, std::uint32_t, PartHash> fonts_;
    std::unordered_map<Text, std::uint32_t> links_;
    std::size_t keptWords_ = 0;
    std::uint32_t format_ = 0;
    std::size_t paragraphText_ = 0; // where the paragraph begins
    std::size_t paragraphRuns_ = 0;
    std::uint32_t nextSection_ = 0; // the section that the paragraph begins
};

} // namespace rtf
