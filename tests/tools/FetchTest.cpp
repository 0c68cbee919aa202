// The real client against the real stand-in service.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Server.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Envelope;
using tooltest::Printed;
using tooltest::Refused;
using tooltest::Server;
using tooltest::TempFolder;
using tooltest::Track;

std::string TrackNamed(const std::string& id) {
    return Envelope(Track("<trackId>" + id + "</trackId>"));
}

/// A service with a catalogue of the test's.
class Fetch : public testing::Test {
 public:
    Fetch() : server_(Filled(folder_)) {}

 protected:
    tooltest::Outcome Get(const std::string& id) const {
        return server_.Fetch({"track", id, "--tree"});
    }

    /// Whether the service still answers as it should.
    testing::AssertionResult Serves() const {
        return Printed(Get("Tra.1"), "<Track><TrackId>one</TrackId></Track>\n");
    }

    /// Whether a request is answered with a fault that holds all of `parts`.
    testing::AssertionResult Faults(const std::string& id, std::vector<std::string> parts) const {
        parts.insert(parts.end(), {server_.Endpoint() + ": ", "fault"});
        return Refused(Get(id), 1, parts);
    }

 private:
    static const std::string& Filled(const TempFolder& folder) {
        folder.Add("track/Tra.1.xml", TrackNamed("one"));
        folder.Add("track/default.xml", TrackNamed("default"));
        folder.Add("track/full.xml", Contents(DataPath("DataTrackInfo/full.xml")));
        return folder.path();
    }

 protected:
    const TempFolder folder_;
    Server server_;
};

TEST_F(Fetch, PrintsTheText) {
    EXPECT_TRUE(
        Printed(server_.Fetch({"track", "full"}), Contents(DataPath("DataTrackInfo/full.txt"))));
    EXPECT_TRUE(Printed(server_.Fetch({"track", "full", "--text"}),
                        Contents(DataPath("DataTrackInfo/full.txt"))));
}

TEST_F(Fetch, PrintsTheTree) {
    EXPECT_TRUE(Printed(server_.Fetch({"track", "full", "--tree"}),
                        Contents(DataPath("DataTrackInfo/full.tree.xml")) + "\n"));
}

TEST_F(Fetch, WithoutIdentifierGetsTheDefault) {
    const std::string tree = "<Track><TrackId>default</TrackId></Track>\n";
    EXPECT_TRUE(Printed(server_.Fetch({"track", "--tree"}), tree));
    EXPECT_TRUE(Printed(Get(""), tree));
}

TEST_F(Fetch, UsesNoProxy) {
    const tooltest::Port nobody;
    setenv("http_proxy", nobody.Endpoint().c_str(), 1);
    EXPECT_TRUE(Serves());
    unsetenv("http_proxy");
}

TEST_F(Fetch, IdentifierMayHoldAnyCharacters) {
    for (const std::string id :
         {"a <b> & \"c\" 'd'", "Grüße 😀", "two..dots", "-", "a;b|c$d*", "%2e"}) {
        folder_.Add("track/" + id + ".xml", TrackNamed("it"));
        EXPECT_TRUE(Printed(Get(id), "<Track><TrackId>it</TrackId></Track>\n")) << id;
    }
}

TEST_F(Fetch, UnknownIdentifierIsAFault) {
    EXPECT_TRUE(Faults("Tra.2", {"track", "Tra.2"}));
    EXPECT_TRUE(Serves());
}

TEST_F(Fetch, IdentifierLeadsToNoOtherFile) {
    const std::string outside = folder_.Add("outside.xml", TrackNamed("outside"));
    folder_.Add("track/.hidden.xml", TrackNamed("hidden"));
    folder_.Add("track/sub/Tra.1.xml", TrackNamed("sub"));
    folder_.Add("track/.xml", TrackNamed("nameless"));
    folder_.Add("track/..xml", TrackNamed("dot"));
    const std::string absolute = outside.substr(0, outside.rfind(".xml"));
    for (const std::string& id :
         {std::string("../outside"), std::string("../track/Tra.1"), std::string("./Tra.1"),
          std::string("/Tra.1"), std::string("sub/Tra.1"), std::string("sub/../Tra.1"),
          std::string(".hidden"), std::string("."), std::string(".."),
          std::string("../../../../../../../..") + absolute, absolute}) {
        EXPECT_TRUE(Faults(id, {"no such identifier"})) << id;
    }
    EXPECT_TRUE(Serves());
}

