// Widgets that show the controls of a window's data and report mouse events to them. Each has the control's
// given name.
#pragma once

#include "controls/controls.h"

#include <QPixmap>
#include <QWidget>

namespace desktop {

// Applies what the widgets of all controls have in common: position, size, visibility and tool tip.
void followControl(const controls::Control& control, QWidget& view);

// Position, visibility, tool tip, pointer, mouse and keyboard of a control, and what screen readers are told.
class ControlView : public QWidget {
public:
    ControlView(controls::Control& control, QWidget* parent);

    const controls::Control& control() const { return control_; }
    controls::Role role() const;
    // The name for screen readers.
    virtual QString spokenName() const;
    // Brings the control's state up to date and returns what else screen readers are told.
    const controls::Accessible& accessible() const;
    // True if keyboard and screen readers can operate the control.
    bool isOperable() const;
    // Does what a click does.
    void press();
    // Sets a slider, as far as the value is in its range.
    void setValue(double value);

protected:
    // The role of this kind of control, unless the control has one of its own.
    virtual controls::Role kind() const { return controls::Role::Decoration; }
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Updates the widget after a change of the data.
    virtual void follow();
    // If false, mouse events pass to the window below, as for a disabled control.
    virtual bool takesMouse() const { return control_.enabled; }
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    // What screen readers were last told.
    struct Told {
        QString name;
        bool on = false;
        bool operable = false;
        double value = 0;
    };

    void followAccessible();
    void tellValue();
    bool moveSlider(int key);

    controls::Control& control_;
    Told told_;
};

// The surface that the controls of a window lie on.
class Ground : public QWidget {
public:
    using QWidget::QWidget;
};

// A picture, stretched to the control's size.
class PictureView : public ControlView {
public:
    PictureView(controls::Picture& picture, QWidget* parent);

protected:
    void follow() override;
    void paintEvent(QPaintEvent* event) override;
    // Where to paint the picture, in pixels of the control.
    virtual QRect target() const { return rect(); }
    // Opacity, from 0 to 1.
    virtual double strength() const { return 1; }
    const QPixmap& pixmap() const { return pixmap_; }

private:
    controls::Picture& picture_;
    base::Text shown_;
    double readFor_ = 0; // device pixel ratio that pixmap_ was loaded for; 0: not loaded yet
    QPixmap pixmap_;
};

// A picture that can be clicked; faded while it is not available.
class PictureButtonView : public PictureView {
public:
    PictureButtonView(controls::PictureButton& button, QWidget* parent);

protected:
    controls::Role kind() const override { return controls::Role::Button; }
    void follow() override;
    bool takesMouse() const override { return button_.offered(); }
    double strength() const override;

private:
    controls::PictureButton& button_;
    bool offered_ = false;
};

// The fill of a bar: keeps the picture's own size and cuts it off at the control's width.
class FillView : public PictureView {
public:
    using PictureView::PictureView;

protected:
    QRect target() const override;
};

// Text, wrapped and shortened to fit the control.
class LabelView : public ControlView {
public:
    LabelView(controls::Label& label, QWidget* parent);

    QString spokenName() const override;
    // The widget that this label names, or null.
    QWidget* labelled() const;

protected:
    controls::Role kind() const override { return controls::Role::Text; }
    void showEvent(QShowEvent* event) override;
    void follow() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void nameLabelled();

    controls::Label& label_;
    base::Text caption_;
    QString shown_;
    QSize fittedTo_; // the size that a path was shortened for; empty: not yet
    QFont font_;
    controls::Color color_ = 0;
};

} // namespace desktop
