// Receives albums' trees on standard input, each ended by a zero byte, and lists their tracks.

#include <cstddef>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "common/QuaveraCommon.h"
#include "records/DataAlbum.h"
#include "records/RecordText.h"

namespace {

constexpr std::size_t kLongestTree = std::size_t{4} * 1024 * 1024;  // whoever sends may be anybody

void Print(const DataAlbum& album) {
    std::cout << convertToUtf8(album.name) << " (" << convertToUtf8(album.primaryArtistDisplayName)
              << ", " << album.releaseYear << ")\n";
    for (const DataTrackInfo& track : album.tracks) {
        std::cout << std::setw(3) << track.trackIndex << ". " << convertToUtf8(track.name) << ", "
                  << track.playbackSeconds << " s\n";
    }
}

/// Prints the album of a tree's text; false, with a message on standard error, if it is none.
bool Receive(const char* text) {
    DataAlbum album;
    std::string error;
    if (!quavera::ReadRecord(text, &album, &error)) {
        std::cerr << "tree-receiver: " << error << '\n';
        return false;
    }
    Print(album);
    return true;
}

}  // namespace

int main() {
    std::ios::sync_with_stdio(false);  // else what cannot be read looks like its end
    int status = 0;
    std::vector<char> text(kLongestTree + 1);
    while (std::cin.getline(text.data(), static_cast<std::streamsize>(text.size()), '\0')) {
        status = Receive(text.data()) ? status : 1;
    }
    if (!std::cin.eof()) {
        std::cerr << "tree-receiver: unreadable, or a tree of more than " << kLongestTree
                  << " bytes\n";
        return 1;
    }
    return std::cout.flush() ? status : 1;
}
