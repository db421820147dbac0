#include "app/draft_room.h"

#include "drafts/editor_text.h"

#include <utility>

namespace app {

DraftRoom::DraftRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                     Parts parts)
    : form1_(form1), editor_(editor),
      openDraft_(desktop.eventLoop(), desktop.dialogs(), parts.words, desktop.codePage(), options_) {
    parts.options.tie("DraftPauseMs", options_.pauseMs, 100, 60'000);
    menu.add(openDraft_.commands());
    openDraft_.Show = [this](const drafts::Transcript& transcript) { show(transcript); };
    openDraft_.Tell = [&notices = parts.notices](lang::English sentence, const base::Text& line) {
        notices.tell(sentence, {line});
    };
}

void DraftRoom::show(const drafts::Transcript& transcript) {
    moments::Layer recording = editor_.undoRedo().Recording();
    if (recording.recording.empty())
        recording.recording = transcript.recording;
    if (!editor_.document().openText(drafts::source(transcript, std::move(recording))))
        return;
    if (!editor_.form().visible)
        form1_.mnuMostraNascondi.Click();
    editor_.form().setFocus();
    editor_.form().RTB.SetFocus();
}

} // namespace app
