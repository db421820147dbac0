// Builds a document sequentially.
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

// Collects text, formats and kept ranges; creates each table entry on first use.
class DocumentBuilder {
public:
    DocumentBuilder();

    // Return indices in the tables of the document.
    std::uint32_t font(const Font& font);
    std::uint32_t link(const Text& target);

    // Sets the format of the text that follows.
    void useFormat(const CharFormat& format);

    // Appends text; `ascii` must consist of bytes from 0x20 to 0x7E.
    void addAscii(std::string_view ascii);
    void addText(TextView text);

    // Appends the anchor of a kept range.
    void addKept(std::string range);

    // Appends to the kept range directly before the current position. Returns false if there is none.
    bool extendKept(std::string_view range);

    void endParagraph(ParagraphFormat format);
    void endSection(ParagraphFormat format);
    bool paragraphIsEmpty() const { return document_.text.size() == paragraphText_; }

    // The current section, and the document for everything that has no position in the text.
    Section& section() { return document_.sections.back(); }
    Document& document() { return document_; }

    // False for an empty paragraph after the last paragraph end: it exists only if more text follows.
    bool lastParagraphCounts() const;

    // Returns the document; the builder must not be used afterwards.
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
    std::size_t paragraphText_ = 0; // offset at which the current paragraph starts
    std::size_t paragraphRuns_ = 0;
    std::uint32_t nextSection_ = 0; // the section that starts with the current paragraph
};

} // namespace rtf
