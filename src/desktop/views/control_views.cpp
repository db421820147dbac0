#include "desktop/views/control_views.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/accessible_views.h"
#include "desktop/views/hover_pointer.h"
#include "desktop/views/input_views.h"
#include "desktop/views/pictures.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTextLayout>

namespace desktop {

namespace {

constexpr double fadedStrength = 0.35;
constexpr int textMargin = 1;     // pixels: some letters extend beyond their advance width
constexpr double mostMissing = 4; // pixels

controls::MouseEvent mouseEvent(const QMouseEvent& event, Qt::MouseButtons buttons) {
    // Qt numbers the left, right and middle buttons as the program does.
    return {static_cast<int>(buttons.toInt() & 7U), twips(event.position().x()), twips(event.position().y())};
}

// The caption as displayed: "&" marks a mnemonic and is not shown, "&&" shows one "&".
QString withoutMnemonics(const base::Text& caption) {
    QString shown;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size())
            break;
        shown += QChar(caption[i]);
    }
    return shown;
}

// Breaks text into as many lines as fit. The last line ends with an ellipsis; if only a few pixels are
// missing, its letter spacing is reduced instead.
class Lines {
public:
    Lines(const QString& text, const QFont& font, QSize space) : layout_(text, font), lastFont_(font) {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout_.setTextOption(option);
        layout_.beginLayout();
        for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
            line.setLineWidth(space.width());
            if (height_ > 0 && height_ + line.height() > space.height()) {
                cutAt(line.textStart(), space.width());
                break;
            }
            line.setPosition(QPointF(0, height_));
            height_ += line.height();
            ++shown_;
        }
        layout_.endLayout();
    }

    double height() const { return height_; }
    // False if text had to be cut off.
    bool whole() const { return lastLine_.isNull(); }

    void draw(QPainter& painter, QRect area, controls::Alignment alignment, double top) const {
        for (int i = 0; i < shown_; ++i) {
            const QTextLine line = layout_.lineAt(i);
            const QString cut = i == shown_ - 1 ? lastLine_ : QString();
            const double width =
                cut.isEmpty() ? line.naturalTextWidth() : QFontMetricsF(lastFont_).horizontalAdvance(cut);
            const double left = alignment == controls::Alignment::Left     ? 0
                                : alignment == controls::Alignment::Centre ? (area.width() - width) / 2
                                                                           : area.width() - width;
            // Whole pixels only: between two pixels, letters look blurred at this size.
            const QPointF at(area.left() + std::floor(left), area.top() + std::floor(top));
            if (cut.isEmpty()) {
                line.draw(&painter, at);
            } else {
                painter.setFont(lastFont_);
                painter.drawText(at + QPointF(0, line.y() + line.ascent()), cut);
            }
        }
    }

private:
    void cutAt(int hidden, int width) {
        if (shown_ == 0)
            return;
        const int start = layout_.lineAt(shown_ - 1).textStart();
        const QFontMetricsF metrics(layout_.font());
        const QString rest = layout_.text().mid(start);
        if (const double missing = metrics.horizontalAdvance(rest) - width; missing <= mostMissing) {
            lastLine_ = rest;
            lastFont_.setLetterSpacing(QFont::AbsoluteSpacing, -missing / static_cast<double>(rest.size()));
            return;
        }
        lastLine_ = metrics.elidedText(rest, Qt::ElideRight, width);
        if (lastLine_ == rest)
            lastLine_ = rest.left(hidden - start) + QChar(0x2026);
    }

    QTextLayout layout_;
    QString lastLine_;
    QFont lastFont_;
    double height_ = 0;
    int shown_ = 0;
};

// The longest form of a path that fits: complete, else without the last of its folders, or, if the name alone
// is too long, without the middle of the path.
QString pathThatFits(const QString& path, const QFont& font, QSize space) {
    const auto without = [&](qsizetype kept, const QString& end) {
        return path.left(kept) + QChar(0x2026) + end;
    };
    const auto fits = [&](const QString& text) { return Lines(text, font, space).whole(); };
    if (fits(path))
        return path;
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    const bool cutsFolders = name.size() < path.size() && fits(without(0, u'/' + name));
    const auto shortened = [&](qsizetype kept) {
        return cutsFolders ? without(kept, u'/' + name) : without((kept + 1) / 2, path.right(kept / 2));
    };
    qsizetype least = 0;
    for (qsizetype most = path.size(); least < most;) {
        const qsizetype middle = (least + most + 1) / 2;
        fits(shortened(middle)) ? least = middle : most = middle - 1;
    }
    return shortened(least);
}

} // namespace

ControlView::ControlView(controls::Control& control, QWidget* parent) : QWidget(parent), control_(control) {
    prepareAccessibleViews();
    setObjectName(qstring(control.name));
    setMouseTracking(true);
    new HoverPointer(control, *this);
    control.observe([this] { follow(); });
    ControlView::follow();
}

void followControl(const controls::Control& control, QWidget& view) {
    view.setGeometry(placeOf(control));
    if (view.isHidden() == control.visible)
        view.setVisible(control.visible);
    if (const QString tip = qstring(control.toolTip); tip != view.toolTip())
        view.setToolTip(tip);
}

