#pragma once

#include "desktop/windows/picture_canvas.h"
#include "player/form1.h"

#include <QWidget>

namespace desktop {

// The separate video window.
class VideoWindowView : public QWidget {
public:
    explicit VideoWindowView(player::Form1& form);

    // Updates the window after a change of the data.
    void follow();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void show();
    // Writes the position chosen by the user to the data.
    void reportPlace();

    player::Form1& form_;
    base::Text shownIcon_;
    bool reporting_ = false; // the window is updating the data, not vice versa
};

// Shows the video where the data says: in the player's box or in the separate window.
class VideoScreen : public QObject {
public:
    // `playerWindow` shows the box inside `skin`. The actions of its menus also work in the video window.
    VideoScreen(player::Form1& form, QWidget& playerWindow, QWidget& skin);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();
    void followSoon();
    void putInto(QWidget& window, QRect place);
    QRect boxOnPlayer() const;

    player::Form1& form_;
    QWidget& playerWindow_;
    QWidget& skin_;
    PictureCanvas canvas_;
    VideoWindowView window_;
};

} // namespace desktop
