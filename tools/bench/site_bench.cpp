// The simulated site's costs: the decoders in bytes per second, the site hearing a line
// byte by byte, one step of the simulation with every camera moving, and the share of
// one core that a line saturated at 115200 baud costs the program.
#include "d_traffic.h"
#include "protocol/decoders.h"
#include "protocol/frames.h"
#include "site/simulated_line.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <cstdio>
#include <string>

namespace {

using quellpad::bench::DTraffic;
using quellpad::protocol::AsBytes;
using quellpad::protocol::BuildDFrame;
using quellpad::protocol::BuildPFrame;
using quellpad::protocol::Command;
using quellpad::protocol::Language;

std::string PTraffic() {
    std::string out;
    for (int i = 0; out.size() < 65536; ++i) {
        out += BuildPFrame(1 + i % 8, 0, 0x0C, static_cast<std::uint8_t>(7 + i % 58), 20);
        out += BuildPFrame(1 + i % 8, 0, 0x03, 0, 5);
    }
    return out;
}

std::string AsciiTraffic() {
    std::string out;
    for (int i = 0; out.size() < 65536; ++i) {
        out += std::to_string(7 + i % 58) + "Ra" + std::to_string(1 + i % 16) + "Ma" +
               std::to_string(1 + i % 999) + "#a~Ra15Da" + "sa laGATE!a5^a";
    }
    return out;
}

std::string MuxTraffic() {
    std::string out;
    for (int i = 0; out.size() < 65536; ++i) {
        out += "dLm~dLmumxm" + std::to_string(1 + i % 16) + "#m>>m<m";
    }
    return out;
}

template <class Decoder, class... Args>
void Decode(benchmark::State& state, const std::string& traffic, Args... args) {
    std::vector<Command> out;
    for (auto _ : state) {
        Decoder decoder(args...);
        out.clear();
        decoder.Feed(AsBytes(traffic), out);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(traffic.size()));
}

void DecodeD(benchmark::State& state) {
    Decode<quellpad::protocol::DFrameDecoder>(state, DTraffic());
}
void DecodeP(benchmark::State& state) {
    Decode<quellpad::protocol::PFrameDecoder>(state, PTraffic());
}
void DecodeAscii(benchmark::State& state) {
    Decode<quellpad::protocol::AsciiDecoder>(state, AsciiTraffic(), Language::Ascii);
}
void DecodeMuxAscii(benchmark::State& state) {
    Decode<quellpad::protocol::AsciiDecoder>(state, MuxTraffic(), Language::MuxAscii);
}
BENCHMARK(DecodeD);
BENCHMARK(DecodeP);
BENCHMARK(DecodeAscii);
BENCHMARK(DecodeMuxAscii);

// The site as the line drives it: one byte at a time, every decoder, every device.
void SiteHearsD(benchmark::State& state) {
    const std::string traffic = DTraffic();
    quellpad::site::Site site;
    for (auto _ : state) {
        for (const char byte : traffic) {
            const auto b = static_cast<std::uint8_t>(byte);
            benchmark::DoNotOptimize(site.Hear({&b, 1}));
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(traffic.size()));
}
BENCHMARK(SiteHearsD);

void SiteHearsAscii(benchmark::State& state) {
    const std::string traffic = AsciiTraffic();
    quellpad::site::Site site;
    for (auto _ : state) {
        for (const char byte : traffic) {
            const auto b = static_cast<std::uint8_t>(byte);
            benchmark::DoNotOptimize(site.Hear({&b, 1}));
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(traffic.size()));
}
BENCHMARK(SiteHearsAscii);

// One 20 ms step with all eight cameras panning, tilting and zooming.
void SimulationStep(benchmark::State& state) {
    quellpad::site::Site site;
    std::string frames;
    for (int address = 1; address <= 8; ++address) {
        frames += BuildDFrame(address, 0, 0x02 | 0x08 | 0x20, 30, 20);
    }
    site.Hear(AsBytes(frames));
    for (auto _ : state) {
        site.Advance(0.02);
        benchmark::DoNotOptimize(site.Camera(1).Pan());
    }
}
BENCHMARK(SimulationStep);

double CpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// A simulated line at 115200 baud fed as fast as the wire allows (11520 bytes a second,
// in 1 ms slices) with the keyboard's D traffic, each answer paced back and read as the
// receiver would: the share of one core it costs, event loop and timers included.
void SaturatedLine() {
    using quellpad::site::SimulatedLine;
    SimulatedLine line(1);
    line.SetSettings(QStringLiteral("115200,n,8,1"));
    line.Open();
    std::size_t received = 0;
    QObject::connect(&line, &quellpad::SerialLine::CommEvent,
                     [&](int) { received += static_cast<std::size_t>(line.Input().size()); });
    // Set to the equipment's own 2400 the site decodes every frame and answers (the answers
    // beyond what 2400 baud carries are dropped); set to 115200 it hears garbage.
    // The last run writes nothing: what the feeding timer alone costs.
    for (const char* settings : {"2400,n,8,1", "115200,n,8,1", "nothing written"}) {
        const bool write = std::string(settings) != "nothing written";
        line.Close(); // nothing left on its way from the run before
        line.SetSettings(QLatin1String(write ? settings : "2400,n,8,1"));
        line.Open();
        const std::string traffic = DTraffic();
        std::size_t at = 0;
        QElapsedTimer clock;
        clock.start();
        const double cpu = CpuSeconds();
        QTimer feed;
        feed.setTimerType(Qt::PreciseTimer);
        QObject::connect(&feed, &QTimer::timeout, [&] {
            // Whatever is due by now at 11520 bytes a second.
            const auto due = static_cast<std::size_t>(clock.nsecsElapsed() * 11520 / 1000000000);
            for (; at < due; ++at) {
                if (write) {
                    line.Output(static_cast<std::uint8_t>(traffic[at % traffic.size()]));
                }
            }
        });
        feed.start(1);
        received = 0;
        QEventLoop loop;
        QTimer::singleShot(3000, &loop, &QEventLoop::quit);
        loop.exec();
        feed.stop();
        const double used = CpuSeconds() - cpu;
        std::printf("11520 bytes/s (a saturated 115200-baud line), line set to %s: %zu bytes in "
                    "%.2f s, %zu answer bytes read, CPU %.1f %% of one core\n",
                    settings, at, static_cast<double>(clock.elapsed()) / 1000.0, received,
                    100.0 * used / (static_cast<double>(clock.elapsed()) / 1000.0));
    }
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    SaturatedLine();
    return 0;
}
