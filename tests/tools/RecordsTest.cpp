// What `records` says of the classes: all of their elements, and what is known of each.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using Json = nlohmann::ordered_json;
using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Outcome;
using tooltest::Refused;
using tooltest::RunTool;

std::vector<std::string> Classes() {
    std::vector<std::string> classes;
#define QUAVERA_RECORD(Class, Soap, element, node, answer) classes.emplace_back(#Class);
#include "records/Records.def"
    return classes;
}

std::vector<std::string> Lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> Words(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

/// What a run that succeeds prints.
std::string Output(const tooltest::Arguments& arguments) {
    const Outcome outcome = RunTool(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.errors, "");
    return outcome.output;
}

/// "AlbumId:text Tracks:records{Name:text}", with "-read" or "-written" behind what is not.
std::string Summary(const Json& elements) {
    std::string all;
    for (const Json& each : elements) {
        all += (all.empty() ? "" : " ") + each.at("name").get<std::string>() + ":" +
               each.at("type").get<std::string>();
        all += each.at("read").get<bool>() ? "" : "-read";
        all += each.at("written").get<bool>() ? "" : "-written";
        if (each.contains("elements")) {
            all += "{" + Summary(each.at("elements")) + "}";
        }
    }
    return all;
}

// By the records' headers and the types of the SOAP records' members.

const std::string kTrack =
    "AlbumId:text ArtistId:text DiscIndex:number DisplayAlbumName:text DisplayArtistName:text "
    "GenreId:text Name:text PlaybackSeconds:number RightFlags:number TrackId:text "
    "TrackIndex:number UserData:text-written";
const std::string kAlbumLite =
    "AlbumArt162x162Url:text AlbumId:text AlbumType:number Compilation:flag DisplayName:text "
    "Name:text ParentalAuthority:flag PrimaryArtistDisplayName:text PrimaryArtistId:text "
    "PrimaryStyle:text ReleaseYear:number Shortcut:text DisplayableAlbumTypes:texts";
const std::string kArtistLite = "ArtistId:text Name:text Shortcut:text";
const std::string kGenreLite = "GenreId:text Name:text SubCount:number";
const std::string kPlaylistLite =
    "CreatedDate:number LastModifiedDate:number Name:text PlaylistId:text Type:text";
const std::string kStation = "Name:text StationId:text Type:text FreeStation:flag";
const std::string kLibraryLite = "LastModified:number MemberId:text";
const std::string kTracks = "Tracks:records{" + kTrack + "}";

const std::map<std::string, std::string>& Elements() {
    static const std::map<std::string, std::string> elements = {
        {"DataTrackInfo", kTrack},
        {"DataAlbum", kAlbumLite +
                          " AlbumArt70x70Url:text Copyright:text Label:text"
                          " NonDisplayableAlbumTypes:texts Artist:record{" +
                          kArtistLite + "} " + kTracks + " Upccode:text"},
        {"DataAlbumLite", kAlbumLite},
        {"DataArtist", kArtistLite + " Albums:records{" + kAlbumLite + "} Station:record{" +
                           kStation + "} Bio:text BioAuthor:text Blurb:text Genres:records{" +
                           kGenreLite + "}"},
        {"DataArtistLite", kArtistLite},
        {"DataGenre",
         "Abbreviation:text DisplayName:text GenreId:text Name:text SubGenreCount:number "
         "ChildGenres:records{" +
             kGenreLite +
             "} Description:text PrimaryParentGenreId:text ParentGenreCount:number-read "
             "ParentGenres:records{" +
             kGenreLite + "}"},
        {"DataGenreLite", kGenreLite},
        {"DataPlaylist", kPlaylistLite + " " + kTracks},
        {"DataPlaylistLite", kPlaylistLite},
        {"DataStation", kStation},
        {"DataStationLite", kStation},
        {"DataMemberLibrary", kLibraryLite + " " + kTracks + " Playlists:records{" + kPlaylistLite +
                                  "} Stations:records{" + kStation + "}"},
        {"DataMemberLibraryLite", kLibraryLite},
        {"DataAccountProperties",
         "accountType:text cobrand:text country:text dateCreated:number email:text firstName:text "
         "freePlaysAllowed:number freePlaysRemaining:number freeTrialTimeLeftInMillis:number "
         "quavera25MonthReset:number trialTerminationDate:number userName:text zip:text "
         "lastName:text-written"},
        {"DataAlbumReview",
         "Author:text Blurb:text BlurbSize:number Detail:text DetailSize:number "
         "PublishDate:number Title:text"},
        {"DataImage",
         "Copyright:text Height:number ImageFormat:text Title:text Url:text Width:number"},
        {"DataIndex", "Letter:text Start:number"},
        {"DataLibraryModificationResult",
         "SubCount:number-read Value:texts LibraryLastDateModified:number"},
    };
    return elements;
}

class RecordsOfClass : public testing::TestWithParam<std::string> {
 protected:
    static Json Described() { return Json::parse(Output({"records", GetParam(), "--json"})); }
    static std::string SampleTree() { return Contents(DataPath(GetParam() + "/full.tree.xml")); }
};

TEST_P(RecordsOfClass, AreItsElementsInOrderWithTheirTypes) {
    EXPECT_EQ(Summary(Described().at("elements")), Elements().at(GetParam()));
}

/// The element of that name; null where there is none.
const Json* Find(const Json& elements, const std::string& name) {
    const auto found = std::find_if(elements.begin(), elements.end(),
                                    [&name](const Json& each) { return each.at("name") == name; });
    return found == elements.end() ? nullptr : &*found;
}

void ExpectListed(ZQXML::INode* parent, const Json& elements);

/// What an element holds is what its type says.
void ExpectIs(ZQXML::INode* element, const Json& described) {
    const std::string type = described.at("type");
    const std::string text = element->GetValue();
    const std::string form = described.at("form");
    if (type == "number") {
        EXPECT_EQ(text.find_first_not_of("-0123456789"), std::string::npos) << text;
        EXPECT_NE(text, "");
    } else if (type == "flag") {
        EXPECT_TRUE(text == "true" || text == "false") << text;
    } else if (type == "record") {
        ExpectListed(element, described.at("elements"));
    } else if (type == "records" || (type == "texts" && described.contains("item"))) {
        ZQXML::INodeList* const items = element->GetChildren();
        for (ZQXML::INode* item = items->First(); item != nullptr; item = items->Next()) {
            EXPECT_EQ(item->GetName(), described.at("item").get<std::string>());
            if (type == "records") {
                ExpectListed(item, described.at("elements"));
            }
        }
    } else {
        EXPECT_EQ(type.substr(0, 4), "text");
        EXPECT_EQ(element->GetChildren()->First(), nullptr);
    }
}

void ExpectListed(ZQXML::INode* parent, const Json& elements) {
    ZQXML::INodeList* const children = parent->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        const Json* const described = Find(elements, child->GetName());
        ASSERT_NE(described, nullptr) << child->GetName();
        EXPECT_TRUE(described->at("written").get<bool>()) << child->GetName();
        ExpectIs(child, *described);
    }
}

