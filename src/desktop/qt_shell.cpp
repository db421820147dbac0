#include "desktop/qt_shell.h"

#include "desktop/conversions.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace desktop {

namespace {

struct Panel {
    const char* program;
    QStringList arguments;
};

const std::vector<Panel>& soundPanels() {
    static const QStringList kde = {QStringLiteral("kcm_pulseaudio")};
    static const std::vector<Panel> panels = {
        {"pwvucontrol", {}},     {"pavucontrol", {}},
        {"pavucontrol-qt", {}},  {"gnome-control-center", {QStringLiteral("sound")}},
        {"systemsettings", kde}, {"systemsettings5", kde},
        {"kcmshell6", kde},      {"kcmshell5", kde},
    };
    return panels;
}

// The language files may bring words for these texts too.
QString inLanguage(const char* words) {
    return QCoreApplication::translate("Shell", words);
}

} // namespace

void QtShell::open(base::TextView target) {
    const QString name = qstring(target);
    const bool isFile = name.startsWith(u'/');
    if (isFile && !QFileInfo::exists(name))
        tell(inLanguage("This file does not exist: %1").arg(name));
    else if (!QDesktopServices::openUrl(isFile ? QUrl::fromLocalFile(name) : QUrl(name)))
        tell(inLanguage("No program was found that opens this: %1").arg(name));
}

void QtShell::openSoundSettings() {
    for (const Panel& panel : soundPanels()) {
        const QString program = QStandardPaths::findExecutable(QString::fromLatin1(panel.program));
        if (!program.isEmpty() && QProcess::startDetached(program, panel.arguments))
            return;
    }
    tell(inLanguage("No sound settings were found on this system. One of these programs opens them: %1")
             .arg(QStringLiteral("pwvucontrol, pavucontrol, gnome-control-center, systemsettings")));
}

void QtShell::tell(const QString& message) {
    auto* const box =
        new QMessageBox(QMessageBox::Warning, QApplication::applicationName(), message, QMessageBox::Ok);
    box->setObjectName(QStringLiteral("shellBox"));
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->setModal(false);
    box->show();
}

} // namespace desktop
