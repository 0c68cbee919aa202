// A plugin of the emulator that counts the instructions of the program under it:
//
//   qemu-arm -plugin libquavera-count.so -d plugin PROGRAM...
//
// says "instructions: 12345" on standard error when the program ends. It runs in the emulator, so
// it is built for the machine that builds, not for the target.
//
//   qemu-arm -plugin libquavera-count.so,laps=Step -d plugin PROGRAM...
//
// says also, for each of the program's functions whose symbol holds "Step", how many there were
// from its begin to the begin of the next such one: "1234 of _ZL10StepDecodev".
//
// What is counted is what single-stepping counts, each instruction that is begun: a conditional one
// counts also when its condition fails, and one that faults counts too. So each instruction of a
// block adds its own one. Adding a block's length at its begin would cost less, but counts too much
// where a fault leaves the block in the middle.

#include <array>
#include <cinttypes>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>

// The emulator's interface for plugins, in the version that Debian 12's emulator has. Its header is
// not packaged.
extern "C" {

using PluginId = std::uint64_t;
struct Block;
struct Instruction;

constexpr int kAddToWord = 0;
constexpr int kNoRegisters = 0;

std::size_t qemu_plugin_tb_n_insns(const Block* block);
Instruction* qemu_plugin_tb_get_insn(const Block* block, std::size_t index);
void qemu_plugin_register_vcpu_tb_trans_cb(PluginId id, void (*call)(PluginId, Block*));
void qemu_plugin_register_vcpu_insn_exec_inline(Instruction* instruction, int operation, void* word,
                                                std::uint64_t value);
void qemu_plugin_register_vcpu_insn_exec_cb(Instruction* instruction, void (*call)(unsigned, void*),
                                            int registers, void* argument);
const char* qemu_plugin_insn_symbol(const Instruction* instruction);
void qemu_plugin_register_atexit_cb(PluginId id, void (*call)(PluginId, void*), void* argument);
void qemu_plugin_outs(const char* text);

// What the emulator looks for in a plugin.
extern const int qemu_plugin_version;
const int qemu_plugin_version = 1;
int qemu_plugin_install(PluginId id, const void* emulator, int argumentCount, char** arguments);

}  // extern "C"

namespace {

// Of one thread: more than one would lose counts.
std::uint64_t instructions = 0;

// What the symbols of functions that begin a lap hold; empty without laps.
std::string lapMark;
// By symbols. The map's items stay where they are.
std::map<std::string, std::uint64_t> laps;
std::uint64_t* lap = nullptr;
std::uint64_t lapBegin = 0;

void EndLap() {
    if (lap != nullptr) {
        *lap += instructions - lapBegin;
    }
}

void BeginLap(unsigned /*processor*/, void* next) {
    EndLap();
    lap = static_cast<std::uint64_t*>(next);
    lapBegin = instructions;
}

void CountLap(Instruction* instruction) {
    const char* const symbol = qemu_plugin_insn_symbol(instruction);
    if (symbol != nullptr && std::string(symbol).find(lapMark) != std::string::npos) {
        qemu_plugin_register_vcpu_insn_exec_cb(instruction, BeginLap, kNoRegisters, &laps[symbol]);
    }
}

void CountBlock(PluginId /*id*/, Block* block) {
    const std::size_t count = qemu_plugin_tb_n_insns(block);
    for (std::size_t at = 0; at < count; ++at) {
        Instruction* const instruction = qemu_plugin_tb_get_insn(block, at);
        if (!lapMark.empty()) {
            CountLap(instruction);
        }
        qemu_plugin_register_vcpu_insn_exec_inline(instruction, kAddToWord, &instructions, 1);
    }
}

void PrintCount(PluginId /*id*/, void* /*argument*/) {
    EndLap();
    for (const auto& [symbol, count] : laps) {
        qemu_plugin_outs((std::to_string(count) + " of " + symbol + '\n').c_str());
    }
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "instructions: %" PRIu64 "\n", instructions);
    qemu_plugin_outs(text.data());
}

}  // namespace

int qemu_plugin_install(PluginId id, const void* /*emulator*/, int argumentCount,
                        char** arguments) {
    const std::string option = "laps=";
    if (argumentCount == 1 && option.compare(0, option.size(), arguments[0], option.size()) == 0) {
        lapMark = arguments[0] + option.size();
    } else if (argumentCount != 0) {
        return 1;
    }
    qemu_plugin_register_vcpu_tb_trans_cb(id, CountBlock);
    qemu_plugin_register_atexit_cb(id, PrintCount, nullptr);
    return 0;
}
