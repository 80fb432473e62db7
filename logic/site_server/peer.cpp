#include "peer.h"

#include "served_site.h"

#include <QCoreApplication>
#include <QStringList>

#include <climits>

#include "engine/line_tap.h"
#include "protocol/decoders.h"
#include "traffic/splitter.h"

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
        return QCoreApplication::translate("ServedSite", "answer to ") +
               traffic::EquipmentMeaning(traffic::Way::Sent, command);
    }
    return traffic::EquipmentMeaning(traffic::Way::Received, answers.front());
}

// A count with the form its number takes. A long flood can count past what an int holds;
// such a number still takes the plural.
QString Counted(const char* text, std::uint64_t count) {
    const int form = count > INT_MAX ? INT_MAX : static_cast<int>(count);
    return QCoreApplication::translate("ServedSite", text, nullptr, form).arg(count);
}

} // namespace

QString RejectionsInWords(const Rejections& rejected) {
    return QStringList{
        Counted(QT_TRANSLATE_N_NOOP("ServedSite", "%1 bad or cut-short frames"),
                rejected.badFrames),
        Counted(QT_TRANSLATE_N_NOOP("ServedSite", "%1 bytes at other line settings"),
                rejected.garbled),
        Counted(QT_TRANSLATE_N_NOOP("ServedSite", "%1 bytes nobody took"), rejected.ignored),
        Counted(QT_TRANSLATE_N_NOOP("ServedSite", "%1 answer bytes not read"),
                rejected.answersLost),
    }
        .join(QStringLiteral(", "));
}

Peer::Peer(ServedSite& site, QString name, QObject* parent)
    : QObject(parent), site_(site), name_(std::move(name)), controller_(site.Format()),
      pacer_(kDeliveryMs, kSendLimit) {
    connect(&pacer_, &site::Pacer::Arrived, this, &Peer::Deliver);
}

Peer::~Peer() = default;

void Peer::Hear(std::span<const std::uint8_t> bytes) {
    site_.Record(name_, true, bytes);
    site::FaultyWire& wire = site_.Wire();
    const site::LineFormat& equipment = site_.Format();
    if (!wire.Reaches()) {
        // Its transmit drives a wire nothing listens on.
        rejected_.ignored += bytes.size();
        TellRejected(false);
        return;
    }
    const bool matched = controller_ == equipment && !wire.Inverted();
    std::string heard = wire.Carry(
        std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), controller_);
    site_.Carry(heard, controller_, wire.Inverted());
    if (wire.Inverted()) {
        heard = site::ReceivedAs(heard, controller_, equipment, true);
    } else if (!matched) {
        for (char& c : heard) {
            c = static_cast<char>(
                site::Garble(static_cast<std::uint8_t>(c), controller_, equipment));
        }
    }
    if (!matched) {
        rejected_.garbled += bytes.size();
    }
    const std::size_t badBefore = ear_.Rejected();
    obeyed_.clear();
    site_.Equipment().HearFrom(ear_, protocol::AsBytes(heard), &obeyed_);
    heard_ += bytes.size();
    std::string reply;
    for (const site::Site::Obeyed& obeyed : obeyed_) {
        obeyedBytes_ += obeyed.command.bytes.size();
        site_.Tell(Event::Kind::Command, name_,
                   traffic::EquipmentMeaning(traffic::Way::Sent, obeyed.command),
                   QByteArray::fromStdString(obeyed.command.bytes));
        const std::string answer = wire.Answer(obeyed.command.address, obeyed.reply, equipment);
        if (!answer.empty()) {
            reply += answer;
            site_.Tell(Event::Kind::Answer, name_, AnswerMeaning(obeyed.command, answer),
                       QByteArray::fromStdString(answer));
        }
    }
    rejected_.badFrames += ear_.Rejected() - badBefore;
    // Bytes at the wrong settings are counted as garbage, not again as ignored.
    const std::uint64_t unobeyed = heard_ > obeyedBytes_ ? heard_ - obeyedBytes_ : 0;
    rejected_.ignored = unobeyed > rejected_.garbled ? unobeyed - rejected_.garbled : 0;
    TellRejected(false);
    reply = wire.Noisy(reply);
    if (reply.empty()) {
        return;
    }
    if (!pacer_.Send(reply, site_.Format().BitsPerByte() / site_.Format().baud)) {
        Lost(reply.size());
    }
}

void Peer::Deliver(const QByteArray& bytes) {
    // The receivers drive the bus at their own settings; the controller reads them at its.
    const site::LineFormat& equipment = site_.Format();
    site_.Carry(bytes.toStdString(), equipment, false);
    QByteArray received = bytes;
    if (site_.Wire().Inverted()) {
        received = QByteArray::fromStdString(
            site::ReceivedAs(bytes.toStdString(), equipment, controller_, true));
    } else if (controller_ != equipment) {
        for (char& c : received) {
            c = static_cast<char>(
                site::Garble(static_cast<std::uint8_t>(c), equipment, controller_));
        }
    }
    site_.Record(name_, false, WireBytes(received));
    emit Write(received);
}

void Peer::Forget() {
    ear_ = site::Site::Ear{};
    pacer_.Clear();
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
               QCoreApplication::translate("ServedSite", "not obeyed so far: %1")
                   .arg(RejectionsInWords(rejected_)));
}

} // namespace quellpad::site_server
