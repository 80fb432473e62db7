#include "detector.h"

#include <algorithm>
#include <string_view>

namespace quellpad::bus {

namespace {

using protocol::Kind;
using protocol::Language;

constexpr std::array kLanguageOrder = {Language::D, Language::P, Language::Ascii,
                                       Language::MuxAscii};

std::size_t IndexOf(Language language) {
    return static_cast<std::size_t>(language);
}

// A text of the ASCII languages that is none of their words is what noise looks like;
// a D or P frame outside the vocabulary still passed its check.
bool IsEvidence(const protocol::Command& command) {
    return command.kind != Kind::Unknown || command.language == Language::D ||
           command.language == Language::P;
}

} // namespace

Detector::Detector() {
    decoders_[IndexOf(Language::D)] = std::make_unique<protocol::DFrameDecoder>();
    decoders_[IndexOf(Language::P)] = std::make_unique<protocol::PFrameDecoder>();
    decoders_[IndexOf(Language::Ascii)] = std::make_unique<protocol::AsciiDecoder>(Language::Ascii);
    decoders_[IndexOf(Language::MuxAscii)] =
        std::make_unique<protocol::AsciiDecoder>(Language::MuxAscii);
}

void Detector::Feed(std::span<const std::uint8_t> bytes, std::vector<Heard>& out) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto one = bytes.subspan(i, 1);
        ++bytes_;
        window_ += static_cast<char>(bytes[i]);
        if (window_.size() > kWindow) {
            window_.erase(0, window_.size() - kWindow);
        }
        replyScratch_.clear();
        replies_.Feed(one, replyScratch_);
        bool frameEnded = false;
        for (const Language language : kLanguageOrder) {
            scratch_.clear();
            protocol::Decoder& decoder = *decoders_[IndexOf(language)];
            const bool wasInFrame = decoder.InFrame();
            const std::size_t rejected = decoder.Rejected();
            decoder.Feed(one, scratch_);
            if (language == Language::D || language == Language::P) {
                Track(IndexOf(language), bytes[i], wasInFrame, rejected, out);
                frameEnded = frameEnded || !scratch_.empty();
            }
            for (const protocol::Command& command : scratch_) {
                // A position answer is as long as a D frame and checks the same way: the
                // reply decoder, which knows its codes, names it.
                if (language == Language::D && !replyScratch_.empty()) {
                    continue;
                }
                if (IsEvidence(command)) {
                    const Heard heard{command, false};
                    Count(heard);
                    out.push_back(heard);
                }
            }
        }
        if (frameEnded) {
            // A frame is whole at its length: the byte after it starts the next text.
            decoders_[IndexOf(Language::Ascii)]->FrameEnded();
            decoders_[IndexOf(Language::MuxAscii)]->FrameEnded();
        }
        if (!replyScratch_.empty()) {
            lastReplyEnd_ = bytes_;
        }
        for (const protocol::Command& reply : replyScratch_) {
            const Heard heard{reply, true};
            Count(heard);
            out.push_back(heard);
        }
        if (counted_) {
            Judge();
            counted_ = false;
        }
    }
    if (verdict_ == Verdict::Listening) {
        Judge(); // noise alone can make garbage
    }
}

void Detector::Track(std::size_t index, std::uint8_t byte, bool wasInFrame, std::size_t rejected,
                     std::vector<Heard>& out) {
    const protocol::Decoder& decoder = *decoders_[index];
    const bool p = index == IndexOf(Language::P);
    const int addressOffset = p ? 1 : 0;
    if (decoder.Rejected() > rejected) {
        // A D frame cut short by the next start byte may have been a receiver's short
        // answer, which the reply decoder has taken.
        const bool answer = !p && lastReplyEnd_ > frameStart_[index];
        if (wasInFrame && frameAddress_[index] > 0 && !answer) {
            Heard bad;
            bad.command.language = kLanguageOrder[index];
            bad.command.address = frameAddress_[index];
            bad.badCheck = true;
            out.push_back(bad);
        }
        frameAddress_[index] = 0;
        frameStart_[index] = 0;
        if (decoder.InFrame()) {
            // The decoder hunts for the next start byte inside the frame it threw away.
            const std::size_t length = p ? 8 : 7;
            const std::string_view held = std::string_view(window_).substr(window_.size() - length);
            const std::size_t next = held.find(static_cast<char>(p ? 0xA0 : 0xFF), 1);
            frameStart_[index] = bytes_ - (length - 1 - next);
            if (next + 1 < length) {
                frameAddress_[index] = static_cast<std::uint8_t>(held[next + 1]) + addressOffset;
            }
        }
    } else if (!wasInFrame && decoder.InFrame()) {
        frameStart_[index] = bytes_;
        frameAddress_[index] = 0;
    } else if (wasInFrame && bytes_ == frameStart_[index] + 1) {
        frameAddress_[index] = byte + addressOffset;
    }
}

