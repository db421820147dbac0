#pragma once

#include "desktop/services/lazy_module.h"
#include "platform/decoder.h"

#include <QTimer>

namespace desktop {

// The decoder of recordings, through a module that the first conversion loads. If the module cannot be
// loaded, each conversion fails.
class LazyDecoder : public platform::Decoder {
public:
    // `module` is the path of the module, in UTF-8.
    explicit LazyDecoder(std::string module);

    void start(const base::Text& recording, const base::Text& wav) override;
    void listen(const base::Text& recording, std::shared_ptr<platform::SampleSink> sink) override;
    void cancel() override;

private:
    // Loads the module and connects its decoder to this one. Returns null if it cannot be loaded; that is
    // reported from the event loop.
    platform::Decoder* load();

    LazyModule<platform::Decoder> module_;
    QTimer fails_; // reports the missing module from the event loop
};

} // namespace desktop
