#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quellpad::protocol {

// The four command languages a line can carry.
enum class Language : std::uint8_t { D, P, Ascii, MuxAscii };

// One lens or head movement that the ASCII languages start and stop on its own.
enum class Direction : std::uint8_t {
    PanLeft,
    PanRight,
    TiltUp,
    TiltDown,
    ZoomIn,
    ZoomOut,
    FocusNear,
    FocusFar,
    IrisOpen,
    IrisClose,
};

// Everything a receiver, switcher or multiplexer can be told by this keyboard, and the two
// replies of a D receiver.
enum class Kind : std::uint8_t {
    Unknown,
    // D and P frames.
    Motion, // the whole motion state of a frame: directions, speeds, lens
    SetPreset,
    ClearPreset,
    GoPreset,
    SetAux,
    ClearAux,
    RemoteReset,
    SetZoneStart,
    SetZoneEnd,
    WriteCharacter,
    ClearScreen,
    ZoneScanOn,
    ZoneScanOff,
    StartPatternRecord,
    EndPatternRecord,
    RunPattern,
    ZoomSpeed,
    FocusSpeed,
    ResetCamera,
    AutoFocus,
    AutoIris,
    AutoAgc,
    Backlight,
    AutoWhite,
    ShutterSpeed,
    RedGain,
    BlueGain,
    IrisLevel,
    IrisPeak,
    QuerySetup,
    SetZeroPosition,
    SetPan,
    SetTilt,
    SetZoom,
    SetMagnification,
    QueryPan,
    QueryTilt,
    QueryZoom,
    QueryMagnification,
    QueryDevice,
    QueryDiagnostic,
    EchoMode,
    PrepareDownload,
    StartDownload,
    // D replies.
    PanReply,
    TiltReply,
    ZoomReply,
    MagnificationReply,
    GeneralReply,
    // ASCII and MUX ASCII: one direction at a time.
    DirectionStart,
    DirectionStop,
    StopAll,
    // Switcher.
    SelectMonitor,
    SelectCamera,
    NextCamera,
    PreviousCamera,
    NextAlarm,
    PreviousAlarm,
    TriggerAlarm,
    ResetAlarm,
    AuxOn,
    AuxOff,
    GpiOn,
    GpiOff,
    StartMacro,
    HaltMacro,
    StartSequence,
    HaltSequence,
    StartTour,
    HaltTour,
    Label,
    CameraTitle,
    TimeUpdate,
    LockCamera,
    UnlockCamera,
    OverrideLock,
    // Multiplexer.
    DigitalZoom,
    Pip,
    Quad,
    Nano,
    Hex,
    MuxCamera,
    VcrEject,
    VcrRecord,
    VcrPause,
    VcrFastForward,
    VcrRewind,
    VcrStop,
    VcrPlay,
};

// The motion state of one D or P frame. -1, 0, +1 per axis: pan left/right, tilt
// down/up, zoom out/in, focus near/far, iris close/open.
struct Motion {
    std::int8_t pan = 0;
    std::uint8_t panSpeed = 0;
    std::int8_t tilt = 0;
    std::uint8_t tiltSpeed = 0;
    std::int8_t zoom = 0;
    std::int8_t focus = 0;
    std::int8_t iris = 0;

    bool Still() const { return pan == 0 && tilt == 0 && zoom == 0 && focus == 0 && iris == 0; }
    bool operator==(const Motion&) const = default;
};

struct Command {
    Language language = Language::D;
    Kind kind = Kind::Unknown;
    // Receiver address of a D or P frame, 1..256 (a P frame carries it less one).
    int address = 0;
    // The number of the command: preset, aux, zone, pattern, monitor, camera, alarm,
    // speed, level; for WriteCharacter the column. -1 when the command has none.
    std::int64_t number = -1;
    // Two-byte value of a position, a reply or a gain; the character of WriteCharacter.
    int value = 0;
    Motion motion;
    Direction direction = Direction::PanLeft;
    // Label, title or time text.
    std::string text;
    // The bytes as they came off the wire.
    std::string bytes;

    // The command in the operator's words: "pan right 32", "set preset 5", "monitor 12".
    std::string Describe() const;
};

std::string DirectionName(Direction direction);

// Gives the words of Describe and DirectionName in another language: the translator gets
// each English word or phrase and returns it translated. Without one, or with nullptr, the
// words are English.
using WordTranslator = std::string (*)(const char* english);
void SetWordTranslator(WordTranslator translator);

inline std::span<const std::uint8_t> AsBytes(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace quellpad::protocol
