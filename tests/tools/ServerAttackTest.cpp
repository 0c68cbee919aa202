// The stand-in service beside clients that mean harm, or do it: it answers the good ones all the
// same, in bounded memory, and ends when it is told.

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Server.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Descriptor;
using tooltest::Server;

/// Whether the tool runs under an emulator, memcheck or a sanitizer: then it is tried in smaller
/// numbers. The latter two hold on to freed memory, too.
bool IsSlow() {
    return sizeof QUAVERA_TEST_EMULATOR > 1 || QUAVERA_TEST_SANITIZED != 0 ||
           std::getenv("QUAVERA_TEST_SLOW") != nullptr;
}

std::string Request(const std::string& id) {
    const std::string body = tooltest::Envelope("<q:getTrack><id>" + id + "</id></q:getTrack>");
    return "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// Whether the server answers a good request.
testing::AssertionResult Answers(const Server& server) {
    const Descriptor connection = tooltest::Connect(server.Port());
    tooltest::Send(connection, Request("none"));
    const std::string answer = tooltest::ReceiveAll(connection);
    return answer.find("no such identifier") != std::string::npos
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "answer: " << answer;
}

bool IsStillOpen(const Descriptor& connection) {
    pollfd polled = {connection.get(), POLLIN, 0};
    return poll(&polled, 1, 0) == 0;
}

std::vector<Descriptor> ConnectMany(const Server& server, int count, const std::string& begin) {
    std::vector<Descriptor> connections;
    for (int at = 0; at < count; ++at) {
        connections.push_back(tooltest::Connect(server.Port()));
        tooltest::Send(connections.back(), begin);
    }
    return connections;
}

// If it waited for any of them, that one would be closed by then: silence is what ends it.
TEST(ServerAttack, SilentClientsDelayNobody) {
    const Server server;
    for (const std::string& begin :
         {std::string(), std::string("POST"), Request("none").substr(0, 100)}) {
        const std::vector<Descriptor> silent = ConnectMany(server, 50, begin);
        EXPECT_TRUE(Answers(server));
        EXPECT_EQ(std::count_if(silent.begin(), silent.end(), IsStillOpen), 50);
    }
}

// A client that sends a byte now and then is never silent, and never done.
TEST(ServerAttack, DrippingClientsDelayNobody) {
    const Server server;
    const std::string request = Request("none");
    const std::vector<Descriptor> dripping = ConnectMany(server, 20, "");
    for (const char byte : request.substr(0, 60)) {
        for (const Descriptor& each : dripping) {
            tooltest::Send(each, std::string(1, byte));
        }
        ASSERT_TRUE(Answers(server));
    }
    for (const Descriptor& each : dripping) {
        EXPECT_TRUE(IsStillOpen(each));
        tooltest::Send(each, request.substr(60));
        EXPECT_NE(tooltest::ReceiveAll(each).find("no such identifier"), std::string::npos);
    }
}

/// Lets this process have so many descriptors; returns how many it gets.
rlim_t AskForDescriptors(rlim_t count) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = std::max(limit.rlim_cur, std::min(limit.rlim_max, count));
    setrlimit(RLIMIT_NOFILE, &limit);
    return std::min(limit.rlim_cur, count);
}

TEST(ServerAttack, ThousandConnectionsAtOnceAreAllAnswered) {
    constexpr int kOthers = 100;
    // None may be silent for as long as all of them take.
    const rlim_t wanted = IsSlow() ? 200 : 1100;
    const int count = static_cast<int>(AskForDescriptors(wanted)) - kOthers;
    ASSERT_GT(count, 0);
    const Server server;
    const std::string request = Request("none");
    const std::vector<Descriptor> connections = ConnectMany(server, count, request.substr(0, 50));
    EXPECT_TRUE(Answers(server));
    int answered = 0;
    for (const Descriptor& each : connections) {
        tooltest::Send(each, request.substr(50));
    }
    for (const Descriptor& each : connections) {
        const std::string answer = tooltest::ReceiveAll(each);
        answered += answer.find("no such identifier") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(answered, count);
}

/// The resident memory of a process, in KiB.
long ResidentMemory(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;) {
        if (word == "VmRSS:") {
            long size = 0;
            status >> size;
            return size;
        }
    }
    return -1;
}

TEST(ServerAttack, ManyRequestsTakeNoMemory) {
    const std::size_t count = IsSlow() ? 500 : 10000;
    const long allowed = IsSlow() ? 32768 : 512;  // an emulator keeps translated code
    Server server;
    const std::string requests[] = {Request("none"), Request("Tra.40013101"),
                                    "GET / HTTP/1.1\r\n\r\n", "garbage",
                                    Request("none").substr(0, 100)};
    long before = 0;
    for (std::size_t done = 0; done < count; ++done) {
        const Descriptor connection = tooltest::Connect(server.Port());
        tooltest::Send(connection, requests[done % std::size(requests)]);
        tooltest::EndSending(connection);
        tooltest::ReceiveAll(connection);
        before = done == count / 2 ? ResidentMemory(server.process()->Number()) : before;
    }
    ASSERT_GT(before, 0);
    EXPECT_LE(ResidentMemory(server.process()->Number()), before + allowed);
    EXPECT_TRUE(Answers(server));
}

TEST(ServerAttack, EndlessRequestIsBrokenOff) {
    const Server server;
    const Descriptor connection = tooltest::Connect(server.Port());
    tooltest::Send(connection,
                   "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nTransfer-Encoding: chunked\r\n\r\n");
    const std::string chunk = "10000\r\n" + std::string(0x10000, 'x') + "\r\n";
    // Until the server has enough; 1 GiB would be too late.
    int sent = 0;
    while (IsStillOpen(connection) && sent < 16384) {
        tooltest::Send(connection, chunk);
        ++sent;
    }
    EXPECT_LT(sent, 16384);
    EXPECT_TRUE(Answers(server));
}

// A request that never ends, and never falls silent, is no reason to go on.
TEST(ServerAttack, EndsWhenItIsToldInTheMiddleOfRequests) {
    for (const int signal : {SIGTERM, SIGINT}) {
        Server server;
        const std::vector<Descriptor> clients = ConnectMany(server, 8, "POST / HTTP/1.1\r\n");
        EXPECT_TRUE(Answers(server));
        EXPECT_EQ(std::count_if(clients.begin(), clients.end(), IsStillOpen), 8);
        server.process()->Signal(signal);
        for (const Descriptor& each : clients) {
            // Ends only with the connection; what is sent to it meanwhile keeps it from ending for
            // silence.
            while (IsStillOpen(each)) {
                tooltest::Send(each, "X: y\r\n");
            }
        }
        EXPECT_TRUE(tooltest::Printed(server.process()->Finish(), ""));
    }
}

}  // namespace
