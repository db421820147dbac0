#pragma once

#include "desktop/qt/module.h"
#include "platform/wave_input.h"

#include <future>
#include <memory>
#include <string>

namespace desktop {

// Sound capture, through a module that is loaded when the recorder opens, so that it does not slow the start.
// Without the module, every device reports an error.
class LazyWaveInput : public platform::WaveInput {
public:
    // `module` is the path of the module, in UTF-8.
    explicit LazyWaveInput(std::string module) : module_(std::move(module)) {}

    // Loads the module in the background, so that the first recording need not wait for it.
    void prepare();

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
    void load();

    std::string module_;
    std::future<Module> reading_;
    std::string failure_;
    std::unique_ptr<platform::WaveInput> engine_;
};

} // namespace desktop
