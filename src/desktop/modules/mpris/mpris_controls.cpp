#include "mpris_controls.h"

#include "mpris_properties.h"

#include <QApplication>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace desktop {

using platform::MediaCommands;

namespace {

QString text(const char* latin) {
    return QString::fromLatin1(latin);
}

QDBusMessage refusal(const QDBusMessage& call, QDBusError::ErrorType type, const char* reason) {
    return call.createErrorReply(type, text(reason));
}

qlonglong microsecondsOf(double seconds) {
    return std::llround(seconds * mpris::microseconds);
}

// The user has asked for the player, so it may take the keyboard from another program.
void raisePlayer() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() != QLatin1String("Form1"))
            continue;
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->raise();
        window->activateWindow();
    }
}

} // namespace

void MprisControls::begin(MediaCommands& commands) {
    commands_ = &commands;
    bus_ = std::make_unique<MprisBus>(QStringLiteral("org.mpris.MediaPlayer2.quillmere"), text(mpris::path),
                                      static_cast<QDBusVirtualObject&>(*this));
}

void MprisControls::end() {
    bus_.reset();
    commands_ = nullptr;
}

void MprisControls::show(const platform::MediaFacts& facts) {
    const QVariantMap before = mpris::playerProperties(facts_, number_);
    if (facts.path != facts_.path)
        ++number_;
    facts_ = facts;
    QVariantMap changed = mpris::playerProperties(facts_, number_);
    for (auto property = changed.begin(); property != changed.end();)
        property = before.value(property.key()) == *property ? changed.erase(property) : std::next(property);
    if (!bus_ || changed.isEmpty())
        return;
    QDBusMessage signal = QDBusMessage::createSignal(text(mpris::path), text(mpris::propertiesInterface),
                                                     QStringLiteral("PropertiesChanged"));
    signal << text(mpris::playerInterface) << changed << QStringList();
    bus_->send(signal);
}

void MprisControls::jumped(double seconds) {
    if (!bus_)
        return;
    QDBusMessage signal =
        QDBusMessage::createSignal(text(mpris::path), text(mpris::playerInterface), QStringLiteral("Seeked"));
    signal << microsecondsOf(seconds);
    bus_->send(signal);
}

QString MprisControls::introspect(const QString&) const {
    return mpris::description();
}

bool MprisControls::handleMessage(const QDBusMessage& message, const QDBusConnection&) {
    const auto reply = commands_ && bus_ ? answer(message) : std::nullopt;
    if (!reply)
        return false;
    if (message.isReplyRequired())
        bus_->send(*reply);
    return true;
}

std::optional<QDBusMessage> MprisControls::answer(const QDBusMessage& call) {
    const QString interface = call.interface();
    if (interface == text(mpris::propertiesInterface))
        return answerProperties(call);
    if (interface == text(mpris::rootInterface))
        return answerRoot(call);
    if (interface == text(mpris::playerInterface) || interface.isEmpty())
        return answerPlayer(call);
    return std::nullopt;
}

std::optional<QDBusMessage> MprisControls::answerRoot(const QDBusMessage& call) {
    const QString member = call.member();
    if (member == QLatin1String("Raise"))
        command([](MediaCommands&) { raisePlayer(); });
    else if (member != QLatin1String("Quit"))
        return std::nullopt;
    else if (QApplication::activeModalWidget())
        return refusal(call, QDBusError::Failed, "A dialog is open.");
    else
        command([](MediaCommands& commands) { commands.quit(); });
    return call.createReply();
}

