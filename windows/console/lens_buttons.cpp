#include "console/lens_buttons.h"

#include "console/handler_names.h"
#include "engine/keyboard_state.h"
#include "ui/controls.h"
#include "ui/error_boundary.h"

#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>

namespace quellpad {

using namespace frm_main_parts;
using namespace handler_names;
using ui::TwoLines;

LensButtons::LensButtons(const PartContext& context) : context_(context) {
    QWidget* c = context_.canvas;
    LensSpeedLabel = ui::MakeLabel(c, "LensSpeedLabel", TwoLines(tr("Lens"), tr("Speed")));
    LensSpeedList = ui::MakeList(c, "LensSpeedList", LensSpeedLabel);
    context_.Place(LensSpeedLabel, 300, 74, 44, 28);
    context_.Place(LensSpeedList, 346, 78, 40, 20);

    // Under the joystick and on to the right edge: zoom, focus and iris, each pair in a
    // column wide enough for the Control Lock captions ("Focus Near Off").
    const double lensX[] = {178, 310, 178, 310, 442, 442};
    const double lensY[] = {0, 0, 1, 1, 0, 1};
    const LensButton lensOrder[] = {LensButton::ZoomIn,   LensButton::FocusNear,
                                    LensButton::ZoomOut,  LensButton::FocusFar,
                                    LensButton::IrisOpen, LensButton::IrisClose};
    for (std::size_t i = 0; i < 6; ++i) {
        const LensButton button = lensOrder[i];
        const QString caption = LensPlainCaption(button);
        QPushButton* control = ui::MakeButton(c, LensButtonName(button), caption);
        lensButtons_[static_cast<std::size_t>(button)] = control;
        context_.layout.Place(control, QRectF(lensX[i], 326 + lensY[i] * 30, 128, 26), 8.0,
                              {LensOnCaption(button), LensOffCaption(button)});
    }
}

void LensButtons::Connect() {
    for (const LensButton button : kLensButtons) {
        QPushButton* control = LensControl(button);
        // Mouse down and up themselves: pressed and released follow the pointer in and out.
        control->installEventFilter(this);
        QObject::connect(control, &QPushButton::clicked, context_.window, [this, button] {
            context_.boundary.Run(kLensClick, [&] { Lens_Click(button); });
        });
    }
}

QPushButton* LensButtons::LensControl(LensButton button) const {
    return lensButtons_[static_cast<std::size_t>(button)];
}

void LensButtons::ShowPlainCaptions() {
    for (const LensButton button : kLensButtons) {
        LensControl(button)->setText(LensPlainCaption(button));
    }
}

void LensButtons::Lens_MouseDown(LensButton button) {
    if (!context_.keyboard.ControlLockOn) {
        SwitchLensOn(context_.keyboard, button);
    }
}

void LensButtons::Lens_MouseUp(LensButton button) {
    if (!context_.keyboard.ControlLockOn) {
        SwitchLensOff(context_.keyboard, button);
    }
}

void LensButtons::Lens_Click(LensButton button) {
    if (!context_.keyboard.ControlLockOn) {
        return;
    }
    const LensButton partner = LensPartner(button);
    LensControl(partner)->setText(LensOffCaption(partner));
    QPushButton* control = LensControl(button);
    const QString onCaption = LensOnCaption(button);
    if (control->text() == onCaption) {
        control->setText(LensOffCaption(button));
        SwitchLensOff(context_.keyboard, button);
    } else {
        control->setText(onCaption);
        SwitchLensOn(context_.keyboard, button);
    }
}

void LensButtons::LensButton_MouseEvent(LensButton button, const QEvent& event) {
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
            context_.boundary.Run(kLensMouseUp, [&] { Lens_MouseUp(button); });
        }
    } else {
        held = !context_.keyboard.ControlLockOn;
        context_.boundary.Run(kLensMouseDown, [&] { Lens_MouseDown(button); });
    }
}

bool LensButtons::ReleaseHeld() {
    bool released = false;
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

bool LensButtons::eventFilter(QObject* watched, QEvent* event) {
    for (const LensButton button : kLensButtons) {
        if (watched == LensControl(button)) {
            LensButton_MouseEvent(button, *event);
            break;
        }
    }
    return false; // the button still draws itself pressed and reports its clicks
}

} // namespace quellpad
