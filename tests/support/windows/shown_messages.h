#pragma once

#include "fixtures.h"

#include "ui/messages.h"

#include <QList>

namespace quellpad::test {

// Messages the program showed the operator during a test, in order; empty as each test
// starts.
QList<ui::Message>& ShownMessages();
// How the program shows its messages outside the tests: modal boxes, for a test of what
// a real box does to the windows around it.
ui::MessagePresenter& RealMessagePresenter();

} // namespace quellpad::test
