#include "app/time_transcript.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "drafts/letters.h"

#include <utility>

namespace app {

using lang::operator""_en;

namespace {

constexpr std::size_t leastShare = 10; // percent of the words that must be heard

} // namespace

TimeTranscript::TimeTranscript(EditorRoom& editor, platform::Dialogs& dialogs, const lang::Words& words)
    : editor_(editor), dialogs_(dialogs), words_(words) {}

lang::English TimeTranscript::title() const {
    return u"Time this transcript"_en;
}

base::Text TimeTranscript::text() const {
    return editor_.undoRedo().letters(0, editor_.undoRedo().length());
}

bool TimeTranscript::hasMoments() const {
    return editor_.undoRedo().moments().any();
}

bool TimeTranscript::begin(const drafts::HeardRecording& recording) {
    if (drafts::stripped(text()).empty())
        throw base::Failure(base::toUtf8(words_(u"the editor holds no text."_en)));
    keeps_ = false;
    if (hasMoments()) {
        const platform::Answer answer = dialogs_.messageBox(
            words_(u"Some words have a time already. Shall they get a new one as well?"_en), {},
            platform::BoxStyle::YesNoCancelExclamation);
        if (answer == platform::Answer::Cancel)
            return false;
        keeps_ = answer == platform::Answer::No;
    }
    recording_ = moments::layerOf(recording.path, recording.seconds);
    heard_ = {};
    heard_.form = drafts::Form::Words;
    return true;
}

void TimeTranscript::arrived(const drafts::Segment& segment) {
    heard_.segments.push_back(segment);
}

lang::Sentence TimeTranscript::finish(std::optional<drafts::Draft> draft) {
    const std::vector<drafts::HeardWord> heard =
        drafts::heardWords(draft ? std::move(*draft) : std::move(heard_));
    drafts::TimedText timed = drafts::timeWords(text(), heard);
    const std::vector<base::Text> counts = {base::countText(timed.found),
                                            base::countText(timed.words.size())};
    if (timed.found * 100 < timed.words.size() * leastShare || timed.words.empty())
        return {
            u"The recording does not fit the text: the recogniser heard other words. Nothing was changed."_en,
            {}};
    keepOwn(timed.words);
    editor_.undoRedo().setMoments(recording_, timed.words);
    editor_.document().TestoModificato = 1;
    editor_.typing().Typed();
    return {u"The transcript has its times: %1 of %2 words were heard, the others lie between them."_en,
            counts};
}

// A text that somebody typed is not doubtful: what is unsure is only what the recogniser heard.
void TimeTranscript::keepOwn(std::vector<moments::MomentOfText>& words) const {
    const moments::WordMoments& own = editor_.undoRedo().moments();
    std::erase_if(words, [&](moments::MomentOfText& word) {
        const auto begin = static_cast<std::int32_t>(word.begin);
        const auto before = own.first(begin, begin + static_cast<std::int32_t>(word.length));
        word.moment.confidence = before ? before->confidence : moments::Moment::noConfidence;
        return keeps_ && before && !editor_.undoRedo().isOfOtherRecording();
    });
}

} // namespace app
