#ifndef QUAVERA_TESTS_RECORDS_RECORD_TESTING_H_
#define QUAVERA_TESTS_RECORDS_RECORD_TESTING_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "tests/records/Values.h"
#include "tests/soap/SoapDocument.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/FakeNode.h"

/// The rules that hold for every record class, as a test suite over the class.
///
/// A record's test describes its class once and has them all:
///
///     struct TrackCase : RecordCase, SampleTrack {
///         using Record = DataTrackInfo;
///         static constexpr char kEmptyTree[] = "<Track/>";
///         ...
///     };
///     INSTANTIATE_TYPED_TEST_SUITE_P(Track, RecordTest, TrackCase, CaseNames);
///
/// A case has
/// - `Record` and `Soap`, the classes; `Fill(Soap&, Values&)`, which sets every member, and no
///   value twice;
/// - `kTree` and `kText`: the element that the filled SOAP record gives, and the log text of the
///   record that this element fills; `kTextReadTwice`, the log text behind reading it twice;
/// - `kEmptyTree` and `kEmptyText`: the element of a SOAP record without any member, and the log
///   text of a default-constructed record;
/// - what of `RecordCase` is not right for its class.
///
/// Its program links tests/support/AllocationFailure.cpp.
struct RecordCase {
    /// `FromXML` expects the element's parent.
    static constexpr bool kReadsParent = false;
    /// `FromXML` takes the element itself too, but goes by its name.
    static constexpr bool kGoesByName = false;
    /// Elements that add up when they are repeated, instead of replacing one another.
    static std::set<std::string> RepeatedElements() { return {}; }
};

/// The part of a test's name that stands for its case: there is only one for each class.
struct CaseNames {
    template <class Case>
    static std::string GetName(int /*index*/) {
        return "Rules";
    }
};

// --- Trees and records from and to text --------------------------------------------------------

/// The tree of an XML text that is right.
inline zq::auto_com<ZQXML::INode> Parse(std::string_view xml) {
    std::string error;
    auto node = ZQXML::ParseXml(xml, &error);
    EXPECT_TRUE(node) << error << " in " << xml;
    return node ? std::move(node) : ZQXML::CreateXmlNode();
}

/// Fills `record` from the tree of an XML text, whose root is the node that the class expects.
template <class Record>
void ReadNode(Record& record, std::string_view xml) {
    record.FromXML(Parse(xml).get());
}

/// A record filled in this way.
template <class Record>
Record FromTree(std::string_view xml) {
    Record record;
    ReadNode(record, xml);
    return record;
}

/// The element that a SOAP record gives, as XML text.
template <class Record, class Soap>
std::string TreeOf(Soap& soap) {
    return ZQXML::WriteXml(Record::ToXML(&soap).get());
}

/// The elements of an XML text's root, each as a name and an XML text.
struct Element {
    std::string name;
    std::string xml;
    bool isNested;

    /// The same element under another name.
    std::string Renamed(const std::string& newName) const {
        std::string text = xml;
        const std::size_t end = text.rfind("</" + name);
        if (end != std::string::npos) {
            text.replace(end + 2, name.size(), newName);
        }
        return text.replace(1, name.size(), newName);
    }
};

inline std::vector<Element> ElementsOf(std::string_view xml) {
    const auto root = Parse(xml);
    std::vector<Element> elements;
    ZQXML::INodeList* const children = root->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        elements.push_back({child->GetName(), ZQXML::WriteXml(child), child->HasChildren()});
    }
    return elements;
}

inline std::string Wrapped(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

/// A copy of a tree in nodes of another implementation.
inline zq::auto_com<FakeNode> FakeCopy(ZQXML::INode* original) {
    auto copy = FakeNode::Create(original->GetName(), original->GetValue());
    ZQXML::INodeList* const children = original->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        copy->AppendChild(FakeCopy(child).get());
    }
    return copy;
}

