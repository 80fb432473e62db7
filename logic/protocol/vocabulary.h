#pragma once

// The vocabulary of the four languages: the command codes and motion bits of D and P
// frames, the reply codes of a D receiver, and the mnemonics of the switcher's ASCII and
// the multiplexer's MUX ASCII. The keyboard, its command windows, the simulated site, the
// scanner and the decoders all take their bytes from here.

#include "commands.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace quellpad::protocol {

// Command2 of the one-shot commands of a D or P receiver: always odd, which is what tells
// them from a motion frame.
namespace code {
inline constexpr std::uint8_t kSetPreset = 0x03;
inline constexpr std::uint8_t kClearPreset = 0x05;
inline constexpr std::uint8_t kGoPreset = 0x07;
inline constexpr std::uint8_t kSetAux = 0x09;
inline constexpr std::uint8_t kClearAux = 0x0B;
inline constexpr std::uint8_t kRemoteReset = 0x0F;
inline constexpr std::uint8_t kSetZoneStart = 0x11;
inline constexpr std::uint8_t kSetZoneEnd = 0x13;
inline constexpr std::uint8_t kWriteCharacter = 0x15;
inline constexpr std::uint8_t kClearScreen = 0x17;
inline constexpr std::uint8_t kZoneScanOn = 0x1B;
inline constexpr std::uint8_t kZoneScanOff = 0x1D;
inline constexpr std::uint8_t kStartPatternRecord = 0x1F;
inline constexpr std::uint8_t kEndPatternRecord = 0x21;
inline constexpr std::uint8_t kRunPattern = 0x23;
inline constexpr std::uint8_t kZoomSpeed = 0x25;
inline constexpr std::uint8_t kFocusSpeed = 0x27;
inline constexpr std::uint8_t kResetCamera = 0x29;
inline constexpr std::uint8_t kAutoFocus = 0x2B;
inline constexpr std::uint8_t kAutoIris = 0x2D;
inline constexpr std::uint8_t kAutoAgc = 0x2F;
inline constexpr std::uint8_t kBacklight = 0x31;
inline constexpr std::uint8_t kAutoWhite = 0x33;
inline constexpr std::uint8_t kShutterSpeed = 0x37;
inline constexpr std::uint8_t kRedGain = 0x3B;
inline constexpr std::uint8_t kBlueGain = 0x3D;
inline constexpr std::uint8_t kIrisLevel = 0x41;
inline constexpr std::uint8_t kIrisPeak = 0x43;
inline constexpr std::uint8_t kQuerySetup = 0x45;
inline constexpr std::uint8_t kSetZeroPosition = 0x49;
inline constexpr std::uint8_t kSetPan = 0x4B;
inline constexpr std::uint8_t kSetTilt = 0x4D;
inline constexpr std::uint8_t kSetZoom = 0x4F;
inline constexpr std::uint8_t kQueryPan = 0x51;
inline constexpr std::uint8_t kQueryTilt = 0x53;
inline constexpr std::uint8_t kQueryZoom = 0x55;
inline constexpr std::uint8_t kPrepareDownload = 0x57;
inline constexpr std::uint8_t kSetMagnification = 0x5F;
inline constexpr std::uint8_t kQueryMagnification = 0x61;
inline constexpr std::uint8_t kEchoMode = 0x65;
inline constexpr std::uint8_t kStartDownload = 0x69;
inline constexpr std::uint8_t kQueryDevice = 0x6B;
inline constexpr std::uint8_t kQueryDiagnostic = 0x6F;

// A D receiver's answer to a position query: the query's code plus 8.
inline constexpr std::uint8_t kPanReply = 0x59;
inline constexpr std::uint8_t kTiltReply = 0x5B;
inline constexpr std::uint8_t kZoomReply = 0x5D;
inline constexpr std::uint8_t kMagnificationReply = 0x63;
} // namespace code

