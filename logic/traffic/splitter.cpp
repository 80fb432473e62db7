#include "splitter.h"

#include "engine/keyboard_state.h"

#include <QCoreApplication>

namespace quellpad::traffic {

using protocol::Command;
using protocol::Kind;
using protocol::Language;

namespace {

QString Hundredths(int value) {
    return QStringLiteral("%1.%2").arg(value / 100).arg(value % 100, 2, 10, QLatin1Char('0'));
}

// The answers of a D receiver, worded as positions rather than as the site's log has them.
std::optional<QString> ReplyWords(const Command& reply) {
    switch (reply.kind) {
    case Kind::PanReply:
        return QCoreApplication::translate("TrafficWords", "pan position %1°")
            .arg(Hundredths(reply.value));
    case Kind::TiltReply:
        return QCoreApplication::translate("TrafficWords", "tilt position %1°")
            .arg(Hundredths(reply.value));
    case Kind::ZoomReply:
        return QCoreApplication::translate("TrafficWords", "zoom position %1").arg(reply.value);
    case Kind::MagnificationReply:
        return QCoreApplication::translate("TrafficWords", "magnification %1")
            .arg(Hundredths(reply.value));
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<Language> LanguageOfMode(const QString& mode) {
    if (mode == kModeD) {
        return Language::D;
    }
    if (mode == kModeP) {
        return Language::P;
    }
    if (mode == kModeAscii) {
        return Language::Ascii;
    }
    if (mode == kModeMuxAscii) {
        return Language::MuxAscii;
    }
    return std::nullopt;
}

Splitter::Splitter(std::optional<Language> language, Way way) : language_(language), way_(way) {
    Restart();
}

void Splitter::Restart() {
    decoders_.clear();
    frames_.clear();
    if (!language_) {
        return;
    }
    switch (*language_) {
    case Language::D:
        if (way_ == Way::Sent) {
            decoders_.push_back(std::make_unique<protocol::DFrameDecoder>());
        } else {
            decoders_.push_back(std::make_unique<protocol::DReplyDecoder>());
        }
        break;
    case Language::P:
        decoders_.push_back(std::make_unique<protocol::PFrameDecoder>());
        break;
    case Language::Ascii:
    case Language::MuxAscii:
        // Switcher and multiplexer share a wire, and either mode can type the other's
        // texts: both languages are read whichever mode is chosen.
        decoders_.push_back(std::make_unique<protocol::AsciiDecoder>(Language::Ascii));
        decoders_.push_back(std::make_unique<protocol::AsciiDecoder>(Language::MuxAscii));
        frames_.push_back(std::make_unique<protocol::DFrameDecoder>());
        frames_.push_back(std::make_unique<protocol::PFrameDecoder>());
        break;
    }
}

void Splitter::Feed(std::span<const std::uint8_t> bytes, std::vector<Piece>& out) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        held_ += static_cast<char>(bytes[i]);
        bool frameEnded = false;
        for (const auto& frame : frames_) {
            decoded_.clear();
            frame->Feed(bytes.subspan(i, 1), decoded_);
            frameEnded = frameEnded || !decoded_.empty();
        }
        // One byte at a time, so that the commands of the two ASCII decoders come out in
        // the order they ended on the wire.
        for (const auto& decoder : decoders_) {
            decoded_.clear();
            decoder->Feed(bytes.subspan(i, 1), decoded_);
            for (const Command& command : decoded_) {
                Take(command, out);
            }
            if (frameEnded) {
                decoder->FrameEnded();
            }
        }
        if (held_.size() > kMostHeld) {
            // Longer than anything that decodes: the oldest part is noise for certain.
            const std::size_t noise = held_.size() - kMostHeld / 2;
            out.push_back({held_.substr(0, noise), std::nullopt});
            held_.erase(0, noise);
        }
    }
}

void Splitter::Take(const Command& command, std::vector<Piece>& out) {
    // A command's bytes are the newest of those held, or (a reply found inside a broken
    // one) a run among them; what comes before decoded to nothing.
    const auto at = held_.rfind(command.bytes);
    if (at == std::string::npos) {
        // Its start was already given up as noise: the command is shown all the same.
        out.push_back({command.bytes, command});
        return;
    }
    if (at > 0) {
        out.push_back({held_.substr(0, at), std::nullopt});
    }
    out.push_back({command.bytes, command});
    held_.erase(0, at + command.bytes.size());
}

void Splitter::Flush(std::vector<Piece>& out) {
    if (!held_.empty()) {
        out.push_back({held_, std::nullopt});
        held_.clear();
    }
    Restart();
}

QString EquipmentMeaning(Way way, const Command& command) {
    const QString words = QString::fromStdString(command.Describe());
    const bool sent = way == Way::Sent;
    switch (command.language) {
    case Language::D:
    case Language::P: {
        const QString camera =
            QCoreApplication::translate("TrafficWords", "camera %1").arg(command.address);
        if (sent) {
            return camera + QStringLiteral(": ") + words;
        }
        return camera + QStringLiteral(" ← ") + ReplyWords(command).value_or(words);
    }
    case Language::Ascii:
    case Language::MuxAscii: {
        const QString device = command.language == Language::Ascii
                                   ? QCoreApplication::translate("TrafficWords", "switcher")
                                   : QCoreApplication::translate("TrafficWords", "multiplexer");
        return device + (sent ? QStringLiteral(": ") : QStringLiteral(" ← ")) + words;
    }
    }
    return words;
}

QString Meaning(int port, Way way, const Piece& piece) {
    if (!piece.command) {
        return QCoreApplication::translate("TrafficWords", "not decoded: ") +
               HexText(QByteArray::fromStdString(piece.bytes)).trimmed();
    }
    const Command& command = *piece.command;
    const bool camera = command.language == Language::D || command.language == Language::P;
    if (port == kListenPort && camera) {
        // A listen line hears a keyboard's commands to the receivers and, in "D", the
        // receivers' answers to its queries, which read as no command at all.
        if (command.language == Language::D && command.kind == Kind::Unknown) {
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(piece.bytes.data());
            const std::vector<Command> answers =
                protocol::DReplyDecoder().Feed(std::span(bytes, piece.bytes.size()));
            if (const auto words =
                    answers.size() == 1 ? ReplyWords(answers.front()) : std::nullopt) {
                return PortName(port) +
                       QCoreApplication::translate("TrafficWords", " ← camera %1: ")
                           .arg(command.address) +
                       *words;
            }
        }
        return PortName(port) + QStringLiteral(" → ") + EquipmentMeaning(Way::Sent, command);
    }
    if (way == Way::Sent && camera) {
        return PortName(port) + QStringLiteral(" → ") + EquipmentMeaning(way, command);
    }
    return EquipmentMeaning(way, command);
}

} // namespace quellpad::traffic
