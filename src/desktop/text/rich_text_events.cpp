#include "desktop/text/rich_text_edit.h"

#include "base/carry_on.h"
#include "desktop/clipboard/rtf_source.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/key_codes.h"
#include "desktop/text/rtf_bridge.h"
#include "desktop/views/menus.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocumentFragment>

namespace desktop {

namespace {

// Keys that Qt's control may act on: those that move the caret, extend the selection or delete, and those
// that type. It has more, some by the desktop's habits, which would change the text unasked.
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

// Which key it is, whatever it means with others held; made up for an event that no keyboard has sent.
std::uint64_t placeOf(const QKeyEvent& event) {
    constexpr int bits = 32;
    return event.nativeScanCode() != 0 ? event.nativeScanCode()
                                       : static_cast<std::uint64_t>(event.key()) << bits;
}

// One of which an input method has made a letter.
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
        // A shortcut of a menu may take the press; the release comes here all the same.
        if (!key.isAutoRepeat())
            pressed_.insert(placeOf(key));
        // Qt's control would take further ones, which are the menus'.
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
    if (platform::KeyEvent key = keyEvent(*event); key.keyCode != 0) {
        KeyDown(key);
        if (key.keyCode == 0) {
            event->accept();
            return;
        }
    }
    // Enter that has closed a box may be down still: what it repeats was not meant for the text.
    if (event->isAutoRepeat() && !pressed_.contains(placeOf(*event)) && !pressed_.contains(unknownPlace)) {
        event->accept();
        return;
    }
    if (runShortcutByPlace(*window(), *event)) {
        event->accept();
        return;
    }
    if (const auto command = editCommand(*event)) {
        event->accept();
        // With both, the key means the selection, as the middle button does.
        if (event->key() == Qt::Key_Insert && heldKeys(*event) == (Qt::ShiftModifier | Qt::ControlModifier))
            pasteSelection([] {});
        else
            EditKey(*command);
        return;
    }
    // A key pressed with nothing selected replaces nothing; it may take a bullet away.
    if (isControlsOwn(*event))
        edit(sameLengthNow(), [&] { QTextEdit::keyPressEvent(event); });
    // The window would take some for its own: Escape ends the program, Shift+Tab gives the keyboard to a box.
    event->accept();
}

void RichTextEdit::keyReleaseEvent(QKeyEvent* event) {
    // A key that is held is released and pressed again and again, where the user did neither. One that went
    // down elsewhere has done its work there: a key of the player gives the keyboard back before it is up.
    const platform::KeyEvent key = keyEvent(*event);
    if (!event->isAutoRepeat() && pressed_.erase(placeOf(*event)) > 0 && key.keyCode != 0)
        KeyUp(key);
    QTextEdit::keyReleaseEvent(event);
}

void RichTextEdit::inputMethodEvent(QInputMethodEvent* event) {
    // What is being composed is shown in the text but no part of it yet.
    const bool commits = !event->commitString().isEmpty() || event->replacementLength() > 0;
    if (commits)
        pressed_.insert(unknownPlace);
    edit(commits ? SameLength::Replacement : SameLength::Format, [&] { QTextEdit::inputMethodEvent(event); });
}

void RichTextEdit::mousePressEvent(QMouseEvent* event) {
    QTextEdit::mousePressEvent(event);
    // Qt numbers left, right and middle as the program does.
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

// Another program's selection is read as its clipboard is.
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
    // Qt would move the selection in one edit of equal length, which tells nobody what went where.
    const QTextCursor place = cursorForPosition(event->position().toPoint());
    QDragLeaveEvent over; // takes away what the drag shows
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
    // An open menu borrows the keyboard; the text has it still.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason)
        return;
    pressed_.clear();
    // Among the windows of this program the text has it while another program is in front.
    if (event->reason() != Qt::ActiveWindowFocusReason || QApplication::activeWindow())
        LostFocus();
}

QMimeData* RichTextEdit::createMimeDataFromSelection() const {
    const std::string source = rtf::write(rtfOf(*document_, selectedRange()));
    auto* const offer = new QMimeData;
    offer->setText(QString::fromStdU16String(SelText()));
    offer->setData(QString::fromLatin1(rtfForms().front()),
                   QByteArray(source.data(), static_cast<qsizetype>(source.size())));
    return offer;
}

bool RichTextEdit::canInsertFromMimeData(const QMimeData* source) const {
    // A file is no text, though Qt would offer its name as one.
    return source->hasFormat(QStringLiteral("text/plain")) || source->hasHtml() ||
           !rtfOffered(*source).isEmpty();
}

void RichTextEdit::insertFromMimeData(const QMimeData* source) {
    edit(SameLength::Replacement, [&] {
        const std::string bytes = rtfOffered(*source).toStdString();
        if (rtf::isRtf(bytes)) {
            base::carryOn([&] { insertSource(rtf::read(bytes)); });
        } else if (source->hasText()) {
            base::carryOn([&] { setSelRTF(text(source->text())); });
        } else if (source->hasHtml()) {
            replaceSelection(text(QTextDocumentFragment::fromHtml(source->html()).toPlainText()));
        }
    });
}

} // namespace desktop
