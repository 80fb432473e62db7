#include "diagnosis.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace quellpad::bus {

namespace {

bool IsStop(const protocol::Command& command) {
    return command.kind == protocol::Kind::Motion && command.motion.Still();
}

double Share(double have, double need) {
    return std::clamp(have / need, 0.0, 1.0);
}

// Bytes that read as line breaks, beyond which an unreadable line is an inverted one.
constexpr std::uint64_t kInvertedShare = 8; // one in eight
constexpr std::uint64_t kUnreadableBytes = 64;
constexpr std::uint64_t kJudgeEvery = 32;

} // namespace

const char* BusFaultName(BusFault fault) {
    static constexpr const char* kNames[kBusFaults] = {
        "listening",  "healthy",        "swapped-txrx",      "inverted-polarity",
        "unreadable", "answer-address", "duplicate-address", "second-controller",
        "noise",      "mute",           "no-answers"};
    return kNames[static_cast<int>(fault)];
}

void BusDiagnosis::Reset() {
    const QString settings = settings_;
    const bool searching = searching_;
    *this = BusDiagnosis();
    settings_ = settings;
    searching_ = searching;
}

void BusDiagnosis::Elapsed(double seconds) {
    quiet_ += seconds;
    verdict_ = Judge();
}

void BusDiagnosis::Feed(std::span<const std::uint8_t> bytes, const std::vector<Heard>& heard) {
    if (!bytes.empty()) {
        quiet_ = 0;
    }
    bytes_ += bytes.size();
    zeros_ += static_cast<std::uint64_t>(std::count(bytes.begin(), bytes.end(), 0));
    for (const Heard& one : heard) {
        const int address = one.command.address;
        const bool frame = one.command.language == protocol::Language::D ||
                           one.command.language == protocol::Language::P;
        if (!frame || address <= 0 || address > 256) {
            textBytes_ += one.command.bytes.size();
            continue;
        }
        ++frames_;
        if (one.badCheck) {
            ++addresses_[static_cast<std::size_t>(address)].badCommands;
            continue;
        }
        validBytes_ += one.command.bytes.size();
        if (one.answer) {
            Answer(one);
        } else {
            Command(one);
        }
    }
    // Judged when something checked came, or now and then for a line of bytes alone: a
    // flood fed a byte at a time costs little.
    if (heard.empty() && bytes_ % kJudgeEvery != 0) {
        return;
    }
    verdict_ = Judge();
    if (verdict_.fault != BusFault::Listening && framesToVerdict_ == 0) {
        framesToVerdict_ = std::max<std::size_t>(frames_, 1);
    }
}

std::int64_t BusDiagnosis::Stray() const {
    return static_cast<std::int64_t>(bytes_) - static_cast<std::int64_t>(validBytes_ + textBytes_);
}

void BusDiagnosis::CloseCommand() {
    if (lastAddress_ == 0 || lastAnswered_) {
        return;
    }
    // What came after the command that was not a frame: a collided or mangled answer.
    const std::int64_t stray = Stray();
    if (stray > strayAtLast_) {
        ++addresses_[static_cast<std::size_t>(lastAddress_)].garbled;
    }
}

void BusDiagnosis::Command(const Heard& heard) {
    CloseCommand();
    const auto index = static_cast<std::size_t>(heard.command.address);
    Address& address = addresses_[index];
    ++address.commands;
    address.d = heard.command.language == protocol::Language::D;
    if (IsStop(heard.command)) {
        stoppedAfter_[index] = !before_[index].empty();
    } else {
        if (stoppedAfter_[index] && heard.command.bytes == before_[index]) {
            ++address.resumed;
        }
        stoppedAfter_[index] = false;
        before_[index] = heard.command.bytes;
    }
    // A receiver that never answers leaves no more than a few commands owed.
    pending_[index] = std::min<std::uint8_t>(pending_[index] + 1, kMostPending);
    lastAddress_ = heard.command.address;
    lastAnswered_ = false;
    strayAtLast_ = Stray();
}

