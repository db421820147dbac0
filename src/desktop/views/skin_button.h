#pragma once

class QPainter;
class QStyleOptionButton;

namespace desktop {

// Paints the background of a text button as a tile of the skin: brighter under the mouse, with a stronger
// outline if Enter presses it and a ring if it has the focus.
void paintButtonTile(const QStyleOptionButton& button, QPainter& painter);

} // namespace desktop
