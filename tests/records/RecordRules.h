#ifndef QUAVERA_TESTS_RECORDS_RECORD_RULES_H_
#define QUAVERA_TESTS_RECORDS_RECORD_RULES_H_

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "tests/records/Values.h"

/// The rules that hold for every record class stand in RecordRulesTest.cpp. A record's test
/// describes its class once and has them all:
///
///     struct TrackCase : RecordCase, SampleTrack {
///         using Record = DataTrackInfo;
///         static constexpr char kEmptyTree[] = "<Track/>";
///         ...
///     };
///     const RulesFor<TrackCase> kRules("DataTrackInfo");
///
/// A case has
/// - `Record` and `Soap`, the classes; `Fill(Soap&, Values&)`, which sets every member, and no
///   value twice;
/// - `kTree` and `kText`: the element that the filled SOAP record gives, and the log text of the
///   record that this element fills; `kTextReadTwice`, the log text after reading it twice;
/// - `kEmptyTree` and `kEmptyText`: the element of a SOAP record without any member, and the log
///   text of a default-constructed record;
/// - what of `RecordCase` is not right for its class.
struct RecordCase {
    /// `FromXML` expects the element's parent.
    static constexpr bool kReadsParent = false;
    /// `FromXML` takes the element itself too, but goes by its name.
    static constexpr bool kGoesByName = false;
    /// There is a writer of two arguments.
    static constexpr bool kWritesIntoGivenNode = true;
    /// Elements that add up when they are repeated, instead of replacing one another.
    static std::set<std::string> RepeatedElements() { return {}; }
};

/// A SOAP record of the case's class.
class RuleSoap {
 public:
    RuleSoap() = default;
    RuleSoap(const RuleSoap&) = delete;
    RuleSoap& operator=(const RuleSoap&) = delete;
    virtual ~RuleSoap() = default;

    virtual zq::auto_com<ZQXML::INode> Write() = 0;
    /// No effect without a writer of two arguments.
    virtual void WriteInto(ZQXML::INode* node) = 0;
};

/// A case as the rules see it, which are compiled only once: its constants, facts about its types,
/// and functions in place of the types themselves.
struct RuleCase {
    std::string name;
    std::string tree;
    std::string text;
    std::string textReadTwice;
    std::string emptyTree;
    std::string emptyText;
    bool readsParent;
    bool goesByName;
    bool writesIntoGivenNode;
    std::set<std::string> repeatedElements;

    bool hasVirtualDestructor;
    bool isCopyable;
    bool movesWithoutThrowing;

    std::unique_ptr<RuleSoap> (*emptySoap)();
    std::unique_ptr<RuleSoap> (*filledSoap)();
    /// The log text of a new record that has read these nodes one after the other.
    std::string (*textOf)(const std::vector<ZQXML::INode*>& nodes);
    /// The same for one node, read and rendered by way of `QuavData`; null where that is no base.
    std::string (*textThroughBase)(ZQXML::INode* node);
    /// The log texts of a record that has read the node, and of its copies in every form.
    std::vector<std::string> (*textsOfCopies)(ZQXML::INode* node);
    /// Those of nine copies in a vector that has grown with them.
    std::vector<std::string> (*textsOfVector)(ZQXML::INode* node);
};

/// All cases of the program, in the order of their registration.
const std::vector<RuleCase>& RuleCases();

/// Has RuleCases() call `make` with the name.
void RegisterRuleCase(const char* name, RuleCase (*make)(const char* name));

/// Whether a SOAP record can be written into a given node: there is a two-argument writer.
template <class Record, class Soap, class = void>
struct WritesIntoGivenNode : std::false_type {};
template <class Record, class Soap>
struct WritesIntoGivenNode<
    Record, Soap,
    std::void_t<decltype(Record::ToXML(std::declval<ZQXML::INode*>(), std::declval<Soap*>()))>>
    : std::true_type {};

