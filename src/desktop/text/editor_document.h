#pragma once

#include "rtf/document.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextList>
#include <string>
#include <vector>

namespace desktop {

// Properties that Qt's formats lack; they are kept so that saving writes them back.
enum FormatProperty {
    KeptRange = QTextFormat::UserProperty + 1, // image: index in EditorDocument::kept
    FontName,                                  // characters
    Charset,                                   // characters: number of the Windows character set
    Hidden,                                    // image, and paragraph without characters
    HiddenText,                                // image: the text that it stands for
    FirstIndent, // paragraph with a bullet, in twips: Qt itself places the bullet in the margin
    ListWords,   // paragraph: RTF bytes
    KeptWords,
    SectionIndex,    // paragraph that begins a section: index in EditorDocument::sections
    PageBreakNumber, // paragraph that begins a page: a different number for each break
    InParagraph      // likewise: the break lies within a paragraph of the file, which continues after it
};

// Twips from the margin to the text of a paragraph that becomes a list item.
inline constexpr int bulletIndent = 360;

// Sets the font of characters. Qt compares the families of two formats one by one, but our own name property
// at once; therefore it gets both. With `shown` false, the text keeps the look of the default font.
void nameFont(QTextCharFormat& format, const QString& name, bool shown = true);

// The lists that the paragraphs of one edit join when they get bullets. Qt walks the whole list whenever a
// paragraph joins or leaves it, so a new list, which looks the same, begins after some hundred paragraphs.
class BulletLists {
public:
    static constexpr int longest = 250; // paragraphs

    // The list for the paragraph at the cursor. The paragraph may already be in it.
    QTextList& forParagraph(QTextCursor& paragraph);

private:
    QTextList* list_ = nullptr;
    int paragraphs_ = 0;
};

void giveBullet(QTextBlockFormat& format, const QTextList& list);
// Removes the bullet and the indents that it brought.
void takeBullet(QTextBlockFormat& format);

// Why one of Qt's paragraphs begins on a new page.
enum class PageBreak {
    None,
    BeforeParagraph,
    InParagraph, // it continues a paragraph of the file
    Section,
};

// The editor's document: text and formats in Qt's terms, plus the parts of the file that have no place in the
// text. It keeps no undo history.
class EditorDocument : public QTextDocument {
public:
    explicit EditorDocument(const QFont& font);

    // The image to insert into the text for `range`, a piece of RTF, which is stored in `kept`.
    QTextImageFormat anchorOf(std::string range, const QTextCharFormat& letters);

    // The image that stands for hidden text: kept, but neither shown nor printed.
    static QTextImageFormat hiddenLetters(const QString& letters, const QTextCharFormat& format);

    // The break in front of a paragraph. If the user has split the paragraph, both halves carry the mark: the
    // first one counts.
    PageBreak pageBreakBefore(const QTextBlock& block) const;
    // Gives the format of a paragraph that is about to be inserted a page break of its own.
    void breakPage(QTextBlockFormat& format) { format.setProperty(PageBreakNumber, ++pageBreaks_); }
    // Splits the paragraph at the cursor by a page break; the new paragraph begins with the format `letters`.
    void breakPageAt(QTextCursor& cursor, const QTextCharFormat& letters);

    std::vector<std::string> kept; // RTF of pictures, objects and footnotes
    std::vector<rtf::Section> sections = {{}};
    std::string pageWords;
    std::string head;
    rtf::KeptTables keptTables;
    bool lastParagraphEnds = true;
    std::string moments; // as the file had them

protected:
    // Decodes pictures when they are first shown.
    QVariant loadResource(int type, const QUrl& name) override;

private:
    int pageBreaks_ = 0;
};

} // namespace desktop
