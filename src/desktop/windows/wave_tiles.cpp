#include "desktop/windows/wave_tiles.h"

#include "base/numbers.h"
#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <iterator>

namespace desktop {

namespace {

constexpr std::size_t mostTiles = 24;
constexpr int below = 6;       // pixels between the wave and the lower edge
constexpr double pitch = 4;    // pixels from one bar to the next
constexpr double barWidth = 3; // pixels
constexpr double leastBar = 2; // pixels of height
constexpr double bend = 1.5;   // of the height over the square root of the sound: 2 would be the sound itself
constexpr int leastLoudest = 60;   // of a recording that fills the height; a quieter one stays lower
constexpr double bandCorner = 6;   // pixels
constexpr double leastLabels = 84; // pixels between two times of the ruler
constexpr double rulerPoints = 8;

// Seconds between two times of the ruler.
constexpr double rulerSteps[] = {0.2, 0.5, 1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 1200, 1800, 3600};

const palette::Wave& colorsOf(const sound::WaveBox& wave) {
    return wave.isDark ? palette::darkWave : palette::lightWave;
}

QFont lettersOf(double points, bool bold) {
    QFont font;
    font.setPixelSize(letterPixels(points));
    font.setBold(bold);
    return font;
}

// The sound of one bar, from 0 to 1.
struct Bar {
    double most = 0;
    double average = 0;
};

double heightOf(double value, double loudest) {
    return std::pow(value / loudest, bend);
}

Bar barOf(const std::vector<sound::Peak>& columns, double from, double to, double loudest) {
    const auto size = static_cast<double>(columns.size());
    const auto first = static_cast<std::size_t>(std::clamp(std::floor(from), 0.0, size));
    const auto last =
        static_cast<std::size_t>(std::clamp(std::max(std::floor(to), std::floor(from) + 1), 0.0, size));
    Bar bar;
    for (std::size_t i = first; i < last; ++i) {
        bar.most = std::max(bar.most, static_cast<double>(columns[i].most));
        bar.average += columns[i].average;
    }
    if (last > first)
        bar.average /= static_cast<double>(last - first);
    return {heightOf(bar.most, loudest), heightOf(bar.average, loudest)};
}

} // namespace

const QPixmap& WaveTiles::tile(int n, int height, double ratio) {
    const double perPixel = wave_.part.perPixel;
    if (height != height_ || ratio != ratio_ || perPixel != perPixel_)
        clear();
    height_ = height;
    ratio_ = ratio;
    perPixel_ = perPixel;
    if (const auto known = tiles_.find(n); known != tiles_.end())
        return known->second;
    // The one farthest away goes.
    if (tiles_.size() >= mostTiles)
        tiles_.erase(n - tiles_.begin()->first > tiles_.rbegin()->first - n ? tiles_.begin()
                                                                            : std::prev(tiles_.end()));
    return tiles_.emplace(n, painted(n, height, ratio)).first->second;
}

QPixmap WaveTiles::painted(int n, int height, double ratio) const {
    QPixmap tile(
        QSize(static_cast<int>(std::ceil(width * ratio)), static_cast<int>(std::ceil(height * ratio))));
    tile.setDevicePixelRatio(ratio);
    tile.fill(colorsOf(wave_).ground);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    const double from = static_cast<double>(n) * width;
    painter.translate(-from, 0);
    const double to = from + width;
    paintPhrases(painter, from, to);
    paintRuler(painter, from, to);
    paintBars(painter, from, to);
    paintFlags(painter, from, to);
    return tile;
}

void WaveTiles::paintPhrases(QPainter& painter, double from, double to) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorsOf(wave_).phrase);
    const double height = height_ - ruler - below;
    for (const sound::Phrase& phrase : wave_.map->get()->phrases.all()) {
        const double left = pixelOf(phrase.begin / 1000.0);
        const double right = pixelOf(phrase.end / 1000.0);
        if (left > to)
            return;
        if (right >= from)
            painter.drawRoundedRect(QRectF(left, ruler + 2, std::max(right - left, 1.0), height), bandCorner,
                                    bandCorner);
    }
}

