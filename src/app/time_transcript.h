#pragma once

#include "app/editor_room.h"
#include "drafts/recogniser_use.h"
#include "drafts/time_words.h"
#include "platform/dialogs.h"

namespace app {

// Gives the words of the text in the editor the times at which a recogniser hears them. The text itself stays
// as it is.
class TimeTranscript : public drafts::RecogniserUse {
public:
    TimeTranscript(EditorRoom& editor, platform::Dialogs& dialogs, const lang::Words& words);

    lang::English title() const override;
    bool begin(const drafts::HeardRecording& recording) override;
    void arrived(const drafts::Segment& segment) override;
    lang::Sentence finish(std::optional<drafts::Draft> draft) override;

private:
    base::Text text() const;
    bool hasMoments() const;
    void keepOwn(std::vector<moments::MomentOfText>& words) const;

    EditorRoom& editor_;
    platform::Dialogs& dialogs_;
    const lang::Words& words_;
    moments::Layer recording_; // which is heard
    drafts::Draft heard_;
    bool keeps_ = false; // words that have a time keep it
};

} // namespace app
