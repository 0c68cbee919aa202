// Prints lines of what records write into logs, from files that each hold the text of a record's
// tree:
//
//     log-reader TEXT FILE...
//
// Each line that has the text is printed behind its file's name, and ends in CR LF, as in a log.

#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include "records/DataAccountProperties.h"
#include "records/DataAlbum.h"
#include "records/DataAlbumReview.h"
#include "records/DataArtist.h"
#include "records/DataGenre.h"
#include "records/DataGenreLite.h"
#include "records/DataImage.h"
#include "records/DataIndex.h"
#include "records/DataLibraryModificationResult.h"
#include "records/DataMemberLibrary.h"
#include "records/DataMemberLibraryLite.h"
#include "records/DataPlaylist.h"
#include "records/DataStation.h"
#include "records/DataTrackInfo.h"
#include "records/RecordText.h"

namespace {

template <class Record>
std::string LogText(ZQXML::INode* root) {
    Record record;
    quavera::ReadRecordTree(root, &record);
    return record.ToString();
}

/// By the name of the root. Of two records with one name, the full one stands first and is taken.
std::map<std::string, std::string (*)(ZQXML::INode*)> LogTexts() {
    std::map<std::string, std::string (*)(ZQXML::INode*)> texts;
#define QUAVERA_RECORD(Record, Soap, element, node, answer) texts.emplace(element, LogText<Record>);
#include "records/Records.def"
    return texts;
}

/// The log text of the record that a file holds; false, with the reason, if it holds none.
bool ReadLogText(const char* path, std::string* text, std::string* error) {
    static const auto kLogTexts = LogTexts();
    std::ifstream file(path);
    std::string xml;
    std::getline(file, xml, '\0');  // to the end, or to the zero byte that may stand behind a tree
    if (!file.is_open() || file.bad()) {
        *error = "cannot be read";
        return false;
    }
    const auto root = ZQXML::ParseXml(xml, error);
    if (!root) {
        return false;
    }
    const auto found = kLogTexts.find(root->GetName());
    if (found == kLogTexts.end()) {
        *error = "no record has the root \"" + root->GetName() + "\"";
        return false;
    }
    *text = found->second(root.get());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: log-reader TEXT FILE...\n";
        return 2;
    }
    int status = 0;
    for (int at = 2; at < argc; ++at) {
        std::string text;
        std::string error;
        if (!ReadLogText(argv[at], &text, &error)) {
            std::cerr << "log-reader: " << argv[at] << ": " << error << '\n';
            status = 1;
        }
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (line.find(argv[1]) != std::string::npos) {
                std::cout << argv[at] << ": " << line << '\n';
            }
        }
    }
    return std::cout.flush() ? status : 1;
}