// The motion bits of a frame. Pan, tilt and zoom sit in Command2 in both languages; the
// focus and iris bits differ between them.
namespace bit {
inline constexpr std::uint8_t kOneShot = 0x01; // Command2: a one-shot command, not motion
inline constexpr std::uint8_t kPanRight = 0x02;
inline constexpr std::uint8_t kPanLeft = 0x04;
inline constexpr std::uint8_t kTiltUp = 0x08;
inline constexpr std::uint8_t kTiltDown = 0x10;
inline constexpr std::uint8_t kZoomIn = 0x20;
inline constexpr std::uint8_t kZoomOut = 0x40;
// D: focus far is Command2's top bit, focus near and the iris are in Command1.
inline constexpr std::uint8_t kDFocusFar = 0x80;
inline constexpr std::uint8_t kDFocusNear = 0x01;
inline constexpr std::uint8_t kDIrisOpen = 0x02;
inline constexpr std::uint8_t kDIrisClose = 0x04;
inline constexpr std::uint8_t kDLens = kDFocusNear | kDIrisOpen | kDIrisClose;
// P: every lens bit is in Command1.
inline constexpr std::uint8_t kPFocusFar = 0x01;
inline constexpr std::uint8_t kPFocusNear = 0x02;
inline constexpr std::uint8_t kPIrisOpen = 0x04;
inline constexpr std::uint8_t kPIrisClose = 0x08;
inline constexpr std::uint8_t kPLens = kPFocusFar | kPFocusNear | kPIrisOpen | kPIrisClose;
} // namespace bit

// How the two data bytes of a one-shot command are read.
enum class Args : std::uint8_t { None, Data2, Value, Column };

struct OneShot {
    std::uint8_t code;
    Kind kind;
    Args args;
};

inline constexpr std::array kOneShots = {
    OneShot{code::kSetPreset, Kind::SetPreset, Args::Data2},
    OneShot{code::kClearPreset, Kind::ClearPreset, Args::Data2},
    OneShot{code::kGoPreset, Kind::GoPreset, Args::Data2},
    OneShot{code::kSetAux, Kind::SetAux, Args::Data2},
    OneShot{code::kClearAux, Kind::ClearAux, Args::Data2},
    OneShot{code::kRemoteReset, Kind::RemoteReset, Args::None},
    OneShot{code::kSetZoneStart, Kind::SetZoneStart, Args::Data2},
    OneShot{code::kSetZoneEnd, Kind::SetZoneEnd, Args::Data2},
    OneShot{code::kWriteCharacter, Kind::WriteCharacter, Args::Column},
    OneShot{code::kClearScreen, Kind::ClearScreen, Args::None},
    OneShot{code::kZoneScanOn, Kind::ZoneScanOn, Args::None},
    OneShot{code::kZoneScanOff, Kind::ZoneScanOff, Args::None},
    OneShot{code::kStartPatternRecord, Kind::StartPatternRecord, Args::Data2},
    OneShot{code::kEndPatternRecord, Kind::EndPatternRecord, Args::Data2},
    OneShot{code::kRunPattern, Kind::RunPattern, Args::Data2},
    OneShot{code::kZoomSpeed, Kind::ZoomSpeed, Args::Data2},
    OneShot{code::kFocusSpeed, Kind::FocusSpeed, Args::Data2},
    OneShot{code::kResetCamera, Kind::ResetCamera, Args::None},
    OneShot{code::kAutoFocus, Kind::AutoFocus, Args::Data2},
    OneShot{code::kAutoIris, Kind::AutoIris, Args::Data2},
    OneShot{code::kAutoAgc, Kind::AutoAgc, Args::Data2},
    OneShot{code::kBacklight, Kind::Backlight, Args::Data2},
    OneShot{code::kAutoWhite, Kind::AutoWhite, Args::Data2},
    OneShot{code::kShutterSpeed, Kind::ShutterSpeed, Args::Data2},
    OneShot{code::kRedGain, Kind::RedGain, Args::Value},
    OneShot{code::kBlueGain, Kind::BlueGain, Args::Value},
    OneShot{code::kIrisLevel, Kind::IrisLevel, Args::Data2},
    OneShot{code::kIrisPeak, Kind::IrisPeak, Args::Data2},
    OneShot{code::kQuerySetup, Kind::QuerySetup, Args::None},
    OneShot{code::kSetZeroPosition, Kind::SetZeroPosition, Args::None},
    OneShot{code::kSetPan, Kind::SetPan, Args::Value},
    OneShot{code::kSetTilt, Kind::SetTilt, Args::Value},
    OneShot{code::kSetZoom, Kind::SetZoom, Args::Value},
    OneShot{code::kQueryPan, Kind::QueryPan, Args::None},
    OneShot{code::kQueryTilt, Kind::QueryTilt, Args::None},
    OneShot{code::kQueryZoom, Kind::QueryZoom, Args::None},
    OneShot{code::kPrepareDownload, Kind::PrepareDownload, Args::None},
    OneShot{code::kSetMagnification, Kind::SetMagnification, Args::Value},
    OneShot{code::kQueryMagnification, Kind::QueryMagnification, Args::None},
    OneShot{code::kEchoMode, Kind::EchoMode, Args::None},
    OneShot{code::kStartDownload, Kind::StartDownload, Args::None},
    OneShot{code::kQueryDevice, Kind::QueryDevice, Args::None},
    OneShot{code::kQueryDiagnostic, Kind::QueryDiagnostic, Args::None},
};

