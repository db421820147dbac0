// Assembles one document from paragraphs of others.
#pragma once

#include "rtf/document.h"

#include <unordered_map>

namespace rtf {

// Builds a document by appending paragraphs of other documents. Formats, fonts and links are merged by value;
// kept ranges are copied with their paragraph. The cost of appending is proportional to the paragraph.
class Assembly {
public:
    // `frame` supplies everything except the text: page settings, head, and the tables of the kept ranges.
    explicit Assembly(const Document& frame);

    // Sets the document from which the next paragraphs are taken; it must outlive their appending.
    void take(const Document& source);
    // Appends paragraph number `index`, from 0, of that document. Fastest in ascending order.
    void append(std::size_t index);

    // Returns the document and leaves the assembly empty.
    Document finish();

private:
    // A paragraph of the source, and its offsets in the source's runs and text.
    struct Place {
        std::size_t paragraph = 0;
        std::size_t run = 0;
        std::size_t unit = 0;
    };

    void seek(std::size_t index);
    std::uint32_t sectionOf(std::size_t index);
    std::uint32_t formatOf(std::uint32_t index);
    std::uint32_t paragraphFormatOf(std::uint32_t index);

    Document result_;
    const Document* source_ = nullptr;
    Place place_;
    // Map indices in the source to indices in the result.
    std::unordered_map<std::uint32_t, std::uint32_t> formats_;
    std::unordered_map<std::uint32_t, std::uint32_t> paragraphFormats_;
};

} // namespace rtf
