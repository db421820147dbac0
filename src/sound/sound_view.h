#pragma once

#include "controls/timer.h"
#include "lang/words.h"
#include "sound/sound_window.h"

#include <functional>

namespace sound {

// What the window "Sound" shows and does: it follows the position, unless the user has just looked elsewhere,
// zooms around the pointer, moves by a drag and seeks by a click.
class SoundView {
public:
    // The player, as far as the window needs it. Seconds.
    struct Player {
        std::function<bool()> plays;
        std::function<double()> position;
        std::function<double()> duration;
        std::function<void(double)> seek;
    };
    // Why there is no waveform, if there is none.
    enum class State : std::uint8_t { Shown, NoRecording, Reading, NoSound };

    SoundView(SoundWindow& form, Player player, lang::Words& words, platform::EventLoop& loop);

    void open();
    void close();
    // The recording, its map or its bookmarks may have changed.
    // `readUpTo` seconds have been read, if it is being read.
    void show(State state, std::shared_ptr<const SoundMap> map, std::vector<Flag> flags, double readUpTo = 0);

    // The window was opened or closed by the user.
    std::function<void()> Shown = [] {};
    // A click has done its work: the focus may return to the text.
    std::function<void()> Clicked = [] {};

private:
    void describe();
    void translate();
    void showState();
    void tick();
    void follow(double before, double now, bool plays);
    void zoomAround(double x, double notches);
    // Around the position that is heard, if it is shown.
    void zoom(double notches);
    void moveTo(double begin);
    double duration() const;
    void press(const controls::MouseEvent& event);
    void drag(const controls::MouseEvent& event);
    void release(const controls::MouseEvent& event);

    SoundWindow& form_;
    ShownPart& part_;
    const Player player_;
    lang::Words& words_;
    platform::EventLoop& loop_;
    controls::Timer timer_;
    State state_ = State::NoRecording;
    int percent_ = 0;         // of the recording that have been read
    std::int64_t quietSince_; // ms; when the user last looked elsewhere
    double pressedAt_ = 0;    // twips
    double pressedBegin_ = 0; // seconds at the left edge then
    bool pressed_ = false;    // the left button is held
    bool dragged_ = false;    // it has moved since
};

} // namespace sound
