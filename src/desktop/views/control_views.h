// What shows one control of a window on the screen, and reports the mouse to it. Each carries the control's
// given name.
#pragma once

#include "controls/controls.h"

#include <QPixmap>
#include <QWidget>

namespace desktop {

// A control's place, visibility, tip and pointer, and its mouse events.
class ControlView : public QWidget {
public:
    ControlView(controls::Control& control, QWidget* parent);

protected:
    // Takes over what changed in the data.
    virtual void follow();
    // False lets the mouse through to the window beneath, as a disabled control does.
    virtual bool takesMouse() const { return control_.enabled; }
    void enterEvent(QEnterEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void loadPointerFor(double density);

    controls::Control& control_;
    base::Text pointerIcon_;
    double pointerDensity_ = 0; // of the screen that the pointer was read for
};

// A picture, stretched over its place.
class PictureView : public ControlView {
public:
    PictureView(controls::Picture& picture, QWidget* parent);

protected:
    void follow() override;
    void paintEvent(QPaintEvent* event) override;
    // Where the picture goes, in pixels of the control.
    virtual QRect target() const { return rect(); }
    // How strongly the picture is painted: 1 is fully.
    virtual double strength() const { return 1; }
    const QPixmap& pixmap() const { return pixmap_; }

private:
    controls::Picture& picture_;
    base::Text shown_;
    double readFor_ = 0; // density of the screen that pixmap_ is the picture shown_ for; 0: not read yet
    QPixmap pixmap_;
};

// A picture that is pressed: faded while it is not offered.
class PictureButtonView : public PictureView {
public:
    PictureButtonView(controls::PictureButton& button, QWidget* parent);

protected:
    void follow() override;
    bool takesMouse() const override { return button_.offered(); }
    double strength() const override;

private:
    controls::PictureButton& button_;
    bool offered_ = false;
};

// The fill of a bar: its picture keeps its own size and is cut off at the width of the control.
class FillView : public PictureView {
public:
    using PictureView::PictureView;

protected:
    QRect target() const override;
};

// Text, wrapped and cut to its place.
class LabelView : public ControlView {
public:
    LabelView(controls::Label& label, QWidget* parent);

protected:
    void follow() override;
    void paintEvent(QPaintEvent* event) override;

private:
    controls::Label& label_;
    base::Text caption_;
    QString shown_;
    QSize fittedTo_; // the space that a path was shortened for; none: not yet
    QFont font_;
    controls::Color color_ = 0;
};

} // namespace desktop
