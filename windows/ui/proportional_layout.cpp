#include "proportional_layout.h"

#include "controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QFont>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quellpad::ui {

namespace {
// Below this a caption stops being readable on an ordinary screen.
constexpr double kSmallestPointSize = 6.5;
// Sizes are whole or half points: every font size is matched and its glyphs drawn once for
// all the controls that share it, which is most of what the window costs to show.
constexpr double kPointStep = 0.5;

double SnapDown(double size) {
    return std::max(kSmallestPointSize, std::floor(size / kPointStep) * kPointStep);
}

// A size within one step of the desktop's own text size takes that size: the controls
// then share the face the menus and the status bar already drew, rather than matching,
// loading and drawing the glyphs of a second face half a point apart.
double NearDesktopSize(double size) {
    const double desktop = QApplication::font().pointSizeF();
    return desktop > 0 && std::abs(size - desktop) <= kPointStep ? desktop : size;
}

// The captions' lines as they are drawn: CR LF is one line break.
QString DrawnText(const QString& caption) {
    QString text = caption;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text;
}

// The size a button or option needs to show `caption` whole.
QSize ButtonNeeds(const QAbstractButton* button, const QFont& font, const QString& caption) {
    const QFontMetrics metrics(font);
    QStyleOptionButton option;
    option.initFrom(button);
    option.fontMetrics = metrics;
    option.text = caption;
    const QSize text = metrics.size(Qt::TextShowMnemonic, DrawnText(caption));
    QStyle::ContentsType type = QStyle::CT_PushButton;
    if (qobject_cast<const QRadioButton*>(button)) {
        type = QStyle::CT_RadioButton;
    } else if (qobject_cast<const QCheckBox*>(button)) {
        type = QStyle::CT_CheckBox;
    }
    if (type == QStyle::CT_PushButton) {
        // The style's size hint for a push button adds a minimum width and generous margins;
        // the caption itself reads in full inside the button's frame, with a little air.
        const int frame =
            button->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, button);
        return {text.width() + 2 * (frame + 2), text.height()};
    }
    return button->style()->sizeFromContents(type, &option, text, button);
}
} // namespace

// Tells the layout when one of its controls is shown.
class ProportionalLayout::ShowWatch final : public QObject {
public:
    explicit ShowWatch(ProportionalLayout& layout) : layout_(layout) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            layout_.Shown(static_cast<QWidget*>(watched));
        }
        return false;
    }

private:
    ProportionalLayout& layout_;
};

ProportionalLayout::ProportionalLayout(QSizeF designSize)
    : designSize_(designSize), showWatch_(std::make_unique<ShowWatch>(*this)) {}

ProportionalLayout::~ProportionalLayout() {
    for (const Entry& entry : entries_) {
        if (entry.control) {
            entry.control->removeEventFilter(showWatch_.get());
        }
    }
}

void ProportionalLayout::Place(QWidget* control, QRectF designRect, double designPointSize,
                               const QStringList& otherCaptions) {
    entries_.append({control, designRect, designPointSize, otherCaptions, {}});
    control->installEventFilter(showWatch_.get());
}

void ProportionalLayout::Apply(QSizeF containerSize) {
    containerSize_ = containerSize;
    scaleX_ = containerSize.width() / designSize_.width();
    scaleY_ = containerSize.height() / designSize_.height();
    for (Entry& entry : entries_) {
        if (entry.control && entry.control->isVisibleTo(entry.control->window())) {
            PlaceEntry(entry);
        }
    }
}

void ProportionalLayout::Shown(const QWidget* control) {
    for (Entry& entry : entries_) {
        if (entry.control == control && !containerSize_.isEmpty() &&
            entry.placedFor != containerSize_) {
            PlaceEntry(entry);
        }
    }
}

void ProportionalLayout::PlaceEntry(Entry& entry) {
    entry.placedFor = containerSize_;
    QWidget* control = entry.control;
    const double fontScale = std::min(scaleX_, scaleY_);
    const QRectF& r = entry.rect;
    const int left = static_cast<int>(std::lround(r.left() * scaleX_));
    const int top = static_cast<int>(std::lround(r.top() * scaleY_));
    const int right = static_cast<int>(std::lround(r.right() * scaleX_));
    const int bottom = static_cast<int>(std::lround(r.bottom() * scaleY_));
    control->setGeometry(left, top, std::max(1, right - left), std::max(1, bottom - top));

    const QStringList captions = QStringList(CaptionOf(control)) + entry.otherCaptions;
    QFont font = control->font();
    double size = NearDesktopSize(SnapDown(entry.pointSize * fontScale));
    font.setPointSizeF(size);
    // A caption's width follows the font size closely, so one measurement says how far
    // to shrink; the next one checks it.
    const auto room = [&] {
        double least = 1.0;
        for (const QString& caption : captions) {
            least = std::min(least, CaptionRoom(control, font, caption));
        }
        return least;
    };
    for (double fraction = room(); size > kSmallestPointSize && fraction < 1.0; fraction = room()) {
        size = std::min(SnapDown(size * fraction), size - kPointStep);
        size = std::max(kSmallestPointSize, size);
        font.setPointSizeF(size);
    }
    // A font set again at the same size would still be matched and laid out anew.
    if (control->font().pointSizeF() != size) {
        control->setFont(font);
    }
}

QString CaptionOf(const QWidget* control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
        return button->text();
    }
    if (const auto* label = qobject_cast<const QLabel*>(control); label && !IsReadout(label)) {
        return label->text();
    }
    if (const auto* frame = qobject_cast<const QGroupBox*>(control)) {
        return frame->title();
    }
    return {};
}

double CaptionRoom(const QWidget* control, const QFont& font, const QString& caption) {
    if (caption.isEmpty()) {
        return 1.0;
    }
    const QFontMetrics metrics(font);
    QSize needed;
    QSize room = control->size();
    if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
        needed = ButtonNeeds(button, font, caption);
    } else if (const auto* label = qobject_cast<const QLabel*>(control)) {
        needed = metrics.size(Qt::TextShowMnemonic, DrawnText(caption));
        room = label->contentsRect().size();
        const int margins = 2 * label->margin() + std::max(0, label->indent());
        room -= QSize(margins, 2 * label->margin());
    } else if (qobject_cast<const QGroupBox*>(control)) {
        // The title sits inside the frame's rounded corners.
        needed = QSize(metrics.horizontalAdvance(caption) + 2 * metrics.averageCharWidth(), 0);
    }
    const auto fraction = [](int have, int want) {
        return want <= have ? 1.0 : static_cast<double>(std::max(0, have)) / want;
    };
    return std::min(fraction(room.width(), needed.width()),
                    fraction(room.height(), needed.height()));
}

bool CaptionFits(const QWidget* control, const QFont& font, const QString& caption) {
    return CaptionRoom(control, font, caption) >= 1.0;
}

double TwipsPerPixel(const QWidget* widget) {
    const int dpi = widget->logicalDpiX();
    return 1440.0 / (dpi > 0 ? dpi : 96);
}

} // namespace quellpad::ui
