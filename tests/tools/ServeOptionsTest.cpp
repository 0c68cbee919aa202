// What the stand-in service does when it is asked to: log, be late, fail, cut answers short.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Server.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Arguments;
using tooltest::Descriptor;
using tooltest::Refused;
using tooltest::RunTool;
using tooltest::Server;
using Clock = std::chrono::steady_clock;

std::string Post(const std::string& body) {
    return "POST / HTTP/1.1\r\nHost: here\r\nConnection: close\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::string Request(const std::string& operation, const std::string& id) {
    return Post(
        tooltest::Envelope("<q:" + operation + "><id>" + id + "</id></q:" + operation + ">"));
}

const std::string kAlbum = Request("getAlbum", "Alb.40013100");

std::string Exchange(const Server& server, const std::string& bytes) {
    const Descriptor connection = tooltest::Connect(server.Port());
    tooltest::Send(connection, bytes);
    return tooltest::ReceiveAll(connection);
}

std::string Status(const std::string& answer) {
    return answer.substr(answer.find(' ') + 1, 3);
}

std::string Body(const std::string& answer) {
    return answer.substr(answer.find("\r\n\r\n") + 4);
}

std::size_t AnnouncedSize(const std::string& answer) {
    constexpr char kLength[] = "\r\nContent-Length: ";
    return std::strtoul(answer.c_str() + answer.find(kLength) + sizeof kLength - 1, nullptr, 10);
}

/// Tells a server to end, and returns the lines that it has logged, without their times and ports.
std::vector<std::string> LogOf(Server* server) {
    server->process()->Signal(SIGTERM);
    const tooltest::Outcome outcome = server->process()->Finish();
    EXPECT_EQ(outcome.status, 0);
    static const std::regex line(
        R"((\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d[+-]\d\d:\d\d) (127\.0\.0\.1:\d+) (.*) (\d+))");
    std::istringstream log(outcome.errors);
    std::vector<std::string> lines;
    for (std::string text; std::getline(log, text);) {
        std::smatch parts;
        EXPECT_TRUE(std::regex_match(text, parts, line)) << text;
        lines.push_back(parts[3]);
    }
    return lines;
}

TEST(ServeLog, HasALineForEachRequestOfAnyKind) {
    Server server((Arguments()));
    struct Case {
        std::string request;
        std::string logged;  // without the bytes
    };
    const std::vector<Case> cases = {
        {kAlbum, "getAlbum Alb.40013100 200"},
        {Request("getTrack", "no ne&#10;&quot;"), R"(getTrack "no ne\x0A\x22" 500)"},
        {Request("getTrack", ""), "getTrack \"\" 500"},
        {Request("getConcert", "1"), "getConcert - 500"},
        {Post("<a>"), "- - 500"},
        {Post(""), "- - 500"},
        {Post(std::string(70000, ' ')), "- - 413"},
        {"PUT / HTTP/1.1\r\nHost: here\r\nConnection: close\r\nContent-Length: 0\r\n\r\n",
         "- - 405"},
        {"GET / HTTP/1.1\r\nHost: here\r\nConnection: close\r\n\r\n", "- - 405"},
        {"GET /?wsdl HTTP/1.1\r\nHost: here\r\nConnection: close\r\n\r\n", "wsdl - 200"},
    };
    std::vector<std::string> expected;
    for (const Case& each : cases) {
        const std::string answer = Exchange(server, each.request);
        expected.push_back(each.logged + " " + std::to_string(Body(answer).size()));
    }
    // By the HTTP library, whose answers' sizes are not known.
    Exchange(server, "POST / HTTP/1.1\r\nHost: here\r\nContent-Length: -4\r\n\r\n");
    expected.emplace_back("- - 400 -");
    Exchange(server, "POST / HTTP/1.1\r\nX: " + std::string(20000, 'x') + "\r\n\r\n");
    expected.emplace_back("- - 431 -");
    EXPECT_EQ(LogOf(&server), expected);
}

