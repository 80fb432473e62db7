#include "camera_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace quellpad::site_window {

namespace {

// Text as a camera's character generator lays it over the picture: white, outlined.
void Overlay(QPainter& painter, const QPointF& at, const QString& text, const QColor& colour) {
    QPainterPath path;
    path.addText(at, painter.font(), text);
    painter.setPen(QPen(QColor(0, 0, 0, 200), 2.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPath(path);
}

} // namespace

CameraView::CameraView(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CameraView::SetPicture(const CameraPicture& picture) {
    if (picture == picture_) {
        return;
    }
    picture_ = picture;
    setAccessibleName(tr("Camera %1").arg(picture.address));
    setAccessibleDescription(tr("pan %1, tilt %2, zoom %3x")
                                 .arg(picture.pan, 0, 'f', 2)
                                 .arg(picture.tilt, 0, 'f', 2)
                                 .arg(picture.view.magnification, 0, 'f', 1));
    update();
}

void CameraView::SetChosen(bool chosen) {
    if (chosen != chosen_) {
        chosen_ = chosen;
        update();
    }
}

void CameraView::mousePressEvent(QMouseEvent* event) {
    emit Chosen(picture_.address);
    QWidget::mousePressEvent(event);
}

void CameraView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return) {
        emit Chosen(picture_.address);
        return;
    }
    QWidget::keyPressEvent(event);
}

void CameraView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(24, 24, 28));
    // A 4:3 picture, as large as the tile allows, inside a frame that marks the choice.
    const QRectF inner = rect().adjusted(2, 2, -2, -2);
    const double pictureWidth = std::min(inner.width(), inner.height() * 4 / 3);
    const QRectF area(inner.center().x() - pictureWidth / 2,
                      inner.center().y() - pictureWidth * 3 / 8, pictureWidth,
                      pictureWidth * 3 / 4);
    if (chosen_ || hasFocus()) {
        painter.fillRect(area.adjusted(-2, -2, 2, 2),
                         chosen_ ? QColor(250, 200, 60) : QColor(120, 160, 220));
    }
    PaintScene(painter, area, picture_.view);
    painter.setRenderHint(QPainter::Antialiasing, true);

    QFont font(QStringLiteral("monospace"));
    font.setStyleHint(QFont::TypeWriter);
    font.setBold(true);
    font.setPixelSize(std::max(8, static_cast<int>(area.width() / 17)));
    painter.setFont(font);
    const double line = font.pixelSize() * 1.25;
    const double left = area.left() + 6;
    const QColor white(250, 250, 250);

    Overlay(painter, {left, area.top() + line}, tr("CAM %1").arg(picture_.address),
            picture_.onSelectedMonitor ? QColor(255, 220, 90) : white);
    if (!picture_.title.isEmpty()) {
        Overlay(painter, {left, area.top() + 2 * line}, picture_.title, white);
    }
    // Aux outputs as eight lamps in the top right corner.
    const double lamp = std::max(3.0, area.width() / 45);
    for (std::size_t i = 0; i < 8; ++i) {
        const QPointF at(area.right() - (8 - static_cast<double>(i)) * (lamp * 1.6),
                         area.top() + line * 0.6);
        painter.setPen(QPen(QColor(0, 0, 0, 180), 1));
        painter.setBrush(picture_.aux.test(i) ? QColor(255, 200, 40) : QColor(60, 60, 60, 160));
        painter.drawEllipse(at, lamp / 2, lamp / 2);
    }
    if (picture_.moving) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(230, 40, 40));
        painter.drawEllipse(QPointF(area.right() - lamp, area.top() + line * 1.5), lamp / 2,
                            lamp / 2);
    }

    // The position line in a smaller face, so that it fits the narrowest tile.
    QFont small = font;
    small.setPixelSize(
        std::max(8, std::min(font.pixelSize() * 3 / 4, static_cast<int>(area.width() / 22))));
    painter.setFont(small);
    double y = area.bottom() - 6;
    Overlay(painter, {left, y},
            tr("P %1  T %2  %3x")
                .arg(picture_.pan, 0, 'f', 1)
                .arg(picture_.tilt, 0, 'f', 1)
                .arg(picture_.view.magnification, 0, 'f', 1),
            white);
    painter.setFont(font);
    y -= small.pixelSize() * 1.3;
    for (const QString& label : {picture_.zoneLabel, picture_.presetLabel}) {
        if (!label.isEmpty()) {
            Overlay(painter, {left, y}, label, QColor(150, 230, 255));
            y -= line;
        }
    }

    if (!picture_.menu.isEmpty()) {
        // The menu's face is chosen so that its longest line fits the box.
        qsizetype longest = 0;
        for (const QString& text : picture_.menu) {
            longest = std::max(longest, text.size());
        }
        const QRectF box(area.left() + area.width() * 0.06, area.top(), area.width() * 0.88, 0);
        QFont menuFont = font;
        menuFont.setPixelSize(
            std::max(7, std::min(font.pixelSize(),
                                 static_cast<int>((box.width() - 12) /
                                                  (0.62 * static_cast<double>(longest))))));
        painter.setFont(menuFont);
        const double menuLine = menuFont.pixelSize() * 1.3;
        const double height = menuLine * (static_cast<double>(picture_.menu.size()) + 0.5);
        const QRectF frame(box.left(), area.center().y() - height / 2, box.width(), height);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 40, 160));
        painter.drawRect(frame);
        for (int i = 0; i < picture_.menu.size(); ++i) {
            Overlay(painter, {frame.left() + 6, frame.top() + menuLine * (i + 1)}, picture_.menu[i],
                    i == picture_.menuCursor + 1 ? QColor(255, 230, 80) : white);
        }
    }
}

} // namespace quellpad::site_window
