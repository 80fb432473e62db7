// An hour of three lines at 115200 baud, full both ways, written as a capture as fast as the
// disk takes it: prints how much faster than the wire the recorder runs, that every byte
// reads back, and how much the process grew from the first minute to the last.
#include "capture/capture_reader.h"
#include "capture/capture_writer.h"

#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

long ResidentKb() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == "VmRSS:") {
            long kb = 0;
            status >> kb;
            return kb;
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    using namespace quellpad::capture;
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 3600;
    // 115200 baud at 10 bits a byte; each line read in runs of 16 bytes, both ways.
    constexpr int kBytesPerSecond = 11520;
    constexpr int kRun = 16;
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("hour.pcapng"));
    std::uint64_t written = 0;
    long firstMinuteKb = 0;
    const auto start = std::chrono::steady_clock::now();
    {
        CaptureWriter writer(path, {{"COM 1", "/dev/ttyUSB0", "115200,n,8,1"},
                                    {"COM 2", "/dev/ttyUSB1", "115200,n,8,1"},
                                    {"Listen", "/dev/ttyUSB2", "115200,n,8,1"}});
        const std::string run(kRun, '\x5A');
        for (int second = 0; second < seconds; ++second) {
            for (int i = 0; i < kBytesPerSecond / kRun; ++i) {
                for (std::uint32_t line = 0; line < 3; ++line) {
                    for (const bool inbound : {false, true}) {
                        Packet packet;
                        packet.interface = line;
                        packet.atUs = std::int64_t{second} * 1'000'000 + i * 1389;
                        packet.inbound = inbound;
                        packet.bytes = run;
                        writer.Write(packet);
                        written += run.size();
                    }
                }
            }
            writer.Flush(); // the owner's once-a-second flush
            if (second == 60) {
                firstMinuteKb = ResidentKb();
            }
        }
    }
    const double took =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const long lastKb = ResidentKb();
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    CaptureReader reader(file);
    std::uint64_t read = 0;
    while (const auto packet = reader.Next()) {
        read += packet->bytes.size();
    }
    std::printf("%d s of 3 lines at 115200 baud both ways: %llu bytes in %.1f s (%.0fx the "
                "wire), %llu read back, %s; resident %ld kB after a minute, %ld kB at the end\n",
                seconds, static_cast<unsigned long long>(written), took, seconds / took,
                static_cast<unsigned long long>(read), read == written ? "none lost" : "BYTES LOST",
                firstMinuteKb, lastKb);
    return read == written ? 0 : 1;
}
