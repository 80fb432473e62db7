#include "traffic_recorder.h"

#include <QDateTime>

#include <algorithm>

#include <chrono>

namespace quellpad::traffic {

namespace {

std::int64_t SteadyNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

TrafficRecorder::TrafficRecorder()
    : wallOriginUs_(QDateTime::currentMSecsSinceEpoch() * 1000),
      steadyOriginNs_(SteadyNs()), received_{Splitter(std::nullopt, Way::Received),
                                             Splitter(std::nullopt, Way::Received),
                                             Splitter(std::nullopt, Way::Sent)} {}

void TrafficRecorder::Sent(int portNumber, const QString& mode,
                           std::span<const std::uint8_t> bytes) {
    Note(portNumber, Way::Sent, mode, bytes);
}

void TrafficRecorder::Received(int portNumber, const QString& mode,
                               std::span<const std::uint8_t> bytes) {
    Note(portNumber, Way::Received, mode, bytes);
}

void TrafficRecorder::Note(int portNumber, Way way, const QString& mode,
                           std::span<const std::uint8_t> bytes) {
    noted_.push_back({SteadyNs(), static_cast<std::uint32_t>(bytes_.size()),
                      static_cast<std::uint32_t>(bytes.size()),
                      static_cast<std::uint8_t>(portNumber), way, LanguageOfMode(mode)});
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
}

void TrafficRecorder::AddRow(std::int64_t ns, int port, Way way, QByteArray bytes, QString meaning,
                             std::optional<protocol::Language> language,
                             std::vector<TrafficRow>& rows) {
    const std::int64_t us = (ns - steadyOriginNs_) / 1000;
    const std::int64_t since = lastRowUs_ < 0 || us < lastRowUs_ ? 0 : us - lastRowUs_;
    lastRowUs_ = us;
    rows.push_back(
        {wallOriginUs_ + us, since, port, way, std::move(bytes), std::move(meaning), language});
}

void TrafficRecorder::AddReplies(std::int64_t ns, int port, std::vector<TrafficRow>& rows) {
    for (const Piece& piece : pieces_) {
        AddRow(ns, port, Way::Received, QByteArray::fromStdString(piece.bytes),
               Meaning(port, Way::Received, piece),
               received_[static_cast<std::size_t>(port - 1)].DecodedLanguage(), rows);
    }
    pieces_.clear();
}

Splitter& TrafficRecorder::ReceivedSplitter(int port, std::optional<protocol::Language> language) {
    Splitter& splitter = received_[static_cast<std::size_t>(port - 1)];
    if (splitter.DecodedLanguage() != language) {
        // The mode changed: what the old language held is given up, the new one starts.
        splitter.Flush(pieces_);
        // A listen line hears a keyboard's commands, which the D receiver decoder would
        // not read.
        splitter = Splitter(language, port == kListenPort ? Way::Sent : Way::Received);
    }
    return splitter;
}

std::vector<TrafficRow> TrafficRecorder::Drain() {
    std::vector<TrafficRow> rows;
    rows.reserve(noted_.size());
    // What a port held from earlier batches came before anything noted since: it goes first,
    // so that the rows stay in the order of the wire.
    const std::int64_t now = SteadyNs();
    for (int port = 1; port <= kPorts; ++port) {
        Splitter& splitter = received_[static_cast<std::size_t>(port - 1)];
        const std::int64_t last = lastReceivedNs_[static_cast<std::size_t>(port - 1)];
        if (splitter.Holding() && now - last >= kQuietMs * 1'000'000) {
            splitter.Flush(pieces_);
            AddReplies(last, port, rows);
        }
    }
    for (const Noted& noted : noted_) {
        const int port = std::clamp(int{noted.port}, 1, kPorts);
        const std::span<const std::uint8_t> bytes(bytes_.data() + noted.offset, noted.length);
        const auto language = noted.language;
        if (noted.way == Way::Sent) {
            // One row per frame or text as written, whatever it holds.
            Splitter splitter(language, Way::Sent);
            splitter.Feed(bytes, pieces_);
            splitter.Flush(pieces_);
            QStringList meanings;
            for (const Piece& piece : pieces_) {
                meanings << Meaning(port, Way::Sent, piece);
            }
            pieces_.clear();
            AddRow(noted.ns, port, Way::Sent,
                   QByteArray(reinterpret_cast<const char*>(bytes.data()),
                              static_cast<qsizetype>(bytes.size())),
                   meanings.join(QStringLiteral("; ")), language, rows);
        } else {
            Splitter& splitter = ReceivedSplitter(port, language);
            splitter.Feed(bytes, pieces_);
            lastReceivedNs_[static_cast<std::size_t>(port - 1)] = noted.ns;
            AddReplies(noted.ns, port, rows);
        }
    }
    noted_.clear();
    bytes_.clear();
    return rows;
}

} // namespace quellpad::traffic
