#include "window_size.h"

#include <cmath>

namespace quellpad {

QSize MinimumWindowSize(double twipsPerPixel) {
    return {static_cast<int>(std::ceil(kMinimumWidthTwips / twipsPerPixel)),
            static_cast<int>(std::ceil(kMinimumHeightTwips / twipsPerPixel))};
}

QSize StartWindowSize(QSize available, double twipsPerPixel) {
    const QSize wanted =
        available.height() * twipsPerPixel < 9000
            ? QSize(static_cast<int>(8400 / twipsPerPixel), static_cast<int>(6300 / twipsPerPixel))
            : QSize(static_cast<int>(available.width() * 0.8),
                    static_cast<int>(available.height() * 0.8));
    return AtLeast(wanted, MinimumWindowSize(twipsPerPixel));
}

QSize AtLeast(QSize size, QSize minimum) {
    return size.expandedTo(minimum);
}

} // namespace quellpad
