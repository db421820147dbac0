#pragma once

#include "base/text.h"

#include <QApplication>

namespace desktop {

// The QApplication, set up for this program: platform, style and fonts. It ends only by the program's exit
// sequence.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);

    // The program's command line: the first argument as an absolute path in double quotes (the shell has
    // removed the user's own); empty if there is none. `argv` must have passed through the constructor.
    static base::Text commandLine(int argc, char** argv);

    // The absolute path behind "--document", the transcript to open in the editor; empty when there is none.
    static base::Text documentArgument(int argc, char** argv);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    // Sets the program's font wherever another one has come from outside: the windows are laid out for it.
    static void keepFont();
};

} // namespace desktop
