#include "mpris_bus.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVirtualObject>
#include <QFile>

namespace desktop {

namespace {

constexpr unsigned doNotQueue = 4; // flag of RequestName: another owner keeps the name
constexpr unsigned isTaken = 3;    // its answer then

// The socket of the session bus. Only sockets of this machine: connecting to another one may take long, and
// an address that starts a bus would start one.
QString busAddress() {
    const QString stated = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!stated.isEmpty())
        return stated.startsWith(QLatin1String("unix:")) ? stated : QString();
    const QString usual = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    return QFile::exists(usual) ? QStringLiteral("unix:path=") + usual : QString();
}

QDBusConnection connectTo(const QString& address) {
    static int connections = 0;
    if (address.isEmpty())
        return QDBusConnection(QString());
    return QDBusConnection::connectToPeer(address, QStringLiteral("mpris%1").arg(++connections));
}

QDBusMessage callOfBus(const QString& method) {
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
}

} // namespace

MprisBus::MprisBus(const QString& name, const QString& path, QDBusVirtualObject& object)
    : name_(name), path_(path), connection_(connectTo(busAddress())) {
    if (!connection_.isConnected())
        return;
    connection_.registerVirtualObject(path, &object);
    greet();
    request(name);
}

MprisBus::~MprisBus() {
    connection_.unregisterObject(path_);
    QDBusConnection::disconnectFromPeer(connection_.name());
}

void MprisBus::greet() {
    connection_.asyncCall(callOfBus(QStringLiteral("Hello")));
}

void MprisBus::request(const QString& name) {
    QDBusMessage call = callOfBus(QStringLiteral("RequestName"));
    call << name << doNotQueue;
    auto* const watcher = new QDBusPendingCallWatcher(connection_.asyncCall(call), &loop_);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &loop_, [this, name, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<unsigned> answer = *watcher;
        if (answer.isValid() && answer.value() == isTaken && name == name_)
            request(name_ + QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid()));
    });
}

void MprisBus::send(const QDBusMessage& message) {
    if (connection_.isConnected())
        connection_.send(message);
}

} // namespace desktop
