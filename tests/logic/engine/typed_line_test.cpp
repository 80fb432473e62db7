#include "fixtures.h"

#include "engine/typed_line.h"

#include <gtest/gtest.h>

namespace quellpad {
namespace {

TEST(TypedLine, HexGroupsBecomeBytes) {
    struct Case {
        const char* line;
        const char* hex; // the bytes sent
        int unclosedQuotes;
    };
    const Case cases[] = {
        {"FF 01 00 00 00 00 01", "ff010000000001", 0},
        {"ff 1a", "ff1a", 0},
        {"FF01 02", "ff02", 0}, // only the first two characters of a group count
        {"FF ", "ff", 0},       // a trailing blank ends the line
        {"1 2", "0102", 0},     // a lone digit before a blank is that digit
        {"a", "0a", 0},         // and so is a lone digit at the end
        {"FF  01", "ff01", 0},  // two blanks between groups
        {" 7F", "7f", 0},       // a leading blank
        {"", "", 0},
        {" ", "", 0},
        {"\"A\"", "41", 0},      // a quoted character followed by nothing is sent
        {"01 \"A\"", "0141", 0}, //
        {"\"A\" 02", "02", 0},   // the next byte takes the quoted character's place
        {"\"A\"\"B\"", "42", 0}, // the second takes the first one's
        {"\"A", "0a", 1},        // no partner: the scan goes on with the next character
        {"\" 05 \"", "05", 2},   // two quotes, neither with its partner two places on
    };
    for (const Case& c : cases) {
        const TypedLine typed = ParseTypedBytes(QString::fromLatin1(c.line));
        EXPECT_EQ(typed.bytes, QByteArray::fromHex(c.hex)) << c.line;
        EXPECT_EQ(typed.unclosedQuotes, c.unclosedQuotes) << c.line;
        EXPECT_FALSE(typed.refused) << c.line;
    }
}

TEST(TypedLine, GroupsThatAreNoByteAndOverlongLinesSendNothing) {
    for (const char* line : {"GG", "FF zz", "-1", "01 G0"}) {
        const TypedLine typed = ParseTypedBytes(QString::fromLatin1(line));
        EXPECT_TRUE(typed.refused) << line;
        EXPECT_TRUE(typed.bytes.isEmpty()) << line;
    }
    const QString fiftyOne = QStringLiteral("1 ").repeated(51);
    EXPECT_EQ(ParseTypedBytes(fiftyOne).bytes.size(), 51);
    EXPECT_TRUE(ParseTypedBytes(fiftyOne + QStringLiteral("2")).refused);
}

TEST(TypedLine, HexPairValueReadsEachCharacterAsADigit) {
    EXPECT_EQ(HexPairValue(u"FF"), 255);
    EXPECT_EQ(HexPairValue(u"fa"), 250);
    EXPECT_EQ(HexPairValue(u"7"), 7);
    EXPECT_EQ(HexPairValue(u""), 0);
    EXPECT_EQ(HexPairValue(u"123"), 0);
    EXPECT_EQ(HexPairValue(u"1 "), 0) << "a blank counts as the digit -16";
}

TEST(TypedLine, AsciiLinesAreTheirCharacterCodes) {
    EXPECT_EQ(TypedAsciiBytes(u"1Ma").bytes, QByteArray("1Ma"));
    EXPECT_TRUE(TypedAsciiBytes(QStringLiteral("1\u00e9a")).refused);
}

} // namespace
} // namespace quellpad
