#include "telnet_codec.h"

namespace quellpad::telnet {

void AppendData(Bytes& wire, std::uint8_t byte) {
    wire.push_back(byte);
    if (byte == kIac) {
        wire.push_back(kIac);
    }
}

Bytes EscapeData(std::span<const std::uint8_t> data) {
    Bytes wire;
    wire.reserve(data.size());
    for (const std::uint8_t byte : data) {
        AppendData(wire, byte);
    }
    return wire;
}

Bytes Negotiation(std::uint8_t verb, std::uint8_t option) {
    return {kIac, verb, option};
}

Bytes PortCommandFrame(PortCommand command, std::span<const std::uint8_t> value) {
    Bytes wire{kIac, kSb, kComPortOption, static_cast<std::uint8_t>(command)};
    for (const std::uint8_t byte : value) {
        AppendData(wire, byte);
    }
    wire.push_back(kIac);
    wire.push_back(kSe);
    return wire;
}

Bytes SetBaudRate(std::uint32_t baud) {
    const std::uint8_t value[] = {
        static_cast<std::uint8_t>(baud >> 24), static_cast<std::uint8_t>(baud >> 16),
        static_cast<std::uint8_t>(baud >> 8), static_cast<std::uint8_t>(baud)};
    return PortCommandFrame(PortCommand::SetBaudRate, value);
}

Bytes SetDataSize(std::uint8_t bits) {
    return PortCommandFrame(PortCommand::SetDataSize, std::span(&bits, 1));
}

Bytes SetParity(std::uint8_t parity) {
    return PortCommandFrame(PortCommand::SetParity, std::span(&parity, 1));
}

Bytes SetStopSize(std::uint8_t stop) {
    return PortCommandFrame(PortCommand::SetStopSize, std::span(&stop, 1));
}

Bytes SetControl(std::uint8_t control) {
    return PortCommandFrame(PortCommand::SetControl, std::span(&control, 1));
}

Bytes ConfigurePort(const PortSettings& settings, bool rts) {
    Bytes wire;
    for (const Bytes& part :
         {SetBaudRate(settings.baud), SetDataSize(settings.dataSize), SetParity(settings.parity),
          SetStopSize(settings.stopSize), SetControl(kControlNoFlow),
          SetControl(rts ? kControlRtsOn : kControlRtsOff)}) {
        wire.insert(wire.end(), part.begin(), part.end());
    }
    return wire;
}

Bytes Session::Start() {
    local_[kComPortOption] = State::WantYes;
    local_[kBinary] = State::WantYes;
    remote_[kBinary] = State::WantYes;
    Bytes wire = Negotiation(kWill, kComPortOption);
    for (const Bytes& part : {Negotiation(kWill, kBinary), Negotiation(kDo, kBinary)}) {
        wire.insert(wire.end(), part.begin(), part.end());
    }
    return wire;
}

void Session::Feed(std::span<const std::uint8_t> wire, Bytes& data, Bytes& reply) {
    for (const std::uint8_t byte : wire) {
        switch (step_) {
        case Step::Data:
            if (byte == kIac) {
                step_ = Step::Iac;
            } else {
                data.push_back(byte);
            }
            break;
        case Step::SubIac:
            if (byte == kSe) {
                EndSubnegotiation();
                step_ = Step::Data;
                break;
            }
            if (byte == kIac) {
                if (sub_.size() < kMaxSubnegotiation) {
                    sub_.push_back(kIac);
                }
                step_ = Step::Sub;
                break;
            }
            // A server that forgot IAC SE: the subnegotiation ends here, and the byte is
            // read as the command it is.
            EndSubnegotiation();
            [[fallthrough]];
        case Step::Iac:
            if (byte == kIac) {
                data.push_back(kIac);
                step_ = Step::Data;
            } else if (byte >= kWill) {
                verb_ = byte;
                step_ = Step::Verb;
            } else if (byte == kSb) {
                sub_.clear();
                step_ = Step::Sub;
            } else {
                step_ = Step::Data; // NOP, go-ahead, a stray SE: nothing for the line
            }
            break;
        case Step::Verb:
            Negotiate(verb_, byte, reply);
            step_ = Step::Data;
            break;
        case Step::Sub:
            if (byte == kIac) {
                step_ = Step::SubIac;
            } else if (sub_.size() < kMaxSubnegotiation) {
                sub_.push_back(byte);
            }
            break;
        }
    }
}

void Session::Negotiate(std::uint8_t verb, std::uint8_t option, Bytes& reply) {
    const bool ours = verb == kDo || verb == kDont;
    State& state = ours ? local_[option] : remote_[option];
    const bool accepted =
        option == kBinary || option == kSuppressGoAhead || (ours && option == kComPortOption);
    const auto answer = [&](std::uint8_t answerVerb) {
        const Bytes bytes = Negotiation(answerVerb, option);
        reply.insert(reply.end(), bytes.begin(), bytes.end());
    };
    const bool enable = verb == kDo || verb == kWill;
    if (enable) {
        if (state == State::No) {
            if (accepted) {
                state = State::Yes;
                answer(ours ? kWill : kDo);
            } else {
                answer(ours ? kWont : kDont);
            }
        } else {
            state = State::Yes; // the answer to our own offer, or a repeat
        }
    } else {
        if (state == State::Yes) {
            answer(ours ? kWont : kDont);
        }
        state = State::No; // our offer refused, or the option switched off
    }
}

void Session::EndSubnegotiation() {
    ++subnegotiations_;
    if (sub_.size() < 2 || sub_[0] != kComPortOption) {
        return;
    }
    const int command = sub_[1] - kServerReplyOffset;
    if (command < 1 || command >= static_cast<int>(serverValues_.size())) {
        return; // line and modem state notices, flow control: nothing the keyboard shows
    }
    // The baud rate is four bytes, every other value one.
    const std::size_t end = command == static_cast<int>(PortCommand::SetBaudRate) ? 6 : 3;
    std::uint32_t value = 0;
    for (std::size_t i = 2; i < sub_.size() && i < end; ++i) {
        value = (value << 8) | sub_[i];
    }
    serverValues_[static_cast<std::size_t>(command)] = value;
}

std::optional<std::uint32_t> Session::ServerValue(PortCommand command) const {
    return serverValues_[static_cast<std::size_t>(command)];
}

} // namespace quellpad::telnet
