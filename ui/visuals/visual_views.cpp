#include "ui/visuals/visual_views.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSlider>
#include <QVBoxLayout>

#include "core/application.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/core/tray_view.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/dialog_layout.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

constexpr int kThumbWidth = 192;
constexpr int kThumbHeight = 108;
constexpr int kPreviewWidth = 320;
constexpr int kPreviewHeight = 180;

// The screen the visuals fill: the second when the option asks for it and there is one.
QScreen* visualScreen(const Application& app) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (app.FRMOPTIONS.secondMonitor.checked() && screens.size() > 1) {
        return screens.at(1);
    }
    return QGuiApplication::primaryScreen();
}

// A picture label showing the file a Label names, scaled to fit.
void showPictureFile(Label& control, QLabel& label, int width, int height) {
    label.setFixedSize(width, height);
    label.setAlignment(Qt::AlignCenter);
    label.setFrameShape(QFrame::StyledPanel);
    const auto show = [&control, &label, width, height] {
        const QImage image =
            control.caption().empty() ? QImage() : QImage(qtText(control.caption()));
        label.setPixmap(image.isNull()
                            ? QPixmap()
                            : QPixmap::fromImage(image.scaled(width, height, Qt::KeepAspectRatio,
                                                              Qt::SmoothTransformation)));
    };
    followControl(control, label, show);
    show();
}

}  // namespace

// ---- the full-screen picture ----

PictureWindow::PictureWindow(Application& app, PanelWindow& window, VisualMode& mode,
                             Label& picture)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      app_(app),
      window_(window),
      mode_(mode) {
    setWindowTitle(qtText(window.caption()));
    setAccessibleName(qtText(window.caption()));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    setAutoFillBackground(true);

    const auto loadPicture = [this, &picture] {
        image_ = picture.caption().empty() ? QImage() : QImage(qtText(picture.caption()));
        update();
    };
    followControl(picture, *this, loadPicture);
    loadPicture();
    followControl(mode.pointer, *this, [this] {
        if (mode_.pointer.visible()) {
            unsetCursor();
        } else {
            setCursor(Qt::BlankCursor);
        }
    });
    followControl(window, *this, [this] { follow(); });
    follow();
}

void PictureWindow::follow() {
    if (!window_.visible()) {
        hide();
        return;
    }
    QScreen* screen = visualScreen(app_);
    if (screen != nullptr) {
        setScreen(screen);
        setGeometry(screen->geometry());
    }
    showFullScreen();
    raise();
    activateWindow();
    setFocus();
}

void PictureWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        mode_.escape();
        return;
    }
    mode_.input();
    QWidget::keyPressEvent(event);
}

void PictureWindow::mouseMoveEvent(QMouseEvent* event) {
    mode_.input();
    QWidget::mouseMoveEvent(event);
}

void PictureWindow::contextMenuEvent(QContextMenuEvent* event) {
    mode_.showcursor();
    QMenu menu(this);
    populateMenu(menu, mode_.contextMenu);
    menu.exec(event->globalPos());
}

// ---- the slideshow ----

SlideshowView::SlideshowView(Application& app, Slideshow& panel)
    : PictureWindow(app, panel.window, panel.visual, panel.picture) {}

void SlideshowView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!image().isNull()) {
        // The picture fills the whole screen, stretched.
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect(), image());
    }
}

// ---- the panoramic ----

PanoramicView::PanoramicView(Application& app, Panoramic& panel)
    : PictureWindow(app, panel.window, panel.visual, panel.picture), panel_(panel) {
    // The speed and "Change" float at the foot of the picture while the pointer shows.
    controls_ = new QWidget(this);
    controls_->setObjectName(QStringLiteral("visualControls"));
    controls_->setAttribute(Qt::WA_StyledBackground);
    controls_->setStyleSheet(QStringLiteral(
        "#visualControls { background-color: rgba(12, 14, 22, 200); border-radius: 8px; }"
        "#visualControls QLabel { color: #e8ecf4; }"));
    auto* row = new QHBoxLayout(controls_);
    row->setContentsMargins(style::kSectionGap, style::kSpacing, style::kSectionGap,
                            style::kSpacing);
    auto* caption = new QLabel(qtText(panel.hscroll1.caption()), controls_);
    row->addWidget(caption);
    row->addWidget(horizontalSlider(panel.hscroll1, qtText(panel.hscroll1.caption()), controls_));
    row->addWidget(bound<QPushButton>(panel.changeButton, controls_));
    auto* leave = new QPushButton(QStringLiteral("Exit Visual Mode"), controls_);
    connect(leave, &QPushButton::clicked, this, [&panel] { panel.visual.escape(); });
    row->addWidget(leave);
    followControl(panel.visual.pointer, *controls_,
                  [this, &panel] { controls_->setVisible(panel.visual.pointer.visible()); });
    controls_->setVisible(panel.visual.pointer.visible());
    followControl(panel.hscroll, *this, [this] { update(); });
}

