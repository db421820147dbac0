#pragma once

#include "aids/typing_options.h"
#include "controls/controls.h"

#include <functional>

namespace aids {

// The commands that turn the aids for typing on and off.
class TypingCommands {
public:
    explicit TypingCommands(TypingOptions& options);

    controls::MenuItem& command() { return mnuTyping_; }
    // Shows the options, which have been read.
    void show();

    // The user has changed an option.
    std::function<void()> Changed = [] {};

private:
    struct Row {
        controls::MenuItem& item;
        bool& option;
    };

    controls::MenuItem mnuTyping_;
    controls::MenuItem mnuExpand_;
    controls::MenuItem mnuComplete_;
    controls::MenuItem mnuQuotes_;
    controls::MenuItem mnuDashes_;
    Row rows_[4];
};

} // namespace aids
