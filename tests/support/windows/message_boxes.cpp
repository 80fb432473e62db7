#include "message_boxes.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

namespace quellpad::test {

namespace {

int BoxesUp() {
    int up = 0;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        up += qobject_cast<QMessageBox*>(widget) != nullptr && widget->isVisible() ? 1 : 0;
    }
    return up;
}

} // namespace

MessageBoxWatch::MessageBoxWatch(int closeAfterMs) : closeAfterMs_(closeAfterMs) {
    qApp->installEventFilter(this);
}

MessageBoxWatch::~MessageBoxWatch() {
    qApp->removeEventFilter(this);
}

QString MessageBoxWatch::LastText() const {
    return !seen_.isEmpty() && seen_.last() ? seen_.last()->text() : lastText_;
}

void MessageBoxWatch::CloseAll() {
    closingAll_ = true;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible()) {
            QTimer::singleShot(0, box, &QMessageBox::accept);
        }
    }
}

bool MessageBoxWatch::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QMessageBox*>(watched);
    if (box != nullptr && event->type() == QEvent::Hide && !seen_.isEmpty() &&
        seen_.last() == box) {
        lastText_ = box->text();
    }
    if (box != nullptr && event->type() == QEvent::Show && !seen_.contains(box)) {
        ++shown_;
        seen_.append(box);
        mostAtOnce_ = std::max(mostAtOnce_, BoxesUp());
        if (closingAll_) {
            QTimer::singleShot(0, box, &QMessageBox::accept);
        } else if (closeAfterMs_ >= 0) {
            QTimer::singleShot(closeAfterMs_, box, &QMessageBox::accept);
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quellpad::test
