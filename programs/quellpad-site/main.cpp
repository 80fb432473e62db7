#include "quellpad-site/diagnose.h"
#include "quellpad-site/site_command_line.h"
#include "quellpad-site/site_replay.h"
#include "quellpad-site/standard_output.h"
#include "site_server/served_lines.h"
#include "site_window/frm_simulated_site.h"

#include "capture/line_recorder.h"
#include "engine/errors.h"
#include "i18n/translations.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <QVBoxLayout>

#include <csignal>
#include <cstdio>
#include <memory>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

using quellpad::site_app::SiteCommandLine;
using quellpad::site_server::Event;

// Ctrl+C, SIGTERM and SIGHUP end the event loop, so that every line is closed as on a
// normal exit: no pseudo-terminal, port or listening socket is left behind, and the output
// ends with whole lines and the closing counts.
int signalPipe[2] = {-1, -1};

// How long the output's last lines may wait for their reader at the end.
constexpr int kClosingMs = 500;

void OnSignal(int /*signal*/) {
    const char byte = 1;
    [[maybe_unused]] const ssize_t put = ::write(signalPipe[1], &byte, 1);
}

void QuitOnSignals(QCoreApplication& app) {
    // A reader of standard output that goes away is told by a failed write, not a signal.
    std::signal(SIGPIPE, SIG_IGN);
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalPipe) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &app);
    QObject::connect(notifier, &QSocketNotifier::activated, &app, [&app] {
        char byte = 0;
        [[maybe_unused]] const ssize_t got = ::read(signalPipe[0], &byte, 1);
        app.quit();
    });
    struct sigaction action {};
    action.sa_handler = OnSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGHUP, &action, nullptr);
}

// The Simulated Site window on the served equipment.
QWidget* MakeView(quellpad::site::SimulatedLine& equipment) {
    auto* window = new QWidget;
    window->setObjectName(QStringLiteral("servedSiteWindow"));
    window->setWindowTitle(QCoreApplication::translate("ServedSite", "Simulated Site"));
    auto* layout = new QVBoxLayout(window);
    auto* panel = new quellpad::site_window::SitePanel(equipment, window);
    layout->addWidget(panel);
    auto* refresh = new QTimer(window);
    refresh->setInterval(50);
    QObject::connect(refresh, &QTimer::timeout, panel, &quellpad::site_window::SitePanel::Refresh);
    refresh->start();
    panel->Refresh();
    return window;
}

} // namespace

