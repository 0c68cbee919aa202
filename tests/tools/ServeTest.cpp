// The stand-in service: what it makes of requests that are none, and how it starts and ends.

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "tests/tools/Files.h"
#include "tests/tools/Server.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Envelope;
using tooltest::Refused;
using tooltest::RunTool;
using tooltest::Server;

std::string Post(const std::string& body, std::size_t length) {
    return "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Type: text/xml; charset=utf-8\r\n"
           "Content-Length: " +
           std::to_string(length) + "\r\nConnection: close\r\n\r\n" + body;
}

std::string Post(const std::string& body) {
    return Post(body, body.size());
}

const std::string kRequest = Envelope("<q:getTrack><id>default</id></q:getTrack>");

/// Everything that the server answers to these bytes, when nothing more comes.
std::string Exchange(const Server& server, const std::string& bytes) {
    const tooltest::Descriptor connection = tooltest::Connect(server.Port());
    tooltest::Send(connection, bytes);
    tooltest::EndSending(connection);
    return tooltest::ReceiveAll(connection);
}

/// Whether an answer is a SOAP fault, in well-formed XML.
testing::AssertionResult IsFault(const std::string& answer) {
    std::string error;
    const std::size_t body = answer.find("\r\n\r\n");
    const auto envelope =
        ZQXML::ParseXml(body == std::string::npos ? "" : answer.substr(body + 4), &error);
    if (answer.rfind("HTTP/1.1 ", 0) == 0 && envelope) {
        ZQXML::INode* const found = envelope->FindChild("SOAP-ENV:Body");
        if (found != nullptr && found->FindChild("SOAP-ENV:Fault") != nullptr) {
            return testing::AssertionSuccess();
        }
    }
    return testing::AssertionFailure() << "no fault: " << error << "\n" << answer;
}

/// Whether the server answers a good request.
testing::AssertionResult Serves(const Server& server) {
    const tooltest::Outcome outcome = server.Fetch({"track", "Tra.none"});
    return Refused(outcome, 1, {server.Endpoint(), "fault", "no such identifier", "Tra.none"});
}

struct Case {
    std::string name;
    std::string bytes;
};

std::string TestName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

class BadRequest : public testing::TestWithParam<Case> {};

TEST_P(BadRequest, GetsAFaultAndTheServerGoesOn) {
    const Server server;
    EXPECT_TRUE(IsFault(Exchange(server, GetParam().bytes)));
    EXPECT_TRUE(Serves(server));
}

constexpr std::size_t kTooLong = std::size_t{2} * 1024 * 1024;

INSTANTIATE_TEST_SUITE_P(
    All, BadRequest,
    testing::Values(
        Case{"Garbage", "garbage\r\n\r\n"}, Case{"GarbageLine", "garbage\n"},
        Case{"Bytes", std::string("\0\1\2\xFF\r\n\r\n", 8)}, Case{"BareXml", "<a/>"},
        Case{"CutHeader", "POST / HTTP/1.1\r\nContent-Le"},
        Case{"CutBody", Post(kRequest.substr(0, 100), kRequest.size())}, Case{"NoBody", Post("")},
        Case{"BodyWithoutXml", Post("hello")}, Case{"MalformedXml", Post("<a><b></a>")},
        Case{"MismatchedTagInRequest", Post(Envelope("<q:getTrack><id>default</ID></q:getTrack>"))},
        Case{"DocumentType", Post("<!DOCTYPE a [<!ENTITY b \"c\">]>" + kRequest)},
        Case{"OtherXml", Post("<html><body/></html>")}, Case{"EmptyEnvelope", Post(Envelope(""))},
        Case{"UnknownOperation", Post(Envelope("<q:getConcert><id>default</id></q:getConcert>"))},
        Case{"RecordAsRequest", Post(Envelope(tooltest::Track("<trackId>1</trackId>")))},
        Case{"TooLong", Post(std::string(kTooLong, ' '))},
        Case{"TooLongByItsHead", Post("<a/>", kTooLong)},
        Case{"FarTooLongByItsHead", Post("<a/>", std::size_t{4294967295U})},
        Case{"TooDeep", Post(std::string("<a>") +
                             [] {
                                 std::string levels;
                                 for (int level = 0; level < 20000; ++level) {
                                     levels += "<a>";
                                 }
                                 return levels;
                             }())},
        Case{"Get", "GET / HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\n\r\n"},
        Case{"Put", "PUT / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: 4\r\n\r\n<a/>"},
        Case{"UnknownMethod", "FETCH / HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n"}),
    TestName);

