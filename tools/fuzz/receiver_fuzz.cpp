// Replies as the line delivers them, in every mode: the text shown holds every byte, the
// box is never cleared while short, and an alarm number comes only from an alarm reply.
#include "fuzz_support.h"

#include "console/receiver.h"
#include "engine/keyboard_state.h"

using quellpad::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const QString modes[] = {quellpad::kModeD, quellpad::kModeP, quellpad::kModeAscii,
                             quellpad::kModeMuxAscii, QStringLiteral("ZZ")};
    const QString& mode = modes[data[0] % 5];
    const qsizetype boxLength = data[1] * 2;
    const QByteArray bytes = quellpad::fuzz::Bytes(data + 2, size - 2);

    const QString text = quellpad::ResponseText(mode, bytes);
    if (quellpad::IsFrameMode(mode)) {
        Require(text.size() == 3 * bytes.size(), "a blank and two digits per byte");
        Require(QByteArray::fromHex(text.toLatin1()) == bytes, "the digits are the bytes");
    } else if (quellpad::IsAsciiMode(mode)) {
        Require(text.toLatin1() == bytes, "the characters are the bytes");
    } else {
        Require(text.isEmpty(), "a mode without replies shows nothing");
    }
    if (boxLength < 251) {
        Require(!quellpad::ClearsResponseBox(mode, boxLength, text), "a short box grows");
    }
    if (const auto alarm = quellpad::AlarmNumberFromReply(text)) {
        Require(text.size() > 2 && *alarm == text.left(text.size() - 2),
                "the alarm number is the reply without its last two characters");
        Require(text.contains(QLatin1String("ia")) || text.contains(QLatin1String("da")),
                "only an alarm reply gives an alarm number");
    }
    return 0;
}
