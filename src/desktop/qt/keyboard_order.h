#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <vector>

class QWidget;

namespace desktop {

// Gives the focus to this window, with priority over the window that would get it back from a closing dialog.
// Does nothing and returns false while another program has the focus: a timer or a command from outside must
// not take it away from there.
bool giveKeyboard(QWidget& window);

// Keeps the program's windows in the order in which they last had the focus. When the active one closes, the
// previous one gets the focus back, whatever kind of window it was. A window manager by itself would choose
// the topmost window, which is the player, or the owner of the dialog.
class KeyboardOrder : public QObject {
public:
    KeyboardOrder();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    // True while a window of this program has the focus, and while it returns from one that has closed. A
    // program that has just started has not had it yet and may ask for it.
    bool ownsKeyboard() const;
    void moveToFront(QWidget& window);
    void windowActivated(QWidget& window);
    void windowShown(QWidget& window);
    void windowHidden(const QWidget& window);
    // The window that should have the focus; null if none can.
    QWidget* next() const;
    void giveBack();
    bool handOver(QObject* receiver, QEvent& event) const;

    std::vector<QPointer<QWidget>> order_; // most recent first
    bool hadKeyboard_ = false;             // a window of this program has had the focus
    QTimer returning_;                     // active while the focus is being returned
    int asked_ = 0;                        // number of requests since then
};

} // namespace desktop
