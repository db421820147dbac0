#include "editor/undo_redo.h"

#include "base/carry_on.h"
#include "moments/stamps.h"

#include <cstdlib>
#include <utility>

namespace editor {

namespace {

constexpr base::TextView lineBreak = u"\r\n";
constexpr std::int32_t sameLength = 250; // ms between the lengths of one recording in two files

// By the name; a renamed file is told by its length. Where a name is not known, they may be the same.
bool mayBeOne(const moments::Layer& a, const moments::Layer& b) {
    return a.recording.empty() || b.recording.empty() || a.recording == b.recording ||
           (a.length > 0 && b.length > 0 && std::abs(a.length - b.length) <= sameLength);
}

} // namespace

base::Text DifferenzaTesto(const SnapshotText& a, const SnapshotText& b, std::int32_t posizione) {
    const SnapshotText& longer = a.length() > b.length() ? a : b;
    const std::int32_t d = std::abs(a.length() - b.length());
    if (posizione - d < 1)
        throw base::Failure("the difference begins before the text");
    return longer.text(posizione - d - 1, d);
}

UndoRedo::UndoRedo(platform::RichText& text) : RTB_(text) {
    RTB_.Arrives = [this](std::int32_t position, std::int32_t removed, const std::string& beside) {
        arrives(position, removed, beside);
    };
    RTB_.Beside = [this](std::int32_t position, std::int32_t count) { return beside(position, count); };
}

const SnapshotText& UndoRedo::current() {
    const platform::TextChange change = RTB_.takeChange();
    const std::optional<Arrival> arrival = std::exchange(arrival_, std::nullopt);
    if (change.removed == 0 && change.inserted.empty())
        return text_;
    applyToMoments(change, arrival ? &*arrival : nullptr);
    if (caret_ && change.position <= *caret_)
        *caret_ += static_cast<std::int32_t>(change.inserted.size()) -
                   std::min(change.removed, *caret_ - change.position);
    if (!Changed) {
        text_.replace(change.position, change.removed, change.inserted);
        return text_;
    }
    const SnapshotText before = text_;
    text_.replace(change.position, change.removed, change.inserted);
    Changed(before, text_, change);
    return text_;
}

// The control may report more than what changed, but what arrived lies within it.
void UndoRedo::applyToMoments(const platform::TextChange& change, const Arrival* arrival) {
    const auto added = static_cast<std::int32_t>(change.inserted.size());
    if (arrival) {
        const std::int32_t count = added - change.removed + arrival->removed;
        if (count >= 0 && arrival->position >= change.position &&
            arrival->position + arrival->removed <= change.position + change.removed &&
            arrival->position + count <= change.position + added) {
            applyArrival(change, *arrival);
            return;
        }
    }
    const base::Text removed = text_.text(change.position, change.removed);
    const auto unitAt = [&](std::int32_t position) {
        const base::Text unit = position < 0 ? base::Text() : text_.text(position, 1);
        return unit.empty() ? u'\0' : unit.front();
    };
    moments_.apply({change.position, removed, change.inserted, unitAt(change.position - 1),
                    unitAt(change.position + change.removed)});
}

void UndoRedo::applyArrival(const platform::TextChange& change, const Arrival& arrival) {
    const auto count = static_cast<std::int32_t>(change.inserted.size()) - change.removed + arrival.removed;
    const base::TextView fresh = base::TextView(change.inserted)
                                     .substr(static_cast<std::size_t>(arrival.position - change.position),
                                             static_cast<std::size_t>(count));
    auto layer = moments::unpack(arrival.beside, fresh);
    const bool whole = arrival.position == 0 && arrival.removed == text_.length();
    if (whole)
        layer_ = layer.value_or(moments::Layer());
    if (!whole && layer) {
        // The words of another recording come without their moments.
        if (!moments_.any())
            layer_ = {layer->recording, layer->length, {}};
        else if (!mayBeOne(*layer, layer_))
            layer->timed = {{{static_cast<std::uint32_t>(count), {}}}};
    }
    moments_.apply(arrival.position, arrival.removed,
                   layer ? std::move(layer->timed) : moments::momentsOfStamps(fresh));
}

moments::WordMoments& UndoRedo::moments() {
    current();
    return moments_;
}

void UndoRedo::arrives(std::int32_t position, std::int32_t removed, const std::string& beside) {
    current();
    if (position >= 0)
        arrival_ = {position, removed, beside};
}

void UndoRedo::momentsHeard(std::function<std::optional<std::int32_t>()> heard) {
    moments_.Heard = [this, heard = std::move(heard)] {
        const auto ms = heard();
        if (ms)
            adoptRecording();
        return ms;
    };
}

void UndoRedo::setMoment(std::int32_t position, std::int32_t length, const moments::Moment& moment) {
    adoptRecording();
    moments().set(position, length, moment);
}

void UndoRedo::setMoments(const moments::Layer& recording, const std::vector<moments::MomentOfText>& words) {
    const SnapshotText& now = current();
    const base::Text text = now.text(0, now.length());
    if (!mayBeOne(recording, layer_))
        moments_.set(0, now.length(), {});
    layer_ = {recording.recording, recording.length, {}};
    std::size_t paragraphEnd = 0;
    for (const moments::MomentOfText& word : words) {
        const auto begin = static_cast<std::int32_t>(word.begin);
        moments_.set(begin, static_cast<std::int32_t>(word.length), word.moment);
        if (word.begin < paragraphEnd)
            continue;
        RTB_.besideChanged(begin);
        paragraphEnd = std::min(text.find(u'\n', word.begin), text.size());
    }
    RTB_.marksChanged(0, now.length());
}

void UndoRedo::adoptRecording() {
    if (moments::Layer open = Recording(); !open.recording.empty() && !isOfOtherRecording())
        layer_ = std::move(open);
}

bool UndoRedo::isOfOtherRecording() const {
    return !mayBeOne(Recording(), layer_) && moments_.any();
}

std::string UndoRedo::beside(std::int32_t position, std::int32_t count) {
    const SnapshotText& text = current();
    const base::Text part = text.text(position, count);
    adoptRecording();
    moments::Layer layer{layer_.recording, layer_.length, {}};
    layer.timed = moments_.timed(position, static_cast<std::int32_t>(part.size()));
    for (const auto& run : layer.timed.runs)
        if (run.moment)
            return moments::pack(layer, part);
    return {};
}

void UndoRedo::record() {
    redo_.clear();
    const SnapshotText& text = current();
    moments_.record();
    undo_.push_back({RTB_.SelStart(), text.length(), text, std::exchange(joins_, inStep_)});
}

void UndoRedo::asOneStep(const std::function<void()>& edits) {
    struct Step {
        explicit Step(UndoRedo& of) : records(of) { records.inStep_ = true; }
        ~Step() { records.inStep_ = records.joins_ = false; }
        UndoRedo& records;
    };
    const Step step(*this);
    inOneStep(edits);
}

void UndoRedo::inOneStep(const std::function<void()>& edits) {
    RTB_.together([&] {
        current();
        caret_ = RTB_.SelStart();
        edits();
        current();
        RTB_.setSelStart(std::exchange(caret_, std::nullopt).value_or(0));
    });
}

void UndoRedo::EseguiUndo() {
    if (undo_.size() >= 2 && RegistraUndo) {
        RegistraUndo = false;
        if (undo_.back().joined)
            inOneStep([this] {
                while (undo_.back().joined)
                    undoRecord();
                undoRecord();
            });
        else
            undoRecord();
    }
    RegistraUndo = true;
    RTB_.SetFocus();
}

void UndoRedo::undoRecord() {
    current();
    moments_.undoing();
    undoLast();
    current();
    moments_.undone();
    redo_.push_back(std::move(undo_.back()));
    undo_.pop_back();
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
    moments_.putBackFromBefore(last.SelStart);
    putIn(last.SelStart, chg);
}

void UndoRedo::EseguiRedo() {
    if (!redo_.empty() && RegistraUndo) {
        RegistraUndo = false;
        const auto goesOn = [this] { return redo_.size() > 1 && redo_[redo_.size() - 2].joined; };
        if (goesOn())
            inOneStep([&] {
                while (goesOn())
                    redoRecord();
                redoRecord();
            });
        else
            redoRecord();
    }
    RegistraUndo = true;
    RTB_.SetFocus();
}

void UndoRedo::redoRecord() {
    redoLast();
    current();
    moments_.redone();
    undo_.push_back(std::move(redo_.back()));
    redo_.pop_back();
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
    moments_.putBackFromNext(next.SelStart - static_cast<std::int32_t>(chg.size()));
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
