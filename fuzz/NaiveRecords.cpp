#include "fuzz/NaiveRecords.h"

#include <cstdint>
#include <map>
#include <vector>

#include "fuzz/NaiveCodecs.h"
#include "tests/common/ConversionReference.h"

namespace fuzz {
namespace {

/// The children of an element, by their names.
class Children {
 public:
    explicit Children(ZQXML::INode* element) {
        ZQXML::INodeList* const list = element->GetChildren();
        for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
            all_.push_back(child);
            named_[child->GetName()].push_back(child);
        }
    }

    std::vector<ZQXML::INode*> All() const { return all_; }
    std::vector<ZQXML::INode*> Named(const std::string& name) const {
        NamesAskedFor().insert(name);
        const auto found = named_.find(name);
        return found == named_.end() ? std::vector<ZQXML::INode*>() : found->second;
    }

 private:
    std::vector<ZQXML::INode*> all_;
    std::map<std::string, std::vector<ZQXML::INode*>> named_;
};

std::wstring DisplayText(const std::string& base64) {
    static FromUtf8Reference fromUtf8;
    return fromUtf8(CutAtZero(NaiveBase64Bytes(base64).value_or("")));
}

/// Reads fields of one element. Of several children of a name, the last one counts, or all of them
/// add up.
class Fields {
 public:
    explicit Fields(ZQXML::INode* element) : children_(element) {}

    void Plain(const char* name, std::string* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            *field = child->GetValue();
        }
    }
    void Display(const char* name, std::wstring* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            *field = DisplayText(child->GetValue());
        }
    }
    void Number(const char* name, int* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            *field = NaiveNumber(child->GetValue());
        }
    }
    template <class Integer>
    void Unsigned(const char* name, Integer* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            *field = static_cast<std::uint32_t>(NaiveNumber(child->GetValue()));
        }
    }
    void Flag(const char* name, bool* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            *field = *field || child->GetValue() == "true";
        }
    }
    void Letter(const char* name, std::string* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            *field = std::string(1, NaiveCharacter(child->GetValue()));
        }
    }
    void Each(const char* name, std::vector<std::string>* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            field->push_back(child->GetValue());
        }
    }
    void EachDecoded(const char* name, std::vector<std::string>* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            field->push_back(child->GetValueDecoded());
        }
    }
    void Values(const char* name, std::vector<std::string>* field) const {
        for (ZQXML::INode* const list : children_.Named(name)) {
            for (ZQXML::INode* const value : Children(list).All()) {
                field->push_back(value->GetValue());
            }
        }
    }
    template <class Record>
    void Nested(const char* name, Record* field) const {
        for (ZQXML::INode* const child : children_.Named(name)) {
            NaiveRead(child, field);
        }
    }
    template <class Item>
    void Records(const char* name, std::vector<Item>* field) const {
        for (ZQXML::INode* const list : children_.Named(name)) {
            AddItems(Children(list).All(), field);
        }
    }
    template <class Item>
    void RecordsNamed(const char* name, const char* itemName, std::vector<Item>* field) const {
        for (ZQXML::INode* const list : children_.Named(name)) {
            AddItems(Children(list).Named(itemName), field);
        }
    }

 private:
    template <class Item>
    static void AddItems(const std::vector<ZQXML::INode*>& elements, std::vector<Item>* field) {
        for (ZQXML::INode* const element : elements) {
            field->emplace_back();
            NaiveRead(element, &field->back());
        }
    }

    Children children_;
};

}  // namespace

std::set<std::string>& NamesAskedFor() {
    static std::set<std::string> names;
    return names;
}

void NaiveRead(ZQXML::INode* tree, DataTrackInfo* record) {
    const Fields fields(tree);
    fields.Plain("AlbumId", &record->albumId);
    fields.Plain("ArtistId", &record->artistId);
    fields.Number("DiscIndex", &record->discIndex);
    fields.Display("DisplayAlbumName", &record->displayAlbumName);
    fields.Display("DisplayArtistName", &record->displayArtistName);
    fields.Plain("GenreId", &record->genreId);
    fields.Display("Name", &record->name);
    fields.Number("PlaybackSeconds", &record->playbackSeconds);
    fields.Number("RightFlags", &record->rightFlags);
    fields.Plain("TrackId", &record->trackId);
    fields.Number("TrackIndex", &record->trackIndex);
    fields.Plain("UserData", &record->userData);
}

