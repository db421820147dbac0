#include "desktop/text/rich_text_edit.h"

#include "base/failure.h"
#include "desktop/clipboard/rtf_source.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/keyboard_order.h"
#include "desktop/text/layout_limits.h"
#include "desktop/text/load_document.h"
#include "desktop/text/rtf_bridge.h"
#include "desktop/text/text_search.h"
#include "desktop/text/text_units.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <QGuiApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <utility>

namespace desktop {

namespace {

// Shows the wait cursor while a text is inserted that takes noticeable time.
class Hourglass {
public:
    explicit Hourglass(std::size_t units) : shown_(units > longText) {
        if (shown_)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() {
        if (shown_)
            QGuiApplication::restoreOverrideCursor();
    }

private:
    static constexpr std::size_t longText = 4'000'000;

    bool shown_;
};

void refuseIf(bool tooLarge) {
    if (tooLarge)
        throw base::Failure("The text is too large to be inserted");
}

base::Text withCrLf(const QString& text) {
    return programText(text, static_cast<int>(text.count(QChar(documentParagraphEnd))));
}

// The text between two positions, without the end of the last paragraph, which the document counts too.
QString textBetween(QTextDocument& document, int begin, int end) {
    end = std::min(end, document.characterCount() - 1);
    // Most changes are one or two characters: reading these is cheaper than creating a cursor.
    constexpr int few = 4;
    if (end - begin <= few) {
        QString text;
        for (int place = begin; place < end; ++place)
            text += document.characterAt(place);
        return text;
    }
    QTextCursor cursor(&document);
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

// In RTF, an empty last paragraph exists only if its end is written.
std::string withAllEnds(rtf::Document paragraphs) {
    paragraphs.lastParagraphEnds = true;
    return rtf::write(paragraphs);
}

} // namespace

RichTextEdit::RichTextEdit(const base::CodePage& page, QWidget* parent) : QTextEdit(parent), page_(page) {
    setFont(QFont(QStringLiteral("Arial"), 12));
    setContextMenuPolicy(Qt::PreventContextMenu);
    viewport()->setMouseTracking(true);
    connect(this, &QTextEdit::cursorPositionChanged, this, [this] {
        if (!offered_.isEmpty())
            viewport()->update();
    });
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { Scrolled(); });
    exchangeDocument(std::make_unique<EditorDocument>(font()));
}

RichTextEdit::~RichTextEdit() {
    document_->disconnect(this);
}

// The new document is filled before it is set: one that a control watches while it grows is many times
// slower.
void RichTextEdit::exchangeDocument(std::unique_ptr<EditorDocument> document) {
    EditorDocument* const before = document_;
    document_ = document.release();
    document_->setParent(this);
    layout_ = new EditorLayout(*document_);
    layout_->setZoom(zoom_, logicalDpiY());
    document_->setDocumentLayout(layout_);
    connect(document_, &QTextDocument::contentsChange, this, [this](int position, int removed, int added) {
        // The layout has only the changed paragraphs painted, but the first steps cover more.
        if (document_->isEmpty() || document_->characterCount() - added + removed <= 1)
            viewport()->update();
        // For edits that run together, each one has already noted its own change.
        paragraphs_.note(*document_, position, added);
        if (!ahead_)
            noteChange(position, removed, added);
        else if (together_ && position <= together_->begin && position + added >= together_->end)
            together_.reset();
        Edited();
    });
    setDocument(document_);
    // Otherwise Qt would continue to type in the format of the old text.
    setTextCursor(QTextCursor(document_));
    // Deleting a large document takes a fifth of the time that opening one takes: not before the first paint.
    if (before != nullptr)
        before->deleteLater();
    stretch_.noteAll(*document_);
    paragraphs_.noteAll();
    Edited();
}

void RichTextEdit::noteChange(int position, int removed, int added) {
    if (removed == added && sameLength_ != SameLength::Replacement) {
        if (sameLength_ == SameLength::Format)
            Formatted();
        return;
    }
    stretch_.note(*document_, position, removed, added);
    changed_ = true;
    putMeasuringOff();
    if (editing_ == 0)
        edit(SameLength::Format, [] {});
}

void RichTextEdit::noteTogether(int start, int removed, int added) {
    paragraphs_.note(*document_, start, added);
    const TextRange before = together_.value_or(TextRange{start, start});
    together_ = {std::min(before.begin, start), std::max(before.end, start + removed) + added - removed};
    noteChange(start, removed, added);
}

base::Text RichTextEdit::Text() const {
    return programText(document_->toRawText(), document_->blockCount() - 1);
}

void RichTextEdit::setText(base::TextView text) {
    replaceWhole(documentOfText(text, font()));
}

void RichTextEdit::replaceWhole(std::unique_ptr<EditorDocument> document) {
    edit(SameLength::Format, [&] {
        Arrives(0, textLength(), document->moments);
        exchangeDocument(std::move(document));
        changed_ = true;
    });
}

std::int32_t RichTextEdit::textLength() const {
    return programLength(*document_);
}

platform::TextChange RichTextEdit::takeChange() {
    const ChangedStretch::Both stretch = stretch_.take();
    const int begin = stretch.document.begin;
    return {stretch.program.begin, stretch.program.removed,
            withCrLf(textBetween(*document_, begin, begin + stretch.document.added))};
}

std::int32_t RichTextEdit::SelStart() const {
    return programPosition(*document_, caret().selectionStart());
}

void RichTextEdit::setSelStart(std::int32_t position) {
    QTextCursor cursor = caret();
    cursor.setPosition(documentPosition(*document_, position));
    setCaret(cursor);
}

std::int32_t RichTextEdit::SelLength() const {
    const QTextCursor cursor = caret();
    return programPosition(*document_, cursor.selectionEnd()) -
           programPosition(*document_, cursor.selectionStart());
}

void RichTextEdit::setSelLength(std::int32_t length) {
    QTextCursor cursor = caret();
    const int start = cursor.selectionStart();
    const std::int64_t end = programPosition(*document_, start) + std::int64_t{std::max(length, 0)};
    cursor.setPosition(start);
    cursor.setPosition(documentPosition(*document_, end), QTextCursor::KeepAnchor);
    setCaret(cursor);
}

void RichTextEdit::setCaret(const QTextCursor& cursor) {
    if (ahead_)
        ahead_ = cursor;
    else
        setTextCursor(cursor);
}

TextRange RichTextEdit::selectedRange() const {
    const QTextCursor cursor = caret();
    return {cursor.selectionStart(), cursor.selectionEnd()};
}

base::Text RichTextEdit::SelText() const {
    return withCrLf(caret().selectedText());
}

void RichTextEdit::setSelText(base::TextView text) {
    edit(sameLengthNow(), [&] { replaceSelection(text); });
}

void RichTextEdit::replaceSelection(base::TextView text) {
    replaceSelection([&](QTextCursor& cursor) { cursor.insertText(documentText(text)); });
}

void RichTextEdit::replaceSelection(const std::function<void(QTextCursor&)>& insert) {
    QTextCursor cursor = caret();
    const int before = document_->characterCount();
    const int start = cursor.selectionStart();
    const int removed = cursor.selectionEnd() - start;
    insert(cursor);
    if (const int added = document_->characterCount() - before + removed; ahead_ && removed + added > 0)
        noteTogether(start, removed, added);
    setCaret(cursor);
}

base::Text RichTextEdit::SelRTF() const {
    const std::string source = rtf::write(rtfOf(*document_, selectedRange()));
    return {source.begin(), source.end()};
}

void RichTextEdit::setSelRTF(base::TextView source) {
    const Hourglass untilDone(source.size());
    edit(sameLengthNow(), [&] {
        if (isRtfSource(source)) {
            insertSource(rtf::read(rtfBytes(source)));
            return;
        }
        refuseIf(cannotBeLaidOut(source));
        replaceSelection(source);
    });
}

void RichTextEdit::insert(base::TextView source, const std::string& beside) {
    arriving(beside, [&] { setSelRTF(source); });
}

void RichTextEdit::arriving(const std::string& beside, const std::function<void()>& work) {
    if (beside.empty()) {
        work();
        return;
    }
    const std::int32_t before = textLength();
    const std::int32_t removed = SelLength();
    Arrives(SelStart(), removed, beside);
    try {
        work();
    } catch (...) {
        Arrives(-1, 0, {});
        throw;
    }
    if (removed == 0 && textLength() == before)
        Arrives(-1, 0, {});
}

void RichTextEdit::insertSource(const rtf::Document& source) {
    refuseIf(cannotBeLaidOut(source));
    replaceSelection([&](QTextCursor& cursor) { insertRtf(cursor, *document_, source); });
}

std::optional<platform::ParagraphChange> RichTextEdit::takeParagraphs() {
    if (!paragraphs_.changed())
        return std::nullopt;
    const ChangedParagraphs::Range range = paragraphs_.take(*document_);
    auto changed = range.whole ? std::nullopt : filed_.take(*document_, range);
    if (!changed)
        return platform::ParagraphChange{0, 0, takeAllParagraphs(), true};
    platform::ParagraphChange change{changed->first, changed->removed, {}, false};
    if (changed->begin < changed->end) {
        const QTextBlock behind = document_->findBlockByNumber(changed->end);
        const int end = behind.isValid() ? behind.position() : document_->characterCount();
        const std::int32_t first =
            programPosition(*document_, document_->findBlockByNumber(changed->begin).position());
        changed->part.moments = Beside(first, programPosition(*document_, end) - first);
        change.source = withAllEnds(std::move(changed->part));
    }
    return change;
}

std::string RichTextEdit::takeAllParagraphs() {
    paragraphs_.take(*document_);
    rtf::Document whole = filed_.takeAll(*document_);
    whole.moments = Beside(0, textLength());
    return withAllEnds(std::move(whole));
}

std::int32_t RichTextEdit::Find(base::TextView text, std::optional<std::int32_t> start, int options) {
    const int from = start ? documentPosition(*document_, *start) : caret().selectionStart();
    const auto hit = findText(*document_, text, from,
                              {.wholeWords = (options & platform::findWholeWord) != 0,
                               .matchCase = (options & platform::findMatchCase) != 0});
    if (!hit)
        return -1;
    if ((options & platform::findNoHighlight) == 0) {
        QTextCursor cursor = caret();
        cursor.setPosition(hit->begin);
        cursor.setPosition(hit->end, QTextCursor::KeepAnchor);
        setCaret(cursor);
    }
    return programPosition(*document_, hit->begin);
}

void RichTextEdit::together(const std::function<void()>& edits) {
    if (ahead_)
        return edits();
    // Laying out a long text after each single edit would take seconds.
    struct Block {
        explicit Block(RichTextEdit& control)
            : rtb(control), cursor(control.textCursor()), before(control.selectedRange()) {
            rtb.ahead_ = cursor;
            cursor.beginEditBlock();
        }
        ~Block() {
            cursor.endEditBlock();
            rtb.completeReport();
            const int top = rtb.verticalScrollBar()->value();
            rtb.setTextCursor(*std::exchange(rtb.ahead_, std::nullopt));
            // The view shows a caret that has moved; one that has not may well be out of sight.
            if (rtb.selectedRange() == before)
                rtb.verticalScrollBar()->setValue(top);
        }
        RichTextEdit& rtb;
        QTextCursor cursor;
        TextRange before;
    };
    const Block block(*this);
    edits();
}

// If paragraphs have bullets, the range that Qt reports for several edits may end too early.
void RichTextEdit::completeReport() {
    if (const auto range = std::exchange(together_, std::nullopt))
        document_->markContentsDirty(range->begin, range->end - range->begin);
}

void RichTextEdit::besideChanged(std::int32_t position) {
    paragraphs_.note(*document_, documentPosition(*document_, position), 0);
    Edited();
}

void RichTextEdit::SetFocus() {
    giveKeyboard(*window());
    setFocus(Qt::OtherFocusReason);
}

} // namespace desktop
