#include "bench/report/Profile.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string_view>
#include <utility>

#include "bench/report/Command.h"

namespace bench {
namespace {

/// `name` without template arguments and parameters.
std::string Plain(std::string_view name) {
    std::string plain;
    int depth = 0;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const char character = name[at];
        if (name.substr(at, 21) == "(anonymous namespace)") {
            at += 22;  // and the colons
        } else if (character == '(' && depth == 0 && at > 0) {
            break;
        } else if (character == '<') {
            ++depth;
        } else if (character == '>') {
            --depth;
        } else if (depth == 0) {
            plain += character;
        }
    }
    for (const std::string noise : {"__cxx11::", "[abi:cxx11]"}) {
        for (std::size_t at = plain.find(noise); at != std::string::npos; at = plain.find(noise)) {
            plain.erase(at, noise.size());
        }
    }
    return plain;
}

/// Reads callgrind's output: lines that name the current object ("ob=") and function ("fn="), and
/// lines with a position and a cost; the cost behind a "calls=" line is the called function's
/// ("cfn="). A name is given in full once, "(7) name", then as "(7)".
class Output {
 public:
    void Read(const std::string& line) {
        if (IsCost(line) && std::exchange(isCall_, false)) {
            calls_[callee_] += CostOf(line);
            return;
        }
        if (IsHead(line)) {
            return;
        }
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos) {
            const std::string key = line.substr(0, equals);
            const std::string value = line.substr(equals + 1);
            if (key == "ob" || key == "cob") {
                Name(value, &objects_, key == "ob" ? &object_ : nullptr);
            } else if (key == "fn" || key == "cfn") {
                Name(value, &functions_, key == "fn" ? &function_ : &callee_);
            }
            isCall_ = key == "calls";
            return;
        }
        costs_[{object_, function_}] += CostOf(line);
    }

    /// The shares of the costs read, the largest first.
    std::vector<Share> Shares() const {
        double all = 0;
        for (const auto& [place, cost] : costs_) {
            all += cost;
        }
        std::vector<Share> shares;
        for (const auto& [place, cost] : costs_) {
            const std::string& object = place.first;
            shares.push_back(
                {place.second, object.substr(object.rfind('/') + 1), cost / all * 100});
        }
        std::stable_sort(shares.begin(), shares.end(), [](const Share& left, const Share& right) {
            return left.percent > right.percent;
        });
        return shares;
    }

    /// The costs of calls, by the names of the called functions without their namespaces.
    std::map<std::string, double> Calls() const {
        std::map<std::string, double> calls;
        for (const auto& [function, cost] : calls_) {
            calls[function.substr(function.rfind(':') + 1)] += cost;
        }
        return calls;
    }

 private:
    using Names = std::map<std::string, std::string>;

    static bool IsCost(const std::string& line) {
        return !line.empty() &&
               std::string_view("+-*0123456789").find(line[0]) != std::string_view::npos;
    }
    static bool IsHead(const std::string& line) {
        return !IsCost(line) && line.find('=') == std::string::npos;
    }
    static double CostOf(const std::string& line) {
        return std::strtod(line.c_str() + line.find(' '), nullptr);
    }

    static void Name(const std::string& value, Names* names, std::string* current) {
        const std::size_t close = value.find(')');
        const std::string id = value.substr(0, close);
        if (close + 2 < value.size()) {
            const std::string name = value.substr(close + 2);
            // A stripped library's functions have addresses only.
            (*names)[id] = name.substr(0, 2) == "0x" ? "(without names)" : Plain(name);
        }
        if (current != nullptr) {
            *current = (*names)[id];
        }
    }

    Names objects_;
    Names functions_;
    std::string object_;
    std::string function_;
    std::string callee_;
    bool isCall_ = false;
    std::map<std::string, double> calls_;
    std::map<std::pair<std::string, std::string>, double> costs_;
};

Output OutputOfCallgrind(const std::string& options, const std::string& command) {
    std::istringstream lines(
        OutputOf(R"(file=$(mktemp) && valgrind --tool=callgrind --callgrind-out-file="$file" )" +
                 options + command + R"( 2>/dev/null && cat "$file" && rm "$file")"));
    Output output;
    for (std::string line; std::getline(lines, line);) {
        output.Read(line);
    }
    return output;
}

}  // namespace

std::vector<Share> ProfileOf(const std::string& program, const std::string& contender,
                             const std::string& steps, int trackCount) {
    constexpr int kRepeats = 10;
    return OutputOfCallgrind("'--toggle-collect=*RepeatSteps*' ",
                             program + ' ' + contender + ' ' + steps + ' ' +
                                 std::to_string(trackCount) + ' ' + std::to_string(kRepeats))
        .Shares();
}

std::map<std::string, double> CallsOf(const std::string& command) {
    return OutputOfCallgrind("", command).Calls();
}

}  // namespace bench
