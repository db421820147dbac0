#include "app/program.h"
#include "desktop/application.h"
#include "desktop/qt_desktop.h"
#include "desktop/services/session_end.h"

#include <cstdlib>

int main(int argc, char* argv[]) {
    desktop::Application application(argc, argv);
    desktop::QtDesktop desktop;
    app::Program program(desktop);
    if (!program.Main(desktop::Application::commandLine(argc, argv)))
        return 1;
    const desktop::SessionEnd sessionEnd([&] { program.workstation().endSession(); },
                                         [&] { program.workstation().keepAll(); });
    if (const base::Text document = desktop::Application::documentArgument(argc, argv); !document.empty())
        program.workstation().openDocument(document);
    desktop.prepareInIdleTime();
    const int result = desktop::Application::exec();
    desktop.closeWindows();
    // Everything is saved. A DNS lookup that still runs must not keep the process alive.
    if (desktop.isHanging())
        std::_Exit(result);
    return result;
}
