#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "bench/peers/PeerText.h"
#include "bench/shared/Contender.h"
#include "bench/shared/SoapToRecord.h"
#include "records/DataAlbum.h"
#include "soap/QuaveraH.h"

namespace bench {
namespace {

/// How a member gets into its field: as it is.
class Way {
 public:
    static void Plain(const std::string* member, std::string& field) { Take(member, field); }
    static void Number(const int* member, int& field) { Take(member, field); }
    static void Flag(const bool* member, bool& field) { Take(member, field); }
    void Display(const std::string* member, std::wstring& field) {
        if (member != nullptr) {
            field = codec_.ToWide(*member);
        }
    }
    static void Texts(const SoapTexts* member, std::vector<std::string>& field) {
        if (member != nullptr) {
            field.assign(member->items, member->items + member->count);
        }
    }
    static DataTrackInfo& AppendTrack(std::vector<DataTrackInfo>& tracks) {
        return tracks.emplace_back();
    }

 private:
    template <class Value>
    static void Take(const Value* member, Value& field) {
        if (member != nullptr) {
            field = *member;
        }
    }

    PeerText codec_;
};

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
        FillAlbum(way_, album, record_.emplace());
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

    struct soap soap_;
    Members members_;
    Way way_;
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
