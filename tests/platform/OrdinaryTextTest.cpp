#include "platform/OrdinaryText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Whatever way the bytes are looked at: what counts is each byte for itself.

namespace {

using ZQXML::CopyOrdinaryText;
using ZQXML::SkipOrdinaryText;
using ZQXML::TextWord;

// Some words of either size, and what is left of one.
constexpr std::size_t kLongest = 40;
constexpr std::size_t kMostAhead = sizeof(TextWord::Word);
constexpr char kUntouched = '\x01';

/// May stand in XML text as it is, in one byte.
bool MayBeOrdinary(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return byte == '\t' || byte == '\n' ||
           (value >= 0x20 && value < 0x80 && byte != '&' && byte != '<' && byte != '>');
}

/// The same without those that may end a run all the same.
bool IsOrdinary(char byte) {
    return MayBeOrdinary(byte) && byte != '\t' && byte != '\n';
}

/// Whether the first `count` bytes are what text begins with that is ordinary.
testing::AssertionResult IsOrdinaryRun(std::string_view text, std::size_t count) {
    if (count > text.size()) {
        return testing::AssertionFailure() << count << " of " << text.size();
    }
    for (std::size_t at = 0; at < count; ++at) {
        if (!MayBeOrdinary(text[at])) {
            return testing::AssertionFailure() << "goes on to " << count << " behind " << at;
        }
    }
    if (count < text.size() && IsOrdinary(text[count])) {
        return testing::AssertionFailure() << "ends at " << count << " without reason";
    }
    return testing::AssertionSuccess();
}

/// A text that begins at any distance from a word's border, in a block that ends with it, so that
/// a sanitizer sees a look behind the end.
class Text {
 public:
    Text(std::size_t ahead, std::size_t size) : ahead_(ahead), block_(ahead + size, 'x') {
        for (std::size_t at = 0; at < size; ++at) {
            (*this)[at] = static_cast<char>('A' + at);
        }
    }

    char& operator[](std::size_t at) { return block_[ahead_ + at]; }
    std::string_view View() const { return {block_.data() + ahead_, block_.size() - ahead_}; }

 private:
    std::size_t ahead_;
    std::vector<char> block_;
};

/// A place to copy texts to, which shows what is written behind them.
class Place {
 public:
    explicit Place(std::size_t size) : size_(size), block_(size + kMostAhead, kUntouched) {}

    char* Begin() { return block_.data(); }
    bool IsUntouchedBehind() const {
        for (std::size_t at = size_; at < block_.size(); ++at) {
            if (block_[at] != kUntouched) {
                return false;
            }
        }
        return true;
    }

 private:
    std::size_t size_;
    std::vector<char> block_;
};

testing::AssertionResult IsSkippedRightly(std::string_view text) {
    const char* const end = text.data() + text.size();
    const char* const at = SkipOrdinaryText(text.data(), end);
    return IsOrdinaryRun(text, static_cast<std::size_t>(at - text.data()));
}

testing::AssertionResult IsCopiedRightly(std::string_view text, Place* place) {
    const std::size_t count = CopyOrdinaryText(text, place->Begin());
    const testing::AssertionResult isRun = IsOrdinaryRun(text, count);
    if (!isRun) {
        return isRun;
    }
    if (std::string_view(place->Begin(), count) != text.substr(0, count)) {
        return testing::AssertionFailure() << "another text";
    }
    return place->IsUntouchedBehind() ? testing::AssertionSuccess()
                                      : testing::AssertionFailure() << "written behind the text";
}

/// Calls `work` with texts of all sizes and distances that hold each byte at each place.
template <class Work>
void ForEachByteAtEachPlace(Work work) {
    for (std::size_t ahead = 0; ahead < kMostAhead; ++ahead) {
        for (std::size_t size = 0; size <= kLongest; ++size) {
            Text text(ahead, size);
            for (std::size_t at = 0; at < size; ++at) {
                const char original = text[at];
                for (int byte = 0; byte < 256 && !testing::Test::HasFatalFailure(); ++byte) {
                    text[at] = static_cast<char>(byte);
                    work(text.View());
                }
                text[at] = original;
            }
        }
    }
}

TEST(OrdinaryText, IsSkippedUpToAnyOtherByteAtAnyPlace) {
    ForEachByteAtEachPlace([](std::string_view text) {
        ASSERT_TRUE(IsSkippedRightly(text)) << testing::PrintToString(text);
    });
}

TEST(OrdinaryText, IsCopiedUpToAnyOtherByteAtAnyPlace) {
    std::vector<Place> places;
    for (std::size_t size = 0; size <= kLongest; ++size) {
        places.emplace_back(size);
    }
    ForEachByteAtEachPlace([&places](std::string_view text) {
        ASSERT_TRUE(IsCopiedRightly(text, &places[text.size()])) << testing::PrintToString(text);
    });
}

TEST(OrdinaryText, IsTakenWholeWhereThereIsNothingElse) {
    for (std::size_t size = 0; size <= kLongest; ++size) {
        for (std::size_t ahead = 0; ahead < kMostAhead; ++ahead) {
            const Text text(ahead, size);
            const std::string_view view = text.View();
            const char* const end = view.data() + size;
            EXPECT_EQ(SkipOrdinaryText(view.data(), end), end) << size;
            EXPECT_EQ(CopyOrdinaryText(view, Place(size).Begin()), size);
        }
    }
}

/// What is wrong with one byte must not be seen in, nor hidden by, the ones beside it.
TEST(OrdinaryText, IsSeenByteByByteInAWord) {
    for (std::size_t at = 0; at + 1 < 2 * TextWord::kSize; ++at) {
        Text text(0, 2 * TextWord::kSize);
        Place place(2 * TextWord::kSize);
        for (int first = 0; first < 256; ++first) {
            for (int second = 0; second < 256; ++second) {
                text[at] = static_cast<char>(first);
                text[at + 1] = static_cast<char>(second);
                ASSERT_TRUE(IsSkippedRightly(text.View())) << at << ": " << first << ' ' << second;
                ASSERT_TRUE(IsCopiedRightly(text.View(), &place))
                    << at << ": " << first << ' ' << second;
            }
        }
    }
}

TEST(OrdinaryText, EndsWithAViewThoughMoreFollows) {
    const std::string text = std::string(kLongest, 'x') + std::string(kLongest, '<');
    for (std::size_t size = 0; size <= kLongest; ++size) {
        const char* const begin = text.data() + kLongest - size;
        EXPECT_EQ(SkipOrdinaryText(begin, begin + size), begin + size);
        EXPECT_EQ(SkipOrdinaryText(begin, text.data() + text.size()), begin + size);
    }
}

}  // namespace
