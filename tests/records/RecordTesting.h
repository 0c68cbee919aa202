#ifndef QUAVERA_TESTS_RECORDS_RECORD_TESTING_H_
#define QUAVERA_TESTS_RECORDS_RECORD_TESTING_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/zqshared.h"
#include "tests/records/RecordRules.h"
#include "tests/records/Values.h"
#include "tests/soap/SoapDocument.h"

/// What the tests of the records share: trees and records from and to text.

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

/// A child of an XML text's root.
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
        elements.push_back(
            {child->GetName(), ZQXML::WriteXml(child), child->GetChildren()->First() != nullptr});
    }
    return elements;
}

inline std::string Wrapped(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
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

#endif  // QUAVERA_TESTS_RECORDS_RECORD_TESTING_H_
