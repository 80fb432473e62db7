// The main window's motion controls: the lens buttons and the joystick.
#include "console/frm_main.h"
#include "console/handler_names.h"
#include "console/joystick_widgets.h"
#include "ui/controls.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>

#include <cmath>
#include <functional>
#include <utility>

namespace quellpad {

using namespace handler_names;

namespace {

int ButtonCode(Qt::MouseButtons buttons) {
    int code = 0;
    if (buttons & Qt::LeftButton) {
        code |= kLeftButton;
    }
    if (buttons & Qt::RightButton) {
        code |= kRightButton;
    }
    if (buttons & Qt::MiddleButton) {
        code |= 4;
    }
    return code;
}

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

void FrmMain::WatchForPopups() {
    qApp->installEventFilter(new PopupWatch(
        this, [this] { boundary_.Run(kFormDeactivate, [&] { ReleaseHeldControls(); }); }));
}

QPushButton* FrmMain::LensControl(LensButton button) const {
    return lensButtons_[static_cast<std::size_t>(button)];
}

void FrmMain::Lens_MouseDown(LensButton button) {
    if (!keyboard_.ControlLockOn) {
        SwitchLensOn(keyboard_, button);
    }
}

void FrmMain::Lens_MouseUp(LensButton button) {
    if (!keyboard_.ControlLockOn) {
        SwitchLensOff(keyboard_, button);
    }
}

void FrmMain::Lens_Click(LensButton button) {
    if (!keyboard_.ControlLockOn) {
        return;
    }
    const LensButton partner = LensPartner(button);
    LensControl(partner)->setText(LensOffCaption(partner));
    QPushButton* control = LensControl(button);
    const QString onCaption = LensOnCaption(button);
    if (control->text() == onCaption) {
        control->setText(LensOffCaption(button));
        SwitchLensOff(keyboard_, button);
    } else {
        control->setText(onCaption);
        SwitchLensOn(keyboard_, button);
    }
}

void FrmMain::LensButton_MouseEvent(LensButton button, const QEvent& event) {
    const auto type = event.type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick &&
        type != QEvent::MouseButtonRelease) {
        return;
    }
    // The button that took the press is sent the release wherever the pointer is then.
    if (static_cast<const QMouseEvent&>(event).button() != Qt::LeftButton) {
        return;
    }
    bool& held = lensHeld_[static_cast<std::size_t>(button)];
    if (type == QEvent::MouseButtonRelease) {
        // A button let go of already (a window took the mouse) has nothing left to stop.
        if (held) {
            held = false;
            boundary_.Run(kLensMouseUp, [&] { Lens_MouseUp(button); });
        }
    } else {
        held = !keyboard_.ControlLockOn;
        boundary_.Run(kLensMouseDown, [&] { Lens_MouseDown(button); });
    }
}

bool FrmMain::ReleaseHeldControls() {
    joystick_.JoystickLatched = false;
    bool released = ReleaseJoystick(keyboard_, joystick_);
    if (released) {
        CentreJoystickBall();
    }
    for (const LensButton button : kLensButtons) {
        bool& held = lensHeld_[static_cast<std::size_t>(button)];
        if (held) {
            held = false;
            LensControl(button)->setDown(false);
            Lens_MouseUp(button);
            released = true;
        }
    }
    return released;
}

bool FrmMain::event(QEvent* event) {
    // Another window took the mouse and the keys: the release of a held control would go
    // to it, or nowhere.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate) {
        boundary_.Run(kFormDeactivate, [&] { ReleaseHeldControls(); });
    }
    return QMainWindow::event(event);
}

// ---------------------------------------------------------------------------------------
// Joystick

QPointF FrmMain::ToTwips(QPointF canvasPoint) const {
    return canvasPoint * ui::TwipsPerPixel(this);
}

QPointF FrmMain::FromTwips(QPointF twips) const {
    return twips / ui::TwipsPerPixel(this);
}

JoystickGeometry FrmMain::CurrentJoystickGeometry() const {
    const double twips = ui::TwipsPerPixel(this);
    const QRect square = square_->geometry();
    const QSize outer = OuterSize();
    return {square.x() * twips,      square.y() * twips,    square.width() * twips,
            square.height() * twips, outer.width() * twips, outer.height() * twips};
}

void FrmMain::PlaceBallAt(QPointF twips) {
    ball_->move(CentredSquare(FromTwips(twips), ball_->width()).topLeft());
}

void FrmMain::CentreJoystickBall() {
    PlaceBallAt(JoystickRestPoint(CurrentJoystickGeometry()));
}

QSize FrmMain::OuterSize() const {
    return size();
}

void FrmMain::Form_MouseDown(int button, QPointF canvasPoint) {
    Form_MouseMove(button, canvasPoint);
}

void FrmMain::Form_MouseMove(int buttons, QPointF canvasPoint) {
    const QPointF twips = ToTwips(canvasPoint);
    if (UpdateJoystick(keyboard_, joystick_, buttons, twips.x(), twips.y(),
                       CurrentJoystickGeometry())) {
        PlaceBallAt(twips);
    }
}

void FrmMain::DriveJoystick(JoystickState& state, QPointF twips) {
    if (UpdateJoystick(keyboard_, state, kLeftButton, twips.x(), twips.y(),
                       CurrentJoystickGeometry())) {
        PlaceBallAt(twips);
    }
}

void FrmMain::Form_MouseUp() {
    if (ReleaseJoystick(keyboard_, joystick_)) {
        CentreJoystickBall();
    }
}

bool FrmMain::eventFilter(QObject* watched, QEvent* event) {
    for (const LensButton button : kLensButtons) {
        if (watched == LensControl(button)) {
            LensButton_MouseEvent(button, *event);
            return false; // the button still draws itself pressed and reports its clicks
        }
    }
    if (watched == canvas_ && event->type() == QEvent::Resize) {
        LayOut();
        return false;
    }
    if (watched != canvas_ && watched != square_) {
        return false;
    }
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonRelease) {
        return false;
    }
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QPointF point =
        static_cast<QWidget*>(watched)->mapTo(canvas_, mouse->position().toPoint());
    boundary_.Run(kFormMouse, [&] {
        if (type == QEvent::MouseButtonPress) {
            Form_MouseDown(ButtonCode(mouse->button()), point);
        } else if (type == QEvent::MouseMove && joystick_.JoystickDragging &&
                   !joystick_.JoystickLatched && mouse->buttons() == Qt::NoButton) {
            Form_MouseUp(); // the release went elsewhere while the pointer was taken
        } else if (type == QEvent::MouseMove) {
            Form_MouseMove(ButtonCode(mouse->buttons()), point);
        } else {
            Form_MouseUp();
        }
    });
    return true;
}

} // namespace quellpad
