#pragma once

#include <QPainter>
#include <QRectF>

namespace quellpad::site_window {

// Where a simulated camera looks and how its lens is set.
struct View {
    double azimuth = 0;       // degrees, 0 north, clockwise
    double tilt = 0;          // degrees above the horizon
    double magnification = 1; // 1 = the widest angle
    double iris = 0.5;        // 0 closed .. 1 open; 0.5 exposes right

    bool operator==(const View&) const = default;
};

// Horizontal field of view at a magnification, in degrees.
double FieldOfView(double magnification);

// Paints what the camera sees of the site: sky, sun, two ranges of hills, a town of
// lit buildings, trees and lamp posts on a ground plane, with a compass on the horizon.
// The scene goes all the way round, so any pan, tilt and zoom has a picture.
void PaintScene(QPainter& painter, const QRectF& area, const View& view);

} // namespace quellpad::site_window
