// Runs all benchmarks and prints the table, as Markdown, on standard output. The programs that it
// runs stand beside it.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "bench/report/Command.h"
#include "bench/report/Instructions.h"
#include "bench/report/Profile.h"

namespace {

using bench::Instructions;
using bench::OutputOf;

constexpr int kMany = 1000;
constexpr int kFew = 12;
constexpr int kTextSize = 20;
const std::vector<int> kGrowth = {kFew, 100, kMany, 10000, 100000};

const std::string kRound = "WRFD";
const std::string kDocument = "WSFPRFD";
const std::vector<std::string> kTrees = {"ours", "pugixml", "pugixml-lean", "libxml2", "tinyxml2"};
const std::vector<std::string> kInHeap = {"ours", "floor", "pugixml", "libxml2", "tinyxml2"};
const std::vector<std::string> kGsoap = {"gsoap-text", "gsoap-text-full"};
const std::vector<std::string> kFloors = {"floor", "floor-bare"};
const std::vector<std::string> kRoundSteps = {"StepWrite", "StepRead", "StepFree", "StepDrop"};
const std::vector<std::string> kTextSteps = {"StepSave", "StepParse"};

/// What a row of `quavera-bench-heap` says, per track.
struct Heap {
    double allocations = 0;
    double requested = 0;
    double held = 0;
    double heldInHeap = 0;
};

using HeapBySteps = std::map<std::string, Heap>;

void Say(const char* text) {
    std::fprintf(stderr, "quavera-bench-report: %s\n", text);
}

/// A table in Markdown.
class Table {
 public:
    explicit Table(const std::vector<std::string>& heads) {
        Row(heads);
        Row(std::vector<std::string>(heads.size(), "---"));
    }
    void Row(const std::vector<std::string>& cells) {
        for (const std::string& cell : cells) {
            std::printf("| %s ", cell.c_str());
        }
        std::printf("|\n");
    }
};

std::string Fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

/// In groups of three digits.
std::string Whole(double value) {
    std::string text = Fixed(value, 0);
    for (std::size_t at = text.size(); at > 3; at -= 3) {
        text.insert(at - 3, ",");
    }
    return text;
}

/// A figure that is held to a limit.
struct Figure {
    std::string what;
    double value;
    int decimals;
    bool isAtMost;
    double limit;
    double stretch;  // 0: none
};

void PrintFigures(const std::vector<Figure>& figures) {
    Table table({"figure", "limit", "stretch", "measured", ""});
    for (const Figure& figure : figures) {
        const auto holds = [&figure](double limit) {
            return figure.isAtMost ? figure.value <= limit : figure.value >= limit;
        };
        const std::string sign = figure.isAtMost ? "≤ " : "≥ ";
        const auto bound = [&](double limit) {
            return sign + (limit >= 100 ? Whole(limit) : Fixed(limit, 2));
        };
        const bool hasStretch = figure.stretch > 0;
        table.Row({figure.what, bound(figure.limit), hasStretch ? bound(figure.stretch) : "",
                   figure.value >= 100 ? Whole(figure.value) : Fixed(figure.value, figure.decimals),
                   !holds(figure.limit)                  ? "**missed**"
                   : hasStretch && holds(figure.stretch) ? "met, stretch too"
                                                         : "met"});
    }
    std::printf("\n");
}

class Report {
 public:
    explicit Report(const std::string& folder)
        : folder_(folder), instructions_(folder + "/quavera-bench-run") {}

    void Measure(const std::string& targetHeap) {
        Say("comparing what the contenders make");
        for (const int trackCount : {0, kFew, kMany}) {
            OutputOf(folder_ + "/quavera-bench-run check " + std::to_string(trackCount));
        }
        Say("counting allocations");
        for (const std::string& name : kInHeap) {
            heap_[name] = HeapOf(folder_ + "/quavera-bench-heap", name);
        }
        if (!targetHeap.empty()) {
            targetHeap_ = HeapOf(targetHeap, "ours");
        }
        Say("counting instructions");
        WantInstructions();
        instructions_.Count();
        Say("profiling");
        for (const std::string steps : {kRound.c_str(), kDocument.c_str(), "T"}) {
            profiles_[steps] =
                bench::ProfileOf(folder_ + "/quavera-bench-run", "ours", steps, kMany);
        }
        Say("taking times");
        TakeTimes();
    }

