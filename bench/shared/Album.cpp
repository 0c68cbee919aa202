#include "bench/shared/Album.h"

#include <array>
#include <string_view>
#include <utility>

namespace bench {
namespace {

using Words = std::array<std::string_view, 12>;

constexpr Words kAscii = {"Night",   "the", "Silver", "of",   "Summer", "Train",
                          "Strange", "in",  "River",  "Home", "Golden", "Dance"};

// Those that are not ASCII, in turns.
constexpr std::array<Words, 4> kOthers = {{
    {"Été", "für", "Señora", "Größe", "Ñandú", "à", "Köln", "Façade", "naïve", "Über", "Ångström",
     "Noël"},
    {"Ночь", "над", "Серебро", "и", "Лето", "Поезд", "Странный", "в", "Река", "Дом", "Золотой",
     "Танец"},
    {"밤", "은빛", "여름", "기차", "이상한", "강", "집", "황금", "춤", "사랑", "바다", "하늘"},
    {"夜", "銀の", "夏の日", "列車", "不思議な", "川", "故郷", "黄金", "踊り", "愛してる", "海",
     "空へ"},
}};

constexpr unsigned kOneInSoManyIsNotAscii = 5;

bool IsTrail(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The first `count` characters of a UTF-8 text.
std::string Cut(const std::string& text, std::size_t count) {
    std::size_t at = 0;
    while (at < text.size() && (IsTrail(text[at]) || count-- > 0)) {
        ++at;
    }
    return text.substr(0, at);
}

}  // namespace

Album::Album(int trackCount, Members members)
    : tracks_(static_cast<std::size_t>(trackCount)), trackPointers_(tracks_.size()) {
    FillAlbum();
    FillArtist();
    for (std::size_t at = 0; at < tracks_.size(); ++at) {
        trackPointers_[at] = &tracks_[at];
        FillTrack(static_cast<int>(at), trackPointers_[at]);
    }
    trackArray_.items = trackPointers_.data();
    trackArray_.count = trackCount;
    album_.tracks = &trackArray_;
    if (members == Members::kAll) {
        FillUnread();
    }
}

void Album::FillAlbum() {
    album_.albumArt162x162Url = Text("http://image.example.com/img/162x162/7/3/6/Alb.1063734.jpg");
    album_.albumId = Text("Alb.1063734");
    album_.albumType = Number(2);
    album_.compilation = Flag(true);
    album_.displayName = DisplayName(16, 24);
    displayableTypeArray_.items = displayableTypes_.data();
    displayableTypeArray_.count = static_cast<int>(displayableTypes_.size());
    album_.displayableAlbumTypes = &displayableTypeArray_;
    album_.name = DisplayName(16, 24);
    album_.parentalAuthority = Flag(false);
    album_.primaryArtistDisplayName = DisplayName(8, 24);
    album_.primaryArtistId = Text("Art.7024816");
    album_.primaryStyle = Text("Alternative/Indie");
    album_.releaseYear = Number(2007);
    album_.shortcut = Text("silver-river");

    album_.albumArt70x70Url = Text("http://image.example.com/img/70x70/7/3/6/Alb.1063734.jpg");
    album_.copyright = Text("(P) 2007 Night Train Recordings Ltd.");
    album_.label = Text("Night Train Recordings");
    otherTypeArray_.items = otherTypes_.data();
    otherTypeArray_.count = static_cast<int>(otherTypes_.size());
    album_.nonDisplayableAlbumTypes = &otherTypeArray_;
    album_.upccode = Text("00602517484375");
}

void Album::FillArtist() {
    artist_.artistId = album_.primaryArtistId;
    artist_.name = DisplayName(8, 24);
    artist_.shortcut = Text("night-train");
    album_.primaryArtist = &artist_;
}

void Album::FillTrack(int index, SoapTrack* track) {
    track->albumId = album_.albumId;
    track->artistId = Identifier("Art.", 7);
    track->discIndex = Number(1 + index / 20);
    track->displayAlbumName = DisplayName(10, 32);
    track->displayArtistName = DisplayName(6, 24);
    track->genreId = Identifier("g.", 3);
    track->name = DisplayName(8, 40);
    track->playbackSeconds = Number(120 + static_cast<int>(Random(300)));
    track->rightFlags = Number(static_cast<int>(Random(128)));
    track->trackId = Identifier("Tra.", 8);
    track->trackIndex = Number(1 + index % 20);
}

/// The same in every track: what the records read does not depend on it.
void Album::FillUnread() {
    album_.numberOfDiscs = Number(1);
    album_.numberOfTracks = Number(trackArray_.count);
    album_.releaseDate = &releaseDate_;
    album_.rightFlags = Number(127);
    album_.originalReleaseYear = Number(2006);
    album_.playbackSeconds = Number(trackArray_.count * 240);
    artist_.rightFlags = Number(127);
    for (SoapTrack& track : tracks_) {
        track.isrc = Text("GBUM70712345");
        track.popularity = Number(640);
        track.previewUrl = Text("http://preview.example.com/clips/Tra.11552975.mp3");
    }
}

std::string* Album::Text(std::string text) {
    return &texts_.emplace_back(std::move(text));
}

/// A name of that many characters.
std::string* Album::DisplayName(std::size_t shortest, std::size_t longest) {
    const unsigned ordinal = displayNames_++;
    const bool isAscii = ordinal % kOneInSoManyIsNotAscii != 0;
    const Words& words =
        isAscii ? kAscii : kOthers[ordinal / kOneInSoManyIsNotAscii % kOthers.size()];
    const std::size_t length = shortest + Random(longest - shortest + 1);
    std::string name(words[Random(words.size())]);
    while (Cut(name, length) == name) {
        name += ' ';
        name += words[Random(words.size())];
    }
    return Text(Cut(name, length));
}

std::string* Album::Identifier(const char* kind, unsigned digits) {
    std::string text = kind;
    text += static_cast<char>('1' + Random(9));
    while (--digits > 0) {
        text += static_cast<char>('0' + Random(10));
    }
    return Text(text);
}

int* Album::Number(int value) {
    return &numbers_.emplace_back(value);
}

bool* Album::Flag(bool value) {
    return &flags_.emplace_back(value);
}

/// 0 to `count - 1`, the same sequence everywhere.
unsigned Album::Random(std::size_t count) {
    state_ = state_ * 1664525U + 1013904223U;
    return (state_ >> 8) % static_cast<unsigned>(count);
}

}  // namespace bench
