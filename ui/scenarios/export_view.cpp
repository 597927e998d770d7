#include "ui/scenarios/export_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <array>
#include <initializer_list>

#include "scenarios/export_wizard.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/program_icon.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// The titles above the pages, so the user knows where the wizard stands.
constexpr std::array<const char*, ExportWizard::kPages> kPageTitles{"Introduction", "Associations",
                                                                    "Details", "Gather", "Finish"};

constexpr int kMarkSize = 72;
constexpr int kPreviewWidth = 240;
constexpr int kPreviewHeight = 150;

QLabel* text(Label& control, QWidget* parent) {
    auto* label = bound<QLabel>(control, parent);
    label->setWordWrap(true);
    return label;
}

// A picture's preview: the file the wizard names, scaled to fit, or an empty frame.
QLabel* preview(TextBox& control, QWidget* parent) {
    auto* picture = new QLabel(parent);
    picture->setFixedSize(kPreviewWidth, kPreviewHeight);
    picture->setAlignment(Qt::AlignCenter);
    picture->setFrameShape(QFrame::StyledPanel);
    picture->setAccessibleName(qtText(control.caption()));
    const auto follow = [&control, picture] {
        const QPixmap image(qtPath(control.text()));
        if (image.isNull()) {
            picture->clear();
        } else {
            picture->setPixmap(image.scaled(picture->size() - QSize(4, 4), Qt::KeepAspectRatio,
                                            Qt::SmoothTransformation));
        }
    };
    const Control::WatchId id = control.watch(follow);
    QObject::connect(picture, &QObject::destroyed, [&control, id] { control.unwatch(id); });
    follow();
    return picture;
}

// A box to type in, under the caption that names it.
void typedBox(TextBox& control, QWidget* parent, QVBoxLayout& layout, bool oneLine) {
    auto* caption = new QLabel(qtText(control.caption()), parent);
    caption->setWordWrap(true);
    layout.addWidget(caption);
    QWidget* box = nullptr;
    if (oneLine) {
        auto* edit = new QLineEdit(parent);
        bindWidget(control, *edit);
        box = edit;
    } else {
        auto* edit = new QPlainTextEdit(parent);
        edit->setTabChangesFocus(true);
        edit->setFixedHeight(72);
        bindTypedText(control, *edit);
        box = edit;
    }
    box->setAccessibleName(qtText(control.caption()).trimmed());
    caption->setBuddy(box);
    layout.addWidget(box);
}

// Push buttons in a row from the left.
void addButtonRow(QVBoxLayout& layout, QWidget& page,
                  std::initializer_list<CommandButton*> buttons) {
    auto* row = new QHBoxLayout();
    for (CommandButton* button : buttons) {
        row->addWidget(bound<QPushButton>(*button, &page));
    }
    row->addStretch(1);
    layout.addLayout(row);
}

void introductionPage(ExportWizard& wizard, QWidget& page, QVBoxLayout& layout) {
    layout.setSpacing(style::kSectionGap);
    layout.addWidget(text(wizard.introText, &page));
    layout.addWidget(text(wizard.introNote, &page));
    layout.addStretch(1);
}

void associationsPage(ExportWizard& wizard, QWidget& page, QVBoxLayout& layout) {
    layout.addWidget(text(wizard.associationsNote, &page));
    layout.addSpacing(style::kSpacing);
    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(style::kSectionGap);
    grid->addWidget(bound<QCheckBox>(wizard.includePanoramic, &page), 0, 0);
    grid->addWidget(preview(wizard.panoramicPreview, &page), 1, 0);
    grid->addWidget(text(wizard.panoramicLabel, &page), 2, 0);
    grid->addWidget(bound<QCheckBox>(wizard.includeSlideshow, &page), 0, 1);
    grid->addWidget(preview(wizard.slideshowPreview, &page), 1, 1);
    grid->addWidget(text(wizard.slideshowLabel, &page), 2, 1);
    layout.addLayout(grid);
    layout.addStretch(1);
}