void WaveTiles::paintRuler(QPainter& painter, double from, double to) const {
    const palette::Wave& colors = colorsOf(wave_);
    const auto* const fits =
        std::ranges::find_if(rulerSteps, [this](double step) { return pixelOf(step) >= leastLabels; });
    const double step = fits == std::end(rulerSteps) ? rulerSteps[std::size(rulerSteps) - 1] : *fits;
    constexpr int parts = 5;
    painter.setFont(lettersOf(rulerPoints, false));
    const QFontMetricsF letters(painter.font());
    // A time that begins in the tile before may reach into this one.
    const auto first = static_cast<std::int64_t>(std::floor((from - leastLabels) / pixelOf(step / parts)));
    for (auto i = std::max<std::int64_t>(first, 0);; ++i) {
        const double seconds = static_cast<double>(i) * step / parts;
        const double x = std::round(pixelOf(seconds));
        if (x > to)
            return;
        const bool isMain = i % parts == 0;
        painter.fillRect(QRectF(x, isMain ? ruler - 9 : ruler - 4, 1, isMain ? 9 : 4), colors.lines);
        if (!isMain)
            continue;
        base::Text time = base::clockText(seconds + 1e-6);
        if (step < 1)
            time += u"." + base::countText(static_cast<std::size_t>(std::lround(seconds * 10)) % 10);
        painter.setPen(colors.letters);
        painter.drawText(QPointF(x + 4, 2 + letters.ascent()), qstring(base::TextView(time)));
    }
}

void WaveTiles::paintBars(QPainter& painter, double from, double to) const {
    const palette::Wave& colors = colorsOf(wave_);
    const sound::SoundMap& map = *wave_.map.get();
    const double perBar = pitch * wave_.part.perPixel; // seconds
    std::size_t level = 0;
    double perColumn = sound::Waveform::columnMs / 1000.0;
    while (level + 1 < map.waveform.levels() && perColumn * sound::Waveform::ratio <= perBar) {
        perColumn *= sound::Waveform::ratio;
        ++level;
    }
    const std::vector<sound::Peak>& columns = map.waveform.level(level);
    const double loudest = std::max<int>(map.waveform.loudest(), leastLoudest);
    const double most = height_ - ruler - below - 6;
    const double middle = ruler + 2 + (height_ - ruler - below) / 2.0;
    const double end = static_cast<double>(columns.size()) * perColumn;
    painter.setPen(Qt::NoPen);
    const auto draw = [&](double x, double share, const QColor& color) {
        const double height = std::max(share * most, leastBar);
        painter.setBrush(color);
        painter.drawRoundedRect(QRectF(x + (pitch - barWidth) / 2, middle - height / 2, barWidth, height),
                                barWidth / 2, barWidth / 2);
    };
    auto phrase = std::ranges::lower_bound(map.phrases.all(), from * wave_.part.perPixel * 1000, {},
                                           &sound::Phrase::end);
    const auto bars = static_cast<int>(std::ceil((to - from) / pitch));
    for (int i = 0; i < bars; ++i) {
        const double x = from + i * pitch;
        const double begins = x * wave_.part.perPixel;
        if (begins >= end)
            return;
        const double middleMs = (begins + perBar / 2) * 1000;
        while (phrase != map.phrases.all().end() && phrase->end < middleMs)
            ++phrase;
        const bool isSpeech = phrase != map.phrases.all().end() && phrase->begin <= middleMs;
        const Bar bar = barOf(columns, begins / perColumn, (begins + perBar) / perColumn, loudest);
        draw(x, bar.most, isSpeech ? colors.loudest : colors.silence);
        if (isSpeech)
            draw(x, bar.average, colors.average);
    }
}

void WaveTiles::paintFlags(QPainter& painter, double from, double to) const {
    painter.setFont(lettersOf(rulerPoints, true));
    const QFontMetricsF letters(painter.font());
    for (const sound::Flag& flag : wave_.flags.get()) {
        const QString number = QString::number(flag.number);
        const double x = std::round(pixelOf(flag.seconds));
        const QRectF cloth(x, ruler, letters.horizontalAdvance(number) + 10, letters.height() + 2);
        if (cloth.right() < from || x > to)
            continue;
        painter.fillRect(QRectF(x - 1, ruler, 2, height_ - ruler - below + 2), palette::amber);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette::amber);
        painter.drawRoundedRect(cloth.adjusted(-1, 0, 0, 0), 3, 3);
        painter.setPen(palette::ink);
        painter.drawText(cloth, Qt::AlignCenter, number);
    }
}

} // namespace desktop