/// The whole way from the service to a log: a SOAP document (a file below tests/data, whose record
/// element is `type`) is decoded, gives an element, which travels as text and fills a record.
template <class Case>
void ExpectDocument(const std::string& path, const char* type, const std::string& tree,
                    const std::string& text) {
    SCOPED_TRACE(path);
    SoapDocument<typename Case::Soap> document(TestData(path), type);
    const std::string written = TreeOf<typename Case::Record>(*document);
    EXPECT_EQ(written, tree);
    auto record =
        FromTree<typename Case::Record>(Case::kReadsParent ? Wrapped("Parent", written) : written);
    EXPECT_EQ(record.ToString(), text);
}

/// Compiles only where all these fields are of that type.
template <class Type, class... Records>
constexpr bool AreAll(Type Records::*... fields) {
    return sizeof...(fields) > 0;
}

/// Values of the unsigned numbers of 32 bits, beyond a signed number's range too.
inline constexpr unsigned long kUnsignedDates[] = {0, 1, 2147483647, 2147483648, 4294967295};

/// The two-argument writer adds its elements, in order, behind those of any node.
template <class Case>
void ExpectWritesIntoAnyNode() {
    Values values;
    typename Case::Soap soap;
    Case::Fill(soap, values);
    const auto node = Parse("<Other><First>1</First></Other>");
    Case::Record::ToXML(node.get(), &soap);
    std::string content = "<First>1</First>";
    for (const Element& element : ElementsOf(Case::kTree)) {
        content += element.xml;
    }
    EXPECT_EQ(ZQXML::WriteXml(node.get()), Wrapped("Other", content));
}

/// The way of a SOAP record to its receiver: tree, text, tree, record.
template <class Record, class Soap>
Record ThroughText(Soap& soap) {
    return FromTree<Record>(TreeOf<Record>(soap));
}

template <class Field>
struct ReadText {
    const char* text;
    Field value;
};

/// What texts of an element, which stands below `root`, give their field in place of `before`.
template <class Record, class Field>
void ExpectFieldReads(const std::string& root, const std::string& element, Field Record::*field,
                      const Field& before, const std::vector<ReadText<Field>>& cases) {
    for (const auto& each : cases) {
        Record record;
        record.*field = before;
        ReadNode(record, Wrapped(root, Wrapped(element, each.text)));
        EXPECT_EQ(record.*field, each.value) << element << ": " << each.text;
    }
}

/// A number's element: its field holds what the node takes the text for.
template <class Record>
void ExpectReadsNumber(const std::string& root, const std::string& element, int Record::*field) {
    ExpectFieldReads<Record, int>(root, element, field, 77,
                                  {{"", 0},
                                   {"seven", 0},
                                   {"0", 0},
                                   {"  42nd", 42},
                                   {"-6x", -6},
                                   {"2147483647", 2147483647},
                                   {"-2147483648", -2147483647 - 1},
                                   {"2147483648", -2147483647 - 1},
                                   {"4294967295", -1}});
}

/// A plain text's element: its field holds the text unchanged.
template <class Record>
void ExpectReadsPlain(const std::string& root, const std::string& element,
                      std::string Record::*field) {
    ExpectFieldReads<Record, std::string>(
        root, element, field, "before",
        {{"", ""}, {" &lt;a&amp;b&gt; 漢 🎵 ", " <a&b> 漢 🎵 "}, {"R3LDvMOfZQ==", "R3LDvMOfZQ=="}});
}

/// A display text's element: its field holds the decoded text, and nothing where it is no base64.
template <class Record>
void ExpectReadsDisplay(const std::string& root, const std::string& element,
                        std::wstring Record::*field) {
    ExpectFieldReads<Record, std::wstring>(root, element, field, L"before",
                                           {{"", L""},
                                            {"R3LDvMOfZQ==", L"Gr\u00FC\u00DFe"},
                                            {"5ryi", L"\u6F22"},
                                            {"8J+OtQ==", L"\U0001F3B5"},
                                            {"Größe!", L""}});
}