void BusDiagnosis::Answer(const Heard& heard) {
    const int as = heard.command.address;
    const auto index = static_cast<std::size_t>(as);
    ++addresses_[index].answers;
    if (pending_[index] > 0) {
        // An answer to a command of its own, late or not: a controller need not wait.
        --pending_[index];
        ++addresses_[index].answered;
        lastAnswered_ = lastAnswered_ || as == lastAddress_;
        return;
    }
    if (lastAddress_ == 0 || lastAnswered_) {
        return;
    }
    Address& last = addresses_[static_cast<std::size_t>(lastAddress_)];
    ++last.otherAnswer;
    last.otherAs = as;
    std::uint8_t& owed = pending_[static_cast<std::size_t>(lastAddress_)];
    owed = owed > 0 ? static_cast<std::uint8_t>(owed - 1) : owed;
    lastAnswered_ = true;
}

BusVerdict BusDiagnosis::Judge() const {
    const QString settings =
        settings_.isEmpty() ? QCoreApplication::translate("BusDiagnosis", "the line's settings")
                            : settings_;
    if (bytes_ == 0) {
        if (quiet_ >= kSilentSeconds) {
            return {BusFault::Silent,
                    QCoreApplication::translate(
                        "BusDiagnosis",
                        "Nothing heard in %1 s: no controller's bytes reach the bus. Check that "
                        "the controller's transmit and receive are not swapped (its TX to the "
                        "converter's RX), that the converter is powered, and the tap's own wiring.")
                        .arg(static_cast<int>(quiet_)),
                    Share(quiet_, 2 * kSilentSeconds)};
        }
        return {BusFault::Listening,
                QCoreApplication::translate("BusDiagnosis", "Still listening: nothing heard yet."),
                0};
    }
    if (validBytes_ * 10 < bytes_ && searching_) {
        return {BusFault::Listening,
                QCoreApplication::translate(
                    "BusDiagnosis",
                    "Still listening: nothing forms a frame at %1 yet; trying other settings.")
                    .arg(settings),
                0};
    }
    if (validBytes_ * 10 < bytes_) {
        // Breaks are no noise: a line resting at the wrong level reads as one between
        // every two bursts, whatever the settings.
        if (bytes_ >= kUnreadableBytes && zeros_ * kInvertedShare >= bytes_) {
            return {BusFault::InvertedPolarity,
                    QCoreApplication::translate(
                        "BusDiagnosis",
                        "%1 bytes heard and none forms a frame; %2 of them read as line breaks, "
                        "as when the line rests at the wrong level: the two RS-485 wires are "
                        "swapped. Swap A and B (+ and -) at the controller's end.")
                        .arg(bytes_)
                        .arg(zeros_),
                    Share(static_cast<double>(bytes_), 2.0 * kUnreadableBytes)};
        }
        if (bytes_ >= 4 * kUnreadableBytes && (validBytes_ + textBytes_) * 10 < bytes_) {
            return {BusFault::Unreadable,
                    QCoreApplication::translate(
                        "BusDiagnosis",
                        "%1 bytes heard and none forms a frame at %2: the line's settings or "
                        "language are none a listener knows, or the line is too noisy to carry "
                        "anything. Check baud rate, parity and protocol at both ends, then the "
                        "cable.")
                        .arg(bytes_)
                        .arg(settings),
                    Share(static_cast<double>(bytes_), 8.0 * kUnreadableBytes)};
        }
    }
    std::uint32_t commands = 0;
    std::uint32_t answers = 0;
    std::uint32_t answered = 0;
    std::uint32_t problems = 0;
    std::uint32_t bad = 0;
    int affected = 0;
    int commanded = 0;
    bool judgedAll = true;
    bool d = false;
    QStringList answering;
    for (std::size_t i = 1; i < addresses_.size(); ++i) {
        const Address& a = addresses_[i];
        commands += a.commands;
        answers += a.answers;
        answered += a.answered;
        // Garbage that happens to start like a frame names addresses nobody commands.
        const std::uint32_t trouble = a.commands > 0 ? a.garbled + a.badCommands : 0;
        problems += trouble;
        bad += a.commands > 0 ? a.badCommands : 0;
        affected += trouble > 0 ? 1 : 0;
        commanded += a.commands > 0 ? 1 : 0;
        // Healthy only once every camera spoken to has been heard enough, each answering
        // in D, and none stopped by someone else.
        judgedAll = judgedAll && (a.commands == 0 || (a.commands >= kEnoughCommands &&
                                                      (!a.d || a.answered * 4 >= a.commands * 3) &&
                                                      a.resumed == 0 && !stoppedAfter_[i]));
        d = d || (a.d && a.commands > 0);
        if (a.answered > 0) {
            answering << QString::number(i);
        }
    }
    const QString language = d ? QStringLiteral("D") : QStringLiteral("P");
    // One address's own trouble, judged once it has been commanded often enough.
    for (std::size_t i = 1; i < addresses_.size(); ++i) {
        const Address& a = addresses_[i];
        if (a.commands < kEnoughCommands) {
            continue;
        }
        const auto n = static_cast<int>(i);
        if (a.d && a.otherAnswer >= 3 && a.answered == 0 &&
            addresses_[static_cast<std::size_t>(a.otherAs)].commands == 0) {
            return {BusFault::AnswerAddress,
                    QCoreApplication::translate(
                        "BusDiagnosis",
                        "Camera %1 is commanded %2 times and never answers as %1; answers as %3 "
                        "come back %4 times instead: the receiver is set to answer as %3. Check "
                        "the address of the receiver behind camera %1.")
                        .arg(n)
                        .arg(a.commands)
                        .arg(a.otherAs)
                        .arg(a.otherAnswer),
                    Share(a.otherAnswer, 6)};
        }
        if (a.resumed >= 2) {
            return {BusFault::SecondController,
                    QCoreApplication::translate(
                        "BusDiagnosis",
                        "Camera %1 is stopped %2 times right after it is commanded, and the same "
                        "command resumes each time (%3 frames to it fail their check, as when two "
                        "transmitters talk at once): a second controller drives camera %1. Find "
                        "it (another keyboard, a recorder's PTZ port) and take it off the line or "
                        "give it other cameras.")
                        .arg(n)
                        .arg(a.resumed)
                        .arg(a.badCommands + a.garbled),
                    Share(a.resumed, 4)};
        }
        const std::uint32_t others = problems - (a.garbled + a.badCommands);
        const std::uint32_t otherCommands = commands - a.commands;
        if (a.d && a.garbled >= 3 && a.garbled * 5 >= a.commands * 3 &&
            others * 5 <= otherCommands) {
            return {BusFault::DuplicateAddress,
                    QCoreApplication::translate(
                        "BusDiagnosis",
                        "Two receivers answer as camera %1: their answers collide (%2 of %3 "
                        "answers fail their check) while the other cameras answer cleanly. Find "
                        "the second receiver set to %1 and give it its own address.")
                        .arg(n)
                        .arg(a.garbled)
                        .arg(a.commands),
                    Share(a.garbled, 6)};
        }
    }
    // A noisy line still carries most frames whole; one that carries none is no line.
    if (problems >= 3 && commands >= 2 * kEnoughCommands && commands >= problems &&
        (affected >= 2 || commanded == 1)) {
        return {BusFault::Noise,
                QCoreApplication::translate(
                    "BusDiagnosis",
                    "%1 of %2 frames fail their check, are cut short or are answered with "
                    "garbage, spread over %3 addresses: the line is noisy. Check the termination "
                    "(120 ohm at the two ends only), the cable's screen and ground, and runs "
                    "beside mains.")
                    .arg(problems)
                    .arg(commands + bad)
                    .arg(affected),
                Share(problems, 6)};
    }
    if (d) {
        for (std::size_t i = 1; i < addresses_.size(); ++i) {
            const Address& a = addresses_[i];
            if (a.d && a.commands >= kEnoughCommands && a.answered == 0 && a.otherAnswer == 0 &&
                answered >= 2) {
                return {BusFault::Mute,
                        QCoreApplication::translate(
                            "BusDiagnosis",
                            "Camera %1 is commanded %2 times at %3 in D and never answers; "
                            "cameras %4 answer: camera %1 hears but does not answer. Check its "
                            "answer wiring (a 4-wire receiver's transmit pair) and that its "
                            "answers are switched on.")
                            .arg(i)
                            .arg(a.commands)
                            .arg(settings, answering.join(QStringLiteral(", "))),
                        Share(a.commands, 2.0 * kEnoughCommands)};
            }
        }
        if (answers == 0 && commands >= 2 * kEnoughCommands) {
            return {BusFault::NoAnswers,
                    QCoreApplication::translate(
                        "BusDiagnosis",
                        "%1 commands to %2 cameras at %3 in D and no camera answers: the "
                        "keyboard's line settings (baud rate, parity) or protocol differ from "
                        "the receivers'. Set them alike; with one camera on the line, it may "
                        "instead hear but not answer.")
                        .arg(commands)
                        .arg(commanded)
                        .arg(settings),
                    Share(commands, 4.0 * kEnoughCommands)};
        }
    }
    if (commands >= 2 * kEnoughCommands && problems == 0 && judgedAll) {
        return {BusFault::Healthy,
                d ? QCoreApplication::translate(
                        "BusDiagnosis",
                        "Healthy: %1 commands to %2 cameras in D at %3, %4 of them answered, none "
                        "fails its check.")
                        .arg(commands)
                        .arg(commanded)
                        .arg(settings)
                        .arg(answered)
                  : QCoreApplication::translate(
                        "BusDiagnosis",
                        "Healthy: %1 commands to %2 cameras in %3 at %4, none fails its check (P "
                        "receivers do not answer, so one that hears nothing cannot be told from "
                        "here).")
                        .arg(commands)
                        .arg(commanded)
                        .arg(language, settings),
                Share(commands, 4.0 * kEnoughCommands)};
    }
    return {BusFault::Listening,
            QCoreApplication::translate(
                "BusDiagnosis", "Still listening: %1 frames heard so far, not yet enough to say.")
                .arg(frames_),
            0};
}