TEST(ServeLog, HasALineForWhatIsNotAnswered) {
    Server server((Arguments()));
    const auto leave = [&server](const std::string& bytes) {
        const Descriptor connection = tooltest::Connect(server.Port());
        tooltest::Send(connection, bytes);
        tooltest::EndSending(connection);
        tooltest::ReceiveAll(connection);
    };
    leave("");
    leave(kAlbum.substr(0, kAlbum.size() - 1));
    EXPECT_EQ(LogOf(&server), (std::vector<std::string>{"- - - -", "- - - -"}));
}

TEST(ServeLog, HasALineForEachRequestOfAConnection) {
    Server server((Arguments()));
    {
        const Descriptor connection = tooltest::Connect(server.Port());
        const std::string get = "GET / HTTP/1.1\r\nHost: here\r\n\r\n";
        for (int count = 0; count < 3; ++count) {
            tooltest::Send(connection, get);
            tooltest::ReceiveRequest(connection);
        }
    }
    EXPECT_EQ(LogOf(&server).size(), 3U);
}

TEST(ServeLog, IsLeftOutWhenAskedFor) {
    Server server(Arguments{"--quiet"});
    Exchange(server, kAlbum);
    EXPECT_EQ(LogOf(&server), std::vector<std::string>());
}

// The test does not read what the server logs until it is over: a pipe holds some hundred lines.
TEST(ServeLog, ThatNobodyReadsDelaysNobody) {
    Server server((Arguments()));
    const std::string request = Request("getTrack", std::string(100, 'x'));
    for (int count = 0; count < 600; ++count) {
        ASSERT_EQ(Status(Exchange(server, request)), "500");
    }
    EXPECT_LT(LogOf(&server).size(), 600U);
}

/// A server whose standard error is redirected by a shell.
class RedirectedServer {
 public:
    explicit RedirectedServer(const std::string& redirection)
        : output_(popen(("echo $$; exec " QUAVERA_TEST_EMULATOR " '" QUAVERA_TEST_PROGRAM
                         "' serve --port 0 " +
                         redirection)
                            .c_str(),
                        "re")) {
        process_ = std::atoi(ReadLine().c_str());
        const std::string line = ReadLine();
        port_ = std::atoi(line.c_str() + line.rfind(':') + 1);
        EXPECT_GT(process_, 0);
        EXPECT_GT(port_, 0) << line;
    }
    RedirectedServer(const RedirectedServer&) = delete;
    RedirectedServer& operator=(const RedirectedServer&) = delete;
    ~RedirectedServer() {
        if (process_ > 0) {
            kill(process_, SIGTERM);
        }
        EXPECT_EQ(pclose(output_), 0);
    }

    std::string Ask() const {
        const Descriptor connection = tooltest::Connect(port_);
        tooltest::Send(connection, kAlbum);
        return Status(tooltest::ReceiveAll(connection));
    }

 private:
    std::string ReadLine() {
        std::array<char, 200> line{};
        EXPECT_NE(fgets(line.data(), line.size(), output_), nullptr);
        return line.data();
    }

    std::FILE* output_;
    pid_t process_ = -1;
    int port_ = 0;
};

TEST(ServeLog, WithoutStandardErrorTheServerServes) {
    if (std::getenv("QUAVERA_TEST_SLOW") != nullptr) {
        GTEST_SKIP() << "the descriptor would be that of memcheck's report";
    }
    const RedirectedServer server("2>&-");
    EXPECT_EQ(server.Ask(), "200");
    EXPECT_EQ(server.Ask(), "200");
}

TEST(ServeLog, ReaderThatGoesDoesNotEndTheServer) {
    const tooltest::TempFolder folder;
    const std::string path = folder.path() + "/log";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    Descriptor reader(open(path.c_str(), O_RDWR | O_CLOEXEC));
    const RedirectedServer server("2>'" + path + "'");
    EXPECT_EQ(server.Ask(), "200");
    reader.Close();
    EXPECT_EQ(server.Ask(), "200");
    EXPECT_EQ(server.Ask(), "200");
}

