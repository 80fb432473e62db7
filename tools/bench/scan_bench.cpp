// How long a receiver scan takes against what its plan says: the queries' time on the wire
// plus the wait after each. Scans every address at each baud over a pseudo-terminal nobody
// answers on, so that every address waits its full time.
//   quellpad_scan_bench [LAST_ADDRESS]   (255 by default)
#include "bus/scanner.h"
#include "engine/serial_device.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <cstdio>
#include <cstdlib>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const int last = argc > 1 ? std::atoi(argv[1]) : 255;
    int master = -1;
    int slave = -1;
    char name[256] = {};
    if (::openpty(&master, &slave, name, nullptr, nullptr) != 0) {
        std::perror("openpty");
        return 1;
    }
    std::printf("%-6s %-10s %-12s %-12s %s\n", "baud", "addresses", "measured ms", "planned ms",
                "ratio");
    for (const int baud : {2400, 4800, 9600, 19200}) {
        quellpad::SerialDevice port(1, QString::fromLocal8Bit(name));
        quellpad::bus::Scanner scanner(port, "2400,n,8,1");
        quellpad::bus::ScanPlan plan;
        plan.bauds = {baud};
        plan.last = last;
        plan.waitMs = 20;
        QEventLoop loop;
        QObject::connect(&scanner, &quellpad::bus::Scanner::Finished, &loop, &QEventLoop::quit);
        QElapsedTimer clock;
        clock.start();
        scanner.Start(plan);
        loop.exec();
        const double ms = static_cast<double>(clock.nsecsElapsed()) / 1e6;
        const double planned = quellpad::bus::PlannedMs(plan);
        std::printf("%-6d %-10d %-12.1f %-12.1f %.3f\n", baud, last, ms, planned, ms / planned);
        ::tcflush(master, TCIOFLUSH);
    }
    ::close(slave);
    ::close(master);
    return 0;
}
