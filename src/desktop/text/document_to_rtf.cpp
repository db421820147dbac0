#include "desktop/qt/conversions.h"
#include "desktop/text/rtf_bridge.h"
#include "rtf/builder.h"

#include <QTextBlock>
#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace desktop {

namespace {

std::string bytesOf(const QTextFormat& format, int property) {
    return format.property(property).toByteArray().toStdString();
}

std::int32_t twipsOf(double pixels) {
    return static_cast<std::int32_t>(std::lround(twips(pixels)));
}

rtf::Colour colourOf(const QTextFormat& format, int property) {
    if (!format.hasProperty(property))
        return {};
    const QColor color = format.brushProperty(property).color();
    return {.automatic = false,
            .red = static_cast<std::uint8_t>(color.red()),
            .green = static_cast<std::uint8_t>(color.green()),
            .blue = static_cast<std::uint8_t>(color.blue())};
}

rtf::Alignment alignmentOf(Qt::Alignment alignment) {
    if (alignment & Qt::AlignRight)
        return rtf::Alignment::Right;
    if (alignment & Qt::AlignHCenter)
        return rtf::Alignment::Centre;
    return alignment & Qt::AlignJustify ? rtf::Alignment::Justified : rtf::Alignment::Left;
}

rtf::ParagraphFormat paragraphOf(const QTextBlock& block, PageBreak pageBreak) {
    const QTextBlockFormat format = block.blockFormat();
    const bool bullet = block.textList() != nullptr;
    return {
        .alignment = alignmentOf(format.alignment()),
        .bullet = bullet,
        .pageBreakBefore = pageBreak == PageBreak::BeforeParagraph || pageBreak == PageBreak::InParagraph,
        .leftIndent = twipsOf(format.leftMargin()),
        .rightIndent = twipsOf(format.rightMargin()),
        .firstIndent = bullet ? format.intProperty(FirstIndent) : twipsOf(format.textIndent()),
        .spaceBefore = twipsOf(format.topMargin()),
        .spaceAfter = twipsOf(format.bottomMargin()),
        .list = bytesOf(format, ListWords),
        .kept = bytesOf(format, KeptWords),
    };
}

bool isRestOf(const rtf::ParagraphFormat& whole, const rtf::ParagraphFormat& rest) {
    return rest.alignment == whole.alignment && rest.leftIndent == whole.leftIndent &&
           rest.rightIndent == whole.rightIndent && rest.spaceAfter == whole.spaceAfter &&
           rest.kept == whole.kept && !rest.bullet;
}

// Extracts a range of a document.
class Extraction {
public:
    explicit Extraction(const EditorDocument& document) : document_(document) {}

    void addParagraph(const QTextBlock& block, TextRange range) {
        if (!std::exchange(goesOn_, false))
            paragraph_ = paragraphOf(block, document_.pageBreakBefore(block));
        bool any = false;
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment fragment = piece.fragment();
            const int begin = std::max(fragment.position(), range.begin);
            const int end = std::min(fragment.position() + fragment.length(), range.end);
            if (begin < end)
                addLetters(fragment, begin - fragment.position(), end - begin);
            any = any || begin < end;
        }
        if (!any)
            useFormat(block, block.charFormat().boolProperty(Hidden));
    }

    // True if one paragraph of the file continues in Qt's next paragraph, after a page break. If the user has
    // reformatted only one of the two, each becomes a paragraph of its own.
    bool addPageBreak(const QTextBlock& next) {
        const PageBreak pageBreak = document_.pageBreakBefore(next);
        goesOn_ = pageBreak == PageBreak::InParagraph && isRestOf(paragraph_, paragraphOf(next, pageBreak));
        if (goesOn_) {
            useFormat(next, false);
            builder_.addText(base::TextView(&rtf::pageBreak, 1));
        }
        return goesOn_;
    }

    rtf::ParagraphFormat takeParagraph() { return std::move(paragraph_); }

    rtf::DocumentBuilder& builder() { return builder_; }

private:
    void addLetters(const QTextFragment& fragment, qsizetype begin, qsizetype length) {
        const QTextCharFormat format = fragment.charFormat();
        const bool isImage = format.objectType() == QTextFormat::ImageObject;
        // Text typed right after an image inherits the image's properties although it is none.
        useFormat(fragment, isImage && format.boolProperty(Hidden));
        if (isImage && format.hasProperty(KeptRange)) {
            const auto index = static_cast<std::size_t>(format.intProperty(KeptRange));
            for (; length > 0 && index < document_.kept.size(); --length)
                builder_.addKept(document_.kept[index]);
            return;
        }
        if (isImage && format.hasProperty(HiddenText)) {
            for (const base::Text hidden = text(format.stringProperty(HiddenText)); length > 0; --length)
                builder_.addText(hidden);
            return;
        }
        const QString text = fragment.text();
        builder_.addText(base::TextView(reinterpret_cast<const char16_t*>(text.utf16()) + begin,
                                        static_cast<std::size_t>(length)));
    }

