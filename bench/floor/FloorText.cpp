#include <optional>
#include <string>

#include "bench/floor/XmlEye.h"
#include "bench/floor/XmlPen.h"
#include "bench/shared/Contender.h"
#include "records/DataAlbum.h"

// The floor of the way by an XML text: what nobody can go below. The text that the library writes
// is written straight from the SOAP record into a warm buffer, and read straight into the record,
// with no tree and no call into the library.
//
// The headers beside this source are its parts: one unit, so that the compiler can inline all.

namespace bench {
namespace {

class FloorText final : public Contender {
 public:
    void Write(SoapAlbum* soap) override { soap_ = soap; }
    void Save() override { pen_.Write(*soap_); }
    void Read() override { floor::XmlEye(pen_.Text()).Read(record_.emplace()); }
    void Free() override {}
    void Drop() override { record_.reset(); }

    std::string Text() override { return record_->ToString(); }
    std::string Unprinted() const override { return UnprintedOf(*record_); }
    const std::string* Saved() const override {
        saved_ = pen_.Text();
        return &saved_;
    }

 private:
    const SoapAlbum* soap_ = nullptr;
    floor::XmlPen pen_;
    mutable std::string saved_;  // a copy, for who asks for it
    std::optional<DataAlbum> record_;
};

}  // namespace

std::unique_ptr<Contender> MakeFloorText() {
    return std::make_unique<FloorText>();
}

}  // namespace bench
