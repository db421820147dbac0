#pragma once

#include "base/text.h"
#include "controls/property.h"

#include <functional>

namespace controls {

// What a drawn control is for screen readers and the keyboard. Kind: a picture button is a button, a label a
// text, everything else a decoration, which screen readers are not told of.
enum class Role { Kind, Decoration, Text, Button, Toggle, Slider, Meter, Link };

// What screen readers are told of a control, besides its caption and its place. Buttons, toggles, sliders and
// links are also operated by the keyboard.
struct Accessible {
    explicit Accessible(Observed* control) : name(control), on(control) {}

    Role role = Role::Kind;
    Property<base::Text> name; // in the program's language; empty: the caption or tool tip
    Property<bool> on;         // state of a toggle
    // Brings `on` up to date; called before it is read.
    std::function<void()> refresh = [] {};
    std::function<void()> press; // empty: as a click

    // The value of a slider or meter, from 0 to `most`. A slider without setValue is not available.
    std::function<double()> value = [] { return 0.0; };
    std::function<double()> most = [] { return 100.0; };
    std::function<void(double)> setValue;
    std::function<base::Text()> valueText = [] { return base::Text(); };
    double step = 5;       // of an arrow key
    bool advances = false; // the value changes by itself, which is not announced
};

} // namespace controls
