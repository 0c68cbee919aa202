#include "base/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr char32_t kLargest = 0x10FFFF;

/// The form that RFC 3629 gives a character, from its table of bit patterns.
std::string ReferenceForm(char32_t code) {
    const struct {
        char32_t last;
        int trails;
        unsigned lead;
    } rows[] = {{0x7F, 0, 0x00}, {0x7FF, 1, 0xC0}, {0xFFFF, 2, 0xE0}, {0x1FFFFF, 3, 0xF0}};
    for (const auto& row : rows) {
        if (code <= row.last) {
            std::string form(1, static_cast<char>(row.lead | (code >> (6 * row.trails))));
            for (int trail = row.trails - 1; trail >= 0; --trail) {
                form += static_cast<char>(0x80 | ((code >> (6 * trail)) % 64));
            }
            return form;
        }
    }
    return {};
}

std::string Put(char32_t code) {
    char place[quavera::kLargestUtf8];
    const char* const end = quavera::PutCharacter(code, place);
    return end == nullptr ? "none" : std::string(static_cast<const char*>(place), end);
}

TEST(Utf8, EveryCharacterHasItsFormBothWays) {
    for (char32_t code = 0; code <= kLargest; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) {
            ASSERT_TRUE(quavera::IsSurrogate(code));
            ASSERT_EQ(Put(code), "none");
            ASSERT_EQ(quavera::FirstCharacter(ReferenceForm(code)).size, 0U);
            continue;
        }
        ASSERT_FALSE(quavera::IsSurrogate(code));
        const std::string form = ReferenceForm(code);
        ASSERT_EQ(Put(code), form) << static_cast<unsigned>(code);
        const quavera::Utf8Character character = quavera::FirstCharacter(form + "x");
        ASSERT_EQ(character.code, code);
        ASSERT_EQ(character.size, form.size());
    }
}

TEST(Utf8, NothingAboveTheLargestCharacterHasAForm) {
    for (const char32_t code : {0x110000U, 0x1FFFFFU, 0x200000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EXPECT_EQ(Put(code), "none");
    }
    EXPECT_EQ(quavera::FirstCharacter("\xF4\x90\x80\x80").size, 0U);
    EXPECT_EQ(quavera::FirstCharacter("\xF7\xBF\xBF\xBF").size, 0U);
}

TEST(Utf8, CutFormsAreNone) {
    for (const char32_t code : {0x80U, 0x7FFU, 0x800U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        const std::string form = ReferenceForm(code);
        for (std::size_t size = 1; size < form.size(); ++size) {
            EXPECT_EQ(quavera::FirstCharacter(form.substr(0, size)).size, 0U);
            EXPECT_EQ(quavera::FirstCharacter(form.substr(0, size) + "zzz").size, 0U);
        }
    }
}

// All texts of two bytes, and of three and four bytes with the trail bytes that matter: what is
// taken for a character is one that has exactly these bytes.
TEST(Utf8, NoOtherBytesAreACharacter) {
    const unsigned trails[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xFF};
    const auto expectOwnForm = [](const std::string& text) {
        const quavera::Utf8Character character = quavera::FirstCharacter(text);
        if (character.size > 0) {
            ASSERT_EQ(ReferenceForm(character.code), text.substr(0, character.size));
        }
    };
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned second = 0; second < 256; ++second) {
            const std::string two = {static_cast<char>(first), static_cast<char>(second)};
            expectOwnForm(two);
            for (const unsigned third : trails) {
                for (const unsigned fourth : trails) {
                    expectOwnForm(two + static_cast<char>(third) + static_cast<char>(fourth));
                }
            }
        }
    }
    for (unsigned first = 0x80; first < 0xC2; ++first) {  // trail bytes, and overlong forms
        EXPECT_EQ(quavera::FirstCharacter(std::string(1, static_cast<char>(first)) + "\x80").size,
                  0U);
    }
}

}  // namespace
