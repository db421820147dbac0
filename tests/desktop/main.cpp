#include "desktop/application.h"
#include "desktop/qt/conversions.h"
#include "desktop/services/qt_system.h"

#include <QTemporaryDir>
#include <cstdio>
#include <gtest/gtest.h>
#include <string_view>

namespace {

// Reports the system as another process of this program sees it, one fact per line. The process stays, so
// that it can be detected or killed, until its input ends.
int tellSystem() {
    desktop::QtSystem system;
    const bool refused = system.previousInstance();
    const auto utf8 = [](const base::Text& text) { return base::toUtf8(text); };
    std::printf("%s\n%s\n%s\n", refused ? "refused" : "first",
                utf8(system.LeggiLocale(platform::localeEnglishCountry)).c_str(),
                utf8(desktop::QtSystem::codePage().decode("\xE5")).c_str());
    std::fflush(stdout);
    return std::getchar() == EOF ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc > 1 && argv[1] == std::string_view("--tell-system")) {
        const QCoreApplication application(argc, argv);
        return tellSystem();
    }
    // Qt's dialogs save their state: the tests neither read nor write the tester's home.
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    // Nor does a test print on a real printer.
    qputenv("CUPS_SERVER", (home.path() + QStringLiteral("/no-printers")).toUtf8());
    testing::InitGoogleTest(&argc, argv);
    const desktop::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
