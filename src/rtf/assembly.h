// One document from paragraphs of others.
#pragma once

#include "rtf/document.h"

#include <unordered_map>

namespace rtf {

// Builds a document by appending paragraphs of other documents. Formats, fonts and links are merged by value;
// ranges that are kept as RTF come along with the paragraph. Appending costs time in proportion to the
// paragraph alone.
class Assembly {
public:
    // `frame` gives what stands beside the text: paper, head and the tables of its kept ranges.
    explicit Assembly(const Document& frame);

    // Names the document from which the paragraphs to come are taken; it has to outlive their appending.
    void take(const Document& source);
    // Appends paragraph number `index` of that document, counted from 0. Paragraphs are reached fastest in
    // their order.
    void append(std::size_t index);

    // The document so far; the assembly is empty afterwards.
    Document finish();

private:
    // A place in the source, and in the arrays that its paragraphs cut.
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
    // Indexes in the source, and what they became in the result.
    std::unordered_map<std::uint32_t, std::uint32_t> formats_;
    std::unordered_map<std::uint32_t, std::uint32_t> paragraphFormats_;
};

} // namespace rtf