std::optional<QDBusMessage> MprisControls::answerPlayer(const QDBusMessage& call) {
    static const struct {
        const char* member;
        void (MediaCommands::*run)();
    } plain[] = {{"Play", &MediaCommands::play},           {"Pause", &MediaCommands::pause},
                 {"PlayPause", &MediaCommands::playPause}, {"Stop", &MediaCommands::stop},
                 {"Next", &MediaCommands::stepForward},    {"Previous", &MediaCommands::stepBack}};
    const QString member = call.member();
    for (const auto& each : plain) {
        if (member != QLatin1String(each.member))
            continue;
        command([run = each.run](MediaCommands& commands) { (commands.*run)(); });
        return call.createReply();
    }
    const bool seeks = member == QLatin1String("Seek");
    const bool places = member == QLatin1String("SetPosition");
    const bool opens = member == QLatin1String("OpenUri");
    if (!seeks && !places && !opens)
        return std::nullopt;
    if (call.signature() != QLatin1String(seeks ? "x" : places ? "ox" : "s"))
        return refusal(call, QDBusError::InvalidArgs, "These are not the arguments of this method.");
    if (opens)
        return open(call);
    if (places)
        setPosition(call);
    else
        command([by = static_cast<double>(call.arguments().first().toLongLong()) / mpris::microseconds](
                    MediaCommands& commands) { commands.setPosition(commands.position() + by); });
    return call.createReply();
}

QDBusMessage MprisControls::open(const QDBusMessage& call) {
    const base::Text file = mpris::fileOf(call.arguments().first().toString());
    if (file.empty())
        return refusal(call, QDBusError::NotSupported, "Only files of this machine can be opened.");
    if (QApplication::activeModalWidget())
        return refusal(call, QDBusError::Failed, "A dialog is open.");
    command([file](MediaCommands& commands) { commands.open(file); });
    return call.createReply();
}

// The call may be late: one for another recording, or behind its end, is ignored.
void MprisControls::setPosition(const QDBusMessage& call) {
    const QString track = call.arguments().first().value<QDBusObjectPath>().path();
    const double seconds = static_cast<double>(call.arguments().last().toLongLong()) / mpris::microseconds;
    if (track == mpris::trackPath(facts_, number_) && seconds >= 0 && seconds <= facts_.length)
        command([seconds](MediaCommands& commands) { commands.setPosition(seconds); });
}

QVariantMap MprisControls::properties(const QString& interface) const {
    if (interface == text(mpris::rootInterface))
        return mpris::rootProperties();
    if (interface != text(mpris::playerInterface))
        return {};
    QVariantMap all = mpris::playerProperties(facts_, number_);
    all[QStringLiteral("Position")] = microsecondsOf(commands_->position());
    return all;
}

std::optional<QDBusMessage> MprisControls::answerProperties(const QDBusMessage& call) {
    const QString member = call.member();
    const bool all = member == QLatin1String("GetAll");
    const bool sets = member == QLatin1String("Set");
    if (!all && !sets && member != QLatin1String("Get"))
        return std::nullopt;
    if (call.signature() != QLatin1String(all ? "s" : sets ? "ssv" : "ss"))
        return refusal(call, QDBusError::InvalidArgs, "These are not the arguments of this method.");
    const QVariantMap known = properties(call.arguments().first().toString());
    if (known.isEmpty())
        return refusal(call, QDBusError::UnknownInterface, "There is no such interface.");
    if (all)
        return call.createReply(QVariant(known));
    const QVariant value = known.value(call.arguments().at(1).toString());
    if (!value.isValid())
        return refusal(call, QDBusError::UnknownProperty, "There is no such property.");
    return sets ? set(call) : call.createReply(QVariant::fromValue(QDBusVariant(value)));
}

QDBusMessage MprisControls::set(const QDBusMessage& call) {
    const QString name = call.arguments().at(1).toString();
    const QVariant value = call.arguments().at(2).value<QDBusVariant>().variant();
    const bool isRate = name == QLatin1String("Rate");
    if (!isRate && name != QLatin1String("Volume"))
        return refusal(call, QDBusError::PropertyReadOnly, "This property cannot be set.");
    const double number = value.toDouble();
    if (value.metaType() != QMetaType::fromType<double>() || !std::isfinite(number))
        return refusal(call, QDBusError::InvalidArgs, "The value has to be a number.");
    command([isRate, number](MediaCommands& commands) {
        if (!isRate)
            commands.setVolume(number);
        else if (number == 0)
            commands.pause(); // as the interface wants it
        else
            commands.setRate(number);
    });
    return call.createReply();
}

void MprisControls::command(std::function<void(MediaCommands&)> run) {
    QMetaObject::invokeMethod(
        this,
        [this, run = std::move(run)] {
            if (commands_)
                run(*commands_);
        },
        Qt::QueuedConnection);
}

} // namespace desktop
