#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

#include "bench/shared/Contender.h"
#include "bench/shared/NewTrack.h"
#include "records/DataAlbum.h"

// The floor: what no tree can go below. The same texts are base64-coded, decoded, turned to wide
// strings and put into the record's fields at once, with no tree in between and no call into the
// library.

namespace bench {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint32_t kForeign = 0x01000000;   // a character outside the alphabet
constexpr std::uint32_t kHighBits = 0x00808080;  // of a group's three bytes: not ASCII

/// The two characters for each 12 bits.
constexpr std::array<std::uint16_t, 4096> MakePairs() {
    std::array<std::uint16_t, 4096> pairs{};
    for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
        const auto first = static_cast<unsigned char>(kAlphabet[bits >> 6]);
        const auto second = static_cast<unsigned char>(kAlphabet[bits & 63]);
        pairs[bits] = static_cast<std::uint16_t>(first | second << 8);
    }
    return pairs;
}

using Meanings = std::array<std::uint32_t, 256>;

/// What a character at a place (0 to 3) of its group means: its share of the group's three bytes,
/// the first one lowest.
constexpr Meanings MakeMeanings(int place) {
    Meanings meanings{};
    for (std::uint32_t& meaning : meanings) {
        meaning = kForeign;
    }
    for (std::uint32_t value = 0; value < 64; ++value) {
        const std::uint32_t bits = value << (18 - 6 * place);
        meanings[static_cast<unsigned char>(kAlphabet[value])] =
            (bits >> 16) | (bits & 0xFF00) | (bits & 0xFF) << 16;
    }
    return meanings;
}

constexpr std::array<std::uint16_t, 4096> kPairs = MakePairs();
constexpr std::array<Meanings, 4> kMeanings = {MakeMeanings(0), MakeMeanings(1), MakeMeanings(2),
                                               MakeMeanings(3)};

constexpr std::array<char, 200> MakeDigitPairs() {
    std::array<char, 200> digits{};
    for (std::size_t value = 0; value < 100; ++value) {
        digits[2 * value] = static_cast<char>('0' + value / 10);
        digits[2 * value + 1] = static_cast<char>('0' + value % 10);
    }
    return digits;
}

constexpr std::array<char, 200> kDigitPairs = MakeDigitPairs();

// Warm buffers, with room for whole groups behind the longest text.
char encoded[kLongestText * 2];
char decoded[kLongestText * 2];
wchar_t wide[kLongestText * 2];

[[noreturn]] void Fail() {
    std::abort();
}

std::uint32_t Code(char byte) {
    return static_cast<unsigned char>(byte);
}

void PutPair(std::uint32_t bits, char* to) {
    std::memcpy(to, &kPairs[bits], 2);
}

/// Base64 of `text` into `encoded`; the number of characters.
std::size_t Encode(const std::string& text) {
    if (text.size() > kLongestText) {
        Fail();
    }
    const char* from = text.data();
    std::size_t left = text.size();
    char* to = encoded;
    // A load of eight bytes for six of them.
    for (; left >= 8; left -= 6, from += 6, to += 8) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, from, 8);
        bits = __builtin_bswap64(bits);
        PutPair(static_cast<std::uint32_t>(bits >> 52), to);
        PutPair(static_cast<std::uint32_t>(bits >> 40) & 0xFFF, to + 2);
        PutPair(static_cast<std::uint32_t>(bits >> 28) & 0xFFF, to + 4);
        PutPair(static_cast<std::uint32_t>(bits >> 16) & 0xFFF, to + 6);
    }
    for (; left >= 3; left -= 3, from += 3, to += 4) {
        const std::uint32_t bits = Code(from[0]) << 16 | Code(from[1]) << 8 | Code(from[2]);
        PutPair(bits >> 12, to);
        PutPair(bits & 0xFFF, to + 2);
    }
    if (left > 0) {
        const std::uint32_t bits = Code(from[0]) << 16 | (left == 2 ? Code(from[1]) << 8 : 0);
        PutPair(bits >> 12, to);
        PutPair(bits & 0xFFF, to + 2);
        to[3] = '=';
        if (left == 1) {
            to[2] = '=';
        }
        to += 4;
    }
    return static_cast<std::size_t>(to - encoded);
}

std::uint32_t Group(const char* from) {
    return kMeanings[0][Code(from[0])] | kMeanings[1][Code(from[1])] | kMeanings[2][Code(from[2])] |
           kMeanings[3][Code(from[3])];
}

