#pragma once

#include <QObject>
#include <QString>

class QTimer;
struct _SDL_Joystick;

namespace quellpad {

// The one place that speaks to SDL: opens the first joystick or gamepad present, picks one
// up when it is plugged in later, and reports its axes and buttons as they change. SDL is
// started only by Start(), so a session that never uses a joystick does not pay for it.
class SdlJoystick : public QObject {
    Q_OBJECT
public:
    explicit SdlJoystick(QObject* parent = nullptr);
    ~SdlJoystick() override;

    // Starts SDL's joystick support and the polling; false (with ErrorText) when SDL
    // cannot start. Starting twice does nothing.
    bool Start();
    bool Started() const { return started_; }
    QString ErrorText() const { return error_; }
    // The controller in use, or "" when none.
    QString ControllerName() const { return name_; }

    // Takes what SDL has queued; the poll timer runs it every 10 ms.
    void Poll();

signals:
    void AxisMoved(int axis, int value);
    void ButtonChanged(int button, bool pressed);
    void ControllerChanged(const QString& name);
    // The controller in use was unplugged.
    void ControllerLost();

private:
    void Open(int deviceIndex);
    void Close();

    QTimer* pollTimer_ = nullptr;
    _SDL_Joystick* joystick_ = nullptr;
    int instance_ = -1;
    bool started_ = false;
    QString name_;
    QString error_;
};

} // namespace quellpad
