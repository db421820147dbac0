#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <vector>

class QWidget;

namespace desktop {

// Gives the focus to this window, with priority over the window that would get it back from a closing dialog.
void giveKeyboard(QWidget& window);

// Keeps the program's windows in the order in which they last had the focus. When the active one closes, the
// previous one gets the focus back, whatever kind of window it was. A window manager by itself would choose
// the topmost window, which is the player, or the owner of the dialog.
class KeyboardOrder : public QObject {
public:
    KeyboardOrder();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void moveToFront(QWidget& window);
    void windowActivated(QWidget& window);
    void windowShown(QWidget& window);
    void windowHidden(const QWidget& window);
    // The window that should have the focus; null if none can.
    QWidget* next() const;
    void giveBack();
    bool handOver(QObject* receiver, QEvent& event) const;

    std::vector<QPointer<QWidget>> order_; // most recent first
    QTimer returning_;                     // active while the focus is being returned
    int asked_ = 0;                        // number of requests since then
};

} // namespace desktop
