#ifndef QUAVERA_BENCH_FLOOR_XML_PEN_H_
#define QUAVERA_BENCH_FLOOR_XML_PEN_H_

#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bench/floor/AlbumElements.h"
#include "bench/floor/Base64.h"
#include "bench/floor/Buffers.h"
#include "bench/floor/Digits.h"
#include "bench/floor/PlainText.h"
#include "bench/shared/Album.h"

namespace bench::floor {

/// Writes an album's XML text from its SOAP record into a buffer that is used again. What would
/// have to be written as a reference is looked for; the album has nothing of that kind, and no
/// empty text.
class XmlPen {
 public:
    void Write(const SoapAlbum& album) {
        at_ = buffer_.data();
        Ensure(kRoomPerAlbum);
        Put(elements::kAlbum.start);
        EachOfAlbum(*this, album);
        Put(elements::kAlbum.end);
        Ensure(kRoomBehind);
    }

    /// What stands behind it belongs to the buffer, too, `kRoomBehind` bytes at least.
    std::string_view Text() const {
        return {buffer_.data(), static_cast<std::size_t>(at_ - buffer_.data())};
    }

    template <class Element>
    void Plain(const Element& element, const std::string* text) {
        if (text != nullptr) {
            PutPlain(element, *text);
        }
    }

    template <class Element>
    void Display(const Element& element, const std::string* text) {
        if (text == nullptr) {
            return;
        }
        if (text->empty()) {
            Fail();
        }
        Put(element.encodedStart);
        at_ = Encode(*text, at_);
        Put(element.end);
    }

    template <class Element>
    void Number(const Element& element, const int* value) {
        if (value == nullptr) {
            return;
        }
        Put(element.start);
        char digits[32];
        const char* const end = digits + 16;
        const char* const begin = PutNumber(*value, digits + 16);
        std::memcpy(at_, begin, 16);
        at_ += end - begin;
        Put(element.end);
    }

    template <class Element>
    void Flag(const Element& element, const bool* value) {
        if (value == nullptr) {
            return;
        }
        const std::string_view text = *value ? "true" : "false";
        Put(element.start);
        at_ += text.copy(at_, text.size());
        Put(element.end);
    }

    /// The texts in elements of one name, side by side.
    template <class Element>
    void Texts(const Element& element, const SoapTexts* texts) {
        if (texts == nullptr) {
            return;
        }
        for (int at = 0; at < texts->count; ++at) {
            Ensure(kRoomPerAlbum);
            Plain(element, &texts->items[at]);
        }
    }

    /// The texts as values within an element.
    template <class Element>
    void Values(const Element& element, const SoapTexts* texts) {
        if (texts == nullptr) {
            return;
        }
        if (texts->count == 0) {
            Put(element.empty);
            return;
        }
        Put(element.start);
        Texts(elements::kValue, texts);
        Put(element.end);
    }

    void Artist(const SoapArtist* artist) {
        if (artist == nullptr) {
            return;
        }
        Put(elements::kArtist.start);
        EachOfArtist(*this, *artist);
        Put(elements::kArtist.end);
    }

    void Tracks(const SoapTracks* tracks) {
        if (tracks == nullptr) {
            return;
        }
        if (tracks->count == 0) {
            Put(elements::kTracks.empty);
            return;
        }
        Put(elements::kTracks.start);
        for (int at = 0; at < tracks->count; ++at) {
            Ensure(kRoomPerTrack);
            Put(elements::kTrack.start);
            EachOfTrack(*this, *tracks->items[at]);
            Put(elements::kTrack.end);
        }
        Put(elements::kTracks.end);
        Ensure(kRoomPerAlbum);
    }

 private:
    // For 7 texts of a track, or 24 of an album, as base64, their tags and the numbers. Lists have
    // as many texts as they like.
    static constexpr std::size_t kRoomPerTrack = 12 * kLongestText;
    static constexpr std::size_t kRoomPerAlbum = 40 * kLongestText;
    static constexpr std::size_t kRoomBehind = kLongestText;

    /// Makes room for that much, for pieces that are then written without looking.
    void Ensure(std::size_t room) {
        const std::size_t size = Text().size();
        if (buffer_.size() - size < room) {
            buffer_.resize(2 * (size + room));
            at_ = buffer_.data() + size;
        }
    }

    template <std::size_t Size>
    void Put(const std::array<char, Size>& tag) {
        std::memcpy(at_, tag.data(), Size);
        at_ += Size;
    }

    template <class Element>
    void PutPlain(const Element& element, const std::string& text) {
        Put(element.start);
        if (text.empty() || text.size() > kLongestText) {
            Fail();
        }
        PutShortOrLong(text);
        // Looked at where it stands now: what follows it there may be read, too.
        const char* const end = at_ + text.size();
        std::memcpy(at_ + text.size(), element.end.data(), element.end.size());
        for (const char* from = at_;; from += sizeof(Word)) {
            if (const Word marks = Marks(Load(from))) {
                if (from + CountAhead(marks) < end) {
                    Fail();
                }
                break;
            }
        }
        at_ += text.size() + element.end.size();
    }

    /// Any string of the library has memory for 15 characters and a zero.
    void PutShortOrLong(const std::string& text) {
        constexpr std::size_t kShort = 16;
        if (text.size() < kShort) {
            std::memcpy(at_, text.data(), kShort);
        } else {
            text.copy(at_, text.size());
        }
    }

    std::vector<char> buffer_;
    char* at_ = nullptr;
};

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_XML_PEN_H_
