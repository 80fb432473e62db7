#pragma once

#include "pcapng.h"

#include "engine/plain_file.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace quellpad::capture {

// A capture streamed to disk as the bytes go: nothing but what waits for the next Flush is
// held in memory. Blocks leave whole, so a program killed between two flushes leaves a
// file that reads up to the last of them; the owner flushes at least once a second. A
// disk that fills stops the capture with the file cut back to its last whole block.
class CaptureWriter {
public:
    // Starts the file (made when missing, emptied when there) with a section header and an
    // interface per line. `rotateBytes` > 0 starts a new file once one holds that much:
    // "site.pcapng", then "site-2.pcapng", "site-3.pcapng", each whole on its own.
    // Throws CaptureError naming the file and the reason.
    CaptureWriter(const QString& path, std::vector<Interface> lines, std::int64_t rotateBytes = 0);

    // A line that opened since; its number for the packets. Throws as Flush.
    std::uint32_t AddInterface(const Interface& line);
    // Queues the packet; flushes when much is waiting. Throws as Flush.
    void Write(const Packet& packet);
    // Hands what waits to the system. On failure (a full disk) the file is cut back to its
    // last whole block, the capture stops, and CaptureError says so and why; later calls
    // do nothing.
    void Flush();

    bool Stopped() const { return stopped_; }
    const QString& CurrentPath() const { return current_; }
    std::uint64_t Packets() const { return packets_; }
    // The bytes waiting for the next flush, at most about kFlushAt.
    std::size_t Waiting() const { return pending_.size(); }

    static constexpr std::size_t kFlushAt = 64 * 1024;

private:
    void Open();
    void Queue(std::string block);

    QString path_;
    QString current_;
    std::vector<Interface> lines_;
    std::int64_t rotateBytes_;
    int files_ = 0;
    PlainFileWriter file_;
    std::string pending_;
    // Where each block waiting ends in pending_, so that a write cut short keeps whole ones.
    std::vector<std::size_t> ends_;
    std::uint64_t packets_ = 0;
    bool stopped_ = false;
};

// The name of the n-th file of a rotated capture: "site.pcapng", "site-2.pcapng".
QString RotatedPath(const QString& path, int number);

} // namespace quellpad::capture
