#include "base/TextBuffer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(TextBuffer, IsEmptyAtFirst) {
    quavera::TextBuffer buffer;
    EXPECT_EQ(buffer.Size(), 0U);
    EXPECT_EQ(buffer.View(), "");
    EXPECT_EQ(buffer.Take(), "");
}

TEST(TextBuffer, KeepsPiecesOfEverySizeInOrder) {
    quavera::TextBuffer buffer;
    std::string expected;
    for (std::size_t size = 0; size < 3000; size += 1 + size / 16) {
        const std::string piece(size, static_cast<char>('a' + size % 26));
        buffer.Append(piece);
        expected += piece;
        ASSERT_EQ(buffer.View(), expected) << size;
    }
    EXPECT_EQ(buffer.Size(), expected.size());
    EXPECT_EQ(buffer.Take(), expected);
}

TEST(TextBuffer, CountsWhatIsWrittenByOtherMeans) {
    quavera::TextBuffer buffer;
    buffer.Append("one ");
    char* const place = buffer.Reserve(1000);
    std::string("two three").copy(place, 9);
    buffer.SetEnd(place + 3);
    buffer.Append("!");
    EXPECT_EQ(buffer.Take(), "one two!");
}

TEST(TextBuffer, TakesPartsOfItselfWithinItsRoom) {
    quavera::TextBuffer buffer;
    buffer.Append("<Name");
    for (int count = 0; count < 200; ++count) {
        buffer.Reserve(4);
        buffer.Put(buffer.View().substr(1, 4));
    }
    const std::string text = buffer.Take();
    EXPECT_EQ(text.size(), 5U + 200 * 4);
    EXPECT_EQ(text.substr(text.size() - 8), "NameName");
}

TEST(TextBuffer, ExpectingMoreChangesNothingThatIsWritten) {
    quavera::TextBuffer buffer;
    buffer.Append("text");
    buffer.Expect(100000);
    EXPECT_EQ(buffer.View(), "text");
    buffer.Append(" and more");
    const std::string text = buffer.Take();
    EXPECT_EQ(text, "text and more");
    EXPECT_GE(text.capacity(), 100000U);
}

TEST(TextBuffer, CanBeUsedAgainAfterItsTextWasTaken) {
    quavera::TextBuffer buffer;
    buffer.Append("the first text, which is too long for a string's own buffer");
    const std::string first = buffer.Take();
    EXPECT_EQ(buffer.Size(), 0U);
    buffer.Append("second");
    EXPECT_EQ(buffer.Take(), "second");
    EXPECT_EQ(first, "the first text, which is too long for a string's own buffer");
}

TEST(TextBuffer, ShortTextTakesLittleMemory) {
    quavera::TextBuffer buffer;
    buffer.Append("<a/>");
    EXPECT_LT(buffer.Take().capacity(), 256U);
}

}  // namespace
