#pragma once

#include "app/editor_room.h"
#include "drafts/options.h"
#include "drafts/recogniser_use.h"
#include "drafts/transcript.h"
#include "player/form1.h"

namespace app {

// A draft in the editor that grows at its end while a recogniser works. Caret, selection and what the user
// changes meanwhile stay.
class GrowingDraft : public drafts::RecogniserUse {
public:
    GrowingDraft(EditorRoom& editor, player::Form1& form1, const drafts::Options& options);

    lang::English title() const override;
    bool begin(const drafts::HeardRecording& recording) override;
    void arrived(const drafts::Segment& segment) override;
    lang::Sentence finish(std::optional<drafts::Draft> draft) override;

    // True while words are being inserted: the change of the text is not the user's.
    bool inserts() const { return inserts_; }

private:
    void append(std::vector<drafts::Turn> turns, bool continues);

    EditorRoom& editor_;
    player::Form1& form1_;
    const drafts::Options& options_;
    moments::Layer recording_; // which is heard
    std::int32_t heardMs_ = 0; // the end of what has arrived
    std::size_t words_ = 0;    // that have arrived
    bool inserts_ = false;
};

} // namespace app
