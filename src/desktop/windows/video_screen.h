#pragma once

#include "desktop/windows/picture_canvas.h"
#include "player/form1.h"

#include <QWidget>

namespace desktop {

// The window of its own for the picture.
class VideoWindowView : public QWidget {
public:
    explicit VideoWindowView(player::Form1& form);

    // Takes over what changed in the data.
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
    // Tells the data where the user has put the window.
    void reportPlace();

    player::Form1& form_;
    base::Text shownIcon_;
    bool reporting_ = false; // the data follows the window now, not the other way round
};

// Puts the picture where the data says that it is seen.
class VideoScreen : public QObject {
public:
    // `playerWindow` shows the box inside `skin`. The actions of its menus work in the other window too.
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
