#include "bench/report/Instructions.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "bench/report/Command.h"

namespace bench {

Counter Callgrind() {
    return {"valgrind --tool=callgrind --callgrind-out-file=/dev/null ", "Collected : "};
}

std::string Instructions::Key(const std::string& contender, const std::string& steps,
                              int trackCount, const std::string& step) {
    return contender + ' ' + steps + ' ' + std::to_string(trackCount) + ' ' + step;
}

void Instructions::Want(const std::string& contender, const std::string& steps, int trackCount,
                        const std::string& step) {
    std::string command = counter_.command;
    if (!step.empty()) {
        command += "'--toggle-collect=*" + step + "*' ";
    }
    command += program_ + ' ' + contender + ' ' + steps + ' ' + std::to_string(trackCount) + ' ';
    // Some thousand tracks in all are enough for an even count.
    constexpr int kTracks = 4000;
    const int fewer = 1;
    const int more = fewer + std::clamp(kTracks / std::max(trackCount, 1), 1, 200);
    cases_[Key(contender, steps, trackCount, step)] = {command, fewer, more, 0};
}

double Instructions::Collected(const Case& wanted, int repeats) const {
    const std::string output = OutputOf(wanted.command + std::to_string(repeats) + " 2>&1");
    const std::size_t at = output.find(counter_.label);
    if (at == std::string::npos) {
        std::fprintf(stderr, "quavera-bench-report: no count in:\n%s", output.c_str());
        std::exit(1);
    }
    return std::strtod(output.c_str() + at + counter_.label.size(), nullptr);
}

void Instructions::Count() {
    std::vector<Case*> waiting;
    for (auto& [key, wanted] : cases_) {
        waiting.push_back(&wanted);
    }
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t at = next++; at < waiting.size(); at = next++) {
            Case& wanted = *waiting[at];
            wanted.result = (Collected(wanted, wanted.more) - Collected(wanted, wanted.fewer)) /
                            (wanted.more - wanted.fewer);
        }
    };
    std::vector<std::thread> workers(std::max(1U, std::thread::hardware_concurrency()));
    for (std::thread& worker : workers) {
        worker = std::thread(work);
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
}

double Instructions::Of(const std::string& contender, const std::string& steps, int trackCount,
                        const std::string& step) const {
    return cases_.at(Key(contender, steps, trackCount, step)).result;
}

}  // namespace bench
