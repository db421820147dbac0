#pragma once

#include "base/text.h"

#include <QApplication>

namespace desktop {

// Qt's application as this program wants it: platform, look, fonts, and no end but by the exit sequence.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);

    // What the program takes as its command line: the first argument as an absolute path, in double quotes;
    // empty when there is none. The shell has taken the user's own quotes away. `argv` as the constructor
    // left it.
    static base::Text commandLine(int argc, char** argv);
};

} // namespace desktop
