#include "bench/report/Tables.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

#include "bench/report/Contenders.h"
#include "bench/report/Markdown.h"
#include "bench/report/TargetTables.h"
#include "bench/shared/Cases.h"

namespace bench {
namespace {

using Row = std::vector<std::string>;

constexpr char kUnits[] = "\nInstructions per track; µs for the whole album.\n\n";

bool Has(const Names& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Instructions per track of single steps, for contenders that have these.
void AddSteps(const Measurements& measured, const std::string& name, const std::string& steps,
              const Names& functions, Row* row) {
    for (const std::string& function : functions) {
        row->push_back(Has(kWithSteps, name)
                           ? Whole(measured.Count(name, steps, kMany, function) / kMany)
                           : "");
    }
}

/// The times of both albums, the first one also as a multiple of ours.
void AddTimes(const Measurements& measured, const std::string& name, const std::string& what,
              Row* row) {
    const double time = measured.Time(what, name, kMany);
    row->push_back(Fixed(time, 0));
    row->push_back(Fixed(time / measured.Time(what, "ours", kMany), 2));
    row->push_back(Fixed(measured.Time(what, name, kFew), 1));
}

void AddHeap(const std::string& name, const HeapBySteps& heap, Table* table) {
    const Heap& write = heap.at("W");
    const Heap& read = heap.at("R");
    const Heap& text = heap.at("T");
    table->Row({name, Fixed(write.allocations, 2), Fixed(read.allocations, 2),
                Fixed(text.allocations, 2), Whole(write.requested), Whole(read.requested),
                Whole(text.requested), Whole(write.held), Whole(write.heldInHeap)});
}

constexpr double kLeastPercent = 0.1;  // less is not listed

void PrintLibraries(const std::vector<Share>& shares, double all) {
    std::map<std::string, double> libraries;
    for (const Share& share : shares) {
        libraries[share.library] += share.percent;
    }
    Table table({"library", "per track", "%"});
    for (const auto& [library, percent] : libraries) {
        if (percent >= kLeastPercent) {
            table.Row({library, Whole(all * percent / 100), Fixed(percent, 1)});
        }
    }
}

void PrintFunctions(const std::vector<Share>& shares, double all) {
    constexpr std::size_t kMost = 20;
    Table table({"function, itself", "library", "per track", "%"});
    for (std::size_t at = 0; at < std::min(kMost, shares.size()); ++at) {
        const Share& share = shares[at];
        if (share.percent >= kLeastPercent) {
            table.Row({'`' + share.function + '`', share.library, Whole(all * share.percent / 100),
                       Fixed(share.percent, 1)});
        }
    }
}

}  // namespace

void PrintRounds(const Measurements& measured) {
    std::printf("### Round: W, R, F and the record's drop\n\n");
    Table table({"", "W", "R", "F", "drop", "round", "/ floor", "/ ours", "12 tracks", "12: / ours",
                 "µs", "µs / ours", "12: µs"});
    for (const std::string& name : Both(kTrees, kFloors)) {
        Row row = {name};
        AddSteps(measured, name, kRound, kRoundSteps, &row);
        const double round = measured.Round(name, kMany);
        const double few = measured.Round(name, kFew);
        row.push_back(Whole(round / kMany));
        row.push_back(Fixed(round / measured.Round("floor", kMany), 2));
        row.push_back(Fixed(round / measured.Round("ours", kMany), 2));
        row.push_back(Whole(few / kFew));
        row.push_back(Fixed(few / measured.Round("ours", kFew), 2));
        AddTimes(measured, name, "round", &row);
        table.Row(row);
    }
    std::printf("%s", kUnits);
}

void PrintDocuments(const Measurements& measured) {
    std::printf("### Whole way, with the tree's text: W, S, F, P, R, F and the record's drop\n\n");
    Table table({"", "S", "P", "all", "/ floor-text", "/ ours", "12 tracks", "12: / ours", "µs",
                 "µs / ours", "12: µs"});
    for (const std::string& name : kDocuments) {
        Row row = {name};
        AddSteps(measured, name, kDocument, kTextSteps, &row);
        const double all = measured.Count(name, kDocument, kMany);
        row.push_back(Whole(all / kMany));
        row.push_back(Fixed(all / measured.Count("floor-text", kDocument, kMany), 2));
        row.push_back(Fixed(all / measured.Count("ours", kDocument, kMany), 2));
        const double few = measured.Count(name, kDocument, kFew);
        row.push_back(Whole(few / kFew));
        row.push_back(Fixed(few / measured.Count("ours", kDocument, kFew), 2));
        AddTimes(measured, name, "document", &row);
        table.Row(row);
    }
    std::printf("%s", kUnits);
}

void PrintTexts(const Measurements& measured) {
    std::printf("### Log text\n\n");
    Table table({"", "T", "/ floor", "µs", "µs / floor"});
    for (const std::string& name : kWithText) {
        const double text = measured.Count(name, kText, kMany);
        const double time = measured.Time("text", name, kMany);
        table.Row({name, Whole(text / kMany),
                   Fixed(text / measured.Count("floor", kText, kMany), 2), Fixed(time, 0),
                   Fixed(time / measured.Time("text", "floor", kMany), 2)});
    }
    std::printf("%s", kUnits);
}

void PrintHeap(const Measurements& measured) {
    std::printf("### Heap, per track\n\n");
    Table table({"", "allocations W", "R", "T", "bytes asked for W", "R", "T",
                 "tree: bytes asked for", "tree: bytes in the heap"});
    for (const std::string& name : kInHeap) {
        AddHeap(name, measured.HeapOf(name), &table);
    }
    AddHeap("ours, ARM", measured.OnTarget().HeapOfOurs(), &table);
    std::printf("\n");
}

void PrintGrowth(const Measurements& measured) {
    std::printf(
        "### Round per track, by the album's size\n\n"
        "![Instructions of the round per track, by the album's size](growth.svg)\n\n");
    Row heads = {"tracks", "ns of ours", "/ 1,000 tracks", "instructions of ours",
                 "/ 1,000 tracks"};
    heads.insert(heads.end(), kGrowing.begin() + 1, kGrowing.end());
    Table table(heads);
    const double instructions = measured.Round("ours", kMany) / kMany;
    const double time = measured.Time("round", "ours", kMany) / kMany;
    for (const int trackCount : kGrowth) {
        const double count = measured.Round("ours", trackCount) / trackCount;
        const double taken = measured.Time("round", "ours", trackCount) / trackCount;
        Row row = {Whole(trackCount), Whole(taken * 1000), Fixed(taken / time, 2), Whole(count),
                   Fixed(count / instructions, 2)};
        for (std::size_t at = 1; at < kGrowing.size(); ++at) {
            const std::string& name = kGrowing[at];
            row.push_back(GrowsTo(trackCount, name)
                              ? Whole(measured.Round(name, trackCount) / trackCount)
                              : "");
        }
        table.Row(row);
    }
    std::printf("\n");
    PrintGrowthOnTarget(measured.OnTarget());
}

void PrintConversion(const Measurements& measured) {
    std::printf("### UTF-8 to wide, 20 ASCII bytes\n\n");
    Table table({"", "instructions", "/ ours", "ns", "ns / ours"});
    for (const std::string way : {"ours", "iconv"}) {
        const double count = measured.Conversion(way);
        const double time = measured.ConversionTime(way);
        table.Row({way == "iconv" ? "opening iconv" : way, Whole(count),
                   Fixed(count / measured.Conversion("ours"), 2), Whole(time * 1000),
                   Fixed(time / measured.ConversionTime("ours"), 2)});
    }
}

void PrintProfile(const Measurements& measured, const char* what, const std::string& steps) {
    const std::vector<Share>& shares = measured.ProfileOfOurs(steps);
    const double all = measured.Count("ours", steps, kMany) / kMany;
    std::printf("\n### Where the instructions of ours go: %s\n\n", what);
    PrintLibraries(shares, all);
    std::printf("\n");
    PrintFunctions(shares, all);
}

}  // namespace bench
