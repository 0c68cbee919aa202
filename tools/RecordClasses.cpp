#include "tools/RecordClasses.h"

#include <algorithm>
#include <utility>

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

namespace tool {
namespace {

/// Which node a class's `FromXML` expects.
enum class Reads { kElement, kParent };

template <class Record, class Soap>
Tree ToTree(const SoapDocument& document, Failure* failure) {
    SoapContext context;
    Soap soap;
    return document.Decode(&context, &soap, failure) ? Record::ToXML(&soap) : nullptr;
}

template <class Record, Reads kReads>
std::string ToText(Tree element) {
    Record record;
    if (kReads == Reads::kElement) {
        record.FromXML(element.get());
    } else {
        const Tree parent = ZQXML::CreateXmlNode();
        parent->AppendChild(element.get());
        record.FromXML(parent.get());
    }
    return record.ToString();
}

template <class Record, class Soap, Reads kReads = Reads::kElement>
constexpr RecordClass Describe(std::string_view name, std::string_view soapElement,
                               std::string_view treeElement) {
    return {name, soapElement, treeElement, ToTree<Record, Soap>, ToText<Record, kReads>,
            "",   nullptr};
}

template <class Record, class List, auto kWrapper>
bool ToTrees(const SoapDocument& document, std::vector<Tree>* trees, Failure* failure) {
    SoapContext context;
    List list;
    if (!document.Decode(&context, &list, failure)) {
        return false;
    }
    const auto* const wrapper = list.*kWrapper;
    for (int at = 0; wrapper != nullptr && at < wrapper->count; ++at) {
        if (wrapper->items[at] != nullptr) {
            trees->push_back(Record::ToXML(wrapper->items[at]));
        }
    }
    return true;
}

/// The record, which comes as an item of the list's member `kWrapper`.
template <class Record, class List, auto kWrapper>
constexpr RecordClass InList(RecordClass record, std::string_view listElement) {
    record.listElement = listElement;
    record.toTrees = ToTrees<Record, List, kWrapper>;
    return record;
}

const RecordClass* Choose(std::string_view element, std::string_view RecordClass::*elementOf,
                          const RecordClass* chosen, const std::string& where, Failure* failure) {
    if (chosen != nullptr) {
        if (chosen->*elementOf == element) {
            return chosen;
        }
        *failure = WrongElement(where, element, chosen->name, chosen->*elementOf);
        return nullptr;
    }
    for (const RecordClass& candidate : RecordClasses()) {
        if (candidate.*elementOf == element) {
            return &candidate;
        }
    }
    *failure = {where, "no record class is made of \"" + std::string(element) + "\""};
    return nullptr;
}

}  // namespace

const std::vector<RecordClass>& RecordClasses() {
    using namespace Quavera;  // NOLINT(google-build-using-namespace): for one line a class
    static const std::vector<RecordClass> classes = {
        Describe<DataTrackInfo, Quavera2__LiteTrackMetadata>("DataTrackInfo", "LiteTrackMetadata",
                                                             "Track"),
        Describe<DataAlbum, Quavera2__AlbumMetadata, Reads::kParent>("DataAlbum", "AlbumMetadata",
                                                                     "Album"),
        Describe<DataAlbumLite, Quavera2__LiteAlbumMetadata>("DataAlbumLite", "LiteAlbumMetadata",
                                                             "Album"),
        Describe<DataArtist, Quavera2__ArtistMetadata>("DataArtist", "ArtistMetadata", "Artist"),
        Describe<DataArtistLite, Quavera2__LiteArtistMetadata>("DataArtistLite",
                                                               "LiteArtistMetadata", "Artist"),
        Describe<DataGenre, Quavera2__GenreMetadata>("DataGenre", "GenreMetadata", "Genre"),
        Describe<DataGenreLite, Quavera2__LiteGenreMetadata>("DataGenreLite", "LiteGenreMetadata",
                                                             "GenreLite"),
        Describe<DataPlaylist, Quavera2__PlaylistMetadata>("DataPlaylist", "PlaylistMetadata",
                                                           "Playlist"),
        Describe<DataPlaylistLite, Quavera2__LitePlaylistMetadata>(
            "DataPlaylistLite", "LitePlaylistMetadata", "Playlist"),
        Describe<DataStation, Quavera2__StationMetadata>("DataStation", "StationMetadata",
                                                         "Station"),
        Describe<DataStationLite, Quavera2__LiteStationMetadata>("DataStationLite",
                                                                 "LiteStationMetadata", "Station"),
        Describe<DataMemberLibrary, Quavera2__MemberLibrary, Reads::kParent>(
            "DataMemberLibrary", "MemberLibrary", "MemberLibrary"),
        Describe<DataMemberLibraryLite, Quavera5__LiteMemberLibrary>(
            "DataMemberLibraryLite", "LiteMemberLibrary", "MemberLibraryLite"),
        Describe<DataAccountProperties, Quavera2__AccountMetaData, Reads::kParent>(
            "DataAccountProperties", "AccountMetaData", "AccountProperties"),
        Describe<DataAlbumReview, Quavera2__AlbumReviewMetadata, Reads::kParent>(
            "DataAlbumReview", "AlbumReviewMetadata", "AlbumReview"),
        InList<DataImage, Quavera2__Images, &Quavera2__Images::images>(
            Describe<DataImage, Quavera2__ImageMetadata>("DataImage", "ImageMetadata", "Image"),
            "Images"),
        InList<DataIndex, Quavera2__AlphaIndex, &Quavera2__AlphaIndex::positions>(
            Describe<DataIndex, Quavera2__AlphaIndexPosition>("DataIndex", "AlphaIndexPosition",
                                                              "Index"),
            "AlphaIndex"),
        Describe<DataLibraryModificationResult, Quavera2__LibraryModificationResult>(
            "DataLibraryModificationResult", "LibraryModificationResult", "LibraryModification"),
    };
    return classes;
}

Failure WrongElement(const std::string& where, std::string_view element, std::string_view maker,
                     std::string_view expected) {
    return {where, "the record is \"" + std::string(element) + "\", but " + std::string(maker) +
                       " is made of \"" + std::string(expected) + "\""};
}

const RecordClass* FindRecordClass(std::string_view name) {
    for (const RecordClass& candidate : RecordClasses()) {
        if (candidate.name == name) {
            return &candidate;
        }
    }
    return nullptr;
}

const RecordClass* ClassOfSoapElement(std::string_view element, const RecordClass* chosen,
                                      const std::string& where, Failure* failure) {
    return Choose(element, &RecordClass::soapElement, chosen, where, failure);
}

const RecordClass* ClassOfTreeElement(std::string_view element, const RecordClass* chosen,
                                      const std::string& where, Failure* failure) {
    return Choose(element, &RecordClass::treeElement, chosen, where, failure);
}

}  // namespace tool
