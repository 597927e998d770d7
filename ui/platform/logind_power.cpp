#include "ui/platform/logind_power.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDateTime>

namespace brevane {

namespace {

QDBusInterface loginManager() {
    return QDBusInterface(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QDBusConnection::systemBus());
}

}  // namespace

bool LogindPower::schedulePowerOff(std::chrono::seconds delay) {
    QDBusInterface manager = loginManager();
    if (!manager.isValid()) {
        return false;
    }
    // logind takes the moment in microseconds of the real-time clock.
    const auto at = static_cast<quint64>(QDateTime::currentMSecsSinceEpoch() +
                                         std::chrono::milliseconds(delay).count()) *
                    1000ULL;
    const QDBusMessage reply =
        manager.call(QStringLiteral("ScheduleShutdown"), QStringLiteral("poweroff"), at);
    return reply.type() != QDBusMessage::ErrorMessage;
}

void LogindPower::holdAwake(bool hold) {
    if (!hold) {
        inhibitor_ = QDBusUnixFileDescriptor();
        return;
    }
    if (inhibitor_.isValid()) {
        return;
    }
    QDBusInterface manager = loginManager();
    if (!manager.isValid()) {
        return;
    }
    const QDBusReply<QDBusUnixFileDescriptor> reply = manager.call(
        QStringLiteral("Inhibit"), QStringLiteral("sleep"), QStringLiteral("Brevane"),
        QStringLiteral("An alarm or a scheduled scenario change is due"), QStringLiteral("block"));
    if (reply.isValid()) {
        inhibitor_ = reply.value();
    }
}

}  // namespace brevane