    void Print() const {
        PrintMachine();
        PrintLimits();
        PrintRounds();
        PrintDocuments();
        PrintTexts();
        PrintHeap();
        PrintGrowth();
        PrintConversion();
        PrintProfile("round", kRound);
        PrintProfile("round with the tree's text", kDocument);
        PrintProfile("log text", "T");
    }

 private:
    static HeapBySteps HeapOf(const std::string& program, const std::string& name) {
        HeapBySteps heap;
        std::istringstream rows(OutputOf(program + ' ' + name + ' ' + std::to_string(kMany)));
        std::string step;
        Heap row;
        while (rows >> step >> row.allocations >> row.requested >> row.held >> row.heldInHeap) {
            heap[step] = row;
        }
        return heap;
    }

    void WantInstructions() {
        std::vector<std::string> all = kTrees;
        all.insert(all.end(), kFloors.begin(), kFloors.end());
        for (const std::string& name : all) {
            instructions_.Want(name, kRound, kMany);
            instructions_.Want(name, kRound, kFew);
        }
        for (const std::string& name : kTrees) {
            for (const std::string& step : kRoundSteps) {
                instructions_.Want(name, kRound, kMany, step);
            }
            for (const std::string& step : kTextSteps) {
                instructions_.Want(name, kDocument, kMany, step);
            }
            instructions_.Want(name, kDocument, kMany);
        }
        for (const std::string& name : kGsoap) {
            instructions_.Want(name, kDocument, kMany);
        }
        for (const std::string name : {"ours", "floor", "floor-bare"}) {
            instructions_.Want(name, "T", kMany);
        }
        for (const int trackCount : kGrowth) {
            instructions_.Want("ours", kRound, trackCount);
        }
        instructions_.Want("convert", "ours", kTextSize);
        instructions_.Want("convert", "iconv", kTextSize);
    }

    void TakeTimes() {
        const std::string output =
            OutputOf(folder_ +
                     "/quavera-bench --benchmark_enable_random_interleaving=true "
                     "--benchmark_repetitions=9 --benchmark_min_time=0.03 "
                     "--benchmark_report_aggregates_only=true --benchmark_format=csv 2>/dev/null");
        std::istringstream rows(output);
        const std::string mark = "_median\",";
        for (std::string row; std::getline(rows, row);) {
            const std::size_t end = row.find(mark);
            if (end == std::string::npos || row[0] != '"') {
                continue;
            }
            // Behind the name: iterations, real time, processor time.
            std::size_t at = row.find(',', end + mark.size());
            at = row.find(',', at + 1);
            times_[row.substr(1, end - 1)] = std::strtod(row.c_str() + at + 1, nullptr);
        }
    }

    double Round(const std::string& name, int trackCount) const {
        return instructions_.Of(name, kRound, trackCount);
    }
    /// Processor time in microseconds.
    double Time(const std::string& what, const std::string& name, int trackCount) const {
        return times_.at(what + '/' + name + '/' + std::to_string(trackCount));
    }

    static void PrintMachine() {
        std::ifstream info("/proc/cpuinfo");
        std::string model = "unknown processor";
        for (std::string line; std::getline(info, line);) {
            if (line.compare(0, 10, "model name") == 0) {
                model = line.substr(line.find(':') + 2);
                break;
            }
        }
        std::string valgrind = OutputOf("valgrind --version");
        valgrind.pop_back();
        std::printf("Measured on %s, %s, with %s; to compare with: %s.\n\n", model.c_str(),
                    QUAVERA_BENCH_BUILD, valgrind.c_str(), QUAVERA_BENCH_PEER_VERSIONS);
    }

