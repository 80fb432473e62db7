#include "sdl_joystick.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QTimer>

#include <SDL.h>

namespace quellpad {

namespace {

constexpr int kPollIntervalMs = 10;

// SDL is loaded when the joystick is first wanted, not linked: it brings in the sound and
// display libraries of every backend, which would lengthen every start of the program.
struct SdlApi {
    decltype(&SDL_SetHint) SetHint = nullptr;
    decltype(&SDL_InitSubSystem) InitSubSystem = nullptr;
    decltype(&SDL_QuitSubSystem) QuitSubSystem = nullptr;
    decltype(&SDL_GetError) GetError = nullptr;
    decltype(&SDL_JoystickOpen) JoystickOpen = nullptr;
    decltype(&SDL_JoystickInstanceID) JoystickInstanceID = nullptr;
    decltype(&SDL_JoystickName) JoystickName = nullptr;
    decltype(&SDL_JoystickClose) JoystickClose = nullptr;
    decltype(&SDL_PollEvent) PollEvent = nullptr;
    decltype(&SDL_NumJoysticks) NumJoysticks = nullptr;
};

SdlApi sdl;

template <class Function> bool Resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

// Loads SDL once per process; the error text when it cannot.
QString LoadSdl() {
    static QString error = [] {
        QLibrary library(QStringLiteral("SDL2-2.0"), 0);
        if (!library.load()) {
            return library.errorString();
        }
        const bool complete = Resolve(library, "SDL_SetHint", sdl.SetHint) &&
                              Resolve(library, "SDL_InitSubSystem", sdl.InitSubSystem) &&
                              Resolve(library, "SDL_QuitSubSystem", sdl.QuitSubSystem) &&
                              Resolve(library, "SDL_GetError", sdl.GetError) &&
                              Resolve(library, "SDL_JoystickOpen", sdl.JoystickOpen) &&
                              Resolve(library, "SDL_JoystickInstanceID", sdl.JoystickInstanceID) &&
                              Resolve(library, "SDL_JoystickName", sdl.JoystickName) &&
                              Resolve(library, "SDL_JoystickClose", sdl.JoystickClose) &&
                              Resolve(library, "SDL_PollEvent", sdl.PollEvent) &&
                              Resolve(library, "SDL_NumJoysticks", sdl.NumJoysticks);
        return complete ? QString()
                        : QCoreApplication::translate("Gamepad", "The SDL library is incomplete.");
    }();
    return error;
}

} // namespace

SdlJoystick::SdlJoystick(QObject* parent) : QObject(parent) {}

SdlJoystick::~SdlJoystick() {
    if (started_) {
        Close();
        sdl.QuitSubSystem(SDL_INIT_JOYSTICK);
    }
}

bool SdlJoystick::Start() {
    if (started_) {
        return true;
    }
    error_ = LoadSdl();
    if (!error_.isEmpty()) {
        return false;
    }
    // The program has no SDL window: events must come whichever window has the focus,
    // and Ctrl+C stays with Qt.
    sdl.SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    sdl.SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (sdl.InitSubSystem(SDL_INIT_JOYSTICK) != 0) {
        error_ = QString::fromUtf8(sdl.GetError());
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
    joystick_ = sdl.JoystickOpen(deviceIndex);
    if (!joystick_) {
        return;
    }
    instance_ = sdl.JoystickInstanceID(joystick_);
    const char* name = sdl.JoystickName(joystick_);
    name_ = name ? QString::fromUtf8(name)
                 : QCoreApplication::translate("Gamepad", "Joystick %1").arg(deviceIndex + 1);
    emit ControllerChanged(name_);
}

void SdlJoystick::Close() {
    if (joystick_) {
        sdl.JoystickClose(joystick_);
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
    while (sdl.PollEvent(&event)) {
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
                if (sdl.NumJoysticks() > 0) {
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
