#pragma once

#include "scene.h"

#include <QStringList>
#include <QWidget>

#include <bitset>

namespace quellpad::site_window {

// Everything one camera tile shows, taken from the simulated camera at one moment.
struct CameraPicture {
    int address = 0;
    View view;
    double pan = 0;
    double tilt = 0;
    bool moving = false;
    QString title;
    QStringList menu;
    int menuCursor = 0;
    QString presetLabel;
    QString zoneLabel;
    std::bitset<8> aux;
    QString lastCommand;
    bool onSelectedMonitor = false;

    bool operator==(const CameraPicture&) const = default;
};

// One camera's picture with what the camera lays over it (address, position, menu,
// labels) and its aux outputs. Clicking it chooses the camera whose log is shown.
class CameraView : public QWidget {
    Q_OBJECT
public:
    explicit CameraView(QWidget* parent = nullptr);
    void SetPicture(const CameraPicture& picture);
    void SetChosen(bool chosen);
    QSize sizeHint() const override { return {240, 180}; }

signals:
    void Chosen(int address);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    CameraPicture picture_;
    bool chosen_ = false;
};

} // namespace quellpad::site_window
