#include "desktop/services/lazy_spelling.h"

#include <QTimer>

namespace desktop {

void LazySpelling::list(Languages done) {
    if (auto* const spelling = module_.load())
        spelling->list(std::move(done));
    else
        QTimer::singleShot(0, &loop_,
                           [this, done = std::move(done)] { done({}, base::fromUtf8(module_.failure())); });
}

void LazySpelling::use(const std::string& tag, std::function<void(const base::Text& failure)> done) {
    if (auto* const spelling = module_.get())
        spelling->use(tag, std::move(done));
}

void LazySpelling::check(std::vector<base::Text> words,
                         std::function<void(const std::vector<bool>& right)> done) {
    if (auto* const spelling = module_.get())
        spelling->check(std::move(words), std::move(done));
}

void LazySpelling::suggest(const base::Text& word,
                           std::function<void(const std::vector<base::Text>& words)> done) {
    if (auto* const spelling = module_.get())
        spelling->suggest(word, std::move(done));
}

void LazySpelling::stop() {
    if (auto* const spelling = module_.get())
        spelling->stop();
}

} // namespace desktop