    void PrintLimits() const {
        const double ours = Round("ours", kMany);
        const double document = instructions_.Of("ours", kDocument, kMany);
        const HeapBySteps& heap = heap_.at("ours");
        std::vector<Figure> figures = {
            {"round, ours / floor", ours / Round("floor", kMany), 2, true, 1.5, 1.25},
            {"round, pugixml / ours", Round("pugixml", kMany) / ours, 2, false, 3, 4},
            {"round of 12 tracks, pugixml / ours", Round("pugixml", kFew) / Round("ours", kFew), 2,
             false, 3, 0},
            {"round, libxml2 / ours", Round("libxml2", kMany) / ours, 2, false, 5, 0},
            {"round with S and P, gSOAP text / ours",
             instructions_.Of("gsoap-text", kDocument, kMany) / document, 2, false, 3, 0},
            {"the same, gSOAP text with all members / ours",
             instructions_.Of("gsoap-text-full", kDocument, kMany) / document, 2, false, 3, 0},
            {"log text, ours / floor",
             instructions_.Of("ours", "T", kMany) / instructions_.Of("floor", "T", kMany), 2, true,
             1.5, 0},
            {"allocations per track, W", heap.at("W").allocations, 2, true, 2, 0},
            {"allocations per track, R", heap.at("R").allocations, 2, true, 3.1, 0},
            {"allocations per track, T", heap.at("T").allocations, 2, true, 0.1, 0},
            {"heap bytes of the tree per track, 64 bits", heap.at("W").heldInHeap, 0, true, 1100,
             0},
        };
        if (!targetHeap_.empty()) {
            figures.push_back({"heap bytes of the tree per track, ARM",
                               targetHeap_.at("W").heldInHeap, 0, true, 750, 0});
        }
        figures.push_back({"round, per track, 100,000 tracks / 1,000",
                           Round("ours", 100000) / 100 / ours, 2, true, 1.3, 0});
        figures.push_back({"UTF-8 to wide of 20 ASCII bytes, opening iconv / ours",
                           instructions_.Of("convert", "iconv", kTextSize) /
                               instructions_.Of("convert", "ours", kTextSize),
                           2, false, 6, 0});
        std::printf(
            "### Limits\n\nRatios of instructions, 1,000 tracks unless said otherwise.\n\n");
        PrintFigures(figures);
    }

    void PrintRounds() const {
        std::printf("### Round: W, R, F and the record's drop\n\n");
        Table table({"", "W", "R", "F", "drop", "round", "/ floor", "/ ours", "12 tracks",
                     "12: / ours", "µs", "µs / ours", "12: µs"});
        std::vector<std::string> names = kTrees;
        names.insert(names.end(), kFloors.begin(), kFloors.end());
        for (const std::string& name : names) {
            std::vector<std::string> row = {name};
            const bool isTree = std::find(kTrees.begin(), kTrees.end(), name) != kTrees.end();
            for (const std::string& step : kRoundSteps) {
                row.push_back(isTree ? Whole(instructions_.Of(name, kRound, kMany, step) / kMany)
                                     : "");
            }
            const double round = Round(name, kMany);
            const double time = Time("round", name, kMany);
            row.push_back(Whole(round / kMany));
            row.push_back(Fixed(round / Round("floor", kMany), 2));
            row.push_back(Fixed(round / Round("ours", kMany), 2));
            row.push_back(Whole(Round(name, kFew) / kFew));
            row.push_back(Fixed(Round(name, kFew) / Round("ours", kFew), 2));
            row.push_back(Fixed(time, 0));
            row.push_back(Fixed(time / Time("round", "ours", kMany), 2));
            row.push_back(Fixed(Time("round", name, kFew), 1));
            table.Row(row);
        }
        std::printf("\nInstructions per track; µs for the whole album.\n\n");
    }

    void PrintDocuments() const {
        std::printf("### Round with the tree's text: W, S, F, P, R, F and the record's drop\n\n");
        Table table({"", "S", "P", "all", "/ ours", "µs", "µs / ours", "12: µs"});
        std::vector<std::string> names = kTrees;
        names.insert(names.end(), kGsoap.begin(), kGsoap.end());
        for (const std::string& name : names) {
            const bool isTree = name.find("gsoap") == std::string::npos;
            std::vector<std::string> row = {name};
            for (const std::string& step : kTextSteps) {
                row.push_back(isTree ? Whole(instructions_.Of(name, kDocument, kMany, step) / kMany)
                                     : "");
            }
            const double all = instructions_.Of(name, kDocument, kMany);
            const double time = Time("document", name, kMany);
            row.push_back(Whole(all / kMany));
            row.push_back(Fixed(all / instructions_.Of("ours", kDocument, kMany), 2));
            row.push_back(Fixed(time, 0));
            row.push_back(Fixed(time / Time("document", "ours", kMany), 2));
            row.push_back(Fixed(Time("document", name, kFew), 1));
            table.Row(row);
        }
        std::printf("\nInstructions per track; µs for the whole album.\n\n");
    }

    void PrintTexts() const {
        std::printf("### Log text\n\n");
        Table table({"", "T", "/ floor", "µs", "µs / floor"});
        for (const std::string name : {"ours", "floor", "floor-bare"}) {
            const double text = instructions_.Of(name, "T", kMany);
            const double time = Time("text", name, kMany);
            table.Row({name, Whole(text / kMany),
                       Fixed(text / instructions_.Of("floor", "T", kMany), 2), Fixed(time, 0),
                       Fixed(time / Time("text", "floor", kMany), 2)});
        }
        std::printf("\nInstructions per track; µs for the whole album.\n\n");
    }

