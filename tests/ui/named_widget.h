#pragma once
// Finds widgets as a screen reader or an automation tool does: by the name their
// accessible interface gives, which is the caption a sighted user reads (without its
// Alt letter's mark) or the name the view gave it.

#include <QAccessible>
#include <QWidget>

namespace brevane::test {

inline QString spokenName(QWidget& widget) {
    QAccessibleInterface* a = QAccessible::queryAccessibleInterface(&widget);
    return a != nullptr ? a->text(QAccessible::Name) : QString();
}

// The first widget of kind W under `root` named `name`, or nullptr.
template <class W = QWidget>
W* named(QWidget& root, const QString& name) {
    for (W* w : root.findChildren<W*>()) {
        if (spokenName(*w) == name) {
            return w;
        }
    }
    return nullptr;
}

// The same among widgets that share a name, told apart by their description (the
// custom banks' rows, "Not Set" each, say their slot: "Slot 3").
template <class W = QWidget>
W* named(QWidget& root, const QString& name, const QString& description) {
    for (W* w : root.findChildren<W*>()) {
        QAccessibleInterface* a = QAccessible::queryAccessibleInterface(w);
        if (a != nullptr && a->text(QAccessible::Name) == name &&
            a->text(QAccessible::Description) == description) {
            return w;
        }
    }
    return nullptr;
}

}  // namespace brevane::test
