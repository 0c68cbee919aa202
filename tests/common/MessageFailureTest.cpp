// Messages, brandings and texts from a socket, with each of their allocations failing in turn.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "common/QuaveraCommon.h"
#include "soap/QuaveraH.h"
#include "tests/support/AllocationFailure.h"

namespace {

using allocation::Attempt;
using allocation::Sweep;

class MessageFailure : public testing::Test {
 protected:
    void SetUp() override { QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE(); }

    /// Sweeps over work that gives a text. One of more than 15 bytes is at least one allocation.
    template <class Work>
    static void ExpectGivesOrThrows(const std::string& expected, Work work) {
        constexpr std::size_t kLongestShort = 15;
        EXPECT_TRUE(Sweep(expected.size() > kLongestShort ? 1 : 0, [&](Attempt& attempt) {
            std::string text;
            const bool isComplete = attempt.Run([&] { text = work(); });
            EXPECT_EQ(text, isComplete ? expected : "");
            EXPECT_EQ(work(), expected);
        })) << expected;
    }
};

TEST_F(MessageFailure, OfEveryCodeIsOrderly) {
    constexpr int kFirst = QuavResultAccountInUse - 1;
    constexpr int kLast = QuavResultDataNotAvailable + 1;
    for (const QuaveraBranding branding : {BrandingQuavera, BrandingOstinex}) {
        for (int code = kFirst; code <= kLast; ++code) {
            ExpectGivesOrThrows(QuavErrorToString(code, branding),
                                [=] { return QuavErrorToString(code, branding); });
        }
    }
}

TEST_F(MessageFailure, OfABrandingIsOrderly) {
    const std::string longName(100, 'x');
    const auto brandingOf = [&] {
        return QuaveraBrandingToString(QuaveraBrandingFromString(longName)) +
               QuaveraBrandingToString(QuaveraBrandingFromString("OSTINEX")) +
               QuaveraBrandingToString(GetQuaveraBranding(longName));
    };
    ExpectGivesOrThrows("QuaveraOstinexOstinex", brandingOf);
}

/// A context whose peer has sent a text of 100 bytes, again and again.
class Sender {
 public:
    Sender() : context_(soap_new()) {
        context_->user = this;
        context_->frecv = [](struct soap* context, char* to, std::size_t size) {
            return static_cast<Sender*>(context->user)->Send(to, size);
        };
    }
    Sender(const Sender&) = delete;
    Sender& operator=(const Sender&) = delete;
    ~Sender() { soap_free(context_); }

    std::string Receive() {
        sent_ = 0;
        return GetStringFromSocket(context_);
    }
    static const std::string& Text() {
        static const std::string kText(100, 't');
        return kText;
    }

 private:
    std::size_t Send(char* to, std::size_t size) {
        static const std::string kMessage = std::string("\0\x64", 2) + Text();
        const std::size_t count = kMessage.copy(to, size, sent_);
        sent_ += count;
        return count;
    }

    struct soap* context_;
    std::size_t sent_ = 0;
};

TEST_F(MessageFailure, OfATextFromASocketIsOrderly) {
    Sender sender;
    ExpectGivesOrThrows(Sender::Text(), [&sender] { return sender.Receive(); });
}

}  // namespace