void Detector::Count(const Heard& heard) {
    const std::size_t index = IndexOf(heard.command.language);
    Tally& tally = tallies_[index];
    ++tally.frames;
    ++tally.sinceVerdict;
    tally.bytes += heard.command.bytes.size();
    ++valid_;
    counted_ = true;
    recent_.push_back(heard.command.language);
    if (recent_.size() > kOverturnFrames) {
        recent_.pop_front();
    }
    if (heard.command.address > 0) {
        addresses_[index].insert(heard.command.address);
    }
}

void Detector::Judge() {
    const auto best =
        std::max_element(tallies_.begin(), tallies_.end(), [](const Tally& a, const Tally& b) {
            return a.sinceVerdict < b.sinceVerdict;
        });
    const auto bestLanguage = kLanguageOrder[static_cast<std::size_t>(best - tallies_.begin())];
    std::size_t others = 0;
    for (const Tally& tally : tallies_) {
        others += tally.sinceVerdict;
    }
    others -= best->sinceVerdict;
    // Most of what was heard is the best language's own frames, and the others are a
    // scattering beside it.
    const bool covers = best->bytes * 2 >= bytes_ && others * 4 <= best->sinceVerdict;

    if (verdict_ == Verdict::Language) {
        if (recent_.size() < kOverturnFrames) {
            return;
        }
        for (const Language language : kLanguageOrder) {
            const auto count = std::count(recent_.begin(), recent_.end(), language);
            if (language != *language_ && count * 4 >= static_cast<long>(kOverturnFrames) * 3) {
                language_ = language;
                recent_.clear();
            }
        }
        return;
    }
    if (best->sinceVerdict >= kSettleFrames && covers) {
        verdict_ = Verdict::Language;
        language_ = bestLanguage;
        framesToSettle_ = valid_;
        for (Tally& tally : tallies_) {
            tally.sinceVerdict = 0;
        }
        return;
    }
    if (bytes_ >= kGarbageBytes && best->bytes * 10 < bytes_) {
        verdict_ = Verdict::Garbage;
    } else if (verdict_ == Verdict::Garbage && covers) {
        verdict_ = Verdict::Listening;
    }
}

std::set<int> Detector::Addresses() const {
    return language_ ? addresses_[IndexOf(*language_)] : std::set<int>{};
}

std::vector<std::string> CandidateSettings() {
    std::vector<std::string> out;
    for (const char* baud : {"2400", "4800", "9600", "19200"}) {
        for (const char* parity : {"n", "e", "o"}) {
            out.push_back(std::string(baud) + "," + parity + ",8,1");
        }
    }
    return out;
}

SettingsSearch::SettingsSearch()
    : candidates_(CandidateSettings()), detector_(std::make_unique<Detector>()) {}

bool SettingsSearch::Feed(std::span<const std::uint8_t> bytes, std::vector<Heard>& out) {
    detector_->Feed(bytes, out);
    if (detector_->Current() != Verdict::Garbage) {
        if (Found()) {
            garbageRun_ = 0;
        }
        return false;
    }
    ++garbageRun_;
    index_ = (index_ + 1) % candidates_.size();
    detector_ = std::make_unique<Detector>();
    return true;
}

} // namespace quellpad::bus
