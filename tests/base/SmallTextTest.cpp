#include "base/SmallText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

/// In blocks of just their sizes, so that a sanitizer sees a look behind the end.
TEST(SmallText, IsTheSameByWordsInEveryByteOrNot) {
    for (std::size_t size = 0; size <= kLongest; ++size) {
        const std::string text = TextOfSize(size);
        const std::vector<char> left(text.begin(), text.end());
        std::vector<char> right = left;
        EXPECT_TRUE(quavera::IsSameByWords(left.data(), right.data(), size)) << size;
        for (std::size_t at = 0; at < size; ++at) {
            for (const int bit : {0x01, 0x80}) {
                right[at] = static_cast<char>(left[at] ^ bit);
                EXPECT_FALSE(quavera::IsSameByWords(left.data(), right.data(), size))
                    << size << " at " << at;
            }
            right[at] = left[at];
        }
    }
}

TEST(SmallText, IsComparedByWordsUpToItsSizeOnly) {
    for (std::size_t size = 0; size <= kLongest; ++size) {
        const std::string text = TextOfSize(size);
        const std::string left = text + std::string(kLongest, '<');
        const std::string right = text + std::string(kLongest, '>');
        EXPECT_TRUE(quavera::IsSameByWords(left.data(), right.data(), size)) << size;
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
