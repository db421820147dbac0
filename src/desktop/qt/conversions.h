// Conversions between the program's units and Qt's.
#pragma once

#include "base/text.h"
#include "controls/controls.h"

#include <QRect>
#include <QString>
#include <cmath>
#include <string_view>

namespace desktop {

inline double pixelsOfTwips(double twips) {
    return twips / controls::twipsPerPixel;
}

// To whole pixels.
inline int pixels(double twips) {
    return static_cast<int>(std::lround(pixelsOfTwips(twips)));
}

// The position and size of a control in pixels.
inline QRect placeOf(const controls::Control& control) {
    return {pixels(control.left), pixels(control.top), pixels(control.width), pixels(control.height)};
}

inline double twips(double pixels) {
    return pixels * controls::twipsPerPixel;
}

// A font size in pixels. The skin has a fixed scale of 96 dpi, whatever the screen reports.
inline int letterPixels(double points) {
    constexpr double pixelsPerPoint = 96.0 / 72;
    return static_cast<int>(std::lround(points * pixelsPerPoint));
}

inline QString qstring(base::TextView text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline QString qstring(const controls::Property<base::Text>& text) {
    return qstring(base::TextView(text.get()));
}

inline QString qstring(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline base::Text text(const QString& string) {
    return string.toStdU16String();
}

} // namespace desktop
