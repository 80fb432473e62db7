#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace quellpad::ui {

enum class MessageButtons { Ok, OkCancel };
// The picture beside the text; a refusal the operator must not miss shows the stop sign.
enum class MessageIcon { None, Critical };

struct Message {
    QString text;
    QString title; // empty: the program's own name
    MessageButtons buttons = MessageButtons::Ok;
    MessageIcon icon = MessageIcon::None;
    // What the message is about (a COM port); a box about it that is showing can be
    // brought up to date by UpdateShownMessage. Empty: about nothing that changes.
    QString topic = QString();
};

// Shows a modal message to the operator and waits until it is closed.
void ShowMessage(QWidget* parent, const Message& message);

// Changes the text of the box about `topic` that is showing now; false when none is.
bool UpdateShownMessage(const QString& topic, const QString& text);

// Replaces how messages are shown (tests record them instead of waiting for a click);
// returns the one that was in force.
using MessagePresenter = std::function<void(QWidget* parent, const Message& message)>;
MessagePresenter SetMessagePresenter(MessagePresenter presenter);

} // namespace quellpad::ui
