#pragma once

#include "controls/controls.h"

#include <QWidget>

class QEventLoop;

namespace desktop {

// A window of the program on the screen. Its caption, icon, place and visibility follow the data; the data
// follows what the user and the window manager do to it.
class FormWindow : public QWidget {
public:
    // A sizable window takes its size from the data; any other keeps the size of what is laid out in it.
    enum class Size { Fixed, Sizable };

    // `buttons` are those of the title bar.
    FormWindow(controls::Window& form, Size size, Qt::WindowFlags buttons);

    // Offers the large icons too, for docks and window lists: a moment for when the start is over.
    void completeIcon();

protected:
    // To be called when the contents are laid out: the window takes its place, and shows itself if it is to.
    void begin();
    // Takes over what changed in the data.
    virtual void follow();

    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void followVisibility();
    void showInPlace();
    void takeSize();
    void followIcon();
    void followTopmost();
    void followPlace();
    void reportState();
    // Tells the data where the window stands and how large its frame is.
    void reportPlace();
    void reportSize();
    // `told` is what the frame adds to the window's size.
    void learnFrame(QSize told);
    void correctGuess(QSize more);
    void awaitFrame(int tries);
    void showModal();

    controls::Window& form_;
    Size size_;
    QRect place_; // of the frame, as asked for or reported last
    QSize frame_; // what the frame adds; the usual one as long as the window manager has not told
    base::Text shownIcon_;
    QEventLoop* modal_ = nullptr; // the loop that waits for a modal window
    bool frameKnown_ = false;     // the window manager has told
    bool correcting_ = false;     // the size in the data is what the window is to have
    bool reporting_ = false;      // the data follows the window now, not the other way round
};

} // namespace desktop
