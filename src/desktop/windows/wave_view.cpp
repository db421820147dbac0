#include "desktop/windows/wave_view.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr double unitsOfNotch = 120; // of Qt's wheel
constexpr int halfHead = 6;          // pixels on either side of the position
constexpr double headHeight = 8;     // pixels

int rounded(double pixels) {
    return static_cast<int>(std::lround(std::clamp(pixels, -1e9, 1e9)));
}

} // namespace

WaveView::WaveView(sound::WaveBox& wave, QWidget* parent)
    : ControlView(wave, parent), wave_(wave), tiles_(wave) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    wave.part.observe([this] { move(); });
    WaveView::follow();
}

void WaveView::follow() {
    ControlView::follow();
    if (map_ == wave_.map.get() && flags_ == wave_.flags.get() && isDark_ == wave_.isDark)
        return;
    map_ = wave_.map;
    flags_ = wave_.flags;
    isDark_ = wave_.isDark;
    tiles_.clear();
    update();
}

void WaveView::move() {
    const double ratio = devicePixelRatioF();
    const double perPixel = wave_.part.perPixel;
    const int left = rounded(wave_.part.begin / perPixel * ratio);
    const int position = rounded(wave_.part.position / perPixel * ratio) - left;
    const bool scrolled = left != left_ || perPixel != perPixel_;
    if (!scrolled && position == position_)
        return;
    if (scrolled)
        update();
    else
        update(placeOfPosition());
    left_ = left;
    position_ = position;
    perPixel_ = perPixel;
    if (!scrolled)
        update(placeOfPosition());
}

QRect WaveView::placeOfPosition() const {
    const int x = static_cast<int>(std::floor(position_ / devicePixelRatioF()));
    return {x - halfHead - 1, 0, 2 * halfHead + 3, height()};
}

void WaveView::paintEvent(QPaintEvent* event) {
    if (!map_)
        return;
    move();
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    const double left = left_ / ratio;
    const QRect changed = event->rect();
    const auto first = static_cast<int>(std::floor((left + changed.left()) / WaveTiles::width));
    const auto last = static_cast<int>(std::floor((left + changed.right() + 1) / WaveTiles::width));
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int n = std::max(first, 0); n <= last; ++n)
        painter.drawPixmap(QPointF(n * WaveTiles::width - left, 0), tiles_.tile(n, height(), ratio));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (placeOfPosition().intersects(changed))
        paintPosition(painter);
}

void WaveView::paintPosition(QPainter& painter) const {
    const QColor color = (wave_.isDark ? palette::darkWave : palette::lightWave).position;
    const double x = position_ / devicePixelRatioF();
    painter.fillRect(QRectF(x - 1, 0, 2, height()), color);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    QPainterPath head;
    head.moveTo(x - halfHead, 0);
    head.lineTo(x + halfHead, 0);
    head.lineTo(x, headHeight);
    painter.drawPath(head);
}

void WaveView::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const bool sideways = turned.x() != 0 || event->modifiers().testFlag(Qt::ShiftModifier);
    const int units = turned.x() != 0 ? turned.x() : turned.y();
    if (units != 0)
        wave_.Wheel(twips(event->position().x()), units / unitsOfNotch, sideways);
    event->accept();
}

} // namespace desktop
