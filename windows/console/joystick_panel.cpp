#include "console/joystick_panel.h"

#include "console/handler_names.h"
#include "console/joystick_widgets.h"
#include "ui/controls.h"
#include "ui/error_boundary.h"

#include <QMouseEvent>

#include <cmath>

namespace quellpad {

using namespace frm_main_parts;
using namespace handler_names;

namespace {

// The joystick square's side and the knob's diameter, in design units.
constexpr double kSquareSide = 160;
constexpr double kBallSide = 20;

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

} // namespace

JoystickPanel::JoystickPanel(const PartContext& context) : context_(context) {
    // Placed by Place, centred on the rest point.
    square_ = new JoystickSquare(context_.canvas);
    ball_ = new JoystickBall(context_.canvas);
    square_->installEventFilter(this);
    context_.canvas->installEventFilter(this);
}

void JoystickPanel::Place(double scale) {
    // The square is centred on the knob's rest point, half the window's outer size, so that
    // the speed rule measures from the square's centre. The outer size is the window's own
    // (menus and status bar included, the window manager's frame not): the frame arrives
    // after the window is shown and changes no size the keyboard is told of, so a rest
    // point taken from it would move under a knob already drawn.
    const int side = static_cast<int>(std::lround(kSquareSide * scale));
    // A knob of the square's parity sits exactly on the square's centre at rest, rather
    // than half a pixel beside it.
    int ballSide = static_cast<int>(std::lround(kBallSide * scale));
    ballSide += (side - ballSide) % 2;
    const QRect square =
        CentredSquare(FromTwips(JoystickRestPoint(CurrentJoystickGeometry())), side);
    if (square_->geometry() == square && ball_->width() == ballSide) {
        return;
    }
    square_->setGeometry(square);
    ball_->resize(ballSide, ballSide);
    ball_->raise();
    if (!joystick_.JoystickDragging) {
        CentreJoystickBall();
    }
}

QPointF JoystickPanel::ToTwips(QPointF canvasPoint) const {
    return canvasPoint * ui::TwipsPerPixel(context_.window);
}

QPointF JoystickPanel::FromTwips(QPointF twips) const {
    return twips / ui::TwipsPerPixel(context_.window);
}

JoystickGeometry JoystickPanel::CurrentJoystickGeometry() const {
    const double twips = ui::TwipsPerPixel(context_.window);
    const QRect square = square_->geometry();
    const QSize outer = OuterSize();
    return {square.x() * twips,      square.y() * twips,    square.width() * twips,
            square.height() * twips, outer.width() * twips, outer.height() * twips};
}

QSize JoystickPanel::OuterSize() const {
    return context_.window->size();
}

void JoystickPanel::PlaceBallAt(QPointF twips) {
    ball_->move(CentredSquare(FromTwips(twips), ball_->width()).topLeft());
}

void JoystickPanel::CentreJoystickBall() {
    PlaceBallAt(JoystickRestPoint(CurrentJoystickGeometry()));
}

bool JoystickPanel::Release() {
    joystick_.JoystickLatched = false;
    const bool released = ReleaseJoystick(context_.keyboard, joystick_);
    if (released) {
        CentreJoystickBall();
    }
    return released;
}

void JoystickPanel::Form_MouseDown(int button, QPointF canvasPoint) {
    Form_MouseMove(button, canvasPoint);
}

void JoystickPanel::Form_MouseMove(int buttons, QPointF canvasPoint) {
    const QPointF twips = ToTwips(canvasPoint);
    if (UpdateJoystick(context_.keyboard, joystick_, buttons, twips.x(), twips.y(),
                       CurrentJoystickGeometry())) {
        PlaceBallAt(twips);
    }
}

void JoystickPanel::DriveJoystick(JoystickState& state, QPointF twips) {
    if (UpdateJoystick(context_.keyboard, state, kLeftButton, twips.x(), twips.y(),
                       CurrentJoystickGeometry())) {
        PlaceBallAt(twips);
    }
}

void JoystickPanel::Form_MouseUp() {
    if (ReleaseJoystick(context_.keyboard, joystick_)) {
        CentreJoystickBall();
    }
}

bool JoystickPanel::eventFilter(QObject* watched, QEvent* event) {
    QWidget* canvas = context_.canvas;
    if (watched != canvas && watched != square_) {
        return false;
    }
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove &&
        type != QEvent::MouseButtonRelease) {
        return false;
    }
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const QPointF point =
        static_cast<QWidget*>(watched)->mapTo(canvas, mouse->position().toPoint());
    context_.boundary.Run(kFormMouse, [&] {
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
