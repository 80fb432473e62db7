#pragma once

#include "engine/serial_line.h"
#include "protocol/decoders.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quellpad::bus {

// What a scan is to try.
struct ScanPlan {
    protocol::Language language = protocol::Language::D;
    std::vector<int> bauds{2400, 4800, 9600, 19200};
    int first = 1;
    int last = 255;
    int waitMs = 50; // for an answer, after the query has left
};

// A receiver that answered.
struct ScanResult {
    int port = 0;
    int baud = 0;
    int address = 0;
    double answerMs = 0; // from the query's last byte leaving to the answer's last byte
    std::string answer;  // in the operator's words
};

// The query a scan sends to one address: one that moves nothing and that the receiver
// answers. Only a D receiver answers such a query (its pan position); P receivers answer
// nothing and the switcher's only answers follow commands that switch or step pictures,
// so for those languages there is none.
std::optional<std::string> ScanQuery(protocol::Language language, int address);
// What a controller polling its receivers sends each in turn, in D or P: the scan's query,
// which moves nothing; in P the same command bytes, which P receivers take without answer.
std::string PollFrame(protocol::Language language, int address);
// Why a language cannot be scanned, as the scanner window says it; empty for D.
QString CannotScan(protocol::Language language);
// How long one byte takes on the wire under 8 data bits, no parity and 1 stop bit.
double ByteMs(int baud);
// The time a whole plan takes when nobody answers: every query's wire time and the wait.
double PlannedMs(const ScanPlan& plan);

// Sends the plan's queries on a COM port one address at a time, one baud after another,
// and collects the answers. The port is the keyboard's own: its line settings and whether
// it was open are restored when the scan ends, whether it ran out, was cancelled or the
// line failed; the caller's pause hook keeps the dispatcher and retransmission off the
// line meanwhile.
class Scanner final : public QObject {
    Q_OBJECT
public:
    // `settings` is the port's line settings text now, to restore afterwards.
    Scanner(SerialLine& line, QString settings, QObject* parent = nullptr);
    ~Scanner() override;

    // Called with true before the first query and false after the scan ends.
    void SetPause(std::function<void(bool)> pause) { pause_ = std::move(pause); }
    // Fails with PortError when the port cannot be opened or set.
    void Start(const ScanPlan& plan);
    // Stops at once; Finished follows.
    void Cancel();
    bool Running() const { return running_; }
    const std::vector<ScanResult>& Results() const { return results_; }
    // Queries sent so far out of all of them.
    int Done() const { return done_; }
    int Total() const;
    // Time the rest of the plan takes if nobody answers.
    double MsLeft() const;

signals:
    void Progress(int done, int total, double msLeft);
    void Found(const ScanResult& result);
    // The scan ended; `failure` says why when the line failed, naming the address reached.
    void Finished(bool cancelled, const QString& failure);

private:
    void Next();
    void OnTimeout();
    void OnEvent(int code);
    void OnFailed(const QString& message);
    void End(bool cancelled, const QString& failure);

    SerialLine& line_;
    QString settings_;
    bool wasOpen_ = false;
    ScanPlan plan_;
    std::function<void(bool)> pause_;
    bool running_ = false;
    int done_ = 0;
    std::size_t baudIndex_ = 0;
    int address_ = 0;
    double wireMs_ = 0;
    QTimer timer_;
    QElapsedTimer sent_;
    protocol::DReplyDecoder decoder_;
    std::vector<ScanResult> results_;
};

} // namespace quellpad::bus
