#include "dictionaries.h"

#include "base/failure.h"

#include <cstring>
#include <enchant-provider.h>
#include <filesystem>
#include <set>
#include <system_error>

namespace desktop {

namespace {

namespace fs = std::filesystem;

// Enchant creates an empty list of the user's own words for each language. The words that other programs have
// put there count, but a folder that can be carried around leaves nothing behind.
class NoEmptyLists {
public:
    explicit NoEmptyLists(const std::string& tag) {
        char* const folder = enchant_get_user_config_dir();
        if (!folder)
            return;
        const fs::path lists = folder;
        std::free(folder); // NOLINT(cppcoreguidelines-no-malloc): glib's own allocator is malloc
        std::error_code ignored;
        for (const fs::path& path : {lists / (tag + ".dic"), lists / (tag + ".exc"), lists})
            if (!fs::exists(path, ignored))
                missing_.push_back(path);
    }
    NoEmptyLists(const NoEmptyLists&) = delete;
    NoEmptyLists& operator=(const NoEmptyLists&) = delete;
    ~NoEmptyLists() {
        std::error_code ignored;
        for (const fs::path& path : missing_)
            if (fs::is_empty(path, ignored) && !ignored)
                fs::remove(path, ignored);
    }

private:
    std::vector<fs::path> missing_; // the folder last
};

} // namespace

std::vector<std::string> Dictionaries::installed() {
    const std::unique_ptr<EnchantBroker, Free> broker(enchant_broker_init());
    std::set<std::string> tags;
    const auto add = [](const char* tag, const char*, const char*, const char*, void* to) {
        // A "-" is in the names of variants of one spelling, which no locale has.
        if (!std::strchr(tag, '-'))
            static_cast<std::set<std::string>*>(to)->insert(tag);
    };
    enchant_broker_list_dicts(broker.get(), add, &tags);
    return {tags.begin(), tags.end()};
}

void Dictionaries::use(const std::string& tag) {
    release();
    const NoEmptyLists afterwards(tag);
    broker_.reset(enchant_broker_init());
    dictionary_ = enchant_broker_request_dict(broker_.get(), tag.c_str());
    if (dictionary_)
        return;
    const char* const why = enchant_broker_get_error(broker_.get());
    throw base::Failure(why ? why : "no dictionary " + tag);
}

bool Dictionaries::isRight(const std::string& word) {
    // Negative for what cannot be judged.
    return !dictionary_ || word.empty() ||
           enchant_dict_check(dictionary_, word.c_str(), static_cast<ssize_t>(word.size())) <= 0;
}

std::vector<base::Text> Dictionaries::suggestions(const std::string& word) {
    std::vector<base::Text> words;
    if (!dictionary_ || word.empty())
        return words;
    std::size_t count = 0;
    char** const found =
        enchant_dict_suggest(dictionary_, word.c_str(), static_cast<ssize_t>(word.size()), &count);
    if (!found)
        return words;
    for (std::size_t i = 0; i < count; ++i)
        words.push_back(base::fromUtf8(found[i]));
    enchant_dict_free_string_list(dictionary_, found);
    return words;
}

void Dictionaries::release() {
    if (dictionary_)
        enchant_broker_free_dict(broker_.get(), dictionary_);
    dictionary_ = nullptr;
    broker_.reset();
}

} // namespace desktop
