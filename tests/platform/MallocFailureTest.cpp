#include "tests/support/AllocationFailure.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <string>

#include "platform/zqshared.h"
#include "tests/support/TreeText.h"

// What is left behind when `malloc` fails, in the XML reader's C library too.

namespace {

using allocation::Attempt;
using allocation::Sweep;
using Tree = zq::auto_com<ZQXML::INode>;

class MallocFailure : public testing::Test {
 protected:
    void SetUp() override { QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE(); }
};

TEST_F(MallocFailure, ReachesTheWholeFamily) {
    void* blocks[6] = {};
    int status = 0;
    const auto allocate = [&] {
        blocks[0] = std::malloc(8);
        blocks[1] = std::calloc(2, 4);
        blocks[2] = std::realloc(nullptr, 8);
        blocks[3] = std::aligned_alloc(64, 64);
        status = posix_memalign(&blocks[4], 64, 64);
        blocks[5] = reallocarray(nullptr, 2, 4);
    };
    const long before = allocation::LiveBlocks();
    EXPECT_EQ(allocation::CountAllocations(allocate), 6U);
    EXPECT_EQ(allocation::LiveBlocks() - before, 6);
    for (void*& block : blocks) {
        EXPECT_NE(block, nullptr);
        std::free(block);
        block = nullptr;
    }
    EXPECT_EQ(allocation::LiveBlocks(), before);
    EXPECT_EQ(status, 0);
    allocation::Arm(0, allocation::Mode::kFromThereOn);
    allocate();
    allocation::Disarm();
    EXPECT_EQ(allocation::FailedCount(), 6U);
    for (void* const block : blocks) {
        EXPECT_EQ(block, nullptr);
    }
    EXPECT_EQ(status, ENOMEM);
}

TEST_F(MallocFailure, ReachesOperatorNew) {
    EXPECT_EQ(allocation::CountAllocations([] {
                  void* volatile block = ::operator new(8);
                  ::operator delete(block);
              }),
              1U);
}

/// Everything that makes the reader allocate: a declaration, long names, many attributes, deep
/// nesting, texts, comments, sections.
std::string Document() {
    const std::string name(3000, 'n');
    std::string text = "<?xml version='1.0' encoding='UTF-8'?><!-- c --><Album>";
    text += "<" + name + " a='1' b='2' c='3' d='4' e='5' f='6' g='7' h='8' i='9' j='10'/>";
    text += "<Title encoding='base64'>Zm9v</Title><Text>x &amp; <![CDATA[y]]> z\r\n</Text>";
    for (int depth = 0; depth < 40; ++depth) {
        text += "<Level>";
    }
    text += std::string(5000, 't');
    for (int depth = 0; depth < 40; ++depth) {
        text += "</Level>";
    }
    return text + "</Album>";
}

TEST_F(MallocFailure, ReadingIsCompleteOrThrows) {
    const std::string text = Document();
    const std::string expected = TreeText(ZQXML::ParseXml(text).get());
    ASSERT_NE(expected, "none");
    EXPECT_TRUE(Sweep(30, [&](Attempt& attempt) {
        Tree tree;
        std::string error = "untouched";
        const bool isComplete = attempt.Run([&] { tree = ZQXML::ParseXml(text, &error); });
        EXPECT_EQ(TreeText(tree.get()), isComplete ? expected : "none");
        EXPECT_EQ(error, "untouched");
    }));
}

/// Whether reading takes far fewer allocations than with a comment, which takes a parser.
bool IsReadWithoutParser(const std::string& text) {
    const auto count = [](const std::string& document) {
        return allocation::CountAllocations([&] { ZQXML::ParseXml(document); });
    };
    return 2 * count(text) < count(text + "<!-- -->");
}

TEST_F(MallocFailure, ReadingOfAWrittenTextTakesNoParser) {
    const Tree tree = ZQXML::ParseXml(Document());
    EXPECT_TRUE(IsReadWithoutParser(ZQXML::WriteXml(tree.get(), true)));
}

/// Whatever names follow each other, and whatever form an encoded text has.
TEST_F(MallocFailure, ReadingOfUnusualOrderAndFormTakesNoParser) {
    for (const std::string text :
         {"<R><B/><A>1</A><B/><Ab>2</Ab><B/><A>3</A></R>", "<R><B/><Ab/><B/><A/></R>",
          R"(<R><B/><A/><B/><A1 encoding="base64"/></R>)", R"(<R encoding="base64">Zm9v</R>)",
          R"(<R><A encoding="base64"> Zm9v</A><A encoding="base64">Zh==</A></R>)",
          R"(<R><A encoding="base64">Zm9v<B/></A><A encoding="base64">&lt;</A></R>)"}) {
        EXPECT_TRUE(IsReadWithoutParser(text)) << text;
        EXPECT_FALSE(IsReadWithoutParser(text + "<!-- -->")) << text;
    }
}

TEST_F(MallocFailure, RefusingThrowsOrExplains) {
    const std::string whole = Document();
    for (const std::string& text : {whole + "x", whole.substr(0, whole.size() - 3),
                                    "<!DOCTYPE a [<!ENTITY x 'y'>]>" + whole}) {
        EXPECT_TRUE(Sweep(6, [&](Attempt& attempt) {
            Tree tree;
            std::string error;
            const bool isComplete = attempt.Run([&] { tree = ZQXML::ParseXml(text, &error); });
            EXPECT_FALSE(tree);
            EXPECT_EQ(!error.empty(), isComplete) << error;
        }));
    }
}

TEST_F(MallocFailure, WritingIsCompleteOrThrows) {
    const Tree tree = ZQXML::ParseXml(Document());
    ASSERT_TRUE(tree);
    // References take more than what is expected of a text, so that the written one has to grow.
    tree->AddChild("References", std::string(30000, '&'));
    const std::string expected = ZQXML::WriteXml(tree.get(), true);
    EXPECT_TRUE(Sweep(3, [&](Attempt& attempt) {
        std::string text;
        const bool isComplete = attempt.Run([&] { text = ZQXML::WriteXml(tree.get(), true); });
        EXPECT_EQ(text, isComplete ? expected : "");
    }));
}

TEST_F(MallocFailure, TraceIsWrittenWithoutMemory) {
    const zq::StackTrace trace;
    const int sink = open("/dev/null", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(sink, 0);
    EXPECT_EQ(allocation::CountAllocations([&] { trace.Write(sink); }), 0U);
    close(sink);
}

}  // namespace
