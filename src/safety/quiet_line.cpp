#include "safety/quiet_line.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace safety {

namespace {

constexpr int showAfter = 250;  // ms; combines notices that arrive together or while the windows open
constexpr int hideAfter = 8000; // ms
constexpr int placeEvery = 200; // ms; windows open and move meanwhile
constexpr std::size_t mostSentences = 3;
constexpr double gap = 45; // twips between the line and an edge of a window or the screen

bool overlap(const controls::Box& one, const controls::Box& other) {
    return one.left < other.left + other.width && other.left < one.left + one.width &&
           one.top < other.top + other.height && other.top < one.top + one.height;
}

bool contains(const controls::Box& whole, const controls::Box& part) {
    return part.left >= whole.left && part.left + part.width <= whole.left + whole.width &&
           part.top >= whole.top && part.top + part.height <= whole.top + whole.height;
}

} // namespace

QuietLine::QuietLine(platform::EventLoop& loop, Notices& notices, lang::Words& words,
                     const controls::Screen& screen, std::function<const controls::Window&()> usual,
                     std::function<std::optional<controls::Box>()> text)
    : notices_(notices), words_(words), screen_(screen), usual_(std::move(usual)), text_(std::move(text)),
      soon_(loop), away_(loop), follow_(loop) {
    notices.Told = [this](const controls::Window* concerned) { tell(concerned); };
    soon_.Tick = [this] { show(); };
    away_.Tick = [this] { hide(); };
    follow_.Tick = [this] { place(); };
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
    follow_.setInterval(placeEvery);
}

void QuietLine::hide() {
    away_.setInterval(0);
    follow_.setInterval(0);
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

// Places the line where it covers none of the program's windows: below the one concerned, beside its lower
// edge, or below another one. If there is no room, it covers the last lines of the text rather than a
// control.
void QuietLine::place() {
    const controls::Window* window = concerned_ && concerned_->visible ? concerned_ : &usual_();
    if (!window->visible || window->windowState == controls::WindowState::Minimised)
        window = nullptr;
    const controls::Box area =
        window ? screen_.areaOf(*window) : controls::Box{0, 0, screen_.width, screen_.height};
    const controls::Box at = window ? controls::Box{window->left, window->top, window->width, window->height}
                                    : controls::Box{area.left, area.top + area.height, area.width, 0};
    const controls::Box place = freePlace(at, area).value_or(coveringPlace(at, area));
    form.left = place.left;
    form.top = place.top;
}

std::optional<controls::Box> QuietLine::freePlace(const controls::Box& at, const controls::Box& area) const {
    const double width = form.width;
    const double height = form.height;
    const double right = at.left + at.width;
    const double below = at.top + at.height + gap;
    const double beside = below - gap - height;
    const double middle = std::clamp(at.left + (at.width - width) / 2, area.left,
                                     std::max(area.left, area.left + area.width - width));
    const std::vector<controls::Box> occupied = screen_.occupied();
    std::vector<controls::Box> places = {{middle, below, width, height},
                                         {right + gap, beside, width, height},
                                         {at.left - gap - width, beside, width, height}};
    for (const controls::Box& other : occupied)
        places.push_back({middle, other.top + other.height + gap, width, height});
    for (const controls::Box& place : places) {
        if (contains(area, place) &&
            std::none_of(occupied.begin(), occupied.end(),
                         [&](const controls::Box& box) { return overlap(box, place); }))
            return place;
    }
    return std::nullopt;
}

controls::Box QuietLine::coveringPlace(const controls::Box& at, const controls::Box& area) const {
    const std::optional<controls::Box> text = text_();
    const controls::Box on = text ? *text : at;
    const double bottom = std::min(on.top + on.height, area.top + area.height);
    const double most = std::max(area.left, area.left + area.width - form.width);
    return {std::clamp(on.left + (on.width - form.width) / 2, area.left, most),
            std::max(area.top, bottom - form.height - gap), form.width, form.height};
}

} // namespace safety
