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

std::vector<Figure> Figures(const Measurements& measured) {
    constexpr Bound kAtMost = Bound::kAtMost;
    constexpr Bound kAtLeast = Bound::kAtLeast;
    const double round = measured.Round("ours", kMany);
    const double document = measured.Count("ours", kDocument, kMany);
    const HeapBySteps& heap = measured.HeapOf("ours");
    std::vector<Figure> figures = {
        {"round, ours / floor", round / measured.Round("floor", kMany), 2, kAtMost, 1.5, 1.25},
        {"round, pugixml / ours", measured.Round("pugixml", kMany) / round, 2, kAtLeast, 3, 4},
        {"round of 12 tracks, pugixml / ours",
         measured.Round("pugixml", kFew) / measured.Round("ours", kFew), 2, kAtLeast, 3},
        {"round, libxml2 / ours", measured.Round("libxml2", kMany) / round, 2, kAtLeast, 5},
        {"round with S and P, gSOAP text / ours",
         measured.Count("gsoap-text", kDocument, kMany) / document, 2, kAtLeast, 3},
        {"the same, gSOAP text with all members / ours",
         measured.Count("gsoap-text-full", kDocument, kMany) / document, 2, kAtLeast, 3},
        {"log text, ours / floor",
         measured.Count("ours", kText, kMany) / measured.Count("floor", kText, kMany), 2, kAtMost,
         1.5},
        {"allocations per track, W", heap.at("W").allocations, 2, kAtMost, 2},
        {"allocations per track, R", heap.at("R").allocations, 2, kAtMost, 3.1},
        {"allocations per track, T", heap.at("T").allocations, 2, kAtMost, 0.1},
        {"heap bytes of the tree per track, 64 bits", heap.at("W").heldInHeap, 0, kAtMost, 1100},
    };
    if (!measured.TargetHeap().empty()) {
        figures.push_back({"heap bytes of the tree per track, ARM",
                           measured.TargetHeap().at("W").heldInHeap, 0, kAtMost, 750});
    }
    figures.push_back({"round, per track, 100,000 tracks / 1,000",
                       measured.Round("ours", 100000) / 100 / round, 2, kAtMost, 1.3});
    figures.push_back({"UTF-8 to wide of 20 ASCII bytes, opening iconv / ours",
                       measured.Conversion("iconv") / measured.Conversion("ours"), 2, kAtLeast, 6});
    return figures;
}

}  // namespace

void PrintLimits(const Measurements& measured) {
    std::printf("### Limits\n\nRatios of instructions, 1,000 tracks unless said otherwise.\n\n");
    Table table({"figure", "limit", "stretch", "measured", ""});
    for (const Figure& figure : Figures(measured)) {
        table.Row({figure.what, Text(figure.bound, figure.limit),
                   figure.stretch > 0 ? Text(figure.bound, figure.stretch) : "",
                   figure.value >= 100 ? Whole(figure.value) : Fixed(figure.value, figure.decimals),
                   Verdict(figure)});
    }
    std::printf("\n");
}

}  // namespace bench
