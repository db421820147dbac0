#include "desktop/services/lazy_wave_input.h"

#include <utility>

namespace desktop {

namespace {

constexpr int noDriver = 6; // the error code that the program's sound interface has always used for this

} // namespace

void LazyWaveInput::prepare() {
    if (!engine_ && !reading_.valid())
        reading_ = std::async(std::launch::async, [path = module_] { return Module(path); });
}

void LazyWaveInput::load() {
    if (engine_)
        return;
    using Make = platform::WaveInput* (*)();
    prepare();
    const Module library = reading_.get();
    failure_ = library.failure();
    if (const auto make = library.function<Make>("quillmere_wave_input"))
        engine_.reset(make());
    else if (failure_.empty())
        failure_ = ::dlerror();
    if (engine_) {
        engine_->BufferDone = [this](platform::WaveBuffer& buffer) {
            if (BufferDone)
                BufferDone(buffer);
        };
        engine_->DeviceLost = [this](const base::Text& reason) { DeviceLost(reason); };
        engine_->DeviceBack = [this] { DeviceBack(); };
    }
}

void LazyWaveInput::open(const platform::WaveFormat& format, std::function<void(Result)> opened) {
    load();
    if (engine_)
        engine_->open(format, std::move(opened));
    else
        opened(noDriver);
}

void LazyWaveInput::close() {
    if (engine_)
        engine_->close();
}

LazyWaveInput::Result LazyWaveInput::prepareHeader(platform::WaveBuffer& buffer) {
    return engine_ ? engine_->prepareHeader(buffer) : noDriver;
}

LazyWaveInput::Result LazyWaveInput::unprepareHeader(platform::WaveBuffer& buffer) {
    return engine_ ? engine_->unprepareHeader(buffer) : noDriver;
}

LazyWaveInput::Result LazyWaveInput::addBuffer(platform::WaveBuffer& buffer) {
    return engine_ ? engine_->addBuffer(buffer) : noDriver;
}

LazyWaveInput::Result LazyWaveInput::start() {
    return engine_ ? engine_->start() : noDriver;
}

LazyWaveInput::Result LazyWaveInput::stop() {
    return engine_ ? engine_->stop() : noDriver;
}

LazyWaveInput::Result LazyWaveInput::reset() {
    return engine_ ? engine_->reset() : noDriver;
}

base::Text LazyWaveInput::errorText(Result result) const {
    return engine_ ? engine_->errorText(result) : base::fromUtf8(failure_);
}

} // namespace desktop
