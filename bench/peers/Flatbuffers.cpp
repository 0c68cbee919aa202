#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/peers/FlatbuffersAlbum_generated.h"
#include "bench/peers/PeerText.h"
#include "bench/shared/Contender.h"
#include "bench/shared/NewTrack.h"
#include "records/DataAlbum.h"

namespace bench {
namespace {

using Builder = flatbuffers::FlatBufferBuilder;
template <class Item>
using Offset = flatbuffers::Offset<Item>;
using Text = flatbuffers::String;
using Texts = flatbuffers::Vector<Offset<Text>>;

/// Writes an album's tables. What a table refers to has to be there before the table is begun.
class Writer {
 public:
    explicit Writer(Builder& builder) : builder_(builder) {}

    Offset<tables::Album> Write(const SoapAlbum& soap) {
        const auto albumArt162x162Url = Put(soap.albumArt162x162Url);
        const auto albumId = Put(soap.albumId);
        const auto displayName = Put(soap.displayName);
        const auto name = Put(soap.name);
        const auto primaryArtistDisplayName = Put(soap.primaryArtistDisplayName);
        const auto primaryArtistId = Put(soap.primaryArtistId);
        const auto primaryStyle = Put(soap.primaryStyle);
        const auto shortcut = Put(soap.shortcut);
        const auto displayableAlbumTypes = Put(soap.displayableAlbumTypes);
        const auto albumArt70x70Url = Put(soap.albumArt70x70Url);
        const auto copyright = Put(soap.copyright);
        const auto label = Put(soap.label);
        const auto nonDisplayableAlbumTypes = Put(soap.nonDisplayableAlbumTypes);
        const auto primaryArtist =
            soap.primaryArtist == nullptr ? Offset<tables::Artist>() : Write(*soap.primaryArtist);
        const auto tracks = Put(soap.tracks);
        const auto upccode = Put(soap.upccode);

        tables::AlbumBuilder album(builder_);
        album.add_album_art_162x162_url(albumArt162x162Url);
        album.add_album_id(albumId);
        Put(soap.albumType, album, &tables::AlbumBuilder::add_album_type);
        Put(soap.compilation, album, &tables::AlbumBuilder::add_compilation);
        album.add_display_name(displayName);
        album.add_name(name);
        Put(soap.parentalAuthority, album, &tables::AlbumBuilder::add_parental_authority);
        album.add_primary_artist_display_name(primaryArtistDisplayName);
        album.add_primary_artist_id(primaryArtistId);
        album.add_primary_style(primaryStyle);
        Put(soap.releaseYear, album, &tables::AlbumBuilder::add_release_year);
        album.add_shortcut(shortcut);
        album.add_displayable_album_types(displayableAlbumTypes);
        album.add_album_art_70x70_url(albumArt70x70Url);
        album.add_copyright(copyright);
        album.add_label(label);
        album.add_non_displayable_album_types(nonDisplayableAlbumTypes);
        album.add_primary_artist(primaryArtist);
        album.add_tracks(tracks);
        album.add_upccode(upccode);
        return album.Finish();
    }

 private:
    Offset<tables::Artist> Write(const SoapArtist& soap) {
        const auto artistId = Put(soap.artistId);
        const auto name = Put(soap.name);
        const auto shortcut = Put(soap.shortcut);
        return tables::CreateArtist(builder_, artistId, name, shortcut);
    }

    Offset<tables::Track> Write(const SoapTrack& soap) {
        const auto albumId = Put(soap.albumId);
        const auto artistId = Put(soap.artistId);
        const auto displayAlbumName = Put(soap.displayAlbumName);
        const auto displayArtistName = Put(soap.displayArtistName);
        const auto genreId = Put(soap.genreId);
        const auto name = Put(soap.name);
        const auto trackId = Put(soap.trackId);

        tables::TrackBuilder track(builder_);
        track.add_album_id(albumId);
        track.add_artist_id(artistId);
        Put(soap.discIndex, track, &tables::TrackBuilder::add_disc_index);
        track.add_display_album_name(displayAlbumName);
        track.add_display_artist_name(displayArtistName);
        track.add_genre_id(genreId);
        track.add_name(name);
        Put(soap.playbackSeconds, track, &tables::TrackBuilder::add_playback_seconds);
        Put(soap.rightFlags, track, &tables::TrackBuilder::add_right_flags);
        track.add_track_id(trackId);
        Put(soap.trackIndex, track, &tables::TrackBuilder::add_track_index);
        return track.Finish();
    }

    Offset<Text> Put(const std::string* member) {
        return member == nullptr ? Offset<Text>() : builder_.CreateString(*member);
    }

    Offset<Texts> Put(const SoapTexts* member) {
        if (member == nullptr) {
            return {};
        }
        std::vector<Offset<Text>> texts;
        texts.reserve(static_cast<std::size_t>(member->count));
        for (int at = 0; at < member->count; ++at) {
            texts.push_back(Put(&member->items[at]));
        }
        return builder_.CreateVector(texts);
    }

