#include "desktop/qt/conversions.h"
#include "desktop/text/rtf_bridge.h"

#include <QTextBlock>
#include <algorithm>

namespace desktop {

namespace {

QByteArray bytesOf(const std::string& words) {
    return {words.data(), static_cast<qsizetype>(words.size())};
}

QColor colorOf(const rtf::Colour& colour) {
    return {colour.red, colour.green, colour.blue};
}

Qt::Alignment alignmentOf(rtf::Alignment alignment) {
    switch (alignment) {
    case rtf::Alignment::Right:
        return Qt::AlignRight;
    case rtf::Alignment::Centre:
        return Qt::AlignHCenter;
    case rtf::Alignment::Justified:
        return Qt::AlignJustify;
    case rtf::Alignment::Left:
        break;
    }
    return Qt::AlignLeft;
}

// Qt searches the system's fonts once for each font. A real text uses a few; an artificial one with thousands
// must not stall the program.
constexpr std::uint32_t mostFontsShown = 1000;

QTextCharFormat lettersOf(const rtf::CharFormat& source, const rtf::Document& document) {
    QTextCharFormat format;
    if (source.font < document.fonts.size()) {
        const rtf::Font& font = document.fonts[source.font];
        nameFont(format, qstring(font.name), source.font < mostFontsShown);
        if (font.charset != 0)
            format.setProperty(Charset, font.charset);
    }
    format.setFontPointSize(source.size / 2.0);
    if (source.bold)
        format.setFontWeight(QFont::Bold);
    if (source.italic)
        format.setFontItalic(true);
    if (source.underline)
        format.setFontUnderline(true);
    if (source.strike)
        format.setFontStrikeOut(true);
    if (source.hidden)
        format.setProperty(Hidden, true);
    if (source.capitals)
        format.setFontCapitalization(QFont::AllUppercase);
    else if (source.smallCapitals)
        format.setFontCapitalization(QFont::SmallCaps);
    if (source.raised != rtf::Raised::No)
        format.setVerticalAlignment(source.raised == rtf::Raised::Super ? QTextCharFormat::AlignSuperScript
                                                                        : QTextCharFormat::AlignSubScript);
    if (!source.colour.automatic)
        format.setForeground(colorOf(source.colour));
    if (!source.background.automatic)
        format.setBackground(colorOf(source.background));
    if (source.link != rtf::none) {
        format.setAnchor(true);
        format.setAnchorHref(qstring(document.links[source.link]));
    }
    return format;
}

QTextBlockFormat paragraphOf(const rtf::ParagraphFormat& source) {
    QTextBlockFormat format;
    format.setAlignment(alignmentOf(source.alignment));
    format.setLeftMargin(pixelsOfTwips(source.leftIndent));
    format.setRightMargin(pixelsOfTwips(source.rightIndent));
    format.setTextIndent(pixelsOfTwips(source.firstIndent));
    format.setTopMargin(pixelsOfTwips(source.spaceBefore));
    format.setBottomMargin(pixelsOfTwips(source.spaceAfter));
    if (!source.list.empty())
        format.setProperty(ListWords, bytesOf(source.list));
    if (!source.kept.empty())
        format.setProperty(KeptWords, bytesOf(source.kept));
    return format;
}

// Inserts one source into a document.
class Insertion {
public:
    Insertion(QTextCursor& cursor, EditorDocument& document, const rtf::Document& source, bool sections)
        : cursor_(cursor), document_(document), source_(source), sections_(sections) {
        letters_.reserve(source.formats.size());
        for (const rtf::CharFormat& format : source.formats)
            letters_.push_back(lettersOf(format, source));
        paragraphs_.reserve(source.paragraphFormats.size());
        for (const rtf::ParagraphFormat& format : source.paragraphFormats)
            paragraphs_.push_back(paragraphOf(format));
    }

    // `formatFirst`: the paragraph at the cursor takes the format of the source's first paragraph.
    void run(bool formatFirst) {
        for (std::size_t index = 0; index < source_.paragraphs.size(); ++index) {
            const rtf::Paragraph& paragraph = source_.paragraphs[index];
            const QTextCharFormat& first = letters_[source_.runs[run_].format];
            if (index > 0)
                cursor_.insertBlock(blockFormat(paragraph), first);
            else if (formatFirst)
                cursor_.setBlockFormat(blockFormat(paragraph));
            if (index == 0 && paragraph.length == 0 && cursor_.block().length() == 1)
                cursor_.setBlockCharFormat(first);
            if (index > 0 || formatFirst)
                makeItem(paragraph);
            for (const std::size_t end = run_ + paragraph.runs; run_ < end; ++run_)
                insert(source_.runs[run_]);
        }
    }

private:
    QTextBlockFormat blockFormat(const rtf::Paragraph& paragraph) {
        QTextBlockFormat format = paragraphs_[paragraph.format];
        if (source_.paragraphFormats[paragraph.format].pageBreakBefore)
            document_.breakPage(format);
        if (sections_ && paragraph.section != rtf::none)
            format.setProperty(SectionIndex, static_cast<int>(paragraph.section));
        return format;
    }

