#pragma once

#include "desktop/services/lazy_module.h"
#include "platform/spelling.h"

#include <QObject>

namespace desktop {

// The spelling dictionaries, through a module that is loaded when spelling is switched on. If the module
// cannot be loaded, there are no languages.
class LazySpelling : public platform::Spelling {
public:
    // `module` is the path of the module, in UTF-8.
    explicit LazySpelling(std::string module) : module_(std::move(module), "quillmere_spelling") {}

    void list(Languages done) override;
    void use(const std::string& tag, std::function<void(const base::Text& failure)> done) override;
    void check(std::vector<base::Text> words,
               std::function<void(const std::vector<bool>& right)> done) override;
    void suggest(const base::Text& word,
                 std::function<void(const std::vector<base::Text>& words)> done) override;
    void stop() override;

private:
    LazyModule<platform::Spelling> module_;
    QObject loop_; // from whose event loop a missing module is reported
};

} // namespace desktop