    void PrintHeap() const {
        std::printf("### Heap, per track\n\n");
        Table table({"", "allocations W", "R", "T", "bytes asked for W", "R", "T",
                     "tree: bytes asked for", "tree: bytes in the heap"});
        for (const std::string& name : kInHeap) {
            AddHeap(name, heap_.at(name), &table);
        }
        if (!targetHeap_.empty()) {
            AddHeap("ours, ARM", targetHeap_, &table);
        }
        std::printf("\n");
    }

    static void AddHeap(const std::string& name, const HeapBySteps& heap, Table* table) {
        const Heap& write = heap.at("W");
        const Heap& read = heap.at("R");
        const Heap& text = heap.at("T");
        table->Row({name, Fixed(write.allocations, 2), Fixed(read.allocations, 2),
                    Fixed(text.allocations, 2), Whole(write.requested), Whole(read.requested),
                    Whole(text.requested), Whole(write.held), Whole(write.heldInHeap)});
    }

    void PrintGrowth() const {
        std::printf("### Round per track, by the album's size\n\n");
        Table table({"tracks", "instructions", "/ 1,000 tracks", "ns", "/ 1,000 tracks"});
        const double instructions = Round("ours", kMany) / kMany;
        const double time = Time("round", "ours", kMany) / kMany;
        for (const int trackCount : kGrowth) {
            const double count = Round("ours", trackCount) / trackCount;
            const double taken = Time("round", "ours", trackCount) / trackCount;
            table.Row({Whole(trackCount), Whole(count), Fixed(count / instructions, 2),
                       Whole(taken * 1000), Fixed(taken / time, 2)});
        }
        std::printf("\n");
    }

    void PrintConversion() const {
        std::printf("### UTF-8 to wide, 20 ASCII bytes\n\n");
        Table table({"", "instructions", "/ ours", "ns", "ns / ours"});
        for (const std::string way : {"ours", "iconv"}) {
            const double count = instructions_.Of("convert", way, kTextSize);
            const double time = times_.at("convert/" + way);
            table.Row({way == "iconv" ? "opening iconv" : way, Whole(count),
                       Fixed(count / instructions_.Of("convert", "ours", kTextSize), 2),
                       Whole(time * 1000), Fixed(time / times_.at("convert/ours"), 2)});
        }
    }

    void PrintProfile(const char* what, const std::string& steps) const {
        constexpr std::size_t kFunctions = 20;
        constexpr double kLeastPercent = 0.1;
        const std::vector<bench::Share>& shares = profiles_.at(steps);
        const double all = instructions_.Of("ours", steps, kMany) / kMany;
        std::map<std::string, double> libraries;
        for (const bench::Share& share : shares) {
            libraries[share.library] += share.percent;
        }
        std::printf("\n### Where the instructions of ours go: %s\n\n", what);
        Table byLibrary({"library", "per track", "%"});
        for (const auto& [library, percent] : libraries) {
            if (percent < kLeastPercent) {
                continue;
            }
            byLibrary.Row({library, Whole(all * percent / 100), Fixed(percent, 1)});
        }
        std::printf("\n");
        Table byFunction({"function, itself", "library", "per track", "%"});
        for (std::size_t at = 0; at < std::min(kFunctions, shares.size()); ++at) {
            if (shares[at].percent < kLeastPercent) {
                break;
            }
            byFunction.Row({'`' + shares[at].function + '`', shares[at].library,
                            Whole(all * shares[at].percent / 100), Fixed(shares[at].percent, 1)});
        }
    }

    std::string folder_;
    Instructions instructions_;
    std::map<std::string, std::vector<bench::Share>> profiles_;
    std::map<std::string, HeapBySteps> heap_;
    HeapBySteps targetHeap_;
    std::map<std::string, double> times_;
};

}  // namespace

int main(int count, char** arguments) {
    if (count > 2) {
        std::fputs(
            "usage: quavera-bench-report [TARGET-HEAP]\n"
            "TARGET-HEAP: the command that runs the target's quavera-bench-heap\n",
            stderr);
        return 2;
    }
    const std::string self = arguments[0];
    const std::size_t slash = self.rfind('/');
    Report report(slash == std::string::npos ? "." : self.substr(0, slash));
    report.Measure(count == 2 ? arguments[1] : "");
    report.Print();
    return 0;
}
