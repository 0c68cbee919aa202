#include <google/protobuf/arena.h>

#include <cstddef>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "bench/peers/PeerText.h"
#include "bench/peers/ProtobufAlbum.pb.h"
#include "bench/shared/Contender.h"
#include "bench/shared/NewTrack.h"
#include "records/DataAlbum.h"

namespace bench {
namespace {

/// Puts a member that is present where `mutableText` says.
template <class Message>
void Put(const std::string* member, Message* message, std::string* (Message::*mutableText)()) {
    if (member != nullptr) {
        (message->*mutableText)()->assign(*member);
    }
}

template <class Message, class Value>
void Put(const Value* member, Message* message, void (Message::*set)(Value)) {
    if (member != nullptr) {
        (message->*set)(*member);
    }
}

template <class Message>
void Put(const SoapTexts* member, Message* message, std::string* (Message::*add)()) {
    for (int at = 0; member != nullptr && at < member->count; ++at) {
        (message->*add)()->assign(member->items[at]);
    }
}

void Write(const SoapArtist& soap, messages::Artist* artist) {
    using Artist = messages::Artist;
    Put(soap.artistId, artist, &Artist::mutable_artist_id);
    Put(soap.name, artist, &Artist::mutable_name);
    Put(soap.shortcut, artist, &Artist::mutable_shortcut);
}

void Write(const SoapTrack& soap, messages::Track* track) {
    using Track = messages::Track;
    Put(soap.albumId, track, &Track::mutable_album_id);
    Put(soap.artistId, track, &Track::mutable_artist_id);
    Put(soap.discIndex, track, &Track::set_disc_index);
    Put(soap.displayAlbumName, track, &Track::mutable_display_album_name);
    Put(soap.displayArtistName, track, &Track::mutable_display_artist_name);
    Put(soap.genreId, track, &Track::mutable_genre_id);
    Put(soap.name, track, &Track::mutable_name);
    Put(soap.playbackSeconds, track, &Track::set_playback_seconds);
    Put(soap.rightFlags, track, &Track::set_right_flags);
    Put(soap.trackId, track, &Track::mutable_track_id);
    Put(soap.trackIndex, track, &Track::set_track_index);
}

void Write(const SoapTracks& soap, messages::Album* album) {
    album->mutable_tracks()->Reserve(soap.count);
    for (int at = 0; at < soap.count; ++at) {
        Write(*soap.items[at], album->add_tracks());
    }
}

void Write(const SoapAlbum& soap, messages::Album* album) {
    using Album = messages::Album;
    Put(soap.albumArt162x162Url, album, &Album::mutable_album_art_162x162_url);
    Put(soap.albumId, album, &Album::mutable_album_id);
    Put(soap.albumType, album, &Album::set_album_type);
    Put(soap.compilation, album, &Album::set_compilation);
    Put(soap.displayName, album, &Album::mutable_display_name);
    Put(soap.name, album, &Album::mutable_name);
    Put(soap.parentalAuthority, album, &Album::set_parental_authority);
    Put(soap.primaryArtistDisplayName, album, &Album::mutable_primary_artist_display_name);
    Put(soap.primaryArtistId, album, &Album::mutable_primary_artist_id);
    Put(soap.primaryStyle, album, &Album::mutable_primary_style);
    Put(soap.releaseYear, album, &Album::set_release_year);
    Put(soap.shortcut, album, &Album::mutable_shortcut);
    Put(soap.displayableAlbumTypes, album, &Album::add_displayable_album_types);
    Put(soap.albumArt70x70Url, album, &Album::mutable_album_art_70x70_url);
    Put(soap.copyright, album, &Album::mutable_copyright);
    Put(soap.label, album, &Album::mutable_label);
    Put(soap.nonDisplayableAlbumTypes, album, &Album::add_non_displayable_album_types);
    if (soap.primaryArtist != nullptr) {
        Write(*soap.primaryArtist, album->mutable_primary_artist());
    }
    if (soap.tracks != nullptr) {
        Write(*soap.tracks, album);
    }
    Put(soap.upccode, album, &Album::mutable_upccode);
}

/// Fills a record from a message. A member that is absent leaves its field as it is.
class Reader {
 public:
    void Read(const messages::Album& message, DataAlbum& album) {
        Take(message.has_album_art_162x162_url(), message.album_art_162x162_url(),
             album.albumArt162x162Url);
        Take(message.has_album_id(), message.album_id(), album.albumId);
        Take(message.has_album_type(), message.album_type(), album.albumType);
        Take(message.has_compilation(), message.compilation(), album.compilation);
        Take(message.has_display_name(), message.display_name(), album.displayName);
        Take(message.has_name(), message.name(), album.name);
        Take(message.has_parental_authority(), message.parental_authority(),
             album.parentalAuthority);
        Take(message.has_primary_artist_display_name(), message.primary_artist_display_name(),
             album.primaryArtistDisplayName);
        Take(message.has_primary_artist_id(), message.primary_artist_id(), album.primaryArtistId);
        Take(message.has_primary_style(), message.primary_style(), album.primaryStyle);
        Take(message.has_release_year(), message.release_year(), album.releaseYear);
        Take(message.has_shortcut(), message.shortcut(), album.shortcut);
        Take(message.displayable_album_types(), album.displayableAlbumTypes);
        Take(message.has_album_art_70x70_url(), message.album_art_70x70_url(),
             album.albumArt70x70Url);
        Take(message.has_copyright(), message.copyright(), album.copyright);
        Take(message.has_label(), message.label(), album.label);
        Take(message.non_displayable_album_types(), album.nonDisplayableAlbumTypes);
        Read(message.primary_artist(), album.primaryArtist);
        album.tracks.reserve(static_cast<std::size_t>(message.tracks_size()));
        for (const messages::Track& track : message.tracks()) {
            Read(track, AppendUnreserved(album.tracks));
        }
        Take(message.has_upccode(), message.upccode(), album.upccode);
    }

