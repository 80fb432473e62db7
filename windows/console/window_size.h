#pragma once

#include <QSize>

namespace quellpad {

// Smallest size of the main window, in twips: the keyboard's controls need it.
inline constexpr double kMinimumWidthTwips = 8640;
inline constexpr double kMinimumHeightTwips = 6480;

// The main window's smallest size in pixels at a scale of `twipsPerPixel`.
QSize MinimumWindowSize(double twipsPerPixel);

// The size the main window starts at, in pixels, on a screen whose free area is
// `available`: 8400 by 6300 twips on a screen under 9000 twips high, otherwise 0.8 of the
// free area; never under the smallest size, so that it is shown once at its final size.
QSize StartWindowSize(QSize available, double twipsPerPixel);

// `size` grown where it falls short of `minimum`.
QSize AtLeast(QSize size, QSize minimum);

} // namespace quellpad
