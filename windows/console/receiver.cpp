#include "receiver.h"

#include "engine/keyboard_state.h"
#include "engine/words.h"

namespace quellpad {

namespace {
constexpr qsizetype kResponseBoxLimit = 251;
} // namespace

QString ResponseText(const QString& mode, const QByteArray& bytes) {
    QString text;
    if (IsFrameMode(mode)) {
        for (const char c : bytes) {
            text += u' ' + HexByte(static_cast<std::uint8_t>(c));
        }
    } else if (IsAsciiMode(mode)) {
        text = QString::fromLatin1(bytes);
    }
    return text;
}

bool ClearsResponseBox(const QString& mode, qsizetype boxLength, const QString& response) {
    const bool newReply =
        IsFrameMode(mode)
            ? response.contains(QLatin1String("FF")) || response.contains(QLatin1String("A2"))
            : response.contains(QLatin1Char(protocol::kMuxAsciiEnd)) ||
                  response.contains(QLatin1Char(protocol::kAsciiEnd));
    return boxLength >= kResponseBoxLimit && newReply;
}

std::optional<QString> AlarmNumberFromReply(const QString& response) {
    std::optional<QString> number;
    // Both markers are looked at in turn, as the switcher's replies may carry either.
    for (const QString& marker :
         {Word(protocol::Kind::NextAlarm), Word(protocol::Kind::PreviousAlarm)}) {
        if (response.contains(marker) && response.size() > 2) {
            number = response.left(response.size() - 2);
        }
    }
    return number;
}

} // namespace quellpad
