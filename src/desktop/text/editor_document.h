#pragma once

#include "rtf/document.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextList>
#include <string>
#include <vector>

namespace desktop {

// What formats of Qt have no place for, so that it can be written again.
enum FormatProperty {
    KeptRange = QTextFormat::UserProperty + 1, // of an image: index in EditorDocument::kept
    FontName,                                  // of letters
    Charset,                                   // of letters: number of the Windows character set
    Hidden,                                    // of an image, and of a paragraph without letters
    HiddenText,                                // of an image: the letters that it stands for
    FirstIndent, // of a paragraph with a bullet, twips: Qt sets the sign itself into the margin
    ListWords,   // of a paragraph: bytes of RTF
    KeptWords,
    SectionIndex,    // of a paragraph that begins a section: index in EditorDocument::sections
    PageBreakNumber, // of a paragraph that begins a page: another one for each break
    InParagraph      // of the same: the break lies within a paragraph, which goes on behind it
};

// Twips from the margin to the text of a paragraph that becomes an item of a list.
inline constexpr int bulletIndent = 360;

// Names the font of letters. Qt tells formats from each other by their families one by one, and by a name of
// our own at once; so it gets both. `shown`: else the letters look as those of the usual font do.
void nameFont(QTextCharFormat& format, const QString& name, bool shown = true);

inline double pixelsOfTwips(std::int32_t twips) {
    return twips / 15.0;
}

// The lists that the paragraphs of one edit join with their bullets. Qt goes over all of a list whenever a
// paragraph joins or leaves it: behind some hundreds a new one begins, which looks the same.
class BulletLists {
public:
    static constexpr int longest = 250; // paragraphs

    // The list for the paragraph at the cursor, which may be in it already.
    QTextList& forParagraph(QTextCursor& paragraph);

private:
    QTextList* list_ = nullptr;
    int paragraphs_ = 0;
};

void giveBullet(QTextBlockFormat& format, const QTextList& list);
// With the indents that came with it.
void takeBullet(QTextBlockFormat& format);

// Why a paragraph of Qt begins on a new page.
enum class PageBreak {
    None,
    BeforeParagraph,
    InParagraph, // it is the rest of a paragraph of the file
    Section,
};

// The document of the editor: text and formats as Qt has them, and beside them what a file holds that has no
// place in the text. It keeps no undo.
class EditorDocument : public QTextDocument {
public:
    explicit EditorDocument(const QFont& font);

    // What an image stands for that goes into the text. The range is kept.
    QTextImageFormat anchorOf(std::string range, const QTextCharFormat& letters);

    // The image that stands for letters that are kept, and neither shown nor printed.
    static QTextImageFormat hiddenLetters(const QString& letters, const QTextCharFormat& format);

    // The break in front of a paragraph. One that the user has cut in two has left its mark on both halves:
    // the first one counts.
    PageBreak pageBreakBefore(const QTextBlock& block) const;
    // Gives a paragraph that is not there yet a break of its own.
    // True once a page break has been in the document.
    bool hasPageBreaks() const { return pageBreaks_ > 0; }
    void breakPage(QTextBlockFormat& format) { format.setProperty(PageBreakNumber, ++pageBreaks_); }
    // Cuts the paragraph at the cursor by a page break; the new one begins with these letters.
    void breakPageAt(QTextCursor& cursor, const QTextCharFormat& letters);

    std::vector<std::string> kept; // RTF of pictures, objects, footnotes
    std::vector<rtf::Section> sections = {{}};
    std::string pageWords;
    std::string head;
    rtf::KeptTables keptTables;
    bool lastParagraphEnds = true;

protected:
    // Pictures are read when they are first seen.
    QVariant loadResource(int type, const QUrl& name) override;

private:
    int pageBreaks_ = 0;
};

} // namespace desktop
