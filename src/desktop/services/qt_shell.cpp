#include "desktop/services/qt_shell.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/notice.h"
#include "desktop/services/guide_view.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <iterator>
#include <vector>

namespace desktop {

namespace {

constexpr int registerTimeout = 2000; // ms

struct Panel {
    const char* program;
    QStringList arguments;
    // the desktop environment that these settings belong to; null if they work in any
    const char* desktop = nullptr;
};

// In order of preference: stand-alone mixers, which somebody installed on purpose, then the settings of the
// running desktop, then those of others, some of which work without their desktop.
std::vector<Panel> soundPanels() {
    const QStringList sound = {QStringLiteral("sound")};
    const QStringList kde = {QStringLiteral("kcm_pulseaudio")};
    std::vector<Panel> panels = {
        {"pwvucontrol", {}},
        {"pavucontrol", {}},
        {"pavucontrol-qt", {}},
        {"gnome-control-center", sound, "GNOME"},
        {"cinnamon-settings", sound, "X-Cinnamon"},
        {"mate-volume-control", {}, "MATE"},
        {"systemsettings", kde, "KDE"},
        {"systemsettings5", kde, "KDE"},
        {"kcmshell6", kde, "KDE"},
        {"kcmshell5", kde, "KDE"},
    };
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    std::stable_partition(panels.begin(), panels.end(), [&](const Panel& panel) {
        return !panel.desktop || desktops.contains(QLatin1String(panel.desktop), Qt::CaseInsensitive);
    });
    return panels;
}

// Whether the system has a program for web pages. The usual ones are found at once; the desktop's own
// register takes some ten milliseconds more to read.
bool canShowPages() {
    if (!qEnvironmentVariableIsEmpty("BROWSER"))
        return true;
    static constexpr const char* usual[] = {"x-www-browser", "firefox",  "firefox-esr", "chromium",
                                            "google-chrome", "epiphany", "falkon",      "konqueror"};
    if (std::any_of(std::begin(usual), std::end(usual), [](const char* program) {
            return !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
        }))
        return true;
    QProcess question;
    question.start(QStringLiteral("xdg-mime"),
                   {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("text/html")});
    return question.waitForFinished(registerTimeout) && !question.readAllStandardOutput().trimmed().isEmpty();
}

} // namespace

void QtShell::open(base::TextView target) {
    const QString name = qstring(target);
    const bool isFile = name.startsWith(u'/');
    if (isFile && !QFileInfo::exists(name))
        notify("This file does not exist: %1", name);
    else if (isFile && name.endsWith(QLatin1String(".html")) && !canShowPages())
        showGuide(name);
    else if (!QDesktopServices::openUrl(isFile ? QUrl::fromLocalFile(name) : QUrl(name)))
        notify("No program was found that opens this: %1", name);
}

void QtShell::openSoundSettings() {
    for (const Panel& panel : soundPanels()) {
        const QString program = QStandardPaths::findExecutable(QString::fromLatin1(panel.program));
        if (!program.isEmpty() && QProcess::startDetached(program, panel.arguments))
            return;
    }
    notify("No sound settings were found on this system. One of these programs opens them: %1",
           QStringLiteral("pwvucontrol, pavucontrol, gnome-control-center, cinnamon-settings, "
                          "mate-volume-control, systemsettings"));
}

} // namespace desktop
