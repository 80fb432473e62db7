// The main window's face: its parts laid out on it, and what lets go of a held control.
#include "console/frm_main.h"

#include "console/frm_main_parts.h"
#include "console/handler_names.h"
#include "console/joystick_panel.h"
#include "console/lens_buttons.h"
#include "console/main_menus.h"
#include "console/mode_setup.h"
#include "console/numbered_targets.h"
#include "console/reply_boxes.h"
#include "console/window_size.h"
#include "engine/port_watch.h"
#include "engine/retransmission.h"
#include "ui/controls.h"
#include "ui/key_filter.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <utility>

namespace quellpad {

using namespace frm_main_parts;
using namespace handler_names;
using ui::TwoLines;

namespace {

// Tells when a popup (a menu, a list) opens anywhere in the program: it takes the pointer
// from whatever the operator holds.
class PopupWatch : public QObject {
public:
    PopupWatch(QObject* parent, std::function<void()> opened)
        : QObject(parent), opened_(std::move(opened)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType() &&
            static_cast<QWidget*>(watched)->windowType() == Qt::Popup) {
            opened_();
        }
        return false;
    }

private:
    std::function<void()> opened_;
};

} // namespace

void FrmMain::BuildControls() {
    canvas_ = new QWidget(this);
    canvas_->setObjectName(QStringLiteral("FrmMainPanel"));
    canvas_->setMouseTracking(true);
    setCentralWidget(canvas_);
    QWidget* c = canvas_;
    const PartContext context{keyboard_, boundary_, this, canvas_, layout_};

    // Ports and replies along the top.
    replies_ = std::make_unique<ReplyBoxes>(context);

    // Retransmission and lens speed, above the joystick.
    RetransmitTimeLabel =
        ui::MakeLabel(c, "RetransmitTimeLabel", TwoLines(tr("Retransmit"), tr("Time")));
    RetransmitTimeTextBox = ui::MakeTextBox(c, "RetransmitTimeTextBox", RetransmitTimeLabel);
    ui::FilterCharacters(RetransmitTimeTextBox, &RetransmitKeyAccepted);
    RetransmitTimeTextBox->setToolTip(tr("Seconds between repeats, above .05 and below 61"));
    context.Place(RetransmitTimeLabel, 182, 74, 62, 28);
    context.Place(RetransmitTimeTextBox, 246, 78, 40, 20);
    lens_ = std::make_unique<LensButtons>(context);

    targets_ = std::make_unique<NumberedTargets>(context);

    QList<QWidget*> hDataControls; // arrows, wipers and poll: never shown by this keyboard
    // The poll and wiper controls of a protocol this keyboard does not offer.
    H_Data_Frame = ui::MakeFrame(c, "H_Data_Frame", tr("Data"));
    context.Place(H_Data_Frame, 400, 264, 170, 120);
    const char* const dataNames[] = {"UpArrowCommand",    "DownArrowCommand", "LeftArrowCommand",
                                     "RightArrowCommand", "WipeButton",       "H_Poll_Button"};
    const char* const dataCaptions[] = {QT_TR_NOOP("Up"),   QT_TR_NOOP("Down"),
                                        QT_TR_NOOP("Left"), QT_TR_NOOP("Right"),
                                        QT_TR_NOOP("Wipe"), QT_TR_NOOP("Poll")};
    for (std::size_t i = 0; i < 6; ++i) {
        QPushButton* control = ui::MakeButton(H_Data_Frame, dataNames[i], tr(dataCaptions[i]));
        context.Place(control, 8 + static_cast<double>(i % 3) * 52,
                      20 + static_cast<double>(i / 3) * 28, 48, 24);
        hDataControls.append(control);
    }
    QPushButton* wipeWash =
        ui::MakeButton(H_Data_Frame, "WipeWashButton", TwoLines(tr("Wipe/"), tr("Wash")));
    context.Place(wipeWash, 8, 78, 48, 34);
    hDataControls.append(wipeWash);
    hDataControls.append(H_Data_Frame);

    // The joystick: placed by LayOut, centred on the rest point.
    joystick_ = std::make_unique<JoystickPanel>(context);
    canvas_->installEventFilter(this);

    // The bindings and where the settings are kept on one line, and below it a line of its
    // own for news of the ports and advice, so that a sentence reads whole at the window's
    // usual width. The second line keeps its room while empty: news that comes and goes
    // never resizes the keyboard's face under a held joystick.
    auto* status = new QWidget(this);
    auto* lines = new QGridLayout(status);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setVerticalSpacing(0);
    portBindings_ = new ui::StatusText(status, "PortBindingsLabel");
    lines->addWidget(portBindings_, 0, 0);
    lines->setColumnStretch(0, 1);
    // An installed program keeps its settings in the user's folder, not beside it: say where.
    settingsPlace_ = new ui::StatusText(status, "SettingsPlaceLabel");
    lines->addWidget(settingsPlace_, 0, 1);
    startNotice_ = new ui::StatusText(status, "StartNoticeLabel");
    QSizePolicy keepsRoom = startNotice_->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    startNotice_->setSizePolicy(keepsRoom);
    startNotice_->hide();
    lines->addWidget(startNotice_, 1, 0, 1, 2);
    statusBar()->addWidget(status, 1);
    statusBar()->setSizeGripEnabled(true);
    statusBar()->setAccessibleName(tr("Status"));
    // The window's own keys (the menu-access key) must reach it whatever was clicked.
    ui::TakeButtonsOutOfTabOrder(this);

    CommandChangeTimer = ui::MakeTimer(this, "CommandChangeTimer");
    RetransmitTimer = ui::MakeTimer(this, "RetransmitTimer");
    H_Poll_Timer = ui::MakeTimer(this, "H_Poll_Timer");
    ComPresenceTimer = ui::MakeTimer(this, "ComPresenceTimer");
    ComPresenceTimer->setInterval(PortWatch::kPollMs);

    setMinimumSize(MinimumWindowSize(ui::TwipsPerPixel(this)));

    modes_ = std::make_unique<ModeSetup>(keyboard_, *menus_, *replies_, *lens_, *targets_,
                                         ModeSetup::Reach{CommandChangeTimer, RetransmitTimer,
                                                          H_Poll_Timer, RetransmitTimeTextBox,
                                                          hDataControls, [this] { LayOut(); },
                                                          [this] {
                                                              EnableComItems();
                                                          }});
}