    Offset<flatbuffers::Vector<Offset<tables::Track>>> Put(const SoapTracks* member) {
        if (member == nullptr) {
            return {};
        }
        std::vector<Offset<tables::Track>> tracks;
        tracks.reserve(static_cast<std::size_t>(member->count));
        for (int at = 0; at < member->count; ++at) {
            tracks.push_back(Write(*member->items[at]));
        }
        return builder_.CreateVector(tracks);
    }

    template <class Table, class Value>
    static void Put(const Value* member, Table& table, void (Table::*add)(Value)) {
        if (member != nullptr) {
            (table.*add)(*member);
        }
    }

    Builder& builder_;
};

/// Fills a record from an album's tables. A member that is absent leaves its field as it is.
class Reader {
 public:
    void Read(const tables::Album& table, DataAlbum& album) {
        Take(table.album_art_162x162_url(), album.albumArt162x162Url);
        Take(table.album_id(), album.albumId);
        Take(table.album_type(), album.albumType);
        Take(table.compilation(), album.compilation);
        Take(table.display_name(), album.displayName);
        Take(table.name(), album.name);
        Take(table.parental_authority(), album.parentalAuthority);
        Take(table.primary_artist_display_name(), album.primaryArtistDisplayName);
        Take(table.primary_artist_id(), album.primaryArtistId);
        Take(table.primary_style(), album.primaryStyle);
        Take(table.release_year(), album.releaseYear);
        Take(table.shortcut(), album.shortcut);
        Take(table.displayable_album_types(), album.displayableAlbumTypes);
        Take(table.album_art_70x70_url(), album.albumArt70x70Url);
        Take(table.copyright(), album.copyright);
        Take(table.label(), album.label);
        Take(table.non_displayable_album_types(), album.nonDisplayableAlbumTypes);
        if (const tables::Artist* const artist = table.primary_artist()) {
            Read(*artist, album.primaryArtist);
        }
        if (const auto* const tracks = table.tracks()) {
            album.tracks.reserve(tracks->size());
            for (const tables::Track* const track : *tracks) {
                Read(*track, AppendUnreserved(album.tracks));
            }
        }
        Take(table.upccode(), album.upccode);
    }

 private:
    void Read(const tables::Artist& table, DataArtistLite& artist) {
        Take(table.artist_id(), artist.artistId);
        Take(table.name(), artist.name);
        Take(table.shortcut(), artist.shortcut);
    }

    void Read(const tables::Track& table, DataTrackInfo& track) {
        Take(table.album_id(), track.albumId);
        Take(table.artist_id(), track.artistId);
        Take(table.disc_index(), track.discIndex);
        Take(table.display_album_name(), track.displayAlbumName);
        Take(table.display_artist_name(), track.displayArtistName);
        Take(table.genre_id(), track.genreId);
        Take(table.name(), track.name);
        Take(table.playback_seconds(), track.playbackSeconds);
        Take(table.right_flags(), track.rightFlags);
        Take(table.track_id(), track.trackId);
        Take(table.track_index(), track.trackIndex);
    }

    template <class Value>
    static void Take(flatbuffers::Optional<Value> value, Value& field) {
        if (value) {
            field = *value;
        }
    }
    static void Take(const Text* text, std::string& field) {
        if (text != nullptr) {
            field.assign(text->data(), text->size());
        }
    }
    void Take(const Text* text, std::wstring& field) {
        if (text != nullptr) {
            field = codec_.ToWide({text->data(), text->size()});
        }
    }
    static void Take(const Texts* texts, std::vector<std::string>& field) {
        if (texts != nullptr) {
            for (const Text* const text : *texts) {
                field.emplace_back(text->data(), text->size());
            }
        }
    }

    PeerText codec_;
};

/// A contender by tables of FlatBuffers, whose builder is kept. The bytes are the tables, so that
/// to save is to copy them, as for another process, and to parse is to verify them.
class Flatbuffers final : public Contender {
 public:
    void Write(SoapAlbum* soap) override {
        builder_.Clear();
        builder_.Finish(Writer(builder_).Write(*soap));
        album_ = tables::GetAlbum(builder_.GetBufferPointer());
    }
    void Read() override { reader_.Read(*album_, record_.emplace()); }
    void Free() override {
        builder_.Clear();
        album_ = nullptr;
    }
    void Drop() override { record_.reset(); }
    void Save() override {
        const std::uint8_t* const bytes = builder_.GetBufferPointer();
        saved_.assign(bytes, bytes + builder_.GetSize());
    }
    void Parse() override {
        flatbuffers::Verifier verifier(saved_.data(), saved_.size());
        if (!tables::VerifyAlbumBuffer(verifier)) {
            std::abort();
        }
        album_ = tables::GetAlbum(saved_.data());
    }

    std::string Text() override { return record_->ToString(); }
    std::string Unprinted() const override { return UnprintedOf(*record_); }

 private:
    Builder builder_;
    Reader reader_;
    const tables::Album* album_ = nullptr;
    std::vector<std::uint8_t> saved_;
    std::optional<DataAlbum> record_;
};

}  // namespace

std::unique_ptr<Contender> MakeFlatbuffers() {
    return std::make_unique<Flatbuffers>();
}

}  // namespace bench
