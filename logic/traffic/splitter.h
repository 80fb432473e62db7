#pragma once

#include "traffic_row.h"

#include "protocol/decoders.h"

#include <QString>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quellpad::traffic {

// The command language of the keyboard's mode; none for a mode that has no decoder.
std::optional<protocol::Language> LanguageOfMode(const QString& mode);

// A run of bytes off the wire: a command or reply, or bytes that decoded to nothing.
struct Piece {
    std::string bytes;
    std::optional<protocol::Command> command;
};

// Cuts the bytes of one direction of one port into commands or replies with the decoders
// of a language, keeping the bytes that decode to nothing as pieces of their own, so that
// every byte of the wire turns up in exactly one piece. Bytes may arrive split anywhere.
class Splitter {
public:
    Splitter(std::optional<protocol::Language> language, Way way);

    // Appends a piece per command completed by the bytes, each after the bytes before it
    // that decoded to nothing.
    void Feed(std::span<const std::uint8_t> bytes, std::vector<Piece>& out);
    // Gives up on what is held (a reply cut short, noise) as bytes that decoded to
    // nothing, and starts afresh.
    void Flush(std::vector<Piece>& out);
    bool Holding() const { return !held_.empty(); }
    std::optional<protocol::Language> DecodedLanguage() const { return language_; }

    // Most bytes held while waiting for a command to end: longer than any frame or text.
    static constexpr std::size_t kMostHeld = 256;

private:
    void Restart();
    void Take(const protocol::Command& command, std::vector<Piece>& out);

    std::optional<protocol::Language> language_;
    Way way_;
    std::vector<std::unique_ptr<protocol::Decoder>> decoders_;
    // In the text languages, the D and P frames on a shared wire, read only to know where
    // they end: the byte after a frame starts the next text.
    std::vector<std::unique_ptr<protocol::Decoder>> frames_;
    std::vector<protocol::Command> decoded_;
    std::string held_;
};

// What a piece means in the operator's words, from the keyboard's side of `port`:
// "COM 1 → camera 1: pan right 32", "camera 1 ← pan position 123.45°",
// "switcher: monitor 12", "not decoded: 12 34".
QString Meaning(int port, Way way, const Piece& piece);
// A command as the equipment heard it, "camera 1: pan right 32", or an answer it sent,
// "camera 1 ← pan position 123.45°", "switcher ← 4ia": the same words as Meaning.
QString EquipmentMeaning(Way way, const protocol::Command& command);

} // namespace quellpad::traffic
