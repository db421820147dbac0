#pragma once

#include "player/form1.h"

#include <QWidget>
#include <QWindow>

namespace desktop {

// The native window that the media player draws its picture into. It is one and the same in the box on the
// player and in the window of its own: only its parent changes, so the picture goes on without a gap.
class VideoSurface : public QWindow {
public:
    explicit VideoSurface(player::Form1& form);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    player::Form1& form_;
};

// The window of its own for the picture.
class VideoWindowView : public QWidget {
public:
    explicit VideoWindowView(player::Form1& form, VideoSurface& surface);

    // Takes over what changed in the data.
    void follow();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    player::Form1& form_;
    VideoSurface& surface_;
};

// Puts the picture where the data says that it is seen.
class VideoScreen : public QObject {
public:
    // `playerWindow` shows the box inside `skin`. The actions of its menus work in the other window too.
    VideoScreen(player::Form1& form, QWidget& playerWindow, QWidget& skin);
    ~VideoScreen() override;

private:
    void follow();
    QRect boxOnPlayer() const;

    player::Form1& form_;
    QWidget& playerWindow_;
    QWidget& skin_;
    VideoSurface* surface_; // owned by the window that shows it; by this one at the end
    VideoWindowView window_;
};

} // namespace desktop
