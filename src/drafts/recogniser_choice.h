#pragma once

#include "drafts/command_line.h"
#include "drafts/options.h"
#include "drafts/recogniser_window.h"
#include "lang/words.h"
#include "platform/child_process.h"
#include "platform/clipboard.h"

#include <functional>
#include <optional>

namespace drafts {

// The upper half of the window: the list of recognisers, the command line of the chosen one, and how to
// install it where it is missing.
class RecogniserChoice {
public:
    RecogniserChoice(RecogniserWindow& form, RecogniserOptions& options,
                     const platform::ChildProcess& process, platform::Clipboard& clipboard,
                     lang::Words& words);

    // Shows the options as they are, and looks for the program again.
    void show();
    void setEnabled(bool enabled);
    // The command line, or nothing if it cannot be run: the hint tells why, and the focus is where it can be
    // mended.
    std::optional<CommandLine> command();
    // The recogniser has failed without a word: tells what it may lack.
    void tellPackages();

    // The user changed an option.
    std::function<void()> OptionsChanged = [] {};

private:
    const Recogniser& chosen() const;
    base::Text name(const Recogniser& recogniser) const;
    void choose();
    void changeCommand();
    void showHint();
    void hint(const base::Text& text, bool canInstall);

    RecogniserWindow& form_;
    RecogniserOptions& options_;
    const platform::ChildProcess& process_;
    platform::Clipboard& clipboard_;
    lang::Words& words_;
};

} // namespace drafts