void detailsPage(ExportWizard& wizard, QWidget& page, QVBoxLayout& layout) {
    typedBox(wizard.createdBy, &page, layout, true);
    typedBox(wizard.description, &page, layout, false);
    typedBox(wizard.recordings, &page, layout, false);
    layout.addStretch(1);
}

void gatherPage(ExportWizard& wizard, QWidget& page, QVBoxLayout& layout) {
    layout.addWidget(text(wizard.gatherNote, &page));
    addButtonRow(layout, page, {&wizard.collect});
    auto* caption = new QLabel(qtText(wizard.status.caption()), &page);
    layout.addWidget(caption);
    // The log stays scrolled to its end as lines come in.
    auto* log = bound<QPlainTextEdit>(wizard.status, &page);
    log->setAccessibleName(QStringLiteral("Status"));
    log->setFont(style::smallFont());
    caption->setBuddy(log);
    const Control::WatchId id = wizard.status.watch(
        [log] { log->verticalScrollBar()->setValue(log->verticalScrollBar()->maximum()); });
    QObject::connect(log, &QObject::destroyed, [&wizard, id] { wizard.status.unwatch(id); });
    layout.addWidget(log, 1);
}

void finishPage(ExportWizard& wizard, QWidget& page, QVBoxLayout& layout) {
    layout.setSpacing(style::kSectionGap);
    layout.addWidget(text(wizard.finishNote, &page));
    addButtonRow(layout, page, {&wizard.locate, &wizard.upload});
    layout.addStretch(1);
}

}  // namespace

ExportView::ExportView(ExportWizard& wizard, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* outer = new QHBoxLayout(this);
    style::applySpacing(*outer);
    outer->setSpacing(style::kSectionGap);
    // The wizard's side: the program's mark, so the steps read as one piece of work.
    auto* mark = new QLabel(this);
    mark->setPixmap(programIcon().pixmap(kMarkSize, kMarkSize));
    mark->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    mark->setFixedWidth(kMarkSize + 2 * style::kMargin);
    outer->addWidget(mark);
    auto* root = new QVBoxLayout();
    outer->addLayout(root, 1);

    auto* title = new QLabel(this);
    title->setFont(style::headingFont());
    root->addWidget(title);

    auto* pages = new QStackedWidget(this);
    using PageMaker = void (*)(ExportWizard&, QWidget&, QVBoxLayout&);
    for (PageMaker make :
         {introductionPage, associationsPage, detailsPage, gatherPage, finishPage}) {
        auto* page = new QWidget(pages);
        auto* layout = new QVBoxLayout(page);
        layout->setContentsMargins(0, 0, 0, 0);
        make(wizard, *page, *layout);
        pages->addWidget(page);
    }
    root->addWidget(pages, 1);

    const auto follow = [&wizard, pages, title] {
        const int index = wizard.page.value() - 1;
        pages->setCurrentIndex(index);
        title->setText(QStringLiteral("Step %1 of %2: %3")
                           .arg(wizard.page.value())
                           .arg(ExportWizard::kPages)
                           .arg(QLatin1String(kPageTitles.at(static_cast<std::size_t>(index)))));
    };
    const Control::WatchId id = wizard.page.watch(follow);
    QObject::connect(pages, &QObject::destroyed, [&wizard, id] { wizard.page.unwatch(id); });
    follow();

    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(bound<QPushButton>(wizard.back, this));
    buttons->addWidget(bound<QPushButton>(wizard.next, this));
    buttons->addSpacing(style::kSectionGap);
    buttons->addWidget(bound<QPushButton>(wizard.exitButton, this));
    root->addLayout(buttons);

    resize(680, 420);
    followColours(wizard.colours, *this);
    followPanelWindow(wizard.window, *this, OnClose::HidePanel);
}

}  // namespace brevane
