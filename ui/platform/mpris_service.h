#pragma once
// The program on the desktop's session bus as a media player
// (org.mpris.MediaPlayer2.brevane): the media keys, the player applets of the panel and
// the lock screen, and command-line clients reach the soundscape here. The meaning of
// each call is MediaControl's; this only speaks D-Bus.
//
// Without a session bus, or with the name taken by another instance, the service is
// simply not there and the program runs on.

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace brevane {

class MediaControl;

class MprisService final : public QObject {
    Q_OBJECT
  public:
    static constexpr const char* kServiceName = "org.mpris.MediaPlayer2.brevane";
    static constexpr const char* kObjectPath = "/org/mpris/MediaPlayer2";

    explicit MprisService(MediaControl& control, QObject* parent = nullptr);
    ~MprisService() override;

    // Whether the service took its name on the bus.
    bool registered() const { return registered_; }
    MediaControl& control() { return control_; }

  private:
    void announce();

    MediaControl& control_;
    bool registered_ = false;
    bool playing_ = false;
    QString title_;
    double volume_ = 0;
};

// org.mpris.MediaPlayer2: the program itself.
class MprisRoot final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ canQuit)
    Q_PROPERTY(bool CanRaise READ canRaise)
    Q_PROPERTY(bool HasTrackList READ hasTrackList)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes)

  public:
    explicit MprisRoot(MprisService& service);

    bool canQuit() const { return true; }
    bool canRaise() const { return true; }
    bool hasTrackList() const { return false; }
    QString identity() const;
    QString desktopEntry() const;
    QStringList supportedUriSchemes() const { return {}; }
    QStringList supportedMimeTypes() const { return {}; }

  public Q_SLOTS:
    void Raise();
    void Quit();

  private:
    MprisService& service_;
};

// org.mpris.MediaPlayer2.Player: the soundscape as the one thing playing.
class MprisPlayer final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(bool CanGoNext READ canControl)
    Q_PROPERTY(bool CanGoPrevious READ canControl)
    Q_PROPERTY(bool CanPlay READ canControl)
    Q_PROPERTY(bool CanPause READ canControl)
    Q_PROPERTY(bool CanSeek READ cannot)
    Q_PROPERTY(bool CanControl READ canControl)

  public:
    explicit MprisPlayer(MprisService& service);

    QString playbackStatus() const;
    double rate() const { return 1.0; }
    void setRate(double) {}
    QVariantMap metadata() const;
    double volume() const;
    void setVolume(double volume);
    qlonglong position() const { return 0; }
    bool canControl() const { return true; }
    bool cannot() const { return false; }

  public Q_SLOTS:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    // A soundscape has no end to stop at: Stop is a pause.
    void Stop();
    void Play();
    void Seek(qlonglong) {}
    void SetPosition(const QDBusObjectPath&, qlonglong) {}
    void OpenUri(const QString&) {}

  Q_SIGNALS:
    void Seeked(qlonglong position);

  private:
    MprisService& service_;
};

}  // namespace brevane
