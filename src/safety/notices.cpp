#include "safety/notices.h"

#include <utility>

namespace safety {

namespace {

constexpr std::int64_t repeatAfter = 60; // seconds

} // namespace

void Notices::tell(lang::English sentence, std::vector<base::Text> parts, const controls::Window* concerned) {
    const std::int64_t time = now_();
    std::erase_if(notices_, [&](const Notice& notice) {
        return base::TextView(notice.sentence) == base::TextView(sentence) && notice.parts == parts &&
               time - notice.time < repeatAfter;
    });
    notices_.push_front({{sentence, std::move(parts)}, time});
    if (notices_.size() > most)
        notices_.pop_back();
    Listed();
    Told(concerned);
}

} // namespace safety
