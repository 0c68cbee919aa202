#include <algorithm>
#include <cstdlib>
#include <optional>

#include "bench/peers/PeerText.h"
#include "bench/shared/Contender.h"
#include "records/DataAlbum.h"
#include "soap/QuaveraH.h"

namespace bench {
namespace {

/// gSOAP's own text form in place of a tree: the SOAP record is written to memory and read back
/// into a SOAP record, from which the record is filled. To write is to save and to read is to
/// parse, so the two steps of their own are empty.
class GsoapText final : public Contender {
 public:
    explicit GsoapText(Members members)
        : soap_(SOAP_C_UTFSTRING | SOAP_XML_TREE), members_(members) {
        soap_.user = this;
        soap_.fsend = Send;
        soap_.frecv = Receive;
    }
    GsoapText(const GsoapText&) = delete;
    GsoapText& operator=(const GsoapText&) = delete;
    ~GsoapText() override { Free(); }

    void Write(SoapAlbum* soap) override {
        saved_.clear();
        if (Quavera::soap_write_Quavera2__AlbumMetadata(&soap_, soap) != SOAP_OK) {
            std::abort();
        }
    }
    void Read() override {
        received_ = 0;
        SoapAlbum album;
        if (Quavera::soap_read_Quavera2__AlbumMetadata(&soap_, &album) != SOAP_OK) {
            std::abort();
        }
        Fill(album, record_.emplace());
    }
    void Free() override {
        soap_destroy(&soap_);
        soap_end(&soap_);
    }
    void Drop() override { record_.reset(); }

    Members Wanted() const override { return members_; }
    std::string Text() override { return record_->ToString(); }
    std::string Unprinted() const override { return UnprintedOf(*record_); }
    const std::string* Saved() const override { return &saved_; }

 private:
    static int Send(struct soap* soap, const char* data, std::size_t size) {
        static_cast<GsoapText*>(soap->user)->saved_.append(data, size);
        return SOAP_OK;
    }

    static std::size_t Receive(struct soap* soap, char* to, std::size_t room) {
        auto* const self = static_cast<GsoapText*>(soap->user);
        const std::size_t size = std::min(room, self->saved_.size() - self->received_);
        self->saved_.copy(to, size, self->received_);
        self->received_ += size;
        return size;
    }

    template <class Value>
    static void Take(const Value* member, Value& field) {
        if (member != nullptr) {
            field = *member;
        }
    }
    void Take(const std::string* member, std::wstring& field) {
        if (member != nullptr) {
            field = codec_.ToWide(*member);
        }
    }
    static void Take(const SoapTexts* member, std::vector<std::string>& field) {
        if (member != nullptr) {
            field.assign(member->items, member->items + member->count);
        }
    }

    void Fill(const SoapTrack& soap, DataTrackInfo& track) {
        Take(soap.albumId, track.albumId);
        Take(soap.artistId, track.artistId);
        Take(soap.discIndex, track.discIndex);
        Take(soap.displayAlbumName, track.displayAlbumName);
        Take(soap.displayArtistName, track.displayArtistName);
        Take(soap.genreId, track.genreId);
        Take(soap.name, track.name);
        Take(soap.playbackSeconds, track.playbackSeconds);
        Take(soap.rightFlags, track.rightFlags);
        Take(soap.trackId, track.trackId);
        Take(soap.trackIndex, track.trackIndex);
    }

    void Fill(const SoapAlbum& soap, DataAlbum& album) {
        Take(soap.albumArt162x162Url, album.albumArt162x162Url);
        Take(soap.albumId, album.albumId);
        Take(soap.albumType, album.albumType);
        Take(soap.compilation, album.compilation);
        Take(soap.displayName, album.displayName);
        Take(soap.name, album.name);
        Take(soap.parentalAuthority, album.parentalAuthority);
        Take(soap.primaryArtistDisplayName, album.primaryArtistDisplayName);
        Take(soap.primaryArtistId, album.primaryArtistId);
        Take(soap.primaryStyle, album.primaryStyle);
        Take(soap.releaseYear, album.releaseYear);
        Take(soap.shortcut, album.shortcut);
        Take(soap.displayableAlbumTypes, album.displayableAlbumTypes);
        Take(soap.albumArt70x70Url, album.albumArt70x70Url);
        Take(soap.copyright, album.copyright);
        Take(soap.label, album.label);
        Take(soap.nonDisplayableAlbumTypes, album.nonDisplayableAlbumTypes);
        if (const SoapArtist* const artist = soap.primaryArtist) {
            Take(artist->artistId, album.primaryArtist.artistId);
            Take(artist->name, album.primaryArtist.name);
            Take(artist->shortcut, album.primaryArtist.shortcut);
        }
        if (const SoapTracks* const tracks = soap.tracks) {
            album.tracks.reserve(static_cast<std::size_t>(tracks->count));
            for (int at = 0; at < tracks->count; ++at) {
                Fill(*tracks->items[at], album.tracks.emplace_back());
            }
        }
        Take(soap.upccode, album.upccode);
    }

    struct soap soap_;
    Members members_;
    PeerText codec_;
    std::string saved_;
    std::size_t received_ = 0;
    std::optional<DataAlbum> record_;
};

}  // namespace

std::unique_ptr<Contender> MakeGsoapText() {
    return std::make_unique<GsoapText>(Members::kRead);
}

std::unique_ptr<Contender> MakeGsoapTextFull() {
    return std::make_unique<GsoapText>(Members::kAll);
}

}  // namespace bench
