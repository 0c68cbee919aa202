// `fetch` by TLS: which servers it trusts, and that it tells why it does not. The test itself is
// the server.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"
#include "tests/tools/Socket.h"
#include "tests/tools/TlsServer.h"

namespace {

using tooltest::Arguments;
using tooltest::Authority;
using tooltest::Claims;
using tooltest::Identity;
using tooltest::Outcome;
using tooltest::Port;
using tooltest::Printed;
using tooltest::Refused;

const std::string kTree = "<Track><TrackId>1</TrackId></Track>\n";

std::string Answer() {
    const std::string body = tooltest::Envelope(tooltest::Track("<trackId>1</trackId>"));
    return "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// An authority whose certificates `fetch` is told to trust.
class Https : public testing::Test {
 protected:
    std::string Endpoint(const std::string& host = "127.0.0.1") const {
        return "https://" + host + ":" + std::to_string(port_.Number());
    }

    Arguments Trusting(const std::string& host = "127.0.0.1") const {
        return {"--endpoint", Endpoint(host), "--cacert", trusted_};
    }

    /// What `fetch` makes of a server. What that has received is in `request_`.
    Outcome Fetch(const Arguments& arguments, const Identity& identity,
                  const char* priorities = "NORMAL") {
        port_.Listen();
        tooltest::Process fetch(CommandLine(arguments));
        {
            tooltest::TlsConnection connection(port_.Accept(), identity, priorities);
            request_ = connection.ReceiveRequest();
            connection.Send(Answer());
        }
        return fetch.Finish();
    }

    static Arguments CommandLine(const Arguments& arguments) {
        Arguments all = {"fetch", "track", "Tra.1", "--tree"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return all;
    }

    const Port port_;
    const Authority authority_;
    const tooltest::TempFolder folder_;
    const std::string trusted_ = folder_.Add("authority.pem", authority_.certificate());
    std::string request_;
};

TEST_F(Https, ServerOfATrustedAuthorityIsAsked) {
    for (const std::string host : {"127.0.0.1", "localhost"}) {
        EXPECT_TRUE(Printed(Fetch(Trusting(host), authority_.Issue({})), kTree)) << host;
        EXPECT_NE(request_.find("Tra.1"), std::string::npos);
    }
}

TEST_F(Https, BothVersionsThatAreSafeAreSpoken) {
    for (const char* const version : {"TLS1.2", "TLS1.3"}) {
        const std::string priorities = std::string("NORMAL:-VERS-ALL:+VERS-") + version;
        EXPECT_TRUE(Printed(Fetch(Trusting(), authority_.Issue({}), priorities.c_str()), kTree))
            << version;
    }
}

TEST_F(Https, OlderVersionIsRefused) {
    const char kOld[] =
        "NORMAL:-VERS-ALL:+VERS-TLS1.1:+VERS-TLS1.0:+SIGN-ALL:%VERIFY_ALLOW_SIGN_WITH_SHA1";
    EXPECT_TRUE(
        Refused(Fetch(Trusting(), authority_.Issue({}), kOld), 1, {Endpoint() + ": ", "(TLS)"}));
    EXPECT_EQ(request_, "");
}

/// Whether a server is refused for that reason, and has not been told anything.
struct Case {
    const char* name;
    Claims claims;
    const char* reason;
};

TEST_F(Https, CertificateThatIsWrongIsRefused) {
    const Case cases[] = {
        {"expired", {{"127.0.0.1"}, -3, -1}, "it has expired"},
        {"of tomorrow", {{"127.0.0.1"}, 1, 3}, "it is not valid yet"},
        {"of another host", {{"service.example"}, -2, 2}, "does not match target host name"},
        {"of another address", {{"127.0.0.2"}, -2, 2}, "does not match target host name"},
        {"of nobody", {{}, -2, 2}, "does not match target host name"},
    };
    for (const Case& each : cases) {
        EXPECT_TRUE(Refused(Fetch(Trusting(), authority_.Issue(each.claims)), 1,
                            {Endpoint() + ": the certificate is refused: ", each.reason, "(TLS)"}))
            << each.name;
        EXPECT_EQ(request_, "") << each.name;
    }
}

TEST_F(Https, CertificateOfAForeignAuthorityIsRefused) {
    EXPECT_TRUE(Refused(Fetch(Trusting(), Authority("Foreign authority").Issue({})), 1,
                        {Endpoint() + ": the certificate is refused: ",
                         "it is from no authority that is trusted (TLS)"}));
    EXPECT_EQ(request_, "");
}

TEST_F(Https, CertificateOfAnAuthorityWithATrustedNameIsRefused) {
    EXPECT_TRUE(
        Refused(Fetch(Trusting(), Authority().Issue({})), 1,
                {Endpoint() + ": the certificate is refused: ", "signature is wrong (TLS)"}));
    EXPECT_EQ(request_, "");
}

// It is its own authority, and nobody's else.
TEST_F(Https, CertificateThatVouchesForItselfIsRefused) {
    const Claims claims = {{"127.0.0.1"}, -2, 2};
    EXPECT_TRUE(Refused(Fetch(Trusting(), Authority("Itself", claims).own()), 1,
                        {Endpoint() + ": the certificate is refused: ",
                         "it is from no authority that is trusted (TLS)"}));
    EXPECT_EQ(request_, "");
}

TEST_F(Https, SystemsAuthoritiesAreTheOnesWithoutOthers) {
    EXPECT_TRUE(Refused(Fetch({"--endpoint", Endpoint()}, authority_.Issue({})), 1,
                        {Endpoint() + ": the certificate is refused: "}));
    EXPECT_EQ(request_, "");
}

TEST_F(Https, AnyCertificateIsTakenWhereThatIsAskedFor) {
    const Claims claims[] = {
        {{"127.0.0.1"}, -2, 2}, {{"127.0.0.1"}, -3, -1}, {{"service.example"}, -2, 2}};
    for (const Claims& each : claims) {
        EXPECT_TRUE(Printed(
            Fetch({"--endpoint", Endpoint(), "--insecure"}, Authority().Issue(each)), kTree));
    }
}

// The port listens for one client: a second try would be refused, with another message.
TEST_F(Https, RefusedCertificateIsNotTriedAgain) {
    Arguments arguments = Trusting();
    arguments.insert(arguments.end(), {"--retry", "3"});
    EXPECT_TRUE(
        Refused(Fetch(arguments, Authority("Foreign authority").Issue({})), 1, {"no authority"}));
}

TEST_F(Https, ServerThatNeverSpeaksIsLeft) {
    port_.Listen();
    for (const Arguments& bounds :
         {Arguments{"--timeout", "1"}, Arguments{"--connect-timeout", "1", "--timeout", "86400"}}) {
        Arguments arguments = Trusting();
        arguments.insert(arguments.end(), bounds.begin(), bounds.end());
        tooltest::Process fetch(CommandLine(arguments));
        const tooltest::Descriptor connection = port_.Accept();
        EXPECT_TRUE(Refused(fetch.Finish(), 1, {Endpoint() + ": ", "timed out", "(TLS)"}));
    }
}

TEST_F(Https, ServerThatNeverAnswersIsLeft) {
    Arguments arguments = Trusting();
    arguments.insert(arguments.end(), {"--timeout", "2"});
    port_.Listen();
    tooltest::Process fetch(CommandLine(arguments));
    tooltest::TlsConnection connection(port_.Accept(), authority_.Issue({}));
    EXPECT_NE(connection.ReceiveRequest(), "");
    EXPECT_TRUE(
        Refused(fetch.Finish(), 1, {Endpoint() + ": ", "timed out", "(waiting for the answer)"}));
}

TEST_F(Https, ServerThatSpeaksNoTlsIsRefused) {
    for (const std::string& answer : {Answer(), std::string("hello"), std::string()}) {
        port_.Listen();
        tooltest::Process fetch(CommandLine(Trusting()));
        tooltest::Send(port_.Accept(), answer);
        EXPECT_TRUE(Refused(fetch.Finish(), 1, {Endpoint() + ": ", "(TLS)"})) << answer;
    }
}

TEST_F(Https, FileWithoutCertificatesIsNamed) {
    const std::string missing = folder_.path() + "/missing.pem";
    EXPECT_TRUE(
        Refused(tooltest::RunTool(CommandLine({"--endpoint", Endpoint(), "--cacert", missing})), 1,
                {missing + ": No such file"}));
    for (const std::string contents :
         {"", "no certificate", "-----BEGIN CERTIFICATE-----\nx\n-----END CERTIFICATE-----\n"}) {
        const std::string file = folder_.Add("bad.pem", contents);
        EXPECT_TRUE(
            Refused(tooltest::RunTool(CommandLine({"--endpoint", Endpoint(), "--cacert", file})), 1,
                    {file + ": ", "no certificate in PEM"}))
            << contents;
    }
}

TEST_F(Https, FactsOfTheConnectionAreShown) {
    Arguments arguments = Trusting();
    arguments.emplace_back("--verbose");
    const Outcome outcome = Fetch(arguments, authority_.Issue({}));
    EXPECT_EQ(outcome.output, kTree);
    EXPECT_NE(outcome.errors.find("\n* SSL connection using TLS1.3"), std::string::npos);
    EXPECT_NE(outcome.errors.find("\n> POST / HTTP/1.1\n"), std::string::npos);
    EXPECT_NE(outcome.errors.find("\n< HTTP/1.1 200 OK\n"), std::string::npos);
}

TEST_F(Https, StandInIsAskedAndRecorded) {
    const Identity identity = authority_.Issue({});
    tooltest::Process server({"serve", "--port", "0", "--tls",
                              folder_.Add("server.pem", identity.certificate),
                              folder_.Add("server.key", identity.key)});
    const std::string line = server.ReadLine();
    const std::string prefix = "listening on ";
    ASSERT_EQ(line.rfind(prefix + "https://127.0.0.1:", 0), 0U) << line;
    const std::string endpoint = line.substr(prefix.size(), line.size() - prefix.size() - 1);
    const std::string catalogue = folder_.path() + "/catalogue";
    const Outcome fetched =
        tooltest::RunTool({"fetch", "--endpoint", endpoint, "--cacert", trusted_, "--record-to",
                           catalogue, "album", "Alb.40013100"});
    EXPECT_EQ(fetched.status, 0) << fetched.errors;
    EXPECT_NE(fetched.output, "");
    EXPECT_TRUE(Printed(tooltest::RunTool({"show", catalogue + "/album/Alb.40013100.xml"}),
                        fetched.output));
    EXPECT_TRUE(
        Refused(tooltest::RunTool({"fetch", "--endpoint", endpoint, "album", "Alb.40013100"}), 1,
                {endpoint + ": the certificate is refused: "}));
}

TEST(HttpsUsage, CertificateOptionsAreForHttpsAndExcludeEachOther) {
    const char kPlain[] = "http://127.0.0.1:1";
    const char kSecure[] = "https://127.0.0.1:1";
    const Arguments cases[] = {
        {"--endpoint", kPlain, "--insecure"},
        {"--endpoint", kPlain, "--cacert", "/dev/null"},
        {"--endpoint", kSecure, "--cacert", "/dev/null", "--insecure"},
        {"--endpoint", kSecure, "--cacert", ""},
    };
    for (const Arguments& each : cases) {
        Arguments arguments = {"fetch", "track"};
        arguments.insert(arguments.end(), each.begin(), each.end());
        EXPECT_TRUE(Refused(tooltest::RunTool(arguments), 2, {"--"})) << each.back();
    }
}

}  // namespace
