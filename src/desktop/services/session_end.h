#pragma once

#include <QObject>
#include <functional>

class QSessionManager;

namespace desktop {

// Ends of the program that no window asks for: the signals that ask a process to end, the session manager,
// and a display that goes away. Each runs one routine, on the loop where there is still one.
class SessionEnd : public QObject {
public:
    // `end` keeps what is unsaved and ends the process; it runs once. `keep` only keeps it: the user may
    // still call the end of the session off.
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
