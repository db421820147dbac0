#include "enchant_spelling.h"

#include "base/failure.h"

#include <QLocale>
#include <QMetaObject>
#include <chrono>
#include <utility>

namespace desktop {

namespace {

constexpr std::chrono::seconds patience(1); // for the thread at the exit

// Two countries may share a language, so the tag is part of the name.
base::Text nameOf(const std::string& tag) {
    const QString name = QLocale(QString::fromStdString(tag)).nativeLanguageName();
    const QString shown = QString::fromStdString(tag);
    return (name.isEmpty() ? shown : name + QStringLiteral(" (") + shown + u')').toStdU16String();
}

} // namespace

EnchantSpelling::EnchantSpelling() {
    shared_->owner = this;
    thread_ = std::thread([shared = shared_] { work(shared); });
}

EnchantSpelling::~EnchantSpelling() {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->owner = nullptr;
    }
    shared_->more.notify_one();
    // Only a disk that does not answer keeps the thread.
    if (shared_->ended.get_future().wait_for(patience) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach();
}

void EnchantSpelling::list(Languages done) {
    add([done = std::move(done)](Dictionaries& dictionaries) {
        std::vector<platform::SpellingLanguage> languages;
        for (const std::string& tag : dictionaries.installed())
            languages.push_back({tag, nameOf(tag)});
        return [done, languages = std::move(languages)] { done(languages, {}); };
    });
}

void EnchantSpelling::use(const std::string& tag, std::function<void(const base::Text& failure)> done) {
    dropQuestions();
    add([tag, done = std::move(done)](Dictionaries& dictionaries) {
        base::Text failure;
        try {
            dictionaries.use(tag);
        } catch (const base::Failure& failed) {
            failure = base::fromUtf8(failed.what());
        }
        return [done, failure = std::move(failure)] { done(failure); };
    });
}

void EnchantSpelling::check(std::vector<base::Text> words,
                            std::function<void(const std::vector<bool>& right)> done) {
    add([words = std::move(words), done = std::move(done)](Dictionaries& dictionaries) {
        std::vector<bool> right;
        for (const base::Text& word : words)
            right.push_back(dictionaries.isRight(base::toUtf8(word)));
        return [done, right = std::move(right)] { done(right); };
    });
}

void EnchantSpelling::suggest(const base::Text& word,
                              std::function<void(const std::vector<base::Text>& words)> done) {
    add([word = base::toUtf8(word), done = std::move(done)](Dictionaries& dictionaries) {
        return [done, words = dictionaries.suggestions(word)] { done(words); };
    });
}

void EnchantSpelling::stop() {
    dropQuestions();
    add([](Dictionaries& dictionaries) {
        dictionaries.release();
        return std::function<void()>();
    });
}

void EnchantSpelling::dropQuestions() {
    const std::lock_guard lock(shared_->mutex);
    ++shared_->question;
    shared_->jobs.clear();
}

void EnchantSpelling::add(Job job) {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->jobs.push_back(std::move(job));
    }
    shared_->more.notify_one();
}

void EnchantSpelling::work(const std::shared_ptr<Shared>& shared) {
    {
        Dictionaries dictionaries;
        std::unique_lock lock(shared->mutex);
        while (true) {
            shared->more.wait(lock, [&] { return !shared->owner || !shared->jobs.empty(); });
            if (!shared->owner)
                break;
            const Job job = std::move(shared->jobs.front());
            shared->jobs.pop_front();
            const int question = shared->question;
            lock.unlock();
            std::function<void()> answer = job(dictionaries);
            lock.lock();
            if (!shared->owner || !answer)
                continue;
            // The owner's own thread alone changes the number.
            QMetaObject::invokeMethod(
                shared->owner,
                [shared, question, answer = std::move(answer)] {
                    if (shared->question == question)
                        answer();
                },
                Qt::QueuedConnection);
        }
    }
    shared->ended.set_value();
}

} // namespace desktop
