#include "engine/errors.h"
#include "engine/numeric.h"

#include <gtest/gtest.h>

#include <optional>

namespace quellpad {
namespace {

TEST(ByteConversion, RoundsHalfToEvenAndRefusesAnythingOutsideAByte) {
    struct Case {
        double value;
        std::optional<int> expected; // nothing: an overflow error
    };
    const Case cases[] = {{0, 0},
                          {255, 255},
                          {2.5, 2},
                          {3.5, 4},
                          {255.4, 255},
                          {255.5, std::nullopt},
                          {256, std::nullopt},
                          {-1, std::nullopt},
                          {-0.4, 0}};
    for (const Case& c : cases) {
        if (c.expected) {
            EXPECT_EQ(ToByte(c.value), *c.expected) << c.value;
        } else {
            EXPECT_THROW(ToByte(c.value), OverflowError) << c.value;
        }
    }
    EXPECT_THROW(ToInt16(32768), OverflowError);
    EXPECT_EQ(ToInt16(-32768), -32768);
}

TEST(NumericText, ReadsTheLeadingNumberAndCountsAnythingElseAsZero) {
    const std::pair<const char*, double> cases[] = {
        {"", 0},     {".", 0},     {"0", 0},          {"12ab", 12}, {" 2.5", 2.5},
        {"-3", -3},  {"1e2", 100}, {"abc", 0},        {"3..12", 3}, {"60.9999", 60.9999},
        {"12e", 12}, {"1 2", 12},  {"0.0505", 0.0505}};
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(Val(QString::fromLatin1(text)), value) << text;
    }
}

TEST(NumberText, PositiveNumbersCarryALeadingBlank) {
    EXPECT_EQ(Str(12), QStringLiteral(" 12"));
    EXPECT_EQ(Str(0), QStringLiteral(" 0"));
    EXPECT_EQ(Str(-3), QStringLiteral("-3"));
    EXPECT_EQ(Str(0.5), QStringLiteral(" .5"));
    EXPECT_EQ(Digits(-12), QStringLiteral("12"));
    EXPECT_EQ(IntPart(-2.5), -3);
}

} // namespace
} // namespace quellpad