/// How the functions of a RuleCase are made from a case.
template <class Case>
class RuleCaseOf {
    using Record = typename Case::Record;
    using Soap = typename Case::Soap;
    static_assert(WritesIntoGivenNode<Record, Soap>::value == Case::kWritesIntoGivenNode);

    class SoapOf : public RuleSoap {
     public:
        zq::auto_com<ZQXML::INode> Write() override { return Record::ToXML(&soap_); }
        void WriteInto(ZQXML::INode* node) override {
            if constexpr (Case::kWritesIntoGivenNode) {
                Record::ToXML(node, &soap_);
            }
        }
        void Fill() { Case::Fill(soap_, values_); }

     private:
        Values values_;
        Soap soap_;
    };

    static std::unique_ptr<RuleSoap> EmptySoap() { return std::make_unique<SoapOf>(); }
    static std::unique_ptr<RuleSoap> FilledSoap() {
        auto soap = std::make_unique<SoapOf>();
        soap->Fill();
        return soap;
    }

    static std::string TextOf(const std::vector<ZQXML::INode*>& nodes) {
        Record record;
        for (ZQXML::INode* const node : nodes) {
            record.FromXML(node);
        }
        return record.ToString();
    }

    static std::string TextThroughBase(ZQXML::INode* node) {
        const std::unique_ptr<QuavData> record = std::make_unique<Record>();
        record->FromXML(node);
        return record->ToString();
    }

    static std::vector<std::string> TextsOfCopies(ZQXML::INode* node) {
        Record original;
        original.FromXML(node);
        Record copy(original);
        Record assigned;
        assigned = original;
        std::vector<std::string> texts = {copy.ToString(), assigned.ToString(),
                                          original.ToString()};
        Record moved(std::move(copy));
        texts.push_back(moved.ToString());
        Record moveAssigned;
        moveAssigned = std::move(moved);
        texts.push_back(moveAssigned.ToString());
        return texts;
    }

    static std::vector<std::string> TextsOfVector(ZQXML::INode* node) {
        Record original;
        original.FromXML(node);
        std::vector<Record> records;
        while (records.size() < 9) {
            records.push_back(original);
        }
        std::vector<std::string> texts(records.size());
        std::transform(records.begin(), records.end(), texts.begin(),
                       [](Record& record) { return record.ToString(); });
        return texts;
    }

 public:
    static RuleCase Make(const char* name) {
        RuleCase made;
        made.name = name;
        made.tree = Case::kTree;
        made.text = Case::kText;
        made.textReadTwice = Case::kTextReadTwice;
        made.emptyTree = Case::kEmptyTree;
        made.emptyText = Case::kEmptyText;
        made.readsParent = Case::kReadsParent;
        made.goesByName = Case::kGoesByName;
        made.writesIntoGivenNode = Case::kWritesIntoGivenNode;
        made.repeatedElements = Case::RepeatedElements();
        made.hasVirtualDestructor = std::has_virtual_destructor_v<Record>;
        made.isCopyable = std::is_copy_constructible_v<Record> && std::is_copy_assignable_v<Record>;
        made.movesWithoutThrowing = std::is_nothrow_move_constructible_v<Record> &&
                                    std::is_nothrow_move_assignable_v<Record>;
        made.emptySoap = EmptySoap;
        made.filledSoap = FilledSoap;
        made.textOf = TextOf;
        made.textThroughBase = nullptr;
        if constexpr (std::is_base_of_v<QuavData, Record>) {
            made.textThroughBase = TextThroughBase;
        }
        made.textsOfCopies = TextsOfCopies;
        made.textsOfVector = TextsOfVector;
        return made;
    }
};

/// Has the rules for a case. The name is that of the record class; after a "/" stands what sets a
/// further case of the same class apart.
template <class Case>
class RulesFor {
 public:
    explicit RulesFor(const char* name) { RegisterRuleCase(name, RuleCaseOf<Case>::Make); }
};

#endif  // QUAVERA_TESTS_RECORDS_RECORD_RULES_H_
