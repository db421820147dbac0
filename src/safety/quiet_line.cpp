#include "safety/quiet_line.h"

#include <algorithm>
#include <utility>

namespace safety {

namespace {

constexpr int showAfter = 250;  // ms; combines notices that arrive together or while the windows open
constexpr int hideAfter = 8000; // ms
constexpr std::size_t mostSentences = 3;
constexpr double gap = 45; // twips between the line and an edge of a window or the screen

} // namespace

QuietLine::QuietLine(platform::EventLoop& loop, Notices& notices, lang::Words& words,
                     const controls::Screen& screen, std::function<const controls::Window&()> usual)
    : notices_(notices), words_(words), screen_(screen), usual_(std::move(usual)), soon_(loop), away_(loop) {
    notices.Told = [this](const controls::Window* concerned) { tell(concerned); };
    soon_.Tick = [this] { show(); };
    away_.Tick = [this] { hide(); };
    form.Click = [this] { hide(); };
    form.Resize = [this] { place(); };
    words.follow([this] { write(); });
}

void QuietLine::tell(const controls::Window* concerned) {
    const Notices::Notice& newest = notices_.all().front();
    std::erase_if(told_, [&](const Notices::Notice& notice) {
        return base::TextView(notice.sentence) == base::TextView(newest.sentence) &&
               notice.parts == newest.parts;
    });
    told_.push_back(newest);
    if (told_.size() > mostSentences)
        told_.pop_front();
    concerned_ = concerned;
    soon_.setInterval(showAfter);
}

void QuietLine::show() {
    soon_.setInterval(0);
    std::exchange(Load, [](QuietLineWindow&) {})(form);
    write();
    place();
    form.visible = true;
    away_.setInterval(hideAfter);
}

void QuietLine::hide() {
    away_.setInterval(0);
    told_.clear();
    form.visible = false;
}

void QuietLine::write() {
    base::Text text;
    for (const Notices::Notice& notice : told_)
        text += (text.empty() ? u"" : u"\n") + notice.in(words_);
    if (!text.empty())
        form.caption = text;
}

// Places the line below the window, so that it covers nothing; inside the window if the screen ends there.
void QuietLine::place() {
    const controls::Window& window = concerned_ && concerned_->visible ? *concerned_ : usual_();
    const bool isSeen = window.visible && window.windowState != controls::WindowState::Minimised;
    const double bottom = isSeen ? window.top + window.height : screen_.height;
    const double middle = isSeen ? window.left + window.width / 2 : screen_.width / 2;
    const double left = std::max(middle - form.width / 2, isSeen ? window.left.get() : 0);
    const double lowest = screen_.height - form.height - gap;
    form.left = std::clamp(left, 0.0, std::max(0.0, screen_.width - form.width));
    const double inside = std::min<double>(bottom, screen_.height) - form.height - gap;
    form.top = std::max(0.0, bottom + gap <= lowest ? bottom + gap : inside);
}

} // namespace safety
