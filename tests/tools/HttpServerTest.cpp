// The stand-in's HTTP server with a handler of the test's: what takes a minute, or a failure that a
// request cannot bring about.

#include "tools/HttpServer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "tests/tools/Socket.h"

namespace {

using namespace std::chrono_literals;
using tool::HttpAnswer;
using tool::HttpRequest;
using tooltest::Descriptor;

std::string Post(const std::string& body) {
    return "POST / HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\n\r\n" + body;
}

/// Answers with the body of the request, much later to "late"; throws for an empty one.
HttpAnswer Echo(const HttpRequest& request) {
    if (request.body.empty()) {
        throw std::bad_alloc();
    }
    const bool isLate = request.body == "late";
    return {200, "text/plain", "", request.body, {}, isLate ? 60000ms : 0ms};
}

class HttpServer : public testing::Test {
 protected:
    void SetUp() override { ASSERT_TRUE(server_.Start("127.0.0.1", 0, Echo)); }

    Descriptor Connect() const {
        const std::string& endpoint = server_.Endpoint();
        return tooltest::Connect(std::atoi(endpoint.c_str() + endpoint.rfind(':') + 1));
    }

    /// Whether a connection's request is answered; the connection stays open.
    static testing::AssertionResult Answers(const Descriptor& connection) {
        tooltest::Send(connection, Post("hello"));
        const std::string answer = tooltest::ReceiveRequest(connection);
        return answer.rfind("HTTP/1.1 200 ", 0) == 0 && answer.find("hello") != std::string::npos
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << answer;
    }

    tool::HttpServer server_;
};

TEST_F(HttpServer, AnswersRequestAfterRequestOfAConnection) {
    const Descriptor connection = Connect();
    EXPECT_TRUE(Answers(connection));
    EXPECT_TRUE(Answers(connection));
}

TEST_F(HttpServer, EndsConnectionsThatAreTooOld) {
    const Descriptor fresh = Connect();
    EXPECT_TRUE(Answers(fresh));
    tooltest::Send(fresh, "POST / HTTP/1.1\r\n");
    server_.EndOldConnections();
    tooltest::WaitForEnd(fresh, 100);
    tooltest::Send(fresh, "Content-Length: 5\r\n\r\nhello");
    EXPECT_NE(tooltest::ReceiveRequest(fresh).find("hello"), std::string::npos);

    tooltest::Send(fresh, "POST / HTTP/1.1\r\n");
    server_.EndOldConnections(0s);
    EXPECT_EQ(tooltest::ReceiveAll(fresh), "");
    EXPECT_TRUE(Answers(Connect()));
}

TEST_F(HttpServer, RequestWhoseHandlerThrowsIsLeftWithoutAnAnswer) {
    const Descriptor connection = Connect();
    tooltest::Send(connection, Post(""));
    EXPECT_EQ(tooltest::ReceiveAll(connection), "");
    EXPECT_TRUE(Answers(Connect()));
}

TEST_F(HttpServer, BodyIsKeptUpToItsLimit) {
    const std::string most(tool::HttpServer::kLongestRequest, 'x');
    for (const std::string& body : {most, most + "y"}) {
        const Descriptor connection = Connect();
        tooltest::Send(connection, Post(body));
        const std::string answer = tooltest::ReceiveRequest(connection);
        EXPECT_EQ(answer.substr(answer.find("\r\n\r\n") + 4), most);
    }
}

TEST_F(HttpServer, AnswerThatIsDelayedDelaysNoOther) {
    const Descriptor late = Connect();
    tooltest::Send(late, Post("late"));
    EXPECT_FALSE(tooltest::WaitForEnd(late, 100));
    for (int count = 0; count < 10; ++count) {
        EXPECT_TRUE(Answers(Connect()));
    }
    EXPECT_FALSE(tooltest::WaitForEnd(late, 0));
}

TEST_F(HttpServer, DelayedAnswersAreNotSentAtItsEnd) {
    auto other = std::make_unique<tool::HttpServer>();
    ASSERT_TRUE(other->Start("127.0.0.1", 0, Echo));
    const std::string endpoint = other->Endpoint();
    const int port = std::atoi(endpoint.c_str() + endpoint.rfind(':') + 1);
    const Descriptor late[] = {tooltest::Connect(port), tooltest::Connect(port)};
    for (const Descriptor& each : late) {
        tooltest::Send(each, Post("late"));
    }
    EXPECT_FALSE(tooltest::WaitForEnd(late[1], 100));
    other.reset();
    for (const Descriptor& each : late) {
        EXPECT_EQ(tooltest::ReceiveAll(each), "");
    }
}

TEST_F(HttpServer, TellsOfEachExchangeOfAConnection) {
    std::vector<std::string> told;
    {
        tool::HttpServer other;
        tool::HttpServerOptions options;
        options.onExchange = [&told](const tool::HttpExchange& exchange) {
            told.push_back(exchange.client.substr(0, 10) + " " +
                           std::to_string(exchange.status.value_or(0)) + " " +
                           std::to_string(exchange.bodySize.value_or(0)));
        };
        ASSERT_TRUE(other.Start("127.0.0.1", 0, Echo, options));
        const std::string endpoint = other.Endpoint();
        const Descriptor connection =
            tooltest::Connect(std::atoi(endpoint.c_str() + endpoint.rfind(':') + 1));
        EXPECT_TRUE(Answers(connection));
        EXPECT_TRUE(Answers(connection));
        tooltest::Send(connection, Post(""));
        EXPECT_EQ(tooltest::ReceiveAll(connection), "");
    }
    EXPECT_EQ(told,
              (std::vector<std::string>{"127.0.0.1: 200 5", "127.0.0.1: 200 5", "127.0.0.1: 0 0"}));
}

TEST_F(HttpServer, ConnectionsEndWithTheServer) {
    auto other = std::make_unique<tool::HttpServer>();
    ASSERT_TRUE(other->Start("127.0.0.1", 0, Echo));
    const std::string endpoint = other->Endpoint();
    const Descriptor connection =
        tooltest::Connect(std::atoi(endpoint.c_str() + endpoint.rfind(':') + 1));
    tooltest::Send(connection, "POST");
    other.reset();
    EXPECT_EQ(tooltest::ReceiveAll(connection), "");
}

}  // namespace
