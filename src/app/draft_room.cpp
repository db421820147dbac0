#include "app/draft_room.h"

#include "drafts/editor_text.h"

#include <utility>

namespace app {

DraftRoom::DraftRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                     Parts parts)
    : form1_(form1), editor_(editor),
      openDraft_(desktop.eventLoop(), desktop.dialogs(), parts.words, desktop.codePage(), options_),
      recognisers_(desktop, form1, editor, {parts.options, options_, parts.words, parts.notices}),
      export_(editor.form().RTB, desktop.dialogs(), parts.words, options_),
      doubts_(editor.form(), editor.undoRedo(), doubtOptions_, parts.words, desktop.eventLoop()) {
    parts.options.tie("DraftPauseMs", options_.pauseMs, 100, 60'000);
    parts.options.tie("ExportStamps", options_.exportStamps);
    parts.options.tie("ExportSpeakers", options_.exportSpeakers);
    parts.options.tie("DoubtPercent", doubtOptions_.percent, 0, 101);
    std::vector<controls::MenuItem*> commands = openDraft_.commands();
    for (const auto& more : {recognisers_.commands(), export_.commands(), doubts_.commands()})
        commands.insert(commands.end(), more.begin(), more.end());
    menu.add(commands);
    doubts_.start();
    doubts_.PlayFrom = [&moments = parts.moments](std::int32_t ms) { return moments.playFrom(ms); };
    doubts_.Kept = [this] { editor_.document().TestoModificato = 1; };
    editor.typing().Typed = [this, others = editor.typing().Typed] {
        if (!recognisers_.inserts())
            others();
        doubts_.changed();
    };
    recognisers_.OptionsChanged() = [this] { export_.OptionsChanged(); };
    export_.DocumentPath = [this] { return editor_.document().FileEditor; };
    export_.Tell = [this, &notices = parts.notices](lang::English sentence,
                                                    const std::vector<base::Text>& pieces) {
        notices.tell(sentence, pieces, &editor_.form());
    };
    editor.form().acceptsDrops = true;
    editor.form().Drop = [this](const std::vector<base::Text>& paths) { openDraft_.open(paths.front()); };
    openDraft_.Show = [this](const drafts::Transcript& transcript) { show(transcript); };
    openDraft_.Tell = [&notices = parts.notices](lang::English sentence, const base::Text& line) {
        notices.tell(sentence, {line});
    };
}

void DraftRoom::leave() {
    openDraft_.stop();
    recognisers_.leave();
    doubts_.leave();
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
