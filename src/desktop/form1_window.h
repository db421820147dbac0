#pragma once

#include "player/form1.h"

#include <QWidget>
#include <memory>

namespace desktop {

class VideoScreen;

// Shows the player window and reports what the user does to it. Its skin keeps its size; above it lies the
// menu bar.
class Form1Window : public QWidget {
public:
    explicit Form1Window(player::Form1& form);
    ~Form1Window() override;

    // Offers the large icons too, for docks and window lists: a moment for when the start is over.
    void completeIcon();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void follow();
    void followPointer();
    // Tells the data where the window stands and how large its frame is.
    void reportPlace();

    player::Form1& form_;
    std::unique_ptr<VideoScreen> video_;
    bool waiting_ = false;   // the hourglass on the screen is this window's; a drag has a pointer of its own
    bool reporting_ = false; // the data follows the window now, not the other way round
};

} // namespace desktop
