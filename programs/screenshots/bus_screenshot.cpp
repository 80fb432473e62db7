// Renders the bus tools offscreen for the README: the "Traffic" window listening to a bus
// of three domes (one of them mute with listen-mute, which the listen line diagnoses), or
// "Scan for Receivers" having found the site's cameras.
// Usage: quellpad_bus_screenshot listen|listen-mute|scan OUTPUT.png
#include "engine/keyboard_state.h"
#include "protocol/frames.h"
#include "protocol/vocabulary.h"
#include "scan_window/frm_scan.h"
#include "site/simulated_line.h"
#include "traffic_window/frm_traffic.h"

#include "picture.h"
#include <QAbstractButton>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTimer>

#include <pty.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace {

namespace code = quellpad::protocol::code;

int Save(QWidget& window, const char* path) {
    return window.grab().save(QString::fromLocal8Bit(path)) ? 0 : 1;
}

// Three domes spoken to on a bus the window listens to, through a pseudo-terminal; with
// `muted`, the dome at 200 obeys but never answers, and the listen line says so.
int Listen(QApplication& app, quellpad::Quellpad_Support_Func& keyboard, const char* path,
           bool muted) {
    int bus = -1;
    int device = -1;
    char name[256] = {};
    if (openpty(&bus, &device, name, nullptr, nullptr) != 0) {
        std::perror("openpty");
        return 1;
    }
    quellpad::traffic_window::FrmTraffic window(keyboard);
    window.resize(1180, 560);
    window.show();
    window.findChild<QLineEdit*>(QStringLiteral("ListenDeviceBox"))->setText(QLatin1String(name));
    window.findChild<QAbstractButton*>(QStringLiteral("ListenButton"))->click();
    int step = 0;
    QTimer talk;
    QObject::connect(&talk, &QTimer::timeout, &app, [&] {
        const int addresses[] = {3, 17, 200};
        const int address = addresses[step % 3];
        std::string bytes =
            step % 4 == 3
                ? quellpad::protocol::BuildDFrame(address, 0, code::kQueryPan, 0, 0)
                : quellpad::protocol::BuildDFrame(address, 0, quellpad::protocol::bit::kPanRight,
                                                  static_cast<std::uint8_t>(8 * (step % 8)), 0);
        if (step % 4 == 3 && !(muted && address == 200)) {
            bytes += quellpad::protocol::BuildDReply(address, code::kPanReply, 4500 + 100 * step);
        }
        ++step;
        if (write(bus, bytes.data(), bytes.size()) < 0) {
            std::perror("write");
        }
    });
    talk.start(40);
    const int status = quellpad::screenshots::SaveWhenSettled(window, QString::fromLocal8Bit(path),
                                                              muted ? 6000 : 2500);
    close(bus);
    close(device);
    return status;
}

// The site on COM 1 wired with domes at 3 and 17, scanned over addresses 1 to 20.
int Scan(QApplication& app, quellpad::Quellpad_Support_Func& keyboard, const char* path) {
    auto& site = dynamic_cast<quellpad::site::SimulatedLine&>(keyboard.Port(1));
    quellpad::site::Site::Wiring wiring;
    wiring.cameras = {3, 17};
    site.Rewire(wiring);
    quellpad::scan_window::FrmScan window(keyboard, [](int) {});
    window.resize(760, 560);
    window.show();
    for (const char* baud : {"Baud4800Box", "Baud9600Box", "Baud19200Box"}) {
        window.findChild<QCheckBox*>(QLatin1String(baud))->setChecked(false);
    }
    window.findChild<QSpinBox*>(QStringLiteral("LastAddressBox"))->setValue(20);
    window.findChild<QSpinBox*>(QStringLiteral("WaitBox"))->setValue(40);
    window.ScanButton_Click();
    QTimer done;
    QObject::connect(&done, &QTimer::timeout, &app, [&] {
        if (!window.Scanning()) {
            app.exit(Save(window, path));
        }
    });
    done.start(100);
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    const std::string what = argc == 3 ? argv[1] : "";
    if (what != "listen" && what != "listen-mute" && what != "scan") {
        std::fprintf(stderr, "usage: %s listen|listen-mute|scan OUTPUT.png\n", argv[0]);
        return 2;
    }
    quellpad::screenshots::DrawOffscreen();
    QApplication app(argc, argv);
    quellpad::Quellpad_Support_Func keyboard(&quellpad::site::MakeLine);
    quellpad::SerialLine& line = keyboard.Port(1);
    line.SetSettings(QStringLiteral("2400,n,8,1"));
    line.Open();
    return what != "scan" ? Listen(app, keyboard, argv[2], what == "listen-mute")
                          : Scan(app, keyboard, argv[2]);
}
