// The delay from a USB joystick's axis change to the register change: SDL's virtual
// joystick moved, then polled as the 10 ms poll timer does, through the controller and the
// speed rule into Data1. The poll interval adds up to 10 ms (5 ms on average) on top.
#include "console/frm_main.h"
#include "gamepad/gamepad.h"

#include <QApplication>
#include <QTemporaryDir>

#include <SDL.h>
#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using namespace quellpad;

void AxisToRegister(benchmark::State& state) {
    QTemporaryDir settings;
    qputenv("QUELLPAD_SETTINGS_DIR", settings.path().toLocal8Bit());
    qputenv("QUELLPAD_COM1", "/dev/null");
    qputenv("QUELLPAD_COM2", "/dev/null");
    Quellpad_Support_Func keyboard;
    FrmMain window(keyboard);
    window.Form_Load();
    window.show();
    Gamepad gamepad(window, keyboard, settings.filePath(QStringLiteral("Bindings.ini")));
    gamepad.Start();
    const int device = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 4, 16, 0);
    SDL_Joystick* stick = SDL_JoystickOpen(device);
    while (gamepad.Source().ControllerName().isEmpty()) {
        gamepad.Source().Poll();
    }
    // Alternating between half and full deflection to the right: the pan speed changes.
    bool full = false;
    for (auto _ : state) {
        full = !full;
        const std::uint8_t before = keyboard.Data1;
        SDL_JoystickSetVirtualAxis(stick, 0, full ? 32767 : 16384);
        do {
            gamepad.Source().Poll();
        } while (keyboard.Data1 == before);
        benchmark::DoNotOptimize(keyboard.Data1);
    }
    SDL_JoystickClose(stick);
    SDL_JoystickDetachVirtual(device);
    gamepad.Source().Poll();
}
BENCHMARK(AxisToRegister)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
