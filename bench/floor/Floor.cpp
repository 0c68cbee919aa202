#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/floor/Base64.h"
#include "bench/floor/Buffers.h"
#include "bench/floor/Digits.h"
#include "bench/floor/LogText.h"
#include "bench/floor/PlainAlbum.h"
#include "bench/floor/Utf8.h"
#include "bench/shared/Contender.h"
#include "bench/shared/NewTrack.h"
#include "bench/shared/SoapToRecord.h"
#include "records/DataAlbum.h"

// The floor: what no tree can go below. The same texts are base64-coded, decoded, turned to wide
// strings and put into the record's fields at once, with no tree in between and no call into the
// library.
//
// The headers beside this source are its parts: one unit, so that the compiler can inline all.

namespace bench::floor {
namespace {

/// How a member gets into its field: as its text, by way of the buffers.
struct Way {
    static void Display(const std::string* text, std::wstring& field);
    static void Plain(const std::string* text, std::string& field);
    static void Number(const int* value, int& field);
    static void Flag(const bool* value, bool& field);
    static void Texts(const SoapTexts* array, std::vector<std::string>& field);
    static PlainTrack& AppendTrack(std::vector<PlainTrack>& tracks) {
        return tracks.emplace_back();
    }
    static DataTrackInfo& AppendTrack(std::vector<DataTrackInfo>& tracks) {
        return AppendUnreserved(tracks);
    }
};

void Way::Display(const std::string* text, std::wstring& field) {
    if (text == nullptr) {
        return;
    }
    const char* const end = Encode(*text, encoded);
    field = Wide(Decode(static_cast<std::size_t>(end - encoded)));
}

void Way::Plain(const std::string* text, std::string& field) {
    if (text == nullptr) {
        return;
    }
    if (text->size() > kLongestText) {
        Fail();
    }
    // NOLINTNEXTLINE(bugprone-not-null-terminated-result): bytes with a size
    std::memcpy(encoded, text->data(), text->size());
    field.assign(encoded, text->size());
}

void Way::Number(const int* value, int& field) {
    if (value == nullptr) {
        return;
    }
    char* const end = encoded + 16;
    const char* at = PutNumber(*value, end);
    const bool isNegative = *at == '-';
    at += isNegative ? 1 : 0;
    std::uint32_t result = 0;
    for (; at != end; ++at) {
        result = result * 10 + (Code(*at) - '0');
    }
    field = static_cast<int>(isNegative ? 0U - result : result);
}

void Way::Flag(const bool* value, bool& field) {
    if (value == nullptr) {
        return;
    }
    const std::string_view text = *value ? "true" : "false";
    text.copy(encoded, text.size());
    if (std::string_view(encoded, text.size()) == "true") {
        field = true;
    }
}

void Way::Texts(const SoapTexts* array, std::vector<std::string>& field) {
    if (array == nullptr) {
        return;
    }
    field.reserve(static_cast<std::size_t>(array->count));
    for (int at = 0; at < array->count; ++at) {
        Plain(&array->items[at], field.emplace_back());
    }
}

template <class Record>
class Floor final : public Contender {
 public:
    void Write(SoapAlbum* soap) override { soap_ = soap; }
    void Read() override { FillAlbum(way_, *soap_, record_.emplace()); }
    void Free() override {}
    void Drop() override { record_.reset(); }

    /// One string of a size that the floor knows beforehand.
    std::string Text() override {
        Pen pen(textSize_);
        PutAlbum(*record_, pen);
        textSize_ = std::max(textSize_, pen.Capacity());
        return pen.Take();
    }
    std::string Unprinted() const override { return UnprintedOf(*record_); }

 private:
    const SoapAlbum* soap_ = nullptr;
    Way way_;
    std::optional<Record> record_;
    std::size_t textSize_ = 0;
};

}  // namespace
}  // namespace bench::floor

namespace bench {

std::unique_ptr<Contender> MakeFloorBare() {
    return std::make_unique<floor::Floor<floor::PlainAlbum>>();
}

std::unique_ptr<Contender> MakeFloor() {
    return std::make_unique<floor::Floor<DataAlbum>>();
}

}  // namespace bench
