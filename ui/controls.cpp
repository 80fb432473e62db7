#include "controls.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTextCursor>
#include <QTimer>

namespace quellpad::ui {

namespace {

void InstallFactory();

// No accessible name is forced here: Qt names a control by its caption, as it changes.
template <class Control> Control* Named(Control* control, const char* name) {
    InstallFactory();
    control->setObjectName(QLatin1String(name));
    return control;
}

constexpr const char* kReadoutName = "quellpadReadoutName";

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
            return label->property(kReadoutName).toString();
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
// what is being chosen.)
class ChoiceAccessible final : public QAccessibleWidget {
public:
    explicit ChoiceAccessible(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override {
        const auto* box = static_cast<const QComboBox*>(widget());
        if (kind == QAccessible::Value) {
            return box->currentText();
        }
        if (kind == QAccessible::Name) {
            return OneLine(QAccessibleWidget::text(kind));
        }
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.editable = static_cast<const QComboBox*>(widget())->isEditable();
        return state;
    }
};

QAccessibleInterface* Factory(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) {
        return nullptr;
    }
    if (className == QLatin1String("QLabel")) {
        auto* label = static_cast<QLabel*>(widget);
        if (label->property(kReadoutName).isValid()) {
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

// Installed with the first control made here, after the application's own factory for
// Qt's widgets: the factory installed last is asked first.
void InstallFactory() {
    static const bool installed = [] {
        QAccessible::installFactory(&Factory);
        return true;
    }();
    Q_UNUSED(installed);
}

// Every item as high as the list's box, so that the box shows exactly one.
class OneLineDelegate final : public QStyledItemDelegate {
public:
    explicit OneLineDelegate(QListWidget* list) : QStyledItemDelegate(list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize natural = QStyledItemDelegate::sizeHint(option, index);
        return {natural.width(), std::max(1, list_->viewport()->height())};
    }

private:
    QListWidget* list_;
};

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
    return Named(new QPushButton(caption, parent), name);
}

QLabel* MakeLabel(QWidget* parent, const char* name, const QString& caption) {
    auto* label = Named(new QLabel(caption, parent), name);
    label->setWordWrap(false);
    return label;
}

QLineEdit* MakeTextBox(QWidget* parent, const char* name, QLabel* label) {
    auto* box = Named(new QLineEdit(parent), name);
    SetBuddy(label, box);
    return box;
}

void SetBuddy(QLabel* label, QWidget* box) {
    label->setBuddy(box);
    // Qt would name the box by the label's text as it is, line breaks and all.
    box->setAccessibleName(OneLine(label->text()));
}

void SetCaption(QLabel* label, const QString& caption) {
    label->setText(caption);
    if (QWidget* box = label->buddy()) {
        box->setAccessibleName(OneLine(caption));
    }
}

QString RowActionName(const QString& row, const QString& caption) {
    const QString action = caption.trimmed();
    const QString words = row.startsWith(action, Qt::CaseInsensitive) ? row : row + u' ' + action;
    // Read as a phrase: "Set pan position", "Auto AGC on".
    QStringList phrase = words.simplified().split(u' ');
    for (qsizetype i = 1; i < phrase.size(); ++i) {
        if (phrase[i] != phrase[i].toUpper() || phrase[i].size() == 1) {
            phrase[i] = phrase[i].toLower();
        }
    }
    return phrase.join(u' ');
}

QLineEdit* MakeTextBox(QWidget* parent, const char* name, const QString& accessibleName) {
    auto* box = Named(new QLineEdit(parent), name);
    box->setAccessibleName(accessibleName);
    return box;
}

QListWidget* MakeList(QWidget* parent, const char* name, QLabel* label) {
    auto* list = Named(new OneLineList(parent), name);
    SetBuddy(label, list);
    return list;
}

QRadioButton* MakeOption(QWidget* parent, const char* name, const QString& caption) {
    return Named(new QRadioButton(caption, parent), name);
}

QCheckBox* MakeCheckBox(QWidget* parent, const char* name, const QString& caption) {
    return Named(new QCheckBox(caption, parent), name);
}

QGroupBox* MakeFrame(QWidget* parent, const char* name, const QString& caption) {
    return Named(new QGroupBox(caption, parent), name);
}

QMenu* MakeMenu(QWidget* parent, const char* name, const QString& caption) {
    return Named(new QMenu(caption, parent), name);
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

QLabel* MakeReadout(QWidget* parent, const char* name, const QString& accessibleName) {
    auto* label = MakeLabel(parent, name);
    label->setProperty(kReadoutName, accessibleName);
    return label;
}

void ShowReading(QLabel* label, const QString& text) {
    const QString before = label->text();
    if (before == text) {
        return;
    }
    label->setText(text);
    // A screen reader speaks a changed text when it is told the text changed.
    QAccessibleTextUpdateEvent changed(label, 0, before, text);
    QAccessible::updateAccessibility(&changed);
}

bool IsReadout(const QWidget* control) {
    return control->property(kReadoutName).isValid();
}

void TakeButtonsOutOfTabOrder(QWidget* window) {
    for (QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
        button->setFocusPolicy(Qt::NoFocus);
    }
}

OneLineList::OneLineList(QWidget* parent) : QListWidget(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
    setItemDelegate(new OneLineDelegate(this));
    connect(this, &QListWidget::currentRowChanged, this, [this] { ShowCurrentOnTop(); });
    // Only the operator's own scrolling picks an item. A relayout moves the scroll bar too
    // (while the items still have their old height, a taller box holds several and the
    // bar's range shrinks under the last one), and that must never change the choice.
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] {
        // Scrolled per item, the slider's position is the row to stand on top.
        const int row = verticalScrollBar()->sliderPosition();
        if (row >= 0 && row < count() && row != currentRow()) {
            setCurrentRow(row);
        }
    });
}

void OneLineList::resizeEvent(QResizeEvent* event) {
    QListWidget::resizeEvent(event);
    doItemsLayout(); // the items take the box's new height
    ShowCurrentOnTop();
}

void OneLineList::updateGeometries() {
    QListWidget::updateGeometries();
    ShowCurrentOnTop();
}

void OneLineList::ShowCurrentOnTop() {
    const int row = currentRow();
    if (row >= 0 && verticalScrollBar()->value() != row) {
        scrollTo(model()->index(row, 0), QAbstractItemView::PositionAtTop);
    }
}

StatusText::StatusText(QWidget* parent, const char* name) : QLabel(parent) {
    Named(this, name);
}

void StatusText::Show(const QString& text, const QString& detail) {
    ShowReading(this, text);
    setToolTip(detail.isEmpty() ? text : text + u'\n' + detail);
}

QSize StatusText::minimumSizeHint() const {
    // Room for a few characters and the ellipsis; the bar gives it what the window has.
    QSize hint = QLabel::minimumSizeHint();
    hint.setWidth(fontMetrics().horizontalAdvance(QStringLiteral("COM 1\u2026")));
    return hint;
}

void StatusText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect area = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, area.width());
    style()->drawItemText(&painter, area, static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}

void SizeWithinScreen(QWidget* window, QSize wanted) {
    const QScreen* screen = window->screen();
    if (screen == nullptr) {
        window->resize(wanted);
        return;
    }
    const QRect free = screen->availableGeometry();
    // Room for the window manager's frame and title bar around it.
    const QSize room = free.size() * 0.9;
    const QSize size =
        wanted.boundedTo(room).expandedTo(window->minimumSizeHint().boundedTo(room));
    window->resize(size);
    // Centred, so that its frame stays inside the free area as well.
    window->move(free.topLeft() + QPoint((free.width() - size.width()) / 2,
                                         (free.height() - size.height()) / 2));
}

int TopIndex(const QListWidget* list) {
    return list->indexAt(QPoint(0, 0)).row();
}

LogView::LogView(QWidget* parent, qsizetype maximum)
    : QPlainTextEdit(parent), maximum_(maximum), redraw_(new QTimer(this)) {
    setReadOnly(true);
    // Every insert would otherwise stay in memory as an undo step, for ever.
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    redraw_->setSingleShot(true);
    redraw_->setInterval(kLogRedrawMs);
    connect(redraw_, &QTimer::timeout, this, &LogView::Redraw);
}

void LogView::Append(const QString& text) {
    received_ += text;
    undrawn_ += text;
    if (received_.size() > maximum_) {
        // The oldest half goes at once, so that a flood rebuilds the box only now and then.
        received_ = received_.right(maximum_ / 2);
        rebuild_ = true;
    }
    if (!redraw_->isActive()) {
        redraw_->start();
    }
}

void LogView::Clear() {
    received_.clear();
    undrawn_.clear();
    rebuild_ = false;
    redraw_->stop();
    clear();
}

void LogView::Redraw() {
    if (rebuild_) {
        setPlainText(received_);
    } else {
        QTextCursor end(document());
        end.movePosition(QTextCursor::End);
        end.insertText(undrawn_);
    }
    undrawn_.clear();
    rebuild_ = false;
    moveCursor(QTextCursor::End);
}

} // namespace quellpad::ui
