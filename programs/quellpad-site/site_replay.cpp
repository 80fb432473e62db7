#include "quellpad-site/site_replay.h"

#include "capture/camera_timeline.h"
#include "capture/capture_reader.h"
#include "engine/errors.h"
#include "engine/port_binding.h"
#include "engine/serial_device.h"
#include "netline/network_line.h"
#include "site/simulated_line.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <cstdio>

namespace quellpad::site_app {

namespace {

// How long a network line may take to connect before the replay gives up on it.
constexpr int kConnectMs = 10'000;

bool SameSettings(const QString& a, const QString& b) {
    site::LineFormat left;
    site::LineFormat right;
    return site::ParseLineFormat(a, left) && site::ParseLineFormat(b, right) ? left == right
                                                                             : a == b;
}

} // namespace

SiteReplay::SiteReplay(site_server::ServedSite& site, const QString& capturePath,
                       const QString& target, const QString& settings, bool force, QObject* parent)
    : QObject(parent), site_(site) {
    QFile file(capturePath);
    if (!file.open(QIODevice::ReadOnly)) {
        throw capture::CaptureError(
            QCoreApplication::translate("SiteReplay", "The capture \"%1\" cannot be read: %2.")
                .arg(capturePath, file.errorString()));
    }
    capture::ControllerSide side = capture::ReadControllerSide(file);
    for (const QString& remark : side.remarks) {
        site_.Tell(site_server::Event::Kind::Line, capturePath, remark);
    }
    const QString recorded = side.line.settings;
    const QString wanted = settings.isEmpty() ? recorded : settings;
    if (!force && !recorded.isEmpty() && !wanted.isEmpty() && !SameSettings(recorded, wanted)) {
        throw capture::CaptureError(
            QCoreApplication::translate("SiteReplay",
                                        "The capture was recorded at %1 on %2, and the line to "
                                        "play it on is at %3; give --force to play it all the "
                                        "same.")
                .arg(recorded, side.line.name, wanted));
    }
    std::function<void(const std::string&)> put;
    if (target.isEmpty()) {
        name_ = QCoreApplication::translate("SiteReplay", "replay of %1").arg(capturePath);
        peer_ = std::make_unique<site_server::Peer>(site_, name_);
        put = [this](const std::string& bytes) {
            peer_->Hear(protocol::AsBytes(bytes));
        };
    } else {
        name_ = target;
        if (IsNetworkBinding(target)) {
            line_ = std::make_unique<NetworkLine>(1, target);
        } else {
            line_ = std::make_unique<SerialDevice>(1, target);
        }
        if (!wanted.isEmpty()) {
            line_->SetSettings(wanted);
        }
        line_->Open();
        put = [this](const std::string& bytes) {
            for (const char c : bytes) {
                line_->Output(static_cast<std::uint8_t>(c));
            }
        };
    }
    player_ = std::make_unique<capture::Player>(std::move(side.runs), std::move(put));
    connect(player_.get(), &capture::Player::Finished, this, [this] {
        site_.Tell(site_server::Event::Kind::Line, name_,
                   QCoreApplication::translate("SiteReplay",
                                               "replayed; gaps off by %1 µs at the 99th "
                                               "percentile")
                       .arg(capture::GapErrorP99(player_->LatenessUs())));
        emit Finished();
    });
}

SiteReplay::~SiteReplay() = default;

void SiteReplay::Start() {
    site_.Tell(site_server::Event::Kind::Line, name_,
               QCoreApplication::translate("SiteReplay", "replaying"));
    Play();
}

void SiteReplay::Play() {
    // A network line counts as open while it connects; the first run waits for it, so
    // that the runs do not leave in a burst.
    auto* network = dynamic_cast<NetworkLine*>(line_.get());
    if (network != nullptr && !network->IsConnected() && waitedMs_ < kConnectMs) {
        waitedMs_ += 20;
        QTimer::singleShot(20, this, &SiteReplay::Play);
        return;
    }
    player_->Start();
}

} // namespace quellpad::site_app

namespace quellpad::site_app {

int PrintTimeline(const QString& capturePath, bool linearReceivers) {
    QFile file(capturePath);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "quellpad-site: %s\n",
                     qPrintable(QCoreApplication::translate(
                                    "SiteReplay", "The capture \"%1\" cannot be read: %2.")
                                    .arg(capturePath, file.errorString())));
        return 1;
    }
    try {
        capture::CaptureReader reader(file);
        capture::ReceiverModel model;
        if (linearReceivers) {
            model.curve = capture::ReceiverModel::Curve::Linear;
        }
        capture::CameraTimeline timeline(model);
        while (const auto packet = reader.Next()) {
            timeline.Add(*packet);
        }
        std::fputs(capture::TimelineCsv(timeline.Points()).toUtf8().constData(), stdout);
        for (const QString& remark : reader.Remarks()) {
            std::fprintf(stderr, "quellpad-site: %s\n", qPrintable(remark));
        }
        return 0;
    } catch (const capture::CaptureError& error) {
        std::fprintf(stderr, "quellpad-site: %s\n", qPrintable(error.Message()));
        return 1;
    }
}

} // namespace quellpad::site_app
