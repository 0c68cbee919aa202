// No operation of the libraries takes more than linear work, whatever it is that its input has much
// of.

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/QuaveraCommon.h"
#include "platform/zqshared.h"
#include "records/RecordHeaders.h"
#include "soap/QuaveraStub.h"
#include "tests/growth/Growth.h"
#include "tests/support/FakeNode.h"

namespace {

using growth::Element;
using growth::GrowthTest;
using growth::IsLinear;
using growth::Levels;
using growth::Numbered;
using growth::Repeated;
using growth::Work;
using Tree = zq::auto_com<ZQXML::INode>;

/// An input that has many of something, by its XML text.
struct Input {
    const char* name;
    std::string (*text)(std::size_t count);
};

void PrintTo(const Input& input, std::ostream* out) {
    *out << input.name;
}

std::string InputName(const testing::TestParamInfo<Input>& info) {
    return info.param.name;
}

// Beyond a thousand names a tree gives up on keeping each only once, which takes more work for
// each, and no more beyond that.
constexpr std::size_t kManyNames = 4;

// What a tree may have many of.
const Input kTrees[] = {
    {"Elements", [](std::size_t n) { return Element("r", Repeated(n, "<a>1</a>")); }},
    {"EmptyElements", [](std::size_t n) { return Element("r", Repeated(n, "<a/>")); }},
    {"Names",
     [](std::size_t n) {
         return Element(
             "r", Numbered(kManyNames * n, [](const std::string& at) { return "<a" + at + "/>"; }));
     }},
    {"LongNames",
     [](std::size_t n) {
         return Element("r", Numbered(kManyNames * n, [](const std::string& at) {
                            return "<" + std::string(100, 'a') + at + "/>";
                        }));
     }},
    {"LengthOfAName",
     [](std::size_t n) { return "<r><" + std::string(10 * n + 1, 'n') + "/></r>"; }},
    {"Levels", [](std::size_t n) { return Element("r", Levels(n, "a")); }},
    {"LengthOfAText", [](std::size_t n) { return Element("r", std::string(10 * n, 'x')); }},
    {"References", [](std::size_t n) { return Element("r", Repeated(n, "&amp;&lt;")); }},
    {"OddCharacters", [](std::size_t n) { return Element("r", Repeated(10 * n, "x\xC3\xA9\n")); }},
    {"EncodedBytes",
     [](std::size_t n) {
         return "<r><a encoding=\"base64\">" + Repeated(3 * n, "Zm9v") + "</a></r>";
     }},
};

// What a text may have many of beside these, and a tree does not keep.
const Input kTexts[] = {
    {"Attributes",
     [](std::size_t n) {
         return "<r" + Numbered(n, [](const std::string& at) { return " a" + at + "='1'"; }) + "/>";
     }},
    {"Namespaces",
     [](std::size_t n) {
         return "<r" + Numbered(n, [](const std::string& at) { return " xmlns:p" + at + "='u'"; }) +
                "/>";
     }},
    {"Prefixes",
     [](std::size_t n) {
         return Element("r", Numbered(kManyNames * n,
                                      [](const std::string& at) { return "<p" + at + ":a/>"; }));
     }},
    {"AttributesOfElements",
     [](std::size_t n) {
         return Element("r",
                        Numbered(n, [](const std::string& at) { return "<a b" + at + "='1'/>"; }));
     }},
    {"LengthOfAnAttribute",
     [](std::size_t n) { return "<r a='" + std::string(10 * n, 'x') + "'/>"; }},
    {"Comments", [](std::size_t n) { return Element("r", Repeated(n, "<!-- c -->")); }},
    {"Instructions", [](std::size_t n) { return Element("r", Repeated(n, "<?a b?>")); }},
    {"Sections", [](std::size_t n) { return Element("r", Repeated(n, "<![CDATA[x]]>")); }},
    {"NumericReferences", [](std::size_t n) { return Element("r", Repeated(n, "&#233;")); }},
    {"LineBreaks", [](std::size_t n) { return Element("r", Repeated(n, "\r\n")); }},
    {"TextsBetweenElements", [](std::size_t n) { return Element("r", Repeated(n, "x<a/>")); }},
};

std::vector<Input> AllTexts() {
    std::vector<Input> all(std::begin(kTrees), std::end(kTrees));
    all.insert(all.end(), std::begin(kTexts), std::end(kTexts));
    return all;
}

class TreeGrowth : public GrowthTest, public testing::WithParamInterface<Input> {
 protected:
    static Tree Parsed(std::size_t count) { return ZQXML::ParseXml(GetParam().text(count)); }
    static std::shared_ptr<Tree> Shared(std::size_t count) {
        return std::make_shared<Tree>(Parsed(count));
    }
};
INSTANTIATE_TEST_SUITE_P(Of, TreeGrowth, testing::ValuesIn(kTrees), InputName);

class TextGrowth : public TreeGrowth {};
INSTANTIATE_TEST_SUITE_P(Of, TextGrowth, testing::ValuesIn(AllTexts()), InputName);

TEST_P(TextGrowth, OfReadingIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        return [text = GetParam().text(count)] { EXPECT_TRUE(ZQXML::ParseXml(text)); };
    }));
}

