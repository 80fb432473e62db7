#include "key_preview.h"

#include "ui/key_filter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace quellpad {

KeyPreview::KeyPreview(QWidget* window, std::function<bool(QChar)> handler)
    : QObject(window), window_(window), handler_(std::move(handler)) {
    // Keys go to the control with the focus, and on to its parents only when it leaves
    // them; the application sees every one first.
    qApp->installEventFilter(this);
}

KeyPreview::~KeyPreview() {
    if (qApp) {
        qApp->removeEventFilter(this);
    }
}

bool KeyPreview::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
        return false;
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    const QWidget* target = static_cast<QWidget*>(watched);
    if (target->window() != window_ || key->isAutoRepeat() || key->text().size() != 1 ||
        (key->modifiers() & ~Qt::ShiftModifier & ~Qt::KeypadModifier)) {
        return false;
    }
    // The key is weighed once, where it is first delivered: a key the control passes on
    // to its parents has been offered to the window already.
    const QWidget* focus = QApplication::focusWidget();
    if (focus != nullptr && target != focus && target->isAncestorOf(focus)) {
        return false;
    }
    // A box that would take the character keeps it; wherever it would be refused (a number
    // box, a read-only box, a list, a button, the joystick) the window has it.
    const QChar character = key->text()[0];
    if (ui::AcceptsCharacter(target, character)) {
        return false;
    }
    return handler_(character);
}

} // namespace quellpad
