#ifndef QUAVERA_BENCH_FLOOR_XML_EYE_H_
#define QUAVERA_BENCH_FLOOR_XML_EYE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bench/floor/AlbumElements.h"
#include "bench/floor/Base64.h"
#include "bench/floor/Buffers.h"
#include "bench/floor/PlainText.h"
#include "bench/floor/Utf8.h"
#include "bench/shared/NewTrack.h"
#include "records/DataAlbum.h"

namespace bench::floor {

/// Reads the text that `XmlPen` writes straight into a record, in one pass. An element may be
/// absent; any other text than the pen's fails.
class XmlEye {
 public:
    /// Behind the text there is room that may be read.
    explicit XmlEye(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {}

    void Read(DataAlbum& album) {
        if (at_ == end_) {
            Fail();  // nothing has been written
        }
        Expect(elements::kAlbum.start);
        EachOfAlbum(*this, album);
        Expect(elements::kAlbum.end);
        if (at_ != end_) {
            Fail();
        }
    }

    template <class Element>
    void Plain(const Element& element, std::string& field) {
        if (Skip(element.start)) {
            const std::string_view text = TakePlain();
            field.assign(text.data(), text.size());
            Expect(element.end);
        }
    }

    template <class Element>
    void Display(const Element& element, std::wstring& field) {
        if (Skip(element.encodedStart)) {
            const Bytes bytes = DecodeUpToEnd(at_);
            at_ = bytes.end;
            field = Wide(bytes);
            Expect(element.end);
        }
    }

    template <class Element>
    void Number(const Element& element, int& field) {
        if (!Skip(element.start)) {
            return;
        }
        const bool isNegative = *at_ == '-';
        at_ += isNegative ? 1 : 0;
        std::uint32_t result = 0;
        for (std::uint32_t digit = Code(*at_) - '0'; digit < 10; digit = Code(*++at_) - '0') {
            result = result * 10 + digit;
        }
        field = static_cast<int>(isNegative ? 0U - result : result);
        Expect(element.end);
    }

    template <class Element>
    void Flag(const Element& element, bool& field) {
        if (Skip(element.start)) {
            const std::string_view text = TakePlain();
            field = text == "true";
            if (!field && text != "false") {
                Fail();
            }
            Expect(element.end);
        }
    }

    template <class Element>
    void Texts(const Element& element, std::vector<std::string>& field) {
        while (Skip(element.start)) {
            field.emplace_back(TakePlain());
            Expect(element.end);
        }
    }

    template <class Element>
    void Values(const Element& element, std::vector<std::string>& field) {
        if (!Skip(element.empty) && Skip(element.start)) {
            Texts(elements::kValue, field);
            Expect(element.end);
        }
    }

    void Artist(DataArtistLite& artist) {
        if (Skip(elements::kArtist.start)) {
            EachOfArtist(*this, artist);
            Expect(elements::kArtist.end);
        }
    }

    /// The first track tells how many there may be.
    void Tracks(std::vector<DataTrackInfo>& tracks) {
        if (Skip(elements::kTracks.empty) || !Skip(elements::kTracks.start)) {
            return;
        }
        for (const char* begin = at_; Skip(elements::kTrack.start); begin = at_) {
            EachOfTrack(*this, AppendUnreserved(tracks));
            Expect(elements::kTrack.end);
            if (tracks.size() == 1) {
                tracks.reserve(2 + static_cast<std::size_t>((end_ - at_) / (at_ - begin)));
            }
        }
        Expect(elements::kTracks.end);
    }

 private:
    template <std::size_t Size>
    bool Skip(const std::array<char, Size>& tag) {
        if (!AreSame<Size>(at_, tag.data())) {
            return false;
        }
        at_ += Size;
        return true;
    }

    template <std::size_t Size>
    void Expect(const std::array<char, Size>& tag) {
        if (!Skip(tag)) {
            Fail();
        }
    }

    /// The text up to the next tag.
    std::string_view TakePlain() {
        const char* const begin = at_;
        Word marks = Marks(Load(at_));
        while (marks == 0) {
            at_ += sizeof(Word);
            marks = Marks(Load(at_));
        }
        at_ += CountAhead(marks);
        if (*at_ != '<') {
            Fail();
        }
        return {begin, static_cast<std::size_t>(at_ - begin)};
    }

    const char* at_;
    const char* end_;
};

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_XML_EYE_H_
