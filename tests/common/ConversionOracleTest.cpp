// The conversions against the C library's converter, in bulk. What the converter gives is what
// counts for every input, valid or not.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionComparison.h"
#include "tests/support/Random.h"

namespace {

using std::string_literals::operator""s;

/// Texts of all sorts, the same ones in every run.
class RandomTexts {
 public:
    explicit RandomTexts(unsigned int seed) : random_(seed) {}

    bool OneIn(std::size_t count) { return random_.OneIn(count); }

    /// A character of Unicode, of each length of UTF-8 alike.
    std::uint32_t UnicodeCharacter() {
        constexpr std::uint32_t kLimits[] = {0x1, 0x80, 0x800, 0x10000, 0x110000};
        const std::size_t size = random_.Below(4);
        const std::uint32_t code = kLimits[size] + Below(kLimits[size + 1] - kLimits[size]);
        return code >= 0xD800 && code <= 0xDFFF ? code - 0x800 : code;
    }

    std::uint32_t BeyondUnicode() { return 0x110000 + Below(0x80000000U - 0x110000U); }

    /// The form of `size` bytes of a code, whether it is the right size for it or not.
    static std::string Form(std::uint32_t code, unsigned size) {
        if (size == 1) {
            return {static_cast<char>(code)};
        }
        const std::uint32_t lead = 0xFF00U >> size & 0xFFU;
        std::string form = {static_cast<char>(lead | code >> (6 * (size - 1)))};
        for (unsigned left = size - 1; left > 0; --left) {
            form += static_cast<char>(0x80U | (code >> (6 * (left - 1)) & 0x3FU));
        }
        return form;
    }

    static unsigned FormSize(std::uint32_t code) {
        constexpr std::uint32_t kLimits[] = {0x80, 0x800, 0x10000, 0x200000, 0x4000000};
        unsigned size = 1;
        for (const std::uint32_t limit : kLimits) {
            size += code >= limit ? 1U : 0U;
        }
        return size;
    }

    static std::string Form(std::uint32_t code) { return Form(code, FormSize(code)); }

    std::string ValidUtf8(std::size_t maximum) {
        std::string text;
        for (std::size_t count = random_.Below(maximum + 1); count > 0; --count) {
            text += Form(UnicodeCharacter());
        }
        return text;
    }

    /// A valid text with one byte replaced, removed or inserted.
    std::string MutatedUtf8() {
        std::string text = Form(UnicodeCharacter()) + ValidUtf8(20);
        const std::size_t at = random_.Below(text.size());
        const char byte = random_.Byte();
        switch (random_.Below(3)) {
            case 0:
                text[at] = byte;
                break;
            case 1:
                text.erase(at, 1);
                break;
            default:
                text.insert(at, 1, byte);
        }
        return text;
    }

    /// Something that a valid text may not hold, or that it holds seldom.
    std::string OddPiece() {
        const std::uint32_t code = UnicodeCharacter();
        switch (random_.Below(6)) {
            case 0:
                return Form(BeyondUnicode());
            case 1:
                return {'\0'};
            case 2:
                return "\xEF\xBB\xBF";
            case 3:
                return Form(0xD800 + Below(0x800), 3);
            case 4:
                return Form(code, FormSize(code) + 1);
            default:
                return Form(code).substr(0, random_.Below(FormSize(code)));
        }
    }

    std::string Utf8Like() {
        switch (random_.Below(4)) {
            case 0:
                return random_.Bytes(3 + random_.Below(38));
            case 1:
                return ValidUtf8(40);
            case 2:
                return MutatedUtf8();
            default:
                return ValidUtf8(10) + OddPiece() + ValidUtf8(10);
        }
    }

    /// Mostly characters of Unicode, in most texts with a few odd ones among them.
    std::wstring WideText() {
        static const std::vector<std::uint32_t> kOddOnes = {
            0,        0xD800,   0xDFFF,     0xE0041,    0x110000,
            0x1FFFFF, 0x200000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
        const bool isPlain = OneIn(3);
        const bool isAscii = OneIn(3);
        std::wstring text;
        for (std::size_t count = 1 + random_.Below(30); count > 0; --count) {
            std::uint32_t code = isAscii ? 1 + Below(0x7F) : UnicodeCharacter();
            if (!isPlain && OneIn(20)) {
                code = OneIn(4) ? BeyondUnicode() : random_.Pick(kOddOnes);
            }
            text += static_cast<wchar_t>(code);
        }
        return text;
    }

 private:
    /// 0 to `limit - 1`.
    std::uint32_t Below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(random_.Below(limit));
    }