TEST_P(RecordsOfClass, ListAllElementsOfItsTree) {
    const Json described = Described();
    const auto tree = ZQXML::ParseXml(SampleTree());
    EXPECT_EQ(tree->GetName(), described.at("element").get<std::string>());
    ExpectListed(tree.get(), described.at("elements"));
}

// Display texts are what a tree marks.
TEST_P(RecordsOfClass, SayWhichTextsAreEncoded) {
    const auto tree = ZQXML::ParseXml(SampleTree());
    ZQXML::INodeList* const children = tree->GetChildren();
    const Json elements = Described().at("elements");
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        const std::string form = Find(elements, child->GetName())->at("form");
        const bool isEncoded = child->GetValueDecoded() != child->GetValue();
        EXPECT_EQ(form.rfind("base64 of UTF-8", 0) == 0, isEncoded) << child->GetName();
    }
}

std::string Escaped(const std::string& label) {
    return std::regex_replace(label, std::regex(R"([.*+?^$()|{}\[\]\\])"), R"(\$&)");
}

/// What a log text is by the description of its lines.
std::string Pattern(const Json& lines) {
    std::string all;
    for (const Json& each : lines) {
        const std::string label = Escaped(each.at("label"));
        const std::string type = each.at("type");
        const bool isBroken =
            each.at("form").get<std::string>().find("without") == std::string::npos;
        if (type == "record") {
            all.append(label).append(Pattern(each.at("lines"))).append("\r\n");
        } else if (type == "records") {
            all.append("(").append(label).append(Pattern(each.at("lines"))).append(")*");
        } else if (type == "texts") {
            all.append("(").append(label).append(isBroken ? "[^\r\n]*\r\n)*" : "[^\r\n]*?)*");
        } else {
            const bool isNumber = type == "number";
            const std::string value = isNumber         ? "-?\\d+"
                                      : type == "flag" ? "(true|false)"
                                                       : "[^\r\n]*";
            all.append(label).append(value).append("\r\n");
        }
    }
    return all;
}

