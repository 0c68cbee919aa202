// The service's records on the wire and in memory.

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <new>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/zqshared.h"
#include "soap/QuaveraH.h"
#include "soap/QuaveraStub.h"
#include "tests/soap/SoapDocument.h"

namespace {

using namespace Quavera;

constexpr char kNil[] = R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:nil="true")";

/// What a record is to be on the wire, and how to handle it without naming its type.
struct Kind {
    std::string element;
    /// Its members in order. Without a mark a text; else a number (:i), an unsigned number (:u), a
    /// flag (:b), a list of texts (:s), a record (:r), a list of records (:a); numbers and flags
    /// that the record holds itself, so that they are always written, are :I, :L (64 bits) and :B.
    std::string members;

    std::string (*writeConstructed)();
    std::string (*writeAllocated)();
    std::string (*rewrite)(const std::string& document);
};

// Without it, googletest prints the bytes, padding that nobody has written included.
void PrintTo(const Kind& printed, std::ostream* out) {
    *out << printed.element;
}

/// The XML text of a document that gSOAP wrote, without attributes.
std::string Plain(const std::string& document) {
    std::string error;
    const auto root = ZQXML::ParseXml(document, &error);
    EXPECT_TRUE(root) << error << " in " << document;
    return ZQXML::WriteXml(root.get());
}

template <class Record>
std::string Written(const Record& record, int (*write)(soap*, const Record*)) {
    const SoapContext context;
    std::ostringstream out;
    context->os = &out;
    EXPECT_EQ(write(context.get(), &record), SOAP_OK) << context.Fault();
    return Plain(out.str());
}

template <class Record, Record* (*kNew)(soap*, int), int (*kRead)(soap*, Record*),
          int (*kWrite)(soap*, const Record*)>
Kind MakeKind(const char* element, const char* members) {
    Kind kind = {element, members, nullptr, nullptr, nullptr};
    kind.writeConstructed = [] {
        struct Destroy {
            void operator()(Record* record) const { record->~Record(); }
        };
        alignas(Record) unsigned char memory[sizeof(Record)];
        std::memset(memory, 0xA5, sizeof memory);
        const std::unique_ptr<Record, Destroy> record(::new (memory) Record);
        return Written(*record, kWrite);
    };
    kind.writeAllocated = [] {
        const SoapContext context;
        return Written(*kNew(context.get(), -1), kWrite);
    };
    kind.rewrite = [](const std::string& document) {
        const SoapContext context;
        std::istringstream in(document);
        context->is = &in;
        Record record;
        EXPECT_EQ(kRead(context.get(), &record), SOAP_OK) << context.Fault();
        return Written(record, kWrite);
    };
    return kind;
}

#define SOAP_KIND(prefix, name, members)                                                  \
    MakeKind<prefix##__##name, soap_new_##prefix##__##name, soap_read_##prefix##__##name, \
             soap_write_##prefix##__##name>(#prefix ":" #name, members)

constexpr char kLiteAlbum[] =
    "albumArt162x162Url albumId albumType:i compilation:b displayName displayableAlbumTypes:s name "
    "numberOfDiscs:i numberOfTracks:i parentalAuthority:b primaryArtistDisplayName "
    "primaryArtistId primaryStyle releaseDate:u releaseYear:i rightFlags:i shortcut ";
constexpr char kLiteArtist[] = "artistId name rightFlags:i shortcut ";
constexpr char kLitePlaylist[] =
    "author collaborative:b createdDate:u description lastModifiedDate:u name playlistId "
    "trackCount:i type ";