 private:
    using Texts = google::protobuf::RepeatedPtrField<std::string>;

    void Read(const messages::Artist& message, DataArtistLite& artist) {
        Take(message.has_artist_id(), message.artist_id(), artist.artistId);
        Take(message.has_name(), message.name(), artist.name);
        Take(message.has_shortcut(), message.shortcut(), artist.shortcut);
    }

    void Read(const messages::Track& message, DataTrackInfo& track) {
        Take(message.has_album_id(), message.album_id(), track.albumId);
        Take(message.has_artist_id(), message.artist_id(), track.artistId);
        Take(message.has_disc_index(), message.disc_index(), track.discIndex);
        Take(message.has_display_album_name(), message.display_album_name(),
             track.displayAlbumName);
        Take(message.has_display_artist_name(), message.display_artist_name(),
             track.displayArtistName);
        Take(message.has_genre_id(), message.genre_id(), track.genreId);
        Take(message.has_name(), message.name(), track.name);
        Take(message.has_playback_seconds(), message.playback_seconds(), track.playbackSeconds);
        Take(message.has_right_flags(), message.right_flags(), track.rightFlags);
        Take(message.has_track_id(), message.track_id(), track.trackId);
        Take(message.has_track_index(), message.track_index(), track.trackIndex);
    }

    template <class Value>
    static void Take(bool isPresent, const Value& value, Value& field) {
        if (isPresent) {
            field = value;
        }
    }
    void Take(bool isPresent, const std::string& text, std::wstring& field) {
        if (isPresent) {
            field = codec_.ToWide(text);
        }
    }
    static void Take(const Texts& texts, std::vector<std::string>& field) {
        field.assign(texts.begin(), texts.end());
    }

    PeerText codec_;
};

/// A message on the heap, made anew for each album.
class FreshMessage {
 public:
    messages::Album* Make() { return &album_.emplace(); }
    messages::Album* Get() { return &*album_; }
    void Free() { album_.reset(); }

 private:
    std::optional<messages::Album> album_;
};

/// A message in an arena, whose first block is kept from one album to the next.
class ArenaMessage {
 public:
    messages::Album* Make() {
        Free();
        album_ = google::protobuf::Arena::CreateMessage<messages::Album>(&arena_);
        return album_;
    }
    messages::Album* Get() { return album_; }
    void Free() { arena_.Reset(); }

 private:
    google::protobuf::ArenaOptions Options() {
        google::protobuf::ArenaOptions options;
        options.initial_block = first_.data();
        options.initial_block_size = first_.size();
        options.max_block_size = first_.size();
        return options;
    }

    std::vector<char> first_ = std::vector<char>(std::size_t{64} * 1024);
    google::protobuf::Arena arena_ = google::protobuf::Arena(Options());
    messages::Album* album_ = nullptr;
};

/// One message, cleared and filled again: it keeps its tracks and the room of their texts.
class KeptMessage {
 public:
    messages::Album* Make() { return &album_; }
    messages::Album* Get() { return &album_; }
    void Free() { album_.Clear(); }

 private:
    messages::Album album_;
};

/// A contender by messages of Protocol Buffers. `Holder` is how it comes by them.
template <class Holder>
class Protobuf final : public Contender {
 public:
    void Write(SoapAlbum* soap) override { bench::Write(*soap, holder_.Make()); }
    void Read() override { reader_.Read(*holder_.Get(), record_.emplace()); }
    void Free() override { holder_.Free(); }
    void Drop() override { record_.reset(); }
    void Save() override {
        if (!holder_.Get()->SerializeToString(&saved_)) {
            std::abort();
        }
    }
    void Parse() override {
        if (!holder_.Make()->ParseFromString(saved_)) {
            std::abort();
        }
    }

    std::string Text() override { return record_->ToString(); }
    std::string Unprinted() const override { return UnprintedOf(*record_); }

 private:
    Holder holder_;
    Reader reader_;
    std::string saved_;
    std::optional<DataAlbum> record_;
};

}  // namespace

std::unique_ptr<Contender> MakeProtobuf() {
    return std::make_unique<Protobuf<FreshMessage>>();
}

std::unique_ptr<Contender> MakeProtobufArena() {
    return std::make_unique<Protobuf<ArenaMessage>>();
}

std::unique_ptr<Contender> MakeProtobufKept() {
    return std::make_unique<Protobuf<KeptMessage>>();
}

}  // namespace bench
