#include "peer.h"

#include "served_site.h"

#include "protocol/decoders.h"
#include "traffic/splitter.h"

#include <algorithm>
#include <cmath>

namespace quellpad::site_server {

namespace {

// Answers are handed to the transport at most this often, never before their last bit has
// left: a fast line costs a hundred writes a second, not one per byte, and a controller
// reading a real UART sees its bytes gathered much the same way.
constexpr int kDeliveryMs = 10;
// Rejections are told at most this often while a flood goes on.
constexpr qint64 kTellEveryMs = 1000;

QString AnswerMeaning(const protocol::Command& command, const std::string& reply) {
    const auto bytes = protocol::AsBytes(reply);
    std::vector<protocol::Command> answers;
    if (command.language == protocol::Language::Ascii) {
        protocol::AsciiDecoder(protocol::Language::Ascii).Feed(bytes, answers);
    } else {
        protocol::DReplyDecoder().Feed(bytes, answers);
    }
    if (answers.empty()) {
        return QStringLiteral("answer to ") +
               traffic::EquipmentMeaning(traffic::Way::Sent, command);
    }
    return traffic::EquipmentMeaning(traffic::Way::Received, answers.front());
}

} // namespace

Peer::Peer(ServedSite& site, QString name, QObject* parent)
    : QObject(parent), site_(site), name_(std::move(name)), controller_(site.Format()) {
    clock_.start();
    paceTimer_.setSingleShot(true);
    paceTimer_.setTimerType(Qt::PreciseTimer);
    connect(&paceTimer_, &QTimer::timeout, this, &Peer::Pace);
}

Peer::~Peer() = default;

void Peer::Hear(std::span<const std::uint8_t> bytes) {
    const site::LineFormat& equipment = site_.Format();
    const bool matched = controller_ == equipment;
    std::string heard(bytes.begin(), bytes.end());
    if (!matched) {
        for (char& c : heard) {
            c = static_cast<char>(
                site::Garble(static_cast<std::uint8_t>(c), controller_, equipment));
        }
        rejected_.garbled += bytes.size();
    }
    const std::size_t badBefore = ear_.Rejected();
    obeyed_.clear();
    std::string reply = site_.Equipment().HearFrom(ear_, protocol::AsBytes(heard), &obeyed_);
    heard_ += bytes.size();
    for (const site::Site::Obeyed& obeyed : obeyed_) {
        obeyedBytes_ += obeyed.command.bytes.size();
        site_.Tell(Event::Kind::Command, name_,
                   traffic::EquipmentMeaning(traffic::Way::Sent, obeyed.command),
                   QByteArray::fromStdString(obeyed.command.bytes));
        if (!obeyed.reply.empty()) {
            site_.Tell(Event::Kind::Answer, name_, AnswerMeaning(obeyed.command, obeyed.reply),
                       QByteArray::fromStdString(obeyed.reply));
        }
    }
    rejected_.badFrames += ear_.Rejected() - badBefore;
    // Bytes at the wrong settings are counted as garbage, not again as ignored.
    const std::uint64_t unobeyed = heard_ > obeyedBytes_ ? heard_ - obeyedBytes_ : 0;
    rejected_.ignored = unobeyed > rejected_.garbled ? unobeyed - rejected_.garbled : 0;
    TellRejected(false);
    if (reply.empty()) {
        return;
    }
    if (!matched) {
        for (char& c : reply) {
            c = static_cast<char>(
                site::Garble(static_cast<std::uint8_t>(c), equipment, controller_));
        }
    }
    if (sending_.size() - sent_ + reply.size() > kSendLimit) {
        Lost(reply.size());
        return;
    }
    if (sent_ == sending_.size()) {
        sending_.clear();
        sent_ = 0;
        sendingSince_ = clock_.nsecsElapsed();
    }
    sending_ += reply;
    if (!paceTimer_.isActive()) {
        Pace();
    }
}

void Peer::Lost(std::size_t bytes) {
    rejected_.answersLost += bytes;
    TellRejected(false);
}

void Peer::TellRejected(bool now) {
    // Only bad frames, garbage and lost answers are news; bytes nobody took are counted
    // with them but are no reason on their own to speak up (a frame half heard so far).
    const bool news = rejected_.garbled != told_.garbled ||
                      rejected_.badFrames != told_.badFrames ||
                      rejected_.answersLost != told_.answersLost;
    if (!(news || (now && rejected_ != told_))) {
        return;
    }
    if (!now && lastTold_.isValid() && lastTold_.elapsed() < kTellEveryMs) {
        return;
    }
    lastTold_.start();
    told_ = rejected_;
    site_.Tell(Event::Kind::Rejected, name_,
               QStringLiteral("not obeyed so far: %1 bad or cut-short frames, %2 bytes at other "
                              "line settings, %3 bytes nobody took, %4 answer bytes not read")
                   .arg(rejected_.badFrames)
                   .arg(rejected_.garbled)
                   .arg(rejected_.ignored)
                   .arg(rejected_.answersLost));
}

void Peer::Pace() {
    const double byteNs = site_.Format().BitsPerByte() / site_.Format().baud * 1e9;
    const qint64 now = clock_.nsecsElapsed();
    // Every byte whose last bit has left by now is handed on.
    const auto due =
        std::min(sending_.size(),
                 static_cast<std::size_t>(static_cast<double>(now - sendingSince_) / byteNs));
    if (due > sent_) {
        emit Write(QByteArray(sending_.data() + sent_, static_cast<qsizetype>(due - sent_)));
        sent_ = due;
    }
    if (sent_ < sending_.size()) {
        const double nextNs = static_cast<double>(sent_ + 1) * byteNs -
                              static_cast<double>(clock_.nsecsElapsed() - sendingSince_);
        paceTimer_.start(std::max(kDeliveryMs, static_cast<int>(std::ceil(nextNs / 1e6))));
    } else {
        sending_.clear();
        sent_ = 0;
    }
}

} // namespace quellpad::site_server