/// What is wrong at its end takes the reader for all texts.
TEST_P(TextGrowth, OfRefusingIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        return [text = GetParam().text(count) + "<"] {
            std::string error;
            EXPECT_FALSE(ZQXML::ParseXml(text, &error));
        };
    }));
}

TEST_P(TreeGrowth, OfWritingIsLinear) {
    // Each level is indented by what the ones above it are: that result is itself a square.
    const bool mayIndent = std::string(GetParam().name) != "Levels";
    for (const bool indent : {false, mayIndent}) {
        EXPECT_TRUE(IsLinear([indent](std::size_t count) -> Work {
            return [tree = Shared(count), indent] { ZQXML::WriteXml(tree->get(), indent); };
        }));
    }
}

TEST_P(TreeGrowth, OfCopyingToAnotherImplementationAndBackIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        return [tree = Shared(count)] {
            const auto copy = FakeNode::Copy(tree->get());
            const Tree parent = ZQXML::CreateXmlNode();
            parent->AppendChild(copy.get());
        };
    }));
}

using BuildingGrowth = GrowthTest;

Tree NewNode(const std::string& name) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, "");
    return node;
}

/// `add(node, number)` for a node, again and again.
testing::AssertionResult IsLinearToAdd(
    const std::function<void(ZQXML::INode* node, const std::string& number)>& add) {
    return IsLinear([&add](std::size_t count) -> Work {
        return [&add, count] {
            const Tree root = NewNode("r");
            for (std::size_t at = 0; at < kManyNames * count; ++at) {
                add(root.get(), std::to_string(at));
            }
        };
    });
}

TEST_F(BuildingGrowth, OfChildrenIsLinear) {
    EXPECT_TRUE(IsLinearToAdd([](auto* node, const auto& at) { node->AddChild("a", at); }));
    EXPECT_TRUE(IsLinearToAdd([](auto* node, const auto& at) { node->AddChild("a" + at, 1); }));
    EXPECT_TRUE(IsLinearToAdd([](auto* node, const auto& at) { node->AddChildEncoded("a", at); }));
    EXPECT_TRUE(IsLinearToAdd([](auto* node, const auto& at) {
        const Tree child = NewNode("a" + at);
        node->AppendChild(child.get());
    }));
    EXPECT_TRUE(IsLinearToAdd([](auto* node, const auto& at) {
        const Tree child = node->CreateNode("a" + at);
        node->AppendChild(child.get());
        node->AppendChild(child.get());  // which does nothing
    }));
}

TEST_F(BuildingGrowth, OfLevelsIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        return [count] {
            Tree lowest = NewNode("a");
            for (std::size_t level = 0; level < count; ++level) {
                Tree parent = NewNode("a");
                parent->AppendChild(lowest.get());
                lowest = std::move(parent);
            }
        };
    }));
}

TEST_F(BuildingGrowth, OfLookingForChildrenIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        auto root = std::make_shared<Tree>(NewNode("r"));
        for (std::size_t at = 0; at < count; ++at) {
            (*root)->AddChild("a", "");
        }
        return [root] { EXPECT_EQ((*root)->FindChild("b"), nullptr); };
    }));
}

// --- Conversions -------------------------------------------------------------------------------

class ConversionGrowth : public GrowthTest, public testing::WithParamInterface<const char*> {
 protected:
    static std::string Text(std::size_t count) {
        return Repeated(count, GetParam()) + "\xC3\xA9" + Repeated(count, GetParam());
    }

