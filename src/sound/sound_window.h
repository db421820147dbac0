#pragma once

#include "controls/controls.h"
#include "sound/sound_map.h"

#include <functional>
#include <memory>
#include <vector>

namespace sound {

// A bookmark on the waveform.
struct Flag {
    double seconds = 0;
    int number = 0; // in the list of bookmarks, from 1

    bool operator==(const Flag&) const = default;
};

// Which part of the recording the waveform shows, in seconds. It changes with each frame: whoever paints it
// observes it apart from the control.
struct ShownPart : controls::Observed {
    controls::Property<double> begin{this, 0};             // at the left edge
    controls::Property<double> perPixel{this, 1.0 / 75.0}; // at single pixel density
    controls::Property<double> position{this, 0};          // what is heard
};

// The drawn waveform, with ruler, phrases, bookmarks and position.
struct WaveBox : controls::Control {
    using Control::Control;

    controls::Property<std::shared_ptr<const SoundMap>> map{this}; // null: nothing is drawn
    controls::Property<std::vector<Flag>> flags{this};
    controls::Property<bool> isDark{this, false};
    ShownPart part;

    double pixels() const { return width / controls::twipsPerPixel; }

    // The wheel turned at this position (twips) by this part of a notch, forward being positive; `sideways`
    // if it moves instead of zooming.
    std::function<void(double x, double notches, bool sideways)> Wheel = [](double, double, bool) {};
    // A key zooms by so many notches.
    std::function<void(double notches)> Zoom = [](double) {};
};

// The window of the waveform as data. A sizable window; the desktop positions the controls.
struct SoundWindow : controls::Window {
    SoundWindow() : Window("SoundWindow", {0, 0, 9600, 2700}) {
        Wave.accessible.role = controls::Role::Slider;
        lblState.alignment = controls::Alignment::Centre;
        lblState.foreColor = controls::rgb(0x5B, 0x67, 0x7A);
    }

    WaveBox Wave{"Wave", {}};
    controls::Label lblState{"lblSoundState", {}}; // why there is no waveform
};

} // namespace sound
