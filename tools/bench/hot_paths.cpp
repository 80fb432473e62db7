// The costs between the operator's hand and the wire: a joystick update per mouse move,
// one SendCommand, and the reply handling per received byte.
#include "console/joystick.h"
#include "console/receiver.h"
#include "engine/keyboard_state.h"
#include "engine/serial_device.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace {

using namespace quellpad;

std::unique_ptr<SerialLine> NoDevice(int number) {
    return std::make_unique<SerialDevice>(number, QStringLiteral("/dev/quellpad-none"));
}

const JoystickGeometry kGeometry{3000, 3000, 3000, 3000, 9000, 9000};

void JoystickMove(benchmark::State& state, const QString& mode) {
    Quellpad_Support_Func keyboard(&NoDevice);
    keyboard.CurrentMode = mode;
    JoystickState joystick;
    double x = 3100;
    for (auto _ : state) {
        UpdateJoystick(keyboard, joystick, kLeftButton, x, 5200, kGeometry);
        benchmark::DoNotOptimize(keyboard.Data1);
        x = x > 5900 ? 3100 : x + 7;
    }
}
BENCHMARK_CAPTURE(JoystickMove, D, QStringLiteral("D"));
BENCHMARK_CAPTURE(JoystickMove, ASCII, QStringLiteral("ASCII"));

// SendCommand of a D frame to one open port, a pseudo-terminal whose far end is emptied
// as the bytes arrive: 7 one-byte writes to the driver and the echo.
void SendCommandDFrame(benchmark::State& state) {
    int master = -1, slave = -1;
    char name[256] = {};
    openpty(&master, &slave, name, nullptr, nullptr);
    fcntl(master, F_SETFL, O_NONBLOCK);
    static std::string device;
    device = name;
    auto bound = [](int number) -> std::unique_ptr<SerialLine> {
        return std::make_unique<SerialDevice>(number, number == 1
                                                          ? QString::fromStdString(device)
                                                          : QStringLiteral("/dev/quellpad-none"));
    };
    Quellpad_Support_Func keyboard(bound);
    keyboard.MSComm1().Open();
    keyboard.CurrentMode = kModeD;
    keyboard.Command2 = 0x02;
    char sink[512];
    for (auto _ : state) {
        keyboard.Data1 = static_cast<std::uint8_t>(7 + (state.iterations() % 58));
        keyboard.SendCommand();
        while (read(master, sink, sizeof sink) > 0) {
        }
    }
    keyboard.MSComm1().Close();
    close(slave);
    close(master);
}
BENCHMARK(SendCommandDFrame);

// The text work of one reply (the widget's append is measured by the window tests' time).
void ReplyText(benchmark::State& state, const QString& mode, const QByteArray& reply) {
    qsizetype box = 0;
    for (auto _ : state) {
        const QString text = ResponseText(mode, reply);
        box = ClearsResponseBox(mode, box, text) ? 0 : box + text.size();
        benchmark::DoNotOptimize(AlarmNumberFromReply(text));
    }
    state.SetItemsProcessed(state.iterations() * reply.size());
}
BENCHMARK_CAPTURE(ReplyText, D, QStringLiteral("D"), QByteArray::fromHex("ff010000000001"));
BENCHMARK_CAPTURE(ReplyText, ASCII, QStringLiteral("ASCII"), QByteArray("12ia"));

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
