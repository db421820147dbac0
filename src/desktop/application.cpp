#include "desktop/application.h"

#include "desktop/qt/palette.h"
#include "desktop/qt/x_errors.h"
#include "desktop/views/skin_button.h"

#include <QEvent>
#include <QFont>
#include <QPalette>
#include <QProxyStyle>
#include <QSettings>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace desktop {

namespace {

constexpr int interfaceFontSize = 9; // points

constexpr const char* platformVariable = "QT_QPA_PLATFORM";
bool platformIsOurChoice = false;

// Qt aborts when it cannot reach a display, which looks like a crash.
void reportMissingDisplay(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtFatalMsg) {
        if (type != QtInfoMsg && !text.contains(QLatin1String("could not connect to display")) &&
            !text.contains(QLatin1String("Could not load the Qt platform plugin")))
            std::fprintf(stderr, "%s\n", qPrintable(text));
        return;
    }
    std::fprintf(stderr,
                 "quillmere: no X server can be reached. Quillmere needs one, or Xwayland on a Wayland "
                 "desktop; DISPLAY names it.\n");
    std::_Exit(1);
}

// The program positions its windows and keeps them on top, which Wayland does not allow. An environment
// variable is the only setting of Qt's platform that the user can still override.
int& choosePlatform(int& argc) {
    qInstallMessageHandler(reportMissingDisplay);
    platformIsOurChoice = !qEnvironmentVariableIsSet(platformVariable);
    if (platformIsOurChoice)
        qputenv(platformVariable, "xcb");
    return argc;
}

// Programs started from here choose their platform themselves.
void forgetPlatform() {
    if (platformIsOurChoice)
        qunsetenv(platformVariable);
}

// The path without "." and ".."; only a ".." after a symbolic link stays, because it does not lead back.
std::filesystem::path tidied(const std::filesystem::path& absolute) {
    std::filesystem::path result;
    std::error_code ignored;
    for (const std::filesystem::path& part : absolute) {
        if (part == ".." && result.filename() != ".." && !std::filesystem::is_symlink(result, ignored))
            result = result.parent_path();
        else if (part != ".")
            result /= part;
    }
    return result;
}

base::Text absolutePath(const char* argument) {
    std::error_code failed;
    const auto path = std::filesystem::absolute(argument, failed);
    return base::fromUtf8(failed ? argument : tidied(path).string());
}

bool namesDocument(int argc, char** argv) {
    return argc > 2 && std::string_view(argv[1]) == "--document" && *argv[2] != '\0';
}

// Qt's Fusion style with the skin's buttons and without icons in dialog buttons, which do not match the skin.
class SkinStyle : public QProxyStyle {
public:
    SkinStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion"))) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
            element == PE_PanelButtonCommand && button)
            paintButtonTile(*button, *painter);
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
};

// One light palette, whatever theme the desktop has: the skin is drawn for it.
QPalette skinPalette() {
    QPalette palette(QColor(0xEC, 0xEC, 0xEC));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF5, 0xF7, 0xF8));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, palette::ink);
        palette.setColor(QPalette::Disabled, role, QColor(0x5F, 0x69, 0x76));
    }
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::Highlight, palette::teal);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(choosePlatform(argc), argv) {
    qInstallMessageHandler(nullptr);
    forgetPlatform();
    if (platformName() == QLatin1String("xcb"))
        surviveXErrors();
    // A native dialog would open below the player and use the desktop's language instead of the program's.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    // Qt's dialogs save their state and recent paths in the user's home. The program is portable and leaves
    // nothing outside of its folder, so this points to a path where no file can be created.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    // No display name: Qt would append it to the title of every dialog.
    setApplicationName(QStringLiteral("Quillmere"));
    setQuitOnLastWindowClosed(false);
    setStyle(new SkinStyle);
    setPalette(skinPalette());
    keepFont();
    installEventFilter(this);
}

bool Application::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::ThemeChange)
        keepFont();
    return QApplication::eventFilter(receiver, event);
}

// The theme of a desktop, or a tool for fonts, sets its own font for everything, or one for a kind of
// control: once the program runs, and again whenever the user changes it.
void Application::keepFont() {
    const QFont own(QStringLiteral("Arial"), interfaceFontSize);
    // Themes have fonts for these and their kind; all are removed together.
    static constexpr std::array kinds{"QMenuBar", "QMenu", "QToolButton", "QMessageBox", "QTipLabel"};
    const bool changed = font() != own || std::any_of(kinds.begin(), kinds.end(), [&](const char* kind) {
                             return QApplication::font(kind) != own;
                         });
    if (changed)
        setFont(own);
}

base::Text Application::commandLine(int argc, char** argv) {
    if (argc < 2 || *argv[1] == '\0' || namesDocument(argc, argv))
        return {};
    return u'"' + absolutePath(argv[1]) + u'"';
}

base::Text Application::documentArgument(int argc, char** argv) {
    return namesDocument(argc, argv) ? absolutePath(argv[2]) : base::Text();
}

} // namespace desktop