TEST_P(RecordsOfClass, ListAllLinesOfItsTextInOrder) {
    const std::string pattern = Pattern(Described().at("text"));
    const std::string text = Contents(DataPath(GetParam() + "/full.txt"));
    EXPECT_TRUE(std::regex_match(text, std::regex(pattern))) << pattern << "\n" << text;
}

/// The labels in quotes, those of records within a record included.
void AddLabels(const Json& lines, std::vector<std::string>* labels) {
    for (const Json& each : lines) {
        labels->push_back('"' + each.at("label").get<std::string>() + '"');
        if (each.contains("lines")) {
            AddLabels(each.at("lines"), labels);
        }
    }
}

TEST_P(RecordsOfClass, AreATableToo) {
    const std::string text = Output({"records", GetParam()});
    const Json described = Described();
    for (const char* const key : {"class", "soapRecord", "element"}) {
        EXPECT_NE(Lines(text).front().find(described.at(key).get<std::string>()), std::string::npos)
            << key;
    }
    // Each element on a line of its own, in their order, with its type.
    std::vector<std::string> expected;
    std::string summary = Elements().at(GetParam());
    for (char& character : summary) {
        character = character == '{' || character == '}' ? ' ' : character;
    }
    for (const std::string& word : Words(summary)) {
        expected.push_back(word);
    }
    std::vector<std::string> listed;
    const std::vector<std::string> lines = Lines(text);
    std::size_t at = 3;
    for (; at < lines.size() && !lines[at].empty(); ++at) {
        const std::vector<std::string> words = Words(lines[at]);
        ASSERT_GE(words.size(), 3U) << lines[at];
        const bool isUnread = lines[at].find("written, never read") != std::string::npos;
        const bool isUnwritten = lines[at].find("read, never written") != std::string::npos;
        listed.push_back(words[0] + ":" + words[1] + (isUnread ? "-read" : "") +
                         (isUnwritten ? "-written" : ""));
    }
    EXPECT_EQ(listed, expected);
    // And the lines of the log text.
    std::vector<std::string> labels;
    AddLabels(described.at("text"), &labels);
    ASSERT_EQ(lines.size(), at + 2 + labels.size());
    for (std::size_t line = 0; line < labels.size(); ++line) {
        const std::string& shown = lines[at + 2 + line];
        EXPECT_EQ(shown.find(labels[line]), shown.find('"')) << shown;
    }
    EXPECT_EQ(text.find(" \n"), std::string::npos);
}

TEST_P(RecordsOfClass, AreThoseOfTheWholeList) {
    const Json all = Json::parse(Output({"records", "--json"}));
    ASSERT_EQ(all.size(), Classes().size());
    const Json* const one = &*std::find_if(
        all.begin(), all.end(), [](const Json& each) { return each.at("class") == GetParam(); });
    EXPECT_EQ(*one, Described());
}

INSTANTIATE_TEST_SUITE_P(All, RecordsOfClass, testing::ValuesIn(Classes()),
                         [](const auto& test) { return test.param; });

TEST(Records, AreAllClassesALineEach) {
    std::vector<std::vector<std::string>> expected;
#define ONE(kind, request) #kind
#define LIST(kind, request, List, items) #kind
#define NONE ""
#define QUAVERA_RECORD(Class, Soap, element, node, answer)                     \
    {                                                                          \
        const std::string soap = #Soap;                                        \
        const std::string nodeName = #node;                                    \
        expected.push_back({#Class, soap.substr(soap.find("__") + 2), element, \
                            nodeName == "kParent" ? "parent" : "element"});    \
        if (const std::string kind = answer; !kind.empty()) {                  \
            expected.back().push_back(kind);                                   \
        }                                                                      \
    }
#include "records/Records.def"
#undef ONE
#undef LIST
#undef NONE
    std::vector<std::string> lines = Lines(Output({"records"}));
    ASSERT_EQ(lines.size(), expected.size() + 1);
    for (std::size_t at = 0; at < expected.size(); ++at) {
        std::vector<std::string> words = Words(lines[at + 1]);
        words.resize(expected[at].size());  // without the name of a list's element
        EXPECT_EQ(words, expected[at]);
    }
}

