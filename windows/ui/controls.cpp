#include "controls.h"

#include "ui/accessibility.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
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

// No accessible name is forced here: Qt names a control by its caption, as it changes.
template <class Control> Control* Named(Control* control, const char* name) {
    InstallAccessibility();
    control->setObjectName(QLatin1String(name));
    return control;
}

constexpr const char* kReadoutName = "quellpadReadoutName";

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
    // The row may name the action already ("Set Pan Position", "Schwenkposition setzen").
    const bool named = row.split(u' ', Qt::SkipEmptyParts).contains(action, Qt::CaseInsensitive);
    QStringList phrase = (named ? row : row + u' ' + action).simplified().split(u' ');
    // Read as a phrase: "Set pan position", "Auto AGC on". A language that writes its nouns
    // with a capital (German) keeps the captions' own case: its catalogue says so.
    const bool lowerCase =
        QCoreApplication::translate(
            "RowActionName", "lower case",
            "\"lower case\" where the words after the first of a phrase are "
            "written in lower case, as in English; \"as written\" otherwise") == u"lower case";
    for (qsizetype i = 1; lowerCase && i < phrase.size(); ++i) {
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

QString ReadoutName(const QWidget* control) {
    return control->property(kReadoutName).toString();
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
    const QSize size = wanted.boundedTo(room).expandedTo(window->minimumSizeHint().boundedTo(room));
    window->resize(size);
    // Centred, so that its frame stays inside the free area as well.
    window->move(free.topLeft() +
                 QPoint((free.width() - size.width()) / 2, (free.height() - size.height()) / 2));
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