    // Qt can only add an existing paragraph to a list.
    void makeItem(const rtf::Paragraph& paragraph) {
        if (!source_.paragraphFormats[paragraph.format].bullet)
            return;
        QTextBlockFormat format = cursor_.blockFormat();
        giveBullet(format, lists_.forParagraph(cursor_));
        cursor_.setBlockFormat(format);
    }

    void insert(const rtf::Run& run) {
        const QTextCharFormat& letters = letters_[run.format];
        if (run.kept != rtf::none)
            cursor_.insertText(QString(QChar(rtf::anchorUnit)),
                               document_.anchorOf(source_.kept[run.kept], letters));
        else if (run.length > 0 && source_.formats[run.format].hidden)
            cursor_.insertText(QString(QChar(rtf::anchorUnit)),
                               EditorDocument::hiddenLetters(qstring(textOf(run)), letters));
        else if (run.length > 0)
            insertText(textOf(run), letters);
        at_ += run.length;
    }

    base::TextView textOf(const rtf::Run& run) const {
        return base::TextView(source_.text).substr(at_, run.length);
    }

    void insertText(base::TextView text, const QTextCharFormat& letters) {
        for (std::size_t page = 0; (page = text.find(rtf::pageBreak)) != base::TextView::npos;) {
            cursor_.insertText(uncopied(text.substr(0, page)), letters);
            document_.breakPageAt(cursor_, letters);
            text.remove_prefix(page + 1);
        }
        cursor_.insertText(uncopied(text), letters);
    }

    // A view without copying: the document makes its own copy.
    static QString uncopied(base::TextView text) {
        return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()),
                                    static_cast<qsizetype>(text.size()));
    }

    QTextCursor& cursor_;
    EditorDocument& document_;
    const rtf::Document& source_;
    bool sections_;
    std::vector<QTextCharFormat> letters_;
    std::vector<QTextBlockFormat> paragraphs_;
    BulletLists lists_;
    std::size_t run_ = 0;
    std::size_t at_ = 0; // position in the source's text
};

// A font or colour number that the document already uses keeps its meaning: its kept RTF was written with it.
void joinTables(rtf::KeptTables& tables, const rtf::KeptTables& more) {
    for (const rtf::NumberedFont& font : more.fonts)
        if (std::none_of(tables.fonts.begin(), tables.fonts.end(),
                         [&](const rtf::NumberedFont& known) { return known.number == font.number; }))
            tables.fonts.push_back(font);
    for (std::size_t i = tables.colours.size(); i < more.colours.size(); ++i)
        tables.colours.push_back(more.colours[i]);
}

} // namespace

std::unique_ptr<EditorDocument> documentOfRtf(rtf::Document source, const QFont& font) {
    auto document = std::make_unique<EditorDocument>(font);
    QTextCursor cursor(document.get());
    cursor.beginEditBlock();
    Insertion(cursor, *document, source, true).run(true);
    cursor.endEditBlock();
    document->lastParagraphEnds = source.lastParagraphEnds;
    document->pageWords = std::move(source.pageWords);
    document->head = std::move(source.head);
    document->keptTables = std::move(source.keptTables);
    document->moments = std::move(source.moments);
    if (!source.sections.empty())
        document->sections = std::move(source.sections);
    return document;
}

void insertRtf(QTextCursor& cursor, EditorDocument& document, const rtf::Document& source) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    if (!source.kept.empty())
        joinTables(document.keptTables, source.keptTables);
    const QTextBlockFormat before = cursor.blockFormat();
    const bool several = source.paragraphs.size() + (source.lastParagraphEnds ? 1 : 0) > 1;
    const bool behindIsEmpty = cursor.atBlockEnd();
    if (!source.paragraphs.empty()) {
        Insertion(cursor, document, source, false)
            .run(cursor.atBlockStart() && (several || (behindIsEmpty && !source.text.empty())));
        if (source.lastParagraphEnds)
            cursor.insertBlock(before, cursor.charFormat());
        else if (several && !behindIsEmpty)
            cursor.setBlockFormat(before);
    }
    cursor.endEditBlock();
}

} // namespace desktop
