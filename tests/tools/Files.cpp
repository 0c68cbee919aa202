#include "tests/tools/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tooltest {

std::string Contents(const std::string& path) {
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    EXPECT_TRUE(file.good()) << path;
    return contents.str();
}

std::string DataPath(const std::string& name) {
    return std::string(QUAVERA_TEST_DATA "/") + name;
}

std::vector<std::string> SampleDocuments() {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(QUAVERA_TEST_CATALOG)) {
        if (entry.is_regular_file()) {
            paths.push_back(entry.path().string());
        }
    }
    EXPECT_FALSE(paths.empty());
    return paths;
}

TempFolder::TempFolder() : path_(testing::TempDir() + "quavera-tool-XXXXXX") {
    EXPECT_NE(mkdtemp(path_.data()), nullptr) << path_;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempFolder::Add(const std::string& name, const std::string& contents) const {
    const std::filesystem::path path = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << contents;
    return path.string();
}

std::string Envelope(const std::string& inner) {
    return R"(<s:Envelope xmlns:s="http://schemas.xmlsoap.org/soap/envelope/")"
           R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:q="urn:quavera:v2">)"
           "<s:Body>" +
           inner + "</s:Body></s:Envelope>";
}

std::string Track(const std::string& members) {
    return "<q:LiteTrackMetadata>" + members + "</q:LiteTrackMetadata>";
}

}  // namespace tooltest
