#include "typed_line.h"

namespace quellpad {

namespace {

constexpr QChar kBlank = u' ';
constexpr QChar kQuote = u'"';

int HexDigit(QChar c) {
    if (c >= u'A' && c <= u'F') {
        return c.unicode() - u'A' + 10;
    }
    if (c >= u'a' && c <= u'f') {
        return c.unicode() - u'a' + 10;
    }
    return c.unicode() - 48;
}

} // namespace

int HexPairValue(QStringView group) {
    if (group.size() == 2) {
        return 16 * HexDigit(group[0]) + HexDigit(group[1]);
    }
    if (group.size() == 1) {
        return HexDigit(group[0]);
    }
    return 0;
}

TypedLine ParseTypedBytes(QStringView line) {
    TypedLine result;
    // 0-based position; `last` is the index of the final character.
    const qsizetype length = line.size();
    const qsizetype last = length - 1;
    qsizetype p = 0;
    // A quoted character waits at the next free place until a byte takes it.
    int quoted = -1;
    const auto store = [&](int value) {
        if (value < 0 || value > 255 || result.bytes.size() >= kTypedBytesCapacity) {
            result.refused = true;
            return;
        }
        result.bytes.append(static_cast<char>(value));
    };
    while (p < length) {
        if (line[p] == kBlank && p != last) {
            ++p;
        }
        if (p < length && line[p] != kBlank) {
            if (line[p] != kQuote) {
                // A lone digit before a blank is that digit, not a digit and a blank.
                const bool pair = p < last && line[p + 1] != kBlank;
                store(HexPairValue(line.mid(p, pair ? 2 : 1)));
                quoted = -1;
                while (p < length && line[p] != kBlank) {
                    ++p;
                }
            } else if (p + 2 > last || line[p + 2] != kQuote) {
                ++result.unclosedQuotes;
                ++p;
            } else {
                quoted = line[p + 1].unicode();
                p += 3;
            }
        }
        // A trailing blank ends the line.
        if (p == last && line[p] == kBlank) {
            break;
        }
    }
    if (quoted >= 0) {
        store(quoted);
    }
    if (result.refused) {
        result.bytes.clear();
    }
    return result;
}

TypedLine TypedAsciiBytes(QStringView line) {
    TypedLine result;
    for (const QChar c : line) {
        if (c.unicode() > 127) {
            result.bytes.clear();
            result.refused = true;
            return result;
        }
        result.bytes.append(static_cast<char>(c.unicode()));
    }
    return result;
}

} // namespace quellpad
