#include "ui/platform/mpris_service.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include "core/media_control.h"
#include "ui/platform/qt_text.h"

namespace brevane {

namespace {

constexpr const char* kRootInterface = "org.mpris.MediaPlayer2";
constexpr const char* kPlayerInterface = "org.mpris.MediaPlayer2.Player";

}  // namespace

MprisService::MprisService(MediaControl& control, QObject* parent)
    : QObject(parent), control_(control) {
    new MprisRoot(*this);
    new MprisPlayer(*this);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    if (!bus.registerObject(QString::fromLatin1(kObjectPath), this)) {
        return;
    }
    registered_ = bus.registerService(QString::fromLatin1(kServiceName));
    playing_ = control_.playing();
    title_ = qtText(control_.title());
    volume_ = control_.volume();
    control_.onChanged = [this] { announce(); };
}

MprisService::~MprisService() {
    control_.onChanged = nullptr;
    if (registered_) {
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.unregisterService(QString::fromLatin1(kServiceName));
        bus.unregisterObject(QString::fromLatin1(kObjectPath));
    }
}

void MprisService::announce() {
    // Only what changed is announced, as the applets expect.
    QVariantMap changed;
    const bool playing = control_.playing();
    if (playing != playing_) {
        playing_ = playing;
        changed.insert(QStringLiteral("PlaybackStatus"),
                       playing ? QStringLiteral("Playing") : QStringLiteral("Paused"));
    }
    const QString title = qtText(control_.title());
    if (title != title_) {
        title_ = title;
        changed.insert(QStringLiteral("Metadata"), findChild<MprisPlayer*>() != nullptr
                                                       ? findChild<MprisPlayer*>()->metadata()
                                                       : QVariantMap{});
    }
    const double volume = control_.volume();
    if (volume != volume_) {
        volume_ = volume;
        changed.insert(QStringLiteral("Volume"), volume);
    }
    if (changed.isEmpty() || !registered_) {
        return;
    }
    QDBusMessage signal = QDBusMessage::createSignal(
        QString::fromLatin1(kObjectPath), QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("PropertiesChanged"));
    signal << QString::fromLatin1(kPlayerInterface) << changed << QStringList();
    QDBusConnection::sessionBus().send(signal);
}

// ---- the program ----

MprisRoot::MprisRoot(MprisService& service) : QDBusAbstractAdaptor(&service), service_(service) {}

QString MprisRoot::identity() const {
    return QString::fromLatin1(MediaControl::kIdentity);
}

QString MprisRoot::desktopEntry() const {
    return QString::fromLatin1(MediaControl::kDesktopEntry);
}

void MprisRoot::Raise() {
    service_.control().raise();
}

void MprisRoot::Quit() {
    service_.control().quit();
}

// ---- the player ----

MprisPlayer::MprisPlayer(MprisService& service)
    : QDBusAbstractAdaptor(&service), service_(service) {}

QString MprisPlayer::playbackStatus() const {
    return service_.control().playing() ? QStringLiteral("Playing") : QStringLiteral("Paused");
}

QVariantMap MprisPlayer::metadata() const {
    const MediaControl& control = service_.control();
    return {
        {QStringLiteral("mpris:trackid"),
         QVariant::fromValue(QDBusObjectPath(QStringLiteral("/org/brevane/scenario")))},
        {QStringLiteral("xesam:title"), qtText(control.title())},
        {QStringLiteral("xesam:artist"), QStringList{QString::fromLatin1(MediaControl::kIdentity)}},
    };
}

double MprisPlayer::volume() const {
    return service_.control().volume();
}

void MprisPlayer::setVolume(double volume) {
    service_.control().setVolume(volume);
}

void MprisPlayer::Next() {
    service_.control().next();
}

void MprisPlayer::Previous() {
    service_.control().previous();
}

void MprisPlayer::Pause() {
    service_.control().pause();
}

void MprisPlayer::PlayPause() {
    service_.control().playPause();
}

void MprisPlayer::Stop() {
    service_.control().pause();
}

void MprisPlayer::Play() {
    service_.control().play();
}

}  // namespace brevane
