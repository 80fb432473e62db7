#pragma once

#include "console/frm_main_parts.h"
#include "console/joystick.h"

#include <QObject>
#include <QPointF>
#include <QSize>

class QEvent;

namespace quellpad {

class JoystickBall;
class JoystickSquare;

// The on-screen joystick: the square centred on the rest point and the knob the operator
// drags in it with the mouse, anywhere over the keyboard's face.
class JoystickPanel : public QObject {
public:
    explicit JoystickPanel(const frm_main_parts::PartContext& context);

    // Square and knob for the face's scale; the knob back at rest unless it is dragged.
    void Place(double scale);
    // The knob back at the rest point.
    void CentreJoystickBall();
    // A left-button drag to `twips` (client area) with its own drag state, the knob
    // following.
    void DriveJoystick(JoystickState& state, QPointF twips);
    // The joystick's geometry at this moment, in twips of the window's client area.
    JoystickGeometry CurrentJoystickGeometry() const;
    // Lets go of the knob, latched or dragged, as if the mouse button had come up. Whether
    // it was held.
    bool Release();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_MouseDown(int button, QPointF canvasPoint);
    void Form_MouseMove(int buttons, QPointF canvasPoint);
    void Form_MouseUp();
    void PlaceBallAt(QPointF twips);
    // Twips of the client area for a point of the window's central area, and back.
    QPointF ToTwips(QPointF canvasPoint) const;
    QPointF FromTwips(QPointF twips) const;
    // The window's outer size as the joystick's rest point takes it: its own, without the
    // window manager's frame.
    QSize OuterSize() const;

    frm_main_parts::PartContext context_;
    JoystickState joystick_;
    JoystickSquare* square_ = nullptr;
    JoystickBall* ball_ = nullptr;
};

} // namespace quellpad
