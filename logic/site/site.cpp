#include "site.h"

#include <QCoreApplication>

#include <algorithm>
#include <charconv>
#include <numeric>
#include <stdexcept>

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

} // namespace

std::vector<int> Site::Wiring::DefaultCameras() {
    std::vector<int> addresses(kCameras);
    std::iota(addresses.begin(), addresses.end(), 1);
    return addresses;
}

Site::Site(Wiring wiring) : wiring_(std::move(wiring)) {
    std::vector<int>& addresses = wiring_.cameras;
    std::sort(addresses.begin(), addresses.end());
    addresses.erase(std::unique(addresses.begin(), addresses.end()), addresses.end());
    if (!addresses.empty() &&
        (addresses.front() < kLowestAddress || addresses.back() > kHighestAddress)) {
        throw std::invalid_argument("a camera address is outside 1 to 255");
    }
    cameras_.reserve(addresses.size());
    for (const int address : addresses) {
        cameras_.emplace_back(address);
        slot_[static_cast<std::size_t>(address)] = static_cast<std::uint16_t>(cameras_.size());
    }
    cameraLogs_.resize(cameras_.size());
}

bool ParseCameraAddresses(std::string_view text, std::vector<int>& addresses) {
    std::vector<int> parsed;
    const auto number = [](std::string_view digits, int& value) {
        const auto* end = digits.data() + digits.size();
        const auto [at, error] = std::from_chars(digits.data(), end, value);
        return error == std::errc() && at == end && value >= Site::kLowestAddress &&
               value <= Site::kHighestAddress;
    };
    while (!text.empty()) {
        const std::size_t comma = text.find(',');
        const std::string_view item = text.substr(0, comma);
        text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
        const std::size_t dash = item.find('-');
        int first = 0;
        int last = 0;
        if (!number(item.substr(0, dash), first) ||
            !number(dash == std::string_view::npos ? item : item.substr(dash + 1), last) ||
            last < first) {
            return false;
        }
        for (int address = first; address <= last; ++address) {
            parsed.push_back(address);
        }
        if (comma != std::string_view::npos && text.empty()) {
            return false; // a trailing comma names nothing
        }
    }
    if (parsed.empty()) {
        return false;
    }
    std::sort(parsed.begin(), parsed.end());
    parsed.erase(std::unique(parsed.begin(), parsed.end()), parsed.end());
    addresses = std::move(parsed);
    return true;
}

std::string CameraAddressesText(const std::vector<int>& addresses) {
    std::string text;
    for (std::size_t i = 0; i < addresses.size();) {
        std::size_t last = i;
        while (last + 1 < addresses.size() && addresses[last + 1] == addresses[last] + 1) {
            ++last;
        }
        // Appended piece by piece: GCC 12 at -O3 misreads "," + std::string&& as an
        // overlapping copy.
        if (!text.empty()) {
            text += ',';
        }
        text += std::to_string(addresses[i]);
        if (last > i) {
            text += last == i + 1 ? ',' : '-';
            text += std::to_string(addresses[last]);
        }
        i = last + 1;
    }
    return text;
}

bool Site::HasCamera(int address) const {
    return address >= kLowestAddress && address <= kHighestAddress &&
           slot_[static_cast<std::size_t>(address)] != 0;
}

bool Site::ToCamera(const protocol::Command& command, std::string& reply) {
    // A frame for an address nobody has is heard by every receiver and answered by none.
    if (!HasCamera(command.address)) {
        return false;
    }
    const std::size_t index = Index(command.address);
    Log(cameraLogs_[index], Prefix(command.language) + command.Describe());
    reply += cameras_[index].Apply(command);
    return true;
}

void Site::ToSwitcher(const protocol::Command& command, std::string& reply) {
    Log(switcherLog_, Prefix(command.language) + command.Describe());
    reply += switcher_.Apply(command);
    if (!ForCamera(command.kind)) {
        return;
    }
    const std::int64_t camera = switcher_.SelectedCamera();
    if (camera > kHighestAddress || !HasCamera(static_cast<int>(camera))) {
        return;
    }
    const std::size_t index = Index(static_cast<int>(camera));
    if (command.kind == Kind::SetPreset) {
        cameras_[index].SetLabelColumns(switcher_.PendingLabel());
        switcher_.TakePendingLabel();
    }
    Log(cameraLogs_[index], QCoreApplication::translate("SiteWords", "via switcher: %1")
                                .arg(QString::fromStdString(command.Describe()))
                                .toStdString());
    cameras_[index].Apply(command);
}

std::string Site::Hear(Ear& ear, std::span<const std::uint8_t> bytes, std::vector<Obeyed>* obeyed) {
    std::string reply;
    const auto obey = [&](const protocol::Command& command, std::size_t from) {
        if (obeyed != nullptr) {
            obeyed->push_back({command, reply.substr(from)});
        }
    };
    std::vector<protocol::Command>& decoded = ear.decoded;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = bytes.subspan(i, 1);
        decoded.clear();
        const bool framing = ear.d.InFrame() || ear.p.InFrame();
        ear.d.Feed(byte, decoded);
        ear.p.Feed(byte, decoded);
        // A text that ends inside a D or P frame is made of the frame's own bytes: the
        // switcher and the multiplexer on a shared wire let it pass.
        const bool inFrame = framing || !decoded.empty() || ear.d.InFrame() || ear.p.InFrame();
        const bool frameEnded = !decoded.empty();
        for (const protocol::Command& command : decoded) {
            const std::size_t from = reply.size();
            if (ToCamera(command, reply)) {
                obey(command, from);
            }
        }
        decoded.clear();
        ear.ascii.Feed(byte, decoded);
        for (const protocol::Command& command : decoded) {
            if (!inFrame && wiring_.switcher) {
                const std::size_t from = reply.size();
                ToSwitcher(command, reply);
                obey(command, from);
            }
        }
        decoded.clear();
        ear.mux.Feed(byte, decoded);
        for (const protocol::Command& command : decoded) {
            if (!inFrame && wiring_.multiplexer) {
                Log(multiplexerLog_, Prefix(command.language) + command.Describe());
                multiplexer_.Apply(command);
                obey(command, reply.size());
            }
        }
        if (frameEnded) {
            // The frame's printable bytes (its check byte above all) are no text: the
            // byte after the frame starts the next one.
            ear.ascii.FrameEnded();
            ear.mux.FrameEnded();
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
