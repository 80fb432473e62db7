// quellpad-site's cost per served line: the share of one core the program spends while a
// controller keeps its pseudo-terminal busy with D traffic at the line's full pace (a
// saturated 115200-baud line, and a 2400-baud one), every command and answer printed.
#include "d_traffic.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSerialPort>
#include <QTemporaryFile>
#include <QThread>

#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

// User and system seconds the process has spent, from /proc.
double CpuSeconds(qint64 pid) {
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QList<QByteArray> fields = stat.readAll().split(' ');
    const double ticks = fields.value(13).toDouble() + fields.value(14).toDouble();
    return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

void Measure(int baud, double seconds) {
    // Its output goes to a file, as to a terminal that keeps up: printing is part of the
    // cost, waiting for a reader is not.
    QTemporaryFile output;
    output.open();
    QProcess site;
    site.setStandardOutputFile(output.fileName());
    site.start(
        QStringLiteral(QUELLPAD_SITE_PROGRAM),
        {QStringLiteral("--pty"), QStringLiteral("--line"), QStringLiteral("%1,n,8,1").arg(baud)});
    QString pty;
    for (int tries = 0; pty.isEmpty() && tries < 500; ++tries) {
        QThread::msleep(10);
        output.seek(0);
        pty = QString::fromUtf8(output.readLine()).trimmed();
    }
    QSerialPort port(pty);
    if (!port.open(QIODevice::ReadWrite)) {
        std::fprintf(stderr, "cannot open %s\n", qPrintable(pty));
        return;
    }
    port.setBaudRate(baud);
    const std::string traffic = quellpad::bench::DTraffic();
    const double bytesPerSecond = baud / 10.0;
    const double before = CpuSeconds(site.processId());
    QElapsedTimer clock;
    clock.start();
    std::size_t sent = 0;
    qint64 answers = 0;
    while (static_cast<double>(clock.elapsed()) < seconds * 1000) {
        // What the line carries by now, at one byte per ten bits.
        const auto due = static_cast<std::size_t>(static_cast<double>(clock.nsecsElapsed()) / 1e9 *
                                                  bytesPerSecond);
        if (due > sent) {
            std::string chunk;
            for (std::size_t at = sent; at < due; ++at) {
                chunk += traffic[at % traffic.size()];
            }
            port.write(chunk.data(), static_cast<qint64>(chunk.size()));
            port.waitForBytesWritten(100);
            sent = due;
        }
        port.waitForReadyRead(5);
        answers += port.readAll().size();
        QThread::msleep(2);
    }
    const double cpu = CpuSeconds(site.processId()) - before;
    const double wall = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    std::printf("%6d baud: %8zu bytes in, %7lld answer bytes out in %.1f s; %.3f s CPU = %.2f %% "
                "of one core\n",
                baud, sent, answers, wall, cpu, 100.0 * cpu / wall);
    port.close();
    site.terminate();
    site.waitForFinished();
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    const double seconds = argc > 1 ? std::atof(argv[1]) : 10.0;
    for (const int baud : {115200, 2400}) {
        Measure(baud, seconds);
    }
    return 0;
}