int main(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    SiteCommandLine line = quellpad::site_app::ParseSiteCommandLine(arguments);
    std::unique_ptr<QCoreApplication> app;
    if (line.action == SiteCommandLine::Action::Serve && line.view) {
        app = std::make_unique<QApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("quellpad-site"));
    quellpad::InstallTranslations();
    if (line.action == SiteCommandLine::Action::Refuse) {
        // Read again, for the reason in the installer's language.
        line = quellpad::site_app::ParseSiteCommandLine(arguments);
    }
    switch (line.action) {
    case SiteCommandLine::Action::ShowHelp:
        std::fputs(qPrintable(quellpad::site_app::SiteCommandLineHelp()), stdout);
        return 0;
    case SiteCommandLine::Action::ShowVersion:
        std::fputs(qPrintable(quellpad::site_app::SiteVersionText() + u'\n'), stdout);
        return 0;
    case SiteCommandLine::Action::Refuse:
        std::fprintf(stderr, "quellpad-site: %s\n", qPrintable(line.error));
        return quellpad::site_app::kUsageStatus;
    case SiteCommandLine::Action::Timeline:
        return quellpad::site_app::PrintTimeline(line.timeline, line.linearReceivers);
    case SiteCommandLine::Action::Serve:
        break;
    }
    if (!line.diagnose.isEmpty()) {
        QuitOnSignals(*app);
        return quellpad::site_app::Diagnose(line.diagnose);
    }
    quellpad::site_app::StandardOutput output(STDOUT_FILENO, STDERR_FILENO);
    bool closing = false;
    quellpad::site_server::ServedSite site(line.wiring, line.format);
    site.SetFaults(line.faults);
    QObject::connect(&site, &quellpad::site_server::ServedSite::Told,
                     [&line, &output, &closing](const Event& event) {
                         if (output.Full() && !closing) {
                             // A flood into a reader that has fallen behind costs no words.
                             output.Skip();
                             return;
                         }
                         output.Print(line.json ? quellpad::site_server::EventJson(event)
                                                : quellpad::site_server::EventText(event),
                                      closing);
                     });
    std::vector<std::unique_ptr<quellpad::site_server::ServedLine>> lines;
    std::unique_ptr<quellpad::capture::LineRecorder> recorder;
    std::unique_ptr<quellpad::site_app::SiteReplay> replay;
    try {
        if (!line.record.isEmpty()) {
            recorder = std::make_unique<quellpad::capture::LineRecorder>(
                line.record, quellpad::site::LineFormatText(site.Format()), line.rotateBytes);
            QObject::connect(recorder.get(), &quellpad::capture::LineRecorder::Stopped, &site,
                             [&site, &line](const QString& message) {
                                 site.Tell(Event::Kind::Line, line.record, message);
                             });
            site.SetRecorder(
                [&recorder](const QString& name, bool heard, std::span<const std::uint8_t> bytes) {
                    recorder->Record(name, heard, bytes);
                });
        }
        if (line.pty) {
            lines.push_back(std::make_unique<quellpad::site_server::PtyLine>(site));
            // The path first and alone, for a test or a script to open.
            output.Print(lines.back()->Name());
        }
        if (line.tapPty) {
            lines.push_back(std::make_unique<quellpad::site_server::TapLine>(site));
            output.Print(lines.back()->Name());
        }
        for (const SiteCommandLine::Listen& tap : line.tapTcp) {
            lines.push_back(
                std::make_unique<quellpad::site_server::TcpTapLine>(site, tap.host, tap.port));
        }
        for (const QString& device : line.devices) {
            lines.push_back(std::make_unique<quellpad::site_server::DeviceLine>(site, device));
        }
        for (const SiteCommandLine::Listen& listen : line.listen) {
            lines.push_back(std::make_unique<quellpad::site_server::TcpLine>(
                site, listen.host, listen.port, line.maxClients));
        }
        if (!line.replay.isEmpty()) {
            replay = std::make_unique<quellpad::site_app::SiteReplay>(
                site, line.replay, line.replayTo,
                line.replayTo.isEmpty() || line.lineGiven
                    ? quellpad::site::LineFormatText(site.Format())
                    : QString(),
                line.force);
        }
    } catch (const quellpad::QuellpadError& error) {
        output.Finish(kClosingMs);
        std::fprintf(stderr, "quellpad-site: %s\n", qPrintable(error.Message()));
        return 1;
    }
    for (const auto& served : lines) {
        site.Tell(Event::Kind::Line, served->Name(),
                  QCoreApplication::translate("ServedSite", "serving at %1")
                      .arg(quellpad::site::LineFormatText(site.Format())));
    }
    QuitOnSignals(*app);
    if (replay) {
        // Alone, the program ends when the capture has been played; beside served lines,
        // it goes on serving them.
        if (lines.empty()) {
            QObject::connect(replay.get(), &quellpad::site_app::SiteReplay::Finished, app.get(),
                             &QCoreApplication::quit, Qt::QueuedConnection);
        }
        QTimer::singleShot(0, replay.get(), &quellpad::site_app::SiteReplay::Start);
    }
    std::unique_ptr<QWidget> view;
    if (line.view) {
        view.reset(MakeView(site.Equipment()));
        view->show();
    }
    const int status = app->exec();
    view.reset();
    closing = true;
    for (const auto& served : lines) {
        site.Tell(Event::Kind::Line, served->Name(),
                  QCoreApplication::translate("ServedSite", "closed; not obeyed: %1")
                      .arg(quellpad::site_server::RejectionsInWords(served->Rejected())));
    }
    lines.clear();
    replay.reset();
    site.SetRecorder({});
    recorder.reset();
    // Whatever the reader takes within half a second; the program ends within a second
    // whatever the load.
    output.Finish(kClosingMs);
    return status;
}
