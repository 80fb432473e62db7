#include "scanner.h"
#include "protocol/frames.h"
#include "protocol/vocabulary.h"

#include "engine/errors.h"

#include <QCoreApplication>

#include <cmath>

namespace quellpad::bus {

namespace {

constexpr double kBitsPerByte = 10; // start, 8 data, stop
constexpr std::size_t kQueryBytes = 7;

} // namespace

std::optional<std::string> ScanQuery(protocol::Language language, int address) {
    if (language != protocol::Language::D) {
        return std::nullopt;
    }
    // Query pan: answered with the position, and nothing on the receiver moves.
    return protocol::BuildDFrame(address, 0x00, protocol::code::kQueryPan, 0x00, 0x00);
}

std::string PollFrame(protocol::Language language, int address) {
    const std::string query = *ScanQuery(protocol::Language::D, address);
    if (language != protocol::Language::P) {
        return query;
    }
    const auto byte = [&query](std::size_t i) {
        return static_cast<std::uint8_t>(query[i]);
    };
    return protocol::BuildPFrame(address, byte(2), byte(3), byte(4), byte(5));
}

QString CannotScan(protocol::Language language) {
    switch (language) {
    case protocol::Language::D:
        return {};
    case protocol::Language::P:
        return QCoreApplication::translate(
            "Scanner", "P receivers answer no query, so a scan in P would find nothing.");
    case protocol::Language::Ascii:
        return QCoreApplication::translate(
            "Scanner", "The switcher answers only commands that switch or step pictures, "
                       "so it cannot be scanned without moving something.");
    case protocol::Language::MuxAscii:
        break;
    }
    return QCoreApplication::translate("Scanner", "The multiplexer answers nothing.");
}

double ByteMs(int baud) {
    return 1000.0 * kBitsPerByte / baud;
}

double PlannedMs(const ScanPlan& plan) {
    const int addresses = std::max(0, plan.last - plan.first + 1);
    double total = 0;
    for (const int baud : plan.bauds) {
        total += addresses * (ByteMs(baud) * kQueryBytes + plan.waitMs);
    }
    return total;
}

Scanner::Scanner(SerialLine& line, QString settings, QObject* parent)
    : QObject(parent), line_(line), settings_(std::move(settings)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &Scanner::OnTimeout);
    connect(&line_, &SerialLine::CommEvent, this, &Scanner::OnEvent);
    connect(&line_, &SerialLine::LineFailed, this, &Scanner::OnFailed);
}

Scanner::~Scanner() {
    if (running_) {
        End(true, {});
    }
}

int Scanner::Total() const {
    return static_cast<int>(plan_.bauds.size()) * std::max(0, plan_.last - plan_.first + 1);
}

double Scanner::MsLeft() const {
    ScanPlan rest = plan_;
    rest.bauds.clear();
    double ms = 0;
    if (baudIndex_ < plan_.bauds.size()) {
        const int baud = plan_.bauds[baudIndex_];
        ms += (plan_.last - address_) * (ByteMs(baud) * kQueryBytes + plan_.waitMs);
        for (std::size_t i = baudIndex_ + 1; i < plan_.bauds.size(); ++i) {
            rest.bauds.push_back(plan_.bauds[i]);
        }
    }
    return ms + PlannedMs(rest);
}

void Scanner::Start(const ScanPlan& plan) {
    plan_ = plan;
    results_.clear();
    done_ = 0;
    baudIndex_ = 0;
    address_ = plan_.first - 1;
    wasOpen_ = line_.IsOpen();
    if (pause_) {
        pause_(true);
    }
    running_ = true;
    try {
        if (!plan_.bauds.empty()) {
            line_.SetSettings(QString::number(plan_.bauds.front()) + QStringLiteral(",n,8,1"));
        }
        line_.Open();
    } catch (...) {
        End(true, {});
        throw;
    }
    line_.Input(); // what waited before the scan answers none of its queries
    Next();
}

void Scanner::Cancel() {
    if (running_) {
        End(true, {});
    }
}

void Scanner::Next() {
    if (!running_) {
        return;
    }
    ++address_;
    if (address_ > plan_.last) {
        ++baudIndex_;
        address_ = plan_.first;
        if (baudIndex_ >= plan_.bauds.size()) {
            End(false, {});
            return;
        }
        line_.SetSettings(QString::number(plan_.bauds[baudIndex_]) + QStringLiteral(",n,8,1"));
    }
    const auto query = ScanQuery(plan_.language, address_);
    if (!query || plan_.bauds.empty()) {
        End(false, {});
        return;
    }
    decoder_ = protocol::DReplyDecoder();
    for (const char byte : *query) {
        line_.Output(static_cast<std::uint8_t>(byte));
    }
    wireMs_ = ByteMs(plan_.bauds[baudIndex_]) * static_cast<double>(query->size());
    sent_.start();
    timer_.start(static_cast<int>(std::lround(wireMs_ + plan_.waitMs)));
    ++done_;
    emit Progress(done_, Total(), MsLeft());
}

void Scanner::OnTimeout() {
    Next();
}

void Scanner::OnEvent(int code) {
    if (!running_ || code != SerialLine::kDataReceived) {
        return;
    }
    const QByteArray bytes = line_.Input();
    const auto heard = decoder_.Feed({reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                      static_cast<std::size_t>(bytes.size())});
    for (const protocol::Command& answer : heard) {
        if (answer.address != address_) {
            continue; // a late answer of the address before, or noise that checked
        }
        ScanResult result;
        result.port = line_.PortNumber();
        result.baud = plan_.bauds[baudIndex_];
        result.address = address_;
        result.answerMs = std::max(0.0, static_cast<double>(sent_.nsecsElapsed()) / 1e6 - wireMs_);
        result.answer = answer.Describe();
        results_.push_back(result);
        emit Found(result);
        timer_.stop();
        // Let the rest of the answer leave the wire before the next query.
        QTimer::singleShot(0, this, &Scanner::Next);
        return;
    }
}

void Scanner::OnFailed(const QString& message) {
    if (!running_) {
        return;
    }
    const QString failure =
        QCoreApplication::translate("Scanner", "The scan stopped at address %1 (%2 baud): %3")
            .arg(address_)
            .arg(baudIndex_ < plan_.bauds.size() ? plan_.bauds[baudIndex_] : 0)
            .arg(message);
    End(true, failure);
}

void Scanner::End(bool cancelled, const QString& failure) {
    running_ = false;
    timer_.stop();
    // The port goes back as the keyboard had it, whatever stopped the scan; a line that
    // failed takes its settings when it reopens.
    try {
        line_.SetSettings(settings_);
        if (!wasOpen_ && line_.IsOpen()) {
            line_.Close();
        }
    } catch (const PortError&) {
    }
    if (pause_) {
        pause_(false);
    }
    emit Finished(cancelled, failure);
}

} // namespace quellpad::bus
