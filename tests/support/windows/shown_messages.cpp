#include "shown_messages.h"

namespace quellpad::test {

QList<ui::Message>& ShownMessages() {
    static QList<ui::Message> messages;
    return messages;
}

ui::MessagePresenter& RealMessagePresenter() {
    static ui::MessagePresenter presenter;
    return presenter;
}

} // namespace quellpad::test
