#include "quellpad-site/diagnose.h"

#include "bus/listen_line.h"
#include "engine/errors.h"
#include "engine/serial_device.h"
#include "netline/network_line.h"
#include "traffic/traffic_row.h"

#include <QCoreApplication>
#include <QTime>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>

namespace quellpad::site_app {

namespace {

// The time that passes is told to the diagnosis this often, so that a silent line is
// called silent.
constexpr int kTickMs = 500;

} // namespace

QString DiagnosisLine(const bus::BusVerdict& verdict, const QString& time) {
    return QCoreApplication::translate("SiteDiagnose", "%1  %2  sure %3 %  %4")
        .arg(time, QLatin1String(bus::BusFaultName(verdict.fault)))
        .arg(std::lround(verdict.confidence * 100))
        .arg(verdict.text);
}

int Diagnose(const QString& line) {
    const bool network =
        line.startsWith(QStringLiteral("tcp://")) || line.startsWith(QStringLiteral("rfc2217://"));
    bus::DiagnosingListener listener(!network);
    std::unique_ptr<bus::ListenLine> listen;
    QString shown;
    const auto show = [&listener, &shown] {
        const bus::BusVerdict verdict = listener.Diagnosis().Current();
        // A new line when the verdict or how sure it is changes, not with every count.
        const QString key = QStringLiteral("%1 %2")
                                .arg(static_cast<int>(verdict.fault))
                                .arg(std::lround(verdict.confidence * 4));
        if (key != shown) {
            shown = key;
            std::fputs(qPrintable(DiagnosisLine(verdict, QTime::currentTime().toString(
                                                             QStringLiteral("HH:mm:ss"))) +
                                  u'\n'),
                       stdout);
            std::fflush(stdout);
        }
    };
    std::function<void()> open;
    open = [&] {
        std::unique_ptr<SerialLine> device =
            network ? MakeNetworkLine(traffic::kListenPort, line)
                    : std::make_unique<SerialDevice>(traffic::kListenPort, line);
        listen = std::make_unique<bus::ListenLine>(std::move(device));
        if (!network) {
            listen->SetSettings(QString::fromStdString(listener.Settings()));
        }
        listen->Open();
        QObject::connect(listen.get(), &bus::ListenLine::Heard, [&](const QByteArray& bytes) {
            const bool reopen =
                listener.Feed({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size())});
            show();
            if (reopen) {
                QTimer::singleShot(0, [&] {
                    listen.reset();
                    open();
                });
            }
        });
        QObject::connect(listen.get(), &bus::ListenLine::Failed, [](const QString& message) {
            std::fprintf(stderr, "quellpad-site: %s\n", qPrintable(message));
            QCoreApplication::exit(1);
        });
    };
    try {
        open();
    } catch (const QuellpadError& error) {
        std::fprintf(stderr, "quellpad-site: %s\n", qPrintable(error.Message()));
        return 1;
    }
    show();
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        listener.Elapsed(kTickMs / 1000.0);
        show();
    });
    tick.start(kTickMs);
    return QCoreApplication::exec();
}

} // namespace quellpad::site_app
