#include "bench/report/TargetTables.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "bench/report/Contenders.h"
#include "bench/report/Markdown.h"
#include "bench/shared/Cases.h"

namespace bench {
namespace {

/// Cells of the table, empty where a contender does not have the steps.
class Cells {
 public:
    Cells(const Target& target, const std::string& name) : target_(target), cells_({name}) {}

    /// Instructions per track.
    void Add(const Names& names, const std::string& steps, int trackCount) {
        cells_.push_back(
            Has(names) ? Whole(target_.Count(cells_[0], steps, trackCount) / trackCount) : "");
    }

    /// Their multiple of another contender's.
    void AddRatio(const Names& names, const std::string& steps, const std::string& other) {
        cells_.push_back(Has(names) ? Fixed(target_.Count(cells_[0], steps, kSome) /
                                                target_.Count(other, steps, kSome),
                                            2)
                                    : "");
    }

    const std::vector<std::string>& Get() const { return cells_; }

 private:
    bool Has(const Names& names) const {
        return std::find(names.begin(), names.end(), cells_[0]) != names.end();
    }

    const Target& target_;
    std::vector<std::string> cells_;
};

}  // namespace

void PrintTarget(const Target& target) {
    std::printf("### The target: 32-bit ARM, the library as it ships\n\n");
    Table table({"", "round of 12", "round of 100", "/ floor", "/ ours", "S", "P, F",
                 "whole way of 12", "of 100", "/ floor-text", "/ ours", "T of 12", "T of 100",
                 "/ floor"});
    for (const std::string& name : Both(kRoundOnTarget, kTextFloors)) {
        Cells cells(target, name);
        cells.Add(kRoundOnTarget, kRound, kFew);
        cells.Add(kRoundOnTarget, kRound, kSome);
        cells.AddRatio(kRoundOnTarget, kRound, "floor");
        cells.AddRatio(kRoundOnTarget, kRound, "ours");
        cells.Add(kStepsOnTarget, kSave, kSome);
        cells.Add(kStepsOnTarget, kParse, kSome);
        cells.Add(kDocumentOnTarget, kDocument, kFew);
        cells.Add(kDocumentOnTarget, kDocument, kSome);
        cells.AddRatio(kDocumentOnTarget, kDocument, "floor-text");
        cells.AddRatio(kDocumentOnTarget, kDocument, "ours");
        cells.Add(kTextOnTarget, kText, kFew);
        cells.Add(kTextOnTarget, kText, kSome);
        cells.AddRatio(kTextOnTarget, kText, "floor");
        table.Row(cells.Get());
    }
    std::printf(
        "\nInstructions per track, ratios and single steps of 100 tracks. The library is compiled\n"
        "for size, what it is held against with -O2.\n\n");
}

void PrintGrowthOnTarget(const Target& target) {
    std::vector<std::string> heads = {"tracks, on the target"};
    heads.insert(heads.end(), kRoundOnTarget.begin(), kRoundOnTarget.end());
    Table table(heads);
    for (const int trackCount : kGrowthOnTarget) {
        std::vector<std::string> row = {Whole(trackCount)};
        for (const std::string& name : kRoundOnTarget) {
            row.push_back(Whole(target.Count(name, kRound, trackCount) / trackCount));
        }
        table.Row(row);
    }
    std::printf("\n");
}

}  // namespace bench
