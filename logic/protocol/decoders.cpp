#include "decoders.h"

#include "frames.h"
#include "vocabulary.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quellpad::protocol {

namespace {

std::uint8_t At(const std::string& frame, std::size_t i) {
    return static_cast<std::uint8_t>(frame[i]);
}

bool IsReplyCode(std::uint8_t code) {
    return std::any_of(kReplyCodes.begin(), kReplyCodes.end(),
                       [code](const auto& reply) { return reply.first == code; });
}

// Drops the frame's start byte and keeps whatever follows from the next start byte on,
// as a receiver that has lost the frame hunts for the next one.
void HuntFrom(std::string& frame, std::uint8_t start) {
    const auto next = frame.find(static_cast<char>(start), 1);
    frame.erase(0, next == std::string::npos ? frame.size() : next);
}

} // namespace

Command DecodeFrame(Language language, std::span<const std::uint8_t> frame) {
    Command command;
    command.language = language;
    command.bytes.assign(reinterpret_cast<const char*>(frame.data()), frame.size());
    command.address = language == Language::P ? frame[1] + 1 : frame[1];
    const std::uint8_t c1 = frame[2];
    const std::uint8_t c2 = frame[3];
    const std::uint8_t d1 = frame[4];
    const std::uint8_t d2 = frame[5];
    if ((c2 & bit::kOneShot) != 0) {
        const auto* found = std::find_if(kOneShots.begin(), kOneShots.end(),
                                         [c2](const OneShot& e) { return e.code == c2; });
        if (found == kOneShots.end()) {
            return command;
        }
        command.kind = found->kind;
        switch (found->args) {
        case Args::None:
            break;
        case Args::Data2:
            command.number = d2;
            break;
        case Args::Value:
            command.value = d1 * 256 + d2;
            break;
        case Args::Column:
            command.number = d1;
            command.value = d2;
            break;
        }
        return command;
    }
    // A motion frame: bits outside the keyboard's vocabulary make it unknown.
    const bool d = language == Language::D;
    // Command2's top bit is D's focus far; a P frame has no bit there.
    const std::uint8_t lens = d ? bit::kDLens : bit::kPLens;
    if ((c1 & ~lens) != 0 || (!d && (c2 & bit::kDFocusFar) != 0)) {
        return command;
    }
    Motion& m = command.motion;
    const auto axis = [](bool plus, bool minus) -> std::int8_t {
        return plus == minus ? 0 : (plus ? 1 : -1);
    };
    m.pan = axis((c2 & bit::kPanRight) != 0, (c2 & bit::kPanLeft) != 0);
    m.tilt = axis((c2 & bit::kTiltUp) != 0, (c2 & bit::kTiltDown) != 0);
    m.zoom = axis((c2 & bit::kZoomIn) != 0, (c2 & bit::kZoomOut) != 0);
    if (d) {
        m.focus = axis((c2 & bit::kDFocusFar) != 0, (c1 & bit::kDFocusNear) != 0);
        m.iris = axis((c1 & bit::kDIrisOpen) != 0, (c1 & bit::kDIrisClose) != 0);
    } else {
        m.focus = axis((c1 & bit::kPFocusFar) != 0, (c1 & bit::kPFocusNear) != 0);
        m.iris = axis((c1 & bit::kPIrisOpen) != 0, (c1 & bit::kPIrisClose) != 0);
    }
    m.panSpeed = m.pan != 0 ? d1 : 0;
    m.tiltSpeed = m.tilt != 0 ? d2 : 0;
    command.kind = Kind::Motion;
    return command;
}

void DFrameDecoder::Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) {
    for (const std::uint8_t byte : bytes) {
        if (frame_.empty() && byte != kDStart) {
            continue; // noise between frames
        }
        frame_ += static_cast<char>(byte);
        if (frame_.size() < 7) {
            continue;
        }
        std::uint8_t sum = 0;
        for (std::size_t i = 1; i < 6; ++i) {
            sum = static_cast<std::uint8_t>(sum + At(frame_, i));
        }
        if (sum == At(frame_, 6)) {
            out.push_back(DecodeFrame(Language::D, AsBytes(frame_)));
            frame_.clear();
        } else {
            ++rejected_;
            HuntFrom(frame_, kDStart);
        }
    }
}

