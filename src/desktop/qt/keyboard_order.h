#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <vector>

class QWidget;

namespace desktop {

// Brings the keyboard to this window, ahead of the one that would get it back from a box that closes now.
void giveKeyboard(QWidget& window);

// Keeps the windows of the program in the order in which they had the keyboard last. When the one that has it
// goes away, the one before it gets the keyboard back, whatever kind of box, dialog or window it was. Left to
// itself a window manager takes the window on top, which is the player, or the one that owns a dialog.
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
    // The window that should have the keyboard; null when none can.
    QWidget* next() const;
    void giveBack();
    bool handOver(QObject* receiver, QEvent& event) const;

    std::vector<QPointer<QWidget>> order_; // the last one first
    QTimer returning_;                     // runs while the keyboard is on its way back
    int asked_ = 0;                        // how often since it began
};

} // namespace desktop
