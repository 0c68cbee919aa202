#include "platform/ToString.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

TEST(ToString, BooleansAreXmlSchemaTexts) {
    EXPECT_EQ(zq::ToString(true), "true");
    EXPECT_EQ(zq::ToString(false), "false");
}

TEST(ToString, TrueIsTrueString) {
    EXPECT_EQ(std::string(TRUE_STRING), "true");
    EXPECT_EQ(sizeof(TRUE_STRING), 5U);
    EXPECT_EQ(zq::ToString(true), TRUE_STRING);
}

TEST(ToString, IntsAreDecimalWithMinusOnly) {
    EXPECT_EQ(zq::ToString(0), "0");
    EXPECT_EQ(zq::ToString(7), "7");
    EXPECT_EQ(zq::ToString(-1), "-1");
    EXPECT_EQ(zq::ToString(1000000), "1000000");
    EXPECT_EQ(zq::ToString(std::numeric_limits<int>::max()), "2147483647");
    EXPECT_EQ(zq::ToString(std::numeric_limits<int>::min()), "-2147483648");
}

TEST(ToString, UnsignedIntsAreDecimal) {
    EXPECT_EQ(zq::ToString(0U), "0");
    EXPECT_EQ(zq::ToString(2147483648U), "2147483648");
    EXPECT_EQ(zq::ToString(4294967295U), "4294967295");
}

TEST(ToString, UnsignedLongsAreDecimalInFullWidth) {
    EXPECT_EQ(zq::ToString(0UL), "0");
    EXPECT_EQ(zq::ToString(4294967295UL), "4294967295");
    const std::string largest = sizeof(unsigned long) == 4 ? "4294967295" : "18446744073709551615";
    EXPECT_EQ(zq::ToString(std::numeric_limits<unsigned long>::max()), largest);
}

}  // namespace
