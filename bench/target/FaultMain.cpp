// Leaves a block of instructions in the middle, many times: for the test of the counter of
// instructions.

#include <csetjmp>
#include <csignal>
#include <cstdio>

namespace {

constexpr int kFaults = 1000;

sigjmp_buf behind;

void Continue(int /*signal*/) {
    siglongjmp(behind, 1);
}

/// The load faults: what stands behind it is not done.
void Fault() {
    asm volatile(
        "ldr r0, [%0]\n\t"
        "add r0, r0, #1\n\t"
        "add r0, r0, #1\n\t"
        "add r0, r0, #1\n\t"
        :
        : "r"(0)
        : "r0", "memory");
}

}  // namespace

int main() {
    if (std::signal(SIGSEGV, Continue) == SIG_ERR) {
        return 1;
    }
    // Not in a register, which a jump back may restore.
    volatile int faults = 0;
    if (sigsetjmp(behind, 1) != 0) {
        faults = faults + 1;
    }
    if (faults < kFaults) {
        Fault();
    }
    std::printf("%d faults\n", faults);
    return faults == kFaults ? 0 : 1;
}
