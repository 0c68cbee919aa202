// How long `fetch` waits, and what it says of what fails. The peer is the test itself.

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/tools/Descriptor.h"
#include "tests/tools/Files.h"
#include "tests/tools/Process.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Arguments;
using tooltest::Descriptor;
using tooltest::Envelope;
using tooltest::Outcome;
using tooltest::Port;
using tooltest::Refused;
using tooltest::Track;

constexpr int kWrongUsage = 2;

const std::string kTrack = Envelope(Track("<trackId>1</trackId>"));

std::string Http(const std::string& head, const std::string& body) {
    return "HTTP/1.1 " + head + "\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

const std::string kGood = Http("200 OK\r\nContent-Type: text/xml", kTrack);

Arguments FetchFrom(const std::string& endpoint, const Arguments& options) {
    Arguments all = {"fetch", "--endpoint", endpoint};
    all.insert(all.end(), options.begin(), options.end());
    all.insert(all.end(), {"track", "Tra.1"});
    return all;
}

/// What was sent to a peer, and what came of its answers.
struct Exchange {
    std::vector<std::string> requests;
    Outcome outcome;
};

/// Answers one connection after the other.
Exchange Answer(const Arguments& options, const std::vector<std::string>& answers) {
    const Port port;
    port.Listen();
    tooltest::Process fetch(FetchFrom(port.Endpoint(), options));
    Exchange exchange;
    for (const std::string& answer : answers) {
        const Descriptor connection = port.Accept();
        exchange.requests.push_back(tooltest::ReceiveRequest(connection));
        tooltest::Send(connection, answer);
    }
    exchange.outcome = fetch.Finish();
    return exchange;
}

// Phases

TEST(FetchPhase, IsNamedWithTheReason) {
    const Port nobody;
    EXPECT_TRUE(Refused(tooltest::RunTool(FetchFrom(nobody.Endpoint(), {})), 1,
                        {nobody.Endpoint() + ": ", "refused", "(connecting)"}));
    EXPECT_TRUE(Refused(tooltest::RunTool(FetchFrom("http://host.invalid", {})), 1,
                        {"http://host.invalid: ", "(looking up the host)"}));
    EXPECT_TRUE(Refused(Answer({}, {""}).outcome, 1, {"(waiting for the answer)"}));
    EXPECT_TRUE(
        Refused(Answer({}, {kGood.substr(0, kGood.size() - 1)}).outcome, 1, {"(receiving)"}));
    EXPECT_TRUE(Refused(Answer({}, {"no HTTP\r\n\r\n"}).outcome, 1, {"(receiving)"}));
}

TEST(FetchPhase, SilenceIsOneOfThem) {
    const Port port;
    port.Listen();
    for (const std::string& begin : {std::string(), kGood.substr(0, 100)}) {
        tooltest::Process fetch(FetchFrom(port.Endpoint(), {"--timeout", "1"}));
        const Descriptor connection = port.Accept();
        tooltest::ReceiveRequest(connection);
        tooltest::Send(connection, begin);
        EXPECT_TRUE(
            Refused(fetch.Finish(), 1,
                    {"timed out", begin.empty() ? "(waiting for the answer)" : "(receiving)"}));
    }
}

/// Connections that fill a port's queue: the next one waits, and nobody takes it.
std::vector<Descriptor> Fill(const Port& port) {
    std::vector<Descriptor> connections;
    const sockaddr_in address = {
        AF_INET, htons(static_cast<std::uint16_t>(port.Number())), {htonl(INADDR_LOOPBACK)}, {}};
    for (int count = 0; count < 4; ++count) {
        connections.emplace_back(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        // It is under way; whether it comes to anything is the port's.
        static_cast<void>(connect(connections.back().get(),
                                  reinterpret_cast<const sockaddr*>(&address), sizeof address));
    }
    return connections;
}

TEST(FetchPhase, ConnectingHasABoundOfItsOwn) {
    const Port port;
    port.Listen();
    const std::vector<Descriptor> connections = Fill(port);
    for (const Arguments& bounds :
         {Arguments{"--connect-timeout", "1", "--timeout", "86400"}, Arguments{"--timeout", "1"},
          Arguments{"--timeout", "1", "--connect-timeout", "50"}}) {
        EXPECT_TRUE(Refused(tooltest::RunTool(FetchFrom(port.Endpoint(), bounds)), 1,
                            {port.Endpoint() + ": ", "timed out", "(connecting)"}));
    }
    for (const char* const seconds : {"0", "-1", "x", "86401"}) {
        EXPECT_TRUE(
            Refused(tooltest::RunTool(FetchFrom(port.Endpoint(), {"--connect-timeout", seconds})),
                    kWrongUsage, {"--connect-timeout"}));
    }
}

}  // namespace