void PFrameDecoder::Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) {
    for (const std::uint8_t byte : bytes) {
        if (frame_.empty() && byte != kPStart) {
            continue;
        }
        frame_ += static_cast<char>(byte);
        if (frame_.size() < 8) {
            continue;
        }
        std::uint8_t check = 0;
        for (std::size_t i = 0; i < 7; ++i) {
            check = static_cast<std::uint8_t>(check ^ At(frame_, i));
        }
        if (At(frame_, 6) == kPMarker && check == At(frame_, 7)) {
            out.push_back(DecodeFrame(Language::P, AsBytes(frame_)));
            frame_.clear();
        } else {
            ++rejected_;
            HuntFrom(frame_, kPStart);
        }
    }
}

void DReplyDecoder::Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) {
    const auto emit = [&out](Kind kind, std::string frameBytes, int value) {
        Command reply;
        reply.language = Language::D;
        reply.kind = kind;
        reply.address = static_cast<std::uint8_t>(frameBytes[1]);
        reply.value = value;
        reply.bytes = std::move(frameBytes);
        out.push_back(std::move(reply));
    };
    std::size_t next = 0;
    // Bytes of a lost reply looked at again for the next start, and what follows a general
    // reply that turned up inside a broken position reply.
    std::string again;
    const auto lose = [this, &again]() {
        ++rejected_;
        again = frame_.substr(1) + again;
        frame_.clear();
    };
    while (next < bytes.size() || !again.empty()) {
        std::uint8_t byte = 0;
        if (!again.empty()) {
            byte = static_cast<std::uint8_t>(again.front());
            again.erase(0, 1);
        } else {
            byte = bytes[next++];
        }
        if (frame_.empty() && byte != kDStart) {
            continue;
        }
        frame_ += static_cast<char>(byte);
        const std::size_t size = frame_.size();
        if (size == 3 && At(frame_, 2) != 0) {
            lose();
        } else if (size == 4 && !IsReplyCode(At(frame_, 3))) {
            if (At(frame_, 3) == At(frame_, 1)) {
                emit(Kind::GeneralReply, frame_, 0);
                frame_.clear();
            } else {
                lose();
            }
        } else if (size == 7) {
            const auto sum = static_cast<std::uint8_t>(At(frame_, 1) + At(frame_, 3) +
                                                       At(frame_, 4) + At(frame_, 5));
            const auto* reply =
                std::find_if(kReplyCodes.begin(), kReplyCodes.end(),
                             [code = At(frame_, 3)](const auto& r) { return r.first == code; });
            if (sum == At(frame_, 6)) {
                emit(reply->second, frame_, At(frame_, 4) * 256 + At(frame_, 5));
                frame_.clear();
            } else if (At(frame_, 3) == At(frame_, 1)) {
                // An address equal to a reply code: it was a general reply after all.
                again = frame_.substr(4) + again;
                emit(Kind::GeneralReply, frame_.substr(0, 4), 0);
                frame_.clear();
            } else {
                lose();
            }
        }
    }
}

namespace {

constexpr std::size_t kMaxDigits = 9;

std::int64_t DigitsValue(std::string_view digits) {
    std::int64_t value = 0;
    for (const char c : digits) {
        value = value * 10 + (c - '0');
    }
    return value;
}

bool IsTimeText(std::string_view text) {
    // mm/dd/yy/hh:mm:ss
    constexpr std::string_view shape = "00/00/00/00:00:00";
    if (text.size() != shape.size()) {
        return false;
    }
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (shape[i] == '0' ? !digit : text[i] != shape[i]) {
            return false;
        }
    }
    return true;
}

} // namespace

AsciiDecoder::AsciiDecoder(Language language) : language_(language) {}

void AsciiDecoder::Drop() {
    ++rejected_;
    skipping_ = true;
    text_.clear();
    pending_.clear();
    pendingBytes_.clear();
}