TEST(ServeDelay, AnswersComeNoEarlier) {
    const Server server(Arguments{"--quiet", "--delay", "300"});
    for (const std::string& request :
         {kAlbum, Post("<a>"), Request("getTrack", "none"),
          std::string("GET /?wsdl HTTP/1.1\r\nHost: here\r\nConnection: close\r\n\r\n"),
          Post(std::string(70000, ' '))}) {
        const auto began = Clock::now();
        EXPECT_NE(Exchange(server, request), "");
        EXPECT_GE(Clock::now() - began, std::chrono::milliseconds(300));
    }
}

// One after the other, they would take more than a minute.
TEST(ServeDelay, ClientsAreDelayedTogether) {
    const Server server(Arguments{"--quiet", "--delay", "2000"});
    std::vector<Descriptor> clients;
    const auto began = Clock::now();
    for (int count = 0; count < 40; ++count) {
        clients.push_back(tooltest::Connect(server.Port()));
        tooltest::Send(clients.back(), kAlbum);
    }
    for (const Descriptor& each : clients) {
        EXPECT_EQ(Status(tooltest::ReceiveAll(each)), "200");
    }
    EXPECT_LT(Clock::now() - began, std::chrono::seconds(60));
}

TEST(ServeDelay, ClientThatLeavesMeanwhileIsForgotten) {
    const Server server(Arguments{"--quiet", "--delay", "100"});
    for (int count = 0; count < 20; ++count) {
        tooltest::Send(tooltest::Connect(server.Port()), kAlbum);
    }
    EXPECT_EQ(Status(Exchange(server, kAlbum)), "200");
}

TEST(ServeDelay, DoesNotKeepTheServerFromEnding) {
    for (const int signal : {SIGTERM, SIGINT}) {
        Server server(Arguments{"--quiet", "--delay", "60000"});
        std::vector<Descriptor> clients;
        for (int count = 0; count < 5; ++count) {
            clients.push_back(tooltest::Connect(server.Port()));
            tooltest::Send(clients.back(), kAlbum);
        }
        EXPECT_FALSE(tooltest::WaitForEnd(clients.front(), 200));
        const auto began = Clock::now();
        server.process()->Signal(signal);
        EXPECT_TRUE(tooltest::Printed(server.process()->Finish(), ""));
        EXPECT_LT(Clock::now() - began, std::chrono::seconds(30));
        EXPECT_EQ(tooltest::ReceiveAll(clients.front()), "");
    }
}

/// The statuses of so many requests; "cut" for an answer that ends too early.
std::vector<std::string> Statuses(const Server& server, int count) {
    std::vector<std::string> statuses;
    for (int at = 0; at < count; ++at) {
        const std::string answer = Exchange(server, kAlbum);
        const std::size_t size = Body(answer).size();
        const bool isCut = size < AnnouncedSize(answer);
        EXPECT_TRUE(!isCut || size == AnnouncedSize(answer) / 2) << answer.substr(0, 1000);
        statuses.push_back(isCut ? "cut" : Status(answer));
    }
    return statuses;
}

using Words = std::vector<std::string>;

TEST(ServeFail, ShareIsSpreadEvenly) {
    const Words quarter = {"200", "200", "200", "500", "200", "200", "200", "500"};
    for (const char* const share : {"25", "25%"}) {
        EXPECT_EQ(Statuses(Server(Arguments{"--quiet", "--fail", share}), 8), quarter);
    }
    const Words third = {"200", "200", "200", "500", "200", "200",
                         "500", "200", "200", "500", "200", "200"};
    EXPECT_EQ(Statuses(Server(Arguments{"--quiet", "--fail", "30"}), 12), third);
    EXPECT_EQ(Statuses(Server(Arguments{"--quiet", "--fail", "0"}), 3), Words(3, "200"));
    EXPECT_EQ(Statuses(Server(Arguments{"--quiet", "--fail", "100"}), 3), Words(3, "500"));
}

