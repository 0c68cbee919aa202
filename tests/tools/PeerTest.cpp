// `fetch` from peers that are no such service: one line with the endpoint and what is wrong. The
// test itself is the peer.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Envelope;
using tooltest::Track;

std::string Http(const std::string& status, const std::string& type, const std::string& body) {
    return "HTTP/1.1 " + status + "\r\nContent-Type: " + type +
           "\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" +
           body;
}

std::string Soap(const std::string& status, const std::string& body) {
    return Http(status, "text/xml; charset=utf-8", body);
}

std::string Bad(const std::string& name) {
    return Contents(DataPath("bad/" + name));
}

/// What `fetch` makes of an answer. It gets it after its whole request.
tooltest::Outcome FetchAnswer(const tooltest::Port& port, const std::string& answer) {
    port.Listen();
    tooltest::Process fetch({"fetch", "--endpoint", port.Endpoint(), "track", "Tra.1", "--tree"});
    {
        const tooltest::Descriptor connection = port.Accept();
        EXPECT_NE(tooltest::ReceiveRequest(connection).find("Tra.1"), std::string::npos);
        tooltest::Send(connection, answer);
    }
    return fetch.Finish();
}

/// A peer's answer, and what the message has to say.
struct Case {
    std::string name;
    std::string answer;
    std::vector<std::string> message;
};

class Peer : public testing::TestWithParam<Case> {};

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

std::string TestName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

TEST_P(Peer, AnswerIsRefused) {
    const tooltest::Port port;
    std::vector<std::string> parts = GetParam().message;
    parts.push_back(port.Endpoint() + ": ");
    EXPECT_TRUE(tooltest::Refused(FetchAnswer(port, GetParam().answer), 1, parts));
}

const std::string kTrack = Envelope(Track("<trackId>1</trackId>"));

INSTANTIATE_TEST_SUITE_P(
    NoHttp, Peer,
    testing::Values(
        Case{"Nothing", "", {}}, Case{"Garbage", "hello\n", {}},
        Case{"GarbageLines", "hello\r\n\r\nhello", {}},
        Case{"Bytes", std::string("\0\1\2\xFF", 4), {}},
        Case{"CutHeader", "HTTP/1.1 200 OK\r\nContent-Ty", {}},
        Case{"CutBody", Soap("200 OK", kTrack).substr(0, 200), {}},
        Case{"LengthOnly", "HTTP/1.1 200 OK\r\nContent-Length: 10000000000\r\n\r\n<a", {}},
        Case{"CutChunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n400\r\n<a>", {}}),
    TestName);

INSTANTIATE_TEST_SUITE_P(
    NoSuccess, Peer,
    testing::Values(
        Case{"NotFoundText", Http("404 Not Found", "text/plain", "not here"), {"404"}},
        Case{"NotFoundPage", Http("404 Not Found", "text/html", "<html><body/></html>"), {"404"}},
        Case{"ErrorPage", Http("500 Internal Server Error", "text/html", "<p>sorry</p>"), {}},
        Case{"Moved", "HTTP/1.1 301 Moved\r\nLocation: /x\r\nContent-Length: 0\r\n\r\n", {"301"}},
        Case{"Unauthorized", Http("401 Unauthorized", "text/plain", "who?"), {"401"}},
        Case{"Accepted", "HTTP/1.1 202 Accepted\r\nContent-Length: 0\r\n\r\n", {}},
        Case{"FaultWithError",
             Soap("500 Internal Server Error", Bad("fault-1.1.xml")),
             {"fault", "gelöscht"}},
        Case{"FaultWithSuccess",
             Soap("200 OK", Bad("fault-1.2.xml")),
             {"fault", "no such track: Tra.2"}}),
    TestName);

INSTANTIATE_TEST_SUITE_P(
    OtherContent, Peer,
    testing::Values(
        Case{"NoBody", Soap("200 OK", ""), {}},
        Case{"EmptyEnvelopeBody", Soap("200 OK", Bad("empty-body.xml")), {"no record"}},
        Case{"OtherRecord",
             Soap("200 OK", Bad("other-record.xml")),
             {"AlbumMetadata", "DataTrackInfo"}},
        Case{"Page", Http("200 OK", "text/html", "<html><body/></html>"), {"html"}},
        Case{"Text", Http("200 OK", "text/plain", "hello"), {}},
        Case{"MalformedSoap", Soap("200 OK", Bad("mismatched-tag.xml")), {"line 5, column"}},
        Case{"ValueThatDoesNotFit", Soap("200 OK", Bad("number-is-text.xml")), {"discIndex"}}),
    TestName);

TEST(PeerAnswer, CountsInEveryForm) {
    const std::string head = "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n";
    char size[16] = {};
    std::snprintf(size, sizeof size, "%zx", kTrack.size());
    const std::string answers[] = {
        Soap("200 OK", kTrack),
        head + "\r\n" + kTrack,  // up to the connection's end
        head + "Transfer-Encoding: chunked\r\n\r\n" + size + "\r\n" + kTrack + "\r\n0\r\n\r\n",
        "HTTP/1.1 100 Continue\r\n\r\n" + Soap("200 OK", kTrack),
    };
    for (const std::string& answer : answers) {
        const tooltest::Port port;
        EXPECT_TRUE(
            tooltest::Printed(FetchAnswer(port, answer), "<Track><TrackId>1</TrackId></Track>\n"))
            << answer;
    }
}

}  // namespace
