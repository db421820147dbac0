#pragma once

#include "mpris_bus.h"
#include "platform/media_controls.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>

namespace desktop {

// The player on the session bus, as the MPRIS interface describes it.
class MprisControls final : public platform::MediaControls, private QDBusVirtualObject {
public:
    void begin(platform::MediaCommands& commands) override;
    void end() override;
    void show(const platform::MediaFacts& facts) override;
    void jumped(double seconds) override;

private:
    QString introspect(const QString& path) const override;
    // Answers every call to one of the three interfaces; others are left to Qt.
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

    std::optional<QDBusMessage> answer(const QDBusMessage& call);
    std::optional<QDBusMessage> answerRoot(const QDBusMessage& call);
    std::optional<QDBusMessage> answerPlayer(const QDBusMessage& call);
    std::optional<QDBusMessage> answerProperties(const QDBusMessage& call);
    QDBusMessage set(const QDBusMessage& call);
    QDBusMessage open(const QDBusMessage& call);
    void setPosition(const QDBusMessage& call);
    QVariantMap properties(const QString& interface) const;
    // Runs the command from the event loop: it may open a dialog, and the caller waits for its answer.
    void command(std::function<void(platform::MediaCommands&)> run);

    platform::MediaCommands* commands_ = nullptr;
    platform::MediaFacts facts_;
    int number_ = 0; // of the open recording
    std::unique_ptr<MprisBus> bus_;
};

} // namespace desktop
