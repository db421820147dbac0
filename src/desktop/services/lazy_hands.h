#pragma once

#include "desktop/services/lazy_module.h"
#include "platform/global_keys.h"
#include "platform/pedals.h"

#include <QTimer>

namespace desktop {

// Foot pedals through a module that is loaded when they are first switched on.
class LazyPedals : public platform::Pedals {
public:
    // `module` is the path of the module, in UTF-8.
    explicit LazyPedals(std::string module) : module_(std::move(module), "quillmere_pedals") {}

    void watch(const std::vector<platform::WatchedModel>& models, bool all) override;
    void stop() override;
    std::vector<platform::PedalDevice> devices() const override;
    base::Text failure() const override;

private:
    LazyModule<platform::Pedals> module_;
};

// Keys from anywhere through a module that is loaded when they are first switched on, or a text is first
// typed.
class LazyGlobalKeys : public platform::GlobalKeys {
public:
    explicit LazyGlobalKeys(std::string module);

    std::vector<platform::KeyHold> take(const std::vector<base::Text>& combinations) override;
    void type(base::TextView text) override;
    base::Text failure() const override;

private:
    platform::GlobalKeys* load();

    LazyModule<platform::GlobalKeys> module_;
    QTimer fails_; // reports a text that was not typed, from the event loop
    base::Text notTyped_;
};

} // namespace desktop
