#pragma once

class QPainter;
class QStyleOptionButton;

namespace desktop {

// Paints the ground of a button with words as a tile of the skin: lit under the mouse, with a stronger rim
// where Enter presses it.
void paintButtonTile(const QStyleOptionButton& button, QPainter& painter);

} // namespace desktop
