#pragma once
// Answers the next modal dialog the code under test opens: polls until a dialog of
// the wanted type is the active modal widget, then hands it to `act`, which must
// close it. A dialog of another type, or none at all within a few seconds, fails
// the test and is closed, so a wrong dialog never hangs the suite.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <functional>

namespace brevane::testing {

template <class Dialog>
void answerNextDialog(std::function<void(Dialog&)> act) {
    auto* poll = new QTimer;
    auto* waited = new QElapsedTimer;
    waited->start();
    poll->setInterval(5);
    QObject::connect(poll, &QTimer::timeout, [poll, waited, act] {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* dialog = qobject_cast<Dialog*>(modal)) {
            poll->stop();
            poll->deleteLater();
            delete waited;
            act(*dialog);
            return;
        }
        if (waited->elapsed() > 5000) {
            poll->stop();
            poll->deleteLater();
            delete waited;
            ADD_FAILURE() << "the expected dialog never opened";
            if (auto* other = qobject_cast<QDialog*>(modal)) {
                other->reject();
            }
        }
    });
    poll->start();
}

}  // namespace brevane::testing
