#include "ui/core/hotkeys_binding.h"

#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

#include "core/hotkeys.h"
#include "ui/platform/qt_text.h"

namespace brevane {

void bindProgramHotkeys(Application& app, QWidget& owner) {
    for (const Hotkey& key : programHotkeys()) {
        auto* shortcut = new QShortcut(QKeySequence(qtText(key.keys)), &owner);
        shortcut->setContext(Qt::ApplicationShortcut);
        const Hotkey* entry = &key;  // the table lives for the whole run
        QObject::connect(shortcut, &QShortcut::activated, &owner,
                         [&app, entry] { entry->run(app); });
    }
}

}  // namespace brevane