TEST(Serve, GoesOnWhenCallersSayNothing) {
    const Server server;
    tooltest::EndSending(tooltest::Connect(server.Port()));
    tooltest::Connect(server.Port()).Close();
    EXPECT_TRUE(Serves(server));
}

TEST(Serve, GoesOnWhenACallerStaysSilent) {
    const Server server;
    const tooltest::Descriptor silent = tooltest::Connect(server.Port());
    EXPECT_TRUE(Serves(server));
}

TEST(Serve, CallerThatStopsInTheMiddleGetsAFault) {
    const Server server;
    const tooltest::Descriptor connection = tooltest::Connect(server.Port());
    tooltest::Send(connection, Post(kRequest.substr(0, 100), kRequest.size()));
    EXPECT_TRUE(IsFault(tooltest::ReceiveAll(connection)));
    EXPECT_TRUE(Serves(server));
}

TEST(Serve, GoesOnWhenACallerLeavesBeforeTheAnswer) {
    const tooltest::TempFolder folder;
    const std::string large(4000000, 'x');  // more than a connection takes in one go
    folder.Add("track/default.xml", Envelope(tooltest::Track("<trackId>" + large + "</trackId>")));
    const Server server(folder.path());
    for (int caller = 0; caller < 5; ++caller) {
        const tooltest::Descriptor connection = tooltest::Connect(server.Port());
        tooltest::Send(connection, Post(kRequest));
    }
    EXPECT_TRUE(Serves(server));
}

TEST(Serve, AnswersManyRequestsOneAfterTheOther) {
    const Server server;
    for (int request = 0; request < 200; ++request) {
        ASSERT_TRUE(IsFault(Exchange(server, Post("<a>"))));
    }
    EXPECT_TRUE(Serves(server));
}

TEST(Serve, EndsWhenItIsTold) {
    for (const int signal : {SIGTERM, SIGINT}) {
        Server server;
        server.process()->Signal(signal);
        EXPECT_TRUE(tooltest::Printed(server.process()->Finish(), ""));
    }
}

TEST(Serve, EndsWhenItIsToldAfterRequests) {
    Server server;
    EXPECT_TRUE(IsFault(Exchange(server, "garbage")));
    EXPECT_TRUE(Serves(server));
    server.process()->Signal(SIGTERM);
    EXPECT_TRUE(tooltest::Printed(server.process()->Finish(), ""));
}

TEST(Serve, PortInUseIsAnError) {
    const tooltest::Port port;
    port.Listen();
    const std::string number = std::to_string(port.Number());
    EXPECT_TRUE(
        Refused(RunTool({"serve", "--port", number}), 1, {"127.0.0.1:" + number + ": ", "in use"}));
}

TEST(Serve, PortOfAServerThatEndedIsFreeAgain) {
    std::string port;
    {
        const Server server;
        const tooltest::Descriptor connection = tooltest::Connect(server.Port());
        tooltest::Send(connection, Post(kRequest));
        // The side that closes first holds the port for a while.
        EXPECT_NE(tooltest::ReceiveAll(connection), "");
        port = std::to_string(server.Port());
    }
    tooltest::Process again({"serve", "--port", port});
    EXPECT_EQ(again.ReadLine(), "listening on http://127.0.0.1:" + port + "\n");
}

TEST(Serve, CatalogThatIsNoFolderIsAnError) {
    const tooltest::TempFolder folder;
    const std::string missing = folder.path() + "/missing";
    const std::string file = folder.Add("file", "");
    EXPECT_TRUE(Refused(RunTool({"serve", "--port", "0", "--catalog", missing}), 1,
                        {missing + ": ", "No such file or directory"}));
    EXPECT_TRUE(Refused(RunTool({"serve", "--port", "0", "--catalog", file}), 1,
                        {file + ": ", "Not a directory"}));
}

TEST(Serve, HostThatIsNoneIsAnError) {
    EXPECT_TRUE(Refused(RunTool({"serve", "--port", "0", "--host", "host.invalid"}), 1,
                        {"host.invalid:0: "}));
}

}  // namespace
