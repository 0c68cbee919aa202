// The stand-in service: what it makes of requests that are none, and how it starts and ends.

#include <gtest/gtest.h>

#include <csignal>
#include <memory>
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
    const std::string answer =
        Exchange(server, Post(Envelope("<q:getTrack><id>Tra.none</id></q:getTrack>")));
    return answer.find("no such identifier: \"Tra.none\"") != std::string::npos
               ? IsFault(answer)
               : testing::AssertionFailure() << answer.substr(0, 1000);
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

/// One server for all cases of a suite.
class OneServer : public testing::TestWithParam<Case> {
 public:
    static void SetUpTestSuite() { server = std::make_unique<Server>(); }
    static void TearDownTestSuite() { server.reset(); }

 protected:
    static inline std::unique_ptr<Server> server;
};

class BadRequest : public OneServer {};

TEST_P(BadRequest, GetsAFaultAndTheServerGoesOn) {
    EXPECT_TRUE(IsFault(Exchange(*server, GetParam().bytes)));
    EXPECT_TRUE(Serves(*server));
}

constexpr std::size_t kTooLong = std::size_t{2} * 1024 * 1024;

INSTANTIATE_TEST_SUITE_P(
    All, BadRequest,
    testing::Values(
        Case{"NoBody", Post("")}, Case{"BodyWithoutXml", Post("hello")},
        Case{"MalformedXml", Post("<a><b></a>")},
        Case{"MismatchedTagInRequest", Post(Envelope("<q:getTrack><id>default</ID></q:getTrack>"))},
        Case{"CutXml", Post(kRequest.substr(0, 100))},
        Case{"DocumentType", Post("<!DOCTYPE a [<!ENTITY b \"c\">]>" + kRequest)},
        Case{"OtherXml", Post("<html><body/></html>")}, Case{"EmptyEnvelope", Post(Envelope(""))},
        Case{"RequestInARequest", Post(Post(kRequest))},
        Case{"FaultAsRequest", Post(Envelope("<s:Fault/>"))},
        Case{"UnknownOperation", Post(Envelope("<q:getConcert><id>default</id></q:getConcert>"))},
        Case{"RecordAsRequest", Post(Envelope(tooltest::Track("<trackId>1</trackId>")))},
        Case{"TooDeep", Post(std::string("<a>") +
                             [] {
                                 std::string levels;
                                 for (int level = 0; level < 20000; ++level) {
                                     levels += "<a>";
                                 }
                                 return levels;
                             }())},
        Case{"Put", "PUT / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: 4\r\n\r\n<a/>"},
        Case{"UnknownMethod", "FETCH / HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n"}),
    TestName);

class NoRequest : public OneServer {};

/// Whether no answer says that all is well.
testing::AssertionResult IsNoSuccess(const std::string& answer) {
    return answer.empty() || answer.rfind("HTTP/1.1 4", 0) == 0
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << answer;
}

TEST_P(NoRequest, IsNotAnsweredAsOneAndTheServerGoesOn) {
    EXPECT_TRUE(IsNoSuccess(Exchange(*server, GetParam().bytes)));
    EXPECT_TRUE(Serves(*server));
}

const std::string kChunkedHead =
    "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nTransfer-Encoding: chunked\r\n\r\n";

INSTANTIATE_TEST_SUITE_P(
    All, NoRequest,
    testing::Values(Case{"Garbage", "garbage\r\n\r\n"}, Case{"GarbageLine", "garbage\n"},
                    Case{"Bytes", std::string("\0\1\2\xFF\r\n\r\n", 8)}, Case{"BareXml", "<a/>"},
                    Case{"CutHead", "POST / HTTP/1.1\r\nContent-Le"},
                    Case{"LongHead",
                         "POST / HTTP/1.1\r\nX: " + std::string(kTooLong, 'x') + "\r\n\r\n"},
                    Case{"CutBody", Post(kRequest.substr(0, 100), kRequest.size())},
                    // Its XML is whole, the body is not.
                    Case{"CutBodyAfterTheXml", Post(kRequest, kRequest.size() + 1)},
                    Case{"TooLongByItsHead", Post("<a/>", kTooLong)},
                    Case{"NegativeLength", "POST / HTTP/1.1\r\nContent-Length: -4\r\n\r\n<a/>"},
                    Case{"LengthBeyondAllNumbers",
                         "POST / HTTP/1.1\r\nContent-Length: 99999999999999999999\r\n\r\n<a/>"},
                    Case{"ChunkOfNoSize", kChunkedHead + "size\r\n<a/>\r\n0\r\n\r\n"},
                    Case{"CutChunk", kChunkedHead + "FFFF\r\n<a/>"}),
    TestName);

