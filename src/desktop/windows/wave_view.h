#pragma once

#include "desktop/views/control_views.h"
#include "desktop/windows/wave_tiles.h"

namespace desktop {

// Shows the waveform and the position in it. A frame copies tiles, and only where something has changed.
class WaveView : public ControlView {
public:
    WaveView(sound::WaveBox& wave, QWidget* parent);

protected:
    void follow() override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // The part of the recording or the position has changed.
    void move();
    QRect placeOfPosition() const;
    void paintPosition(QPainter& painter) const;

    sound::WaveBox& wave_;
    WaveTiles tiles_;
    std::shared_ptr<const sound::SoundMap> map_; // as painted; likewise below
    std::vector<sound::Flag> flags_;
    bool isDark_ = false;
    double perPixel_ = 0;
    int left_ = 0;     // device pixels from the beginning of the recording to the left edge
    int position_ = 0; // device pixels from the left edge
};

} // namespace desktop
