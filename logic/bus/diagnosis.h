#pragma once

#include "detector.h"

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace quellpad::bus {

// What is wrong on a bus, as far as listening can tell.
enum class BusFault : std::uint8_t {
    Listening, // not enough heard yet to say
    Healthy,
    Silent,           // nothing at all reaches the bus: transmit and receive swapped
    InvertedPolarity, // the two RS-485 wires swapped
    Unreadable,       // bytes, but no frame at any settings tried
    AnswerAddress,    // a camera answers as another address than it is commanded at
    DuplicateAddress, // two receivers at one address
    SecondController, // another controller drives the same camera
    Noise,
    Mute,      // one camera hears but never answers
    NoAnswers, // no camera answers: settings or language differ from the receivers'
};
inline constexpr int kBusFaults = 11;

// The short name of a verdict: "healthy", "mute", as the corpus tools print it.
const char* BusFaultName(BusFault fault);

struct BusVerdict {
    BusFault fault = BusFault::Listening;
    // In plain words: what is wrong, the evidence counted, what to check on site.
    QString text;
    // 0 to 1: how much evidence has come in against what the verdict needs.
    double confidence = 0;
};

// Says from listening alone what is wrong on a bus. It is fed what a listener hears: the
// raw bytes, what the detector made of them, and the time that passes; it keeps counts
// per address (bounded: 256 addresses) and claims a fault only once the counts it rests
// on have come in, saying until then that it is still listening.
class BusDiagnosis {
public:
    // The line settings being heard, such as "9600,n,8,1", for the words of the verdict.
    void SetSettings(const QString& settings) { settings_ = settings; }
    // A listener is still trying other line settings: a line where nothing forms a frame
    // is not judged yet, as a UART at the wrong rate reads much what an inverted line gives.
    void SetSearching(bool searching) { searching_ = searching; }
    // Some frame or answer has checked.
    bool HeardFrames() const { return validBytes_ > 0; }
    // Bytes heard and what the detector made of them. Fed a byte at a time, it tells an
    // answer mangled after a command from one that merely came in the same read.
    void Feed(std::span<const std::uint8_t> bytes, const std::vector<Heard>& heard);
    // Seconds have passed with the line open.
    void Elapsed(double seconds);
    // Forgets everything heard, as when the line or its settings change.
    void Reset();

    BusVerdict Current() const;
    // Frames heard (checked or not) so far, and when the verdict was first other than
    // listening; 0 until then.
    std::size_t Frames() const { return frames_; }
    std::size_t FramesToVerdict() const { return framesToVerdict_; }

    // Commands to an address before it is judged.
    static constexpr std::size_t kEnoughCommands = 4;
    // Seconds of a silent line before it is called silent.
    static constexpr double kSilentSeconds = 5;

private:
    struct Address {
        std::uint32_t commands = 0;
        std::uint32_t answers = 0;     // answers carrying this address
        std::uint32_t answered = 0;    // its commands answered as itself
        std::uint32_t otherAnswer = 0; // its commands answered as another address
        std::uint32_t garbled = 0;     // its commands followed by bytes that are no answer
        std::uint32_t badCommands = 0; // frames to it that fail their check
        std::uint32_t resumed = 0;     // stopped right after a command that then resumes
        int otherAs = 0;
        bool d = false;
    };
    void Command(const Heard& heard);
    void Answer(const Heard& heard);
    void CloseCommand();
    // Bytes heard that made no frame, answer or word; less than none when the words of
    // the switcher and the multiplexer overlap.
    std::int64_t Stray() const;
    BusVerdict Judge() const;

    QString settings_;
    bool searching_ = false;
    std::array<Address, 257> addresses_{};
    std::uint64_t bytes_ = 0;
    std::uint64_t validBytes_ = 0; // of D and P frames and answers that check
    std::uint64_t textBytes_ = 0;  // of the switcher's and multiplexer's words
    std::uint64_t zeros_ = 0;
    std::size_t frames_ = 0;
    std::size_t framesToVerdict_ = 0;
    double quiet_ = 0;
    // The last command heard and what followed it so far.
    int lastAddress_ = 0;
    bool lastAnswered_ = true;
    std::int64_t strayAtLast_ = 0;
    // The command before the last to each address, to see a stop cut in.
    std::array<std::string, 257> before_{};
    std::array<bool, 257> stoppedAfter_{};
    // Commands to each address not answered yet.
    static constexpr std::uint8_t kMostPending = 4;
    std::array<std::uint8_t, 257> pending_{};
    BusVerdict verdict_;
};

// A listener that diagnoses: the language detector (on a serial device, the search through
// line settings) feeding a diagnosis, which starts afresh whenever the settings change.
class DiagnosingListener {
public:
    explicit DiagnosingListener(bool searchSettings);
    // True when the line is to be reopened at Settings().
    bool Feed(std::span<const std::uint8_t> bytes);
    void Elapsed(double seconds) { diagnosis_.Elapsed(seconds); }
    // The settings to listen at; empty when the line has none to choose (TCP).
    std::string Settings() const { return search_ ? search_->Current() : std::string(); }
    const BusDiagnosis& Diagnosis() const { return diagnosis_; }
    // Frames heard over every setting tried.
    std::size_t Frames() const { return frames_ + diagnosis_.Frames(); }

private:
    std::unique_ptr<SettingsSearch> search_;
    Detector detector_;
    BusDiagnosis diagnosis_;
    std::vector<Heard> heard_;
    std::size_t frames_ = 0;
};

} // namespace quellpad::bus