struct Bytes {
    std::size_t size;
    bool isAscii;
};

/// The bytes of the first `size` characters of `encoded`, into `decoded`.
Bytes Decode(std::size_t size) {
    const char* from = encoded;
    const std::size_t pads = size == 0               ? 0
                             : from[size - 1] != '=' ? 0
                             : from[size - 2] != '=' ? 1
                                                     : 2;
    const char* const end = from + size - (pads > 0 ? 4 : 0);
    char* to = decoded;
    std::uint32_t all = 0;
    for (; from != end; from += 4, to += 3) {
        const std::uint32_t bits = Group(from);
        all |= bits;
        std::memcpy(to, &bits, 4);
    }
    if (pads > 0) {
        const char last[4] = {from[0], from[1], pads == 2 ? 'A' : from[2], 'A'};
        const std::uint32_t bits = Group(last);
        all |= bits;
        std::memcpy(to, &bits, 4);
        to += 3 - pads;
    }
    if ((all & kForeign) != 0) {
        Fail();
    }
    return {static_cast<std::size_t>(to - decoded), (all & kHighBits) == 0};
}

/// The six bits of a trail byte; of any other, more.
std::uint32_t TrailBits(char byte) {
    return Code(byte) ^ 0x80;
}

/// Strict UTF-8 from `decoded` into `wide`; the number of characters.
std::size_t Widen(std::size_t size) {
    const char* from = decoded;
    const char* const end = from + size;
    wchar_t* to = wide;
    decoded[size] = decoded[size + 1] = decoded[size + 2] = 0;  // ends a sequence that is cut
    while (from < end) {
        const std::uint32_t first = Code(*from);
        std::uint32_t code = first;
        if (first < 0x80) {
            from += 1;
        } else if (first >= 0xC2 && first < 0xE0) {
            const std::uint32_t second = TrailBits(from[1]);
            code = (first & 0x1F) << 6 | second;
            if (second > 0x3F) {
                Fail();
            }
            from += 2;
        } else if (first >= 0xE0 && first < 0xF0) {
            const std::uint32_t second = TrailBits(from[1]);
            const std::uint32_t third = TrailBits(from[2]);
            code = (first & 0xF) << 12 | second << 6 | third;
            if ((second | third) > 0x3F || code < 0x800 || (code >= 0xD800 && code <= 0xDFFF)) {
                Fail();
            }
            from += 3;
        } else if (first >= 0xF0 && first < 0xF8) {
            const std::uint32_t second = TrailBits(from[1]);
            const std::uint32_t third = TrailBits(from[2]);
            const std::uint32_t fourth = TrailBits(from[3]);
            code = (first & 7) << 18 | second << 12 | third << 6 | fourth;
            if ((second | third | fourth) > 0x3F || code < 0x10000 || code > 0x10FFFF) {
                Fail();
            }
            from += 4;
        } else {
            Fail();
        }
        *to++ = static_cast<wchar_t>(code);
    }
    return static_cast<std::size_t>(to - wide);
}

/// The same of ASCII. Whole vectors at a time: the buffers have room for what is too much.
void WidenAscii(std::size_t size) {
    constexpr std::size_t kVector = 16;
    for (std::size_t at = 0; at < size; at += kVector) {
        for (std::size_t lane = 0; lane < kVector; ++lane) {
            wide[at + lane] = static_cast<wchar_t>(Code(decoded[at + lane]));
        }
    }
}

void Display(const std::string* text, std::wstring& field) {
    if (text == nullptr) {
        return;
    }
    const Bytes bytes = Decode(Encode(*text));
    std::size_t size = bytes.size;
    if (bytes.isAscii) {
        WidenAscii(size);
    } else {
        size = Widen(size);
    }
    field = std::wstring(wide, size);  // cheaper than to assign
}

