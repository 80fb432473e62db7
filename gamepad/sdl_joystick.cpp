#include "sdl_joystick.h"

#include <QTimer>

#include <SDL.h>

namespace quellpad {

namespace {
constexpr int kPollIntervalMs = 10;
}

SdlJoystick::SdlJoystick(QObject* parent) : QObject(parent) {}

SdlJoystick::~SdlJoystick() {
    if (started_) {
        Close();
        SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    }
}

bool SdlJoystick::Start() {
    if (started_) {
        return true;
    }
    // The program has no SDL window: events must come whichever window has the focus,
    // and Ctrl+C stays with Qt.
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0) {
        error_ = QString::fromUtf8(SDL_GetError());
        return false;
    }
    started_ = true;
    pollTimer_ = new QTimer(this);
    pollTimer_->setObjectName(QStringLiteral("JoystickPollTimer"));
    pollTimer_->setInterval(kPollIntervalMs);
    connect(pollTimer_, &QTimer::timeout, this, &SdlJoystick::Poll);
    pollTimer_->start();
    return true;
}

void SdlJoystick::Open(int deviceIndex) {
    joystick_ = SDL_JoystickOpen(deviceIndex);
    if (!joystick_) {
        return;
    }
    instance_ = SDL_JoystickInstanceID(joystick_);
    const char* name = SDL_JoystickName(joystick_);
    name_ = name ? QString::fromUtf8(name) : QStringLiteral("Joystick %1").arg(deviceIndex + 1);
    emit ControllerChanged(name_);
}

void SdlJoystick::Close() {
    if (joystick_) {
        SDL_JoystickClose(joystick_);
    }
    joystick_ = nullptr;
    instance_ = -1;
    name_.clear();
}

void SdlJoystick::Poll() {
    if (!started_) {
        return;
    }
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        switch (event.type) {
        case SDL_JOYDEVICEADDED:
            if (!joystick_) {
                Open(event.jdevice.which);
            }
            break;
        case SDL_JOYDEVICEREMOVED:
            if (joystick_ && event.jdevice.which == instance_) {
                Close();
                emit ControllerLost();
                // Another stick still plugged in takes over.
                if (SDL_NumJoysticks() > 0) {
                    Open(0);
                } else {
                    emit ControllerChanged(QString());
                }
            }
            break;
        case SDL_JOYAXISMOTION:
            if (event.jaxis.which == instance_) {
                emit AxisMoved(event.jaxis.axis, event.jaxis.value);
            }
            break;
        case SDL_JOYBUTTONDOWN:
        case SDL_JOYBUTTONUP:
            if (event.jbutton.which == instance_) {
                emit ButtonChanged(event.jbutton.button, event.jbutton.state == SDL_PRESSED);
            }
            break;
        default:
            break;
        }
    }
}

} // namespace quellpad