TEST(Serve, RequestMayBeAsLongAsItsLimit) {
    constexpr std::size_t kLongest = 65536;
    const Server server;
    const std::string longest = kRequest + std::string(kLongest - kRequest.size(), ' ');
    EXPECT_NE(Exchange(server, Post(longest)).find("no such identifier: \"default\""),
              std::string::npos);
    for (const std::string& request :
         {Post(longest + " "), Post(std::string(kTooLong, ' ')), Post("<a/>", 4294967295U)}) {
        const std::string answer = Exchange(server, request);
        EXPECT_EQ(answer.rfind("HTTP/1.1 413 ", 0), 0U) << answer;
        EXPECT_TRUE(IsFault(answer));
        EXPECT_NE(answer.find("malformed request: longer than 65536 bytes"), std::string::npos)
            << answer;
    }
}

TEST(Serve, EmptyRequestIsCalledEmpty) {
    const std::string answer = Exchange(Server(), Post(""));
    EXPECT_EQ(answer.rfind("HTTP/1.1 500 ", 0), 0U) << answer;
    EXPECT_NE(answer.find("malformed request: empty"), std::string::npos) << answer;
}

TEST(Serve, OtherMethodsAreNotAllowed) {
    const Server server;
    for (const std::string method : {"GET", "HEAD", "OPTIONS", "PUT", "DELETE", "FETCH"}) {
        const std::string answer = Exchange(
            server, method + " / HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\n\r\n");
        EXPECT_EQ(answer.rfind("HTTP/1.1 405 ", 0), 0U) << method << answer;
        EXPECT_NE(answer.find("\r\nAllow: POST\r\n"), std::string::npos) << method << answer;
        const bool hasBody = answer.find("\r\n\r\n") + 4 < answer.size();
        EXPECT_EQ(hasBody, method != "HEAD") << answer;
    }
}

TEST(Serve, AnswersInTheVersionOfTheRequest) {
    const Server server;
    const std::string v12 = "http://www.w3.org/2003/05/soap-envelope";
    const auto ask = [&server, &v12](const std::string& id) {
        return Exchange(server, Post("<e:Envelope xmlns:e=\"" + v12 + "\"><e:Body><getImages><id>" +
                                     id + "</id></getImages></e:Body></e:Envelope>"));
    };
    for (const std::string& answer : {ask("Alb.40013100"), ask("none")}) {
        EXPECT_NE(answer.find("\r\nContent-Type: application/soap+xml; charset=utf-8\r\n"),
                  std::string::npos)
            << answer;
        EXPECT_NE(answer.find(v12), std::string::npos) << answer;
    }
    EXPECT_EQ(ask("Alb.40013100").rfind("HTTP/1.1 200 ", 0), 0U);
    EXPECT_EQ(ask("none").rfind("HTTP/1.1 400 ", 0), 0U);
}

/// An answer without its date.
std::string Undated(const std::string& answer) {
    const std::size_t date = answer.find("\r\nDate: ");
    return date == std::string::npos
               ? answer
               : answer.substr(0, date) + answer.substr(answer.find("\r\n", date + 2));
}

// Each is answered from what it says itself, and from nothing that another has left behind.
TEST(Serve, RequestsLeaveNothingBehind) {
    const std::string requests[] = {
        "GET / HTTP/1.1\r\nHost: here\r\nConnection: close\r\n\r\n", Post(""), Post("<a>"),
        Post(Envelope("<q:getTrack><id>none</id></q:getTrack>")), Post(kRequest)};
    std::vector<std::string> answers;
    for (const std::string& request : requests) {
        answers.push_back(Undated(Exchange(Server(), request)));
    }
    const Server server;
    for (const std::string& before : requests) {
        for (std::size_t at = 0; at < answers.size(); ++at) {
            Exchange(server, before);
            EXPECT_EQ(Undated(Exchange(server, requests[at])), answers[at]);
        }
    }
}

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

TEST(Serve, CallerThatStopsInTheMiddleIsLeft) {
    const Server server;
    const tooltest::Descriptor connection = tooltest::Connect(server.Port());
    tooltest::Send(connection, Post(kRequest.substr(0, 100), kRequest.size()));
    // For its silence, and not only for how long it takes: that would be a minute.
    EXPECT_TRUE(tooltest::WaitForEnd(connection, 30000));
    EXPECT_EQ(tooltest::ReceiveAll(connection), "");
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
    EXPECT_TRUE(IsFault(Exchange(server, Post("garbage"))));
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
