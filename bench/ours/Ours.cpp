#include <optional>

#include "bench/shared/Contender.h"
#include "platform/zqshared.h"
#include "records/DataAlbum.h"

namespace bench {
namespace {

/// The library.
class Ours final : public Contender {
 public:
    void Write(SoapAlbum* soap) override { Adopt(DataAlbum::ToXML(soap)); }
    void Read() override { record_.emplace().FromXML(parent_.get()); }
    void Free() override {
        parent_ = nullptr;
        album_ = nullptr;
    }
    void Drop() override { record_.reset(); }
    void Save() override { saved_ = ZQXML::WriteXml(album_.get()); }
    void Parse() override { Adopt(ZQXML::ParseXml(saved_)); }

    std::string Text() override { return record_->ToString(); }
    std::string Unprinted() const override { return UnprintedOf(*record_); }
    const std::string* Saved() const override { return &saved_; }

 private:
    /// Gives the album the parent that its reader expects.
    void Adopt(zq::auto_com<ZQXML::INode> album) {
        album_ = std::move(album);
        parent_ = ZQXML::CreateXmlNode();
        parent_->Initialize("Answer", "");
        parent_->AppendChild(album_.get());
    }

    zq::auto_com<ZQXML::INode> album_;
    zq::auto_com<ZQXML::INode> parent_;
    std::string saved_;
    std::optional<DataAlbum> record_;
};

}  // namespace

std::unique_ptr<Contender> MakeOurs() {
    return std::make_unique<Ours>();
}

}  // namespace bench
