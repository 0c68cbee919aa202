#include "records/DataTrackInfo.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleTrack.h"

namespace {

struct TrackCase : RecordCase, SampleTrack {
    using Record = DataTrackInfo;
    static constexpr bool kWritesIntoGivenNode = false;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<Track/>";
    static constexpr char kEmptyText[] =
        "AlbumId = \r\n"
        "AlbumId = \r\n"
        "ArtistId = \r\n"
        "DiscIndex = 0\r\n"
        "DisplayAlbumName = \r\n"
        "DisplayArtistName = \r\n"
        "Name = \r\n"
        "PlaybackSeconds = 0\r\n"
        "TrackId = \r\n"
        "TrackIndex = 0\r\n"
        "UserData = \r\n";
};

const RulesFor<TrackCase> kRules("DataTrackInfo");

using Soap = Quavera::Quavera2__LiteTrackMetadata;

DataTrackInfo Track(const std::string& content) {
    return FromTree<DataTrackInfo>(Wrapped("Track", content));
}

/// The way of a SOAP record to its receiver: tree, text, tree, record.
DataTrackInfo Sent(Soap& soap) {
    return FromTree<DataTrackInfo>(TreeOf<DataTrackInfo>(soap));
}

TEST(DataTrackInfo, FieldsHaveTheirTypes) {
    const bool areIdentifiersNarrow =
        std::is_same_v<decltype(DataTrackInfo::albumId), std::string> &&
        std::is_same_v<decltype(DataTrackInfo::artistId), std::string> &&
        std::is_same_v<decltype(DataTrackInfo::genreId), std::string> &&
        std::is_same_v<decltype(DataTrackInfo::trackId), std::string> &&
        std::is_same_v<decltype(DataTrackInfo::userData), std::string>;
    const bool areDisplayTextsWide =
        std::is_same_v<decltype(DataTrackInfo::displayAlbumName), std::wstring> &&
        std::is_same_v<decltype(DataTrackInfo::displayArtistName), std::wstring> &&
        std::is_same_v<decltype(DataTrackInfo::name), std::wstring>;
    const bool areNumbersInt = std::is_same_v<decltype(DataTrackInfo::discIndex), int> &&
                               std::is_same_v<decltype(DataTrackInfo::playbackSeconds), int> &&
                               std::is_same_v<decltype(DataTrackInfo::rightFlags), int> &&
                               std::is_same_v<decltype(DataTrackInfo::trackIndex), int>;
    EXPECT_TRUE(areIdentifiersNarrow);
    EXPECT_TRUE(areDisplayTextsWide);
    EXPECT_TRUE(areNumbersInt);
    EXPECT_TRUE((std::is_base_of_v<QuavData, DataTrackInfo>));
    EXPECT_TRUE(std::is_abstract_v<QuavData>);
    EXPECT_TRUE(std::has_virtual_destructor_v<QuavData>);
}

TEST(DataTrackInfo, ReadsEachElementIntoItsField) {
    const auto track = FromTree<DataTrackInfo>(SampleTrack::kTree);
    EXPECT_EQ(track.albumId, "Alb.101");
    EXPECT_EQ(track.artistId, "Art.202");
    EXPECT_EQ(track.discIndex, 3);
    EXPECT_EQ(track.displayAlbumName, L"\u00DCber den D\u00E4chern");
    EXPECT_EQ(track.displayArtistName,
              L"\u0410\u043D\u0441\u0430\u043C\u0431\u043B\u044C "
              L"\u00AB\u0417\u0430\u0440\u044F\u00BB");
    EXPECT_EQ(track.genreId, "g.404");
    EXPECT_EQ(track.name, L"\u6D77\u306E\u6B4C \U0001F3B5");
    EXPECT_EQ(track.playbackSeconds, 606);
    EXPECT_EQ(track.rightFlags, 909);
    EXPECT_EQ(track.trackId, "Tra.1010");
    EXPECT_EQ(track.trackIndex, 11);
    EXPECT_EQ(track.userData, "");
}

TEST(DataTrackInfo, WritesNothingButTheMemberThatIsPresent) {
    Values values;
    Soap soap;
    soap.trackId = values.Text("Tra.1");
    EXPECT_EQ(TreeOf<DataTrackInfo>(soap), "<Track><TrackId>Tra.1</TrackId></Track>");
}

TEST(DataTrackInfo, WritesEmptyTextsAndZeros) {
    Values values;
    Soap soap;
    soap.albumId = values.Text("");
    soap.discIndex = values.Of(0);
    soap.name = values.Text("");
    EXPECT_EQ(TreeOf<DataTrackInfo>(soap),
              "<Track><AlbumId/><DiscIndex>0</DiscIndex><Name encoding=\"base64\"/></Track>");
}

TEST(DataTrackInfo, MembersWithoutAFieldAreNotWritten) {
    Values values;
    Soap soap;
    soap.isrc = values.Text("isrc");
    soap.popularity = values.Of(1);
    soap.previewUrl = values.Text("url");
    EXPECT_EQ(TreeOf<DataTrackInfo>(soap), "<Track/>");
}

TEST(DataTrackInfo, UserDataIsReadAndRenderedButNeverWritten) {
    auto track = Track("<UserData>queue 7, slot 2</UserData>");
    EXPECT_EQ(track.userData, "queue 7, slot 2");
    EXPECT_NE(track.ToString().find("TrackIndex = 0\r\nUserData = queue 7, slot 2\r\n"),
              std::string::npos);

    Values values;
    Soap soap;
    SampleTrack::Fill(soap, values);
    EXPECT_EQ(DataTrackInfo::ToXML(&soap)->FindChild("UserData"), nullptr);
}

TEST(DataTrackInfo, GenreAndRightsAreNotRendered) {
    auto track = Track("<GenreId>g.77</GenreId><RightFlags>88</RightFlags>");
    EXPECT_EQ(track.genreId, "g.77");
    EXPECT_EQ(track.rightFlags, 88);
    EXPECT_EQ(track.ToString(), TrackCase::kEmptyText);
}

TEST(DataTrackInfo, ConstructorLeavesRightFlagsAsItFindsThem) {
    struct Destroy {
        void operator()(DataTrackInfo* track) const { track->~DataTrackInfo(); }
    };
    for (const int pattern : {0x00, 0xA5}) {
        alignas(DataTrackInfo) unsigned char memory[sizeof(DataTrackInfo)];
        std::memset(memory, pattern, sizeof memory);
        const std::unique_ptr<DataTrackInfo, Destroy> track(::new (memory) DataTrackInfo);
        unsigned char found[sizeof track->rightFlags];
        std::memcpy(found, &track->rightFlags, sizeof found);
        for (const unsigned char byte : found) {
            EXPECT_EQ(byte, pattern);
        }
        EXPECT_EQ(track->discIndex, 0);
        EXPECT_EQ(track->playbackSeconds, 0);
        EXPECT_EQ(track->trackIndex, 0);
    }
}

TEST(DataTrackInfo, RightFlagsStayWithoutTheirElement) {
    DataTrackInfo track;
    track.rightFlags = 4321;
    ReadNode(track, "<Track><TrackId>Tra.1</TrackId><rightFlags>7</rightFlags></Track>");
    EXPECT_EQ(track.trackId, "Tra.1");
    EXPECT_EQ(track.rightFlags, 4321);
}

TEST(DataTrackInfo, CopiesHoldTheFieldsThatAreNotRendered) {
    auto original = FromTree<DataTrackInfo>(SampleTrack::kTree);
    original.userData = "user";
    const DataTrackInfo copy(original);
    DataTrackInfo assigned;
    assigned = copy;
    std::vector<DataTrackInfo> grown;
    while (grown.size() < 5) {
        grown.push_back(original);
    }
    DataTrackInfo moveAssigned;
    moveAssigned = std::move(assigned);
    const DataTrackInfo moved(std::move(original));

    const std::vector<const DataTrackInfo*> copies = {&copy, &grown.front(), &grown.back(), &moved,
                                                      &moveAssigned};
    for (const DataTrackInfo* track : copies) {
        EXPECT_EQ(track->genreId, "g.404");
        EXPECT_EQ(track->rightFlags, 909);
        EXPECT_EQ(track->userData, "user");
    }
}

TEST(DataTrackInfo, CopyIsIndependent) {
    const auto original = FromTree<DataTrackInfo>(SampleTrack::kTree);
    DataTrackInfo copy(original);
    ReadNode(copy, "<Track><TrackId>Tra.2</TrackId><RightFlags>1</RightFlags></Track>");
    EXPECT_EQ(original.trackId, "Tra.1010");
    EXPECT_EQ(original.rightFlags, 909);
}

TEST(DataTrackInfo, ConstructorReservesTypicalLengths) {
    const DataTrackInfo track;
    EXPECT_GE(track.albumId.capacity(), 20U);
    EXPECT_GE(track.artistId.capacity(), 20U);
    EXPECT_GE(track.genreId.capacity(), 20U);
    EXPECT_GE(track.trackId.capacity(), 20U);
    EXPECT_GE(track.displayAlbumName.capacity(), 100U);
    EXPECT_GE(track.displayArtistName.capacity(), 100U);
    EXPECT_TRUE(track.albumId.empty() && track.displayAlbumName.empty());
}

TEST(DataTrackInfo, DisplayNamesOfAllScriptsArriveUnchanged) {
    const struct {
        const char* utf8;
        const wchar_t* wide;
    } names[] = {
        {"plain", L"plain"},
        {"<&\"'> \r\n\t", L"<&\"'> \r\n\t"},
        {"Çà und Größe", L"\u00C7\u00E0 und Gr\u00F6\u00DFe"},
        {"Тёмная ночь", L"\u0422\u0451\u043C\u043D\u0430\u044F \u043D\u043E\u0447\u044C"},
        {"Ελλάς", L"\u0395\u03BB\u03BB\u03AC\u03C2"},
        {"שלום", L"\u05E9\u05DC\u05D5\u05DD"},
        {"مرحبا", L"\u0645\u0631\u062D\u0628\u0627"},
        {"नमस्ते", L"\u0928\u092E\u0938\u094D\u0924\u0947"},
        {"ไทย", L"\u0E44\u0E17\u0E22"},
        {"한국어", L"\uD55C\uAD6D\uC5B4"},
        {"漢字とかな", L"\u6F22\u5B57\u3068\u304B\u306A"},
        {"e\xCC\x81", L"e\u0301"},
        {"\xEF\xBB\xBF", L"\uFEFF"},
        {"\xEF\xBF\xBF", L"\uFFFF"},
        {"\xF0\x90\x80\x80", L"\U00010000"},
        {"🎵𝄞𠀋", L"\U0001F3B5\U0001D11E\U0002000B"},
        {"\xF4\x8F\xBF\xBF", L"\U0010FFFF"},
    };
    for (const auto& name : names) {
        Values values;
        Soap soap;
        soap.name = values.Text(name.utf8);
        soap.displayAlbumName = values.Text(std::string(name.utf8) + " (album)");
        soap.displayArtistName = values.Text(std::string("by ") + name.utf8);
        auto track = Sent(soap);
        EXPECT_EQ(track.name, name.wide) << name.utf8;
        EXPECT_EQ(track.displayAlbumName, std::wstring(name.wide) + L" (album)") << name.utf8;
        EXPECT_EQ(track.displayArtistName, std::wstring(L"by ") + name.wide) << name.utf8;
        EXPECT_NE(track.ToString().find(std::string("\r\nName = ") + name.utf8 + "\r\n"),
                  std::string::npos)
            << name.utf8;
    }
}

TEST(DataTrackInfo, IdentifiersArriveUnchanged) {
    const std::string text = " <a href=\"x\">&amp; 'Größe' 漢 🎵\t\r\n";
    Values values;
    Soap soap;
    soap.albumId = soap.artistId = soap.genreId = soap.trackId = values.Text(text);
    const auto track = Sent(soap);
    EXPECT_EQ(track.albumId, text);
    EXPECT_EQ(track.artistId, text);
    EXPECT_EQ(track.genreId, text);
    EXPECT_EQ(track.trackId, text);
}

TEST(DataTrackInfo, IdentifierEndsAtItsFirstZeroByte) {
    Values values;
    Soap soap;
    soap.trackId = values.Text(std::string("Tra\0.1", 6));
    EXPECT_EQ(TreeOf<DataTrackInfo>(soap), "<Track><TrackId>Tra</TrackId></Track>");
}

// What a display field holds after an element that cannot be decoded shows the failure.
TEST(DataTrackInfo, FailedDisplayTextsHaveTheirShapes) {
    using namespace std::string_literals;
    const struct {
        const char* meaning;
        const char* element;
        std::wstring field;
        const char* rendered;
    } cases[] = {
        {"empty text", "", L"", ""},
        {"no base64", "Größe!", L"", ""},
        {"base64 without its padding", "QUI", L"", ""},
        {"base64 with surplus padding", "QUJD=", L"", ""},
        {"invalid byte after 'A'", "Qf8=", L"A\0\0\0\0\0\0\0"s, "A"},
        {"first two bytes of three", "5aQ=", L"\0\0\0\0\0\0\0\0"s, ""},
        {"surrogate", "7aCA", L"\0\0\0\0\0\0\0\0\0\0\0\0"s, ""},
        {"zero byte between 'A' and 'B'", "QQBC", L"A", "A"},
    };
    for (const auto& each : cases) {
        const std::string content =
            "<Name>b2xk</Name><DisplayAlbumName>b2xk</DisplayAlbumName>"
            "<DisplayArtistName>b2xk</DisplayArtistName>" +
            Wrapped("Name", each.element) + Wrapped("DisplayAlbumName", each.element) +
            Wrapped("DisplayArtistName", each.element);
        auto track = Track(content);
        EXPECT_EQ(track.name, each.field) << each.meaning;
        EXPECT_EQ(track.displayAlbumName, each.field) << each.meaning;
        EXPECT_EQ(track.displayArtistName, each.field) << each.meaning;
        const std::string line = std::string("\r\nName = ") + each.rendered + "\r\n";
        EXPECT_NE(track.ToString().find(line), std::string::npos) << each.meaning;
    }
}

// The mark of encoded text is the tree's own matter.
TEST(DataTrackInfo, DisplayTextsAreDecodedWithOrWithoutTheMark) {
    EXPECT_EQ(Track("<Name>R3LDvMOfZQ==</Name>").name, L"Gr\u00FC\u00DFe");
    EXPECT_EQ(Track("<Name encoding=\"base64\">R3LDvMOfZQ==</Name>").name, L"Gr\u00FC\u00DFe");
    EXPECT_EQ(Track("<TrackId encoding=\"base64\">R3LDvMOfZQ==</TrackId>").trackId, "R3LDvMOfZQ==");
}

TEST(DataTrackInfo, NumbersTravelOverTheirWholeRange) {
    for (const int number : {0, 1, -1, 1000000, INT_MAX, INT_MIN}) {
        Values values;
        Soap soap;
        soap.discIndex = soap.playbackSeconds = soap.rightFlags = soap.trackIndex =
            values.Of(number);
        auto track = Sent(soap);
        EXPECT_EQ(track.discIndex, number);
        EXPECT_EQ(track.playbackSeconds, number);
        EXPECT_EQ(track.rightFlags, number);
        EXPECT_EQ(track.trackIndex, number);
        const std::string line = "\r\nPlaybackSeconds = " + std::to_string(number) + "\r\n";
        EXPECT_NE(track.ToString().find(line), std::string::npos) << number;
    }
}

TEST(DataTrackInfo, NumbersAreReadAsTheNodeReadsThem) {
    const struct {
        const char* text;
        int number;
    } cases[] = {{"", 0},     {"seven", 0}, {"  42nd", 42},     {"+5", 5},
                 {"-6x", -6}, {"1.9", 1},   {"4294967295", -1}, {"2147483648", INT_MIN}};
    for (const auto& each : cases) {
        EXPECT_EQ(Track(Wrapped("TrackIndex", each.text)).trackIndex, each.number) << each.text;
    }
}

// --- Documents of the service ------------------------------------------------------------------

void ExpectTrackDocument(const std::string& file, const std::string& tree,
                         const std::string& text) {
    ExpectDocument<TrackCase>("DataTrackInfo/" + file, "Quavera2:LiteTrackMetadata", tree, text);
}

TEST(DataTrackInfo, OneDocumentInItsManyFormsGivesTheSame) {
    for (const char* file :
         {"full.xml", "soap12.xml", "bare.xml", "prefixes.xml", "default-namespace.xml",
          "character-references.xml", "cdata.xml", "compact.xml"}) {
        ExpectTrackDocument(file, TestData("DataTrackInfo/full.tree.xml"),
                            TestData("DataTrackInfo/full.txt"));
    }
}

TEST(DataTrackInfo, NilMembersOfADocumentAreAbsent) {
    ExpectTrackDocument(
        "nil-members.xml",
        "<Track><AlbumId>Alb.4712</AlbumId>"
        "<DisplayAlbumName encoding=\"base64\">T2huZSBLw7xuc3RsZXI=</DisplayAlbumName>"
        "<Name encoding=\"base64\">54Sh6aGM</Name>"
        "<TrackId>Tra.9002</TrackId><TrackIndex>8</TrackIndex></Track>",
        "AlbumId = Alb.4712\r\nAlbumId = Alb.4712\r\nArtistId = \r\nDiscIndex = 0\r\n"
        "DisplayAlbumName = Ohne Künstler\r\nDisplayArtistName = \r\nName = 無題\r\n"
        "PlaybackSeconds = 0\r\nTrackId = Tra.9002\r\nTrackIndex = 8\r\nUserData = \r\n");
}

TEST(DataTrackInfo, MissingMembersOfADocumentAreAbsent) {
    ExpectTrackDocument("missing-members.xml",
                        "<Track><ArtistId>Art.2003</ArtistId>"
                        "<Name encoding=\"base64\">0KLQvtC70YzQutC+INC40LzRjw==</Name>"
                        "<RightFlags>-1</RightFlags></Track>",
                        "AlbumId = \r\nAlbumId = \r\nArtistId = Art.2003\r\nDiscIndex = 0\r\n"
                        "DisplayAlbumName = \r\nDisplayArtistName = \r\nName = Только имя\r\n"
                        "PlaybackSeconds = 0\r\nTrackId = \r\nTrackIndex = 0\r\nUserData = \r\n");
    ExpectTrackDocument("no-members.xml", TrackCase::kEmptyTree, TrackCase::kEmptyText);
}

TEST(DataTrackInfo, EmptyMembersOfADocumentArePresent) {
    ExpectTrackDocument("empty-members.xml",
                        "<Track><AlbumId/><Name encoding=\"base64\"/>"
                        "<TrackIndex>0</TrackIndex></Track>",
                        TrackCase::kEmptyText);
}

TEST(DataTrackInfo, SpecialCharactersOfADocumentArriveUnchanged) {
    ExpectTrackDocument(
        "special-characters.xml",
        "<Track><AlbumId>&lt;A&amp;B&gt;</AlbumId>"
        "<DisplayAlbumName encoding=\"base64\">PGI+Ikdyw7bDn2UiPC9iPiAmICdtZWhyJw=="
        "</DisplayAlbumName><Name encoding=\"base64\">8J+OtSDwnYSeIPCggIs=</Name>"
        "<TrackId>&lt;&amp;&gt;</TrackId></Track>",
        "AlbumId = <A&B>\r\nAlbumId = <A&B>\r\nArtistId = \r\nDiscIndex = 0\r\n"
        "DisplayAlbumName = <b>\"Größe\"</b> & 'mehr'\r\nDisplayArtistName = \r\n"
        "Name = 🎵 𝄞 𠀋\r\nPlaybackSeconds = 0\r\nTrackId = <&>\r\nTrackIndex = 0\r\n"
        "UserData = \r\n");
}

}  // namespace
