#include "desktop/views/skin_button.h"

#include "desktop/qt/palette.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPen>
#include <QStyleOptionButton>

namespace desktop {

namespace {

constexpr double roundness = 3.5; // pixels
constexpr double ringMargin = 2;  // pixels from the outline to the ring of the focus
constexpr QColor tileBottom(0xE1, 0xEF, 0xF1);
constexpr QColor litBottom(0xC9, 0xEA, 0xEC);
constexpr QColor heldTop(0xB9, 0xE6, 0xE8);
constexpr QColor pale(0xF4, 0xF6, 0xF7);
constexpr QColor paleRim(0xDD, 0xE3, 0xE6);

} // namespace

void paintButtonTile(const QStyleOptionButton& button, QPainter& painter) {
    const bool offered = button.state.testFlag(QStyle::State_Enabled);
    const bool held = button.state.testAnyFlags(QStyle::State_Sunken | QStyle::State_On);
    const bool lit = button.state.testFlag(QStyle::State_MouseOver);
    const bool chosen = button.state.testFlag(QStyle::State_HasFocus) ||
                        button.features.testFlag(QStyleOptionButton::DefaultButton);
    const QRectF place = QRectF(button.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient tile(place.topLeft(), place.bottomLeft());
    tile.setColorAt(0, !offered ? pale : held ? heldTop : palette::ground);
    tile.setColorAt(1, !offered ? pale : held || lit ? litBottom : tileBottom);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(!offered ? paleRim : chosen || lit || held ? palette::teal : palette::rim, 1));
    painter.setBrush(tile);
    painter.drawRoundedRect(place, roundness, roundness);
    if (offered && button.state.testFlag(QStyle::State_HasFocus)) {
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(place.adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin),
                                roundness - 1, roundness - 1);
    }
    painter.restore();
}

} // namespace desktop
