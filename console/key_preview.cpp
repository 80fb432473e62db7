#include "key_preview.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace quellpad {

namespace {

bool TypesText(const QObject* control) {
    return qobject_cast<const QLineEdit*>(control) ||
           qobject_cast<const QPlainTextEdit*>(control) ||
           qobject_cast<const QTextEdit*>(control) ||
           qobject_cast<const QAbstractSpinBox*>(control);
}

} // namespace

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
    // A key that a text box passed on (a read-only box) reaches its parents as well.
    const QWidget* focus = QApplication::focusWidget();
    if (TypesText(target) || (TypesText(focus) && target->isAncestorOf(focus))) {
        return false;
    }
    return handler_(key->text()[0]);
}

} // namespace quellpad
