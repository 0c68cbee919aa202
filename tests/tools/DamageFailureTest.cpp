// Documents that are cut or damaged anywhere: the tool prints them or refuses them, and refuses all
// that are not well-formed.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/zqshared.h"
#include "tests/tools/Files.h"
#include "tools/Printing.h"

namespace {

using tool::Form;
using tool::RecordClass;
using tool::Result;

constexpr std::size_t kValues = 256;  // of a byte

// Of these, one in so many is tried, other ones at each place: where tests are quick, all of them
// in the documents of one class. Where they are slow, not all cuts are tried either.
#ifdef QUAVERA_TEST_EVERY_INPUT
constexpr std::string_view kWholeClass = "DataTrackInfo";
constexpr std::size_t kShare = 61;
constexpr std::size_t kCuts = 1;
#else
constexpr std::string_view kWholeClass;  // none
constexpr std::size_t kShare = 251;
constexpr std::size_t kCuts = 7;
#endif

class Damage {
 public:
    explicit Damage(const RecordClass& record) : record_(record) {}
    Damage(const Damage&) = delete;
    Damage& operator=(const Damage&) = delete;
    virtual ~Damage() = default;

    /// Cuts the document at each place that is tried.
    void Cut() {
        const std::string document = Document();
        const std::size_t end = document.rfind('>');
        for (std::size_t size = 0; size <= end; size += kCuts) {
            EXPECT_FALSE(Print(document.substr(0, size))) << "the first " << size << " bytes";
        }
        EXPECT_TRUE(Print(document.substr(0, end + 1)));
    }

    /// Gives each byte other values, one in `step`.
    void Change(std::size_t step) {
        const std::string document = Document();
        std::string damaged = document;
        for (std::size_t at = 0; at < document.size(); ++at) {
            for (std::size_t value = at % step; value < kValues; value += step) {
                damaged[at] = static_cast<char>(static_cast<unsigned char>(value));
                Check(damaged);
            }
            damaged[at] = document[at];
        }
        EXPECT_GT(printed_, document.size() / step);
        EXPECT_GT(refused_, document.size() / step);
    }

 protected:
    const RecordClass& Record() const { return record_; }
    std::string File(const std::string& name) const {
        return tooltest::Contents(tooltest::DataPath(std::string(record_.name) + '/' + name));
    }

 private:
    virtual std::string Document() = 0;
    virtual Result<std::string> Print(const std::string& document) = 0;

    void Check(const std::string& document) {
        const Result<std::string> printed = Print(document);
        if (printed) {
            ++printed_;
            EXPECT_TRUE(ZQXML::ParseXml(document)) << document;
        } else {
            ++refused_;
            EXPECT_EQ(printed.failure().where, "there");
            EXPECT_NE(printed.failure().what, "");
        }
    }

    const RecordClass& record_;
    std::size_t printed_ = 0;
    std::size_t refused_ = 0;
};

class SoapDamage : public Damage {
    using Damage::Damage;
    std::string Document() override { return File("full.xml"); }
    Result<std::string> Print(const std::string& document) override {
        return tool::PrintSoap(document, "there", &Record(), Form::kText);
    }
};

class TreeDamage : public Damage {
    using Damage::Damage;
    std::string Document() override { return File("full.tree.xml"); }
    Result<std::string> Print(const std::string& document) override {
        return tool::PrintText(document, "there", &Record());
    }
};

class DamageFailure : public testing::TestWithParam<RecordClass> {
 protected:
    static std::size_t Step() { return GetParam().name == kWholeClass ? 1 : kShare; }
};

INSTANTIATE_TEST_SUITE_P(All, DamageFailure, testing::ValuesIn(tool::RecordClasses()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(DamageFailure, OfSoapThatIsCut) {
    SoapDamage(GetParam()).Cut();
}

TEST_P(DamageFailure, OfSoapWithAnotherByte) {
    SoapDamage(GetParam()).Change(Step());
}

TEST_P(DamageFailure, OfATreeThatIsCut) {
    TreeDamage(GetParam()).Cut();
}

TEST_P(DamageFailure, OfATreeWithAnotherByte) {
    TreeDamage(GetParam()).Change(Step());
}

}  // namespace