void PanoramicView::resizeEvent(QResizeEvent* event) {
    panel_.setViewSize(width(), height());
    controls_->adjustSize();
    controls_->move((width() - controls_->width()) / 2, height() - controls_->height() - 24);
    QWidget::resizeEvent(event);
}

void PanoramicView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!image().isNull()) {
        // A picture lower than the screen stands centred (y is negative then).
        painter.drawImage(QPoint(-panel_.x, -panel_.y), image());
    }
}

// ---- Formfolderselect ----

SlideshowSelectorView::SlideshowSelectorView(Application& app, SlideshowSelector& panel)
    : QWidget(nullptr, Qt::Window) {
    Frmremote2& remote = app.frmremote2;
    auto* root = panelLayout(this);
    auto* current = bound<QLabel>(panel.currentLabel, this);
    current->setFont(style::headingFont());
    root->addWidget(current);

    auto* body = new QHBoxLayout();
    auto* left = new QVBoxLayout();
    left->addWidget(bound<QLabel>(panel.imagesLabel, this));
    auto* images = new QListWidget(this);
    images->setAccessibleName(qtText(panel.imagesLabel.caption()));
    bindWidget(panel.images, *images);
    connect(images, &QListWidget::currentRowChanged, this,
            [&panel](int row) { panel.previewImage(row); });
    left->addWidget(images, 1);
    body->addLayout(left, 1);

    auto* right = new QVBoxLayout();
    auto* preview = new QLabel(this);
    preview->setAccessibleName(QStringLiteral("Preview"));
    showPictureFile(panel.preview, *preview, kPreviewWidth, kPreviewHeight);
    right->addWidget(preview);
    auto* folder = new QLineEdit(this);
    folder->setReadOnly(true);
    folder->setAccessibleName(qtText(panel.folderPath.caption()));
    bindWidget(panel.folderPath, *folder);
    right->addWidget(folder);
    auto* choose = new QHBoxLayout();
    for (CommandButton* b : {&panel.picturesButton, &panel.selectButton, &panel.openFolderButton}) {
        choose->addWidget(bound<QPushButton>(*b, this));
    }
    right->addLayout(choose);
    right->addWidget(bound<QCheckBox>(panel.randomOrder, this));
    auto* time = new QHBoxLayout();
    time->addWidget(bound<QLabel>(panel.timeLabel, this));
    auto* count = new QLineEdit(this);
    count->setMaximumWidth(56);
    count->setAccessibleName(qtText(panel.timeLabel.caption()));
    bindWidget(remote.Text1, *count);
    time->addWidget(count);
    time->addWidget(bound<QRadioButton>(remote.Option1, this));
    time->addWidget(bound<QRadioButton>(remote.Option2, this));
    time->addStretch(1);
    right->addLayout(time);
    right->addStretch(1);
    body->addLayout(right);
    root->addLayout(body, 1);

    addDialogButtons(*root, panel.applyButton, panel.closeButton, this);
    resize(680, 420);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    followColours(panel.colours, *this);
}

// ---- folderselect ----

SlideshowPickerView::SlideshowPickerView(SlideshowPicker& panel) : QWidget(nullptr, Qt::Window) {
    auto* root = panelLayout(this);
    auto* folders = new QListWidget(this);
    folders->setAccessibleName(qtText(panel.folders.caption()));
    folders->setViewMode(QListView::IconMode);
    folders->setIconSize(QSize(kThumbWidth, kThumbHeight));
    folders->setGridSize(QSize(kThumbWidth + 24, kThumbHeight + 40));
    folders->setResizeMode(QListView::Adjust);
    folders->setMovement(QListView::Static);
    bindWidget(panel.folders, *folders);
    // Each slideshow shows as its first picture.
    const auto thumbnails = [&panel, folders] {
        for (int i = 0; i < folders->count() && i < panel.folders.count(); ++i) {
            QListWidgetItem* item = folders->item(i);
            if (!item->icon().isNull()) {
                continue;
            }
            const QImage image(qtText(panel.firstPicture(panel.folders.item(i)).string()));
            if (!image.isNull()) {
                item->setIcon(QPixmap::fromImage(image.scaled(
                    kThumbWidth, kThumbHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
            }
        }
    };
    followControl(panel.folders, *folders, thumbnails);
    thumbnails();
    connect(folders, &QListWidget::itemDoubleClicked, this, [&panel] { panel.choose(); });
    root->addWidget(folders, 1);

    addDialogButtons(*root, panel.chooseButton, panel.cancelButton, this);
    resize(720, 420);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    followColours(panel.colours, *this);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
