#include "messages.h"

#include <QApplication>
#include <QMessageBox>

namespace quellpad::ui {

namespace {

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
    box.exec();
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

MessagePresenter SetMessagePresenter(MessagePresenter presenter) {
    MessagePresenter previous = std::move(Presenter());
    Presenter() = std::move(presenter);
    return previous;
}

} // namespace quellpad::ui