void FrmMain::LayOut() {
    layout_.Apply(canvas_->size());
    // The one-line lists (ui::OneLineList) fit their items to their boxes as they resize.
    joystick_->Place(std::min(layout_.ScaleX(), layout_.ScaleY()));
}

void FrmMain::ApplyModeControls() {
    modes_->ApplyModeControls();
}

void FrmMain::CentreJoystickBall() {
    joystick_->CentreJoystickBall();
}

void FrmMain::DriveJoystick(JoystickState& state, QPointF twips) {
    joystick_->DriveJoystick(state, twips);
}

JoystickGeometry FrmMain::CurrentJoystickGeometry() const {
    return joystick_->CurrentJoystickGeometry();
}

void FrmMain::WatchForPopups() {
    qApp->installEventFilter(new PopupWatch(
        this, [this] { boundary_.Run(kFormDeactivate, [&] { ReleaseHeldControls(); }); }));
}

bool FrmMain::ReleaseHeldControls() {
    const bool joystick = joystick_->Release();
    const bool lens = lens_->ReleaseHeld();
    return joystick || lens;
}

bool FrmMain::event(QEvent* event) {
    // Another window took the mouse and the keys: the release of a held control would go
    // to it, or nowhere.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate) {
        boundary_.Run(kFormDeactivate, [&] { ReleaseHeldControls(); });
    }
    return QMainWindow::event(event);
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == canvas_ && event->type() == QEvent::Resize) {
        LayOut();
    }
    return false;
}

} // namespace quellpad
