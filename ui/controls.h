#pragma once

#include <QString>

class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;
class QRadioButton;
class QTimer;
class QWidget;

// Every control is made here, so that each carries its name as its objectName, its
// caption (or its label's text) as its accessible name, and stays out of the tab order
// where the window's own keys must reach the window.
namespace quellpad::ui {

// Two caption lines joined as the keyboard shows them ("Preset" over "Number").
QString TwoLines(const QString& top, const QString& bottom);
// A caption as one line, for accessible names ("Preset Number").
QString OneLine(const QString& caption);

QPushButton* MakeButton(QWidget* parent, const char* name, const QString& caption);
QLabel* MakeLabel(QWidget* parent, const char* name, const QString& caption = {});
QLineEdit* MakeTextBox(QWidget* parent, const char* name, const QString& labelText);
QListWidget* MakeList(QWidget* parent, const char* name, const QString& labelText);
QRadioButton* MakeOption(QWidget* parent, const char* name, const QString& caption);
QCheckBox* MakeCheckBox(QWidget* parent, const char* name, const QString& caption);
QGroupBox* MakeFrame(QWidget* parent, const char* name, const QString& caption);
QMenu* MakeMenu(QWidget* parent, const char* name, const QString& caption);
QAction* MakeItem(QMenu* menu, const char* name, const QString& caption, bool checkable = false);
QTimer* MakeTimer(QWidget* parent, const char* name);

} // namespace quellpad::ui
