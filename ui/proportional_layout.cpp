#include "proportional_layout.h"

#include <QFont>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quellpad::ui {

namespace {
// Below this a caption stops being readable on an ordinary screen.
constexpr double kSmallestPointSize = 7.0;
} // namespace

void ProportionalLayout::Place(QWidget* control, QRectF designRect, double designPointSize) {
    entries_.append({control, designRect, designPointSize});
}

void ProportionalLayout::Apply(QSizeF containerSize) {
    scaleX_ = containerSize.width() / designSize_.width();
    scaleY_ = containerSize.height() / designSize_.height();
    const double fontScale = std::min(scaleX_, scaleY_);
    for (const Entry& entry : entries_) {
        if (!entry.control) {
            continue;
        }
        const QRectF& r = entry.rect;
        const int left = static_cast<int>(std::lround(r.left() * scaleX_));
        const int top = static_cast<int>(std::lround(r.top() * scaleY_));
        const int right = static_cast<int>(std::lround(r.right() * scaleX_));
        const int bottom = static_cast<int>(std::lround(r.bottom() * scaleY_));
        entry.control->setGeometry(left, top, std::max(1, right - left), std::max(1, bottom - top));
        // A font set again at the same size would still be matched and laid out anew.
        const double pointSize = std::max(kSmallestPointSize, entry.pointSize * fontScale);
        if (entry.control->font().pointSizeF() != pointSize) {
            QFont font = entry.control->font();
            font.setPointSizeF(pointSize);
            entry.control->setFont(font);
        }
    }
}

double TwipsPerPixel(const QWidget* widget) {
    const int dpi = widget->logicalDpiX();
    return 1440.0 / (dpi > 0 ? dpi : 96);
}

} // namespace quellpad::ui
