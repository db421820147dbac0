#include "desktop/conversions.h"
#include "desktop/editor/rtf_bridge.h"
#include "rtf/rtf_builder.h"

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

rtf::ParagraphFormat paragraphOf(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    const bool bullet = block.textList() != nullptr;
    return {
        .alignment = alignmentOf(format.alignment()),
        .bullet = bullet,
        .leftIndent = twipsOf(format.leftMargin()),
        .rightIndent = twipsOf(format.rightMargin()),
        .firstIndent = bullet ? format.intProperty(FirstIndent) : twipsOf(format.textIndent()),
        .spaceBefore = twipsOf(format.topMargin()),
        .spaceAfter = twipsOf(format.bottomMargin()),
        .list = bytesOf(format, ListWords),
        .kept = bytesOf(format, KeptWords),
    };
}

// Reads a stretch of a document.
class Extraction {
public:
    explicit Extraction(const EditorDocument& document) : document_(document) {}

    void addParagraph(const QTextBlock& block, TextRange range) {
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
            useFormat(block.charFormatIndex(), block.charFormat());
    }

    rtf::DocumentBuilder& builder() { return builder_; }

private:
    void addLetters(const QTextFragment& fragment, qsizetype begin, qsizetype length) {
        const QTextCharFormat format = fragment.charFormat();
        useFormat(fragment.charFormatIndex(), format);
        if (format.objectType() == QTextFormat::ImageObject && format.hasProperty(KeptRange)) {
            const auto index = static_cast<std::size_t>(format.intProperty(KeptRange));
            for (; length > 0 && index < document_.kept.size(); --length)
                builder_.addKept(document_.kept[index]);
            return;
        }
        const QString text = fragment.text();
        builder_.addText(base::TextView(reinterpret_cast<const char16_t*>(text.utf16()) + begin,
                                        static_cast<std::size_t>(length)));
    }

    void useFormat(int index, const QTextCharFormat& format) {
        const auto [known, isNew] = formats_.try_emplace(index);
        if (isNew)
            known->second = lettersOf(format);
        // Fonts and links take their numbers in the order of first use, which is here.
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
        letters.hidden = format.boolProperty(Hidden);
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
    std::unordered_map<int, rtf::CharFormat> formats_; // by their numbers in the document
};

} // namespace

rtf::Document rtfOf(const EditorDocument& document) {
    Extraction extraction(document);
    rtf::DocumentBuilder& builder = extraction.builder();
    builder.section() = document.sections.front();
    // A paragraph that was cut in two has left the mark on both halves: the first one counts.
    std::vector<bool> begun(document.sections.size(), false);
    begun.front() = true;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        extraction.addParagraph(block, {0, document.characterCount()});
        const auto section = static_cast<std::size_t>(block.next().blockFormat().intProperty(SectionIndex));
        if (section >= begun.size() || begun[section]) {
            builder.endParagraph(paragraphOf(block));
            continue;
        }
        begun[section] = true;
        builder.endSection(paragraphOf(block));
        builder.section() = document.sections[section];
    }
    rtf::Document whole = builder.finish(document.lastParagraphEnds);
    whole.pageWords = document.pageWords;
    whole.head = document.head;
    whole.keptTables = document.keptTables;
    return whole;
}

rtf::Document rtfOf(const EditorDocument& document, TextRange range) {
    Extraction extraction(document);
    QTextBlock block = document.findBlock(range.begin);
    bool ends = false;
    // A stretch that ends at the start of a paragraph holds the end of the one before it and no more.
    do {
        extraction.addParagraph(block, range);
        extraction.builder().endParagraph(paragraphOf(block));
        ends = block.position() + block.length() <= range.end && block.next().isValid();
        block = block.next();
    } while (block.isValid() && block.position() < range.end);
    rtf::Document part = extraction.builder().finish(ends);
    if (!part.kept.empty())
        part.keptTables = document.keptTables;
    return part;
}

} // namespace desktop
