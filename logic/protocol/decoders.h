#pragma once

#include "commands.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quellpad::protocol {

// Every decoder is fed the bytes of a line as they arrive, split anywhere, and appends the
// commands completed by them. What a receiver would throw away (a bad check byte, a frame
// cut short by the next start byte, noise between frames) yields nothing and is only
// counted; a well-formed frame or text outside the vocabulary yields Kind::Unknown with
// its bytes. Memory is bounded by the longest frame or text, whatever comes in.
class Decoder {
public:
    virtual ~Decoder() = default;
    virtual void Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) = 0;
    std::vector<Command> Feed(std::span<const std::uint8_t> bytes) {
        std::vector<Command> out;
        Feed(bytes, out);
        return out;
    }
    // Part of a frame has been heard and the rest is awaited.
    virtual bool InFrame() const { return false; }
    // On a wire that also carries D and P frames: a frame that checks has just ended with
    // the last byte fed. Its printable bytes are no text, and the byte after it starts
    // afresh, as a frame is whole at its length. Only the text decoders care.
    virtual void FrameEnded() {}
    // Frames or texts thrown away so far.
    std::size_t Rejected() const { return rejected_; }

protected:
    std::size_t rejected_ = 0;
};

// FF addr cmd1 cmd2 data1 data2 sum: the check is the sum of bytes 1..5.
class DFrameDecoder final : public Decoder {
public:
    using Decoder::Feed;
    void Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) override;
    bool InFrame() const override { return !frame_.empty(); }

private:
    std::string frame_;
};

// A0 addr-1 cmd1 cmd2 data1 data2 AF xor: the check is the exclusive-or of bytes 0..6.
class PFrameDecoder final : public Decoder {
public:
    using Decoder::Feed;
    void Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) override;
    bool InFrame() const override { return !frame_.empty(); }

private:
    std::string frame_;
};

// What a D receiver sends back: FF addr 00 59/5B/5D/63 hi lo sum after a position query,
// FF addr 00 sum after anything else.
class DReplyDecoder final : public Decoder {
public:
    using Decoder::Feed;
    void Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) override;

private:
    std::string frame_;
};

// The switcher's ("ASCII", mnemonics ending in "a") or the multiplexer's ("MUX ASCII",
// ending in "m") texts: an optional number and a mnemonic, no terminator. Both languages
// share a wire in a mixed installation, so each decoder steps over the other's texts
// without a word; the label, title and time texts carry free text up to their own end.
class AsciiDecoder final : public Decoder {
public:
    explicit AsciiDecoder(Language language);
    using Decoder::Feed;
    void Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) override;
    void FrameEnded() override;

    // Longest text kept while waiting for its end.
    static constexpr std::size_t kMaxText = 40;

private:
    void Finish(std::vector<Command>& out);
    void Drop();

    Language language_;
    std::string text_;
    // The mnemonic of a text whose free-text argument is being read ("la", "Ya", "Za").
    std::string pending_;
    std::string pendingBytes_;
    // After an overlong text: everything up to the next end is part of it.
    bool skipping_ = false;
};

// Decodes one D or P frame that is already known to be whole and checked.
Command DecodeFrame(Language language, std::span<const std::uint8_t> frame);

} // namespace quellpad::protocol
