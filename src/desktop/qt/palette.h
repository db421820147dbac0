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

constexpr QColor amber(0xE3, 0xA0, 0x2B); // what the user has marked

// The colours of the waveform, on a white or a dark page.
struct Wave {
    QColor ground;
    QColor phrase;  // behind speech
    QColor loudest; // peaks of speech
    QColor average;
    QColor silence; // what is no speech
    QColor letters; // of the ruler
    QColor lines;
    QColor position;
};
constexpr Wave lightWave{
    ground, QColor(0xE4, 0xF3, 0xF4), QColor(0x63, 0xB7, 0xBD), teal, QColor(0x9F, 0xAC, 0xB8), grey, rule,
    ink};
constexpr Wave darkWave{QColor(0x1B, 0x20, 0x2B), QColor(0x24, 0x33, 0x40), QColor(0x2F, 0x86, 0x8F),
                        QColor(0x6F, 0xD0, 0xD6), QColor(0x5A, 0x67, 0x78), QColor(0xA9, 0xB5, 0xC3),
                        QColor(0x3A, 0x45, 0x55), QColor(0xF8, 0xFC, 0xFC)};

} // namespace desktop::palette
