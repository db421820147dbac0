#include "desktop/text/rich_text_edit.h"

#include "base/carry_on.h"
#include "desktop/clipboard/rtf_source.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/key_codes.h"
#include "desktop/text/rtf_bridge.h"
#include "desktop/text/text_units.h"
#include "desktop/views/menus.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextLayout>

namespace desktop {

namespace {

// Keys that Qt's control may handle: those that move the caret, extend the selection, delete or type. Qt
// knows more, some of them platform habits, which would change the text unexpectedly.
bool isControlsOwn(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        return true;
    default:
        return (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
    }
}

Qt::KeyboardModifiers heldKeys(const QKeyEvent& event) {
    return event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
}

// Identifies the physical key, independent of modifiers; synthesized for events that no keyboard has sent.
std::uint64_t placeOf(const QKeyEvent& event) {
    constexpr int bits = 32;
    return event.nativeScanCode() != 0 ? event.nativeScanCode()
                                       : static_cast<std::uint64_t>(event.key()) << bits;
}

// Stands for a key from which an input method has produced a character.
constexpr std::uint64_t unknownPlace = 0;

std::optional<platform::EditCommand> editCommand(const QKeyEvent& event) {
    using platform::EditCommand;
    static constexpr std::pair<QKeySequence::StandardKey, EditCommand> keys[] = {
        {QKeySequence::Undo, EditCommand::Undo},   {QKeySequence::Redo, EditCommand::Redo},
        {QKeySequence::Cut, EditCommand::Cut},     {QKeySequence::Copy, EditCommand::Copy},
        {QKeySequence::Paste, EditCommand::Paste},
    };
    for (const auto& [key, command] : keys)
        if (event.matches(key))
            return command;
    return std::nullopt;
}

// Also keys that no menu can name: "+" without Shift, and those of the number pad.
std::optional<int> zoomKey(const QKeyEvent& event) {
    const bool withShift = event.modifiers().testFlag(Qt::ShiftModifier);
    if ((heldKeys(event) & ~Qt::ShiftModifier) != Qt::ControlModifier)
        return std::nullopt;
    if (event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal)
        return 1;
    if (event.key() == Qt::Key_Minus)
        return -1;
    return event.key() == Qt::Key_0 && !withShift ? std::optional(0) : std::nullopt;
}

QByteArray rtfOffered(const QMimeData& offer) {
    for (const QByteArray& form : rtfForms())
        if (const QString type = QString::fromLatin1(form); offer.hasFormat(type))
            return offer.data(type);
    return {};
}

} // namespace

bool RichTextEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        // A menu shortcut may consume the press; the release arrives here anyway.
        if (!key.isAutoRepeat())
            pressed_.insert(placeOf(key));
        // Qt's control would claim further keys that belong to the menus.
        if (!isControlsOwn(key) || TakesKey(keyEvent(key))) {
            event->setAccepted(TakesKey(keyEvent(key)));
            return true;
        }
    }
    return QTextEdit::event(event);
}

void RichTextEdit::keyPressEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat())
        pressed_.insert(placeOf(*event));
    if (event->key() == Qt::Key_Control)
        showPointer(viewport()->mapFromGlobal(QCursor::pos()), Qt::ControlModifier);
    if (platform::KeyEvent key = keyEvent(*event); key.keyCode != 0) {
        KeyDown(key);
        if (key.keyCode == 0) {
            event->accept();
            return;
        }
    }
    // The Enter that closed a dialog may still be held: its repeats are not meant for the text.
    if (event->isAutoRepeat() && !pressed_.contains(placeOf(*event)) && !pressed_.contains(unknownPlace)) {
        event->accept();
        return;
    }
    if (const auto steps = zoomKey(*event)) {
        event->accept();
        Zoom(*steps);
        return;
    }
    if (runShortcutByPlace(*window(), *event)) {
        event->accept();
        return;
    }
    if (const auto command = editCommand(*event)) {
        event->accept();
        // Ctrl+Shift+Insert inserts the primary selection, as the middle button does.
        if (event->key() == Qt::Key_Insert && heldKeys(*event) == (Qt::ShiftModifier | Qt::ControlModifier))
            pasteSelection([] {});
        else
            EditKey(*command);
        return;
    }
    const int scrolled = verticalScrollBar()->value();
    // A key pressed without a selection replaces nothing, but it may remove a bullet.
    if (!runParagraphKey(*event) && isControlsOwn(*event))
        type(sameLengthNow(), [&] { QTextEdit::keyPressEvent(event); });
    if (verticalScrollBar()->value() != scrolled)
        Scrolled();
    // Otherwise the window would act on some keys: Escape ends the program, Shift+Tab moves the focus to a
    // control.
    event->accept();
}

