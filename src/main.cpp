#include "app/program.h"
#include "desktop/application.h"
#include "desktop/qt_desktop.h"

// Builds the desktop, hands it to the program, runs it.
int main(int argc, char* argv[]) {
    desktop::Application application(argc, argv);
    desktop::QtDesktop desktop;
    app::Program program(desktop);
    if (!program.Main(desktop::Application::commandLine(argc, argv)))
        return 1;
    desktop.prepareInIdleTime();
    const int result = desktop::Application::exec();
    desktop.closeWindows();
    return result;
}
