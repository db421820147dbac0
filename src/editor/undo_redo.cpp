#include "editor/undo_redo.h"

#include "base/carry_on.h"

#include <cstdlib>
#include <utility>

namespace editor {

namespace {

constexpr base::TextView lineBreak = u"\r\n";

} // namespace

base::Text DifferenzaTesto(const SnapshotText& a, const SnapshotText& b, std::int32_t posizione) {
    const SnapshotText& longer = a.length() > b.length() ? a : b;
    const std::int32_t d = std::abs(a.length() - b.length());
    if (posizione - d < 1)
        throw base::Failure("the difference begins before the text");
    return longer.text(posizione - d - 1, d);
}

const SnapshotText& UndoRedo::current() {
    const platform::TextChange change = RTB_.takeChange();
    text_.replace(change.position, change.removed, change.inserted);
    return text_;
}

void UndoRedo::record() {
    redo_.clear();
    const SnapshotText& text = current();
    undo_.push_back({RTB_.SelStart(), text.length(), text});
}

void UndoRedo::EseguiUndo() {
    if (undo_.size() >= 2 && RegistraUndo) {
        RegistraUndo = false;
        undoLast();
        redo_.push_back(std::move(undo_.back()));
        undo_.pop_back();
    }
    RegistraUndo = true;
    RTB_.SetFocus();
}

void UndoRedo::undoLast() {
    const UndoElement& last = undo_.back();
    const UndoElement& before = undo_[undo_.size() - 2];
    const std::int32_t longer = last.TextLen - before.TextLen;
    if (longer > 0) {
        takeOut(last.SelStart - longer, longer);
        return;
    }
    base::Text chg;
    base::carryOn(
        [&] { chg = DifferenzaTesto(before.Text, last.Text, last.SelStart + 1 + std::abs(longer)); });
    putIn(last.SelStart, chg);
}

void UndoRedo::EseguiRedo() {
    if (!redo_.empty() && RegistraUndo) {
        RegistraUndo = false;
        redoLast();
        undo_.push_back(std::move(redo_.back()));
        redo_.pop_back();
    }
    RegistraUndo = true;
    RTB_.SetFocus();
}

void UndoRedo::redoLast() {
    const UndoElement& next = redo_.back();
    const std::int32_t shorter = RTB_.textLength() - next.TextLen;
    if (shorter > 0) {
        takeOut(next.SelStart, shorter);
        return;
    }
    // Compares with the control's current text, which may differ from the previous record: a replacement of
    // equal length is undone by merely dropping its record.
    base::Text chg;
    base::carryOn([&] { chg = DifferenzaTesto(current(), next.Text, next.SelStart + 1); });
    putIn(next.SelStart - static_cast<std::int32_t>(chg.size()), chg);
}

void UndoRedo::takeOut(std::int32_t position, std::int32_t length) {
    RTB_.setSelStart(position);
    RTB_.setSelLength(length);
    base::carryOn([&] { RTB_.setSelText({}); });
}

void UndoRedo::putIn(std::int32_t position, const base::Text& chg) {
    const auto length = static_cast<std::int32_t>(chg.size());
    RTB_.setSelStart(position);
    RTB_.setSelLength(0);
    base::carryOn([&] { RTB_.setSelText(chg); });
    RTB_.setSelStart(position);
    if (length < 2 || chg == lineBreak)
        RTB_.setSelStart(RTB_.SelStart() + length);
    else
        RTB_.setSelLength(length);
}

} // namespace editor
