#pragma once

#include "desktop/services/lazy_module.h"
#include "platform/wave_input.h"

namespace desktop {

// Sound capture, through a module that is loaded when the recorder opens, so that it does not slow the start.
// Without the module, every device reports an error.
class LazyWaveInput : public platform::WaveInput {
public:
    // `module` is the path of the module, in UTF-8.
    explicit LazyWaveInput(std::string module) : module_(std::move(module), "quillmere_wave_input") {}

    // Loads the module in the background, so that the first recording need not wait for it.
    void prepare() { module_.prepare(); }

    void open(const platform::WaveFormat& format, std::function<void(Result)> opened) override;
    void close() override;
    Result prepareHeader(platform::WaveBuffer& buffer) override;
    Result unprepareHeader(platform::WaveBuffer& buffer) override;
    Result addBuffer(platform::WaveBuffer& buffer) override;
    Result start() override;
    Result stop() override;
    Result reset() override;
    base::Text errorText(Result result) const override;

private:
    LazyModule<platform::WaveInput> module_;
};

} // namespace desktop
