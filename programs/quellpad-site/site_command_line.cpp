#include "quellpad-site/site_command_line.h"

#include "quellpad-site/standard_output.h"
#include "site_server/served_lines.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace quellpad::site_app {

namespace {

const QString kPty = QStringLiteral("pty");
const QString kListen = QStringLiteral("listen");
const QString kMaxClients = QStringLiteral("max-clients");
// More clients than this would run out of the file descriptors a process has by default.
constexpr int kMostMaxClients = 1000;
const QString kLine = QStringLiteral("line");
const QString kCameras = QStringLiteral("cameras");
const QString kSwitcher = QStringLiteral("switcher");
const QString kMux = QStringLiteral("mux");
const QString kJson = QStringLiteral("json");
const QString kView = QStringLiteral("view");
const QString kRecord = QStringLiteral("record");
const QString kRotate = QStringLiteral("rotate");
const QString kReplay = QStringLiteral("replay");
const QString kReplayTo = QStringLiteral("replay-to");
const QString kForce = QStringLiteral("force");
const QString kTimeline = QStringLiteral("timeline");
const QString kReceivers = QStringLiteral("receivers");
const QString kFault = QStringLiteral("fault");
const QString kSeed = QStringLiteral("seed");
const QString kTap = QStringLiteral("tap");
const QString kDiagnose = QStringLiteral("diagnose");

void Describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QCoreApplication::translate(
            "SiteCommandLine",
            "Serves Quellpad's simulated CCTV site (dome cameras in \"D\" and \"P\", a switcher in "
            "\"ASCII\", a multiplexer in \"MUX ASCII\") to any controller on serial devices, a "
            "pseudo-terminal or TCP ports, all lines on the same equipment. Every event is one "
            "line "
            "of standard output; lines its reader has not taken yet wait in a backlog of %1 kB, "
            "and "
            "while that is full new lines are dropped whole and counted on standard error.")
            .arg(StandardOutput::kBacklog / 1024));
    parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")},
         QCoreApplication::translate("SiteCommandLine", "Displays this help and exits.")});
    parser.addVersionOption();
    parser.addOption(
        {kPty, QCoreApplication::translate("SiteCommandLine",
                                           "Serve on a new pseudo-terminal and print its path as "
                                           "the first line of output.")});
    parser.addOption(
        {kListen,
         QCoreApplication::translate("SiteCommandLine",
                                     "Serve raw bytes on this TCP port, to several controllers at "
                                     "once; may be given more than once."),
         QStringLiteral("[host:]port")});
    parser.addOption(
        {kMaxClients,
         QCoreApplication::translate(
             "SiteCommandLine",
             "TCP clients served at once on each --listen port (default %1). When all are "
             "served, a new client takes the place of one that has sent nothing for %2 s, or is "
             "turned away, which is told once.")
             .arg(site_server::TcpLine::kMostClients)
             .arg(site_server::TcpLine::kIdleMs / 1000),
         QStringLiteral("count")});
    parser.addOption({kLine,
                      QCoreApplication::translate(
                          "SiteCommandLine", "The line settings the equipment listens at (default "
                                             "2400,n,8,1)."),
                      QStringLiteral("baud,parity,bits,stop")});
    parser.addOption(
        {kCameras,
         QCoreApplication::translate("SiteCommandLine",
                                     "Dome cameras at these addresses, 1 to 255, such as 1-8 or "
                                     "3,17,200. When any of --cameras, --switcher, --mux is "
                                     "given, only the equipment named listens; otherwise cameras "
                                     "1 to 8, the switcher and the multiplexer."),
         QCoreApplication::translate("SiteCommandLine", "addresses")});
    parser.addOption(
        {kSwitcher, QCoreApplication::translate("SiteCommandLine", "The switcher listens.")});
    parser.addOption(
        {kMux, QCoreApplication::translate("SiteCommandLine", "The multiplexer listens.")});
    parser.addOption(
        {kJson, QCoreApplication::translate("SiteCommandLine",
                                            "Print every event as one JSON object per line.")});
    parser.addOption(
        {kRecord,
         QCoreApplication::translate(
             "SiteCommandLine",
             "Record every served line to this pcapng capture, which Wireshark opens with "
             "Quellpad's dissector: each line an interface, every run of bytes a packet."),
         QStringLiteral("file")});
    parser.addOption(
        {kRotate,
         QCoreApplication::translate("SiteCommandLine",
                                     "Go on in a new file (file-2.pcapng, file-3.pcapng, ...) "
                                     "each time the capture holds this many megabytes."),
         QStringLiteral("megabytes")});
    parser.addOption(
        {kReplay,
         QCoreApplication::translate(
             "SiteCommandLine",
             "Play what the controller sent on the first line of this capture into the site, "
             "with its recorded timing, and end when done unless other lines are served."),
         QStringLiteral("file")});
    parser.addOption(
        {kReplayTo,
         QCoreApplication::translate(
             "SiteCommandLine",
             "With --replay, play it onto this line instead: a serial device, a "
             "pseudo-terminal, tcp://host:port or rfc2217://host:port, at the capture's line "
             "settings or those of --line."),
         QStringLiteral("device")});
    parser.addOption(
        {kForce, QCoreApplication::translate(
                     "SiteCommandLine",
                     "Replay at other line settings than the capture was recorded at.")});
    parser.addOption(
        {kTimeline,
         QCoreApplication::translate(
             "SiteCommandLine",
             "Print where each camera of this capture pointed over time, as CSV (address, "
             "time, pan, tilt, zoom, whether a position answer said so), and exit."),
         QStringLiteral("file")});
    parser.addOption(
        {kReceivers,
         QCoreApplication::translate(
             "SiteCommandLine",
             "How the site's receivers turn a speed into degrees per second, for --timeline: "
             "\"square\" (a creep rising on a square law to 100 °/s, the default) or "
             "\"linear\"."),
         QStringLiteral("curve")});
    parser.addOption({kView, QCoreApplication::translate("SiteCommandLine",
                                                         "Also open the Simulated Site window.")});
    parser.addOption(
        {kFault,
         QCoreApplication::translate(
             "SiteCommandLine",
             "Wire the site with a fault, as the bus carries it; may be given more than once. "
             "answer-address=A:B: the camera at A answers as B; duplicate-address=A: two "
             "cameras at A, their answers collide; mute=A: the camera at A obeys but never "
             "answers; swapped-txrx: the controllers' bytes never reach the bus; "
             "inverted-polarity: the controllers' two RS-485 wires are swapped; noise=SHARE: "
             "that share of bytes (up to 0.5) corrupted or lost; second-controller=A: another "
             "controller keeps stopping camera A and now and then talks over the first. "
             "Equipment at other line settings than a controller is --line."),
         QCoreApplication::translate("SiteCommandLine", "fault")});
    parser.addOption(
        {kSeed,
         QCoreApplication::translate("SiteCommandLine",
                                     "Seed of the noise and collisions of --fault, so that a run "
                                     "repeats (default 1)."),
         QStringLiteral("number")});
    parser.addOption(
        {kTap,
         QCoreApplication::translate(
             "SiteCommandLine",
             "Offer a listen tap carrying every byte on the bus, controllers' and receivers', "
             "as a listener there hears it: pty (a new pseudo-terminal, heard at the settings "
             "its listener sets; its path is printed as a line of its own, after --pty's) or "
             "tcp:[host:]port (heard at the equipment's settings). Nothing written to a tap "
             "reaches the bus."),
         QStringLiteral("pty|tcp:[host:]port")});
    parser.addOption(
        {kDiagnose,
         QCoreApplication::translate(
             "SiteCommandLine",
             "Serve nothing: listen on this line (a serial device, tcp://host:port) without "
             "writing to it and print, as it changes, what is wrong on the bus and why."),
         QCoreApplication::translate("SiteCommandLine", "line")});
    parser.addPositionalArgument(
        QStringLiteral("device"),
        QCoreApplication::translate("SiteCommandLine",
                                    "Serial devices to serve on, such as /dev/ttyUSB0 "
                                    "or a /dev/serial/by-id name."),
        QStringLiteral("[device...]"));
}

} // namespace

