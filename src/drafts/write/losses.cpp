#include "drafts/write/losses.h"

namespace drafts {

namespace {

bool sameLook(const rtf::CharFormat& a, const rtf::CharFormat& b) {
    return a.font == b.font && a.size == b.size && a.colour == b.colour && a.background == b.background;
}

} // namespace

Losses lossesOfText(const rtf::Document& document) {
    Losses losses;
    const rtf::CharFormat& usual = document.formats.front();
    for (const rtf::Run& run : document.runs) {
        if (run.kept != rtf::none) {
            const bool picture = document.kept[run.kept].find("\\pict") != std::string::npos;
            (picture ? losses.pictures : losses.objects) = true;
            continue;
        }
        const rtf::CharFormat& format = document.formats[run.format];
        losses.letters = losses.letters || (run.length > 0 && (format.italic || format.underline ||
                                                               format.strike || !sameLook(format, usual)));
    }
    for (const rtf::ParagraphFormat& format : document.paragraphFormats)
        losses.paragraphs = losses.paragraphs || format.alignment != rtf::Alignment::Left || format.bullet ||
                            format.leftIndent != 0 || format.rightIndent != 0 || format.firstIndent != 0;
    for (const rtf::Section& section : document.sections)
        losses.headers = losses.headers || !section.headers.empty();
    return losses;
}

} // namespace drafts
