// What the traffic monitor costs: on the send and receive paths per byte, with the monitor
// never opened (no tap) and open (the recorder noting), and what a flood at 115200 baud on
// both ports costs the window per batch of rows.
#include "engine/keyboard_state.h"
#include "protocol/frames.h"
#include "traffic/traffic_recorder.h"
#include "traffic_window/frm_traffic.h"

#include <QApplication>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace quellpad;

// A port that takes every byte and always has the same reply waiting: the bench measures
// the keyboard's own work, not a driver's.
class NullLine final : public SerialLine {
public:
    explicit NullLine(int number) : number_(number) {}
    int PortNumber() const override { return number_; }
    QString Device() const override { return QStringLiteral("null"); }
    void SetSettings(const QString&) override {}
    void SetRtsEnable(bool) override {}
    void SetBufferSizes(int, int) override {}
    void SetInputLength(int) override {}
    void Open() override {}
    void Close() override {}
    bool IsOpen() const override { return true; }
    void Output(std::uint8_t byte) override { benchmark::DoNotOptimize(byte); }
    QByteArray Input() override { return waiting; }

    QByteArray waiting;

private:
    int number_;
};

std::unique_ptr<SerialLine> MakeNull(int number) {
    return std::make_unique<NullLine>(number);
}

// The rows that the recorder makes when drained cost far more than the noting measured, so
// the benchmarks that drain run a fixed number of iterations rather than until the measured
// time adds up.
constexpr benchmark::IterationCount kIterations = 200'000;

// Empties the recorder now and then, outside the time measured, as its timer would.
// (State::iterations() is not counted up inside the loop, hence a count of its own.)
void DrainNowAndThen(benchmark::State& state, traffic::TrafficRecorder* recorder) {
    static std::uint64_t calls = 0;
    if (recorder != nullptr && ++calls % 4096 == 0) {
        state.PauseTiming();
        benchmark::DoNotOptimize(recorder->Drain());
        state.ResumeTiming();
    }
}

// Sends a D frame to each of COM 1 and COM 2 (14 bytes) per iteration, the way `send`
// does, with or without the monitor.
template <class Send> void SendFrames(benchmark::State& state, bool monitor, Send send) {
    Quellpad_Support_Func keyboard(&MakeNull);
    keyboard.CurrentMode = kModeD;
    traffic::TrafficRecorder recorder;
    keyboard.Tap = monitor ? &recorder : nullptr;
    for (auto _ : state) {
        send(keyboard);
        DrainNowAndThen(state, keyboard.Tap != nullptr ? &recorder : nullptr);
    }
    state.SetBytesProcessed(state.iterations() * 14);
}

// The whole SendCommand: frames built, written and echoed.
void SendCommandD(benchmark::State& state, bool monitor) {
    std::uint8_t speed = 7;
    SendFrames(state, monitor, [&speed](Quellpad_Support_Func& keyboard) {
        keyboard.Command2 = 0x02;
        keyboard.Data1 = speed = speed == 64 ? 7 : static_cast<std::uint8_t>(speed + 1);
        keyboard.SendCommand();
    });
}
BENCHMARK_CAPTURE(SendCommandD, MonitorNeverOpened, false)->Iterations(kIterations);
BENCHMARK_CAPTURE(SendCommandD, MonitorOpen, true)->Iterations(kIterations);

// The writing itself, without SendCommand's frame building and echo.
void WriteFrames(benchmark::State& state, bool monitor) {
    const std::string frame = protocol::BuildDFrame(1, 0, 0x02, 32, 0);
    SendFrames(state, monitor, [&frame](Quellpad_Support_Func& keyboard) {
        keyboard.WriteToOpenPorts(protocol::AsBytes(frame), protocol::AsBytes(frame));
    });
}
BENCHMARK_CAPTURE(WriteFrames, MonitorNeverOpened, false)->Iterations(kIterations);
BENCHMARK_CAPTURE(WriteFrames, MonitorOpen, true)->Iterations(kIterations);

// One read of a port with `chunk` bytes of D replies waiting.
void ReceiveReplies(benchmark::State& state, bool monitor) {
    Quellpad_Support_Func keyboard(&MakeNull);
    keyboard.CurrentMode = kModeD;
    std::string replies;
    while (replies.size() < static_cast<std::size_t>(state.range(0))) {
        replies += protocol::BuildDReply(1, 0x59, 12345);
    }
    static_cast<NullLine&>(keyboard.MSComm1()).waiting =
        QByteArray::fromStdString(replies.substr(0, static_cast<std::size_t>(state.range(0))));
    traffic::TrafficRecorder recorder;
    keyboard.Tap = monitor ? &recorder : nullptr;
    for (auto _ : state) {
        benchmark::DoNotOptimize(keyboard.TakeInput(1));
        DrainNowAndThen(state, keyboard.Tap != nullptr ? &recorder : nullptr);
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(ReceiveReplies, MonitorNeverOpened, false)
    ->Arg(7)
    ->Arg(64)
    ->Iterations(kIterations);
BENCHMARK_CAPTURE(ReceiveReplies, MonitorOpen, true)->Arg(7)->Arg(64)->Iterations(kIterations);

// 115200 baud, 8N1: 11,520 bytes a second each way on a port. One batch of the window's
// timer with both ports flooded in both directions: D frames sent, position replies back,
// read 32 bytes at a time. The window is shown and full (100,000 rows), so each batch also
// drops as many old rows as it adds, and is drawn.
void FloodBatch(benchmark::State& state) {
    Quellpad_Support_Func keyboard(&MakeNull);
    keyboard.CurrentMode = kModeD;
    traffic_window::FrmTraffic window(keyboard);
    window.show();
    QTemporaryDir dir;
    if (state.range(0) != 0) {
        window.StartLog(dir.filePath(QStringLiteral("traffic.log")));
    }
    auto* table = window.findChild<QTableView*>(QStringLiteral("TrafficTableView"));
    const std::string frame = protocol::BuildDFrame(1, 0, 0x02, 32, 0);
    const std::string reply = protocol::BuildDReply(1, 0x59, 12345);
    constexpr std::size_t kBytesPerBatch = 11'520 * traffic_window::FrmTraffic::kBatchMs / 1000;
    std::string replies;
    while (replies.size() < kBytesPerBatch) {
        replies += reply;
    }
    auto& tap = *keyboard.Tap;
    const auto flood = [&] {
        for (int port = 1; port <= 2; ++port) {
            for (std::size_t sent = 0; sent < kBytesPerBatch; sent += frame.size()) {
                tap.Sent(port, kModeD, protocol::AsBytes(frame));
            }
            for (std::size_t at = 0; at < kBytesPerBatch; at += 32) {
                tap.Received(port, kModeD, protocol::AsBytes(replies).subspan(at, 32));
            }
        }
    };
    while (window.Model().rowCount() < static_cast<int>(traffic::TrafficRows::kKept)) {
        flood();
        window.TrafficTimer_Timer();
    }
    std::int64_t rows = 0;
    for (auto _ : state) {
        state.PauseTiming();
        flood();
        state.ResumeTiming();
        const int before = static_cast<int>(window.Model().Dropped());
        window.TrafficTimer_Timer();
        table->viewport()->repaint();
        QApplication::processEvents();
        rows += static_cast<int>(window.Model().Dropped()) - before;
    }
    state.counters["rows/batch"] =
        benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kAvgIterations);
    state.counters["rows/s"] =
        benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsRate);
}
// Argument 1: with the log to a file on.
BENCHMARK(FloodBatch)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