TEST(ServeFail, OfAHundredRequestsItIsTheShare) {
    const Words statuses = Statuses(Server(Arguments{"--quiet", "--fail", "37"}), 100);
    EXPECT_EQ(std::count(statuses.begin(), statuses.end(), "500"), 37);
}

TEST(ServeFail, FaultSaysThatItWasAskedFor) {
    const Server server(Arguments{"--quiet", "--fail", "100"});
    const std::string answer = Exchange(server, kAlbum);
    EXPECT_EQ(Status(answer), "500");
    EXPECT_NE(answer.find("<faultcode>SOAP-ENV:Server</faultcode>"), std::string::npos) << answer;
    EXPECT_TRUE(Refused(server.Fetch({"album", "Alb.40013100"}), 1,
                        {"fault", "a failure that was asked for"}));
}

TEST(ServeFail, OnlyRequestsForARecordCount) {
    const Server server(Arguments{"--quiet", "--fail", "50"});
    EXPECT_EQ(Status(Exchange(server, kAlbum)), "200");
    Exchange(server, Post("<a>"));
    Exchange(server, Request("getConcert", "1"));
    const std::string wsdl = "GET /?wsdl HTTP/1.1\r\nHost: here\r\nConnection: close\r\n\r\n";
    EXPECT_EQ(Status(Exchange(server, wsdl)), "200");
    EXPECT_NE(Exchange(server, kAlbum).find("asked for"), std::string::npos);
}

TEST(ServeTruncate, ShareOfAnswersIsCutShort) {
    EXPECT_EQ(Statuses(Server(Arguments{"--quiet", "--truncate", "50%"}), 4),
              (Words{"200", "cut", "200", "cut"}));
    EXPECT_EQ(Statuses(Server(Arguments{"--quiet", "--truncate", "100"}), 2), Words(2, "cut"));
}

TEST(ServeTruncate, ShareIsOfTheAnswersThatAreNotFailed) {
    EXPECT_EQ(Statuses(Server(Arguments{"--quiet", "--truncate", "50", "--fail", "50"}), 8),
              (Words{"200", "500", "cut", "500", "200", "500", "cut", "500"}));
}

TEST(ServeTruncate, ClientOfOursRefusesTheAnswer) {
    const Server server(Arguments{"--quiet", "--truncate", "100"});
    EXPECT_TRUE(Refused(server.Fetch({"album", "Alb.40013100"}), 1, {server.Endpoint() + ": "}));
}

TEST(ServeTruncate, LogHasTheBytesThatWereSent) {
    Server server(Arguments{"--truncate", "100"});
    const std::string answer = Exchange(server, kAlbum);
    EXPECT_EQ(LogOf(&server),
              Words{"getAlbum Alb.40013100 200 " + std::to_string(AnnouncedSize(answer) / 2)});
}

TEST(ServeOptions, ValuesThatAreNoneAreWrongUsage) {
    for (const std::string option : {"--fail", "--truncate"}) {
        for (const std::string value :
             {"", "%", "-1", "101", "101%", "50%%", "% 50", "1.5", "half", "4294967297"}) {
            EXPECT_TRUE(Refused(RunTool({"serve", "--port", "0", option, value}), 2,
                                {option, "\"" + value + "\" is no share from 0 to 100%"}));
        }
    }
    for (const std::string value : {"", "-1", "60001", "1s", "1.5", "4294967297"}) {
        EXPECT_TRUE(Refused(RunTool({"serve", "--port", "0", "--delay", value}), 2,
                            {"--delay", "\"" + value + "\" is no number of milliseconds"}));
    }
}

}  // namespace
