#include "bench/report/Command.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace bench {

std::string OutputOf(const std::string& command) {
    // NOLINTNEXTLINE(cert-env33-c): commands are made here, from this build's own paths
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::string output;
    if (pipe != nullptr) {
        std::array<char, 4096> buffer;
        while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
            output.append(buffer.data(), size);
        }
    }
    if (pipe == nullptr || pclose(pipe) != 0) {
        std::fprintf(stderr, "quavera-bench-report: failed: %s\n%s", command.c_str(),
                     output.c_str());
        std::exit(1);
    }
    return output;
}

}  // namespace bench