constexpr char kLiteStation[] = "freeStation:B name shortcut stationId type ";
constexpr char kLiteLibrary[] = "lastModified:u memberId ";

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds = {
        SOAP_KIND(Quavera2, LiteTrackMetadata,
                  "albumId artistId discIndex:i displayAlbumName displayArtistName genreId isrc "
                  "name playbackSeconds:i popularity:i previewUrl rightFlags:i trackId "
                  "trackIndex:i"),
        SOAP_KIND(Quavera2, LiteAlbumMetadata, kLiteAlbum),
        SOAP_KIND(Quavera2, AlbumMetadata,
                  (std::string(kLiteAlbum) +
                   "albumArt70x70Url copyright label nonDisplayableAlbumTypes:s "
                   "originalReleaseYear:i playbackSeconds:i primaryArtist:r=LiteArtistMetadata "
                   "tracks:a=LiteTrackMetadata upccode")
                      .c_str()),
        SOAP_KIND(Quavera2, LiteArtistMetadata, kLiteArtist),
        SOAP_KIND(Quavera2, ArtistMetadata,
                  (std::string(kLiteArtist) +
                   "albums:a=LiteAlbumMetadata artistStation:r=LiteStationMetadata bio bioAuthor "
                   "blurb genres:a=LiteGenreMetadata")
                      .c_str()),
        SOAP_KIND(Quavera2, LiteGenreMetadata, "genreId name shortcut subCount:I"),
        SOAP_KIND(Quavera2, GenreMetadata,
                  "abbreviation displayName genreId name shortcut subGenreCount:I "
                  "childGenres:a=LiteGenreMetadata description parentGenres:a=LiteGenreMetadata "
                  "primaryParentGenre:r=LiteGenreMetadata"),
        SOAP_KIND(Quavera2, LitePlaylistMetadata, kLitePlaylist),
        SOAP_KIND(Quavera2, PlaylistMetadata,
                  (std::string(kLitePlaylist) + "tracks:a=LiteTrackMetadata").c_str()),
        SOAP_KIND(Quavera2, LiteStationMetadata, kLiteStation),
        SOAP_KIND(Quavera2, StationMetadata, (std::string(kLiteStation) + "description").c_str()),
        SOAP_KIND(Quavera5, LiteMemberLibrary, kLiteLibrary),
        SOAP_KIND(Quavera2, MemberLibrary,
                  (std::string(kLiteLibrary) +
                   "playlists:a=LitePlaylistMetadata stations:a=LiteStationMetadata "
                   "tracks:a=LiteTrackMetadata")
                      .c_str()),
        SOAP_KIND(Quavera2, AccountMetaData,
                  "accountType billingPlan cobrand contactByEmail:b country currency dateCreated:u "
                  "email firstName freePlaysAllowed:I freePlaysRemaining:I "
                  "freeTrialTimeLeftInMillis:L language maximumSessions:i memberId "
                  "preferredBitrate:i quavera25MonthReset:u state trialTerminationDate:u userName "
                  "zip"),
        SOAP_KIND(Quavera2, AlbumReviewMetadata,
                  "albumId author blurb blurbSize:i detail detailSize:i publishDate:u source "
                  "title"),
        SOAP_KIND(Quavera2, ImageMetadata,
                  "copyright height:I imageFormat imageId title url width:I"),
        SOAP_KIND(Quavera2, AlphaIndexPosition, "letter start:i"),
        SOAP_KIND(Quavera2, LibraryModificationResult, "values:s libraryLastDateModified:u"),
        SOAP_KIND(Quavera2, Images, "images:a=ImageMetadata"),
        SOAP_KIND(Quavera2, AlphaIndex, "positions:a=AlphaIndexPosition"),
    };
    return kinds;
}

#undef SOAP_KIND

const Kind& FindKind(const std::string& name) {
    for (const Kind& kind : Kinds()) {
        if (kind.element.substr(kind.element.find(':') + 1) == name) {
            return kind;
        }
    }
    ADD_FAILURE() << name;
    return Kinds().front();
}

std::string Wrapped(const std::string& name, const std::string& content) {
    return content.empty() ? "<" + name + "/>" : "<" + name + ">" + content + "</" + name + ">";
}

struct Member {
    std::string name;
    char type;         // ' ' for a text
    std::string item;  // the record of :r and :a
};

std::vector<Member> MembersOf(const Kind& kind) {
    std::vector<Member> members;
    std::istringstream words(kind.members);
    for (std::string word; words >> word;) {
        const std::size_t mark = word.find(':');
        const std::size_t item = word.find('=');
        members.push_back({word.substr(0, mark), mark == std::string::npos ? ' ' : word[mark + 1],
                           item == std::string::npos ? "" : word.substr(item + 1)});
    }
    return members;
}