BusVerdict BusDiagnosis::Current() const {
    return Judge();
}

DiagnosingListener::DiagnosingListener(bool searchSettings)
    : search_(searchSettings ? std::make_unique<SettingsSearch>() : nullptr) {
    if (search_) {
        diagnosis_.SetSettings(QString::fromStdString(search_->Current()));
        diagnosis_.SetSearching(true);
    }
}

bool DiagnosingListener::Feed(std::span<const std::uint8_t> bytes) {
    // A byte at a time, so that the diagnosis knows what came between two frames.
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto one = bytes.subspan(i, 1);
        heard_.clear();
        if (!search_) {
            detector_.Feed(one, heard_);
            diagnosis_.Feed(one, heard_);
            continue;
        }
        if (!search_->Feed(one, heard_)) {
            diagnosis_.Feed(one, heard_);
            continue;
        }
        // Frames heard at settings since given up on say nothing of the bus; bytes that
        // formed none at any settings add up to a line no settings cure.
        if (diagnosis_.HeardFrames()) {
            frames_ += diagnosis_.Frames();
            diagnosis_.Reset();
        }
        diagnosis_.SetSettings(QString::fromStdString(search_->Current()));
        diagnosis_.SetSearching(!search_->AllGarbage());
        return true; // the rest was heard at the old settings
    }
    return false;
}

} // namespace quellpad::bus
