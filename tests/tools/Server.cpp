#include "tests/tools/Server.h"

#include <cstdlib>

namespace tooltest {
namespace {

Arguments QuietArguments(const std::string& catalog) {
    Arguments arguments = {"--quiet"};
    if (!catalog.empty()) {
        arguments.insert(arguments.end(), {"--catalog", catalog});
    }
    return arguments;
}

Arguments ServeArguments(const Arguments& arguments) {
    Arguments all = {"serve", "--port", "0"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return all;
}

bool Begins(const std::string& text, const std::string& prefix) {
    return text.rfind(prefix, 0) == 0;
}

}  // namespace

Server::Server(const std::string& catalog) : Server(QuietArguments(catalog)) {}

Server::Server(const Arguments& arguments) : process_(ServeArguments(arguments)) {
    const std::string line = process_.ReadLine();
    const std::string prefix = "listening on ";
    EXPECT_TRUE(Begins(line, prefix + "http://127.0.0.1:") ||
                Begins(line, prefix + "https://127.0.0.1:"))
        << line;
    if (line.size() > prefix.size()) {
        endpoint_ = line.substr(prefix.size(), line.size() - prefix.size() - 1);
    }
}

int Server::Port() const {
    return std::atoi(endpoint_.c_str() + endpoint_.rfind(':') + 1);
}

Outcome Server::Fetch(const Arguments& arguments) const {
    Arguments all = {"fetch", "--endpoint", endpoint_};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return RunTool(all);
}

}  // namespace tooltest
