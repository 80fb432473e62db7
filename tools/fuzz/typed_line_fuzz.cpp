// Lines as the operator types them into the Type Commands window, in both kinds of mode.
#include "fuzz_support.h"

#include "engine/typed_line.h"

#include <QStringList>

using quellpad::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString line = quellpad::fuzz::Text(data, size);

    const quellpad::TypedLine hex = quellpad::ParseTypedBytes(line);
    Require(hex.bytes.size() <= quellpad::kTypedBytesCapacity, "a line holds at most 51 bytes");
    Require(hex.unclosedQuotes <= line.count(u'"'), "only a quotation mark can lack a partner");
    // A line of hexadecimal digits and single blanks, as the window's filter lets through
    // and short enough to type, is always sent.
    bool typeable =
        line.size() <= 85 && !line.startsWith(u' ') && !line.contains(QLatin1String("  "));
    for (const QChar c : line) {
        typeable = typeable && (c == u' ' || QStringLiteral("0123456789abcdefABCDEF").contains(c));
    }
    if (typeable) {
        Require(!hex.refused, "a typeable hexadecimal line is never refused");
        Require(hex.bytes.size() == line.split(u' ', Qt::SkipEmptyParts).size(),
                "one byte per group");
    }

    const quellpad::TypedLine ascii = quellpad::TypedAsciiBytes(line);
    bool plain = true;
    for (const QChar c : line) {
        plain = plain && c.unicode() < 128;
    }
    Require(ascii.refused != plain,
            "an ASCII line is refused exactly when it holds codes above 127");
    Require(ascii.refused || ascii.bytes == line.toLatin1(), "an ASCII line goes out as typed");
    return 0;
}
