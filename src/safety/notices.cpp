#include "safety/notices.h"

#include <algorithm>

namespace safety {

namespace {

constexpr std::int64_t repeatAfter = 60; // seconds

} // namespace

void Notices::tell(base::TextView sentence, const controls::Window* concerned) {
    const std::int64_t time = now_();
    const bool isRepeat = std::any_of(notices_.begin(), notices_.end(), [&](const Notice& notice) {
        return notice.sentence == sentence && time - notice.time < repeatAfter;
    });
    if (isRepeat)
        return;
    notices_.push_front({time, base::Text(sentence)});
    if (notices_.size() > most)
        notices_.pop_back();
    Listed();
    Told(concerned);
}

} // namespace safety
