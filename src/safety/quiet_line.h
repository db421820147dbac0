#pragma once

#include "controls/controls.h"
#include "controls/timer.h"
#include "safety/notices.h"

#include <deque>
#include <functional>
#include <optional>

namespace safety {

// The quiet line as data: a small frameless window that never takes the focus. Its caption holds one line per
// sentence. The desktop sets width and height to fit the text and calls Resize; clicking the window calls
// Click.
struct QuietLineWindow : controls::Window {
    QuietLineWindow() : Window("QuietLine", {}) { topmost = true; }
};

// Shows new notices at the lower edge of the window concerned, for eight seconds or until a click.
class QuietLine {
public:
    // `usual` returns the window to use for notices about none in particular, `text` the visible text on the
    // screen (twips), which the line covers if there is no room elsewhere; none if it is hidden.
    QuietLine(platform::EventLoop& loop, Notices& notices, lang::Words& words, const controls::Screen& screen,
              std::function<const controls::Window&()> usual,
              std::function<std::optional<controls::Box>()> text);

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(QuietLineWindow&)> Load = [](QuietLineWindow&) {};

    QuietLineWindow form;

private:
    void tell(const controls::Window* concerned);
    void show();
    void hide();
    void write();
    void place();
    // In the work area `area`, for a window at `at`.
    std::optional<controls::Box> freePlace(const controls::Box& at, const controls::Box& area) const;
    controls::Box coveringPlace(const controls::Box& at, const controls::Box& area) const;

    Notices& notices_;
    const lang::Words& words_;
    const controls::Screen& screen_;
    std::function<const controls::Window&()> usual_;
    std::function<std::optional<controls::Box>()> text_;
    controls::Timer soon_;
    controls::Timer away_;
    controls::Timer follow_;
    std::deque<Notices::Notice> told_; // shown now, oldest first
    const controls::Window* concerned_ = nullptr;
};

} // namespace safety