void NaiveRead(ZQXML::INode* tree, DataAlbumLite* record) {
    const Fields fields(tree);
    fields.Plain("AlbumArt162x162Url", &record->albumArt162x162Url);
    fields.Plain("AlbumId", &record->albumId);
    fields.Number("AlbumType", &record->albumType);
    fields.Flag("Compilation", &record->compilation);
    fields.Display("DisplayName", &record->displayName);
    fields.Values("DisplayableAlbumTypes", &record->displayableAlbumTypes);
    fields.Display("Name", &record->name);
    fields.Flag("ParentalAuthority", &record->parentalAuthority);
    fields.Display("PrimaryArtistDisplayName", &record->primaryArtistDisplayName);
    fields.Plain("PrimaryArtistId", &record->primaryArtistId);
    fields.Plain("PrimaryStyle", &record->primaryStyle);
    fields.Number("ReleaseYear", &record->releaseYear);
    fields.Plain("Shortcut", &record->shortcut);
}

void NaiveRead(ZQXML::INode* tree, DataAlbum* record) {
    for (ZQXML::INode* const album : Children(tree).Named("Album")) {
        NaiveRead(album, static_cast<DataAlbumLite*>(record));
        const Fields fields(album);
        fields.Plain("AlbumArt70x70Url", &record->albumArt70x70Url);
        fields.Nested("Artist", &record->primaryArtist);
        fields.Plain("Copyright", &record->copyright);
        fields.Plain("Label", &record->label);
        fields.Each("NonDisplayableAlbumTypes", &record->nonDisplayableAlbumTypes);
        fields.Records("Tracks", &record->tracks);
        fields.Plain("Upccode", &record->upccode);
    }
}

void NaiveRead(ZQXML::INode* tree, DataArtistLite* record) {
    const Fields fields(tree);
    fields.Plain("ArtistId", &record->artistId);
    fields.Display("Name", &record->name);
    fields.Plain("Shortcut", &record->shortcut);
}

/// The element itself, or the first one of that name below.
void NaiveRead(ZQXML::INode* tree, DataArtist* record) {
    if (tree->GetName() != "Artist") {
        const std::vector<ZQXML::INode*> artists = Children(tree).Named("Artist");
        if (!artists.empty()) {
            NaiveRead(artists[0], record);
        }
        return;
    }
    NaiveRead(tree, static_cast<DataArtistLite*>(record));
    const Fields fields(tree);
    fields.Records("Albums", &record->albums);
    fields.Display("Bio", &record->bio);
    fields.Display("BioAuthor", &record->bioAuthor);
    fields.Display("Blurb", &record->blurb);
    fields.Records("Genres", &record->genres);
    fields.Nested("Station", &record->artistStation);
}

void NaiveRead(ZQXML::INode* tree, DataGenreLite* record) {
    const Fields fields(tree);
    fields.Plain("GenreId", &record->genreId);
    fields.Display("Name", &record->name);
    fields.Number("SubCount", &record->subCount);
}

/// Nothing of what its base has: the names are the same, the fields its own.
void NaiveRead(ZQXML::INode* tree, DataGenre* record) {
    const Fields fields(tree);
    fields.Display("Abbreviation", &record->abbreviation);
    fields.RecordsNamed("ChildGenres", "GenreLite", &record->childGenres);
    fields.Display("Description", &record->description);
    fields.Display("DisplayName", &record->displayName);
    fields.Plain("GenreId", &record->genreId);
    fields.Display("Name", &record->name);
    fields.RecordsNamed("ParentGenres", "GenreLite", &record->parentGenres);
    fields.Plain("PrimaryParentGenreId", &record->primaryParentGenreId);
    fields.Number("SubGenreCount", &record->subGenreCount);
}

void NaiveRead(ZQXML::INode* tree, DataPlaylistLite* record) {
    const Fields fields(tree);
    fields.Plain("CreatedDate", &record->createdDate);
    fields.Plain("LastModifiedDate", &record->lastModifiedDate);
    fields.Plain("Name", &record->name);
    fields.Plain("PlaylistId", &record->playlistId);
    fields.Plain("Type", &record->type);
}

