#include "site.h"

namespace quellpad::site {

namespace {

using protocol::Kind;

void Log(std::deque<std::string>& log, std::string line) {
    // A repeated command (a retransmitted frame) is counted, not listed again.
    if (!log.empty()) {
        std::string& last = log.back();
        const auto times = last.rfind(" \xC3\x97");
        const std::string bare = times == std::string::npos ? last : last.substr(0, times);
        if (bare == line) {
            const int count = times == std::string::npos ? 1 : std::stoi(last.substr(times + 3));
            last = bare + " \xC3\x97" + std::to_string(count + 1);
            return;
        }
    }
    log.push_back(std::move(line));
    if (log.size() > Site::kLogLines) {
        log.pop_front();
    }
}

const char* Prefix(protocol::Language language) {
    switch (language) {
    case protocol::Language::D:
        return "D: ";
    case protocol::Language::P:
        return "P: ";
    case protocol::Language::Ascii:
        return "ASCII: ";
    case protocol::Language::MuxAscii:
        return "MUX: ";
    }
    return "";
}

// What the switcher hands on to the camera on its selected monitor.
bool ForCamera(Kind kind) {
    switch (kind) {
    case Kind::DirectionStart:
    case Kind::DirectionStop:
    case Kind::StopAll:
    case Kind::GoPreset:
    case Kind::SetPreset:
    case Kind::StartPatternRecord:
    case Kind::EndPatternRecord:
    case Kind::RunPattern:
        return true;
    default:
        return false;
    }
}

template <std::size_t... I>
std::array<SimCamera, sizeof...(I)> MakeCameras(std::index_sequence<I...>) {
    return {SimCamera(static_cast<int>(I) + 1)...};
}

} // namespace

Site::Site() : cameras_(MakeCameras(std::make_index_sequence<kCameras>())) {}

std::size_t Site::Rejected() const {
    return d_.Rejected() + p_.Rejected();
}

void Site::ToCamera(const protocol::Command& command, std::string& reply) {
    // A frame for an address nobody has is heard by every receiver and answered by none.
    if (command.address < 1 || command.address > kCameras) {
        return;
    }
    const auto index = static_cast<std::size_t>(command.address - 1);
    Log(cameraLogs_[index], Prefix(command.language) + command.Describe());
    reply += cameras_[index].Apply(command);
}

void Site::ToSwitcher(const protocol::Command& command, std::string& reply) {
    Log(switcherLog_, Prefix(command.language) + command.Describe());
    reply += switcher_.Apply(command);
    if (!ForCamera(command.kind)) {
        return;
    }
    const std::int64_t camera = switcher_.SelectedCamera();
    if (camera < 1 || camera > kCameras) {
        return;
    }
    const auto index = static_cast<std::size_t>(camera - 1);
    if (command.kind == Kind::SetPreset) {
        cameras_[index].SetLabelColumns(switcher_.PendingLabel());
        switcher_.TakePendingLabel();
    }
    Log(cameraLogs_[index], "via switcher: " + command.Describe());
    cameras_[index].Apply(command);
}

std::string Site::Hear(std::span<const std::uint8_t> bytes) {
    std::string reply;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = bytes.subspan(i, 1);
        decoded_.clear();
        const bool framing = d_.InFrame() || p_.InFrame();
        d_.Feed(byte, decoded_);
        p_.Feed(byte, decoded_);
        // A text that ends inside a D or P frame is made of the frame's own bytes: the
        // switcher and the multiplexer on a shared wire let it pass.
        const bool inFrame = framing || !decoded_.empty() || d_.InFrame() || p_.InFrame();
        for (const protocol::Command& command : decoded_) {
            ToCamera(command, reply);
        }
        decoded_.clear();
        ascii_.Feed(byte, decoded_);
        for (const protocol::Command& command : decoded_) {
            if (!inFrame) {
                ToSwitcher(command, reply);
            }
        }
        decoded_.clear();
        mux_.Feed(byte, decoded_);
        for (const protocol::Command& command : decoded_) {
            if (!inFrame) {
                Log(multiplexerLog_, Prefix(command.language) + command.Describe());
                multiplexer_.Apply(command);
            }
        }
    }
    ++version_;
    return reply;
}

void Site::Advance(double seconds) {
    if (!Busy()) {
        return;
    }
    for (SimCamera& camera : cameras_) {
        if (camera.Busy()) {
            camera.Advance(seconds);
        }
    }
    switcher_.Advance(seconds);
    multiplexer_.Advance(seconds);
    ++version_;
}

bool Site::Busy() const {
    for (const SimCamera& camera : cameras_) {
        if (camera.Busy()) {
            return true;
        }
    }
    return switcher_.Busy() || multiplexer_.Busy();
}

} // namespace quellpad::site
