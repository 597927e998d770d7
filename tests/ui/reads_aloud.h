#pragma once
// The check every window passes: each control a hand can work has a spoken name and is
// reached by Tab, and no Alt letter is given twice. Returns the Alt letters in use.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QWidget>

#include <gtest/gtest.h>

#include "ui/named_widget.h"

namespace brevane::test {

inline QString expectReadsAloud(QWidget& window) {
    const std::string title = window.windowTitle().toStdString();
    QString letters;
    for (QWidget* w : window.findChildren<QWidget*>()) {
        // Parts Qt makes inside its own widgets (a list's scroll bars and header, a
        // list box's text field and drop-down, a spin box's text field) go by the widget
        // they belong to.
        bool part = false;
        for (QWidget* up = w->parentWidget(); up != nullptr && up != &window;
             up = up->parentWidget()) {
            part = part || qobject_cast<QAbstractScrollArea*>(up) != nullptr ||
                   qobject_cast<QComboBox*>(up) != nullptr ||
                   qobject_cast<QAbstractSpinBox*>(up) != nullptr;
        }
        if (part) {
            continue;
        }
        const bool operable = qobject_cast<QAbstractButton*>(w) != nullptr ||
                              qobject_cast<QAbstractSlider*>(w) != nullptr ||
                              qobject_cast<QComboBox*>(w) != nullptr ||
                              qobject_cast<QAbstractSpinBox*>(w) != nullptr ||
                              qobject_cast<QAbstractItemView*>(w) != nullptr ||
                              qobject_cast<QPlainTextEdit*>(w) != nullptr ||
                              qobject_cast<QLineEdit*>(w) != nullptr;
        if (!operable) {
            continue;
        }
        const QString name = spokenName(*w);
        EXPECT_FALSE(name.trimmed().isEmpty())
            << title << ": a " << w->metaObject()->className() << " has no name";
        auto* edit = qobject_cast<QLineEdit*>(w);
        if (edit == nullptr || !edit->isReadOnly()) {
            EXPECT_TRUE(w->focusPolicy() & Qt::TabFocus)
                << title << ": " << name.toStdString() << " is out of the Tab order";
        }
        if (auto* b = qobject_cast<QPushButton*>(w); b != nullptr) {
            const auto mark = b->text().indexOf(QLatin1Char('&'));
            if (mark >= 0 && mark + 1 < b->text().size()) {
                const QChar letter = b->text().at(mark + 1).toLower();
                EXPECT_FALSE(letters.contains(letter))
                    << title << ": Alt+" << QString(letter).toStdString() << " twice";
                letters += letter;
            }
        }
    }
    return letters;
}

}  // namespace brevane::test
