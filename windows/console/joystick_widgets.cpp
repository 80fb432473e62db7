#include "joystick_widgets.h"

#include <QCoreApplication>
#include <QPainter>
#include <QRadialGradient>

namespace quellpad {

JoystickSquare::JoystickSquare(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Joystick_Square"));
    setAccessibleName(QCoreApplication::translate("JoystickSquare", "Joystick"));
    setAccessibleDescription(QCoreApplication::translate(
        "JoystickSquare",
        "Drag with the left button to pan and tilt: the further from the centre, "
        "the faster. A right click latches the knob to the pointer until the next "
        "right click."));
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void JoystickSquare::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(QColor(0x40, 0x48, 0x50), 1.5));
    painter.setBrush(QColor(0x2b, 0x31, 0x38));
    painter.drawRoundedRect(area, 6, 6);

    const QPointF centre = area.center();
    painter.setPen(QPen(QColor(0x5a, 0x66, 0x72), 1, Qt::DashLine));
    painter.drawLine(QPointF(area.left() + 6, centre.y()), QPointF(area.right() - 6, centre.y()));
    painter.drawLine(QPointF(centre.x(), area.top() + 6), QPointF(centre.x(), area.bottom() - 6));
    // The dead zone is a twentieth of the square each way from the rest point.
    const double dead = area.width() / 20.0;
    painter.setPen(QPen(QColor(0x7f, 0x8c, 0x99), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(centre.x() - dead, centre.y() - dead, 2 * dead, 2 * dead));
}

JoystickBall::JoystickBall(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Joystick_Ball"));
    setAccessibleName(QCoreApplication::translate("JoystickSquare", "Joystick Knob"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void JoystickBall::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    QRadialGradient shade(area.center() - QPointF(area.width() / 6, area.height() / 6),
                          area.width() / 1.6);
    shade.setColorAt(0, QColor(0xff, 0xd0, 0x80));
    shade.setColorAt(1, QColor(0xd0, 0x70, 0x10));
    painter.setPen(QPen(QColor(0x60, 0x30, 0x00), 1));
    painter.setBrush(shade);
    painter.drawEllipse(area);
}

} // namespace quellpad
