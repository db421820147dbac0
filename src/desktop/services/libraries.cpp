#include "desktop/services/libraries.h"

#include "desktop/qt/conversions.h"

#include <QStringList>
#include <dlfcn.h>
#include <gnu/libc-version.h>

namespace desktop {

namespace {

// A function of a shared library; null if there is none. The library stays loaded, because the program's
// modules use it anyway.
template <typename Function>
Function entry(const char* library, const char* name) {
    void* const handle = ::dlopen(library, RTLD_LAZY);
    return handle ? reinterpret_cast<Function>(::dlsym(handle, name)) : nullptr;
}

QString openSslVersion() {
    constexpr int versionAlone = 6; // OPENSSL_VERSION_STRING
    const auto version = entry<const char* (*)(int)>("libcrypto.so.3", "OpenSSL_version");
    return version ? QString::fromLatin1(version(versionAlone)) : QString();
}

QString alsaVersion() {
    const auto version = entry<const char* (*)()>("libasound.so.2", "snd_asoundlib_version");
    return version ? QString::fromLatin1(version()) : QString();
}

QString portAudioVersion() {
    const auto version = entry<int (*)()>("libportaudio.so.2", "Pa_GetVersion");
    if (!version)
        return {};
    const auto number = static_cast<unsigned>(version());
    return QStringLiteral("%1.%2.%3")
        .arg(number >> 16U & 0xFFU)
        .arg(number >> 8U & 0xFFU)
        .arg(number & 0xFFU);
}

QString enchantVersion() {
    const auto version = entry<const char* (*)()>("libenchant-2.so.2", "enchant_get_version");
    return version ? QString::fromLatin1(version()) : QString();
}

// The upstream version, without a distribution's suffix as in "5.1.9-0+deb12u1".
QString ofItsMakers(const QString& version) {
    return version.section(u'-', 0, 0).section(u'+', 0, 0);
}

} // namespace

std::vector<outside::Library> librariesInUse(LazyPlayer& player) {
    const QStringList media = QString::fromStdString(player.versions()).split(u'\n');
    const struct {
        const char* name;
        QString version;
        const char* licence;
    } rows[] = {
        {"Qt", QString::fromLatin1(qVersion()), "LGPL 3"},
        {"mpv", ofItsMakers(media.value(0)), "GPL 2 or later"},
        {"FFmpeg", ofItsMakers(media.value(1)), "GPL 2 or later"},
        {"PortAudio", portAudioVersion(), "MIT licence"},
        {"ALSA library", alsaVersion(), "LGPL 2.1 or later"},
        {"Enchant", enchantVersion(), "LGPL 2.1 or later"},
        {"xcb", QStringLiteral(XCB_VERSION), "MIT licence"},
        {"OpenSSL", openSslVersion(), "Apache licence 2.0"},
        {"GNU C Library", QString::fromLatin1(::gnu_get_libc_version()), "LGPL 2.1 or later"},
        {"libstdc++", QString::number(_GLIBCXX_RELEASE), "GPL 3 with exception"},
    };
    std::vector<outside::Library> libraries;
    for (const auto& row : rows) {
        if (!row.version.isEmpty())
            libraries.push_back({text(QString::fromLatin1(row.name)), text(row.version),
                                 text(QString::fromLatin1(row.licence))});
    }
    return libraries;
}

} // namespace desktop
