#include "app/growing_draft.h"

#include "base/carry_on.h"
#include "base/numbers.h"
#include "drafts/editor_text.h"
#include "drafts/letters.h"
#include "drafts/time_words.h"

#include <utility>

namespace app {

using lang::operator""_en;

GrowingDraft::GrowingDraft(EditorRoom& editor, player::Form1& form1, const drafts::Options& options)
    : editor_(editor), form1_(form1), options_(options) {}

lang::English GrowingDraft::title() const {
    return u"Make a draft"_en;
}

bool GrowingDraft::begin(const drafts::HeardRecording& recording) {
    if (!editor_.document().openText(drafts::source(drafts::transcript(std::vector<drafts::Turn>(), {}), {})))
        return false;
    recording_ = moments::layerOf(recording.path, recording.seconds);
    heardMs_ = 0;
    words_ = 0;
    if (!editor_.form().visible)
        form1_.mnuMostraNascondi.Click();
    return true;
}

void GrowingDraft::arrived(const drafts::Segment& segment) {
    drafts::Draft piece;
    piece.form = drafts::Form::Words;
    piece.segments = {segment};
    const bool continues = words_ > 0 && segment.startMs - heardMs_ < options_.pauseMs;
    std::vector<drafts::Turn> turns = drafts::turns(std::move(piece), {options_.pauseMs});
    heardMs_ = std::max(heardMs_, segment.endMs);
    append(std::move(turns), continues);
}

void GrowingDraft::append(std::vector<drafts::Turn> turns, bool continues) {
    for (const drafts::Turn& turn : turns)
        words_ += turn.words.size();
    platform::RichText& RTB = editor_.form().RTB;
    const std::int32_t end = RTB.textLength();
    if (end > 0 && continues && !turns.empty()) {
        drafts::Turn& first = turns.front();
        if (drafts::needsBlankBetween(editor_.undoRedo().letters(end - 1, 1), first.text)) {
            first.text.insert(0, 1, u' ');
            for (drafts::MomentOfText& word : first.words)
                ++word.begin;
        }
    } else if (end > 0) {
        turns.insert(turns.begin(), drafts::Turn());
    }
    const drafts::Fragment fragment = drafts::fragment(drafts::transcript(turns, {}), recording_);
    const std::int32_t start = RTB.SelStart();
    const std::int32_t length = RTB.SelLength();
    std::string failure;
    inserts_ = true;
    RTB.together([&] {
        RTB.setSelStart(end);
        base::carryOn([&] { RTB.insert(base::fromUtf8(fragment.source), fragment.beside); },
                      [&](const char* reason) { failure = reason; });
        RTB.setSelStart(start);
        RTB.setSelLength(length);
    });
    inserts_ = false;
    if (!failure.empty())
        throw base::Failure(failure);
}

// A draft whose words have arrived brings their exact times and confidences now.
lang::Sentence GrowingDraft::finish(std::optional<drafts::Draft> draft) {
    if (draft && words_ == 0) {
        append(drafts::turns(std::move(*draft), {options_.pauseMs}), false);
    } else if (draft) {
        const base::Text text = editor_.undoRedo().letters(0, editor_.undoRedo().length());
        editor_.undoRedo().setMoments(recording_,
                                      drafts::timeWords(text, drafts::heardWords(std::move(*draft))).words);
        editor_.document().TestoModificato = 1;
        editor_.typing().Typed();
    }
    return {u"The draft is complete: %1 words."_en, {base::countText(words_)}};
}

} // namespace app
