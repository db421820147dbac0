#include "aids/delivery_check.h"

#include <algorithm>
#include <utility>

namespace aids {

namespace {

constexpr int rest = 5;                       // ms between two slices
constexpr std::int32_t unitsOfSlice = 40'000; // some milliseconds
constexpr base::TextView paragraphEnd = u"\r\n";

} // namespace

DeliveryCheck::DeliveryCheck(editor::UndoRedo& text, Verdicts& verdicts, const SpellingMarks& spelling,
                             platform::EventLoop& loop)
    : text_(text), verdicts_(verdicts), spelling_(spelling), timer_(loop) {
    timer_.Tick = [this] { goOn(); };
}

void DeliveryCheck::start(base::TextView marks) {
    stop();
    rules_.emplace(marks, RecordingMs());
    timer_.setInterval(rest);
    Progressed();
}

void DeliveryCheck::stop() {
    timer_.setInterval(0);
    rules_.reset();
    slice_.reset();
    position_ = 0;
    found_ = {};
    misspelled_.clear();
}

double DeliveryCheck::share() const {
    return static_cast<double>(position_) / std::max(text_.length(), 1);
}

void DeliveryCheck::goOn() {
    if (!slice_)
        read();
    if (!knowsWords())
        return;
    lookAtParagraphs();
    addDoubtful();
    addMisspelled();
    position_ += static_cast<std::int32_t>(slice_->text.size());
    slice_.reset();
    if (position_ >= text_.length())
        end();
    Progressed();
}

// A paragraph is looked at as a whole, however long.
void DeliveryCheck::read() {
    slice_.emplace();
    for (std::int32_t count = unitsOfSlice;; count *= 2) {
        slice_->text = text_.letters(position_, count);
        if (position_ + count >= text_.length())
            break;
        const std::size_t last = slice_->text.rfind(paragraphEnd);
        if (last == base::Text::npos)
            continue;
        slice_->text.resize(last + paragraphEnd.size());
        break;
    }
    if (const auto& script = spelling_.script())
        slice_->words = checkedWords(slice_->text, *script);
}

// Spelling may be switched off, or use another dictionary, in between.
bool DeliveryCheck::knowsWords() {
    if (!spelling_.script())
        slice_->words.clear();
    bool known = true;
    for (const CheckedWord& word : slice_->words) {
        const Verdicts::Verdict verdict = verdicts_.of(word.letters);
        if (verdict == Verdicts::Verdict::Unknown)
            verdicts_.want(word.letters);
        known = known && verdict != Verdicts::Verdict::Unknown && verdict != Verdicts::Verdict::Asked;
    }
    while (!known && verdicts_.ask(slice_->words.size())) {
    }
    return known;
}

void DeliveryCheck::lookAtParagraphs() {
    const base::TextView text = slice_->text;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(paragraphEnd, begin), text.size());
        const std::size_t behind = std::min(end + paragraphEnd.size(), text.size());
        rules_->look(text.substr(begin, end - begin), text.substr(behind, 1),
                     position_ + static_cast<std::int32_t>(begin), found_);
        begin = behind;
    }
}

void DeliveryCheck::addDoubtful() {
    const auto end = position_ + static_cast<std::int32_t>(slice_->text.size());
    for (const platform::MarkedPart& part : Doubtful(position_, end))
        found_.add(FindingKind::Doubtful, slice_->text, position_,
                   static_cast<std::size_t>(part.position - position_),
                   static_cast<std::size_t>(part.length));
}

// Each word once.
void DeliveryCheck::addMisspelled() {
    for (const CheckedWord& word : slice_->words) {
        if (verdicts_.of(word.letters) != Verdicts::Verdict::Wrong)
            continue;
        const auto length = static_cast<std::size_t>(word.length);
        const auto known = misspelled_.find(base::Text(word.letters.substr(0, length)));
        if (known != misspelled_.end()) {
            ++found_[known->second].count;
            continue;
        }
        const std::size_t index = found_.add(FindingKind::Misspelled, slice_->text, position_,
                                             static_cast<std::size_t>(word.position), length);
        if (index < found_.size())
            misspelled_.emplace(word.letters.substr(0, length), index);
    }
}

void DeliveryCheck::end() {
    rules_->end(found_);
    findings_ = found_.take();
    stop();
}

} // namespace aids
