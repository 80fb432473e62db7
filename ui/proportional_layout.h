#pragma once

#include <QList>
#include <QPointer>
#include <QRectF>
#include <QSizeF>

class QWidget;

namespace quellpad::ui {

// Places controls as fractions of their window: each control has a rectangle and a font
// size in the window's design size, and both scale with the window. Fonts follow the
// smaller of the two scales so that text always fits its control.
class ProportionalLayout {
public:
    explicit ProportionalLayout(QSizeF designSize) : designSize_(designSize) {}

    void Place(QWidget* control, QRectF designRect, double designPointSize = 9.0);
    // Places and sizes every control for a container of the given size.
    void Apply(QSizeF containerSize);

    double ScaleX() const { return scaleX_; }
    double ScaleY() const { return scaleY_; }

private:
    struct Entry {
        QPointer<QWidget> control;
        QRectF rect;
        double pointSize;
    };
    QSizeF designSize_;
    QList<Entry> entries_;
    double scaleX_ = 1.0;
    double scaleY_ = 1.0;
};

// Twips (1/1440 inch) per logical pixel of a widget's screen.
double TwipsPerPixel(const QWidget* widget);

} // namespace quellpad::ui
