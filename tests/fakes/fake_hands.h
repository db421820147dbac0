#pragma once

#include "platform/global_keys.h"
#include "platform/pedals.h"

#include <algorithm>
#include <set>

namespace fakes {

// Pedals that the test plugs in and presses; only those of watched models are heard.
struct FakePedals : platform::Pedals {
    std::vector<platform::WatchedModel> models;
    bool all = false;
    std::vector<platform::PedalDevice> plugged;

    void watch(const std::vector<platform::WatchedModel>& now, bool every) override {
        models = now;
        all = every;
    }
    void stop() override { watch({}, false); }
    std::vector<platform::PedalDevice> devices() const override {
        std::vector<platform::PedalDevice> heard = plugged;
        std::erase_if(heard, [this](const auto& each) { return !hears(each.model); });
        return heard;
    }
    base::Text failure() const override { return {}; }

    bool hears(const platform::DeviceModel& model) const {
        return all || std::ranges::find(models, model, &platform::WatchedModel::model) != models.end();
    }
    void move(int device, const platform::PedalCode& pedal, bool pressed) {
        if (hears(pedal.model))
            Moved(device, pedal, pressed);
    }
};

// Keys that the test presses; some may belong to another program, or not exist.
struct FakeGlobalKeys : platform::GlobalKeys {
    std::vector<base::Text> held; // by index
    std::set<base::Text> taken;
    std::set<base::Text> unknown;
    base::Text typed;
    bool types = true;

    std::vector<platform::KeyHold> take(const std::vector<base::Text>& combinations) override {
        held = combinations;
        std::vector<platform::KeyHold> holds;
        for (const base::Text& each : held)
            holds.push_back(taken.contains(each)     ? platform::KeyHold::Taken
                            : unknown.contains(each) ? platform::KeyHold::Unknown
                                                     : platform::KeyHold::Held);
        return holds;
    }
    void type(base::TextView text) override {
        types ? static_cast<void>(typed += text) : NotTyped(base::Text(text));
    }
    base::Text failure() const override { return {}; }

    void move(const base::Text& keys, bool pressed) {
        const auto found = std::ranges::find(held, keys);
        if (found != held.end())
            Moved(static_cast<std::size_t>(found - held.begin()), pressed);
    }
};

} // namespace fakes
