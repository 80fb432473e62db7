#pragma once

#include "engine/keyboard_state.h"
#include "ui/error_boundary.h"

#include <QDialog>
#include <QWidget>

#include <array>

class QLabel;

namespace quellpad {

// The keys of the menu control window.
enum class MenuKey { None, Right, Left, Up, Down, IrisOpen, IrisClose, Menu, Escape };

// The window's key for a key code (Enter counts as O).
MenuKey MenuKeyOf(int qtKey);

// The four-line instructions shown at the top of the window.
QString MenuControlInstructions();

// What the window does with a key going down or up after the state has been updated.
struct MenuKeyOutcome {
    bool send = false;               // SendCommand now
    bool close = false;              // the window closes
    MenuKey showOn = MenuKey::None;  // the key whose On picture replaces its Off picture
    MenuKey showOff = MenuKey::None; // the key whose Off picture comes back
};

// Key down: one command at once, nothing while a key is held (the keyboard's auto-repeat,
// or a second key). Loads the registers and AsciiCommand directly; the timers are paused
// while the window is open, so the last-sent copies stay as the dispatcher left them.
MenuKeyOutcome MenuKeyDown(Quellpad_Support_Func& keyboard, MenuKey key);
// Key up: one stop for an arrow, O, Enter, C or Esc released while a key is held. The
// release of whichever key comes up first ends the hold, so a first key released after
// a second one sends nothing and keeps its On picture.
MenuKeyOutcome MenuKeyUp(Quellpad_Support_Func& keyboard, MenuKey key);

// One key of the window as drawn: the Off picture at rest, the On picture while held.
class MenuKeyPicture : public QWidget {
    Q_OBJECT
public:
    MenuKeyPicture(QWidget* parent, const char* name, MenuKey key, bool on);
    QSize sizeHint() const override { return {72, 72}; }
    QSize minimumSizeHint() const override { return {40, 40}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    MenuKey key_;
    bool on_;
};

// Steps a camera's on-screen menu from the keyboard: arrows move, O (or Enter) and C open
// and close the iris, M calls the menu, Esc closes the window. Every key sends through
// SendCommand at once; the opener pauses the dispatcher while it is open.
class frmMenuControl : public QDialog {
    Q_OBJECT
public:
    explicit frmMenuControl(Quellpad_Support_Func& keyboard, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Form_KeyDown(MenuKey key);
    void Form_KeyUp(MenuKey key);
    void Apply(const MenuKeyOutcome& outcome);
    void ShowPicture(MenuKey key, bool held);

    Quellpad_Support_Func& keyboard_;
    ui::ErrorBoundary boundary_;
    // The key whose release ends the hold, while one is held.
    MenuKey held_ = MenuKey::None;
    QLabel* InstructionsLabel = nullptr;
    // Off and On picture of Right, Left, Up, Down, IrisOpen, IrisClose.
    std::array<std::array<MenuKeyPicture*, 2>, 6> pictures_{};
};

} // namespace quellpad
