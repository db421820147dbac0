#pragma once

#include "platform/spelling.h"

#include <algorithm>
#include <deque>
#include <map>
#include <utility>

namespace fakes {

// Dictionaries in which the listed words are wrong; answers when the test says so.
class FakeSpelling : public platform::Spelling {
public:
    std::vector<platform::SpellingLanguage> languages{{"de_DE", u"Deutsch (de_DE)"},
                                                      {"en_US", u"English (en_US)"}};
    base::Text failure;
    std::map<base::Text, std::vector<base::Text>> wrong; // with their suggestions
    std::string used;
    std::vector<base::Text> asked; // all words

    void list(Languages done) override {
        questions_.emplace_back([this, done] { done(languages, failure); });
    }
    void use(const std::string& tag, std::function<void(const base::Text& failure)> done) override {
        questions_.clear();
        questions_.emplace_back([this, tag, done] {
            const bool there = std::ranges::count(languages, tag, &platform::SpellingLanguage::tag) > 0;
            used = there ? tag : std::string();
            done(there ? u"" : u"no dictionary");
        });
    }
    void check(std::vector<base::Text> words,
               std::function<void(const std::vector<bool>& right)> done) override {
        asked.insert(asked.end(), words.begin(), words.end());
        questions_.emplace_back([this, words, done] {
            std::vector<bool> right;
            right.reserve(words.size());
            for (const base::Text& word : words)
                right.push_back(!wrong.contains(word));
            done(right);
        });
    }
    void suggest(const base::Text& word,
                 std::function<void(const std::vector<base::Text>& words)> done) override {
        questions_.emplace_back([this, word, done] { done(wrong[word]); });
    }
    void stop() override {
        questions_.clear();
        used.clear();
    }

    // Answers all questions, also those that answers lead to.
    void answer() {
        while (!questions_.empty()) {
            const auto question = std::move(questions_.front());
            questions_.pop_front();
            question();
        }
    }

private:
    std::deque<std::function<void()>> questions_;
};

} // namespace fakes
