#include "app/recogniser_room.h"

#include "app/place_over.h"

namespace app {

using lang::operator""_en;

namespace {

constexpr double step = 450; // twips between the editor's top left corner and the window's

} // namespace

RecogniserRoom::RecogniserRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, Parts parts)
    : form1_(form1), editor_(editor), mnuMakeDraft_("mnuMakeDraft", u"&Make a draft..."_en),
      mnuTimeTranscript_("mnuTimeTranscript", u"T&ime this transcript..."_en),
      draft_(editor, form1, parts.draftOptions), times_(editor, desktop.dialogs(), parts.words),
      make_({desktop.decoder(), desktop.childProcess(), desktop.clipboard(), form1.folder.files(u"Draft"),
             desktop.codePage()},
            options_, parts.words) {
    parts.options.tie("Recogniser", options_.chosen, 0, static_cast<int>(drafts::recogniserCount) - 1);
    for (std::size_t i = 0; i < drafts::recogniserCount; ++i)
        parts.options.tie(drafts::recognisers()[i].option, options_.commands[i]);
    make_.add(mnuMakeDraft_, draft_);
    make_.add(mnuTimeTranscript_, times_);
    make_.Recording = [this] { return drafts::HeardRecording{form1_.WMP1.URL(), form1_.WMP1.duration()}; };
    make_.Load = [this, &desktop](drafts::RecogniserWindow& form) {
        placeOver(editor_.form(), form1_, step, form);
        desktop.show(form);
    };
    make_.Tell = [this, &notices = parts.notices](const lang::Sentence& told) {
        notices.tell(told.sentence, told.parts, &editor_.form());
    };
}

// Words would arrive in a text that they do not belong to.
void RecogniserRoom::start() {
    editor_.document().Replacing = [this, others = editor_.document().Replacing] {
        make_.stop(u"Cancelled, because another text was opened."_en);
        others();
    };
}

} // namespace app
