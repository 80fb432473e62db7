#include "controls.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace quellpad::ui {

namespace {

template <class Control>
Control* Named(Control* control, const char* name, const QString& caption) {
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(OneLine(caption));
    return control;
}

} // namespace

QString TwoLines(const QString& top, const QString& bottom) {
    return top + QStringLiteral("\r\n") + bottom;
}

QString OneLine(const QString& caption) {
    QString text = caption;
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    text.replace(u'\n', u' ');
    text.remove(u'&');
    return text.simplified();
}

QPushButton* MakeButton(QWidget* parent, const char* name, const QString& caption) {
    auto* button = Named(new QPushButton(caption, parent), name, caption);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

QLabel* MakeLabel(QWidget* parent, const char* name, const QString& caption) {
    auto* label = Named(new QLabel(caption, parent), name, caption);
    label->setWordWrap(false);
    return label;
}

QLineEdit* MakeTextBox(QWidget* parent, const char* name, const QString& labelText) {
    return Named(new QLineEdit(parent), name, labelText);
}

QListWidget* MakeList(QWidget* parent, const char* name, const QString& labelText) {
    auto* list = Named(new QListWidget(parent), name, labelText);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return list;
}

QRadioButton* MakeOption(QWidget* parent, const char* name, const QString& caption) {
    auto* option = Named(new QRadioButton(caption, parent), name, caption);
    option->setFocusPolicy(Qt::NoFocus);
    return option;
}

QCheckBox* MakeCheckBox(QWidget* parent, const char* name, const QString& caption) {
    return Named(new QCheckBox(caption, parent), name, caption);
}

QGroupBox* MakeFrame(QWidget* parent, const char* name, const QString& caption) {
    return Named(new QGroupBox(caption, parent), name, caption);
}

QMenu* MakeMenu(QWidget* parent, const char* name, const QString& caption) {
    return Named(new QMenu(caption, parent), name, caption);
}

QAction* MakeItem(QMenu* menu, const char* name, const QString& caption, bool checkable) {
    auto* item = menu->addAction(caption);
    item->setObjectName(QLatin1String(name));
    item->setCheckable(checkable);
    return item;
}

QTimer* MakeTimer(QWidget* parent, const char* name) {
    auto* timer = new QTimer(parent);
    timer->setObjectName(QLatin1String(name));
    // Coarse timers may fire up to 5% late; the tick is the operator's latency.
    timer->setTimerType(Qt::PreciseTimer);
    return timer;
}

} // namespace quellpad::ui
