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

UndoRedo::UndoRedo(Form2& form, Document& document) : form_(form), document_(document) {
    form_.mnuAnnulla.Click = [this] { mnuAnnulla_Click(); };
    form_.mnuRipeti.Click = [this] { mnuRipeti_Click(); };
}

const SnapshotText& UndoRedo::current() {
    const platform::TextChange change = form_.RTB.takeChange();
    text_.replace(change.position, change.removed, change.inserted);
    return text_;
}

void UndoRedo::record() {
    redo_.clear();
    const SnapshotText& text = current();
    undo_.push_back({form_.RTB.SelStart(), text.length(), text});
}

void UndoRedo::mnuAnnulla_Click() {
    EseguiUndo();
    document_.TestoModificato = 1;
}

void UndoRedo::mnuRipeti_Click() {
    EseguiRedo();
}

void UndoRedo::EseguiUndo() {
    if (undo_.size() >= 2 && RegistraUndo) {
        RegistraUndo = false;
        undoLast();
        redo_.push_back(std::move(undo_.back()));
        undo_.pop_back();
    }
    RegistraUndo = true;
    form_.RTB.SetFocus();
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
    form_.RTB.SetFocus();
}

void UndoRedo::redoLast() {
    const UndoElement& next = redo_.back();
    const std::int32_t shorter = form_.RTB.textLength() - next.TextLen;
    if (shorter > 0) {
        takeOut(next.SelStart, shorter);
        return;
    }
    // What stands in the control now, which is not always the record before: a replacement of equal length is
    // undone by dropping its record.
    base::Text chg;
    base::carryOn([&] { chg = DifferenzaTesto(current(), next.Text, next.SelStart + 1); });
    putIn(next.SelStart - static_cast<std::int32_t>(chg.size()), chg);
}

void UndoRedo::takeOut(std::int32_t position, std::int32_t length) {
    platform::RichText& RTB = form_.RTB;
    RTB.setSelStart(position);
    RTB.setSelLength(length);
    base::carryOn([&] { RTB.setSelText({}); });
}

void UndoRedo::putIn(std::int32_t position, const base::Text& chg) {
    platform::RichText& RTB = form_.RTB;
    const auto length = static_cast<std::int32_t>(chg.size());
    RTB.setSelStart(position);
    RTB.setSelLength(0);
    base::carryOn([&] { RTB.setSelText(chg); });
    RTB.setSelStart(position);
    if (length < 2 || chg == lineBreak)
        RTB.setSelStart(RTB.SelStart() + length);
    else
        RTB.setSelLength(length);
}

} // namespace editor
