#include "tests/threads/RecordTrips.h"

#include <string>
#include <type_traits>
#include <vector>

#include "records/DataAccountProperties.h"
#include "records/DataAlbum.h"
#include "records/DataAlbumLite.h"
#include "records/DataAlbumReview.h"
#include "records/DataArtist.h"
#include "records/DataArtistLite.h"
#include "records/DataGenre.h"
#include "records/DataGenreLite.h"
#include "records/DataImage.h"
#include "records/DataIndex.h"
#include "records/DataLibraryModificationResult.h"
#include "records/DataMemberLibrary.h"
#include "records/DataMemberLibraryLite.h"
#include "records/DataPlaylist.h"
#include "records/DataPlaylistLite.h"
#include "records/DataStation.h"
#include "records/DataStationLite.h"
#include "records/DataTrackInfo.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleAccountProperties.h"
#include "tests/records/SampleAlbum.h"
#include "tests/records/SampleAlbumLite.h"
#include "tests/records/SampleAlbumReview.h"
#include "tests/records/SampleArtist.h"
#include "tests/records/SampleArtistLite.h"
#include "tests/records/SampleGenre.h"
#include "tests/records/SampleGenreLite.h"
#include "tests/records/SampleImage.h"
#include "tests/records/SampleIndex.h"
#include "tests/records/SampleLibraryModificationResult.h"
#include "tests/records/SampleMemberLibrary.h"
#include "tests/records/SampleMemberLibraryLite.h"
#include "tests/records/SamplePlaylist.h"
#include "tests/records/SamplePlaylistLite.h"
#include "tests/records/SampleStationLite.h"
#include "tests/records/SampleTrack.h"

namespace {

/// What a member holds, as the log text shows it.
std::string Shown(const std::string& text) {
    return text;
}
template <class Integer>
std::string Shown(Integer value) {
    return std::to_string(value);
}

/// What it holds once it has been given the number.
std::string With(const std::string& text, int number) {
    return text + " " + std::to_string(number);
}
template <class Integer>
Integer With(Integer /*value*/, int number) {
    return static_cast<Integer>(number);
}

/// A sample whose member `kMember`, the only one with its value, is given a number.
template <class Sample, auto kMember>
struct NumberedSample {
    explicit NumberedSample(int number) {
        Sample::Fill(soap, values);
        auto*& member = soap.*kMember;
        before = Shown(*member);
        member = values.Of(With(*member, number));
        after = Shown(*member);
    }

    std::string LogText() const {
        std::string text = Sample::kText;
        text.replace(text.find(before), before.size(), after);
        return text;
    }

    Values values;
    typename Sample::Soap soap;
    std::string before;
    std::string after;
};

template <class Record, bool kReadsParent, class Sample, auto kMember>
struct TripOf {
    using Numbered = NumberedSample<Sample, kMember>;

    static void Make(int number) {
        Numbered sample(number);
        ExpectReads(TreeOf<Record>(sample.soap), sample);
    }
    static std::string Write(int number) {
        Numbered sample(number);
        return TreeOf<Record>(sample.soap);
    }
    static void Read(const std::string& xml, int number) { ExpectReads(xml, Numbered(number)); }

 private:
    static void ExpectReads(const std::string& xml, const Numbered& sample) {
        auto record = FromTree<Record>(kReadsParent ? Wrapped("Parent", xml) : xml);
        EXPECT_EQ(record.ToString(), sample.LogText());
    }
};

constexpr bool kElement = false;
constexpr bool kParent = true;

template <class Record, bool kReadsParent, class Sample, auto kMember>
RecordTrip Trip(const char* name) {
    using Way = TripOf<Record, kReadsParent, Sample, kMember>;
    return {name, Way::Make, Way::Write, Way::Read};
}

}  // namespace

const std::vector<RecordTrip>& RecordTrips() {
    using namespace Quavera;
    static const std::vector<RecordTrip> trips = {
        Trip<DataTrackInfo, kElement, SampleTrack, &Quavera2__LiteTrackMetadata::displayAlbumName>(
            "DataTrackInfo"),
        Trip<DataAlbum, kParent, SampleAlbum, &Quavera2__AlbumMetadata::upccode>("DataAlbum"),
        Trip<DataAlbumLite, kElement, SampleAlbumLite, &Quavera2__LiteAlbumMetadata::displayName>(
            "DataAlbumLite"),
        Trip<DataArtist, kElement, SampleArtist, &Quavera2__ArtistMetadata::blurb>("DataArtist"),
        Trip<DataArtistLite, kElement, SampleArtistLite, &Quavera2__LiteArtistMetadata::shortcut>(
            "DataArtistLite"),
        Trip<DataGenre, kElement, SampleGenre, &Quavera2__GenreMetadata::displayName>("DataGenre"),
        Trip<DataGenreLite, kElement, SampleGenreLite, &Quavera2__LiteGenreMetadata::name>(
            "DataGenreLite"),
        Trip<DataPlaylist, kElement, SamplePlaylist, &Quavera2__LitePlaylistMetadata::name>(
            "DataPlaylist"),
        Trip<DataPlaylistLite, kElement, SamplePlaylistLite,
             &Quavera2__LitePlaylistMetadata::createdDate>("DataPlaylistLite"),
        Trip<DataStation, kElement, SampleStation, &Quavera2__LiteStationMetadata::name>(
            "DataStation"),
        Trip<DataStationLite, kElement, SampleStationLite,
             &Quavera2__LiteStationMetadata::stationId>("DataStationLite"),
        Trip<DataMemberLibrary, kParent, SampleMemberLibrary,
             &Quavera5__LiteMemberLibrary::memberId>("DataMemberLibrary"),
        Trip<DataMemberLibraryLite, kElement, SampleMemberLibraryLite,
             &Quavera5__LiteMemberLibrary::lastModified>("DataMemberLibraryLite"),
        Trip<DataAccountProperties, kParent, SampleAccountProperties,
             &Quavera2__AccountMetaData::userName>("DataAccountProperties"),
        Trip<DataAlbumReview, kParent, SampleAlbumReview, &Quavera2__AlbumReviewMetadata::title>(
            "DataAlbumReview"),
        Trip<DataImage, kElement, SampleImage, &Quavera2__ImageMetadata::url>("DataImage"),
        Trip<DataIndex, kElement, SampleIndex, &Quavera2__AlphaIndexPosition::start>("DataIndex"),
        Trip<DataLibraryModificationResult, kElement, SampleLibraryModificationResult,
             &Quavera2__LibraryModificationResult::libraryLastDateModified>(
            "DataLibraryModificationResult"),
    };
    return trips;
}
