#include "scene.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <array>
#include <cmath>

namespace quellpad::site_window {

namespace {

constexpr double kWidestView = 58.0;
constexpr double kPi = 3.14159265358979323846;

double Radians(double degrees) {
    return degrees * kPi / 180.0;
}

// The shortest turn from one azimuth to another, -180..180.
double Turn(double from, double to) {
    return std::remainder(to - from, 360.0);
}

// Height in degrees of a range of hills at an azimuth; sums of whole-turn sines, so the
// outline closes on itself.
double FarHills(double azimuth) {
    const double a = Radians(azimuth);
    return 2.6 + 1.6 * std::sin(3 * a + 0.5) + 0.9 * std::sin(7 * a + 1.3) +
           0.35 * std::sin(19 * a) + 0.15 * std::sin(41 * a + 2.0);
}

double NearHills(double azimuth) {
    const double a = Radians(azimuth);
    return 0.9 + 0.7 * std::sin(2 * a + 2.1) + 0.45 * std::sin(5 * a + 0.2) +
           0.2 * std::sin(13 * a + 1.1);
}

struct Building {
    double azimuth;
    double width;  // degrees
    double height; // degrees
    QColor colour;
};

const std::array<Building, 14> kTown = {{
    {8, 5, 6, QColor(96, 104, 122)},
    {15, 3, 10, QColor(120, 112, 104)},
    {21, 6, 4, QColor(140, 92, 80)},
    {62, 9, 3.5, QColor(170, 160, 140)},
    {95, 4, 12, QColor(80, 92, 110)},
    {101, 5, 7, QColor(110, 120, 130)},
    {160, 12, 2.5, QColor(150, 70, 60)},
    {205, 3, 8, QColor(100, 100, 96)},
    {210, 5, 5, QColor(130, 124, 112)},
    {262, 7, 4.5, QColor(90, 110, 100)},
    {300, 4, 9, QColor(120, 100, 120)},
    {306, 6, 5.5, QColor(104, 96, 88)},
    {335, 10, 3, QColor(160, 150, 130)},
    {352, 4, 7, QColor(86, 96, 116)},
}};

struct Post {
    double azimuth;
    double depression; // degrees below the horizon of its foot: the nearer, the lower
    bool tree;
};

const std::array<Post, 12> kPosts = {{
    {30, 4, true},
    {48, 2.5, false},
    {75, 6, true},
    {130, 3, false},
    {150, 8, true},
    {185, 2, true},
    {230, 5, false},
    {248, 3.5, true},
    {280, 7, true},
    {318, 2.2, false},
    {340, 5, true},
    {355, 3, false},
}};

} // namespace

double FieldOfView(double magnification) {
    return kWidestView / std::max(1.0, magnification);
}

void PaintScene(QPainter& painter, const QRectF& area, const View& view) {
    painter.save();
    painter.setClipRect(area);
    painter.setRenderHint(QPainter::Antialiasing, true);
    const double fov = FieldOfView(view.magnification);
    const double ppd = area.width() / fov; // pixels per degree
    const double cx = area.center().x();
    const double horizon = area.center().y() + view.tilt * ppd;
    const auto xAt = [&](double azimuth) {
        return cx + Turn(view.azimuth, azimuth) * ppd;
    };
    const auto yAt = [&](double elevation) {
        return horizon - elevation * ppd;
    };

    // Sky, darkening upwards.
    QLinearGradient sky(0, yAt(60), 0, horizon);
    sky.setColorAt(0, QColor(22, 58, 120));
    sky.setColorAt(0.7, QColor(96, 150, 206));
    sky.setColorAt(1, QColor(206, 222, 232));
    painter.fillRect(
        QRectF(area.left(), area.top(), area.width(), std::max(0.0, horizon - area.top())), sky);

    // Sun to the south-east with a soft glow.
    const QPointF sun(xAt(135), yAt(24));
    QRadialGradient glow(sun, 9 * ppd);
    glow.setColorAt(0, QColor(255, 250, 220, 230));
    glow.setColorAt(0.12, QColor(255, 240, 190, 200));
    glow.setColorAt(1, QColor(255, 240, 190, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glow);
    painter.drawEllipse(sun, 9 * ppd, 9 * ppd);

    // Two ranges of hills, sampled across the picture.
    const int samples = std::max(24, static_cast<int>(area.width() / 3));
    const auto ridge = [&](double (*height)(double), const QColor& top, const QColor& foot) {
        QPainterPath path;
        path.moveTo(area.left(), horizon + 1);
        for (int i = 0; i <= samples; ++i) {
            const double x = area.left() + area.width() * i / samples;
            const double azimuth = view.azimuth + (x - cx) / ppd;
            path.lineTo(x, yAt(height(azimuth)));
        }
        path.lineTo(area.right(), horizon + 1);
        path.closeSubpath();
        QLinearGradient shade(0, yAt(5), 0, horizon);
        shade.setColorAt(0, top);
        shade.setColorAt(1, foot);
        painter.fillPath(path, shade);
    };
    ridge(&FarHills, QColor(118, 136, 168), QColor(150, 164, 184));
    ridge(&NearHills, QColor(74, 110, 82), QColor(96, 128, 92));

    // Ground: fields near the horizon, darker close to the camera.
    if (horizon < area.bottom()) {
        QLinearGradient ground(0, horizon, 0, yAt(-45));
        ground.setColorAt(0, QColor(112, 140, 92));
        ground.setColorAt(0.4, QColor(84, 112, 66));
        ground.setColorAt(1, QColor(46, 66, 38));
        painter.fillRect(QRectF(area.left(), horizon, area.width(), area.bottom() - horizon),
                         ground);
        // A road that runs round the site, and the compass lines across the fields.
        painter.setPen(QPen(QColor(70, 70, 72), std::max(1.0, 1.2 * ppd)));
        painter.drawLine(QPointF(area.left(), yAt(-6)), QPointF(area.right(), yAt(-6)));
        painter.setPen(QPen(QColor(230, 210, 120), std::max(0.5, 0.12 * ppd), Qt::DashLine));
        painter.drawLine(QPointF(area.left(), yAt(-6)), QPointF(area.right(), yAt(-6)));
    }

    // The town, with lit windows once the camera is close enough to see them.
    for (const Building& b : kTown) {
        const double x = xAt(b.azimuth);
        const double half = b.width * ppd / 2;
        if (x + half < area.left() || x - half > area.right()) {
            continue;
        }
        const QRectF body(x - half, yAt(b.height), 2 * half, b.height * ppd);
        QLinearGradient side(body.topLeft(), body.topRight());
        side.setColorAt(0, b.colour.lighter(118));
        side.setColorAt(1, b.colour.darker(125));
        painter.fillRect(body, side);
        const double cell = 0.8 * ppd;
        if (cell >= 4) {
            painter.setPen(Qt::NoPen);
            int row = 0;
            for (double wy = body.top() + cell * 0.6; wy + cell * 0.5 < body.bottom() - cell * 0.3;
                 wy += cell, ++row) {
                int column = 0;
                for (double wx = body.left() + cell * 0.5; wx + cell * 0.45 < body.right();
                     wx += cell, ++column) {
                    const bool lit = ((row * 7 + column * 3 + static_cast<int>(b.azimuth)) % 5) < 2;
                    painter.setBrush(lit ? QColor(250, 226, 150) : QColor(40, 48, 60));
                    painter.drawRect(QRectF(wx, wy, cell * 0.45, cell * 0.5));
                }
            }
        }
    }

    // Trees and lamp posts standing on the fields.
    for (const Post& p : kPosts) {
        const double x = xAt(p.azimuth);
        const double foot = yAt(-p.depression);
        const double size = (10.0 / p.depression) * ppd; // nearer posts look taller
        if (x + size < area.left() || x - size > area.right()) {
            continue;
        }
        if (p.tree) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(86, 62, 40));
            painter.drawRect(QRectF(x - size * 0.05, foot - size * 0.45, size * 0.1, size * 0.45));
            QRadialGradient crown(QPointF(x - size * 0.1, foot - size * 0.75), size * 0.45);
            crown.setColorAt(0, QColor(70, 130, 60));
            crown.setColorAt(1, QColor(30, 70, 34));
            painter.setBrush(crown);
            painter.drawEllipse(QPointF(x, foot - size * 0.7), size * 0.32, size * 0.38);
        } else {
            painter.setPen(QPen(QColor(50, 54, 60), std::max(1.0, size * 0.04)));
            painter.drawLine(QPointF(x, foot), QPointF(x, foot - size));
            painter.drawLine(QPointF(x, foot - size), QPointF(x + size * 0.18, foot - size));
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(255, 236, 170));
            painter.drawEllipse(QPointF(x + size * 0.18, foot - size * 0.97), size * 0.04,
                                size * 0.03);
        }
    }

    // Compass on the horizon.
    QFont font = painter.font();
    font.setPixelSize(std::max(9, static_cast<int>(area.height() / 16)));
    font.setBold(true);
    painter.setFont(font);
    static const std::array<std::pair<double, const char*>, 8> kPoints = {{
        {0, "N"},
        {45, "NE"},
        {90, "E"},
        {135, "SE"},
        {180, "S"},
        {225, "SW"},
        {270, "W"},
        {315, "NW"},
    }};
    for (const auto& [azimuth, name] : kPoints) {
        const double x = xAt(azimuth);
        if (x < area.left() - 20 || x > area.right() + 20) {
            continue;
        }
        painter.setPen(QColor(255, 255, 255, 150));
        painter.drawLine(QPointF(x, horizon - 4), QPointF(x, horizon + 4));
        painter.drawText(QRectF(x - 30, horizon + 4, 60, font.pixelSize() * 1.4),
                         Qt::AlignHCenter | Qt::AlignTop, QString::fromLatin1(name));
    }

    // The iris: too far open washes the picture out, too far closed darkens it.
    const double exposure = view.iris - 0.5;
    if (std::abs(exposure) > 0.01) {
        const int alpha = static_cast<int>(std::min(1.0, std::abs(exposure) * 1.6) * 230);
        painter.fillRect(area,
                         exposure > 0 ? QColor(255, 255, 255, alpha) : QColor(0, 0, 0, alpha));
    }
    painter.restore();
}

} // namespace quellpad::site_window
