#pragma once

#include "desktop/windows/form1_window.h"
#include "fakes/fake_desktop.h"

#include <filesystem>
#include <memory>

namespace bench {

// Stays at one position until it is set.
class StillPlayer : public fakes::FakePlayer {
public:
    using FakePlayer::FakePlayer;
    double position = 3661;

    double currentPosition() const override { return position; }
    base::Text currentPositionString() const override { return base::clockText(position); }
};

// The program with a real window but in virtual time: nothing happens unless requested.
class StillDesktop : public fakes::FakeDesktop {
public:
    StillDesktop() {
        std::filesystem::copy(PORTABLE_DIR "/Files", folder.path() / "Files",
                              std::filesystem::copy_options::recursive |
                                  std::filesystem::copy_options::overwrite_existing);
    }
    ~StillDesktop() override { window_.reset(); }

    QWidget& window() { return *window_; }

    platform::MediaPlayer& mediaPlayer() override { return still; }
    using fakes::FakeDesktop::show;
    void show(player::Form1& form) override {
        form1 = &form;
        window_ = std::make_unique<desktop::Form1Window>(form);
    }

    StillPlayer still{loop};

private:
    std::unique_ptr<desktop::Form1Window> window_;
};

} // namespace bench
