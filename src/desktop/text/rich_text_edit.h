#pragma once

#include "base/code_page.h"
#include "desktop/clipboard/qt_clipboard.h"
#include "desktop/text/changed_paragraphs.h"
#include "desktop/text/changed_stretch.h"
#include "desktop/text/editor_document.h"
#include "desktop/text/editor_layout.h"
#include "desktop/text/text_units.h"
#include "platform/rich_text.h"

#include <QBasicTimer>
#include <QTextEdit>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>

namespace desktop {

// The rich-text control of the editor, on Qt's.
class RichTextEdit : public QTextEdit, public platform::RichText {
public:
    // `page` is that of text files without a mark.
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

    void setSelFontName(base::TextView name) override;
    std::optional<double> SelFontSize() const override;
    void setSelFontSize(double points) override;
    void setSelColor(std::uint32_t color) override;
    platform::Setting SelBold() const override;
    void setSelBold(bool on) override;
    platform::Setting SelItalic() const override;
    void setSelItalic(bool on) override;
    platform::Setting SelUnderline() const override;
    void setSelUnderline(bool on) override;
    platform::Setting SelStrikeThru() const override;
    void setSelStrikeThru(bool on) override;
    platform::Setting SelBullet() const override;
    void setSelBullet(bool on) override;
    void setSelAlignment(platform::ParagraphAlignment alignment) override;

    void LoadFile(base::TextView path) override;
    void SaveFile(base::TextView path) override;
    void SelPrint(platform::PrintDevice& hDC) override;
    std::int32_t Find(base::TextView text, std::optional<std::int32_t> start, int options) override;
    void SetFocus() override;
    void together(const std::function<void()>& edits) override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void timerEvent(QTimerEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    // Takes the selection out and puts what it offers in at that place, in two changes. Dropped on itself it
    // stays.
    void moveSelection(const QMimeData& offer, const QTextCursor& place);

private:
    // What a change of the document that leaves its length alone is taken for.
    enum class SameLength { Format, Replacement };

    // An edit that is under way, also when it fails.
    class Editing {
    public:
        Editing(RichTextEdit& control, SameLength meaning) : control_(control), before_(control.sameLength_) {
            ++control_.editing_;
            if (meaning == SameLength::Replacement)
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

    // Does something that may change the text; tells of the change, once, when all is done.
    template <typename Work>
    void edit(SameLength meaning, Work&& work);
    void noteChange(int position, int removed, int added);
    void exchangeDocument(std::unique_ptr<EditorDocument> document);
    // The selection, which runs ahead of the one on the screen while several edits are under way.
    QTextCursor caret() const { return ahead_ ? *ahead_ : textCursor(); }
    void setCaret(const QTextCursor& cursor);
    TextRange selectedRange() const;
    void replaceSelection(base::TextView text);
    void insertSource(const rtf::Document& source);
    // What an edit of the selection that leaves the length of the text alone has done.
    SameLength sameLengthNow() const {
        return caret().hasSelection() ? SameLength::Replacement : SameLength::Format;
    }
    void replaceSelection(const std::function<void(QTextCursor&)>& insert);
    // Does something that replaces estimated heights by measured ones, and keeps what is seen in its place.
    void keepView(const std::function<void()>& measure);
    void paintPageBreaks(const QRect& area);
    void putMeasuringOff();
    // Inserts what was selected last, be it in another program, where `place` leads the caret.
    void pasteSelection(const std::function<void()>& place);

    base::CodePage page_;
    EditorDocument* document_ = nullptr; // a child of this
    EditorLayout* layout_ = nullptr;     // a child of the document
    QBasicTimer measuring_;              // runs while heights are estimated
    bool keepsView_ = false;
    int editing_ = 0; // how many edits are under way, one within the other
    SameLength sameLength_ = SameLength::Format;
    bool changed_ = false;
    ChangedStretch stretch_;          // of what nobody has asked for yet
    ChangedParagraphs paragraphs_;    // likewise, formats included
    std::set<std::uint64_t> pressed_; // keys by their places that went down in the text and are not up again
    QtClipboard selection_{QClipboard::Selection};
    std::optional<QTextCursor> ahead_; // only while several edits are done together
};

// Runs in the control's own files only.
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