inline constexpr std::array<std::pair<std::uint8_t, Kind>, 4> kReplyCodes = {{
    {code::kPanReply, Kind::PanReply},
    {code::kTiltReply, Kind::TiltReply},
    {code::kZoomReply, Kind::ZoomReply},
    {code::kMagnificationReply, Kind::MagnificationReply},
}};

// Whether a text's number may or must come before its mnemonic.
enum class Number : std::uint8_t { None, Optional, Required };
// Texts whose free-text argument follows as a text of its own, up to the next "a".
enum class Free : std::uint8_t { No, UpToBang, Time };

struct Word {
    std::string_view mnemonic;
    Language language;
    Kind kind;
    Number number;
    Direction direction = Direction::PanLeft;
    Free free = Free::No;
};

namespace detail {
inline constexpr Language A = Language::Ascii;
inline constexpr Language M = Language::MuxAscii;
} // namespace detail

// Every text of the switcher and the multiplexer. A text ends in "a" (switcher) or "m"
// (multiplexer); its number, when it has one, comes before the mnemonic.
inline constexpr std::array kWords = {
    Word{"Ma", detail::A, Kind::SelectMonitor, Number::Required},
    Word{"#a", detail::A, Kind::SelectCamera, Number::Required},
    Word{"+a", detail::A, Kind::NextCamera, Number::None},
    Word{"-a", detail::A, Kind::PreviousCamera, Number::None},
    Word{"ia", detail::A, Kind::NextAlarm, Number::Optional},
    Word{"da", detail::A, Kind::PreviousAlarm, Number::Optional},
    Word{"Ea", detail::A, Kind::TriggerAlarm, Number::Required},
    Word{"Ia", detail::A, Kind::ResetAlarm, Number::Optional},
    Word{"Aa", detail::A, Kind::AuxOn, Number::Required},
    Word{"Ba", detail::A, Kind::AuxOff, Number::Required},
    Word{"xa", detail::A, Kind::GpiOn, Number::Required},
    Word{"~xa", detail::A, Kind::GpiOff, Number::Required},
    Word{"Sa", detail::A, Kind::StartMacro, Number::Required},
    Word{"Ha", detail::A, Kind::HaltMacro, Number::Required},
    Word{"qa", detail::A, Kind::StartSequence, Number::Required},
    Word{"ea", detail::A, Kind::HaltSequence, Number::Required},
    Word{"ta", detail::A, Kind::StartTour, Number::Required},
    Word{"ra", detail::A, Kind::HaltTour, Number::Required},
    Word{"\\a", detail::A, Kind::GoPreset, Number::Required},
    Word{"^a", detail::A, Kind::SetPreset, Number::Required},
    Word{"/a", detail::A, Kind::StartPatternRecord, Number::Required},
    Word{"na", detail::A, Kind::EndPatternRecord, Number::Required},
    Word{"pa", detail::A, Kind::RunPattern, Number::Required},
    Word{"Ga", detail::A, Kind::LockCamera, Number::None},
    Word{"~Ga", detail::A, Kind::UnlockCamera, Number::None},
    Word{"oa", detail::A, Kind::OverrideLock, Number::None},
    Word{"la", detail::A, Kind::Label, Number::None, Direction::PanLeft, Free::UpToBang},
    Word{"Ya", detail::A, Kind::CameraTitle, Number::Required, Direction::PanLeft, Free::UpToBang},
    Word{"Za", detail::A, Kind::TimeUpdate, Number::None, Direction::PanLeft, Free::Time},
    Word{"sa", detail::A, Kind::StopAll, Number::None},
    Word{"La", detail::A, Kind::DirectionStart, Number::Required, Direction::PanLeft},
    Word{"~La", detail::A, Kind::DirectionStop, Number::None, Direction::PanLeft},
    Word{"Ra", detail::A, Kind::DirectionStart, Number::Required, Direction::PanRight},
    Word{"~Ra", detail::A, Kind::DirectionStop, Number::None, Direction::PanRight},
    Word{"Ua", detail::A, Kind::DirectionStart, Number::Required, Direction::TiltUp},
    Word{"~Ua", detail::A, Kind::DirectionStop, Number::None, Direction::TiltUp},
    Word{"Da", detail::A, Kind::DirectionStart, Number::Required, Direction::TiltDown},
    Word{"~Da", detail::A, Kind::DirectionStop, Number::None, Direction::TiltDown},
    Word{"Ta", detail::A, Kind::DirectionStart, Number::None, Direction::ZoomIn},
    Word{"~Ta", detail::A, Kind::DirectionStop, Number::None, Direction::ZoomIn},
    Word{"Wa", detail::A, Kind::DirectionStart, Number::None, Direction::ZoomOut},
    Word{"~Wa", detail::A, Kind::DirectionStop, Number::None, Direction::ZoomOut},
    Word{"Na", detail::A, Kind::DirectionStart, Number::None, Direction::FocusNear},
    Word{"~Na", detail::A, Kind::DirectionStop, Number::None, Direction::FocusNear},
    Word{"Fa", detail::A, Kind::DirectionStart, Number::None, Direction::FocusFar},
    Word{"~Fa", detail::A, Kind::DirectionStop, Number::None, Direction::FocusFar},
    Word{"Oa", detail::A, Kind::DirectionStart, Number::None, Direction::IrisOpen},
    Word{"~Oa", detail::A, Kind::DirectionStop, Number::None, Direction::IrisOpen},
    Word{"Ca", detail::A, Kind::DirectionStart, Number::None, Direction::IrisClose},
    Word{"~Ca", detail::A, Kind::DirectionStop, Number::None, Direction::IrisClose},
    Word{"dLm", detail::M, Kind::DirectionStart, Number::None, Direction::PanLeft},
    Word{"~dLm", detail::M, Kind::DirectionStop, Number::None, Direction::PanLeft},
    Word{"dRm", detail::M, Kind::DirectionStart, Number::None, Direction::PanRight},
    Word{"~dRm", detail::M, Kind::DirectionStop, Number::None, Direction::PanRight},
    Word{"dUm", detail::M, Kind::DirectionStart, Number::None, Direction::TiltUp},
    Word{"~dUm", detail::M, Kind::DirectionStop, Number::None, Direction::TiltUp},
    Word{"dDm", detail::M, Kind::DirectionStart, Number::None, Direction::TiltDown},
    Word{"~dDm", detail::M, Kind::DirectionStop, Number::None, Direction::TiltDown},
    Word{"ym", detail::M, Kind::DigitalZoom, Number::None},
    Word{"im", detail::M, Kind::Pip, Number::None},
    Word{"um", detail::M, Kind::Quad, Number::None},
    Word{"om", detail::M, Kind::Nano, Number::None},
    Word{"xm", detail::M, Kind::Hex, Number::None},
    Word{"#m", detail::M, Kind::MuxCamera, Number::Required},
    Word{"<m", detail::M, Kind::VcrEject, Number::None},
    Word{"rm", detail::M, Kind::VcrRecord, Number::None},
    Word{"em", detail::M, Kind::VcrPause, Number::None},
    Word{">>m", detail::M, Kind::VcrFastForward, Number::None},
    Word{"<<m", detail::M, Kind::VcrRewind, Number::None},
    Word{"sm", detail::M, Kind::VcrStop, Number::None},
    Word{">m", detail::M, Kind::VcrPlay, Number::None},
};

