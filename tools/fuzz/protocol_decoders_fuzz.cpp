// Feeds arbitrary bytes to every decoder: nothing may crash or loop, no decoder may find
// more commands than whole frames or texts fit in the input, and how the input is split
// into reads must not change what is decoded.
#include "protocol/decoders.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

namespace {

using quellpad::protocol::Command;
using quellpad::protocol::Decoder;
using quellpad::protocol::Language;

struct Subject {
    std::unique_ptr<Decoder> (*make)();
    // Fewest bytes that one command takes on the wire.
    std::size_t shortest;
};

const Subject kSubjects[] = {
    {[]() -> std::unique_ptr<Decoder> {
         return std::make_unique<quellpad::protocol::DFrameDecoder>();
     },
     7},
    {[]() -> std::unique_ptr<Decoder> {
         return std::make_unique<quellpad::protocol::PFrameDecoder>();
     },
     8},
    {[]() -> std::unique_ptr<Decoder> {
         return std::make_unique<quellpad::protocol::DReplyDecoder>();
     },
     4},
    {[]() -> std::unique_ptr<Decoder> {
         return std::make_unique<quellpad::protocol::AsciiDecoder>(Language::Ascii);
     },
     2},
    {[]() -> std::unique_ptr<Decoder> {
         return std::make_unique<quellpad::protocol::AsciiDecoder>(Language::MuxAscii);
     },
     2},
};

bool Same(const std::vector<Command>& a, const std::vector<Command>& b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].bytes != b[i].bytes || a[i].kind != b[i].kind || a[i].number != b[i].number ||
            a[i].value != b[i].value || a[i].text != b[i].text) {
            return false;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    // The first byte chooses where the reads are split; the rest is the line.
    const std::size_t step = 1 + data[0] % 13;
    const std::span<const std::uint8_t> line(data + 1, size - 1);
    for (const Subject& subject : kSubjects) {
        auto whole = subject.make();
        const std::vector<Command> once = whole->Feed(line);
        if (once.size() > line.size() / subject.shortest) {
            std::abort();
        }
        auto split = subject.make();
        std::vector<Command> pieces;
        for (std::size_t at = 0; at < line.size(); at += step) {
            split->Feed(line.subspan(at, std::min(step, line.size() - at)), pieces);
        }
        if (!Same(once, pieces) || whole->Rejected() != split->Rejected()) {
            std::abort();
        }
        for (const Command& command : once) {
            if (command.bytes.empty() || command.Describe().empty()) {
                std::abort();
            }
        }
    }
    return 0;
}
