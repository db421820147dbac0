#include "aids/spelling_marks.h"

#include "moments/word_units.h"

#include <algorithm>
#include <utility>

namespace aids {

namespace {

constexpr int idle = 40;                  // ms, so that a fast scroll is painted before words are asked about
constexpr std::size_t wordsOfSlice = 400; // asked about at once

} // namespace

SpellingMarks::SpellingMarks(editor::Form2& form, editor::UndoRedo& text, Verdicts& verdicts,
                             platform::EventLoop& loop)
    : form_(form), text_(text), verdicts_(verdicts), timer_(loop) {
    timer_.Tick = [this] { look(); };
    // Other marks are in the view as well.
    form_.RTB.MarksIn = [this, others = form_.RTB.MarksIn](std::int32_t begin, std::int32_t end) {
        std::vector<platform::MarkedPart> marks = others(begin, end);
        if (script_)
            addMarks(marks, begin, end);
        return marks;
    };
    verdicts_.Learned = [this, others = verdicts_.Learned](bool anyWrong) {
        others(anyWrong);
        const std::int32_t begin = std::exchange(unknownBegin_, 0);
        const std::int32_t end = std::exchange(unknownEnd_, 0);
        if (script_ && anyWrong && end > begin)
            form_.RTB.marksChanged(begin, end - begin);
    };
}

void SpellingMarks::show(const std::optional<Script>& script) {
    script_ = script;
    typedAt_.reset();
    verdictsChanged();
}

void SpellingMarks::verdictsChanged() {
    form_.RTB.marksChanged(0, text_.length());
    Decided();
}

void SpellingMarks::changed() {
    if (!script_)
        return;
    const std::int32_t caret = form_.RTB.SelStart();
    const base::Text before = text_.letters(caret - 1, caret > 0 ? 1 : 0);
    typedAt_ = before.empty() || moments::isBlank(before.front()) ? std::nullopt : std::optional(caret);
}

std::vector<CheckedWord> SpellingMarks::wordsIn(std::int32_t begin, std::int32_t end, base::Text& read) {
    const std::int32_t first = std::max(begin - longestRun, 0);
    read = text_.letters(first, end + longestRun - first);
    std::vector<CheckedWord> words = checkedWords(read, *script_);
    for (CheckedWord& word : words)
        word.position += first;
    std::erase_if(words, [&](const CheckedWord& word) {
        return word.position > end || word.position + word.length < begin;
    });
    return words;
}

bool SpellingMarks::isTyped(const CheckedWord& word, std::int32_t caret) {
    return typedAt_ && word.position <= caret && caret <= word.position + word.length;
}

void SpellingMarks::addMarks(std::vector<platform::MarkedPart>& marks, std::int32_t begin, std::int32_t end) {
    base::Text read;
    const std::int32_t caret = form_.RTB.SelStart();
    if (typedAt_ && caret != *typedAt_)
        wait();
    for (const CheckedWord& word : wordsIn(begin, end, read)) {
        const Verdicts::Verdict verdict = verdicts_.of(word.letters);
        if (verdict == Verdicts::Verdict::Right || isTyped(word, typedAt_.value_or(caret)))
            continue;
        if (verdict == Verdicts::Verdict::Wrong) {
            marks.push_back({word.position, word.length, platform::Mark::Misspelled});
            continue;
        }
        if (verdict == Verdicts::Verdict::Unknown) {
            verdicts_.want(word.letters);
            wait();
        }
        unknownBegin_ = unknownEnd_ == 0 ? word.position : std::min(unknownBegin_, word.position);
        unknownEnd_ = std::max(unknownEnd_, word.position + word.length);
    }
}

void SpellingMarks::wait() {
    if (!std::exchange(waits_, true))
        timer_.setInterval(idle);
}

// The caret has left the word that was typed: it is looked at when it is painted again.
void SpellingMarks::look() {
    if (typedAt_ && form_.RTB.SelStart() != *typedAt_) {
        const std::int32_t left = std::max(*std::exchange(typedAt_, std::nullopt) - longestRun, 0);
        form_.RTB.marksChanged(left, 2 * longestRun);
    }
    if (verdicts_.ask(wordsOfSlice))
        return;
    waits_ = false;
    timer_.setInterval(0);
}

std::optional<SpellingMarks::Part> SpellingMarks::wordAt(std::int32_t position) {
    if (!script_)
        return std::nullopt;
    base::Text read;
    for (const CheckedWord& word : wordsIn(position, position, read))
        return Part{word.position, word.length,
                    base::Text(word.letters.substr(0, static_cast<std::size_t>(word.length)))};
    return std::nullopt;
}

std::optional<SpellingMarks::Part> SpellingMarks::wrongAt(std::int32_t position) {
    if (!script_)
        return std::nullopt;
    base::Text read;
    const std::int32_t caret = typedAt_.value_or(-1);
    for (const CheckedWord& word : wordsIn(position, position, read))
        if (verdicts_.of(word.letters) == Verdicts::Verdict::Wrong && !isTyped(word, caret))
            return Part{word.position, word.length,
                        base::Text(word.letters.substr(0, static_cast<std::size_t>(word.length)))};
    return std::nullopt;
}

} // namespace aids