/// Whether a SOAP record can be written into a given node: there is a two-argument writer.
template <class Record, class Soap, class = void>
struct WritesIntoGivenNode : std::false_type {};
template <class Record, class Soap>
struct WritesIntoGivenNode<
    Record, Soap,
    std::void_t<decltype(Record::ToXML(std::declval<ZQXML::INode*>(), std::declval<Soap*>()))>>
    : std::true_type {};

/// The constructor that takes these arguments gives the field no value: it holds the bytes that the
/// memory held before.
template <class Record, class Field, class... Arguments>
void ExpectConstructorLeaves(Field Record::*field, Arguments... arguments) {
    for (const int pattern : {0x00, 0xA5}) {
        alignas(Record) unsigned char memory[sizeof(Record)];
        std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(pattern));
        auto* const record = ::new (memory) Record(arguments...);
        const auto* const found = reinterpret_cast<const unsigned char*>(&(record->*field));
        EXPECT_EQ(std::count(found, found + sizeof(Field), pattern),
                  static_cast<std::ptrdiff_t>(sizeof(Field)));
        record->~Record();
    }
}

// --- The rules ---------------------------------------------------------------------------------

template <class Case>
class RecordTest : public testing::Test {
 protected:
    static std::string ElementName() { return Parse(Case::kTree)->GetName(); }

    /// The XML text of the node that the class expects, where `xml` is its element.
    static std::string Expected(const std::string& xml) {
        return Case::kReadsParent ? Wrapped("Parent", xml) : xml;
    }
    static void Read(typename Case::Record& record, const std::string& xml) {
        ReadNode(record, Expected(xml));
    }

    /// The log text of a new record that has read an element with this content.
    static std::string TextOf(const std::string& content) {
        typename Case::Record record;
        Read(record, Wrapped(ElementName(), content));
        return record.ToString();
    }

    /// The whole tree's elements, each changed by `change`, one behind the other.
    template <class Change>
    static std::string Changed(Change change) {
        std::string content;
        for (const Element& element : ElementsOf(Case::kTree)) {
            content += change(element);
        }
        return content;
    }
    static std::string Content() {
        return Changed([](const Element& element) { return element.xml; });
    }

    static typename Case::Record FullRecord() {
        return FromTree<typename Case::Record>(Expected(Case::kTree));
    }
    static std::string EmptyText() { return Case::kEmptyText; }
};

TYPED_TEST_SUITE_P(RecordTest);

TYPED_TEST_P(RecordTest, WritesNoElementForAnAbsentMember) {
    typename TypeParam::Soap soap;
    EXPECT_EQ(TreeOf<typename TypeParam::Record>(soap), TypeParam::kEmptyTree);
}

TYPED_TEST_P(RecordTest, WritesEveryMemberInOrder) {
    Values values;
    typename TypeParam::Soap soap;
    TypeParam::Fill(soap, values);
    EXPECT_EQ(TreeOf<typename TypeParam::Record>(soap), TypeParam::kTree);
}

TYPED_TEST_P(RecordTest, ReadsAndRendersEveryField) {
    EXPECT_EQ(this->FullRecord().ToString(), TypeParam::kText);
}

TYPED_TEST_P(RecordTest, RendersADefaultRecord) {
    typename TypeParam::Record record;
    EXPECT_EQ(record.ToString(), TypeParam::kEmptyText);
}

TYPED_TEST_P(RecordTest, AbsentElementsLeaveFieldsAsTheyAre) {
    auto record = this->FullRecord();
    this->Read(record, Wrapped(this->ElementName(), ""));
    EXPECT_EQ(record.ToString(), TypeParam::kText);
}

TYPED_TEST_P(RecordTest, NullNodeCountsAsEmpty) {
    auto record = this->FullRecord();
    record.FromXML(nullptr);
    EXPECT_EQ(record.ToString(), TypeParam::kText);
}

