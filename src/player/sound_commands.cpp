#include "player/sound_commands.h"

#include "lang/words.h"

#include <cmath>
#include <utility>

namespace player {

using lang::operator""_en;
using platform::Channel;
using platform::SoundAdjustment;

SoundCommands::SoundCommands(Form1& form, platform::Worker& disk, base::Text store)
    : form_(form), disk_(disk), recordings_(std::move(store)), mnuSound_("mnuSound", u"Ad&just the sound"_en),
      mnuClearVoice_("mnuClearVoice", u"&Clear voice"_en),
      channels_{{{controls::MenuItem("mnuBothChannels", u"&Both channels"_en), Channel::Both},
                 {controls::MenuItem("mnuLeftChannel", u"&Left channel"_en), Channel::Left},
                 {controls::MenuItem("mnuRightChannel", u"&Right channel"_en), Channel::Right}}},
      boosts_{{{controls::MenuItem("mnuBoost100", u"&As loud as recorded"_en), 100},
               {controls::MenuItem("mnuBoost150", u"Louder: &150 %"_en), 150},
               {controls::MenuItem("mnuBoost200", u"Louder: &200 %"_en), 200}}} {
    mnuSound_.items = {&mnuClearVoice_, &line1_};
    mnuClearVoice_.Click = [this] {
        SoundAdjustment sound = sound_;
        sound.clearVoice = !sound.clearVoice;
        choose(sound);
    };
    for (ChannelItem& each : channels_) {
        mnuSound_.items.push_back(&each.item);
        each.item.Click = [this, channel = each.channel] {
            SoundAdjustment sound = sound_;
            sound.channel = channel;
            choose(sound);
        };
    }
    mnuSound_.items.push_back(&line2_);
    for (BoostItem& each : boosts_) {
        mnuSound_.items.push_back(&each.item);
        each.item.Click = [this, boost = each.boost] {
            SoundAdjustment sound = sound_;
            sound.boost = boost;
            choose(sound);
        };
    }
    form_.WMP1.MediaChanged = [this] { mediaChanged(); };
    apply({});
}

// A length that is corrected later is still the one that the file states when it is opened, each time.
void SoundCommands::mediaChanged() {
    const auto length = static_cast<std::int32_t>(std::lround(form_.WMP1.duration() * 1000));
    if (length == 0) {
        name_ = base::afterLast(form_.WMP1.URL(), base::pathSeparator);
        length_ = 0;
        chosen_ = false;
        apply(name_.empty() ? SoundAdjustment() : recordings_.of(name_, 0));
    } else if (length_ == 0 && !name_.empty()) {
        length_ = length;
        chosen_ ? remember() : apply(recordings_.of(name_, length_));
    }
}

void SoundCommands::choose(const SoundAdjustment& sound) {
    apply(sound);
    chosen_ = true;
    if (length_ != 0)
        remember();
}

void SoundCommands::remember() {
    recordings_.set(name_, length_, sound_, disk_);
}

void SoundCommands::apply(const SoundAdjustment& sound) {
    sound_ = sound;
    form_.WMP1.adjustSound(sound);
    const auto show = [this](controls::MenuItem& item, bool isChosen) {
        // A menu draws a box beside an item from its first mark on: this way all of them have one.
        item.checked = true;
        item.checked = isChosen;
        item.enabled = !name_.empty();
    };
    show(mnuClearVoice_, sound.clearVoice);
    for (ChannelItem& each : channels_)
        show(each.item, each.channel == sound.channel);
    for (BoostItem& each : boosts_)
        show(each.item, each.boost == sound.boost);
}

} // namespace player
