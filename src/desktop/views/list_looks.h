// Shared look of the windows with a list and buttons below it.
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

inline constexpr int edge = 10;      // pixels between window edge and contents, and between the controls
inline constexpr int rowMargin = 8;  // pixels left and right of a row's text
inline constexpr int rowPadding = 5; // pixels above and below a row's text

// Text colours of a row.
struct RowColors {
    QColor text;
    QColor accent; // for what leads the eye, such as a time
    QColor faint;  // for secondary text
};

// Fills the background of a row, either selected or in one of two alternating colours, and returns the text
// colours for it.
RowColors paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, int row);

// Draws a key, such as "Ctrl+O", as it is printed on the user's keyboard, at the left of this place.
void paintKeyCap(QPainter& painter, const QRect& place, const QString& keys, const RowColors& colors);

// Sets the skin's thin frame.
void frame(QFrame& box);
// The same for a list, which gets no horizontal scroll bar.
void framedList(QListView& list);

// The common button size, wider if the caption needs it.
QSize buttonSize(const QPushButton& button);

// Adds line-break opportunities within paths.
QString breakable(QString text);

// Moves the control to this place in the window, in pixels; its widget follows.
void putIn(controls::Control& control, const QRect& place);

} // namespace desktop