/// The elements of a record with every member and no value twice, but for the flags.
std::string FullContent(const Kind& kind, int& count) {
    std::string content;
    for (const Member& member : MembersOf(kind)) {
        ++count;
        const std::string text = member.name + " " + std::to_string(count) + " äЖ漢🎵 &lt;&amp;";
        const auto nested = [&member, &count](const std::string& name) {
            return Wrapped(name, FullContent(FindKind(member.item), count));
        };
        switch (member.type) {
            case 'i':
            case 'I':
                content += Wrapped(member.name, std::to_string(-2147483647 - 1 + count));
                break;
            case 'u':
                content += Wrapped(member.name,
                                   std::to_string(4294967296ULL - static_cast<unsigned>(count)));
                break;
            case 'L':
                content += Wrapped(member.name, std::to_string(9223372036854775807LL - count));
                break;
            case 'b':
            case 'B':
                content += Wrapped(member.name, "true");
                break;
            case 's':
                content += Wrapped(member.name, Wrapped("items", text) + Wrapped("items", "2nd"));
                break;
            case 'r':
                content += nested(member.name);
                break;
            case 'a':
                content += Wrapped(member.name, nested("items") + nested("items"));
                break;
            default:
                content += Wrapped(member.name, text);
        }
    }
    return content;
}

std::string FullDocument(const Kind& kind) {
    int count = 0;
    return Wrapped(kind.element, FullContent(kind, count));
}

/// The elements of a record without any member: those that the record holds itself.
std::string EmptyDocument(const Kind& kind) {
    std::string content;
    for (const Member& member : MembersOf(kind)) {
        if (member.type == 'I' || member.type == 'L') {
            content += Wrapped(member.name, "0");
        } else if (member.type == 'B') {
            content += Wrapped(member.name, "false");
        }
    }
    return Wrapped(kind.element, content);
}

class SoapRecordTest : public testing::TestWithParam<Kind> {};

TEST_P(SoapRecordTest, ConstructsWithoutValues) {
    EXPECT_EQ(GetParam().writeConstructed(), EmptyDocument(GetParam()));
}

TEST_P(SoapRecordTest, IsAllocatedWithoutValues) {
    EXPECT_EQ(GetParam().writeAllocated(), EmptyDocument(GetParam()));
}

TEST_P(SoapRecordTest, KeepsEveryMemberInOrder) {
    const std::string document = FullDocument(GetParam());
    EXPECT_EQ(GetParam().rewrite(document), document);
}

TEST_P(SoapRecordTest, ReadsUnderAnyElementName) {
    const std::string document = FullDocument(GetParam());
    const std::string name = GetParam().element;
    std::string renamed = document;
    renamed.replace(renamed.rfind(name), name.size(), "other");
    renamed.replace(1, name.size(), "other");
    EXPECT_EQ(GetParam().rewrite(renamed), document);
}

