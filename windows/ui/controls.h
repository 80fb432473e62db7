#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QString>

class QAction;
class QCheckBox;
class QGroupBox;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QTimer;
class QWidget;

// Every control is made here, so that each carries its name as its objectName. What a
// screen reader calls a control follows what the operator sees: a caption names its
// button, label, option, frame or menu as it changes, and a box is named by its label.
namespace quellpad::ui {

// Two caption lines joined as the keyboard shows them ("Preset" over "Number").
QString TwoLines(const QString& top, const QString& bottom);
// A caption as one line ("Preset Number").
QString OneLine(const QString& caption);

QPushButton* MakeButton(QWidget* parent, const char* name, const QString& caption);
QLabel* MakeLabel(QWidget* parent, const char* name, const QString& caption = {});
// A box named by its label on screen: the label is its buddy.
QLineEdit* MakeTextBox(QWidget* parent, const char* name, QLabel* label);
// Makes `label` the label of `box` on screen and to a screen reader, which hears the
// label's caption as one line.
void SetBuddy(QLabel* label, QWidget* box);
// Changes a label's caption; a box it labels is heard by the new caption.
void SetCaption(QLabel* label, const QString& caption);
// What a screen reader calls a button of a row of buttons whose captions repeat ("Set",
// "Query", "on"): the action with what it acts on, "Set pan position", "Auto focus on".
QString RowActionName(const QString& row, const QString& caption);
// A box with no label on screen, named for the screen reader alone.
QLineEdit* MakeTextBox(QWidget* parent, const char* name, const QString& accessibleName);
// A one-line list (OneLineList) named by its label on screen.
QListWidget* MakeList(QWidget* parent, const char* name, QLabel* label);
QRadioButton* MakeOption(QWidget* parent, const char* name, const QString& caption);
QCheckBox* MakeCheckBox(QWidget* parent, const char* name, const QString& caption);
QGroupBox* MakeFrame(QWidget* parent, const char* name, const QString& caption);
QMenu* MakeMenu(QWidget* parent, const char* name, const QString& caption);
QAction* MakeItem(QMenu* menu, const char* name, const QString& caption, bool checkable = false);
QTimer* MakeTimer(QWidget* parent, const char* name);

// A label whose text is a reading rather than a caption (the bytes last sent on a port):
// a screen reader hears it by its fixed name, and its current text as its value.
QLabel* MakeReadout(QWidget* parent, const char* name, const QString& accessibleName);
bool IsReadout(const QWidget* control);
// The fixed name a screen reader hears a readout by.
QString ReadoutName(const QWidget* control);
// Shows a new reading (or status text) and tells a screen reader, which speaks it.
void ShowReading(QLabel* label, const QString& text);

// Takes the buttons, options and check boxes of a window out of the tab order, for a
// window whose own keys must reach it whatever was clicked last. Dialogs keep them.
void TakeButtonsOutOfTabOrder(QWidget* window);

// A list one item high, as the keyboard's lens speed, pattern and zone lists are: its
// items are exactly as high as the box at every size, and the item on top is always the
// current one. The current item is the operator's choice: their scrolling (arrows, wheel,
// dragging the slider) or keys change it, and it stays on top through every resize,
// show, hide and relayout, which only ever move the view to it.
class OneLineList : public QListWidget {
public:
    explicit OneLineList(QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;

private:
    void ShowCurrentOnTop();
};

// A text of a status bar. The bar is as wide as the window, which may be narrower than
// what it says: the text then ends in an ellipsis, and its tool tip (and what a screen
// reader hears) is always the whole text.
class StatusText : public QLabel {
public:
    StatusText(QWidget* parent, const char* name);

    // The text, and in the tool tip below it `detail` where there is one.
    void Show(const QString& text, const QString& detail = {});
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

// Gives a window of the program's own the size it asks for, or less where its screen's free
// area is smaller (a laptop's screen, or a doubled scale), centred, so that it opens whole.
void SizeWithinScreen(QWidget* window, QSize wanted);

// The index of the item at the top of a list's box, -1 when it is empty: what the
// keyboard reads from a one-line list.
int TopIndex(const QListWidget* list);

// A read-only running log (the response boxes): keeps no undo history and at most
// `maximum` of the latest characters, and counts its text as received (CR LF is two
// characters), not as shown. What arrives is drawn at most every kLogRedrawMs, so that a
// flood of replies costs a few layouts a second, not one per reply.
class LogView : public QPlainTextEdit {
public:
    static constexpr int kLogRedrawMs = 50;

    LogView(QWidget* parent, qsizetype maximum);

    void Append(const QString& text);
    void Clear();
    // Characters held, as received.
    qsizetype ReceivedLength() const { return received_.size(); }

private:
    void Redraw();

    qsizetype maximum_;
    QString received_;
    QString undrawn_;      // received but not yet in the box
    bool rebuild_ = false; // the oldest text was dropped: the box is drawn afresh
    QTimer* redraw_;
};

} // namespace quellpad::ui