    /// Of a conversion of a text, and of that with a fault at its end.
    static void ExpectLinear(const std::function<void(const std::string& text)>& convert) {
        for (const char* const end : {"", "\xFF"}) {
            EXPECT_TRUE(IsLinear([&convert, end](std::size_t count) -> Work {
                return [&convert, text = Text(10 * count) + end] { convert(text); };
            }));
        }
    }
};
INSTANTIATE_TEST_SUITE_P(Of, ConversionGrowth,
                         testing::Values("x", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x8E\xB5",
                                         "x\xC3\xA9y", "\xF8\x88\x80\x80\x80"),
                         [](const auto& test) { return "Text" + std::to_string(test.index); });

TEST_P(ConversionGrowth, ToAndFromUtf8IsLinear) {
    ExpectLinear([](const std::string& text) { convertFromUtf8(text); });
    ExpectLinear([](const std::string& text) { convertToUtf8(convertFromUtf8(text)); });
    ExpectLinear([](const std::string& text) { convertToCP850(convertFromUtf8(text)); });
}

TEST_P(ConversionGrowth, OfBase64IsLinear) {
    ExpectLinear([](const std::string& text) { base64EncodeString(text); });
    ExpectLinear([](const std::string& text) { base64DecodeString(text); });
    ExpectLinear(
        [](const std::string& text) { DecodeAndConvertFromUtf8(base64EncodeString(text)); });
}

// --- Records -----------------------------------------------------------------------------------

std::string ListOf(const std::string& list, const std::string& item, std::size_t count) {
    return Element(list, Repeated(count, item));
}

const std::string kTrack =
    "<Track><AlbumId>Alb.4711</AlbumId><Name encoding=\"base64\">R3LDvMOfZQ==</Name></Track>";

/// What the elements of records may have many of, each for the class that has it.
struct RecordInput {
    const char* name;
    std::string (*text)(std::size_t count);
    std::unique_ptr<QuavData> (*make)();
};

template <class Record>
std::unique_ptr<QuavData> Make() {
    return std::make_unique<Record>();
}

const RecordInput kRecords[] = {
    {"TracksOfAnAlbum",
     [](std::size_t n) { return Element("P", Element("Album", ListOf("Tracks", kTrack, n))); },
     Make<DataAlbum>},
    {"ListsOfAnAlbum",
     [](std::size_t n) {
         return Element("P", Element("Album", Repeated(n, Element("Tracks", kTrack))));
     },
     Make<DataAlbum>},
    {"TypesOfAnAlbum",
     [](std::size_t n) {
         return Element("Album", ListOf("DisplayableAlbumTypes", "<Value>Live</Value>", n));
     },
     Make<DataAlbumLite>},
    {"AlbumsOfAnArtist",
     [](std::size_t n) {
         return Element("Artist", ListOf("Albums", "<Album><Name>x</Name></Album>", n));
     },
     Make<DataArtist>},
    {"GenresOfAnArtist",
     [](std::size_t n) {
         return Element("Artist", ListOf("Genres", "<GenreLite><Name>x</Name></GenreLite>", n));
     },
     Make<DataArtist>},
    {"ChildGenres",
     [](std::size_t n) {
         return Element("Genre", ListOf("ChildGenres", "<GenreLite><Name>x</Name></GenreLite>", n));
     },
     Make<DataGenre>},
    {"TracksOfAPlaylist",
     [](std::size_t n) { return Element("Playlist", ListOf("Tracks", kTrack, n)); },
     Make<DataPlaylist>},
    {"PlaylistsOfALibrary",
     [](std::size_t n) {
         return Element("P", Element("MemberLibrary",
                                     ListOf("Playlists", "<Playlist><Name>x</Name></Playlist>", n) +
                                         ListOf("Stations", "<Station/>", n)));
     },
     Make<DataMemberLibrary>},
    {"ValuesOfAModification",
     [](std::size_t n) { return Element("LibraryModification", Repeated(n, "<Value>1</Value>")); },
     Make<DataLibraryModificationResult>},
    {"UnknownElements",
     [](std::size_t n) { return Element("Track", Repeated(n, "<Unknown>1</Unknown>")); },
     Make<DataTrackInfo>},
    {"RepeatedElements",
     [](std::size_t n) {
         return Element("Track", Repeated(n, "<TrackId>1</TrackId><AlbumId>2</AlbumId>"));
     },
     Make<DataTrackInfo>},
    {"LengthOfAText",
     [](std::size_t n) { return Element("Track", Element("TrackId", std::string(50 * n, 'x'))); },
     Make<DataTrackInfo>},
    {"LengthOfADisplayText",
     [](std::size_t n) {
         return "<Track><Name encoding=\"base64\">" + Repeated(10 * n, "Zm9v") + "</Name></Track>";
     },
     Make<DataTrackInfo>},
};