void Plain(const std::string* text, std::string& field) {
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

/// The number's digits, ending ahead of `end`; where they begin.
char* PutNumber(int value, char* end) {
    std::uint32_t rest =
        value < 0 ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
    for (; rest >= 100; rest /= 100) {
        end -= 2;
        std::memcpy(end, &kDigitPairs[std::size_t{2} * (rest % 100)], 2);
    }
    if (rest >= 10) {
        end -= 2;
        std::memcpy(end, &kDigitPairs[std::size_t{2} * rest], 2);
    } else {
        *--end = static_cast<char>('0' + rest);
    }
    if (value < 0) {
        *--end = '-';
    }
    return end;
}

void Number(const int* value, int& field) {
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

void Flag(const bool* value, bool& field) {
    if (value == nullptr) {
        return;
    }
    const std::string_view text = *value ? "true" : "false";
    text.copy(encoded, text.size());
    if (std::string_view(encoded, text.size()) == "true") {
        field = true;
    }
}

void Texts(const SoapTexts* array, std::vector<std::string>& field) {
    if (array == nullptr) {
        return;
    }
    field.reserve(static_cast<std::size_t>(array->count));
    for (int at = 0; at < array->count; ++at) {
        Plain(&array->items[at], field.emplace_back());
    }
}

// Records with the fields of the library's, in the same order, and nothing else.

struct PlainTrack {
    std::string albumId;
    std::string artistId;
    int discIndex = 0;
    std::wstring displayAlbumName;
    std::wstring displayArtistName;
    std::string genreId;
    std::wstring name;
    int playbackSeconds = 0;
    int rightFlags = 0;
    std::string trackId;
    int trackIndex = 0;
    std::string userData;
};

struct PlainArtist {
    std::string artistId;
    std::wstring name;
    std::string shortcut;
};

struct PlainAlbum {
    std::string albumArt162x162Url;
    std::string albumId;
    int albumType = 0;
    bool compilation = false;
    std::wstring displayName;
    std::string displayNameUtf8;
    std::wstring name;
    std::string nameUtf8;
    bool parentalAuthority = false;
    std::wstring primaryArtistDisplayName;
    std::string primaryArtistDisplayNameUtf8;
    std::string primaryArtistId;
    std::string primaryStyle;
    int releaseYear = 0;
    std::uint64_t reserved64 = 0;
    std::string shortcut;
    std::vector<std::string> displayableAlbumTypes;
    std::string albumArt70x70Url;
    std::string copyright;
    std::string label;
    std::vector<std::string> nonDisplayableAlbumTypes;
    PlainArtist primaryArtist;
    std::vector<PlainTrack> tracks;
    std::string upccode;
};

PlainTrack& AppendTrack(std::vector<PlainTrack>& tracks) {
    return tracks.emplace_back();
}

DataTrackInfo& AppendTrack(std::vector<DataTrackInfo>& tracks) {
    return AppendUnreserved(tracks);
}

template <class Track>
void FillTrack(const SoapTrack& soap, Track& track) {
    Plain(soap.albumId, track.albumId);
    Plain(soap.artistId, track.artistId);
    Number(soap.discIndex, track.discIndex);
    Display(soap.displayAlbumName, track.displayAlbumName);
    Display(soap.displayArtistName, track.displayArtistName);
    Plain(soap.genreId, track.genreId);
    Display(soap.name, track.name);
    Number(soap.playbackSeconds, track.playbackSeconds);
    Number(soap.rightFlags, track.rightFlags);
    Plain(soap.trackId, track.trackId);
    Number(soap.trackIndex, track.trackIndex);
}

template <class Artist>
void FillArtist(const SoapArtist* soap, Artist& artist) {
    if (soap == nullptr) {
        return;
    }
    Plain(soap->artistId, artist.artistId);
    Display(soap->name, artist.name);
    Plain(soap->shortcut, artist.shortcut);
}

template <class Track>
void FillTracks(const SoapTracks* soap, std::vector<Track>& tracks) {
    if (soap == nullptr) {
        return;
    }
    tracks.reserve(static_cast<std::size_t>(soap->count));
    for (int at = 0; at < soap->count; ++at) {
        FillTrack(*soap->items[at], AppendTrack(tracks));
    }
}

template <class Record>
void FillAlbum(const SoapAlbum& soap, Record& album) {
    Plain(soap.albumArt162x162Url, album.albumArt162x162Url);
    Plain(soap.albumId, album.albumId);
    Number(soap.albumType, album.albumType);
    Flag(soap.compilation, album.compilation);
    Display(soap.displayName, album.displayName);
    Display(soap.name, album.name);
    Flag(soap.parentalAuthority, album.parentalAuthority);
    Display(soap.primaryArtistDisplayName, album.primaryArtistDisplayName);
    Plain(soap.primaryArtistId, album.primaryArtistId);
    Plain(soap.primaryStyle, album.primaryStyle);
    Number(soap.releaseYear, album.releaseYear);
    Plain(soap.shortcut, album.shortcut);
    Texts(soap.displayableAlbumTypes, album.displayableAlbumTypes);

    Plain(soap.albumArt70x70Url, album.albumArt70x70Url);
    Plain(soap.copyright, album.copyright);
    Plain(soap.label, album.label);
    Texts(soap.nonDisplayableAlbumTypes, album.nonDisplayableAlbumTypes);
    FillArtist(soap.primaryArtist, album.primaryArtist);
    FillTracks(soap.tracks, album.tracks);
    Plain(soap.upccode, album.upccode);
}

// --- The log text ------------------------------------------------------------------------------

/// Writes pieces one behind the other into a string. A string has to be filled before it is written
/// to, which is done a little ahead of the writing.
class Pen {
 public:
    explicit Pen(std::size_t size) {
        text_.reserve(size);
        at_ = text_.data();
    }

    /// Makes room for that much, for pieces that are then written without looking.
    void Ensure(std::size_t room) {
        constexpr std::size_t kAhead = 1024;
        const std::size_t size = Size();
        if (text_.size() - size < room) {
            text_.resize(size + room + kAhead);
            at_ = text_.data() + size;
        }
    }

    template <std::size_t Size>
    void Label(const char (&text)[Size]) {
        std::memcpy(at_, text, Size - 1);
        at_ += Size - 1;
    }

    /// Any string of the library has memory for 15 characters and a zero, and so have we.
    void Plain(const std::string& text) {
        constexpr std::size_t kShort = 16;
        if (text.size() < kShort) {
            std::memcpy(at_, text.data(), kShort);
        } else {
            text.copy(at_, text.size());
        }
        at_ += text.size();
    }

    void Display(const std::wstring& text) {
        const std::size_t done = text.size() >= 16  ? PutSteps<16>(text)
                                 : text.size() >= 8 ? PutSteps<8>(text)
                                                    : 0;
        at_ += done;
        if (done != text.size()) {
            DisplayRest(text, done);
        }
    }

    void Number(int value) {
        char digits[32];
        const char* const end = digits + 16;
        const char* const begin = PutNumber(value, digits + 16);
        std::memcpy(at_, begin, 16);
        at_ += end - begin;
    }

    void Flag(bool value) {
        if (value) {
            Label("true");
        } else {
            Label("false");
        }
    }

    std::size_t Capacity() const { return text_.capacity(); }

    std::string Take() {
        text_.resize(Size());
        return std::move(text_);
    }

 private:
    std::size_t Size() const { return static_cast<std::size_t>(at_ - text_.data()); }

    /// As many characters, if all are ASCII; tells whether they are.
    template <std::size_t kStep>
    static bool PutStep(const wchar_t* __restrict from, char* __restrict to) {
        std::uint64_t all = 0;
        for (std::size_t at = 0; at < kStep; at += 2) {
            std::uint64_t two = 0;
            std::memcpy(&two, from + at, sizeof two);
            all |= two;
        }
        if ((all & 0xFFFFFF80FFFFFF80) != 0) {
            return false;
        }
        for (std::size_t at = 0; at < kStep; ++at) {
            to[at] = static_cast<char>(from[at]);
        }
        return true;
    }

    /// ASCII characters that the text begins with; their number.
    template <std::size_t kStep>
    std::size_t PutSteps(const std::wstring& text) const {
        const std::size_t last = text.size() - kStep;
        std::size_t at = 0;
        do {
            if (!PutStep<kStep>(&text[at], at_ + at)) {
                return at;
            }
            at += kStep;
        } while (at < last);
        return PutStep<kStep>(&text[last], at_ + last) ? text.size() : last;
    }

    [[gnu::noinline]] void DisplayRest(const std::wstring& text, std::size_t start) {
        char* to = at_;
        for (const wchar_t character : std::wstring_view(text).substr(start)) {
            const auto code = static_cast<char32_t>(character);
            if (code < 0x80) {
                *to++ = static_cast<char>(code);
                continue;
            }
            if (code < 0x800) {
                *to++ = static_cast<char>(0xC0 | code >> 6);
            } else if (code < 0x10000) {
                *to++ = static_cast<char>(0xE0 | code >> 12);
                *to++ = static_cast<char>(0x80 | (code >> 6 & 0x3F));
            } else {
                *to++ = static_cast<char>(0xF0 | code >> 18);
                *to++ = static_cast<char>(0x80 | (code >> 12 & 0x3F));
                *to++ = static_cast<char>(0x80 | (code >> 6 & 0x3F));
            }
            *to++ = static_cast<char>(0x80 | (code & 0x3F));
        }
        at_ = to;
    }

    std::string text_;
    char* at_ = nullptr;
};

// For 8 texts of a track, or 24 of an album, their labels and numbers.
constexpr std::size_t kRoomPerTrack = 9 * kLongestText;
constexpr std::size_t kRoomPerAlbum = 26 * kLongestText;

template <class Track>
void PutTrack(const Track& track, Pen& pen) {
    pen.Ensure(kRoomPerTrack);
    pen.Label("Track AlbumId = ");
    pen.Plain(track.albumId);
    pen.Label("\r\nAlbumId = ");
    pen.Plain(track.albumId);
    pen.Label("\r\nArtistId = ");
    pen.Plain(track.artistId);
    pen.Label("\r\nDiscIndex = ");
    pen.Number(track.discIndex);
    pen.Label("\r\nDisplayAlbumName = ");
    pen.Display(track.displayAlbumName);
    pen.Label("\r\nDisplayArtistName = ");
    pen.Display(track.displayArtistName);
    pen.Label("\r\nName = ");
    pen.Display(track.name);
    pen.Label("\r\nPlaybackSeconds = ");
    pen.Number(track.playbackSeconds);
    pen.Label("\r\nTrackId = ");
    pen.Plain(track.trackId);
    pen.Label("\r\nTrackIndex = ");
    pen.Number(track.trackIndex);
    pen.Label("\r\nUserData = ");
    pen.Plain(track.userData);
    pen.Label("\r\n");
}

template <class Record>
void PutSummary(const Record& album, Pen& pen) {
    pen.Label("albumArt162x162Url = ");
    pen.Plain(album.albumArt162x162Url);
    pen.Label("\r\nalbumId = ");
    pen.Plain(album.albumId);
    pen.Label("\r\nalbumType = ");
    pen.Number(album.albumType);
    pen.Label("\r\ncompilation = ");
    pen.Flag(album.compilation);
    pen.Label("\r\ndisplayName = ");
    pen.Display(album.displayName);
    pen.Label("\r\nname = ");
    pen.Display(album.name);
    pen.Label("\r\nparentalAuthority = ");
    pen.Flag(album.parentalAuthority);
    pen.Label("\r\nprimaryArtistDisplayName = ");
    pen.Display(album.primaryArtistDisplayName);
    pen.Label("\r\nprimaryArtistId = ");
    pen.Plain(album.primaryArtistId);
    pen.Label("\r\nprimaryStyle = ");
    pen.Plain(album.primaryStyle);
    pen.Label("\r\nreleaseYear = ");
    pen.Number(album.releaseYear);
    pen.Label("\r\nshortcut = ");
    pen.Plain(album.shortcut);
    pen.Label("\r\n");
    for (const std::string& type : album.displayableAlbumTypes) {
        pen.Label("  types = ");
        pen.Plain(type);
        pen.Label("\r\n");
    }
}

template <class Record>
void PutAlbum(const Record& album, Pen& pen) {
    pen.Ensure(kRoomPerAlbum);
    pen.Label("AlbumArt70x70Url = ");
    pen.Plain(album.albumArt70x70Url);
    pen.Label("\r\ncopyright = ");
    pen.Plain(album.copyright);
    pen.Label("\r\nlabel = ");
    pen.Plain(album.label);
    pen.Label("\r\n");
    for (const std::string& type : album.nonDisplayableAlbumTypes) {
        pen.Label("nonDisplayableAlbumTypes ");
        pen.Plain(type);
    }
    pen.Label("primaryArtist = artistId = ");
    pen.Plain(album.primaryArtist.artistId);
    pen.Label("\r\nname = ");
    pen.Display(album.primaryArtist.name);
    pen.Label("\r\nshortcut = ");
    pen.Plain(album.primaryArtist.shortcut);
    pen.Label("\r\n\r\n");
    for (const auto& track : album.tracks) {
        PutTrack(track, pen);
    }
    pen.Ensure(kRoomPerAlbum);
    pen.Label("upccode = ");
    pen.Plain(album.upccode);
    pen.Label("\r\n");
    PutSummary(album, pen);
}

template <class Record>
class Floor final : public Contender {
 public:
    void Write(SoapAlbum* soap) override { soap_ = soap; }
    void Read() override { FillAlbum(*soap_, record_.emplace()); }
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
    std::optional<Record> record_;
    std::size_t textSize_ = 0;
};

}  // namespace

std::unique_ptr<Contender> MakeFloorBare() {
    return std::make_unique<Floor<PlainAlbum>>();
}

std::unique_ptr<Contender> MakeFloor() {
    return std::make_unique<Floor<DataAlbum>>();
}

}  // namespace bench
