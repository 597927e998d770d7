#include "ui/core/kept_window_position.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace brevane {

namespace {

// The kept position is in twips, as the settings have always held it.
constexpr int kTwipsPerPixel = 15;

class PositionKeeper : public QObject {
  public:
    PositionKeeper(QWidget& window, std::optional<WindowPosition>& position)
        : QObject(&window), window_(window), position_(position) {
        window.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &window_) {
            if (event->type() == QEvent::Show) {
                place();
            } else if (event->type() == QEvent::Move && window_.isVisible()) {
                position_ = WindowPosition{window_.pos().x() * kTwipsPerPixel,
                                           window_.pos().y() * kTwipsPerPixel};
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void place() {
        if (!position_) {
            return;
        }
        QPoint at(position_->left / kTwipsPerPixel, position_->top / kTwipsPerPixel);
        // A place kept from another screen, or crept down past this one, comes back
        // inside it.
        const QScreen* screen = QGuiApplication::screenAt(at);
        if (screen == nullptr) {
            screen = QGuiApplication::primaryScreen();
        }
        if (screen != nullptr) {
            const QRect area = screen->availableGeometry();
            at.setX(std::clamp(at.x(), area.left(),
                               std::max(area.left(), area.right() - window_.width())));
            at.setY(std::clamp(at.y(), area.top(),
                               std::max(area.top(), area.bottom() - window_.height())));
        }
        window_.move(at);
    }

    QWidget& window_;
    std::optional<WindowPosition>& position_;
};

}  // namespace

void keepWindowPosition(QWidget& window, std::optional<WindowPosition>& position) {
    new PositionKeeper(window, position);
}

}  // namespace brevane
