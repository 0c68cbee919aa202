#include "bench/report/Target.h"

#include <cstdlib>

#include "bench/report/Command.h"
#include "bench/report/Contenders.h"
#include "bench/shared/Cases.h"

namespace bench {
namespace {

/// The emulator with the plugin that counts.
Counter CounterOf(const std::string& emulator, const std::string& build) {
    return {emulator + " -plugin " + build + "/bench/libquavera-count.so -d plugin ",
            "instructions: "};
}

double CodeSize(const std::string& library) {
    const std::string size = OutputOf("arm-linux-gnueabihf-size --format=sysv " + library +
                                      " | awk '$1 == \".text\" { print $2 }'");
    return std::strtod(size.c_str(), nullptr);
}

}  // namespace

Target::Target(const std::string& sysroot, const std::string& build)
    : emulator_("qemu-arm -L " + sysroot),
      build_(build),
      instructions_(build + "/bench/quavera-bench-run", CounterOf(emulator_, build)) {
    for (const int trackCount : {kFew, kSome}) {
        for (const std::string& name : kRoundOnTarget) {
            instructions_.Want(name, kRound, trackCount);
        }
        for (const std::string& name : kDocumentOnTarget) {
            instructions_.Want(name, kDocument, trackCount);
        }
        for (const std::string& name : kTextOnTarget) {
            instructions_.Want(name, kText, trackCount);
        }
    }
    for (const std::string& name : kStepsOnTarget) {
        instructions_.Want(name, kSave, kSome);
        instructions_.Want(name, kParse, kSome);
    }
}

void Target::WantGrowth() {
    for (const std::string& name : kRoundOnTarget) {
        for (const int trackCount : kGrowthOnTarget) {
            instructions_.Want(name, kRound, trackCount);
        }
    }
}

void Target::Take() {
    for (const int trackCount : {0, kFew, kSome}) {
        OutputOf(emulator_ + ' ' + build_ + "/bench/quavera-bench-run check " +
                 std::to_string(trackCount));
    }
    heap_ = HeapOf(emulator_ + ' ' + build_ + "/bench/quavera-bench-heap", "ours");
    codeOfQuavera_ = CodeSize(build_ + "/libquavera.so");
    codeOfZqshared_ = CodeSize(build_ + "/platform/libzqshared.so");
    instructions_.Count();
}

}  // namespace bench
