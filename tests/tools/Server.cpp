#include "tests/tools/Server.h"

#include <cstdlib>

namespace tooltest {
namespace {

Arguments ServeArguments(const std::string& catalog) {
    Arguments arguments = {"serve", "--port", "0"};
    if (!catalog.empty()) {
        arguments.insert(arguments.end(), {"--catalog", catalog});
    }
    return arguments;
}

}  // namespace

Server::Server(const std::string& catalog) : process_(ServeArguments(catalog)) {
    const std::string line = process_.ReadLine();
    const std::string prefix = "listening on ";
    EXPECT_EQ(line.rfind(prefix + "http://127.0.0.1:", 0), 0U) << line;
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
