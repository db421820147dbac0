#pragma once

#include "base/text.h"

#include <enchant.h>
#include <memory>
#include <string>
#include <vector>

namespace desktop {

// The dictionaries that Enchant finds, and the one in use. Slow: used on a thread of its own.
class Dictionaries {
public:
    Dictionaries() = default;
    Dictionaries(const Dictionaries&) = delete;
    Dictionaries& operator=(const Dictionaries&) = delete;
    ~Dictionaries() { release(); }

    // The tags of the languages that have one now, sorted, each once.
    std::vector<std::string> installed();
    // Loads the dictionary of this language. Throws base::Failure if there is none.
    void use(const std::string& tag);
    // Without a dictionary, every word is right.
    bool isRight(const std::string& word);
    std::vector<base::Text> suggestions(const std::string& word);
    // Frees the memory of the dictionary.
    void release();

private:
    struct Free {
        void operator()(EnchantBroker* broker) const { enchant_broker_free(broker); }
    };

    std::unique_ptr<EnchantBroker, Free> broker_;
    EnchantDict* dictionary_ = nullptr; // owned by the broker
};

} // namespace desktop
