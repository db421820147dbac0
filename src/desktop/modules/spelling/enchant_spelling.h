// The spelling dictionaries of the desktop, through Enchant.
#pragma once

#include "dictionaries.h"
#include "platform/spelling.h"

#include <QObject>
#include <condition_variable>
#include <deque>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

namespace desktop {

// Asks the dictionaries on a thread of its own. Must be used on the thread of the Qt event loop that created
// it.
class EnchantSpelling final : public QObject, public platform::Spelling {
public:
    EnchantSpelling();
    EnchantSpelling(const EnchantSpelling&) = delete;
    EnchantSpelling& operator=(const EnchantSpelling&) = delete;
    ~EnchantSpelling() override;

    void list(Languages done) override;
    void use(const std::string& tag, std::function<void(const base::Text& failure)> done) override;
    void check(std::vector<base::Text> words,
               std::function<void(const std::vector<bool>& right)> done) override;
    void suggest(const base::Text& word,
                 std::function<void(const std::vector<base::Text>& words)> done) override;
    void stop() override;

private:
    // Runs on the thread; what it returns runs on the event loop.
    using Job = std::function<std::function<void()>(Dictionaries&)>;

    // Shared with the thread, which outlives this object if a disk never answers.
    struct Shared {
        std::mutex mutex;
        std::condition_variable more;
        std::deque<Job> jobs;
        int question = 0;                 // a higher number after each call that drops the open questions
        EnchantSpelling* owner = nullptr; // null once nobody waits for answers
        std::promise<void> ended;
    };

    void add(Job job);
    void dropQuestions();
    static void work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
    std::thread thread_;
};

} // namespace desktop
