// The command that opens a draft as a new document.
#pragma once

#include "base/code_page.h"
#include "controls/controls.h"
#include "drafts/options.h"
#include "drafts/read/forms.h"
#include "drafts/transcript.h"
#include "lang/words.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

namespace drafts {

// Asks for a draft, reads it on a background thread and passes the transcript on. A file that takes more than
// a moment shows a progress window, in which the user can cancel. What cannot be read changes nothing.
class OpenDraft {
public:
    OpenDraft(platform::EventLoop& loop, platform::Dialogs& dialogs, const lang::Words& words,
              base::CodePage page, const Options& options);
    OpenDraft(const OpenDraft&) = delete;
    OpenDraft& operator=(const OpenDraft&) = delete;
    ~OpenDraft();

    // The commands for the menu.
    std::vector<controls::MenuItem*> commands() { return {&mnuOpenDraft_}; }

    // Opens the draft at this path; if it is empty, asks the user for one.
    void open(base::Text path = {});
    // Waits for the file that is being read and shows it.
    void finish();
    // Cancels it.
    void stop();

    // Shows the transcript as a new document. Throws Failure if that cannot be done.
    std::function<void(const Transcript&)> Show = [](const Transcript&) {};
    // Tells what was odd about the file; `line` replaces %1.
    std::function<void(lang::English sentence, const base::Text& line)> Tell = [](auto, const auto&) {};

private:
    struct Result {
        Transcript transcript;
        std::vector<Remark> remarks;
        base::Text failure;         // the system's words
        std::vector<Remark> damage; // what makes the file unreadable, at most one
        bool failed = false;
    };

    // Runs on the background thread.
    Result read(const base::Text& path, TurnOptions options);
    void tick();
    void report(base::TextView reason);

    platform::Dialogs& dialogs_;
    const lang::Words& words_;
    const base::CodePage page_;
    const Options& options_;
    controls::MenuItem mnuOpenDraft_;
    std::unique_ptr<platform::Alarm> alarm_;
    std::unique_ptr<platform::Progress> progress_;
    std::atomic_bool stop_ = false;
    std::atomic<double> share_ = 0;
    std::future<Result> running_; // last member, so that it ends before the members that it uses
};

} // namespace drafts
