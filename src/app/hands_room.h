#pragma once

#include "app/options_file.h"
#include "hands/options.h"

#include <functional>

namespace app {

// What drives the player besides its own windows: foot pedals, keys from anywhere, panels of the desktop.
class HandsRoom {
public:
    explicit HandsRoom(OptionsFile& options) {
        options.tie("Pedals", options_.pedals);
        options.tie("KeysFromAnywhere", options_.keys);
        options.tie("DesktopPanels", options_.panels);
    }

    const hands::Options& options() const { return options_; }

    // The user has switched the desktop's panels on or off: options().panels.
    std::function<void()> PanelsChanged = [] {};

private:
    hands::Options options_;
};

} // namespace app
