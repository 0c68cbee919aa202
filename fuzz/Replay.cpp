// The main function of a target without libFuzzer: for every compiler, and for the target's
// emulator.
//
//     TARGET [--mutations=N] FILE|FOLDER...
//
// runs the inputs in these files, and N more that are made of them, the same ones in every run. An
// input that fails is told, and written to a file.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Target.h"
#include "tests/support/Random.h"

namespace {

struct Seed {
    std::string path;
    std::string bytes;
};

void AddFile(const std::filesystem::path& path, std::vector<Seed>* seeds) {
    std::ifstream file(path, std::ios::binary);
    seeds->push_back({path.string(), {std::istreambuf_iterator<char>(file), {}}});
}

/// In an order that no file system decides.
std::vector<Seed> Load(const std::vector<std::string>& paths) {
    std::vector<Seed> seeds;
    for (const std::string& path : paths) {
        if (!std::filesystem::is_directory(path)) {
            AddFile(path, &seeds);
            continue;
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
            if (entry.is_regular_file()) {
                AddFile(entry.path(), &seeds);
            }
        }
    }
    std::sort(seeds.begin(), seeds.end(),
              [](const Seed& left, const Seed& right) { return left.path < right.path; });
    return seeds;
}

void Mutate(Random& random, const std::vector<Seed>& seeds, std::string* bytes) {
    const std::size_t at = random.Below(bytes->size() + 1);
    const std::size_t count = 1 + random.Below(random.OneIn(4) ? 64 : 4);
    switch (random.Below(6)) {
        case 0:
            bytes->replace(at, 1, 1, random.Byte());
            break;
        case 1:
            bytes->insert(at, random.Bytes(count));
            break;
        case 2:
            bytes->erase(at, count);
            break;
        case 3:
            bytes->insert(at, bytes->substr(random.Below(bytes->size() + 1), count));
            break;
        case 4: {
            const std::string& other = random.Pick(seeds).bytes;
            bytes->replace(at, count, other.substr(random.Below(other.size() + 1), count));
            break;
        }
        default:
            if (at < bytes->size()) {
                const auto bit = static_cast<unsigned char>(1U << random.Below(8));
                (*bytes)[at] = static_cast<char>(static_cast<unsigned char>((*bytes)[at]) ^ bit);
            }
    }
}

/// The input of that number: a seed itself, or, of the numbers behind them, one that is made of it.
std::string InputAt(std::size_t number, const std::vector<Seed>& seeds) {
    if (number < seeds.size()) {
        return seeds[number].bytes;
    }
    Random random(static_cast<unsigned int>(number));
    std::string bytes = random.Pick(seeds).bytes;
    for (std::size_t mutations = 1 + random.Below(4); mutations > 0; --mutations) {
        Mutate(random, seeds, &bytes);
    }
    return bytes;
}

void Run(const std::string& input) {
    const auto block = std::make_unique<std::uint8_t[]>(input.size());
    std::copy(input.begin(), input.end(), block.get());
    LLVMFuzzerTestOneInput(block.get(), input.size());
}

/// Runs all inputs in a process of its own, which may end in any way. Returns the number of those
/// that it has got over, and how it has ended.
struct Outcome {
    std::size_t passed;
    int status;
};

Outcome RunAll(const std::vector<Seed>& seeds, std::size_t count) {
    void* const shared = mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        return {0, -1};
    }
    auto* const passed = static_cast<volatile std::size_t*>(shared);
    const pid_t child = fork();
    if (child == 0) {
        for (std::size_t number = 0; number < count; ++number) {
            Run(InputAt(number, seeds));
            *passed = number + 1;
        }
        std::exit(0);  // with what sanitizers look for at the end
    }
    int status = -1;
    waitpid(child, &status, 0);
    return {*passed, status};
}

int Report(const std::vector<Seed>& seeds, std::size_t count, const Outcome& outcome) {
    if (outcome.status == 0) {
        std::cout << seeds.size() << " inputs and " << count - seeds.size()
                  << " made of them: all rules hold\n";
        return 0;
    }
    if (outcome.passed == count) {
        std::cerr << "all inputs passed, but their process has not ended well\n";
        return 1;
    }
    const std::string path = "failing-input-" + std::to_string(outcome.passed);
    std::ofstream(path, std::ios::binary) << InputAt(outcome.passed, seeds);
    const bool isSeed = outcome.passed < seeds.size();
    std::cerr << "input " << outcome.passed << " of " << count
              << (isSeed ? ", " + seeds[outcome.passed].path : std::string(", made of others"))
              << ", fails; it is written to " << path << '\n';
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    constexpr std::string_view kMutations = "--mutations=";
    std::size_t mutations = 0;
    std::vector<std::string> paths;
    for (const std::string& argument : std::vector<std::string>(argv + 1, argv + argc)) {
        if (argument.compare(0, kMutations.size(), kMutations) == 0) {
            mutations = std::strtoul(argument.c_str() + kMutations.size(), nullptr, 10);
        } else {
            paths.push_back(argument);
        }
    }
    const std::vector<Seed> seeds = Load(paths);
    if (seeds.empty()) {
        std::cerr << "no inputs\n";
        return 2;
    }
    const std::size_t count = seeds.size() + mutations;
    return Report(seeds, count, RunAll(seeds, count));
}