    void useFormat(const auto& part, bool hidden) {
        const auto [known, isNew] = formats_.try_emplace(part.charFormatIndex());
        if (isNew)
            known->second = lettersOf(part.charFormat());
        known->second.hidden = hidden;
        // Fonts and links are numbered in the order of their first use, which is here.
        builder_.useFormat(known->second);
    }

    rtf::CharFormat lettersOf(const QTextCharFormat& format) {
        const QFont usual = document_.defaultFont();
        const double size = format.fontPointSize() > 0 ? format.fontPointSize() : usual.pointSizeF();
        rtf::CharFormat letters;
        letters.font = builder_.font(
            {.name = text(format.hasProperty(FontName) ? format.stringProperty(FontName) : usual.family()),
             .charset = format.intProperty(Charset)});
        if (format.isAnchor() && !format.anchorHref().isEmpty())
            letters.link = builder_.link(text(format.anchorHref()));
        letters.size = static_cast<std::uint16_t>(std::clamp(std::lround(size * 2), 1L, 3276L));
        letters.bold = format.fontWeight() >= QFont::DemiBold;
        letters.italic = format.fontItalic();
        letters.underline = format.fontUnderline();
        letters.strike = format.fontStrikeOut();
        letters.capitals = format.fontCapitalization() == QFont::AllUppercase;
        letters.smallCapitals = format.fontCapitalization() == QFont::SmallCaps;
        letters.raised = format.verticalAlignment() == QTextCharFormat::AlignSuperScript ? rtf::Raised::Super
                         : format.verticalAlignment() == QTextCharFormat::AlignSubScript ? rtf::Raised::Sub
                                                                                         : rtf::Raised::No;
        letters.colour = colourOf(format, QTextFormat::ForegroundBrush);
        letters.background = colourOf(format, QTextFormat::BackgroundBrush);
        return letters;
    }

    const EditorDocument& document_;
    rtf::DocumentBuilder builder_;
    std::unordered_map<int, rtf::CharFormat> formats_; // by Qt's format index
    rtf::ParagraphFormat paragraph_;                   // as the paragraph of the file begins
    bool goesOn_ = false;                              // Qt's next paragraph continues this one
};

} // namespace

rtf::Document rtfOf(const EditorDocument& document) {
    FileMap map;
    return rtfOf(document, map);
}

rtf::Document rtfOf(const EditorDocument& document, FileMap& map) {
    map = {{}, std::vector<int>(document.sections.size(), -1)};
    rtf::Document whole = rtfOf(document, 0, document.blockCount(), map);
    whole.lastParagraphEnds = document.lastParagraphEnds;
    whole.pageWords = document.pageWords;
    whole.head = document.head;
    whole.keptTables = document.keptTables;
    return whole;
}

rtf::Document rtfOf(const EditorDocument& document, int first, int end, FileMap& map) {
    Extraction extraction(document);
    rtf::DocumentBuilder& builder = extraction.builder();
    // If a paragraph with a section mark was split, both halves carry the mark: the first one counts.
    const auto begins = [&](std::size_t section, int paragraph) {
        if (section >= map.sections.size() || map.sections[section] != -1)
            return false;
        map.sections[section] = paragraph;
        return true;
    };
    const auto marked = [](const QTextBlock& block) {
        return static_cast<std::size_t>(block.blockFormat().intProperty(SectionIndex));
    };
    QTextBlock block = document.findBlockByNumber(first);
    if (const std::size_t section = first == 0 ? 0 : marked(block); begins(section, first))
        builder.section() = document.sections[section];
    for (int next = first + 1; next <= end; ++next) {
        extraction.addParagraph(block, {0, document.characterCount()});
        block = block.next();
        if (next < end && extraction.addPageBreak(block)) {
            map.rests.push_back(next);
        } else if (next < end && begins(marked(block), next)) {
            builder.endSection(extraction.takeParagraph());
            builder.section() = document.sections[marked(block)];
        } else {
            builder.endParagraph(extraction.takeParagraph());
        }
    }
    rtf::Document part = builder.finish(true);
    if (!part.kept.empty())
        part.keptTables = document.keptTables;
    return part;
}

rtf::Document rtfOf(const EditorDocument& document, TextRange range) {
    Extraction extraction(document);
    QTextBlock block = document.findBlock(range.begin);
    bool ends = false;
    bool goesOn = false;
    // A range that ends at the start of a paragraph includes the end of the previous paragraph and nothing of
    // this one.
    do {
        extraction.addParagraph(block, range);
        block = block.next();
        ends = block.isValid() && block.position() <= range.end;
        goesOn = ends && extraction.addPageBreak(block);
        if (!goesOn)
            extraction.builder().endParagraph(extraction.takeParagraph());
    } while (block.isValid() && block.position() < range.end);
    if (goesOn)
        extraction.builder().endParagraph(extraction.takeParagraph());
    rtf::Document part = extraction.builder().finish(ends && !goesOn);
    if (!part.kept.empty())
        part.keptTables = document.keptTables;
    return part;
}

} // namespace desktop
