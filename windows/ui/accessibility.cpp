#include "accessibility.h"

#include "ui/controls.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>

namespace quellpad::ui {

namespace {

// The text of a label as a screen reader reads a text: whole, by characters, by words.
// It cannot be selected or edited.
class LabelText : public QAccessibleTextInterface {
public:
    explicit LabelText(const QLabel* label) : label_(label) {}

    QString text(int start, int end) const override {
        return label_->text().mid(start, end - start);
    }
    int characterCount() const override { return static_cast<int>(label_->text().size()); }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    int selectionCount() const override { return 0; }
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}

private:
    const QLabel* label_;
};

// A readout is heard by its fixed name, with its text as value, description and text.
class ReadoutAccessible final : public QAccessibleWidget, public LabelText {
public:
    explicit ReadoutAccessible(QLabel* label)
        : QAccessibleWidget(label, QAccessible::StaticText), LabelText(label) {}

    QString text(QAccessible::Text kind) const override {
        const auto* label = static_cast<const QLabel*>(widget());
        switch (kind) {
        case QAccessible::Name:
            return ReadoutName(label);
        case QAccessible::Value:
        case QAccessible::Description:
            return label->text();
        default:
            return QAccessibleWidget::text(kind);
        }
    }
    using LabelText::text;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
};

// A caption is heard as one line: where it breaks a line on screen, its name has a blank.
// Its text can be read as a text, for the captions that change (the status texts).
class CaptionAccessible final : public QAccessibleWidget, public LabelText {
public:
    explicit CaptionAccessible(QLabel* label)
        : QAccessibleWidget(label, QAccessible::StaticText), LabelText(label) {}

    using LabelText::text;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        const auto* label = static_cast<const QLabel*>(widget());
        if (kind == QAccessible::Name && label->accessibleName().isEmpty()) {
            return OneLine(label->text());
        }
        return QAccessibleWidget::text(kind);
    }
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        const QWidget* buddy = static_cast<const QLabel*>(widget())->buddy();
        if ((match & QAccessible::Labelled) && buddy != nullptr) {
            found.append({QAccessible::queryAccessibleInterface(const_cast<QWidget*>(buddy)),
                          QAccessible::Labelled});
        }
        return found;
    }
};

// A list to choose from, heard by its label with its choice as its value. (Qt's own names
// a combo box on this platform by its current text, which tells the listener nothing of
// what is being chosen.) Installed in place of Qt's own, it gives what Qt's gives besides:
// the list, whose items are Qt's own list's, and the typed text of an editable box, as its
// children, and the actions that open the list.
class ChoiceAccessible final : public QAccessibleWidget {
public:
    explicit ChoiceAccessible(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) {
            return Box()->currentText();
        }
        if (kind == QAccessible::Name) {
            return OneLine(QAccessibleWidget::text(kind));
        }
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = Box()->view()->isVisible();
        state.editable = Box()->isEditable();
        return state;
    }

    int childCount() const override { return Box()->isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        if (index == 0) {
            return QAccessible::queryAccessibleInterface(Box()->view());
        }
        if (index == 1 && Box()->isEditable()) {
            return QAccessible::queryAccessibleInterface(Box()->lineEdit());
        }
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child == nullptr) {
            return -1;
        }
        if (child->object() == Box()->view()) {
            return 0;
        }
        return Box()->isEditable() && child->object() == Box()->lineEdit() ? 1 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        QLineEdit* typed = Box()->lineEdit();
        if (typed != nullptr && typed->isVisible() &&
            QRect(typed->mapToGlobal(QPoint(0, 0)), typed->size()).contains(x, y)) {
            return child(1);
        }
        return nullptr;
    }
    // An editable box passes its focus on to its text, which is never focused itself.
    QAccessibleInterface* focusChild() const override {
        return Box()->isEditable() ? child(1) : nullptr;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString& action) override {
        if (action != showMenuAction() && action != pressAction()) {
            return;
        }
        if (Box()->view()->isVisible()) {
            Box()->hidePopup();
        } else {
            Box()->showPopup();
        }
    }

private:
    QComboBox* Box() const { return static_cast<QComboBox*>(widget()); }
};

QAccessibleInterface* Factory(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) {
        return nullptr;
    }
    if (className == QLatin1String("QLabel")) {
        auto* label = static_cast<QLabel*>(widget);
        if (IsReadout(label)) {
            return new ReadoutAccessible(label);
        }
        return new CaptionAccessible(label);
    }
    if (className == QLatin1String("QComboBox")) {
        return new ChoiceAccessible(static_cast<QComboBox*>(widget));
    }
    // The program's own windows that are neither dialogs nor main windows (the Traffic and
    // Simulated Site windows) are windows all the same, announced when they open.
    if (className.startsWith(QLatin1String("quellpad::")) && widget->isWindow() &&
        !qobject_cast<QDialog*>(widget) && !qobject_cast<QMainWindow*>(widget)) {
        return new QAccessibleWidget(widget, QAccessible::Window);
    }
    return nullptr;
}

} // namespace

void InstallAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(&Factory);
        return true;
    }();
    Q_UNUSED(installed);
}

} // namespace quellpad::ui
