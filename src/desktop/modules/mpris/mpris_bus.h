#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

class QDBusVirtualObject;

namespace desktop {

// A connection to the session bus that never waits for it: the greeting and the request for a name are sent
// like any other call. Qt's own connection would wait for the answer to the greeting, up to 25 s at a bus
// that hangs. Without a bus, or after it has gone, everything is dropped.
class MprisBus {
public:
    // Answers calls to this path by `object`, under the name if it is free, otherwise under the name with the
    // process's number.
    MprisBus(const QString& name, const QString& path, QDBusVirtualObject& object);
    ~MprisBus();
    MprisBus(const MprisBus&) = delete;
    MprisBus& operator=(const MprisBus&) = delete;

    void send(const QDBusMessage& message);

private:
    void greet();
    void request(const QString& name);

    QString name_;
    QString path_;
    QDBusConnection connection_;
    QObject loop_; // context of answers, which are dropped with it
};

} // namespace desktop
