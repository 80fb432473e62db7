#pragma once

#include "capture/replay.h"
#include "engine/serial_line.h"
#include "site_server/peer.h"
#include "site_server/served_site.h"

#include <QObject>
#include <QString>

#include <memory>

namespace quellpad::site_app {

// A capture's controller side played with its recorded timing: into the served site, as
// one more controller on a line of its own, or onto a line (a serial device, a
// pseudo-terminal, tcp://, rfc2217://) at the capture's line settings.
class SiteReplay final : public QObject {
    Q_OBJECT
public:
    // Reads the capture and opens the line; throws CaptureError or PortError, and
    // CaptureError when the settings differ from the capture's and `force` is not set.
    // `settings` are those of the site, or asked for with --line; empty for the capture's.
    SiteReplay(site_server::ServedSite& site, const QString& capture, const QString& target,
               const QString& settings, bool force, QObject* parent = nullptr);
    ~SiteReplay() override;
    void Start();

signals:
    void Finished();

private:
    void Play();

    site_server::ServedSite& site_;
    QString name_;
    std::unique_ptr<site_server::Peer> peer_;
    std::unique_ptr<SerialLine> line_;
    std::unique_ptr<capture::Player> player_;
    int waitedMs_ = 0;
};

// Prints where each camera of the capture pointed over time as CSV on standard output, what
// the reader had to say on standard error; the exit status.
int PrintTimeline(const QString& capture, bool linearReceivers);

} // namespace quellpad::site_app
