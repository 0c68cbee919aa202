// Every record, filled from a tree of any form, of our nodes and of another maker's, against a
// naive reader; and what a record has read, in its copies.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/NaiveRecords.h"
#include "fuzz/Target.h"
#include "fuzz/Trees.h"
#include "platform/zqshared.h"
#include "tests/support/FakeNode.h"
#include "tests/support/StrictNode.h"

namespace {

using fuzz::ExpectSame;
using fuzz::Tree;

// --- What log texts lack -----------------------------------------------------------------------

template <class Record>
std::wstring Unprinted(const Record& /*record*/) {
    return {};
}

std::wstring Unprinted(const std::vector<DataTrackInfo>& tracks) {
    std::wstring text;
    for (const DataTrackInfo& track : tracks) {
        text += std::wstring(track.genreId.begin(), track.genreId.end()) + L'\n';
    }
    return text;
}
std::wstring Unprinted(const DataTrackInfo& record) {
    return std::wstring(record.genreId.begin(), record.genreId.end()) + L' ' +
           std::to_wstring(record.rightFlags);
}
std::wstring Unprinted(const DataAlbum& record) {
    return Unprinted(record.tracks);
}
std::wstring Unprinted(const DataGenre& record) {
    return record.description;
}
std::wstring Unprinted(const DataPlaylist& record) {
    return Unprinted(record.tracks);
}
std::wstring Unprinted(const DataMemberLibrary& record) {
    return Unprinted(record.tracks);
}

template <class Record>
Record NewRecord() {
    return Record();
}
template <>
DataTrackInfo NewRecord() {
    DataTrackInfo track;
    track.rightFlags = 0;  // has no value by itself
    return track;
}

// --- The rules ---------------------------------------------------------------------------------

template <class Record>
void ExpectSameRecords(Record* actual, Record* expected, const char* rule) {
    ExpectSame(actual->ToString(), expected->ToString(), rule);
    ExpectSame(Unprinted(*actual), Unprinted(*expected), rule);
}

/// Reads once, and once more into the same record.
template <class Record>
void CheckReading(ZQXML::INode* tree, const char* rule) {
    auto record = NewRecord<Record>();
    auto expected = NewRecord<Record>();
    for (int reading = 0; reading < 2; ++reading) {
        record.FromXML(tree);
        fuzz::NaiveRead(tree, &expected);
        ExpectSameRecords(&record, &expected, rule);
    }
    record.FromXML(nullptr);
    ExpectSameRecords(&record, &expected, "a null node counts as empty");
}

template <class Record>
void CheckCopies(ZQXML::INode* tree) {
    auto record = NewRecord<Record>();
    record.FromXML(tree);
    Record copy(record);
    ExpectSameRecords(&copy, &record, "a copy is the same");
    auto assigned = NewRecord<Record>();
    assigned = record;
    ExpectSameRecords(&assigned, &record, "what is assigned is the same");
    Record moved(std::move(copy));
    ExpectSameRecords(&moved, &record, "what is moved is the same");
    assigned = std::move(moved);
    ExpectSameRecords(&assigned, &record, "what is assigned by moving is the same");
}

/// Whether a name in the tree has one, which would pass for two names in a path.
bool HasSlash(ZQXML::INode* tree) {
    bool found = tree->GetName().find('/') != std::string::npos;
    ZQXML::INodeList* const children = tree->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        found = found || HasSlash(child);
    }
    return found;
}

/// Reads from nodes that have what is required alone, and tell what is done beyond that.
template <class Record>
void CheckUse(ZQXML::INode* tree, StrictTree::Lists lists) {
    if (HasSlash(tree)) {
        return;
    }
    StrictTree strict(lists, tree);
    constexpr int kMostLevels = 5;  // of an album's tracks
    std::string path = "*";
    for (int level = 1; level <= kMostLevels; ++level, path += "/*") {
        for (const char* const operation : {"GetValue", "GetValueInt", "GetValueDecoded"}) {
            strict.Allow(path, operation);
        }
    }
    auto record = NewRecord<Record>();
    record.FromXML(strict.Root());
    ExpectSame<std::string>(strict.Violations(), "", "nodes are used by their rules");
    ExpectSame<std::string>(strict.Changes(), "", "what is read does not change");
}

template <class Record>
void Check(ZQXML::INode* tree, std::size_t choice) {
    CheckReading<Record>(tree, "read as a naive reader does");
    CheckReading<Record>(FakeNode::Copy(tree).get(),
                         "read of foreign nodes as a naive reader does");
    switch (choice % 8) {  // each is slow
        case 0:
            CheckUse<Record>(tree, StrictTree::Lists::kSame);
            break;
        case 1:
            CheckUse<Record>(tree, StrictTree::Lists::kNew);
            break;
        case 2:
            CheckUse<Record>(tree, StrictTree::Lists::kReused);
            break;
        case 3:
            CheckCopies<Record>(tree);
            break;
        default:
            break;
    }
}

// --- The classes -------------------------------------------------------------------------------

/// Below an element, children of all names that have been asked for, in as many levels.
Tree TreeOfNames(const std::string& name, int levels) {
    Tree root = ZQXML::CreateXmlNode();
    root->Initialize(name, "");
    if (levels > 0) {
        for (const std::string& child : fuzz::NamesAskedFor()) {
            root->AppendChild(TreeOfNames(child, levels - 1).get());
        }
    }
    return root;
}

/// The names that a record has a use for: those that its reader asks for in a tree of those that
/// it has asked for before.
template <class Record>
std::vector<std::string> NamesOf(const char* element) {
    constexpr int kMostLevels = 2;  // down to an album's tracks
    fuzz::NamesAskedFor() = {element};
    for (int levels = 0; levels <= kMostLevels; ++levels) {
        const Tree tree = TreeOfNames(element, levels);
        auto record = NewRecord<Record>();
        fuzz::NaiveRead(tree.get(), &record);
    }
    return {fuzz::NamesAskedFor().begin(), fuzz::NamesAskedFor().end()};
}

struct RecordClass {
    std::string element;
    bool readsParent;
    std::vector<std::string> names;
    void (*check)(ZQXML::INode* tree, std::size_t choice);
};

const std::vector<RecordClass>& Classes() {
    constexpr bool kElement = false;
    constexpr bool kParent = true;
    static const std::vector<RecordClass> classes = {
#define QUAVERA_RECORD(Record, soap, element, node, answer) \
    {element, node, NamesOf<Record>(element), Check<Record>},
#include "records/Records.def"
    };
    return classes;
}

/// The tree of an XML text, for all classes that have an element of its root's name.
void CheckXml(std::string_view text) {
    const Tree tree = ZQXML::ParseXml(text);
    if (!tree) {
        return;
    }
    const Tree parent = ZQXML::CreateXmlNode();
    parent->AppendChild(tree.get());
    for (const RecordClass& each : Classes()) {
        if (each.element == tree->GetName()) {
            each.check(each.readsParent ? parent.get() : tree.get(), text.size());
        }
    }
}

void CheckTree(fuzz::Input* input) {
    const RecordClass& record = input->Pick(Classes());
    const std::size_t choice = input->Byte();
    const Tree tree = fuzz::TreeMaker(input, record.names).Make();
    record.check(tree.get(), choice);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    if (size > 0 && data[0] == '<') {
        CheckXml(fuzz::AsText(data, size));
    } else {
        CheckTree(&input);
    }
    return 0;
}