TYPED_TEST_P(RecordTest, ReadingTwiceDoublesListsOnly) {
    auto record = this->FullRecord();
    this->Read(record, TypeParam::kTree);
    EXPECT_EQ(record.ToString(), TypeParam::kTextReadTwice);
}

TYPED_TEST_P(RecordTest, IgnoresUnknownElements) {
    const std::string content = this->Changed([](const Element& element) {
        return "<Unknown>1</Unknown>" + element.xml + "<Other><Unknown/></Other><_/>";
    });
    EXPECT_EQ(this->TextOf(content), TypeParam::kText);
}

TYPED_TEST_P(RecordTest, IgnoresElementsFurtherDown) {
    EXPECT_EQ(this->TextOf(Wrapped("Other", this->Content())), this->EmptyText());
}

TYPED_TEST_P(RecordTest, MatchesNamesExactly) {
    const std::vector<std::string (*)(std::string)> misspellings = {
        [](std::string name) {
            std::transform(name.begin(), name.end(), name.begin(), [](char character) {
                return static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
            });
            return name;
        },
        [](std::string name) {
            const auto first = static_cast<unsigned char>(name[0]);
            name[0] = static_cast<char>(std::isupper(first) != 0 ? std::tolower(first)
                                                                 : std::toupper(first));
            return name;
        },
        [](std::string name) { return name + "s"; },
        [](std::string name) { return "X" + name; },
        [](std::string name) { return name.substr(0, name.size() - 1); },
    };
    for (const auto misspell : misspellings) {
        const std::string content = this->Changed(
            [misspell](const Element& element) { return element.Renamed(misspell(element.name)); });
        EXPECT_EQ(this->TextOf(content), this->EmptyText()) << content;
    }
}

TYPED_TEST_P(RecordTest, LastOfRepeatedElementsCounts) {
    const std::set<std::string> addingUp = TypeParam::RepeatedElements();
    const std::string content = this->Changed([&addingUp](const Element& element) {
        const bool isReplaced = !element.isNested && addingUp.count(element.name) == 0;
        // A text, a number and a base64 text in one.
        return (isReplaced ? Wrapped(element.name, "1234") : "") + element.xml;
    });
    EXPECT_EQ(this->TextOf(content), TypeParam::kText);
}

TYPED_TEST_P(RecordTest, OrderOfElementsDoesNotMatter) {
    std::string content;
    for (const Element& element : ElementsOf(TypeParam::kTree)) {
        const bool addsUp = TypeParam::RepeatedElements().count(element.name) > 0;
        content.insert(addsUp ? content.size() : 0, element.xml);
    }
    EXPECT_EQ(this->TextOf(content), TypeParam::kText);
}

TYPED_TEST_P(RecordTest, OwnElementIsTakenByNameOnlyBelowAParent) {
    typename TypeParam::Record record;
    this->Read(record, Wrapped("Other", this->Content()));
    const bool isTakenByName = TypeParam::kReadsParent || TypeParam::kGoesByName;
    EXPECT_EQ(record.ToString(), isTakenByName ? this->EmptyText() : TypeParam::kText);
}

TYPED_TEST_P(RecordTest, ReadsNodesOfAnyImplementation) {
    const int before = FakeNode::LiveCount();
    {
        typename TypeParam::Record record;
        const auto node = FakeCopy(Parse(this->Expected(TypeParam::kTree)).get());
        record.FromXML(node.get());
        EXPECT_EQ(record.ToString(), TypeParam::kText);
    }
    EXPECT_EQ(FakeNode::LiveCount(), before);
}

