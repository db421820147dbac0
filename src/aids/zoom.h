#pragma once

#include "controls/controls.h"
#include "editor/form2.h"

#include <functional>

namespace aids {

// The commands that show the text larger or smaller. The document keeps its sizes.
class Zoom {
public:
    static constexpr int least = 50; // percent
    static constexpr int most = 400;

    explicit Zoom(editor::Form2& form);

    controls::MenuItem& command() { return mnuZoom_; }
    // The size that the user chose, in percent, for the options.
    int& percent() { return percent_; }
    void show();

    // The user has changed the size.
    std::function<void()> Changed = [] {};

private:
    void step(int steps);

    editor::Form2& form_;
    controls::MenuItem mnuZoom_;
    controls::MenuItem mnuLarger_;
    controls::MenuItem mnuSmaller_;
    controls::MenuItem mnuNormal_;
    int percent_ = 100;
};

} // namespace aids
