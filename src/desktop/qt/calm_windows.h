#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>

struct xcb_connection_t;

namespace desktop {

// Withdraws every demand for attention that a window manager makes in the name of one of the program's
// windows. It takes a window that appears beside the active one for an uninvited guest, and flashes it in the
// task bar.
class CalmWindows : public QAbstractNativeEventFilter {
public:
    CalmWindows();
    ~CalmWindows() override;
    Q_DISABLE_COPY_MOVE(CalmWindows)

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    std::uint32_t atom(const char* name) const;
    bool demands(std::uint32_t window) const;
    void withdraw(std::uint32_t window) const;

    xcb_connection_t* connection_; // null without an X server
    std::uint32_t state_ = 0;
    std::uint32_t demand_ = 0;
};

} // namespace desktop
