#include "bench/report/Limits.h"

#include <cstdio>
#include <string>
#include <vector>

#include "bench/report/Markdown.h"
#include "bench/shared/Cases.h"

namespace bench {
namespace {

enum class Bound { kAtMost, kAtLeast };

/// A figure that is held to a limit.
struct Figure {
    std::string what;
    double value;
    int decimals;
    Bound bound;
    double limit;
    double stretch = 0;  // 0: none
};

bool Holds(const Figure& figure, double limit) {
    return figure.bound == Bound::kAtMost ? figure.value <= limit : figure.value >= limit;
}

std::string Text(Bound bound, double limit) {
    return (bound == Bound::kAtMost ? "≤ " : "≥ ") +
           (limit >= 100 ? Whole(limit) : Fixed(limit, 2));
}

std::string Verdict(const Figure& figure) {
    if (!Holds(figure, figure.limit)) {
        return "**missed**";
    }
    return figure.stretch > 0 && Holds(figure, figure.stretch) ? "met, stretch too" : "met";
}

constexpr Bound kAtMost = Bound::kAtMost;
constexpr Bound kAtLeast = Bound::kAtLeast;

std::vector<Figure> FiguresOf(const Target& target) {
    const auto ratio = [&](const std::string& steps, const char* name, const char* other) {
        return target.Count(name, steps, kSome) / target.Count(other, steps, kSome);
    };
    return {
        {"whole way, pugixml / ours", ratio(kDocument, "pugixml", "ours"), 2, kAtLeast, 2.6},
        {"round, pugixml / ours", ratio(kRound, "pugixml", "ours"), 2, kAtLeast, 3.2},
        {"round, ours / floor", ratio(kRound, "ours", "floor"), 2, kAtMost, 1.55},
        {"log text, ours / floor", ratio(kText, "ours", "floor"), 2, kAtMost, 2},
        {"heap bytes of the tree per track, 1,000 tracks", target.HeapOfOurs().at("W").heldInHeap,
         0, kAtMost, 590},
        {"bytes of code, libquavera", target.CodeOfQuavera(), 0, kAtMost, 65536},
        {"bytes of code, libzqshared", target.CodeOfZqshared(), 0, kAtMost, 24576},
    };
}

std::vector<Figure> FiguresOf(const Measurements& measured) {
    const double round = measured.Round("ours", kMany);
    const double document = measured.Count("ours", kDocument, kMany);
    const HeapBySteps& heap = measured.HeapOf("ours");
    return {
        {"round, ours / floor", round / measured.Round("floor", kMany), 2, kAtMost, 1.32, 1.25},
        {"round, pugixml / ours", measured.Round("pugixml", kMany) / round, 2, kAtLeast, 3, 4},
        {"round of 12 tracks, pugixml / ours",
         measured.Round("pugixml", kFew) / measured.Round("ours", kFew), 2, kAtLeast, 3.2},
        {"round, libxml2 / ours", measured.Round("libxml2", kMany) / round, 2, kAtLeast, 5},
        {"whole way, ours / floor-text", document / measured.Count("floor-text", kDocument, kMany),
         2, kAtMost, 2.2},
        {"whole way, pugixml / ours", measured.Count("pugixml", kDocument, kMany) / document, 2,
         kAtLeast, 3},
        {"whole way of 12 tracks, pugixml / ours",
         measured.Count("pugixml", kDocument, kFew) / measured.Count("ours", kDocument, kFew), 2,
         kAtLeast, 2.5},
        {"whole way, ours / protobuf-arena",
         document / measured.Count("protobuf-arena", kDocument, kMany), 2, kAtMost, 1},
        {"whole way, gSOAP text / ours", measured.Count("gsoap-text", kDocument, kMany) / document,
         2, kAtLeast, 3},
        {"the same, gSOAP text with all members / ours",
         measured.Count("gsoap-text-full", kDocument, kMany) / document, 2, kAtLeast, 3},
        {"log text, ours / floor",
         measured.Count("ours", kText, kMany) / measured.Count("floor", kText, kMany), 2, kAtMost,
         1.42, 1.3},
        {"allocations per track, W", heap.at("W").allocations, 2, kAtMost, 2},
        {"allocations per track, R", heap.at("R").allocations, 2, kAtMost, 3.1},
        {"allocations per track, T", heap.at("T").allocations, 2, kAtMost, 0.1},
        {"heap bytes of the tree per track", heap.at("W").heldInHeap, 0, kAtMost, 950},
        {"round, per track, 100,000 tracks / 1,000", measured.Round("ours", 100000) / 100 / round,
         2, kAtMost, 1.3},
        {"UTF-8 to wide of 20 ASCII bytes, opening iconv / ours",
         measured.Conversion("iconv") / measured.Conversion("ours"), 2, kAtLeast, 6},
    };
}

void Print(const std::vector<Figure>& figures) {
    Table table({"figure", "limit", "stretch", "measured", ""});
    for (const Figure& figure : figures) {
        table.Row({figure.what, Text(figure.bound, figure.limit),
                   figure.stretch > 0 ? Text(figure.bound, figure.stretch) : "",
                   figure.value >= 100 ? Whole(figure.value) : Fixed(figure.value, figure.decimals),
                   Verdict(figure)});
    }
    std::printf("\n");
}

}  // namespace

void PrintLimits(const Target& target) {
    std::printf(
        "### Limits on the target\n\nRatios of instructions, 100 tracks unless said "
        "otherwise.\n\n");
    Print(FiguresOf(target));
}

void PrintLimits(const Measurements& measured) {
    std::printf(
        "### Limits on this machine\n\n"
        "Ratios of instructions, 1,000 tracks unless said otherwise.\n\n");
    Print(FiguresOf(measured));
}

}  // namespace bench
