#pragma once

#include <QObject>
#include <functional>

class QSessionManager;

namespace desktop {

// Handles the ends of the program that no window requests: termination signals, the session manager, and a
// lost display. Each runs one routine, on the event loop if it still exists.
class SessionEnd : public QObject {
public:
    // `end` saves what is unsaved and ends the process; it runs once. `keep` only saves: the user may still
    // cancel the end of the session.
    SessionEnd(std::function<void()> end, std::function<void()> keep);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
    ~SessionEnd() override;

private:
    void signalCame();
    static void displayGone();

    std::function<void()> end_;
    static SessionEnd* current_;
};

} // namespace desktop
