// What windows with a list and buttons below it have in common.
#pragma once

#include "controls/controls.h"

#include <QColor>
#include <QRect>
#include <QString>

class QFrame;
class QListView;
class QPainter;
class QPushButton;
class QStyleOptionViewItem;

namespace desktop {

inline constexpr int edge = 10;      // pixels between the window's edge and what is in it, and between that
inline constexpr int rowMargin = 8;  // pixels beside the text of a row
inline constexpr int rowPadding = 5; // pixels above and below it

// The ink of a row.
struct RowColors {
    QColor text;
    QColor accent; // of what leads the eye, as a time
    QColor faint;  // of what comes second
};

// Fills the row: the chosen one, or one of two grounds by turns.
RowColors paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, int row);

// The thin frame of the skin.
void frame(QFrame& box);
// The same for a list, which has no bar below.
void framedList(QListView& list);

// At least as wide as the other buttons of the program, wider where the caption asks for it.
QSize buttonSize(const QPushButton& button);

// The text with places to break a line inside of its paths.
QString breakable(QString text);

// Moves the control to this place in the window, in pixels; its view follows.
void putIn(controls::Control& control, const QRect& place);

} // namespace desktop