// The mnemonic of a text that says one thing ("Ma" for a monitor); empty for a kind that
// has none or that needs a direction.
constexpr std::string_view Mnemonic(Kind kind) {
    for (const Word& word : kWords) {
        if (word.kind == kind && kind != Kind::DirectionStart && kind != Kind::DirectionStop) {
            return word.mnemonic;
        }
    }
    return {};
}

// The mnemonic that starts or stops one direction in ASCII or MUX ASCII ("Ra", "~dRm");
// empty where the language has none for it.
constexpr std::string_view DirectionMnemonic(Language language, Direction direction, bool start) {
    const Kind kind = start ? Kind::DirectionStart : Kind::DirectionStop;
    for (const Word& word : kWords) {
        if (word.language == language && word.kind == kind && word.direction == direction) {
            return word.mnemonic;
        }
    }
    return {};
}

// Presets with a meaning of their own to a receiver, recalled with code::kGoPreset.
namespace preset {
inline constexpr std::uint8_t kFlip = 33;    // turns the camera over
inline constexpr std::uint8_t kZeroPan = 34; // the zero-pan position
inline constexpr std::uint8_t kMenu = 95;    // set: the call for the on-screen menu
} // namespace preset

// What ends the free text of a label or a camera title.
inline constexpr std::string_view kFreeTextEnd = "!a";

// The end character of each text language.
inline constexpr char kAsciiEnd = 'a';
inline constexpr char kMuxAsciiEnd = 'm';

} // namespace quellpad::protocol
