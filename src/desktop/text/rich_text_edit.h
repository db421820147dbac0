#pragma once

#include "base/code_page.h"
#include "desktop/clipboard/qt_clipboard.h"
#include "desktop/text/changed_paragraphs.h"
#include "desktop/text/changed_stretch.h"
#include "desktop/text/editor_document.h"
#include "desktop/text/editor_layout.h"
#include "desktop/text/file_paragraphs.h"
#include "desktop/text/text_units.h"
#include "platform/rich_text.h"

#include <QBasicTimer>
#include <QTextEdit>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace desktop {

// The editor's rich-text control, based on QTextEdit.
class RichTextEdit : public QTextEdit, public platform::RichText {
public:
    // `page` is the code page of text files without a byte order mark.
    explicit RichTextEdit(const base::CodePage& page, QWidget* parent = nullptr);
    ~RichTextEdit() override;

    base::Text Text() const override;
    void setText(base::TextView text) override;
    std::int32_t textLength() const override;
    platform::TextChange takeChange() override;
    std::optional<platform::ParagraphChange> takeParagraphs() override;
    std::string takeAllParagraphs() override;
    std::string source() const override;
    void setSource(std::string_view source) override;

    std::int32_t SelStart() const override;
    void setSelStart(std::int32_t position) override;
    std::int32_t SelLength() const override;
    void setSelLength(std::int32_t length) override;

    base::Text SelText() const override;
    void setSelText(base::TextView text) override;
    base::Text SelRTF() const override;
    void setSelRTF(base::TextView source) override;
    void insert(base::TextView source, const std::string& beside) override;

    void setSelFontName(base::TextView name) override;
    std::optional<double> SelFontSize() const override;
    void setSelFontSize(double points) override;
    void setSelColor(std::uint32_t color) override;
    platform::Setting SelBold() const override;
    void setSelBold(bool on) override;
    bool isBold(std::int32_t position) const override;
    platform::Setting SelItalic() const override;
    void setSelItalic(bool on) override;
    platform::Setting SelUnderline() const override;
    void setSelUnderline(bool on) override;
    platform::Setting SelStrikeThru() const override;
    void setSelStrikeThru(bool on) override;
    platform::Setting SelBullet() const override;
    void setSelBullet(bool on) override;
    std::optional<platform::ParagraphAlignment> SelAlignment() const override;
    void setSelAlignment(platform::ParagraphAlignment alignment) override;

    void LoadFile(base::TextView path) override;
    void SaveFile(base::TextView path) override;
    void SelPrint(platform::PrintDevice& hDC) override;
    void printSource(std::string_view source, platform::PrintDevice& device) override;
    std::string exported(std::string_view source, platform::ExportForm form) override;
    std::int32_t Find(base::TextView text, std::optional<std::int32_t> start, int options) override;
    void SetFocus() override;
    bool isTyping() const override { return typing_; }
    bool offer(base::TextView letters) override;
    void together(const std::function<void()>& edits) override;
    void besideChanged(std::int32_t position) override;
    void marksChanged(std::int32_t position, std::int32_t length) override;
    void scrollTo(std::int32_t position, std::int32_t length) override;

