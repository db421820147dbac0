#include "desktop/windows/credits_view.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"
#include "desktop/views/pictures.h"

#include <QPainter>

namespace desktop {

namespace {
const QColor slate(0x3B, 0x48, 0x62);

// The vertical space on the panel picture for the credits, in pixels.
constexpr int firstLine = 80;
constexpr int lastLine = 224;
constexpr int tallestLine = 18;
constexpr int letterSize = 11;
constexpr int frame = 16; // ms; no screen shows the ticks in between
// Left edge of each column, in pixels; the right margin equals the left one.
constexpr int nameColumn = 34;
constexpr int versionColumn = 166;
constexpr int licenceColumn = 226;

} // namespace

CreditsView::CreditsView(outside::FrmInformazioni& form, QWidget* parent)
    : ControlView(form.Picture1, parent), form_(form), shownTop_(panelTop()) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    nextFrame_.setSingleShot(true);
    nextFrame_.setInterval(frame);
    connect(&nextFrame_, &QTimer::timeout, this, [this] { update(); });
    form.Picture2.observe([this] { followPanel(); });
}

QString CreditsView::spokenName() const {
    QStringList lines;
    for (const outside::Library& library : form_.credits)
        lines << qstring(library.name) + u' ' + qstring(library.version) + QStringLiteral(", ") +
                     qstring(library.licence);
    return lines.join(QStringLiteral("; "));
}

void CreditsView::followPanel() {
    if (shownTop_ != panelTop() && !nextFrame_.isActive())
        nextFrame_.start();
}

int CreditsView::panelTop() const {
    return static_cast<int>(std::lround(form_.Picture2.top / controls::twipsPerPixel * devicePixelRatioF()));
}

QPixmap CreditsView::drawPanel() const {
    const double density = devicePixelRatioF();
    const QSize size(pixels(form_.Picture2.width), pixels(form_.Picture2.height));
    QPixmap panel(size * density);
    panel.setDevicePixelRatio(density);
    panel.fill(Qt::white);
    QPainter painter(&panel);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(QPoint(0, 0), size), loadPicture(form_.Picture2.picture.get(), density));

    QFont plain(QStringLiteral("Arial"));
    plain.setPixelSize(letterSize);
    QFont bold = plain;
    bold.setBold(true);
    const int lines = std::max(1, static_cast<int>(form_.credits.size()));
    const int height = std::min(tallestLine, (lastLine - firstLine) / lines);
    int top = (firstLine + lastLine - lines * height) / 2;
    for (const outside::Library& library : form_.credits) {
        const auto write = [&](int from, int to, const QFont& font, const QColor& color,
                               const base::Text& words) {
            painter.setFont(font);
            painter.setPen(color);
            painter.drawText(QRect(from, top, to - from, height), Qt::AlignLeft | Qt::AlignVCenter,
                             qstring(words));
        };
        write(nameColumn, versionColumn, bold, palette::ink, library.name);
        write(versionColumn, licenceColumn, plain, palette::teal, library.version);
        write(licenceColumn, size.width(), plain, slate, library.licence);
        top += height;
    }
    return panel;
}

void CreditsView::paintEvent(QPaintEvent*) {
    const double density = devicePixelRatioF();
    if (panel_.isNull() || panelDensity_ != density) {
        panel_ = drawPanel();
        panel_.setDevicePixelRatio(1);
        panelDensity_ = density;
    }
    shownTop_ = panelTop();
    // Painted in device pixels, so that the panel is copied without scaling and no pixel is painted twice:
    // while scrolling, this runs for each frame.
    QPainter painter(this);
    painter.setWorldTransform(QTransform::fromScale(1 / density, 1 / density));
    const QRect whole(QPoint(0, 0), size() * density);
    const int edge = static_cast<int>(std::lround(density));
    const QRect inside = whole.adjusted(edge, edge, -edge, -edge);
    const QRect panel(QPoint(static_cast<int>(std::lround(pixels(form_.Picture2.left) * density)), shownTop_),
                      panel_.size());
    const QRect seen = panel & inside;
    for (const QRect& part : QRegion(whole) - inside)
        painter.fillRect(part, palette::rim);
    for (const QRect& part : QRegion(inside) - seen)
        painter.fillRect(part, Qt::white);
    painter.drawPixmap(seen.topLeft(), panel_, seen.translated(-panel.topLeft()));
}

} // namespace desktop
