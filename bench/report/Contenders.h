#ifndef QUAVERA_BENCH_REPORT_CONTENDERS_H_
#define QUAVERA_BENCH_REPORT_CONTENDERS_H_

#include <string>
#include <vector>

// The names of the contenders and of their steps' functions, in the order of the tables.

namespace bench {

using Names = std::vector<std::string>;

inline const Names kTrees = {"ours", "pugixml", "pugixml-lean", "libxml2", "tinyxml2"};
inline const Names kMessages = {"protobuf", "protobuf-arena", "protobuf-kept", "flatbuffers"};
inline const Names kFloors = {"floor", "floor-bare"};
inline const Names kGsoap = {"gsoap-text", "gsoap-text-full"};
inline const Names kTextFloors = {"floor-text"};
inline const Names kInHeap = {"ours", "floor", "pugixml", "libxml2", "tinyxml2"};
inline const Names kWithText = {"ours", "floor", "floor-bare"};

// By the album's size.
inline const Names kGrowing = {"ours", "floor", "pugixml", "libxml2", "tinyxml2"};
// On the target, where most of the others are not built.
inline const Names kRoundOnTarget = {"ours", "pugixml", "floor"};
inline const Names kDocumentOnTarget = {"ours", "pugixml", "floor-text"};
inline const Names kStepsOnTarget = {"ours", "pugixml"};
inline const Names kTextOnTarget = {"ours", "floor"};

inline const Names kRoundSteps = {"StepWrite", "StepRead", "StepFree", "StepDrop"};
inline const Names kTextSteps = {"StepSave", "StepParse"};

inline Names Both(Names first, const Names& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Whether the contender is followed up to an album of that size: the largest takes the slow ones
/// minutes. docs/performance.md tells what that leaves out.
inline bool GrowsTo(int trackCount, const std::string& name) {
    constexpr int kMostOfSlow = 10000;
    return trackCount <= kMostOfSlow || (name != "libxml2" && name != "tinyxml2");
}

/// Those that are counted step by step.
inline const Names kWithSteps = Both(kTrees, kMessages);
/// Those that have the whole way, by a text or other bytes.
inline const Names kDocuments = Both(Both(kWithSteps, kGsoap), kTextFloors);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_CONTENDERS_H_
