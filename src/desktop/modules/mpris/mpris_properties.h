#pragma once

#include "platform/media_controls.h"

#include <QString>
#include <QVariantMap>

namespace desktop::mpris {

inline constexpr const char* path = "/org/mpris/MediaPlayer2";
inline constexpr const char* rootInterface = "org.mpris.MediaPlayer2";
inline constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
inline constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
inline constexpr double microseconds = 1'000'000; // in a second

// The object path of the open recording, the `number`th one of this run.
QString trackPath(const platform::MediaFacts& facts, int number);

// The properties of the two interfaces. That of the position is missing: it changes without notice.
QVariantMap rootProperties();
QVariantMap playerProperties(const platform::MediaFacts& facts, int number);

// What the two interfaces offer, in the bus's own language.
QString description();

// The file that this URI names; empty if it names none on this machine.
base::Text fileOf(const QString& uri);

} // namespace desktop::mpris
