// The stand-in's HTTP server with a handler of the test's: what takes a minute, or a failure that a
// request cannot bring about.

#include "tools/HttpServer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

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

/// Answers with the body of the request; throws for an empty one.
HttpAnswer Echo(const HttpRequest& request) {
    if (request.body.empty()) {
        throw std::bad_alloc();
    }
    return {200, "text/plain", "", request.body, {}};
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
