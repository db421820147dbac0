#include "mpris_properties.h"

#include "base/files.h"

#include <QDBusObjectPath>
#include <QUrl>

namespace desktop::mpris {

using platform::MediaFacts;

namespace {

constexpr double slowest = 0.5;
constexpr double fastest = 5.0;

QString statusText(MediaFacts::Run run) {
    if (run == MediaFacts::Run::Playing)
        return QStringLiteral("Playing");
    return run == MediaFacts::Run::Paused ? QStringLiteral("Paused") : QStringLiteral("Stopped");
}

// A path may have bytes that are no text.
QString uriOf(const base::Text& file) {
    const QByteArray bytes = QByteArray::fromStdString(base::toUtf8(file));
    return QStringLiteral("file://") + QString::fromLatin1(bytes.toPercentEncoding("/"));
}

QVariantMap metadata(const MediaFacts& facts, int number) {
    QVariantMap data{
        {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(trackPath(facts, number)))}};
    if (facts.path.empty())
        return data;
    const std::string name = base::toUtf8(base::afterLast(facts.path, base::pathSeparator));
    data[QStringLiteral("xesam:title")] = QString::fromStdString(name);
    data[QStringLiteral("xesam:url")] = uriOf(facts.path);
    if (facts.length > 0)
        data[QStringLiteral("mpris:length")] = static_cast<qlonglong>(facts.length * microseconds);
    return data;
}

} // namespace

QString trackPath(const MediaFacts& facts, int number) {
    return facts.path.empty() ? QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack")
                              : QStringLiteral("/org/quillmere/recording/%1").arg(number);
}

QVariantMap rootProperties() {
    const QStringList types{
        QStringLiteral("audio/mpeg"), QStringLiteral("audio/mp4"),  QStringLiteral("audio/ogg"),
        QStringLiteral("audio/flac"), QStringLiteral("audio/wav"),  QStringLiteral("audio/x-wav"),
        QStringLiteral("video/mp4"),  QStringLiteral("video/mpeg"), QStringLiteral("video/webm")};
    return {{QStringLiteral("CanQuit"), true},
            {QStringLiteral("CanRaise"), true},
            {QStringLiteral("HasTrackList"), false},
            {QStringLiteral("Identity"), QStringLiteral("Quillmere")},
            {QStringLiteral("DesktopEntry"), QStringLiteral("quillmere")},
            {QStringLiteral("SupportedUriSchemes"), QStringList{QStringLiteral("file")}},
            {QStringLiteral("SupportedMimeTypes"), types}};
}

QVariantMap playerProperties(const MediaFacts& facts, int number) {
    const bool isOpen = !facts.path.empty();
    return {{QStringLiteral("PlaybackStatus"), statusText(facts.run)},
            {QStringLiteral("Rate"), facts.rate},
            {QStringLiteral("MinimumRate"), slowest},
            {QStringLiteral("MaximumRate"), fastest},
            {QStringLiteral("Volume"), facts.volume},
            {QStringLiteral("Metadata"), metadata(facts, number)},
            {QStringLiteral("CanGoNext"), isOpen},
            {QStringLiteral("CanGoPrevious"), isOpen},
            {QStringLiteral("CanPlay"), isOpen},
            {QStringLiteral("CanPause"), isOpen},
            {QStringLiteral("CanSeek"), isOpen},
            {QStringLiteral("CanControl"), true}};
}

QString description() {
    return QString::fromLatin1(R"(<interface name="org.mpris.MediaPlayer2">
<method name="Raise"/><method name="Quit"/>
<property name="CanQuit" type="b" access="read"/><property name="CanRaise" type="b" access="read"/>
<property name="HasTrackList" type="b" access="read"/><property name="Identity" type="s" access="read"/>
<property name="DesktopEntry" type="s" access="read"/>
<property name="SupportedUriSchemes" type="as" access="read"/>
<property name="SupportedMimeTypes" type="as" access="read"/>
</interface>
<interface name="org.mpris.MediaPlayer2.Player">
<method name="Next"/><method name="Previous"/><method name="Pause"/><method name="PlayPause"/>
<method name="Stop"/><method name="Play"/>
<method name="Seek"><arg name="Offset" type="x" direction="in"/></method>
<method name="SetPosition"><arg name="TrackId" type="o" direction="in"/><arg name="Position" type="x" direction="in"/></method>
<method name="OpenUri"><arg name="Uri" type="s" direction="in"/></method>
<signal name="Seeked"><arg name="Position" type="x"/></signal>
<property name="PlaybackStatus" type="s" access="read"/><property name="Rate" type="d" access="readwrite"/>
<property name="Metadata" type="a{sv}" access="read"/><property name="Volume" type="d" access="readwrite"/>
<property name="Position" type="x" access="read"/><property name="MinimumRate" type="d" access="read"/>
<property name="MaximumRate" type="d" access="read"/><property name="CanGoNext" type="b" access="read"/>
<property name="CanGoPrevious" type="b" access="read"/><property name="CanPlay" type="b" access="read"/>
<property name="CanPause" type="b" access="read"/><property name="CanSeek" type="b" access="read"/>
<property name="CanControl" type="b" access="read"/>
</interface>
<interface name="org.freedesktop.DBus.Properties">
<method name="Get"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
<method name="GetAll"><arg type="s" direction="in"/><arg type="a{sv}" direction="out"/></method>
<method name="Set"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="in"/></method>
<signal name="PropertiesChanged"><arg type="s"/><arg type="a{sv}"/><arg type="as"/></signal>
</interface>
)");
}

base::Text fileOf(const QString& uri) {
    const QUrl url(uri);
    const bool isHere = url.host().isEmpty() || url.host() == QLatin1String("localhost");
    if (url.scheme() != QLatin1String("file") || !isHere)
        return {};
    const QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return base::fromUtf8(bytes.toStdString());
}

} // namespace desktop::mpris
