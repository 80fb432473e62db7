// Renders the "Traffic" window offscreen with a few commands and replies of every mode,
// on two COM ports bound to the simulated site, for the README.
// Usage: quellpad_traffic_screenshot OUTPUT.png
#include "engine/keyboard_state.h"
#include "protocol/vocabulary.h"
#include "site/simulated_line.h"
#include "traffic_window/frm_traffic.h"

#include "picture.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <vector>

namespace code = quellpad::protocol::code;
namespace bit = quellpad::protocol::bit;

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT.png\n", argv[0]);
        return 2;
    }
    quellpad::screenshots::DrawOffscreen();
    QApplication app(argc, argv);
    quellpad::Quellpad_Support_Func keyboard(&quellpad::site::MakeLine);
    keyboard.AddressCOM2 = 2;
    for (int number = 1; number <= 2; ++number) {
        quellpad::SerialLine& line = keyboard.Port(number);
        line.SetSettings(QStringLiteral("2400,n,8,1"));
        line.Open();
        // As the main window's receive handler does.
        QObject::connect(&line, &quellpad::SerialLine::CommEvent, &app,
                         [&keyboard, number](int) { keyboard.TakeInput(number); });
    }
    quellpad::traffic_window::FrmTraffic window(keyboard);
    window.resize(1180, 430);
    window.show();

    const auto frame = [&keyboard](int command2, int data1, int data2) {
        return [&keyboard, command2, data1, data2] {
            keyboard.CurrentMode = quellpad::kModeD;
            keyboard.SetCommandBytes(0, command2, data1, data2);
            keyboard.SendCommand();
        };
    };
    const auto text = [&keyboard](const QString& mode, const QString& command) {
        return [&keyboard, mode, command] {
            keyboard.CurrentMode = mode;
            keyboard.AsciiCommand = command;
            keyboard.SendCommand();
        };
    };
    const std::vector<std::function<void()>> steps = {
        frame(bit::kPanRight, 32, 0),
        frame(bit::kTiltUp, 0, 40),
        frame(0, 0, 0),
        frame(code::kQueryPan, 0, 0),
        frame(code::kGoPreset, 0, 5),
        text(quellpad::kModeAscii, QStringLiteral("12Ma")),
        text(quellpad::kModeAscii, QStringLiteral("5#a")),
        text(quellpad::kModeAscii, QStringLiteral("25La")),
        text(quellpad::kModeMuxAscii, QStringLiteral("um")),
        [&keyboard] {
            keyboard.CurrentMode = quellpad::kModeD;
            const QByteArray noise("\x12\x34\x56", 3);
            keyboard.WriteToOpenPorts(quellpad::WireBytes(noise), {});
        },
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        QTimer::singleShot(static_cast<int>(100 + 120 * i), &app, steps[i]);
    }
    return quellpad::screenshots::SaveWhenSettled(window, QString::fromLocal8Bit(argv[1]), 3000);
}
