#include "desktop/services/lazy_decoder.h"

namespace desktop {

LazyDecoder::LazyDecoder(std::string module) : module_(std::move(module), "quillmere_decoder") {
    fails_.setSingleShot(true);
    QObject::connect(&fails_, &QTimer::timeout, [this] { Finished(base::fromUtf8(module_.failure())); });
}

void LazyDecoder::start(const base::Text& recording, const base::Text& wav) {
    if (platform::Decoder* const decoder = load())
        decoder->start(recording, wav);
}

void LazyDecoder::listen(const base::Text& recording, std::shared_ptr<platform::SampleSink> sink) {
    if (platform::Decoder* const decoder = load())
        decoder->listen(recording, std::move(sink));
}

platform::Decoder* LazyDecoder::load() {
    platform::Decoder* const decoder = module_.load();
    if (!decoder) {
        fails_.start(0);
        return nullptr;
    }
    decoder->Progress = [this](double seconds) { Progress(seconds); };
    decoder->Finished = [this](const base::Text& failure) { Finished(failure); };
    return decoder;
}

void LazyDecoder::cancel() {
    fails_.stop();
    if (auto* const decoder = module_.get())
        decoder->cancel();
}

} // namespace desktop
