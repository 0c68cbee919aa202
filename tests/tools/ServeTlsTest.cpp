// The stand-in service by https: what clients get who speak TLS, and those who do not, or never
// come to an end with it.

#include <gtest/gtest.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Server.h"
#include "tests/tools/Socket.h"
#include "tests/tools/TlsPeer.h"
#include "tools/HttpServer.h"

namespace {

using namespace std::chrono_literals;
using tooltest::Descriptor;
using tooltest::Identity;
using tooltest::MakeIdentity;
using tooltest::Refused;
using tooltest::RunTool;
using tooltest::Server;
using tooltest::TempFolder;
using tooltest::TlsPeer;

constexpr char kTls10[] = "NORMAL:-VERS-ALL:+VERS-TLS1.0";
constexpr char kTls11[] = "NORMAL:-VERS-ALL:+VERS-TLS1.1";
constexpr char kTls12[] = "NORMAL:-VERS-ALL:+VERS-TLS1.2";
constexpr char kTls13[] = "NORMAL:-VERS-ALL:+VERS-TLS1.3";

/// The beginning of a handshake of 512 bytes.
const std::string kHalfHandshake("\x16\x03\x01\x02\x00\x01\x00\x01\xFC\x03\x03", 11);

std::string Request(const std::string& id) {
    const std::string body = tooltest::Envelope("<q:getTrack><id>" + id + "</id></q:getTrack>");
    return "POST / HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

bool IsStillOpen(const Descriptor& connection) {
    pollfd polled = {connection.get(), POLLIN, 0};
    return poll(&polled, 1, 0) == 0;
}

class ServeTls : public testing::Test {
 protected:
    ServeTls() : identity_(MakeIdentity()) {
        certificate_ = files_.Add("certificate.pem", identity_.certificate);
        key_ = files_.Add("key.pem", identity_.key);
    }

    /// With a large document, "large".
    void Start(const tooltest::Arguments& more = {"--quiet"}) {
        catalog_.Add("track/large.xml",
                     tooltest::Envelope(tooltest::Track("<trackId>" + kLarge + "</trackId>")));
        tooltest::Arguments arguments = {"--tls", certificate_, key_, "--catalog", catalog_.path()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        server_ = std::make_unique<Server>(arguments);
        EXPECT_EQ(server_->Endpoint().rfind("https://127.0.0.1:", 0), 0U) << server_->Endpoint();
    }

    Descriptor Connect() const { return tooltest::Connect(server_->Port()); }

    std::string Ask(const std::string& id, const char* priorities = "NORMAL") const {
        TlsPeer peer(Connect(), priorities);
        peer.Send(Request(id));
        return peer.IsReady() ? peer.ReceiveAll() : "no TLS";
    }

    testing::AssertionResult Answers() const {
        const std::string answer = Ask("none");
        return answer.find("no such identifier") != std::string::npos
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << answer;
    }

    std::vector<Descriptor> ConnectMany(int count, const std::string& begin) const {
        std::vector<Descriptor> connections;
        for (int at = 0; at < count; ++at) {
            connections.push_back(Connect());
            tooltest::Send(connections.back(), begin);
        }
        return connections;
    }

    static inline const std::string kLarge = std::string(4000000, 'x');

    const Identity identity_;
    const TempFolder files_;
    const TempFolder catalog_;
    std::string certificate_;
    std::string key_;
    std::unique_ptr<Server> server_;
};

TEST_F(ServeTls, AnswersByTls12AndLaterOnly) {
    Start();
    for (const char* const version : {kTls12, kTls13}) {
        EXPECT_NE(Ask("none", version).find("no such identifier"), std::string::npos) << version;
    }
    for (const char* const version : {kTls10, kTls11}) {
        EXPECT_EQ(Ask("none", version), "no TLS") << version;
    }
    EXPECT_TRUE(Answers());
}

TEST_F(ServeTls, LargeAnswersComeWhole) {
    Start();
    const std::string answer = Ask("large");
    EXPECT_EQ(answer.rfind("HTTP/1.1 200 ", 0), 0U) << answer.substr(0, 1000);
    EXPECT_NE(answer.find("<trackId>" + kLarge + "</trackId>"), std::string::npos);
}

// If it waited for any of them, that one would be closed by then: silence is what ends it.
TEST_F(ServeTls, HandshakesThatNeverEndDelayNobody) {
    Start();
    for (const std::string& begin : {std::string(), kHalfHandshake}) {
        const std::vector<Descriptor> silent = ConnectMany(20, begin);
        EXPECT_TRUE(Answers());
        EXPECT_EQ(std::count_if(silent.begin(), silent.end(), IsStillOpen), 20);
    }
}

TEST_F(ServeTls, HandshakeThatFallsSilentIsEnded) {
    Start();
    for (const std::string& begin : {std::string(), kHalfHandshake}) {
        const Descriptor silent = Connect();
        tooltest::Send(silent, begin);
        EXPECT_TRUE(tooltest::WaitForEnd(silent, 30000));
    }
    EXPECT_TRUE(Answers());
}

TEST_F(ServeTls, ReadersThatStopDelayNobody) {
    Start();
    std::vector<std::unique_ptr<TlsPeer>> readers;
    for (int count = 0; count < 5; ++count) {
        readers.push_back(std::make_unique<TlsPeer>(Connect()));
        readers.back()->Send(Request("large"));
    }
    EXPECT_TRUE(Answers());
    for (const std::unique_ptr<TlsPeer>& each : readers) {
        EXPECT_NE(each->ReceiveAll().find(kLarge + "</trackId>"), std::string::npos);
    }
}

TEST_F(ServeTls, PlainRequestGetsNoAnswer) {
    Start();
    const Descriptor plain = Connect();
    tooltest::Send(plain, Request("none"));
    EXPECT_EQ(tooltest::ReceiveAll(plain).find("HTTP/"), std::string::npos);
    EXPECT_TRUE(Answers());
}

TEST_F(ServeTls, ConnectionWithoutARequestIsLogged) {
    Start({});
    tooltest::Send(Connect(), Request("none"));
    EXPECT_TRUE(Answers());
    server_->process()->Signal(SIGTERM);
    const std::string log = server_->process()->Finish().errors;
    EXPECT_NE(log.find(" - - - - "), std::string::npos) << log;
    EXPECT_NE(log.find(" getTrack none 500 "), std::string::npos) << log;
}

TEST_F(ServeTls, EndsWhenItIsToldInTheMiddleOfHandshakes) {
    for (const int signal : {SIGTERM, SIGINT}) {
        Start();
        const std::vector<Descriptor> silent = ConnectMany(8, kHalfHandshake);
        EXPECT_TRUE(Answers());
        server_->process()->Signal(signal);
        EXPECT_TRUE(tooltest::Printed(server_->process()->Finish(), ""));
    }
}

// A handshake of which a byte comes now and then is never silent, and never done.
TEST_F(ServeTls, HandshakeThatTakesTooLongIsEnded) {
    tool::HttpServer server;
    tool::HttpServerOptions options;
    options.tls = tool::TlsIdentity{identity_.certificate, identity_.key};
    ASSERT_TRUE(server.Start(
        "127.0.0.1", 0, [](const tool::HttpRequest&) { return tool::HttpAnswer(); }, options));
    const std::string& endpoint = server.Endpoint();
    const Descriptor slow =
        tooltest::Connect(std::atoi(endpoint.c_str() + endpoint.rfind(':') + 1));
    tooltest::Send(slow, kHalfHandshake);
    EXPECT_FALSE(tooltest::WaitForEnd(slow, 100));
    server.EndOldConnections(0s);
    EXPECT_TRUE(tooltest::WaitForEnd(slow, 3000));  // for its silence it would be 5 s
}

TEST_F(ServeTls, AnswersMayBeLateAndCutShortToo) {
    Start({"--quiet", "--delay", "200", "--truncate", "50"});
    const auto began = std::chrono::steady_clock::now();
    const std::string whole = Ask("large");
    EXPECT_GE(std::chrono::steady_clock::now() - began, 200ms);
    const std::string cut = Ask("large");
    EXPECT_GT(whole.size(), kLarge.size());
    EXPECT_LT(cut.size(), whole.size());
    EXPECT_EQ(cut.rfind("HTTP/1.1 200 ", 0), 0U) << cut.substr(0, 1000);
    // Both announce the same.
    const auto announced = [](const std::string& answer) {
        return std::strtoul(answer.c_str() + answer.find("Content-Length: ") + 16, nullptr, 10);
    };
    EXPECT_EQ(announced(cut), announced(whole));
    EXPECT_EQ(cut.size() - cut.find("\r\n\r\n") - 4, announced(whole) / 2);
}

TEST_F(ServeTls, UnfitFilesAreNamedAheadOfListening) {
    const std::string other = files_.Add("other.pem", MakeIdentity().key);
    const std::string text = files_.Add("text.pem", "hello\n");
    const std::string cut =
        files_.Add("cut.pem", identity_.certificate.substr(0, identity_.certificate.size() / 2));
    const std::string missing = files_.path() + "/missing.pem";
    const std::string& folder = files_.path();
    const std::string large = files_.Add("large.pem", identity_.certificate + kLarge);
    const struct {
        std::string certificate;
        std::string key;
        std::string named;
        std::string why;
    } cases[] = {
        {missing, key_, missing, "No such file or directory"},
        {certificate_, missing, missing, "No such file or directory"},
        {folder, key_, folder, "Is a directory"},
        {text, key_, text, "no certificate in PEM"},
        {cut, key_, cut, "no certificate in PEM"},
        {key_, certificate_, key_, "no certificate in PEM"},
        {certificate_, certificate_, certificate_, "no key in PEM"},
        {certificate_, text, text, "no key in PEM"},
        {certificate_, other, other, "not the certificate's key"},
        {large, key_, large, "longer than any certificate"},
    };
    for (const auto& each : cases) {
        EXPECT_TRUE(Refused(RunTool({"serve", "--port", "0", "--tls", each.certificate, each.key}),
                            1, {"quavera: " + each.named + ": ", each.why}));
    }
}

TEST_F(ServeTls, TakesTwoFiles) {
    EXPECT_TRUE(Refused(RunTool({"serve", "--tls", certificate_}), 2, {"--tls"}));
    EXPECT_TRUE(
        Refused(RunTool({"serve", "--tls", certificate_, key_, "--tls", certificate_, key_}), 2,
                {"--tls"}));
}

}  // namespace