void RichTextEdit::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Control)
        showPointer(viewport()->mapFromGlobal(QCursor::pos()), Qt::NoModifier);
    // Repeats of a held key send releases and presses that the user did not make. A key pressed elsewhere has
    // done its work there: a player key returns the focus here before it is released.
    const platform::KeyEvent key = keyEvent(*event);
    if (!event->isAutoRepeat() && pressed_.erase(placeOf(*event)) > 0 && key.keyCode != 0)
        KeyUp(key);
    QTextEdit::keyReleaseEvent(event);
}

void RichTextEdit::inputMethodEvent(QInputMethodEvent* event) {
    // Text that is being composed is shown, but is not yet part of the document.
    const bool commits = !event->commitString().isEmpty() || event->replacementLength() > 0;
    if (commits)
        pressed_.insert(unknownPlace);
    const auto pass = [&] { QTextEdit::inputMethodEvent(event); };
    if (commits)
        type(SameLength::Replacement, pass);
    else
        edit(SameLength::Display, pass);
}

// What was inserted lies between the beginning of the old selection and the caret. While an input method goes
// on composing behind it, nothing else may change the paragraph.
void RichTextEdit::type(SameLength meaning, const std::function<void()>& work) {
    struct Typing {
        explicit Typing(bool& typing) : flag(typing) { flag = true; }
        ~Typing() { flag = false; }
        bool& flag;
    };
    const Typing whileAtIt(typing_);
    const int revision = document_->revision();
    const int begin = textCursor().selectionStart();
    edit(meaning, work);
    if (!textCursor().block().layout()->preeditAreaText().isEmpty())
        return;
    if (const int end = textCursor().position(); end > begin && document_->revision() != revision) {
        QTextCursor inserted(document_);
        inserted.setPosition(begin);
        inserted.setPosition(end, QTextCursor::KeepAnchor);
        const QString letters = inserted.selectedText();
        Typed(programText(letters, static_cast<int>(letters.count(QChar(documentParagraphEnd)))));
    }
}

bool RichTextEdit::runParagraphKey(const QKeyEvent& event) {
    const auto held = heldKeys(event);
    if (!held.testFlag(Qt::ControlModifier) || held.testFlag(Qt::AltModifier))
        return false;
    const bool withShift = held.testFlag(Qt::ShiftModifier);
    const auto mode = withShift ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
    QTextCursor cursor = textCursor();
    switch (event.key()) {
    case Qt::Key_Up:
        cursor.movePosition(cursor.atBlockStart() ? QTextCursor::PreviousBlock : QTextCursor::StartOfBlock,
                            mode);
        break;
    case Qt::Key_Down:
        if (!cursor.movePosition(QTextCursor::NextBlock, mode))
            cursor.movePosition(QTextCursor::End, mode);
        break;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        if (!withShift)
            return false;
        if (!cursor.hasSelection())
            cursor.movePosition(event.key() == Qt::Key_Delete ? QTextCursor::EndOfBlock
                                                              : QTextCursor::StartOfBlock,
                                QTextCursor::KeepAnchor);
        setTextCursor(cursor);
        type(SameLength::Replacement, [&] { setSelText({}); });
        return true;
    default:
        return false;
    }
    setTextCursor(cursor);
    return true;
}

void RichTextEdit::mouseMoveEvent(QMouseEvent* event) {
    QTextEdit::mouseMoveEvent(event);
    showPointer(event->position().toPoint(), event->modifiers());
}

