#pragma once

#include "site/simulated_line.h"
#include "site/site_faults.h"
#include "site_server/served_lines.h"

#include <QHostAddress>
#include <QString>
#include <QStringList>

#include <vector>

namespace quellpad::site_app {

// What quellpad-site's arguments ask for. Read before any line or window exists, so that
// --help, --version and a mistyped option answer at once.
struct SiteCommandLine {
    enum class Action { Serve, ShowHelp, ShowVersion, Refuse, Timeline };
    Action action = Action::Serve;
    QString error; // why the arguments were refused, one line
    QStringList devices;
    bool pty = false;
    struct Listen {
        QHostAddress host;
        quint16 port = 0;
    };
    std::vector<Listen> listen;
    // TCP clients served at once on each --listen port.
    int maxClients = site_server::TcpLine::kMostClients;
    site::LineFormat format;
    site::Site::Wiring wiring;
    bool json = false;
    // A capture of every served line, started afresh; 0 or the size in bytes at which
    // it goes on in a new file.
    QString record;
    std::int64_t rotateBytes = 0;
    // A capture whose controller side is played into the site, or onto `replayTo`; line
    // settings other than the capture's are refused unless forced.
    QString replay;
    QString replayTo;
    bool force = false;
    bool lineGiven = false;
    // A capture whose cameras' pan, tilt and zoom over time are printed as CSV, and
    // whether its receivers are taken for linear ones rather than the square law.
    QString timeline;
    bool linearReceivers = false;
    bool view = false;
    site::SiteFaults faults;
    // Listen taps: a pseudo-terminal, TCP ports.
    bool tapPty = false;
    std::vector<Listen> tapTcp;
    // A line to listen on and diagnose instead of serving a site.
    QString diagnose;
};

// The exit status of arguments that cannot be used, as for any command-line program.
inline constexpr int kUsageStatus = 2;

// `arguments` as main() received them, the program's name first.
SiteCommandLine ParseSiteCommandLine(const QStringList& arguments);
// The text of --help.
QString SiteCommandLineHelp();
// "quellpad-site 1.2.0".
QString SiteVersionText();

} // namespace quellpad::site_app
