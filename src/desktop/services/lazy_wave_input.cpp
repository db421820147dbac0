#include "desktop/services/lazy_wave_input.h"

#include <utility>

namespace desktop {

namespace {

constexpr int noDriver = 6; // the error code that the program's sound interface has always used for this

} // namespace

void LazyWaveInput::open(const platform::WaveFormat& format, std::function<void(Result)> opened) {
    platform::WaveInput* const engine = module_.load();
    if (!engine) {
        opened(noDriver);
        return;
    }
    engine->BufferDone = [this](platform::WaveBuffer& buffer) {
        if (BufferDone)
            BufferDone(buffer);
    };
    engine->DeviceLost = [this](const base::Text& reason) { DeviceLost(reason); };
    engine->DeviceBack = [this] { DeviceBack(); };
    engine->open(format, std::move(opened));
}

void LazyWaveInput::close() {
    if (auto* const engine = module_.get())
        engine->close();
}

LazyWaveInput::Result LazyWaveInput::prepareHeader(platform::WaveBuffer& buffer) {
    auto* const engine = module_.get();
    return engine ? engine->prepareHeader(buffer) : noDriver;
}

LazyWaveInput::Result LazyWaveInput::unprepareHeader(platform::WaveBuffer& buffer) {
    auto* const engine = module_.get();
    return engine ? engine->unprepareHeader(buffer) : noDriver;
}

LazyWaveInput::Result LazyWaveInput::addBuffer(platform::WaveBuffer& buffer) {
    auto* const engine = module_.get();
    return engine ? engine->addBuffer(buffer) : noDriver;
}

LazyWaveInput::Result LazyWaveInput::start() {
    auto* const engine = module_.get();
    return engine ? engine->start() : noDriver;
}

LazyWaveInput::Result LazyWaveInput::stop() {
    auto* const engine = module_.get();
    return engine ? engine->stop() : noDriver;
}

LazyWaveInput::Result LazyWaveInput::reset() {
    auto* const engine = module_.get();
    return engine ? engine->reset() : noDriver;
}

base::Text LazyWaveInput::errorText(Result result) const {
    auto* const engine = module_.get();
    return engine ? engine->errorText(result) : base::fromUtf8(module_.failure());
}

} // namespace desktop