TEST(Records, NameTheAnswersThatHoldLists) {
    const std::string list = Output({"records"});
    EXPECT_NE(list.find("images (Images)"), std::string::npos);
    EXPECT_NE(list.find("index (AlphaIndex)"), std::string::npos);
    const Json all = Json::parse(Output({"records", "--json"}));
    for (const Json& each : all) {
        const bool isList = each.at("class") == "DataImage" || each.at("class") == "DataIndex";
        EXPECT_EQ(each.contains("answer") && each.at("answer") != each.at("soapRecord"), isList);
    }
}

TEST(Records, TellOfLinesThatAreLikeNoOthers) {
    const std::string album = Output({"records", "DataAlbum"});
    const std::size_t types = album.find("\"nonDisplayableAlbumTypes \"");
    ASSERT_NE(types, std::string::npos);
    EXPECT_NE(album.find("without line breaks\n", types), std::string::npos);
    EXPECT_NE(album.find("\n\"  types = \""), std::string::npos);
    EXPECT_NE(Output({"records", "DataAlbumReview"}).find("\n\"Author= \""), std::string::npos);
    const Json track = Json::parse(Output({"records", "DataTrackInfo", "--json"})).at("text");
    EXPECT_EQ(track.at(0), track.at(1));  // the album's identifier, twice
}

/// The element's description in a class's.
Json Element(const char* recordClass, const char* name) {
    const Json elements = Json::parse(Output({"records", recordClass, "--json"})).at("elements");
    const Json* const found = Find(elements, name);
    return found == nullptr ? Json::object() : *found;
}

TEST(Records, TellWhenAnElementIsWritten) {
    EXPECT_EQ(Element("DataImage", "Height").value("writtenIf", ""), "unless zero");
    EXPECT_EQ(Element("DataStationLite", "FreeStation").value("writtenIf", ""), "if true");
    EXPECT_EQ(Element("DataGenre", "ChildGenres").value("writtenIf", ""), "always");
    EXPECT_EQ(Element("DataAccountProperties", "freePlaysAllowed").value("writtenIf", ""),
              "always");
    EXPECT_FALSE(Element("DataAccountProperties", "dateCreated").contains("writtenIf"));
    EXPECT_FALSE(Element("DataAlbum", "Tracks").contains("writtenIf"));
    EXPECT_NE(Output({"records", "DataImage"}).find("32 bits signed, unless zero\n"),
              std::string::npos);
}

TEST(Records, TellOfAnotherFormWhenRead) {
    EXPECT_EQ(Element("DataPlaylistLite", "CreatedDate").value("readForm", ""), "as it stands");
    EXPECT_EQ(Element("DataAlbumReview", "PublishDate").value("readForm", ""), "as it stands");
    EXPECT_EQ(Element("DataLibraryModificationResult", "Value").value("readForm", ""),
              "as it stands, or decoded where it is marked");
    EXPECT_FALSE(Element("DataPlaylistLite", "Name").contains("readForm"));
    EXPECT_FALSE(Element("DataGenre", "ParentGenreCount").contains("readForm"));
}

TEST(Records, OfUnknownClassIsWrongUsage) {
    for (const char* const name : {"DataConcert", "dataalbum", "AlbumMetadata", "album", ""}) {
        EXPECT_TRUE(Refused(RunTool({"records", name}), 2, {name}));
        EXPECT_TRUE(Refused(RunTool({"records", "--json", name}), 2, {name}));
    }
}

TEST(Records, IntoAFullDeviceIsAnError) {
    EXPECT_TRUE(Refused(tooltest::RunToolInto("/dev/full", {"records"}), 1,
                        {"standard output: No space left on device"}));
}

}  // namespace
