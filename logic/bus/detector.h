#pragma once

#include "protocol/decoders.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace quellpad::bus {

// What the listener makes of a line so far.
enum class Verdict : std::uint8_t { Listening, Language, Garbage };

// One thing heard on the bus, already checked by a decoder of its language.
struct Heard {
    protocol::Command command;
    bool answer = false; // a receiver's reply rather than a keyboard's command
    // A D or P frame to command.address that failed its check or was cut short; the
    // command carries nothing else.
    bool badCheck = false;
};

// Names the command language on a bus from the bytes heard on it. All four languages'
// decoders read every byte; a language counts a frame only where its check holds (D, P)
// or its text is one of its own words (the switcher's and multiplexer's ASCII), so that
// noise that happens to look like text is no evidence. It settles once one language has
// kSettleFrames frames covering most of what was heard, and afterwards changes its mind
// only when at least three in four of the last kOverturnFrames frames are another's; enough bytes
// with no language behind them are called garbage.
class Detector {
public:
    Detector();

    // Appends what the bytes completed, in order.
    void Feed(std::span<const std::uint8_t> bytes, std::vector<Heard>& out);

    Verdict Current() const { return verdict_; }
    // The language settled on; none while listening or on garbage.
    std::optional<protocol::Language> Spoken() const { return language_; }
    // Checked frames and texts of every language so far.
    std::size_t ValidFrames() const { return valid_; }
    // Valid frames heard when the verdict was first a language; 0 until then.
    std::size_t FramesToSettle() const { return framesToSettle_; }
    std::size_t BytesHeard() const { return bytes_; }
    // Receiver addresses spoken to or answering in the settled language, in order.
    std::set<int> Addresses() const;

    static constexpr std::size_t kSettleFrames = 5;
    static constexpr std::size_t kOverturnFrames = 20;
    // Bytes heard with no language covering a tenth of them before the line is garbage.
    static constexpr std::size_t kGarbageBytes = 256;

private:
    static constexpr std::size_t kLanguages = 4;
    struct Tally {
        std::size_t frames = 0;
        std::size_t bytes = 0;
        std::size_t sinceVerdict = 0;
    };
    void Count(const Heard& heard);
    void Judge();
    // Notes where each D or P frame starts and to whom, to name the receiver of a frame
    // its decoder throws away.
    void Track(std::size_t index, std::uint8_t byte, bool wasInFrame, std::size_t rejected,
               std::vector<Heard>& out);

    std::array<std::unique_ptr<protocol::Decoder>, kLanguages> decoders_;
    protocol::DReplyDecoder replies_;
    std::array<Tally, kLanguages> tallies_{};
    std::array<std::set<int>, kLanguages> addresses_;
    std::vector<protocol::Command> scratch_;
    std::vector<protocol::Command> replyScratch_;
    Verdict verdict_ = Verdict::Listening;
    std::optional<protocol::Language> language_;
    std::size_t valid_ = 0;
    std::size_t bytes_ = 0;
    std::size_t framesToSettle_ = 0;
    bool counted_ = false;
    std::array<std::size_t, 2> frameStart_{};
    std::array<int, 2> frameAddress_{};
    std::size_t lastReplyEnd_ = 0;
    // The last bytes heard: as many as the longest frame.
    static constexpr std::size_t kWindow = 8;
    std::string window_;
    // Languages of the last kOverturnFrames valid frames, newest last.
    std::deque<protocol::Language> recent_;
};

// The line settings a listener on a serial device tries, one after another: the usual
// bauds, 2400 to 19200, each with no, even and odd parity.
std::vector<std::string> CandidateSettings();

// Steps a listener through the candidate settings: each is heard until its detector
// names a language, which is kept, or calls it garbage, which moves on to the next; after
// the last it starts over, so that a bus that was quiet is tried again.
class SettingsSearch {
public:
    SettingsSearch();

    const std::string& Current() const { return candidates_[index_]; }
    bool Found() const { return detector_->Current() == Verdict::Language; }
    // Every candidate has been heard and called garbage since a language was last found.
    bool AllGarbage() const { return garbageRun_ >= candidates_.size(); }
    const Detector& Hearing() const { return *detector_; }
    // Feeds bytes heard under Current(); true when the settings are to change (the caller
    // reopens the line with Current()).
    bool Feed(std::span<const std::uint8_t> bytes, std::vector<Heard>& out);

private:
    std::vector<std::string> candidates_;
    std::size_t index_ = 0;
    std::size_t garbageRun_ = 0;
    std::unique_ptr<Detector> detector_;
};

} // namespace quellpad::bus
