#pragma once

#include "controls/timer.h"
#include "hands/player_commands.h"
#include "platform/media_controls.h"
#include "player/media_opener.h"
#include "player/speed.h"
#include "player/volume_bar.h"

#include <functional>

namespace hands {

// The desktop's media keys and panels: shows them what the player does, and does what they ask for, by the
// routines of the buttons.
class Panels : private platform::MediaCommands {
public:
    // The parts of the player that it uses.
    struct Player {
        player::Form1& form;
        player::VolumeBar& volume;
        player::Speed& speed;
        player::MediaOpener& opener;
    };

    // `controls` returns the desktop's, or null where there are none; it is called when they are first used.
    Panels(platform::EventLoop& loop, const Player& player, PlayerCommands& commands,
           std::function<platform::MediaControls*()> controls);

    void begin();
    void end();

private:
    void play() override;
    void pause() override;
    void playPause() override;
    void stop() override;
    void stepForward() override;
    void stepBack() override;
    double position() const override;
    void setPosition(double seconds) override;
    void setRate(double factor) override;
    void setVolume(double share) override;
    void open(const base::Text& path) override;
    void quit() override;

    bool isOpen() const;
    platform::MediaFacts facts() const;
    void watch();
    void watchPosition(const platform::MediaFacts& now);

    platform::EventLoop& loop_;
    Player player_;
    PlayerCommands& commands_;
    std::function<platform::MediaControls*()> find_;
    platform::MediaControls* controls_ = nullptr; // while they are in use
    controls::Timer watch_;
    platform::MediaFacts shown_;
    double position_ = 0;       // s, at
    std::int64_t lookedAt_ = 0; // this time of the loop
};

} // namespace hands
