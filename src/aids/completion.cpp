#include "aids/completion.h"

#include "drafts/letters.h"
#include "editor/text_edits.h"

#include <utility>

namespace aids {

namespace {

constexpr int readPeriod = 20;               // ms between two parts of the text
constexpr std::int32_t unitsAtOnce = 50'000; // read in about a millisecond
constexpr std::size_t leastBegun = 3;        // letters
constexpr int tabKey = 9;

} // namespace

Completion::Completion(editor::Form2& form, editor::UndoRedo& text, const TypingOptions& options,
                       platform::EventLoop& loop)
    : form_(form), text_(text), options_(options), reads_(loop) {
    reads_.Tick = [this] { readOn(); };
}

void Completion::apply() {
    if (std::exchange(follows_, options_.complete) == options_.complete)
        return;
    decline();
    words_.reset();
    reads_.setInterval(follows_ ? readPeriod : 0);
}

void Completion::readOn() {
    words_.read(text_.current(), unitsAtOnce);
    if (words_.isRead(text_.current()))
        reads_.setInterval(0);
}

void Completion::changed(const editor::SnapshotText& before, const editor::SnapshotText& after,
                         const platform::TextChange& change) {
    if (!follows_)
        return;
    words_.change(before, after, change);
    if (reads_.interval() == 0 && !words_.isRead(after))
        reads_.setInterval(readPeriod);
}

void Completion::decline() {
    if (!std::exchange(offered_, {}).empty())
        form_.RTB.offer({});
}

void Completion::typed(base::TextView inserted) {
    decline();
    if (!follows_ || inserted.empty() || !drafts::isLetter(inserted.back()) || form_.RTB.SelLength() > 0)
        return;
    place_ = form_.RTB.SelStart();
    if (const base::Text behind = text_.letters(place_, 1); !behind.empty() && behind != u"\r")
        return;
    const std::int32_t begin = std::max(0, place_ - static_cast<std::int32_t>(LongWords::most));
    const base::Text before = text_.letters(begin, place_ - begin);
    std::size_t first = before.size();
    while (first > 0 && drafts::isLetter(before[first - 1]))
        --first;
    const base::TextView begun = base::TextView(before).substr(first);
    if (begun.size() < leastBegun)
        return;
    offered_ = words_.restOf(begun);
    length_ = text_.length();
    if (!offered_.empty() && !form_.RTB.offer(offered_))
        offered_.clear();
}

bool Completion::takes(const platform::KeyEvent& key) {
    if (offered_.empty() || key.shift != 0 || (key.keyCode != tabKey && key.keyCode != platform::escapeKey))
        return false;
    const bool stands =
        form_.RTB.SelStart() == place_ && form_.RTB.SelLength() == 0 && text_.length() == length_;
    const base::Text rest = offered_;
    decline();
    if (stands && key.keyCode == tabKey)
        editor::makeEdits(form_.RTB, text_,
                          {{.position = place_,
                            .inserted = rest,
                            .moment = place_ > 0 ? text_.moments().at(place_ - 1) : std::nullopt}});
    return stands;
}

} // namespace aids
