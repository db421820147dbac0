// Between the program's units and Qt's.
#pragma once

#include "base/text.h"
#include "controls/property.h"

#include <QString>
#include <cmath>
#include <string_view>

namespace desktop {

inline constexpr int twipsPerPixel = 15;

inline int pixels(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}

inline double twips(double pixels) {
    return pixels * twipsPerPixel;
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