TEST_F(Fetch, MalformedDocumentOfTheCatalogueIsAFault) {
    folder_.Add("track/bad.xml", Contents(DataPath("bad/mismatched-tag.xml")));
    EXPECT_TRUE(Faults("bad", {"line 5, column"}));
    EXPECT_TRUE(Serves());
}

TEST_F(Fetch, OtherRecordInTheCatalogueIsAFault) {
    folder_.Add("track/album.xml", Contents(DataPath("bad/other-record.xml")));
    EXPECT_TRUE(Faults("album", {"AlbumMetadata"}));
    EXPECT_TRUE(Serves());
}

TEST_F(Fetch, ValueThatDoesNotFitInTheCatalogueIsAFault) {
    folder_.Add("track/number.xml", Contents(DataPath("bad/number-is-text.xml")));
    EXPECT_TRUE(Faults("number", {"discIndex"}));
    EXPECT_TRUE(Serves());
}

TEST_F(Fetch, FaultInTheCatalogueIsAFault) {
    folder_.Add("track/gone.xml", Contents(DataPath("bad/fault-1.1.xml")));
    EXPECT_TRUE(Faults("gone", {"gelöscht"}));
    EXPECT_TRUE(Serves());
}

TEST_F(Fetch, FolderInPlaceOfADocumentIsAFault) {
    folder_.Add("track/folder.xml/file", "");
    EXPECT_TRUE(Faults("folder", {"folder"}));
    EXPECT_TRUE(Serves());
}

/// Whether requests of that kind are answered with a list.
bool IsList(const std::string& kind) {
    static const std::vector<std::string> lists = {
#define QUAVERA_RECORD(Class, Soap, element, node, answer) answer
#define NONE
#define ONE(kind, request)
#define LIST(kind, request, List, items) #kind,
#include "records/Records.def"
    };
    return std::find(lists.begin(), lists.end(), kind) != lists.end();
}

TEST(FetchSample, IsWhatShowPrintsOfTheDocument) {
    const Server server;
    for (const std::string& path : tooltest::SampleDocuments()) {
        const std::size_t name = path.rfind('/') + 1;
        const std::size_t kind = path.rfind('/', name - 2) + 1;
        if (IsList(path.substr(kind, name - 1 - kind))) {
            continue;  // a list is no record
        }
        const tooltest::Outcome shown = tooltest::RunTool({"show", path});
        EXPECT_EQ(shown.status, 0) << shown.errors;
        EXPECT_TRUE(Printed(server.Fetch({path.substr(kind, name - 1 - kind),
                                          path.substr(name, path.rfind(".xml") - name)}),
                            shown.output))
            << path;
    }
}

TEST(FetchSample, RecordsOfAListComeOneAfterTheOther) {
    const Server server;
    EXPECT_TRUE(Printed(server.Fetch({"index", "default"}),
                        "letter = A\r\nstart = 0\r\n"
                        "letter = B\r\nstart = 120\r\n"
                        "letter = Z\r\nstart = 4711\r\n"));
    EXPECT_TRUE(
        Printed(server.Fetch({"--tree", "images", "Alb.40013100"}),
                "<Image><Copyright>2009 Flussufer Records</Copyright><Height>162</Height>"
                "<ImageFormat>JPEG</ImageFormat>"
                "<Title encoding=\"base64\">Vm9yZGVyc2VpdGU=</Title>"
                "<Url>http://images.example/162/40013100.jpg</Url><Width>162</Width></Image>\n"
                "<Image><ImageFormat>PNG</ImageFormat>"
                "<Title encoding=\"base64\">6KOP6Z2i</Title>"
                "<Url>http://images.example/back/40013100.png</Url><Width>300</Width></Image>\n"));
}

TEST(FetchUnreachable, NamesTheEndpointAndTheReason) {
    const tooltest::Port port;
    const std::string endpoint = port.Endpoint() + "/service";
    EXPECT_TRUE(Refused(tooltest::RunTool({"fetch", "--endpoint", endpoint, "track", "Tra.1"}), 1,
                        {endpoint + ": ", "refused"}));
}

TEST(FetchUnreachable, HostThatIsNoneIsNamed) {
    const std::string endpoint = "http://host.invalid:80/";
    EXPECT_TRUE(Refused(tooltest::RunTool({"fetch", "--endpoint", endpoint, "track", "Tra.1"}), 1,
                        {endpoint + ": "}));
}

}  // namespace
