#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <span>

namespace quellpad {

// Something that watches the keyboard's wire: told of every frame or text as it was
// written to a COM port, and of every run of bytes as it was read from one. The engine
// knows nothing of what the watcher does with them (the traffic monitor decodes, shows
// and logs them); it only calls it, and not at all while none is set.
class LineTap {
public:
    // `mode` is the keyboard's mode at that moment ("D", "ASCII", ...).
    virtual void Sent(int portNumber, const QString& mode, std::span<const std::uint8_t> bytes) = 0;
    virtual void Received(int portNumber, const QString& mode,
                          std::span<const std::uint8_t> bytes) = 0;

protected:
    ~LineTap() = default;
};

// The bytes of a byte array as the wire carries them.
inline std::span<const std::uint8_t> WireBytes(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}

} // namespace quellpad
