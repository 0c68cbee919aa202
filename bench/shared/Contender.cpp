#include "bench/shared/Contender.h"

#include <algorithm>
#include <iterator>

namespace bench {
namespace {

struct Entry {
    const char* name;
    std::unique_ptr<Contender> (*make)();
};

constexpr Entry kContenders[] = {
    {"ours", MakeOurs},
    {"floor", MakeFloor},
    {"floor-bare", MakeFloorBare},
    {"floor-text", MakeFloorText},
#ifdef QUAVERA_BENCH_PUGIXML
    {"pugixml", MakePugixml},
    {"pugixml-lean", MakePugixmlLean},
#endif
#ifdef QUAVERA_BENCH_LIBXML2
    {"libxml2", MakeLibxml2},
#endif
#ifdef QUAVERA_BENCH_TINYXML2
    {"tinyxml2", MakeTinyxml2},
#endif
#ifdef QUAVERA_BENCH_PROTOBUF
    {"protobuf", MakeProtobuf},
    {"protobuf-arena", MakeProtobufArena},
    {"protobuf-kept", MakeProtobufKept},
#endif
#ifdef QUAVERA_BENCH_FLATBUFFERS
    {"flatbuffers", MakeFlatbuffers},
#endif
#ifdef QUAVERA_BENCH_GSOAP
    {"gsoap-text", MakeGsoapText},
    {"gsoap-text-full", MakeGsoapTextFull},
#endif
};

}  // namespace

std::vector<std::string> ContenderNames() {
    std::vector<std::string> names;
    std::transform(std::begin(kContenders), std::end(kContenders), std::back_inserter(names),
                   [](const Entry& entry) { return entry.name; });
    return names;
}

std::unique_ptr<Contender> MakeContender(const std::string& name) {
    const Entry* const found = std::find_if(std::begin(kContenders), std::end(kContenders),
                                            [&](const Entry& entry) { return entry.name == name; });
    return found == std::end(kContenders) ? nullptr : found->make();
}

}  // namespace bench
