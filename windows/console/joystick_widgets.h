#pragma once

#include <QWidget>

namespace quellpad {

// The joystick's square, drawn as a control of its own with a cross through its centre
// and the dead zone marked, so that the operator can see where motion starts.
class JoystickSquare : public QWidget {
    Q_OBJECT
public:
    explicit JoystickSquare(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

// The knob. It takes no mouse events: the pointer always reaches the square or the
// window beneath it.
class JoystickBall : public QWidget {
    Q_OBJECT
public:
    explicit JoystickBall(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quellpad
