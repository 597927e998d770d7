#include "ui/widgets/dialog_layout.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/controls.h"
#include "ui/binding/bindings.h"
#include "ui/widgets/style.h"

namespace brevane {

QVBoxLayout* panelLayout(QWidget* window) {
    auto* root = new QVBoxLayout(window);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSpacing);
    return root;
}

void addDialogButtons(QVBoxLayout& root, CommandButton& accept, CommandButton& close,
                      QWidget* parent) {
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    auto* ok = bound<QPushButton>(accept, parent);
    ok->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(bound<QPushButton>(close, parent));
    root.addLayout(buttons);
}

}  // namespace brevane