void NaiveRead(ZQXML::INode* tree, DataPlaylist* record) {
    NaiveRead(tree, static_cast<DataPlaylistLite*>(record));
    Fields(tree).Records("Tracks", &record->tracks);
}

void NaiveRead(ZQXML::INode* tree, DataStationLite* record) {
    const Fields fields(tree);
    fields.Flag("FreeStation", &record->freeStation);
    fields.Display("Name", &record->name);
    fields.Plain("StationId", &record->stationId);
    fields.Plain("Type", &record->type);
}

/// The element itself, or all of that name below.
void NaiveRead(ZQXML::INode* tree, DataStation* record) {
    auto* const lite = static_cast<DataStationLite*>(record);
    if (tree->GetName() == "Station") {
        NaiveRead(tree, lite);
    } else {
        Fields(tree).Nested("Station", lite);
    }
}

void NaiveRead(ZQXML::INode* tree, DataMemberLibraryLite* record) {
    const Fields fields(tree);
    fields.Unsigned("LastModified", &record->lastModifiedDate);
    fields.Display("MemberId", &record->memberId);
}

void NaiveRead(ZQXML::INode* tree, DataMemberLibrary* record) {
    for (ZQXML::INode* const library : Children(tree).Named("MemberLibrary")) {
        NaiveRead(library, static_cast<DataMemberLibraryLite*>(record));
        const Fields fields(library);
        fields.Records("Playlists", &record->playlists);
        fields.Records("Stations", &record->stations);
        fields.Records("Tracks", &record->tracks);
    }
}

/// Of several elements, the first.
void NaiveRead(ZQXML::INode* tree, DataAccountProperties* record) {
    const std::vector<ZQXML::INode*> accounts = Children(tree).Named("AccountProperties");
    if (accounts.empty()) {
        return;
    }
    const Fields fields(accounts[0]);
    fields.Plain("accountType", &record->accountType);
    fields.Plain("cobrand", &record->cobrand);
    fields.Plain("country", &record->country);
    fields.Unsigned("dateCreated", &record->dateCreated);
    fields.Display("email", &record->email);
    fields.Display("firstName", &record->firstName);
    fields.Number("freePlaysAllowed", &record->freePlaysAllowed);
    fields.Number("freePlaysRemaining", &record->freePlaysRemaining);
    fields.Unsigned("freeTrialTimeLeftInMillis", &record->freeTrialTimeLeftInMillis);
    fields.Plain("lastName", &record->lastName);
    fields.Unsigned("quavera25MonthReset", &record->quavera25MonthReset);
    fields.Unsigned("trialTerminationDate", &record->trialTerminationDate);
    fields.Display("userName", &record->userName);
    fields.Plain("zip", &record->zip);
}

void NaiveRead(ZQXML::INode* tree, DataAlbumReview* record) {
    for (ZQXML::INode* const review : Children(tree).Named("AlbumReview")) {
        const Fields fields(review);
        fields.Display("Author", &record->author);
        fields.Display("Blurb", &record->blurb);
        fields.Number("BlurbSize", &record->blurbSize);
        fields.Display("Detail", &record->detail);
        fields.Number("DetailSize", &record->detailSize);
        fields.Plain("PublishDate", &record->publishDate);
        fields.Display("Title", &record->title);
    }
}

void NaiveRead(ZQXML::INode* tree, DataImage* record) {
    const Fields fields(tree);
    fields.Plain("Copyright", &record->copyright);
    fields.Number("Height", &record->height);
    fields.Plain("ImageFormat", &record->imageFormat);
    fields.Display("Title", &record->title);
    fields.Plain("Url", &record->url);
    fields.Number("Width", &record->width);
}

void NaiveRead(ZQXML::INode* tree, DataIndex* record) {
    const Fields fields(tree);
    fields.Letter("Letter", &record->letter);
    fields.Number("Start", &record->start);
}

void NaiveRead(ZQXML::INode* tree, DataLibraryModificationResult* record) {
    const Fields fields(tree);
    fields.Unsigned("LibraryLastDateModified", &record->libraryLastDateModified);
    fields.EachDecoded("Value", &record->ids);
}

}  // namespace fuzz