void PrintTo(const RecordInput& input, std::ostream* out) {
    *out << input.name;
}

class RecordGrowth : public GrowthTest, public testing::WithParamInterface<RecordInput> {};
INSTANTIATE_TEST_SUITE_P(Of, RecordGrowth, testing::ValuesIn(kRecords),
                         [](const auto& test) { return test.param.name; });

TEST_P(RecordGrowth, OfReadingAndRenderingIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        return [tree = std::make_shared<Tree>(ZQXML::ParseXml(GetParam().text(count)))] {
            const auto record = GetParam().make();
            record->FromXML(tree->get());
            record->ToString();
        };
    }));
}

using namespace Quavera;

/// A SOAP record's list of records, with all that it points to.
template <class Wrapper, class Item>
class SoapList {
 public:
    explicit SoapList(std::size_t count) : items_(count), pointers_(count) {
        for (std::size_t at = 0; at < count; ++at) {
            pointers_[at] = &items_[at];
        }
        wrapper_.items = pointers_.data();
        wrapper_.count = static_cast<int>(count);
    }
    Wrapper* get() { return &wrapper_; }

 private:
    std::vector<Item> items_;
    std::vector<Item*> pointers_;
    Wrapper wrapper_;
};

/// Writing a SOAP record with that many items in the member.
template <class Record, class Soap, class Item, class Wrapper, class Base>
testing::AssertionResult IsLinearToWrite(Wrapper* Base::*member) {
    return IsLinear([member](std::size_t count) -> Work {
        return [list = std::make_shared<SoapList<Wrapper, Item>>(count), member] {
            Soap soap;
            soap.*member = list->get();
            Record::ToXML(&soap);
        };
    });
}

using WritingGrowth = GrowthTest;

TEST_F(WritingGrowth, OfListsIsLinear) {
    using Track = Quavera2__LiteTrackMetadata;
    using Library = Quavera2__MemberLibrary;
    using Artist = Quavera2__ArtistMetadata;
    using Genre = Quavera2__GenreMetadata;
    EXPECT_TRUE((IsLinearToWrite<DataAlbum, Quavera2__AlbumMetadata, Track>(
        &Quavera2__AlbumMetadata::tracks)));
    EXPECT_TRUE((IsLinearToWrite<DataPlaylist, Quavera2__PlaylistMetadata, Track>(
        &Quavera2__PlaylistMetadata::tracks)));
    EXPECT_TRUE((IsLinearToWrite<DataMemberLibrary, Library, Track>(&Library::tracks)));
    EXPECT_TRUE((IsLinearToWrite<DataMemberLibrary, Library, Quavera2__LitePlaylistMetadata>(
        &Library::playlists)));
    EXPECT_TRUE((IsLinearToWrite<DataMemberLibrary, Library, Quavera2__LiteStationMetadata>(
        &Library::stations)));
    EXPECT_TRUE(
        (IsLinearToWrite<DataArtist, Artist, Quavera2__LiteAlbumMetadata>(&Artist::albums)));
    EXPECT_TRUE(
        (IsLinearToWrite<DataArtist, Artist, Quavera2__LiteGenreMetadata>(&Artist::genres)));
    EXPECT_TRUE(
        (IsLinearToWrite<DataGenre, Genre, Quavera2__LiteGenreMetadata>(&Genre::childGenres)));
}

TEST_F(WritingGrowth, OfTextsIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        return [text = std::string(50 * count, 'x')]() mutable {
            Quavera2__LiteTrackMetadata track;
            track.trackId = &text;
            track.name = &text;
            DataTrackInfo::ToXML(&track);
        };
    }));
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        return [texts = std::vector<std::string>(count, "Live")]() mutable {
            Quavera2__ArrayOfString list;
            list.items = texts.data();
            list.count = static_cast<int>(texts.size());
            Quavera2__LibraryModificationResult result;
            result.values = &list;
            DataLibraryModificationResult::ToXML(&result);
        };
    }));
}

// --- The means -----------------------------------------------------------------------------------

using Growth = GrowthTest;

TEST_F(Growth, OfASquareIsFound) {
    EXPECT_FALSE(IsLinear([](std::size_t count) -> Work {
        return [count] {
            for (volatile std::size_t step = 0; step < count * count; step = step + 1) {
            }
        };
    }));
}

TEST_F(Growth, OfNothingIsFound) {
    EXPECT_FALSE(IsLinear([](std::size_t /*count*/) -> Work { return [] {}; }));
}

}  // namespace
