#pragma once

#include "controls/controls.h"
#include "controls/timer.h"
#include "safety/notices.h"

#include <deque>

namespace safety {

// The quiet line as data: a small window without a frame, which takes neither keyboard nor focus. Its caption
// is the text, a line for each sentence. Who shows it sets width and height to what the text takes and calls
// Resize; a click on it is its Click.
struct QuietLineWindow : controls::Window {
    QuietLineWindow() : Window("QuietLine", {}) { topmost = true; }
};

// Shows what the notices tell, at the lower edge of the window concerned: eight seconds long, or until a
// click.
class QuietLine {
public:
    // `usual` is the window for what concerns none in particular.
    QuietLine(platform::EventLoop& loop, Notices& notices, const controls::Screen& screen,
              std::function<const controls::Window&()> usual);

    // Builds the window, at its first use.
    std::function<void(QuietLineWindow&)> Load = [](QuietLineWindow&) {};

    QuietLineWindow form;

private:
    void tell(const controls::Window* concerned);
    void show();
    void hide();
    void place();

    Notices& notices_;
    const controls::Screen& screen_;
    std::function<const controls::Window&()> usual_;
    controls::Timer soon_;
    controls::Timer away_;
    std::deque<base::Text> sentences_; // the oldest first
    const controls::Window* concerned_ = nullptr;
};

} // namespace safety
