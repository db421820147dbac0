#include "desktop/text/readable_colors.h"

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr double leastContrast = 4.5; // as the accessibility guidelines for web content ask for
constexpr double middle = 0.18;       // luminance that has the same contrast to black and to white
constexpr int darkest = 128;          // a page with less lightness than this is dark

// The relative luminance, from 0 to 1.
double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

// The nearest shade of `letters` that can be read.
QColor readable(const QColor& letters, const QColor& ground) {
    constexpr double step = 0.05;
    const double change = luminance(ground) < middle ? step : -step;
    QColor shade = letters;
    while (contrast(shade, ground) < leastContrast) {
        const double lightness = shade.lightnessF() + change;
        if (lightness <= 0 || lightness >= 1)
            return change > 0 ? Qt::white : Qt::black;
        shade.setHslF(std::max(shade.hslHueF(), 0.0F), shade.hslSaturationF(), static_cast<float>(lightness));
    }
    return shade;
}

} // namespace

QList<QTextLayout::FormatRange> readableColors(const QTextBlock& block, const QPalette& page) {
    QList<QTextLayout::FormatRange> ranges;
    const QColor base = page.color(QPalette::Base);
    if (base.lightness() >= darkest)
        return ranges;
    const auto colorOf = [](const QBrush& own, const QColor& usual) {
        return own.style() == Qt::NoBrush ? usual : own.color();
    };
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextFragment fragment = piece.fragment();
        const QTextCharFormat format = fragment.charFormat();
        const QColor letters = colorOf(format.foreground(), page.color(QPalette::Text));
        const QColor shown = readable(letters, colorOf(format.background(), base));
        if (shown == letters)
            continue;
        QTextCharFormat change;
        change.setForeground(shown);
        ranges.push_back({fragment.position() - block.position(), fragment.length(), change});
    }
    return ranges;
}

} // namespace desktop
