// The service's description for clients of other makers: what it says, and how it is asked for.
// That such a client understands it, tests/tools/zeep_client.py holds.

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <string_view>
#include <vector>

#include "platform/zqshared.h"
#include "tests/tools/Server.h"
#include "tests/tools/Socket.h"
#include "tools/ServiceDescription.h"

namespace {

using tooltest::Descriptor;
using tooltest::Server;

std::string Get(const Server& server, const std::string& target, const std::string& host,
                const std::string& method = "GET") {
    const Descriptor connection = tooltest::Connect(server.Port());
    tooltest::Send(connection, method + " " + target + " HTTP/1.1\r\n" +
                                   (host.empty() ? "" : "Host: " + host + "\r\n") +
                                   "Connection: close\r\n\r\n");
    return tooltest::ReceiveAll(connection);
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// The address in a description.
std::string AddressIn(const std::string& answer) {
    const std::string before = "<SOAP:address location=\"";
    const std::size_t begin = answer.find(before);
    if (begin == std::string::npos) {
        return "none: " + answer.substr(0, 1000);
    }
    const std::size_t address = begin + before.size();
    return answer.substr(address, answer.find('"', address) - address);
}

TEST(Description, IsWellFormed) {
    std::string error;
    EXPECT_TRUE(ZQXML::ParseXml(tool::kServiceDescription, &error)) << error;
}

TEST(Description, FullRecordsExtendTheirSummaries) {
    const std::string text(tool::kServiceDescription);
    const struct {
        std::string record;
        std::string base;
    } cases[] = {
        {"AlbumMetadata", "Quavera2:LiteAlbumMetadata"},
        {"ArtistMetadata", "Quavera2:LiteArtistMetadata"},
        {"PlaylistMetadata", "Quavera2:LitePlaylistMetadata"},
        {"StationMetadata", "Quavera2:LiteStationMetadata"},
        {"MemberLibrary", "Quavera5:LiteMemberLibrary"},
    };
    for (const auto& each : cases) {
        const std::size_t begin = text.find("<complexType name=\"" + each.record + "\">");
        ASSERT_NE(begin, std::string::npos) << each.record;
        const std::string type = text.substr(begin, text.find("</complexType>", begin) - begin);
        EXPECT_TRUE(Has(type, "<extension base=\"" + each.base + "\">")) << type;
    }
    EXPECT_FALSE(Has(text, "<!--"));
}

TEST(Description, HasEveryRecordAndEveryRequest) {
    const std::string text(tool::kServiceDescription);
    const auto nameOf = [](const std::string& soapClass) {
        return soapClass.substr(soapClass.find("__") + 2);
    };
    const std::vector<std::string> records = {
#define QUAVERA_RECORD(Class, Soap, element, node, answer) #Soap,
#include "records/Records.def"
    };
    for (const std::string& each : records) {
        EXPECT_TRUE(Has(text, "<complexType name=\"" + nameOf(each) + "\">")) << each;
    }
    const std::vector<std::string> requests = {
#define QUAVERA_RECORD(Class, Soap, element, node, answer) answer
#define NONE
#define ONE(kind, request) #request,
#define LIST(kind, request, List, items) #request,
#include "records/Records.def"
    };
    EXPECT_EQ(requests.size(), 12U);
    for (const std::string& each : requests) {
        EXPECT_TRUE(Has(text, "<element name=\"" + each + "\">")) << each;
        EXPECT_TRUE(Has(text, "<operation name=\"" + each + "\">")) << each;
    }
}

TEST(Description, IsServedWithTheAddressThatTheClientUses) {
    const Server server;
    const std::string& own = server.Endpoint();
    const struct {
        std::string target;
        std::string host;
        std::string address;
    } cases[] = {
        {"/?wsdl", "stand-in.example:8080", "http://stand-in.example:8080/"},
        {"/?WSDL", "localhost", "http://localhost/"},
        {"/?x=1&wsdl", "localhost", "http://localhost/"},
        {"/?wsdl=1", "[::1]:80", "http://[::1]:80/"},
        {"/music/v2?wsdl", "localhost", "http://localhost/music/v2"},
        // What could mean something else in a document, or is none, is not repeated.
        {"/?wsdl", "", own + "/"},
        {"/?wsdl", "a\"b", own + "/"},
        {"/?wsdl", "a<b>", own + "/"},
        {"/?wsdl", "a&b", own + "/"},
        {"/?wsdl", "a b", own + "/"},
        {"/?wsdl", "a/b", own + "/"},
        {"/?wsdl", "user@host", own + "/"},
        {"/?wsdl", "host:port", own + "/"},
        {"/?wsdl", std::string(3000, 'a'), own + "/"},
        {"/a%22b?wsdl", "localhost", "http://localhost/"},
        {"/a\"b?wsdl", "localhost", "http://localhost/"},
        {"/" + std::string(3000, 'a') + "?wsdl", "localhost", "http://localhost/"},
    };
    for (const auto& each : cases) {
        const std::string answer = Get(server, each.target, each.host);
        EXPECT_EQ(answer.rfind("HTTP/1.1 200 ", 0), 0U) << answer.substr(0, 1000);
        EXPECT_TRUE(Has(answer, "\r\nContent-Type: text/xml; charset=utf-8\r\n"));
        EXPECT_EQ(AddressIn(answer), each.address) << each.target << " " << each.host;
    }
}

TEST(Description, ServedIsTheDescriptionButForTheAddress) {
    const std::string answer = Get(Server(), "/?wsdl", "127.0.0.1:8080");
    std::string body = answer.substr(answer.find("\r\n\r\n") + 4);
    const std::string address = "\"http://127.0.0.1:8080/\"";
    ASSERT_TRUE(Has(body, address));
    body.replace(body.find(address), address.size(), "\"http://127.0.0.1:8080\"");
    EXPECT_EQ(body, tool::kServiceDescription);
}

TEST(Description, HeadIsAnsweredWithoutTheBody) {
    const Server server;
    const std::string answer = Get(server, "/?wsdl", "localhost", "HEAD");
    const std::string whole = Get(server, "/?wsdl", "localhost");
    EXPECT_EQ(answer.rfind("HTTP/1.1 200 ", 0), 0U) << answer;
    EXPECT_EQ(answer.find("\r\n\r\n") + 4, answer.size());
    const std::size_t size = whole.size() - whole.find("\r\n\r\n") - 4;
    EXPECT_TRUE(Has(answer, "\r\nContent-Length: " + std::to_string(size) + "\r\n")) << answer;
}

TEST(Description, SomebodyWithABrowserIsToldWhereItIs) {
    const Server server;
    for (const std::string target : {"/", "/?", "/?wsdlx", "/?xwsdl", "/?x=wsdl", "/wsdl"}) {
        const std::string answer = Get(server, target, "localhost:8080");
        EXPECT_EQ(answer.rfind("HTTP/1.1 405 ", 0), 0U) << answer;
        EXPECT_TRUE(Has(answer, "\r\nAllow: POST\r\n")) << answer;
        EXPECT_TRUE(Has(answer, "\r\nContent-Type: text/plain; charset=utf-8\r\n")) << answer;
    }
    const std::string answer = Get(server, "/", "localhost:8080");
    EXPECT_EQ(answer.substr(answer.find("\r\n\r\n") + 4),
              "requests come by POST; the service is described at http://localhost:8080/?wsdl\n");
}

}  // namespace
