#include "ui/core/panel_window_follow.h"

#include <QCloseEvent>
#include <QEvent>
#include <QLabel>
#include <QObject>

#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

class PanelWindowFollower final : public QObject {
  public:
    PanelWindowFollower(PanelWindow& panel, QWidget& window, std::function<void()> onClose)
        : QObject(&window), panel_(panel), window_(window), onClose_(std::move(onClose)) {
        window_.installEventFilter(this);
        watchId_ = panel_.watch([this] { show(); });
        show();
    }
    ~PanelWindowFollower() override { panel_.unwatch(watchId_); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &window_ && event->type() == QEvent::Close && onClose_) {
            event->ignore();
            onClose_();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void show() {
        const QString title = qtDisplayText(panel_.caption());
        if (window_.windowTitle() != title) {
            window_.setWindowTitle(title);
        }
        if (panel_.visible() && window_.isHidden()) {
            window_.show();
            window_.raise();
            window_.activateWindow();
        } else if (!panel_.visible() && !window_.isHidden()) {
            window_.hide();
        }
    }

    PanelWindow& panel_;
    QWidget& window_;
    std::function<void()> onClose_;
    Control::WatchId watchId_ = 0;
};

class ColoursFollower final : public QObject {
  public:
    ColoursFollower(SchemePaint& paint, QWidget& widget)
        : QObject(&widget), paint_(paint), widget_(widget) {
        watchId_ = paint_.watch([this] { show(); });
        show();
    }
    ~ColoursFollower() override { paint_.unwatch(watchId_); }

  private:
    void show() {
        const std::optional<ColourScheme>& scheme = paint_.scheme();
        if (scheme && scheme != shown_) {
            shown_ = scheme;
            style::paint(widget_, *scheme);
        }
    }

    SchemePaint& paint_;
    QWidget& widget_;
    std::optional<ColourScheme> shown_;
    Control::WatchId watchId_ = 0;
};

class ValueReadout final : public QObject {
  public:
    ValueReadout(RangeControl& control, QLabel& label)
        : QObject(&label), control_(control), label_(label) {
        watchId_ = control_.watch([this] { show(); });
        show();
    }
    ~ValueReadout() override { control_.unwatch(watchId_); }

  private:
    void show() { label_.setText(QString::number(control_.value())); }

    RangeControl& control_;
    QLabel& label_;
    Control::WatchId watchId_ = 0;
};

}  // namespace

void followPanelWindow(PanelWindow& panel, QWidget& window, OnClose onClose) {
    std::function<void()> command;
    if (onClose == OnClose::HidePanel) {
        command = [&panel] { panel.hide(); };
    }
    new PanelWindowFollower(panel, window, std::move(command));
}

void followPanelWindow(PanelWindow& panel, QWidget& window, std::function<void()> closeCommand) {
    new PanelWindowFollower(panel, window, std::move(closeCommand));
}

void followColours(SchemePaint& paint, QWidget& widget) {
    new ColoursFollower(paint, widget);
}

void followControl(Control& control, QObject& owner, std::function<void()> onChange) {
    const Control::WatchId id = control.watch(std::move(onChange));
    QObject::connect(&owner, &QObject::destroyed, [&control, id] { control.unwatch(id); });
}

void showValue(RangeControl& control, QLabel& label) {
    new ValueReadout(control, label);
}

}  // namespace brevane