void AsciiDecoder::FrameEnded() {
    // Not counted as a lost text: these bytes were never one.
    skipping_ = false;
    text_.clear();
    pending_.clear();
    pendingBytes_.clear();
}

void AsciiDecoder::Finish(std::vector<Command>& out) {
    const char end = text_.back();
    const Language owner = end == 'a' ? Language::Ascii : Language::MuxAscii;
    Command command;
    command.language = language_;

    if (!pending_.empty()) {
        // The free text of a label, title or time text.
        const auto* word = std::find_if(kWords.begin(), kWords.end(), [this](const Word& w) {
            return w.mnemonic ==
                   std::string_view(pending_).substr(pending_.find_first_not_of("0123456789 "));
        });
        command.bytes = pendingBytes_ + text_;
        std::string_view body(text_);
        body.remove_suffix(1);
        const bool good =
            word->free == Free::Time ? IsTimeText(body) : (!body.empty() && body.back() == '!');
        if (good) {
            if (word->free == Free::UpToBang) {
                body.remove_suffix(1);
            }
            command.kind = word->kind;
            command.text = std::string(body);
            const auto first = pending_.find_first_of("0123456789");
            if (first != std::string::npos) {
                const auto last = pending_.find_first_not_of("0123456789", first);
                command.number =
                    DigitsValue(std::string_view(pending_).substr(first, last - first));
            }
        }
        pending_.clear();
        pendingBytes_.clear();
        text_.clear();
        if (language_ == Language::Ascii) {
            out.push_back(std::move(command));
        }
        return;
    }

    command.bytes = text_;
    // A leading blank is the runtime's sign place of a camera title's number.
    std::string_view body(text_);
    while (!body.empty() && body.front() == ' ') {
        body.remove_prefix(1);
    }
    std::size_t digits = 0;
    while (digits < body.size() && body[digits] >= '0' && body[digits] <= '9') {
        ++digits;
    }
    const std::string_view mnemonic = body.substr(digits);
    if (mnemonic.size() < 2) {
        // A bare end character is no text at all: noise that happened to end like one.
        ++rejected_;
        text_.clear();
        return;
    }
    const auto* word = std::find_if(kWords.begin(), kWords.end(),
                                    [mnemonic](const Word& w) { return w.mnemonic == mnemonic; });
    const bool known = word != kWords.end() && digits <= kMaxDigits &&
                       !(word->number == Number::None && digits > 0) &&
                       !(word->number == Number::Required && digits == 0);
    if (known && word->free != Free::No) {
        pending_ = text_;
        pendingBytes_ = text_;
        text_.clear();
        return;
    }
    if (known && digits > 0) {
        command.number = DigitsValue(body.substr(0, digits));
    }
    text_.clear();
    if (owner != language_) {
        // The other language's text, or noise ending like one: not for this equipment.
        if (!known) {
            ++rejected_;
        }
        return;
    }
    if (known) {
        command.kind = word->kind;
        command.direction = word->direction;
    } else {
        command.number = -1;
    }
    out.push_back(std::move(command));
}

void AsciiDecoder::Feed(std::span<const std::uint8_t> bytes, std::vector<Command>& out) {
    for (const std::uint8_t byte : bytes) {
        if (byte < 0x20 || byte >= 0x7F) {
            // Line noise or a binary frame: a text it interrupts is lost.
            if (!text_.empty() || !pending_.empty()) {
                Drop();
                skipping_ = false;
            }
            continue;
        }
        const char c = static_cast<char>(byte);
        if (skipping_) {
            // The rest of a lost text, up to its end.
            skipping_ = c != 'a' && c != 'm';
            continue;
        }
        if (text_.empty() && pending_.empty() && c == ' ') {
            text_ += c; // a camera title's sign place; dropped again if nothing follows
            continue;
        }
        text_ += c;
        const bool end = c == 'a' || (c == 'm' && pending_.empty());
        if (end) {
            Finish(out);
        } else if (text_.size() > kMaxText) {
            Drop();
        }
    }
}

} // namespace quellpad::protocol
