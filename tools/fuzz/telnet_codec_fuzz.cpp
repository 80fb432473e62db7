// What a Telnet serial server sends, whole or cut anywhere as the network delivers it:
// the same line data and the same answers either way, every answer a well-formed three-byte
// negotiation, and a server that agrees with our answers is never answered again, so that
// no negotiation can loop.
#include "fuzz_support.h"

#include "netline/telnet_codec.h"

#include <algorithm>
#include <array>
#include <vector>

using quellpad::fuzz::Require;
namespace telnet = quellpad::telnet;

namespace {

struct Outcome {
    telnet::Bytes data;
    telnet::Bytes reply;
};

// What the server would send on receiving our answer, when it agrees with it.
std::uint8_t Agreement(std::uint8_t verb) {
    switch (verb) {
    case telnet::kWill:
        return telnet::kDo;
    case telnet::kWont:
        return telnet::kDont;
    case telnet::kDo:
        return telnet::kWill;
    default:
        return telnet::kWont;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    // The first byte says in how many places (up to 7) the rest is cut; those places come
    // next, each as a byte read against the length of the wire.
    const std::size_t cuts = std::min<std::size_t>(data[0] % 8, size - 1);
    const std::span<const std::uint8_t> places(data + 1, cuts);
    const std::span<const std::uint8_t> wire(data + 1 + cuts, size - 1 - cuts);

    telnet::Session whole;
    Outcome once;
    const telnet::Bytes offers = whole.Start();
    whole.Feed(wire, once.data, once.reply);

    std::vector<std::size_t> at;
    for (const std::uint8_t place : places) {
        at.push_back(wire.empty() ? 0 : place % (wire.size() + 1));
    }
    std::sort(at.begin(), at.end());
    at.push_back(wire.size());
    telnet::Session split;
    Outcome pieces;
    Require(split.Start() == offers, "the opening offers do not depend on the server");
    std::size_t from = 0;
    for (const std::size_t to : at) {
        split.Feed(wire.subspan(from, to - from), pieces.data, pieces.reply);
        from = to;
    }
    Require(pieces.data == once.data, "the line data is the same whole or split");
    Require(pieces.reply == once.reply, "the answers are the same whole or split");
    Require(split.ComPortAgreed() == whole.ComPortAgreed(), "the same agreement whole or split");
    for (const auto command : {telnet::PortCommand::SetBaudRate, telnet::PortCommand::SetDataSize,
                               telnet::PortCommand::SetParity, telnet::PortCommand::SetStopSize,
                               telnet::PortCommand::SetControl}) {
        Require(split.ServerValue(command) == whole.ServerValue(command),
                "the server's values are the same whole or split");
    }

    Require(once.data.size() <= wire.size(), "no line data is made up");
    Require(once.reply.size() % 3 == 0, "answers come in threes");
    Require(once.reply.size() <= wire.size(), "no more answers than the requests that asked");
    // The last answer about each option on each side is where it now stands; an earlier
    // one was overtaken by a later request.
    std::array<std::array<int, 256>, 2> last{};
    for (auto& side : last) {
        side.fill(-1);
    }
    for (std::size_t i = 0; i < once.reply.size(); i += 3) {
        const std::uint8_t verb = once.reply[i + 1];
        Require(once.reply[i] == telnet::kIac, "an answer starts with IAC");
        Require(verb >= telnet::kWill, "an answer is WILL, WONT, DO or DONT");
        const bool ours = verb == telnet::kWill || verb == telnet::kWont;
        last[ours ? 0 : 1][once.reply[i + 2]] = verb;
    }
    telnet::Bytes agreement;
    for (const auto& side : last) {
        for (std::size_t option = 0; option < side.size(); ++option) {
            if (side[option] >= 0) {
                agreement.insert(agreement.end(),
                                 {telnet::kIac, Agreement(static_cast<std::uint8_t>(side[option])),
                                  static_cast<std::uint8_t>(option)});
            }
        }
    }

    if (whole.BetweenCommands()) {
        Outcome after;
        whole.Feed(agreement, after.data, after.reply);
        Require(after.reply.empty(), "a server that agrees with our answers gets no new one");
        Require(after.data.empty(), "agreement carries no line data");
    }
    return 0;
}