    Random random_;
};

char Byte(unsigned value) {
    return static_cast<char>(value);
}

// --- convertFromUtf8 ---------------------------------------------------------------------------

TEST(ConvertFromUtf8EqualsConverter, ForAllTextsOfUpToTwoBytes) {
    FromUtf8Comparison comparison;
    comparison.Check("");
    for (unsigned first = 0; first < 256; ++first) {
        comparison.Check({Byte(first)});
        for (unsigned second = 0; second < 256; ++second) {
            comparison.Check({Byte(first), Byte(second)});
        }
    }
    EXPECT_EQ(comparison.Inputs(), 65793U);
    EXPECT_GT(comparison.Untrimmed(), 30000U);
}

TEST(ConvertFromUtf8EqualsConverter, ForThreeBytesThatBeginWithLeadOfThreeOrFour) {
    // Complete but for second bytes that are far from a continuation's.
    std::string seconds = "\0a\xFE\xFF"s;
    for (unsigned second = 0x7E; second < 0xC2; ++second) {
        seconds += Byte(second);
    }
    FromUtf8Comparison comparison;
    for (unsigned first = 0xE0; first < 0xF8; ++first) {
        for (const char second : seconds) {
            for (unsigned third = 0; third < 256; ++third) {
                comparison.Check({Byte(first), second, Byte(third)});
            }
        }
    }
    // The characters 800 to FFFF without the surrogates.
    EXPECT_EQ(comparison.Inputs() - comparison.Untrimmed(), 0x10000U - 0x800U - 0x800U);
}

TEST(ConvertFromUtf8EqualsConverter, ForEveryCodeInEveryForm) {
    constexpr std::uint32_t kCodes[] = {
        0,        1,        'a',      0x7F,      0x80,      0x7FF,     0x800,   0xD7FF,
        0xD800,   0xDFFF,   0xE000,   0xFEFF,    0xFFFF,    0x10000,   0xE0041, 0x10FFFF,
        0x110000, 0x1FFFFF, 0x200000, 0x3FFFFFF, 0x4000000, 0x7FFFFFFF};
    FromUtf8Comparison comparison;
    for (const std::uint32_t code : kCodes) {
        for (unsigned size = RandomTexts::FormSize(code); size <= 6; ++size) {
            const std::string form = RandomTexts::Form(code, size);
            for (std::size_t cut = 1; cut <= form.size(); ++cut) {
                const std::string text = form.substr(0, cut);
                comparison.Check(text);
                comparison.Check(std::string("ab").append(text).append("\xC3\xA9"));
                comparison.Check(std::string(text).append(1, '\0').append(form));
            }
        }
    }
    EXPECT_GT(comparison.Untrimmed(), std::size(kCodes));
}

TEST(ConvertFromUtf8EqualsConverter, ForRandomTexts) {
    RandomTexts random(20240917);
    FromUtf8Comparison comparison;
    for (int count = 0; count < 100000; ++count) {
        comparison.Check(random.Utf8Like());
    }
    EXPECT_GT(comparison.Untrimmed(), 30000U);
    EXPECT_LT(comparison.Untrimmed(), 70000U);
}

/// Plain characters are converted many at a time: a text of each length around those steps, with
/// one other character at each place.
constexpr std::size_t kManySteps = 70;

template <class Text>
Text PlainText(std::size_t size) {
    Text text;
    for (std::size_t at = 0; at < size; ++at) {
        text += static_cast<typename Text::value_type>(1 + (at * 7 + size) % 0x7F);
    }
    return text;
}

template <class Text, class Comparison>
void CheckOtherAtEveryPlace(const std::vector<Text>& others, Comparison& comparison) {
    for (std::size_t size = 0; size <= kManySteps; ++size) {
        const auto plain = PlainText<Text>(size);
        comparison.Check(plain);
        for (const Text& other : others) {
            for (std::size_t at = 0; at <= size; ++at) {
                Text text = plain;
                comparison.Check(text.insert(at, other));
            }
        }
    }
}

constexpr std::size_t kManyPlaces = (kManySteps + 1) * (kManySteps + 2) / 2;

TEST(ConvertFromUtf8EqualsConverter, ForOneOtherCharacterAtEveryPlaceOfAPlainText) {
    FromUtf8Comparison comparison;
    CheckOtherAtEveryPlace<std::string>({"\0"s, "\x80"s, "\xC3\xA9"s, "\xE2\x82\xAC"s, "\xFF"s},
                                        comparison);
    EXPECT_EQ(comparison.Untrimmed(), 2 * kManyPlaces);  // two of them are no UTF-8
}

TEST(ConvertFromUtf8EqualsConverter, ForEveryTruncationOfALongText) {
    RandomTexts random(4711);
    std::string text;
    while (text.size() < 2000) {
        text += RandomTexts::Form(random.OneIn(10) ? random.BeyondUnicode()
                                                   : random.UnicodeCharacter());
    }
    FromUtf8Comparison comparison;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        comparison.Check(text.substr(0, size));
    }
    EXPECT_GT(comparison.Untrimmed(), 500U);
}

