#pragma once

#include "drafts/recogniser_choice.h"
#include "drafts/recogniser_run.h"
#include "drafts/recogniser_use.h"
#include "drafts/recogniser_window.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace drafts {

// The commands that need a recogniser, and their window: starts it, shows how far it is, cancels it. It keeps
// running while the window is closed.
class MakeDraft {
public:
    // The ports of a recogniser and the folder for its files, see RecogniserRun.
    struct Tools {
        platform::Decoder& decoder;
        platform::ChildProcess& process;
        platform::Clipboard& clipboard;
        Text folder;
        base::CodePage page;
    };

    MakeDraft(Tools tools, RecogniserOptions& options, lang::Words& words);

    // The commands for the menu, which outlive this object: a command and what it does with the words.
    void add(controls::MenuItem& command, RecogniserUse& use);

    // Cancels the recogniser; the sentence tells why.
    void stop(lang::English reason);
    bool runs() const { return run_.stage() != RecogniserRun::Stage::Idle; }
    // The exit goes.
    void leave();

    // The open recording.
    std::function<HeardRecording()> Recording = [] { return HeardRecording(); };
    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(RecogniserWindow&)> Load = [](RecogniserWindow&) {};
    // The recogniser has ended, while the user may be elsewhere.
    std::function<void(const lang::Sentence&)> Tell = [](const lang::Sentence&) {};
    // The user changed an option.
    std::function<void()>& OptionsChanged() { return choice_.OptionsChanged; }

    RecogniserWindow form;

private:
    void open(RecogniserUse& use);
    void translate();
    void showRecording();
    void start();
    void showState();
    void showProgress();
    void finish(RecogniserRun::Result result);
    void end(const lang::Sentence& told);
    void tellStatus(const lang::Sentence& told);

    lang::Words& words_;
    RecogniserChoice choice_;
    RecogniserRun run_;
    RecogniserUse* use_ = nullptr;         // of the window
    HeardRecording recording_;             // which is heard
    std::optional<lang::Sentence> status_; // how the last run ended
};

} // namespace drafts
