// Renders the "Simulated Site" window offscreen with its equipment at work, for the README.
// Usage: quellpad_site_screenshot WIDTH HEIGHT OUTPUT.png   (0 0 for the smallest size)
#include "engine/keyboard_state.h"
#include "protocol/frames.h"
#include "protocol/vocabulary.h"
#include "site/simulated_line.h"
#include "site_window/frm_simulated_site.h"

#include "picture.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <string>

namespace {

namespace code = quellpad::protocol::code;
namespace bit = quellpad::protocol::bit;

void Send(quellpad::SerialLine& line, const std::string& bytes) {
    for (const char byte : bytes) {
        line.Output(static_cast<std::uint8_t>(byte));
    }
}

std::string D(int address, int c2, int d1, int d2) {
    return quellpad::protocol::BuildDFrame(address, 0, static_cast<std::uint8_t>(c2),
                                           static_cast<std::uint8_t>(d1),
                                           static_cast<std::uint8_t>(d2));
}

// A label written character by character into columns 20 on, as the keyboard does.
std::string Label(int address, const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        out += D(address, code::kWriteCharacter, 20 + static_cast<int>(i), text[i]);
    }
    return out;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s WIDTH HEIGHT OUTPUT.png\n", argv[0]);
        return 2;
    }
    quellpad::screenshots::DrawOffscreen();
    QApplication app(argc, argv);
    quellpad::Quellpad_Support_Func keyboard(&quellpad::site::MakeLine);
    quellpad::SerialLine& line = keyboard.MSComm1();
    line.SetSettings(QStringLiteral("2400,n,8,1"));
    line.Open();
    // Camera 1 at a labelled preset, camera 2 with its menu up, camera 3 panning with two
    // auxes on, camera 4 zoomed into the town, camera 6 looking down the road. A carriage
    // return after the frames keeps their printable bytes out of the switcher's next text.
    Send(line, Label(1, "NORTH GATE") + D(1, code::kSetPreset, 0, 1) + D(1, code::kGoPreset, 0, 1));
    Send(line, D(2, code::kSetPreset, 0, 95) + D(2, bit::kTiltDown, 0, 32) + D(2, 0, 0, 0) +
                   D(2, bit::kTiltDown, 0, 32) + D(2, 0, 0, 0));
    Send(line, D(3, bit::kPanRight, 24, 0) + D(3, code::kSetAux, 0, 1) + D(3, code::kSetAux, 0, 3));
    Send(line, D(4, code::kSetPan, 0x27, 0x10) + D(4, code::kSetTilt, 0x00, 0xC8) +
                   D(4, code::kSetMagnification, 0x02, 0x58));
    Send(line, D(6, code::kSetPan, 0x6D, 0x60) + D(6, code::kSetTilt, 0x8A, 0x48) + "\r");
    Send(line, " 5YaLOADING BAY!a3Ma5#a12Ea40Ea7EaGaZa03/07/06/14:05:09a2Sa");
    Send(line, "um4#m>m");

    quellpad::site_window::FrmSimulatedSite window(keyboard);
    const int width = std::atoi(argv[1]);
    const int height = std::atoi(argv[2]);
    if (width > 0 && height > 0) {
        window.resize(width, height);
    } else {
        window.resize(window.minimumSizeHint());
    }
    window.show();
    return quellpad::screenshots::SaveWhenSettled(window, QString::fromLocal8Bit(argv[3]), 2500);
}
