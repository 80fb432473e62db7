#pragma once

#include "protocol/vocabulary.h"

#include <QString>

namespace quellpad {

// A mnemonic of the vocabulary as a Qt string literal, for tables built at compile time.
constexpr QLatin1String Latin(std::string_view word) {
    return QLatin1String(word.data(), static_cast<qsizetype>(word.size()));
}

// The vocabulary's mnemonics as the keyboard's AsciiCommand holds them: "Ma" for a monitor.
inline QString Word(protocol::Kind kind) {
    const std::string_view word = protocol::Mnemonic(kind);
    return QString::fromLatin1(word.data(), static_cast<qsizetype>(word.size()));
}

// The text that starts or stops one direction: "Ra", "~dRm".
inline QString DirectionWord(protocol::Language language, protocol::Direction direction,
                             bool start) {
    const std::string_view word = protocol::DirectionMnemonic(language, direction, start);
    return QString::fromLatin1(word.data(), static_cast<qsizetype>(word.size()));
}

// "!a", which ends the free text of a label or a camera title.
inline QString FreeTextEnd() {
    return QString::fromLatin1(protocol::kFreeTextEnd.data(),
                               static_cast<qsizetype>(protocol::kFreeTextEnd.size()));
}

} // namespace quellpad
