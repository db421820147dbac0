#pragma once

#include <QColor>

namespace desktop::palette {

// The program's colours, for what it draws itself.
constexpr QColor ink(0x1F, 0x2A, 0x44);    // letters, and the ring around the focus
constexpr QColor teal(0x0E, 0x7C, 0x86);   // what is active or selected
constexpr QColor grey(0x5B, 0x67, 0x7A);   // secondary text
constexpr QColor rim(0xBC, 0xD9, 0xDC);    // outlines
constexpr QColor rule(0xC8, 0xCE, 0xD4);   // lines between parts of a window
constexpr QColor ground(0xF8, 0xFC, 0xFC); // behind text and tiles

} // namespace desktop::palette
