#include "base/SmallText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// Lengths on both sides of each way in which texts are compared and copied.
constexpr std::size_t kLongest = 40;

std::string TextOfSize(std::size_t size) {
    std::string text;
    for (std::size_t at = 0; at < size; ++at) {
        text += static_cast<char>('A' + at);
    }
    return text;
}

TEST(SmallText, IsTheSameInEveryByteOrNot) {
    for (std::size_t size = 0; size <= kLongest; ++size) {
        const std::string text = TextOfSize(size);
        EXPECT_TRUE(quavera::IsSameText(text, std::string(text))) << size;
        EXPECT_FALSE(quavera::IsSameText(text, text + 'x')) << size;
        EXPECT_FALSE(quavera::IsSameText(text + '\0', text)) << size;
        for (std::size_t at = 0; at < size; ++at) {
            std::string other = text;
            other[at] = '\xFF';
            EXPECT_FALSE(quavera::IsSameText(text, other)) << size << " at " << at;
        }
    }
}

TEST(SmallText, IsCopiedWholeAndNoFurther) {
    for (std::size_t size = 0; size <= kLongest; ++size) {
        const std::string text = TextOfSize(size);
        std::string place(kLongest + 2, '.');
        EXPECT_EQ(quavera::CopyText(text, &place[1]), &place[1 + size]);
        EXPECT_EQ(place, '.' + text + std::string(kLongest + 1 - size, '.'));
    }
}

}  // namespace
