#include "rtf/document.h"

namespace rtf {

Text plainText(const Document& document) {
    Text plain;
    plain.reserve(document.text.size() + document.paragraphs.size());
    std::size_t at = 0;
    std::size_t run = 0;
    for (std::size_t index = 0; index < document.paragraphs.size(); ++index) {
        if (index > 0)
            plain += u'\n';
        for (const std::size_t end = run + document.paragraphs[index].runs; run < end; ++run) {
            const Run& piece = document.runs[run];
            if (piece.kept == none && !document.formats[piece.format].hidden)
                for (const char16_t unit : TextView(document.text).substr(at, piece.length))
                    plain += unit == lineBreak || unit == pageBreak ? u'\n' : unit;
            at += piece.length;
        }
    }
    return plain;
}

} // namespace rtf
