#include "aids/abbreviation_file.h"

#include "base/carry_on.h"
#include "base/failure.h"
#include "base/files.h"

#include <cerrno>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <utility>

namespace aids {

namespace {

constexpr int lookPeriod = 1000;         // ms
constexpr off_t largestFile = 8'000'000; // bytes

// What tells that a file has changed.
struct Sign {
    bool exists = false;
    bool isFile = false;
    ino_t node = 0;
    off_t size = 0;
    timespec changed{};

    bool operator==(const Sign& other) const {
        return exists == other.exists && node == other.node && size == other.size &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

Sign signOf(const std::string& path) {
    struct stat about {};
    if (stat(path.c_str(), &about) != 0)
        return {};
    return {true, S_ISREG(about.st_mode), about.st_ino, about.st_size, about.st_mtim};
}

Abbreviations read(const base::Text& path, const Sign& sign) {
    if (!sign.exists)
        return {};
    if (!sign.isFile)
        throw base::systemFailure(EISDIR);
    if (sign.size > largestFile)
        throw base::Failure("The file is too large");
    return Abbreviations(base::readFile(path));
}

} // namespace

struct AbbreviationFile::Post {
    struct Letter {
        std::optional<Abbreviations> list;
        base::Text failure;
    };

    std::mutex mutex;
    std::optional<Letter> letter;
    std::optional<Sign> seen; // when the file was read last
    bool looking = false;
};

AbbreviationFile::AbbreviationFile(base::Text path, platform::EventLoop& loop, platform::Worker& disk)
    : path_(std::move(path)), disk_(disk), watch_(loop), post_(std::make_shared<Post>()) {
    watch_.Tick = [this] {
        take();
        look();
    };
}

void AbbreviationFile::start() {
    look();
    watch_.setInterval(lookPeriod);
}

void AbbreviationFile::look() {
    {
        const std::lock_guard lock(post_->mutex);
        if (std::exchange(post_->looking, true))
            return;
    }
    disk_.post([post = post_, path = path_] {
        const Sign sign = signOf(base::toUtf8(path));
        std::unique_lock lock(post->mutex);
        const bool changed = sign != post->seen;
        lock.unlock();
        std::optional<Post::Letter> letter;
        if (changed) {
            letter.emplace();
            base::carryOn([&] { letter->list = read(path, sign); },
                          [&](const char* reason) { letter->failure = base::fromUtf8(reason); });
        }
        lock.lock();
        post->seen = sign;
        post->looking = false;
        if (letter)
            post->letter = std::move(letter);
    });
}

void AbbreviationFile::take() {
    std::optional<Post::Letter> letter;
    {
        const std::lock_guard lock(post_->mutex);
        letter = std::exchange(post_->letter, std::nullopt);
    }
    if (!letter)
        return;
    failure_ = letter->failure;
    if (letter->list)
        list_ = std::move(*letter->list);
    Changed();
}

void AbbreviationFile::change(const std::function<void(Abbreviations&)>& edit) {
    Abbreviations now = read(path_, signOf(base::toUtf8(path_)));
    list_ = now;
    edit(now);
    base::replaceFile(path_, now.bytes());
    list_ = std::move(now);
    failure_.clear();
    // A list that the worker has read meanwhile may be older.
    const std::lock_guard lock(post_->mutex);
    post_->letter.reset();
    post_->seen.reset();
}

} // namespace aids
