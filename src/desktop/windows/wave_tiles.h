#pragma once

#include "sound/sound_window.h"

#include <QFont>
#include <QPixmap>
#include <map>

class QPainter;

namespace desktop {

// The waveform with its ruler and flags as painted tiles. Tile n shows the n-th part of the recording at the
// current zoom, so that a view that scrolls only copies pictures.
class WaveTiles {
public:
    static constexpr int width = 256; // pixels, at single density
    static constexpr int ruler = 22;  // pixels at the top

    explicit WaveTiles(const sound::WaveBox& wave) : wave_(wave) {}

    // Tile n (from 0) at this height (pixels) and device pixel ratio.
    const QPixmap& tile(int n, int height, double ratio);
    // What the tiles show has changed.
    void clear() { tiles_.clear(); }

private:
    QPixmap painted(int n, int height, double ratio) const;
    void paintPhrases(QPainter& painter, double from, double to) const;
    void paintRuler(QPainter& painter, double from, double to) const;
    void paintBars(QPainter& painter, double from, double to) const;
    void paintFlags(QPainter& painter, double from, double to) const;

    // Pixels from the beginning of the recording.
    double pixelOf(double seconds) const { return seconds / wave_.part.perPixel; }

    const sound::WaveBox& wave_;
    std::map<int, QPixmap> tiles_;
    int height_ = 0;
    double ratio_ = 0;
    double perPixel_ = 0;
};

} // namespace desktop