void RichTextEdit::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::ControlModifier) {
        if (const auto letter = letterAt(event->position().toPoint()); letter && CtrlClick(*letter)) {
            event->accept();
            return;
        }
    }
    if (event->button() == Qt::RightButton) {
        if (const auto letter = letterAt(event->position().toPoint()); letter && RightClick(*letter)) {
            event->accept();
            return;
        }
    }
    QTextEdit::mousePressEvent(event);
    // Qt numbers the left, right and middle buttons as the program does.
    MouseDown(static_cast<int>(event->button()) & 7);
    event->accept();
}

void RichTextEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton || QGuiApplication::clipboard()->ownsSelection()) {
        QTextEdit::mouseReleaseEvent(event);
        return;
    }
    pasteSelection([&] { setTextCursor(cursorForPosition(event->position().toPoint())); });
}

// The selection of another program is read like its clipboard.
void RichTextEdit::pasteSelection(const std::function<void()>& place) {
    for (const auto format : {platform::ClipboardFormat::Rtf, platform::ClipboardFormat::Text}) {
        const base::Text held = selection_.GetText(format);
        if (held.empty())
            continue;
        place();
        base::carryOn([&] { setSelRTF(held); });
        return;
    }
}

void RichTextEdit::dropEvent(QDropEvent* event) {
    if (event->dropAction() != Qt::MoveAction || event->source() != viewport()) {
        edit(SameLength::Replacement, [&] { QTextEdit::dropEvent(event); });
        return;
    }
    // Qt would move the selection in one edit that keeps the length, from which nobody could tell what moved
    // where.
    const QTextCursor place = cursorForPosition(event->position().toPoint());
    QDragLeaveEvent over; // removes the drop indicator
    QTextEdit::dragLeaveEvent(&over);
    event->acceptProposedAction();
    moveSelection(*event->mimeData(), place);
}

void RichTextEdit::moveSelection(const QMimeData& offer, const QTextCursor& place) {
    const auto [begin, end] = selectedRange();
    if (place.position() >= begin && place.position() <= end)
        return;
    setSelText({});
    setTextCursor(place);
    insertFromMimeData(&offer);
}

void RichTextEdit::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    // An open menu only borrows the focus.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason)
        return;
    pressed_.clear();
    // While another program is active, the text keeps the focus among this program's windows.
    if (event->reason() != Qt::ActiveWindowFocusReason || QApplication::activeWindow())
        LostFocus();
}

QMimeData* RichTextEdit::createMimeDataFromSelection() const {
    const std::string source = rtf::write(rtfOf(*document_, selectedRange()));
    auto* const offer = new QMimeData;
    offer->setText(QString::fromStdU16String(SelText()));
    offer->setData(QString::fromLatin1(rtfForms().front()),
                   QByteArray(source.data(), static_cast<qsizetype>(source.size())));
    const std::int32_t begin = SelStart();
    if (const std::string beside = Beside(begin, SelLength()); !beside.empty())
        offer->setData(QString::fromLatin1(besideForm), QByteArray::fromStdString(beside));
    return offer;
}

bool RichTextEdit::canInsertFromMimeData(const QMimeData* source) const {
    // A file is no text, although Qt and file managers offer its name as text: its window may want it.
    if (source->data(QStringLiteral("text/uri-list")).startsWith("file:"))
        return false;
    return source->hasFormat(QStringLiteral("text/plain")) || source->hasHtml() ||
           !rtfOffered(*source).isEmpty();
}

void RichTextEdit::insertFromMimeData(const QMimeData* source) {
    const std::string beside = source->data(QString::fromLatin1(besideForm)).toStdString();
    const auto insertForm = [&] {
        const std::string bytes = rtfOffered(*source).toStdString();
        if (rtf::isRtf(bytes))
            insertSource(rtf::read(bytes));
        else if (source->hasText())
            setSelRTF(text(source->text()));
        else if (source->hasHtml())
            replaceSelection(text(QTextDocumentFragment::fromHtml(source->html()).toPlainText()));
    };
    edit(SameLength::Replacement, [&] { base::carryOn([&] { arriving(beside, insertForm); }); });
}

} // namespace desktop
