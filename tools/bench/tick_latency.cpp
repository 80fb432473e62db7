// Measures the motion dispatcher as the operator feels it: how regularly
// CommandChangeTimer ticks, and how long from a tick to the first byte of its frame on
// the wire. The main window runs offscreen with COM 1 on a pseudo-terminal; a reader on
// the far end timestamps each frame's first byte. Prints medians, 99th percentiles and
// maxima in microseconds.
#include "console/frm_main.h"
#include "engine/keyboard_state.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <thread>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

double Micros(Clock::duration d) {
    return std::chrono::duration<double, std::micro>(d).count();
}

void Report(const char* what, std::vector<double> values) {
    std::sort(values.begin(), values.end());
    if (values.empty()) {
        std::printf("%s: no samples\n", what);
        return;
    }
    const auto at = [&](double q) {
        return values[static_cast<size_t>(q * static_cast<double>(values.size() - 1))];
    };
    std::printf("%-32s n=%zu  median %.1f  p99 %.1f  max %.1f  (us)\n", what, values.size(),
                at(0.5), at(0.99), values.back());
}

// Timestamps each tick before the dispatcher runs.
class TickWatch : public QObject {
public:
    std::vector<Clock::time_point> ticks;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Timer) {
            ticks.push_back(Clock::now());
        }
        return false;
    }
};

} // namespace

int main(int argc, char* argv[]) {
    const int ticks = argc > 1 ? std::atoi(argv[1]) : 200;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int master = -1, slave = -1;
    char name[256] = {};
    openpty(&master, &slave, name, nullptr, nullptr);
    termios raw{};
    tcgetattr(slave, &raw);
    cfmakeraw(&raw);
    tcsetattr(slave, TCSANOW, &raw);
    QTemporaryDir settings;
    qputenv("QUELLPAD_SETTINGS_DIR", settings.path().toLocal8Bit());
    qputenv("QUELLPAD_COM1", name);
    qputenv("QUELLPAD_COM2", "/dev/quellpad-none");
    QFile file(QDir(settings.path()).filePath(QStringLiteral("Settings.dat")));
    if (!file.open(QIODevice::WriteOnly)) {
        return 1;
    }
    file.write("9600\r\nn\r\nFalse\r\n1\r\nD\r\n1\r\n");
    file.close();

    // The far end: the arrival time of the first byte of every 7-byte frame.
    std::vector<Clock::time_point> arrivals;
    std::mutex arrivalsLock;
    std::atomic<bool> done{false};
    std::thread reader([&] {
        long received = 0;
        char buffer[64];
        while (!done) {
            pollfd wait{master, POLLIN, 0};
            if (poll(&wait, 1, 50) <= 0) {
                continue;
            }
            const auto now = Clock::now();
            const ssize_t n = read(master, buffer, sizeof buffer);
            for (ssize_t i = 0; i < n; ++i, ++received) {
                if (received % 7 == 0) {
                    std::lock_guard<std::mutex> hold(arrivalsLock);
                    arrivals.push_back(now);
                }
            }
        }
    });

    QApplication app(argc, argv);
    quellpad::Quellpad_Support_Func keyboard;
    quellpad::FrmMain window(keyboard);
    window.Form_Load();
    window.show();
    auto* timer = window.findChild<QTimer*>(QStringLiteral("CommandChangeTimer"));
    TickWatch watch;
    timer->installEventFilter(&watch);
    // After every tick a new speed is due, so every tick sends one frame.
    QObject::connect(timer, &QTimer::timeout, [&] {
        keyboard.Command2 = 0x02;
        keyboard.Data1 = static_cast<std::uint8_t>(keyboard.Data1 == 20 ? 21 : 20);
        if (static_cast<int>(watch.ticks.size()) > ticks) {
            app.quit();
        }
    });
    keyboard.Data1 = 20;
    keyboard.Command2 = 0x02;
    QApplication::exec();
    done = true;
    reader.join();

    std::vector<double> periods, latencies;
    for (size_t i = 2; i < watch.ticks.size(); ++i) {
        periods.push_back(Micros(watch.ticks[i] - watch.ticks[i - 1]) - timer->interval() * 1000.0);
    }
    // Pair each frame with the latest tick before it.
    for (const auto& arrival : arrivals) {
        const auto tick = std::upper_bound(watch.ticks.begin(), watch.ticks.end(), arrival);
        if (tick != watch.ticks.begin()) {
            latencies.push_back(Micros(arrival - *std::prev(tick)));
        }
    }
    std::printf("CommandChangeTimer period %d ms, %zu ticks\n", timer->interval(),
                watch.ticks.size());
    for (double& p : periods) {
        p = std::abs(p);
    }
    Report("tick jitter |period - 100 ms|", periods);
    Report("tick to first byte on the wire", latencies);
    close(slave);
    close(master);
    return 0;
}
