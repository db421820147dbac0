#include "desktop/services/qt_system.h"

#include "desktop/qt/conversions.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLocale>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace desktop {

QtSystem::QtSystem()
    : programFolder_(base::fromUtf8(std::filesystem::read_symlink("/proc/self/exe").parent_path().string())) {
}

QtSystem::~QtSystem() {
    if (place_ >= 0)
        ::close(place_);
}

base::Text QtSystem::LeggiLocale(int setting) const {
    const QLocale locale = QLocale::system();
    if (setting == platform::localeDecimalSign)
        return text(locale.decimalPoint());
    if (setting != platform::localeEnglishCountry)
        return {};
    const QLocale::Territory country = locale.territory();
    return country == QLocale::AnyTerritory ? base::Text() : text(QLocale::territoryToString(country));
}

bool QtSystem::previousInstance() {
    if (place_ >= 0)
        return false;
    // An abstract socket name: the kernel removes it however the process ends, and it leaves no file.
    const std::string name = "quillmere-" + std::to_string(::getuid()) + '-' +
                             std::to_string(std::hash<base::Text>{}(programFolder_));
    const int place = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (place < 0)
        return false;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path + 1, name.data(), name.size());
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    if (::bind(place, reinterpret_cast<const sockaddr*>(&address), length) == 0) {
        place_ = place;
        return false;
    }
    const bool taken = errno == EADDRINUSE;
    ::close(place);
    return taken;
}

void QtSystem::beep() {
    QApplication::beep();
}

std::vector<base::Text> QtSystem::screenFonts() const {
    std::vector<base::Text> names;
    for (const QString& family : QFontDatabase::families()) {
        if (!QFontDatabase::isPrivateFamily(family))
            names.push_back(text(family));
    }
    return names;
}

void QtSystem::endProcess() {
    end_.emplace();
    // Posted, because this may run during the start, before there is an event loop to leave.
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

base::CodePage QtSystem::codePage() {
    const std::string language = QLocale::system().name().section(u'_', 0, 0).toStdString();
    return base::CodePage(base::CodePage::numberForLanguage(language));
}

} // namespace desktop