SiteCommandLine ParseSiteCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    Describe(parser);
    SiteCommandLine line;
    auto refuse = [&line](const QString& error) {
        line.action = SiteCommandLine::Action::Refuse;
        line.error = error;
        return line;
    };
    if (!parser.parse(arguments)) {
        return refuse(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        line.action = SiteCommandLine::Action::ShowHelp;
        return line;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        line.action = SiteCommandLine::Action::ShowVersion;
        return line;
    }
    if (parser.isSet(kReceivers)) {
        const QString curve = parser.value(kReceivers);
        if (curve != QStringLiteral("square") && curve != QStringLiteral("linear")) {
            return refuse(
                QCoreApplication::translate(
                    "SiteCommandLine", "'%1' is no speed curve of receivers (square or linear).")
                    .arg(curve));
        }
        line.linearReceivers = curve == QStringLiteral("linear");
    }
    if (parser.isSet(kTimeline)) {
        line.action = SiteCommandLine::Action::Timeline;
        line.timeline = parser.value(kTimeline);
        return line;
    }
    line.devices = parser.positionalArguments();
    line.pty = parser.isSet(kPty);
    for (const QString& text : parser.values(kListen)) {
        SiteCommandLine::Listen listen;
        if (!site_server::ParseListenAddress(text, listen.host, listen.port)) {
            return refuse(
                QCoreApplication::translate("SiteCommandLine",
                                            "'%1' is not a TCP port to listen on ([host:]port).")
                    .arg(text));
        }
        line.listen.push_back(listen);
    }
    if (parser.isSet(kMaxClients)) {
        bool ok = false;
        line.maxClients = parser.value(kMaxClients).toInt(&ok);
        if (!ok || line.maxClients < 1 || line.maxClients > kMostMaxClients) {
            return refuse(QCoreApplication::translate(
                              "SiteCommandLine", "'%1' is not a number of clients from 1 to %2.")
                              .arg(parser.value(kMaxClients))
                              .arg(kMostMaxClients));
        }
    }
    line.replay = parser.value(kReplay);
    line.replayTo = parser.value(kReplayTo);
    line.force = parser.isSet(kForce);
    line.lineGiven = parser.isSet(kLine);
    if (!line.replayTo.isEmpty() && line.replay.isEmpty()) {
        return refuse(QCoreApplication::translate("SiteCommandLine",
                                                  "--replay-to needs a capture: --replay file."));
    }
    for (const QString& text : parser.values(kFault)) {
        site::SiteFault fault;
        if (!site::ParseSiteFault(text, fault)) {
            return refuse(
                QCoreApplication::translate("SiteCommandLine", "'%1' is not a fault (such as %2).")
                    .arg(text, site::SiteFaultNames()));
        }
        line.faults.faults.push_back(fault);
    }
    if (parser.isSet(kSeed)) {
        bool ok = false;
        line.faults.seed = parser.value(kSeed).toUInt(&ok);
        if (!ok) {
            return refuse(QCoreApplication::translate("SiteCommandLine", "'%1' is not a seed.")
                              .arg(parser.value(kSeed)));
        }
    }
    for (const QString& text : parser.values(kTap)) {
        SiteCommandLine::Listen listen;
        if (text == QStringLiteral("pty")) {
            line.tapPty = true;
        } else if (text.startsWith(QStringLiteral("tcp:")) &&
                   site_server::ParseListenAddress(text.mid(4), listen.host, listen.port)) {
            line.tapTcp.push_back(listen);
        } else {
            return refuse(QCoreApplication::translate("SiteCommandLine",
                                                      "'%1' is not a tap (pty or tcp:[host:]port).")
                              .arg(text));
        }
    }
    line.diagnose = parser.value(kDiagnose);
    if (!line.diagnose.isEmpty()) {
        return line;
    }
    if (line.devices.isEmpty() && !line.pty && line.listen.empty() && line.replay.isEmpty()) {
        return refuse(QCoreApplication::translate(
            "SiteCommandLine",
            "No line to serve on: name a device, --pty or --listen [host:]port."));
    }
    if (parser.isSet(kLine) && !site::ParseLineFormat(parser.value(kLine), line.format)) {
        return refuse(QCoreApplication::translate(
                          "SiteCommandLine", "'%1' are not line settings (such as 2400,n,8,1).")
                          .arg(parser.value(kLine)));
    }
    if (parser.isSet(kCameras) || parser.isSet(kSwitcher) || parser.isSet(kMux)) {
        line.wiring.cameras.clear();
        if (parser.isSet(kCameras) &&
            !site::ParseCameraAddresses(parser.value(kCameras).toStdString(),
                                        line.wiring.cameras)) {
            return refuse(
                QCoreApplication::translate("SiteCommandLine",
                                            "'%1' are not camera addresses from 1 to 255 (such as "
                                            "1-8 or 3,17,200).")
                    .arg(parser.value(kCameras)));
        }
        line.wiring.switcher = parser.isSet(kSwitcher);
        line.wiring.multiplexer = parser.isSet(kMux);
    }
    line.record = parser.value(kRecord);
    if (parser.isSet(kRotate)) {
        bool ok = false;
        const int megabytes = parser.value(kRotate).toInt(&ok);
        if (!ok || megabytes < 1 || line.record.isEmpty()) {
            return refuse(QCoreApplication::translate(
                              "SiteCommandLine",
                              "'%1' is not a number of megabytes for --record to rotate at.")
                              .arg(parser.value(kRotate)));
        }
        line.rotateBytes = std::int64_t{megabytes} * 1024 * 1024;
    }
    line.json = parser.isSet(kJson);
    line.view = parser.isSet(kView);
    return line;
}

QString SiteCommandLineHelp() {
    QCommandLineParser parser;
    Describe(parser);
    return parser.helpText();
}

QString SiteVersionText() {
    return QStringLiteral("quellpad-site %1").arg(QStringLiteral(QUELLPAD_VERSION));
}

} // namespace quellpad::site_app
