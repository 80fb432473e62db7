#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace quellpad::fuzz {

inline QByteArray Bytes(const std::uint8_t* data, std::size_t size) {
    return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

// Text as a box or a file line may hold it: any byte, read as Latin-1, so that every
// character code up to 255 is reached.
inline QString Text(const std::uint8_t* data, std::size_t size) {
    return QString::fromLatin1(Bytes(data, size));
}

// A property that does not hold is a finding like a crash: libFuzzer keeps the input.
inline void Require(bool holds, const char* property) {
    if (!holds) {
        std::fprintf(stderr, "property broken: %s\n", property);
        std::abort();
    }
}

} // namespace quellpad::fuzz
