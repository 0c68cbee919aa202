#ifndef QUAVERA_TESTS_GROWTH_GROWTH_H_
#define QUAVERA_TESTS_GROWTH_GROWTH_H_

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

/// How the work of an operation grows with its input, in instructions, which do not depend on the
/// machine's load as time does. The programs run under valgrind's callgrind, which counts them.
namespace growth {

/// Work on an input of that size, made ready ahead of what is counted.
using Work = std::function<void()>;
using Preparation = std::function<Work(std::size_t size)>;

/// The number of instructions of `work`.
std::uint64_t CountInstructions(const Work& work);

/// Whether the work on inputs of n, 2n and 4n grows at most 2.2-fold at each step, that on none
/// being left out; and is at least one instruction for each unit of the size.
testing::AssertionResult IsLinear(const Preparation& prepare, std::size_t size = 1000);

/// `piece` as often as `count` says.
std::string Repeated(std::size_t count, const std::string& piece);
/// The pieces for 0, 1, ...
std::string Numbered(std::size_t count,
                     const std::function<std::string(const std::string& number)>& piece);
/// An element around `content`.
std::string Element(const std::string& name, const std::string& content);
/// That many elements of that name, one in the other.
std::string Levels(std::size_t count, const std::string& name);

/// Tests that count are skipped elsewhere than under the counting tool.
class GrowthTest : public testing::Test {
 protected:
    void SetUp() override;
};

}  // namespace growth

#endif  // QUAVERA_TESTS_GROWTH_GROWTH_H_