void ControlView::follow() {
    followControl(control_, *this);
    // Over a disabled control, the mouse reaches what lies below.
    setAttribute(Qt::WA_TransparentForMouseEvents, !control_.enabled);
    followAccessible();
}

void ControlView::mousePressEvent(QMouseEvent* event) {
    if (takesMouse())
        control_.MouseDown(mouseEvent(*event, event->button()));
    else
        event->ignore();
}

void ControlView::mouseMoveEvent(QMouseEvent* event) {
    if (takesMouse())
        control_.MouseMove(mouseEvent(*event, event->buttons()));
    else
        event->ignore();
}

void ControlView::mouseReleaseEvent(QMouseEvent* event) {
    if (!takesMouse()) {
        event->ignore();
        return;
    }
    control_.MouseUp(mouseEvent(*event, event->button()));
    const bool inside = rect().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton && inside && control_.Click)
        control_.Click();
}

void ControlView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event); // the second press of a double click is a press too
    if (takesMouse())
        control_.DblClick();
}

PictureView::PictureView(controls::Picture& picture, QWidget* parent)
    : ControlView(picture, parent), picture_(picture) {
    PictureView::follow();
}

void PictureView::follow() {
    ControlView::follow();
    if (shown_ == picture_.picture.get())
        return;
    shown_ = picture_.picture;
    readFor_ = 0;
    update();
}

void PictureView::paintEvent(QPaintEvent*) {
    // Pictures are loaded when first painted: some stay hidden until a file is open, and the start must not
    // wait for them. On a screen with another pixel density, the window is repainted and the picture loaded
    // again.
    if (readFor_ != devicePixelRatioF()) {
        readFor_ = devicePixelRatioF();
        if (QPixmap loaded = loadPicture(shown_, devicePixelRatioF()); !loaded.isNull())
            pixmap_ = std::move(loaded);
    }
    if (pixmap_.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(strength());
    painter.drawPixmap(target(), pixmap_);
}

QRect FillView::target() const {
    return {QPoint(0, 0), pixmap().deviceIndependentSize().toSize()};
}

PictureButtonView::PictureButtonView(controls::PictureButton& button, QWidget* parent)
    : PictureView(button, parent), button_(button), offered_(button.offered()) {}

void PictureButtonView::follow() {
    PictureView::follow();
    if (offered_ == button_.offered())
        return;
    offered_ = button_.offered();
    update();
}

double PictureButtonView::strength() const {
    return offered_ ? 1 : fadedStrength;
}

LabelView::LabelView(controls::Label& label, QWidget* parent) : ControlView(label, parent), label_(label) {
    LabelView::follow();
}

void LabelView::follow() {
    ControlView::follow();
    QFont font(qstring(label_.fontName));
    font.setPixelSize(letterPixels(label_.fontSize));
    font.setBold(label_.fontBold);
    font.setItalic(label_.fontItalic);
    font.setUnderline(label_.fontUnderline);
    font.setStrikeOut(label_.fontStrikethru);
    nameLabelled();
    if (caption_ == label_.caption.get() && font_ == font && color_ == label_.foreColor)
        return;
    caption_ = label_.caption;
    shown_ = withoutMnemonics(caption_).replace(u'\n', QChar::LineSeparator);
    fittedTo_ = {};
    font_ = font;
    color_ = label_.foreColor;
    if (label_.autoSize)
        label_.width = twips(std::ceil(QFontMetricsF(font_).horizontalAdvance(shown_)) + 2 * textMargin);
    update();
}

QString LabelView::spokenName() const {
    const QString caption = withoutMnemonics(label_.caption);
    const QString name = qstring(label_.accessible.name);
    const bool isText = role() == controls::Role::Text && !caption.isEmpty();
    if (name.isEmpty())
        return caption;
    return isText ? name + QStringLiteral(": ") + caption : name;
}

QWidget* LabelView::labelled() const {
    return label_.labels ? window()->findChild<QWidget*>(qstring(label_.labels->name)) : nullptr;
}

// Qt links only labels of its own to a box.
void LabelView::nameLabelled() {
    QWidget* const box = labelled();
    QString name = withoutMnemonics(label_.caption);
    while (name.endsWith(u':') || name.endsWith(u' '))
        name.chop(1);
    if (box)
        nameInput(*box, name);
}

void LabelView::showEvent(QShowEvent* event) {
    ControlView::showEvent(event);
    nameLabelled(); // the box may be younger than the label
}

void LabelView::paintEvent(QPaintEvent*) {
    if (shown_.isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(QColor(color_));
    painter.setFont(font_);
    const QRect place = rect().adjusted(textMargin, 0, -textMargin, 0);
    if (label_.showsPath && fittedTo_ != place.size()) {
        fittedTo_ = place.size();
        shown_ = pathThatFits(withoutMnemonics(caption_), font_, fittedTo_);
    }
    const Lines lines(shown_, font_, place.size());
    lines.draw(painter, place, label_.alignment, (height() - lines.height()) / 2);
}

} // namespace desktop
