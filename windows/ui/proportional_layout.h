#pragma once

#include <QList>
#include <QPointer>
#include <QRectF>
#include <QSizeF>
#include <QStringList>

#include <memory>

class QFont;
class QWidget;

namespace quellpad::ui {

// Places controls as fractions of their window: each control has a rectangle and a font
// size in the window's design size, and both scale with the window. Fonts follow the
// smaller of the two scales, and shrink further where a caption would not read in full.
// A hidden control (one that the mode does not show) is placed when it is next shown:
// measuring captions nobody sees is most of what a layout costs.
class ProportionalLayout {
public:
    explicit ProportionalLayout(QSizeF designSize);
    ~ProportionalLayout();
    ProportionalLayout(const ProportionalLayout&) = delete;
    ProportionalLayout& operator=(const ProportionalLayout&) = delete;

    // `otherCaptions`: captions the control may show later besides its present one (the
    // lens buttons' "Focus Near Off"); its font is chosen so that each of them fits too.
    void Place(QWidget* control, QRectF designRect, double designPointSize = 9.0,
               const QStringList& otherCaptions = {});
    // Places and sizes every shown control for a container of the given size; the others
    // follow as they are shown.
    void Apply(QSizeF containerSize);

    double ScaleX() const { return scaleX_; }
    double ScaleY() const { return scaleY_; }

private:
    struct Entry {
        QPointer<QWidget> control;
        QRectF rect;
        double pointSize;
        QStringList otherCaptions;
        QSizeF placedFor; // the container size it was last placed for; empty: never
    };
    class ShowWatch;
    void PlaceEntry(Entry& entry);
    void Shown(const QWidget* control);

    QSizeF designSize_;
    QSizeF containerSize_;
    QList<Entry> entries_;
    std::unique_ptr<ShowWatch> showWatch_;
    double scaleX_ = 1.0;
    double scaleY_ = 1.0;
};

// The caption a control shows (a button's, label's or frame's text), empty for a box.
QString CaptionOf(const QWidget* control);

// How much of `caption` the control has room for at its present size in `font`: 1 when it
// reads in full, else the fraction of the width or height it needs that it has.
double CaptionRoom(const QWidget* control, const QFont& font, const QString& caption);

// Whether `caption` reads in full on the control at its present size in `font`.
bool CaptionFits(const QWidget* control, const QFont& font, const QString& caption);

// Twips (1/1440 inch) per logical pixel of a widget's screen.
double TwipsPerPixel(const QWidget* widget);

} // namespace quellpad::ui
