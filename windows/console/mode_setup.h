#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <functional>

class QAction;
class QLineEdit;
class QTimer;
class QWidget;

namespace quellpad {

class LensButtons;
class MainMenus;
class NumberedTargets;
class Quellpad_Support_Func;
class ReplyBoxes;
namespace ui {
class ErrorBoundary;
}

// The four command languages: the Mode menu's items, and which controls, captions and
// menus each mode shows.
class ModeSetup {
    Q_DECLARE_TR_FUNCTIONS(quellpad::FrmMain)
public:
    // What a mode change reaches beyond the controls: the dispatcher's and the
    // retransmission's timers and box, the poll timer, the faces laid out anew, and the
    // COM items offered anew.
    struct Reach {
        QTimer* commandChangeTimer;
        QTimer* retransmitTimer;
        QTimer* hPollTimer;
        QLineEdit* retransmitTimeTextBox;
        QList<QWidget*> hDataControls; // arrows, wipers and poll: never shown by this keyboard
        std::function<void()> layOut;
        std::function<void()> enableComItems;
    };

    ModeSetup(Quellpad_Support_Func& keyboard, MainMenus& menus, ReplyBoxes& replies,
              LensButtons& lens, NumberedTargets& targets, Reach reach);

    // The Mode menu's items run behind the error boundary.
    void Connect(QWidget* window, ui::ErrorBoundary& boundary);

    // The per-mode visibility and captions of the controls and menus.
    void ApplyModeControls();

    void ASCII_Menu_Option_Click();
    void MUX_ASCII_Option_Click();
    void D_Protocol_Menu_Option_Click();
    void P_Protocol_Menu_Option_Click();

private:
    void SwitchMode(const QString& mode, QAction* item);

    Quellpad_Support_Func& keyboard_;
    MainMenus& menus_;
    ReplyBoxes& replies_;
    LensButtons& lens_;
    NumberedTargets& targets_;
    Reach reach_;
};

} // namespace quellpad