TEST(ConvertFromUtf8EqualsConverter, ForFaultsAroundItsInnerBuffers) {
    // The converter works in portions of a few thousand characters.
    FromUtf8Comparison comparison;
    for (const char* character : {"a", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}) {
        std::string text;
        for (std::size_t count = 0; count < 2100; ++count) {
            text += character;
            if (count % 1024 > 900 && count % 8 == 7) {
                comparison.Check(text + '\xFF');
                comparison.Check(text + '\xC3');
                std::string zeroInside = text;
                zeroInside += '\0';
                comparison.Check(zeroInside.append(text));
            }
        }
    }
    EXPECT_GT(comparison.Untrimmed(), 100U);
}

// --- convertToUtf8 and convertToCodePage -------------------------------------------------------

constexpr std::uint32_t kInteresting[] = {
    0,         1,         'a',        0x7F,       0x80,       0xE9,       0x192,     0x7FF,
    0x800,     0x20AC,    0x25A0,     0xD7FF,     0xD800,     0xDBFF,     0xDC00,    0xDFFF,
    0xE000,    0xFEFF,    0xFFFE,     0xFFFF,     0x10000,    0x1F600,    0xDFFFF,   0xE0000,
    0xE0001,   0xE0041,   0xE007F,    0xE0080,    0x10FFFF,   0x110000,   0x1FFFFF,  0x200000,
    0x3FFFFFF, 0x4000000, 0x7FFFFFFF, 0x80000000, 0x80FFFFFF, 0x81000000, 0xFFFFFFFF};

TEST(ConvertToUtf8EqualsConverter, ForEverySingleCharacter) {
    ToUtf8Comparison comparison;
    for (std::uint32_t code = 0; code < 0x120000; ++code) {
        comparison.Check(Wide({code}));
    }
    for (const std::uint32_t code : kInteresting) {
        comparison.Check(Wide({code}));
    }
    EXPECT_GT(comparison.Untrimmed(), 0x800U);
}

TEST(ConvertToUtf8EqualsConverter, ForOneOtherCharacterAtEveryPlaceOfAPlainText) {
    ToUtf8Comparison comparison;
    CheckOtherAtEveryPlace<std::wstring>({Wide({0}), Wide({0x80}), Wide({0x100}), Wide({0x20AC}),
                                          Wide({0xD800}), Wide({0x10000}), Wide({0xFFFFFFFF})},
                                         comparison);
    EXPECT_GE(comparison.Untrimmed(), 2 * kManyPlaces);  // two of them are no characters
}

/// The characters that CP850 may hold, and samples of all others.
TEST(ConvertToCp850EqualsConverter, ForSingleCharacters) {
    ToCp850Comparison comparison;
    for (std::uint32_t code = 0; code < 0x3000; ++code) {
        comparison.Check(Wide({code}));
    }
    for (std::uint32_t code = 0x3000; code < 0x120000; code += 37) {
        comparison.Check(Wide({code}));
    }
    for (std::uint32_t code = 0xDFF00; code < 0xE0200; ++code) {
        comparison.Check(Wide({code}));
    }
    EXPECT_GT(comparison.Untrimmed(), 10000U);
    EXPECT_EQ(comparison.Inputs(), 0x3000U + (0x120000U - 0x3000U + 36) / 37 + 0x300U);
}

/// One list of wide texts, given to each of the functions.
class ToEverySet {
 public:
    void Check(const std::wstring& text) {
        toUtf8_.Check(text);
        toCp850_.Check(text);
        toNamedUtf8_.Check(text);
        toNamedCp850_.Check(text);
    }

    std::size_t FailedToUtf8() const { return toUtf8_.Untrimmed(); }
    std::size_t FailedToCp850() const { return toCp850_.Untrimmed(); }

 private:
    ToUtf8Comparison toUtf8_;
    ToCp850Comparison toCp850_;
    ToCodePageComparison toNamedUtf8_{"UTF-8"};
    ToCodePageComparison toNamedCp850_{"CP850"};
};

TEST(ConvertToCodePageEqualsConverter, ForPairsOfInterestingCharacters) {
    ToEverySet comparison;
    for (const std::uint32_t first : kInteresting) {
        for (const std::uint32_t second : kInteresting) {
            comparison.Check(Wide({first, second}));
            comparison.Check(Wide({'a', first, second, 'b', 'c', 'd'}));
        }
    }
    EXPECT_GT(comparison.FailedToUtf8(), std::size(kInteresting));
}

TEST(ConvertToCodePageEqualsConverter, ForRandomTexts) {
    RandomTexts random(314159);
    ToEverySet comparison;
    for (int count = 0; count < 100000; ++count) {
        comparison.Check(random.WideText());
    }
    EXPECT_GT(comparison.FailedToUtf8(), 10000U);
    EXPECT_LT(comparison.FailedToUtf8(), 60000U);
    EXPECT_GT(comparison.FailedToCp850(), 30000U);
    EXPECT_LT(comparison.FailedToCp850(), 90000U);
}

}  // namespace
