#pragma once

#include "controls/controls.h"

#include <QWidget>

class QEventLoop;
class QMenu;

namespace desktop {

class Announcer;

// A top-level window of the program. Caption, icon, position and visibility follow the data, and changes by
// the user and the window manager are written back to the data.
class FormWindow : public QWidget {
public:
    // A sizable window takes its size from the data; a fixed one has the size of its contents.
    enum class Size { Fixed, Sizable };

    // `buttons` of the title bar.
    FormWindow(controls::Window& form, Size size, Qt::WindowFlags buttons);

    // Adds the large icons for docks and window lists; slow, so call it after the start.
    void completeIcon();
    // True for a window that asks for something and is then closed.
    bool isDialog() const { return windowType() == Qt::Dialog; }

protected:
    // Call once the contents are laid out: positions the window and shows it if the data says so.
    void begin();
    // Opens one of the window's menus, or a new one, at this point of the screen.
    void popUp(controls::MenuItem& item, const QPoint& place);
    // Updates the window after a change of the data.
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
    void keepSize();
    void followIcon();
    void followTopmost();
    void followPlace();
    void reportState();
    // Writes the window's position and frame size to the data.
    void reportPlace();
    void reportSize();
    // `told`: what the frame adds to the window's size.
    void learnFrame(QSize told);
    void correctGuess(QSize more);
    void awaitFrame(int tries);
    void showModal();
    void focusControls();

    controls::Window& form_;
    Size size_;
    Announcer* announcer_;
    QRect place_; // including the frame, as last requested or reported
    QSize frame_; // size added by the frame; a guess until the window manager reports it
    base::Text shownIcon_;
    QMenu* popup_ = nullptr;      // made for one time, the last one
    QEventLoop* modal_ = nullptr; // event loop of a modal window
    bool frameKnown_ = false;     // the window manager has reported the frame
    bool correcting_ = false;     // the window is about to take the size from the data
    bool reporting_ = false;      // the window is updating the data, not vice versa
};

} // namespace desktop
