#pragma once

#include "hands/keys_and_pedals_window.h"

#include <QLineEdit>

namespace desktop {

// A box that shows the last combination of keys that was pressed in it. Backspace removes it; Tab, Enter and
// Escape work as in other boxes.
class KeyBoxView : public QLineEdit {
public:
    KeyBoxView(hands::KeyBox& box, QWidget& parent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void follow();
    void show(const QString& keys);
    void choose(const QString& keys);

    hands::KeyBox& box_;
    bool showing_ = false; // the text is not the user's
};

} // namespace desktop
