#include "messages.h"

#include <QApplication>
#include <QHash>
#include <QMessageBox>
#include <QPointer>

namespace quellpad::ui {

namespace {

QHash<QString, QPointer<QMessageBox>>& ShownBoxes() {
    static QHash<QString, QPointer<QMessageBox>> boxes;
    return boxes;
}

void ShowMessageBox(QWidget* parent, const Message& message) {
    QMessageBox box(parent);
    box.setWindowTitle(message.title.isEmpty() ? QStringLiteral("Quellpad") : message.title);
    box.setText(message.text);
    if (message.icon == MessageIcon::Critical) {
        box.setIcon(QMessageBox::Critical);
    }
    if (message.buttons == MessageButtons::OkCancel) {
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    if (message.topic.isEmpty()) {
        box.exec();
        return;
    }
    ShownBoxes().insert(message.topic, &box);
    box.exec();
    ShownBoxes().remove(message.topic);
}

MessagePresenter& Presenter() {
    static MessagePresenter presenter = &ShowMessageBox;
    return presenter;
}

} // namespace

void ShowMessage(QWidget* parent, const Message& message) {
    // Copied, so that a presenter replaced while the message is up is not destroyed under it.
    const MessagePresenter present = Presenter();
    present(parent, message);
}

bool UpdateShownMessage(const QString& topic, const QString& text) {
    const QPointer<QMessageBox> box = ShownBoxes().value(topic);
    if (!box) {
        return false;
    }
    box->setText(text);
    return true;
}

MessagePresenter SetMessagePresenter(MessagePresenter presenter) {
    MessagePresenter previous = std::move(Presenter());
    Presenter() = std::move(presenter);
    return previous;
}

} // namespace quellpad::ui