    // Enlarges the view of the text, in percent; the document and its sizes stay.
    void setZoom(int percent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    // Removes the selection and inserts `offer` at `place`, as two changes. A selection dropped on itself
    // stays.
    void moveSelection(const QMimeData& offer, const QTextCursor& place);

private:
    // How to interpret a document change that keeps the length of the text. Display: the document itself
    // stays the same, as while an input method composes.
    enum class SameLength { Format, Replacement, Display };

    // Marks that an edit is running; ends with the scope, also after an exception.
    class Editing {
    public:
        Editing(RichTextEdit& control, SameLength meaning) : control_(control), before_(control.sameLength_) {
            ++control_.editing_;
            if (meaning != SameLength::Format)
                control_.sameLength_ = meaning;
        }
        Editing(const Editing&) = delete;
        Editing& operator=(const Editing&) = delete;
        ~Editing() {
            --control_.editing_;
            control_.sameLength_ = before_;
        }

    private:
        RichTextEdit& control_;
        SameLength before_;
    };

    // Runs `work`, which may change the text, and reports one change after the outermost edit.
    template <typename Work>
    void edit(SameLength meaning, Work&& work);
    // The same for `work` by which the user types.
    void type(SameLength meaning, const std::function<void()>& work);
    // Handles the keys of paragraphs that Qt's control does not know.
    bool runParagraphKey(const QKeyEvent& event);
    void noteChange(int position, int removed, int added);
    void noteTogether(int start, int removed, int added);
    void completeReport();
    // Runs `work`, which replaces the selection by letters with this beside them.
    void arriving(const std::string& beside, const std::function<void()>& work);
    void exchangeDocument(std::unique_ptr<EditorDocument> document);
    // Replaces the whole text, as one change.
    void replaceWhole(std::unique_ptr<EditorDocument> document);
    // The selection. While several edits run together, it is ahead of the one on the screen.
    QTextCursor caret() const { return ahead_ ? *ahead_ : textCursor(); }
    void setCaret(const QTextCursor& cursor);
    void mergeLetters(const QTextCharFormat& format);
    TextRange selectedRange() const;
    void replaceSelection(base::TextView text);
    void print(rtf::Document source, platform::PrintDevice& device) const;
    void insertSource(const rtf::Document& source);
    // The meaning of an edit of the current selection that keeps the length of the text.
    SameLength sameLengthNow() const {
        return caret().hasSelection() ? SameLength::Replacement : SameLength::Format;
    }
    void replaceSelection(const std::function<void(QTextCursor&)>& insert);
    // Runs `measure`, which replaces estimated heights by measured ones, without moving what is visible.
    void keepView(const std::function<void()>& measure);
    void paintPageBreaks(const QRect& area);
    void paintMarks(const QRect& area);
    void paintOffer();
    // Where offered letters would stand, in the viewport.
    QRectF offerPlace() const;
    // The font of what is typed at the caret, as large as the view shows it.
    QFont fontAtCaret() const;
    // Where this part of the text is in the viewport; a rectangle for each of two lines.
    std::vector<QRect> rectanglesOf(std::int32_t position, std::int32_t length) const;
    std::vector<QRect> rectanglesBetween(int begin, int end) const;
    // The letter at a point of the viewport; nothing beside the text.
    std::optional<std::int32_t> letterAt(const QPoint& point) const;
    // The pointer is a hand over what a click with Ctrl has a use for.
    void showPointer(const QPoint& place, Qt::KeyboardModifiers modifiers);
    void putMeasuringOff();
    // Inserts the primary selection, which may belong to another program; `place` first moves the caret.
    void pasteSelection(const std::function<void()>& place);

    base::CodePage page_;
    EditorDocument* document_ = nullptr; // owned by this
    EditorLayout* layout_ = nullptr;     // owned by the document
    QBasicTimer measuring_;              // active while heights are estimated
    bool keepsView_ = false;
    int editing_ = 0; // depth of nested edits
    SameLength sameLength_ = SameLength::Format;
    bool changed_ = false;
    ChangedStretch stretch_;          // changes not yet taken
    ChangedParagraphs paragraphs_;    // likewise, formats included
    FileParagraphs filed_;            // as taken before
    std::set<std::uint64_t> pressed_; // keys (by physical position) pressed in the text and not yet released
    bool typing_ = false;
    QString offered_; // stands at this caret of this revision of the document
    int offeredAt_ = 0;
    int offeredTo_ = 0;
    int zoom_ = 100;  // percent
    int wheeled_ = 0; // eighths of a degree that have not yet made a step of the zoom
    QtClipboard selection_{QClipboard::Selection};
    std::optional<QTextCursor> ahead_;  // set only while edits run together
    std::optional<TextRange> together_; // what these have changed, until Qt has reported all of it
};

// Used only in the control's own source files.
template <typename Work>
void RichTextEdit::edit(SameLength meaning, Work&& work) {
    {
        const Editing whileAtIt(*this, meaning);
        work();
    }
    if (editing_ > 0 || !changed_)
        return;
    changed_ = false;
    Change();
}

} // namespace desktop
