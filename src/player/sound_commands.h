#pragma once

#include "player/form1.h"
#include "player/recording_sounds.h"

#include <array>
#include <vector>

namespace player {

// The commands that make the open recording easier to understand. Each recording keeps its own choice.
class SoundCommands {
public:
    // `store` is the path of the file that keeps the choices.
    SoundCommands(Form1& form, platform::Worker& disk, base::Text store);

    std::vector<controls::MenuItem*> commands() { return {&mnuSound_}; }

private:
    struct ChannelItem {
        controls::MenuItem item;
        platform::Channel channel;
    };
    struct BoostItem {
        controls::MenuItem item;
        int boost; // per cent
    };

    // Another recording has been opened, or the length of this one has become known.
    void mediaChanged();
    void choose(const platform::SoundAdjustment& sound);
    void apply(const platform::SoundAdjustment& sound);
    void remember();

    Form1& form_;
    platform::Worker& disk_;
    RecordingSounds recordings_;
    platform::SoundAdjustment sound_;
    base::Text name_;         // of the open recording; empty for none
    std::int32_t length_ = 0; // ms, as first stated; 0 while unknown
    bool chosen_ = false;     // by the user, before the length was known

    controls::MenuItem mnuSound_;
    controls::MenuItem mnuClearVoice_;
    controls::MenuItem line1_{"mnuSoundLine1"};
    std::array<ChannelItem, 3> channels_;
    controls::MenuItem line2_{"mnuSoundLine2"};
    std::array<BoostItem, 3> boosts_;
};

} // namespace player