TEST_P(SoapRecordTest, NilMemberIsAbsent) {
    std::string content;
    for (const Member& member : MembersOf(GetParam())) {
        if (std::string("ILB").find(member.type) == std::string::npos) {
            content += "<" + member.name + kNil + "/>";
        }
    }
    EXPECT_EQ(GetParam().rewrite(Wrapped(GetParam().element, content)), EmptyDocument(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, SoapRecordTest, testing::ValuesIn(Kinds()),
                         [](const testing::TestParamInfo<Kind>& kind) {
                             return kind.param.element.substr(kind.param.element.find(':') + 1);
                         });

template <class Full, class Summary>
void ExpectBeginsWithSummary(const char* full, const char* summary,
                             int (*write)(soap*, const Summary*)) {
    EXPECT_TRUE((std::is_base_of_v<Summary, Full>)) << full;
    SoapDocument<Full> record(FullDocument(FindKind(full)), FindKind(full).element.c_str());
    Summary* const begin = &*record;
    EXPECT_EQ(static_cast<void*>(begin), static_cast<void*>(&*record)) << full;
    EXPECT_EQ(Written(Summary(*begin), write), FullDocument(FindKind(summary)));
}

TEST(SoapRecords, FullRecordBeginsWithItsSummary) {
    ExpectBeginsWithSummary<Quavera2__AlbumMetadata>("AlbumMetadata", "LiteAlbumMetadata",
                                                     soap_write_Quavera2__LiteAlbumMetadata);
    ExpectBeginsWithSummary<Quavera2__ArtistMetadata>("ArtistMetadata", "LiteArtistMetadata",
                                                      soap_write_Quavera2__LiteArtistMetadata);
    ExpectBeginsWithSummary<Quavera2__PlaylistMetadata>("PlaylistMetadata", "LitePlaylistMetadata",
                                                        soap_write_Quavera2__LitePlaylistMetadata);
    ExpectBeginsWithSummary<Quavera2__StationMetadata>("StationMetadata", "LiteStationMetadata",
                                                       soap_write_Quavera2__LiteStationMetadata);
    ExpectBeginsWithSummary<Quavera2__MemberLibrary>("MemberLibrary", "LiteMemberLibrary",
                                                     soap_write_Quavera5__LiteMemberLibrary);
    EXPECT_FALSE((std::is_base_of_v<Quavera2__LiteGenreMetadata, Quavera2__GenreMetadata>));
}

template <class Wrapper, class Item>
void ExpectItemsThenCount(const char* name) {
    EXPECT_TRUE((std::is_same_v<decltype(Wrapper::items), Item*>)) << name;
    EXPECT_TRUE((std::is_same_v<decltype(Wrapper::count), int>)) << name;
    alignas(Wrapper) unsigned char memory[sizeof(Wrapper)];
    std::memset(memory, 0xA5, sizeof memory);
    auto* const wrapper = ::new (memory) Wrapper;
    EXPECT_EQ(wrapper->items, nullptr) << name;
    EXPECT_EQ(wrapper->count, 0) << name;
    EXPECT_EQ(static_cast<void*>(&wrapper->items), static_cast<void*>(wrapper)) << name;
    EXPECT_EQ(static_cast<void*>(&wrapper->count), static_cast<void*>(&wrapper->items + 1)) << name;
}

TEST(SoapWrappers, HoldItemsThenCount) {
    ExpectItemsThenCount<Quavera2__ArrayOfString, std::string>("texts");
    ExpectItemsThenCount<Quavera2__ArrayOfLiteTrackMetadata, Quavera2__LiteTrackMetadata*>(
        "tracks");
    ExpectItemsThenCount<Quavera2__ArrayOfLiteAlbumMetadata, Quavera2__LiteAlbumMetadata*>(
        "albums");
    ExpectItemsThenCount<Quavera2__ArrayOfLiteGenreMetadata, Quavera2__LiteGenreMetadata*>(
        "genres");
    ExpectItemsThenCount<Quavera2__ArrayOfLitePlaylistMetadata, Quavera2__LitePlaylistMetadata*>(
        "playlists");
    ExpectItemsThenCount<Quavera2__ArrayOfLiteStationMetadata, Quavera2__LiteStationMetadata*>(
        "stations");
    ExpectItemsThenCount<Quavera2__ArrayOfImageMetadata, Quavera2__ImageMetadata*>("images");
    ExpectItemsThenCount<Quavera2__ArrayOfAlphaIndexPosition, Quavera2__AlphaIndexPosition*>(
        "positions");
}

using Playlist = SoapDocument<Quavera2__PlaylistMetadata>;
constexpr char kPlaylist[] = "Quavera2:PlaylistMetadata";
using Modification = SoapDocument<Quavera2__LibraryModificationResult>;
constexpr char kModification[] = "Quavera2:LibraryModificationResult";

TEST(SoapWrappers, NilRecordIsANullItem) {
    Playlist playlist(std::string("<PlaylistMetadata><tracks><items") + kNil +
                          "/><items><trackId>t1</trackId></items><items/></tracks>"
                          "</PlaylistMetadata>",
                      kPlaylist);
    ASSERT_NE(playlist->tracks, nullptr);
    ASSERT_EQ(playlist->tracks->count, 3);
    EXPECT_EQ(playlist->tracks->items[0], nullptr);
    ASSERT_NE(playlist->tracks->items[1], nullptr);
    EXPECT_EQ(*playlist->tracks->items[1]->trackId, "t1");
    ASSERT_NE(playlist->tracks->items[2], nullptr);
    EXPECT_EQ(playlist->tracks->items[2]->trackId, nullptr);
}

TEST(SoapWrappers, NullItemIsNotWritten) {
    Quavera2__LiteTrackMetadata track;
    Quavera2__LiteTrackMetadata* items[] = {nullptr, &track, nullptr};
    Quavera2__ArrayOfLiteTrackMetadata tracks;
    tracks.items = items;
    tracks.count = 3;
    Quavera2__PlaylistMetadata playlist;
    playlist.tracks = &tracks;
    EXPECT_EQ(Written(playlist, soap_write_Quavera2__PlaylistMetadata),
              "<Quavera2:PlaylistMetadata><tracks><items/></tracks></Quavera2:PlaylistMetadata>");
}

TEST(SoapWrappers, NilTextIsAnEmptyItem) {
    Modification result(std::string("<LibraryModificationResult><values><items>a</items><items") +
                            kNil + "/><items/></values></LibraryModificationResult>",
                        kModification);
    ASSERT_NE(result->values, nullptr);
    ASSERT_EQ(result->values->count, 3);
    EXPECT_EQ(result->values->items[0], "a");
    EXPECT_EQ(result->values->items[1], "");
    EXPECT_EQ(result->values->items[2], "");
}

TEST(SoapWrappers, EmptyListIsPresent) {
    Playlist playlist("<PlaylistMetadata><tracks/></PlaylistMetadata>", kPlaylist);
    ASSERT_NE(playlist->tracks, nullptr);
    EXPECT_EQ(playlist->tracks->count, 0);
    Modification result("<LibraryModificationResult><values></values></LibraryModificationResult>",
                        kModification);
    ASSERT_NE(result->values, nullptr);
    EXPECT_EQ(result->values->count, 0);
    EXPECT_EQ(Written(*result, soap_write_Quavera2__LibraryModificationResult),
              "<Quavera2:LibraryModificationResult><values/></Quavera2:LibraryModificationResult>");
}

TEST(SoapWrappers, ListsOfManyItemsKeepTheirOrder) {
    std::string items;
    for (int number = 0; number < 1000; ++number) {
        items += Wrapped("items", std::to_string(number));
    }
    Modification result(
        "<LibraryModificationResult><values>" + items + "</values></LibraryModificationResult>",
        kModification);
    ASSERT_EQ(result->values->count, 1000);
    for (int number = 0; number < 1000; ++number) {
        EXPECT_EQ(result->values->items[number], std::to_string(number));
    }
}

TEST(SoapRecords, StampsHoldUnsigned32Bits) {
    EXPECT_TRUE(
        (std::is_same_v<decltype(Quavera2__LitePlaylistMetadata::createdDate), unsigned long*>));
    EXPECT_TRUE((std::is_same_v<decltype(Quavera2__LitePlaylistMetadata::lastModifiedDate),
                                unsigned long*>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(Quavera5__LiteMemberLibrary::lastModified), unsigned long*>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(Quavera2__AlbumReviewMetadata::publishDate), unsigned long*>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(Quavera2__LibraryModificationResult::libraryLastDateModified),
                        unsigned long*>));
    EXPECT_TRUE((std::is_same_v<decltype(Quavera2__AccountMetaData::dateCreated), unsigned int*>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(Quavera2__AccountMetaData::quavera25MonthReset), unsigned int*>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(Quavera2__AccountMetaData::trialTerminationDate), unsigned int*>));
    EXPECT_TRUE(
        (std::is_same_v<decltype(Quavera2__AccountMetaData::freeTrialTimeLeftInMillis), LONG64>));

    const std::string most = "4294967295";
    Playlist playlist("<PlaylistMetadata>" + Wrapped("createdDate", most) + "</PlaylistMetadata>",
                      kPlaylist);
    ASSERT_NE(playlist->createdDate, nullptr);
    EXPECT_EQ(*playlist->createdDate, 4294967295UL);
    SoapDocument<Quavera2__AccountMetaData> account(
        "<AccountMetaData>" + Wrapped("dateCreated", most) + "</AccountMetaData>",
        "Quavera2:AccountMetaData");
    ASSERT_NE(account->dateCreated, nullptr);
    EXPECT_EQ(*account->dateCreated, 4294967295U);
}

TEST(SoapRecords, TextsAreUtf8) {
    SoapDocument<Quavera2__LiteTrackMetadata> track(
        "<LiteTrackMetadata><albumId>Gr\xC3\xB6\xC3\x9F\x65</albumId><artistId>Gr&#246;&#xDF;e</"
        "artistId>"
        "<genreId>&#x6f22;&#23383;</genreId><isrc><![CDATA[<\xE6\xBC\xA2&>]]></isrc>"
        "<name>\xF0\x9F\x8E\xB5</name></LiteTrackMetadata>",
        "Quavera2:LiteTrackMetadata");
    EXPECT_EQ(*track->albumId, "Gr\xC3\xB6\xC3\x9F\x65");
    EXPECT_EQ(*track->artistId, "Gr\xC3\xB6\xC3\x9F\x65");
    EXPECT_EQ(*track->genreId, "\xE6\xBC\xA2\xE5\xAD\x97");
    EXPECT_EQ(*track->isrc, "<\xE6\xBC\xA2&>");
    EXPECT_EQ(*track->name, "\xF0\x9F\x8E\xB5");
}

}  // namespace