TYPED_TEST_P(RecordTest, CopiesAndMovesKeepEveryField) {
    using Record = typename TypeParam::Record;
    Record original = this->FullRecord();
    Record copy(original);
    Record assigned;
    assigned = original;
    EXPECT_EQ(copy.ToString(), TypeParam::kText);
    EXPECT_EQ(assigned.ToString(), TypeParam::kText);
    EXPECT_EQ(original.ToString(), TypeParam::kText);

    Record moved(std::move(copy));
    EXPECT_EQ(moved.ToString(), TypeParam::kText);
    Record moveAssigned;
    moveAssigned = std::move(moved);
    EXPECT_EQ(moveAssigned.ToString(), TypeParam::kText);
}

TYPED_TEST_P(RecordTest, GrowingVectorKeepsEveryField) {
    std::vector<typename TypeParam::Record> records;
    const auto original = this->FullRecord();
    while (records.size() < 9) {
        records.push_back(original);
    }
    for (auto& record : records) {
        EXPECT_EQ(record.ToString(), TypeParam::kText);
    }
}

TYPED_TEST_P(RecordTest, IsAValueWithAVirtualDestructor) {
    using Record = typename TypeParam::Record;
    EXPECT_TRUE(std::has_virtual_destructor_v<Record>);
    EXPECT_TRUE(std::is_copy_constructible_v<Record> && std::is_copy_assignable_v<Record>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Record>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Record>);
}

TYPED_TEST_P(RecordTest, ServesThroughItsBase) {
    using Record = typename TypeParam::Record;
    if constexpr (std::is_base_of_v<QuavData, Record>) {
        const std::unique_ptr<QuavData> record = std::make_unique<Record>();
        record->FromXML(Parse(this->Expected(TypeParam::kTree)).get());
        EXPECT_EQ(record->ToString(), TypeParam::kText);
    } else {
        GTEST_SKIP() << "its own root";
    }
}

TYPED_TEST_P(RecordTest, TreeGoesWithItsOnlyReference) {
    Values values;
    typename TypeParam::Soap soap;
    TypeParam::Fill(soap, values);
    const long before = allocation::LiveBlocks();
    {
        const auto node = TypeParam::Record::ToXML(&soap);
        EXPECT_GT(allocation::LiveBlocks(), before);
    }
    EXPECT_EQ(allocation::LiveBlocks(), before);
}

// The base64 functions turn a failed allocation into an empty text, so that an operation may end
// normally in spite of one.
TYPED_TEST_P(RecordTest, FailedAllocationLosesNothing) {
    Values values;
    typename TypeParam::Soap soap;
    TypeParam::Fill(soap, values);
    EXPECT_TRUE(allocation::Sweep(1, [&soap](allocation::Attempt& attempt) {
        attempt.RunTolerantly([&soap] { TypeParam::Record::ToXML(&soap); });
    }));

    const auto node = Parse(this->Expected(TypeParam::kTree));
    EXPECT_TRUE(allocation::Sweep(1, [&node](allocation::Attempt& attempt) {
        attempt.RunTolerantly([&node] {
            typename TypeParam::Record record;
            record.FromXML(node.get());
            record.ToString();
        });
    }));
}

REGISTER_TYPED_TEST_SUITE_P(RecordTest, WritesNoElementForAnAbsentMember, WritesEveryMemberInOrder,
                            ReadsAndRendersEveryField, RendersADefaultRecord,
                            AbsentElementsLeaveFieldsAsTheyAre, NullNodeCountsAsEmpty,
                            ReadingTwiceDoublesListsOnly, IgnoresUnknownElements,
                            IgnoresElementsFurtherDown, MatchesNamesExactly,
                            LastOfRepeatedElementsCounts, OrderOfElementsDoesNotMatter,
                            OwnElementIsTakenByNameOnlyBelowAParent, ReadsNodesOfAnyImplementation,
                            CopiesAndMovesKeepEveryField, GrowingVectorKeepsEveryField,
                            IsAValueWithAVirtualDestructor, ServesThroughItsBase,
                            TreeGoesWithItsOnlyReference, FailedAllocationLosesNothing);

#endif  // QUAVERA_TESTS_RECORDS_RECORD_TESTING_H_
