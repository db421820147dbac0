#include "desktop/services/lazy_hands.h"

namespace desktop {

void LazyPedals::watch(const std::vector<platform::WatchedModel>& models, bool all) {
    platform::Pedals* const pedals = module_.load();
    if (!pedals)
        return;
    pedals->Moved = [this](int device, const platform::PedalCode& pedal, bool pressed) {
        Moved(device, pedal, pressed);
    };
    pedals->DevicesChanged = [this] { DevicesChanged(); };
    pedals->watch(models, all);
}

void LazyPedals::stop() {
    if (auto* const pedals = module_.get())
        pedals->stop();
}

std::vector<platform::PedalDevice> LazyPedals::devices() const {
    const auto* const pedals = module_.get();
    return pedals ? pedals->devices() : std::vector<platform::PedalDevice>();
}

base::Text LazyPedals::failure() const {
    const auto* const pedals = module_.get();
    return pedals ? pedals->failure() : base::fromUtf8(module_.failure());
}

LazyGlobalKeys::LazyGlobalKeys(std::string module) : module_(std::move(module), "quillmere_global_keys") {
    fails_.setSingleShot(true);
    QObject::connect(&fails_, &QTimer::timeout, [this] { NotTyped(notTyped_); });
}

platform::GlobalKeys* LazyGlobalKeys::load() {
    platform::GlobalKeys* const keys = module_.load();
    if (!keys)
        return nullptr;
    keys->Moved = [this](std::size_t index, bool pressed) { Moved(index, pressed); };
    keys->Changed = [this](const std::vector<platform::KeyHold>& holds) { Changed(holds); };
    keys->NotTyped = [this](const base::Text& text) { NotTyped(text); };
    return keys;
}

std::vector<platform::KeyHold> LazyGlobalKeys::take(const std::vector<base::Text>& combinations) {
    platform::GlobalKeys* const keys = combinations.empty() ? module_.get() : load();
    return keys ? keys->take(combinations) : std::vector<platform::KeyHold>();
}

void LazyGlobalKeys::type(base::TextView text) {
    if (platform::GlobalKeys* const keys = load())
        return keys->type(text);
    notTyped_ = base::Text(text);
    fails_.start(0);
}

base::Text LazyGlobalKeys::failure() const {
    const auto* const keys = module_.get();
    return keys ? keys->failure() : base::fromUtf8(module_.failure());
}

} // namespace desktop
