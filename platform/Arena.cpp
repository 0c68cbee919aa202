#include "platform/Arena.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace ZQXML {
namespace {

// Small enough for a million single nodes, with growth so that large trees take few blocks.
constexpr std::size_t kFirstBlockSize = 256;
constexpr std::size_t kLargestBlockSize = 16384;

// A name is looked for in this many slots only: a hostile set of names costs memory, not time.
constexpr std::uint32_t kProbes = 8;
constexpr std::uint32_t kFirstSlotCount = 16;
constexpr std::uint32_t kLargestSlotCount = 1024;
constexpr std::uint32_t kNever = std::numeric_limits<std::uint32_t>::max();

/// Of the name's size and ends only: they tell the names of records apart.
std::uint32_t HashName(std::string_view name) {
    constexpr std::size_t kEnd = sizeof(std::uint32_t);
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    if (name.size() >= kEnd) {
        first = zq::LoadWord<std::uint32_t>(name.data());
        last = zq::LoadWord<std::uint32_t>(name.data() + name.size() - kEnd);
    } else if (!name.empty()) {
        first = static_cast<unsigned char>(name.front());
        last = static_cast<unsigned char>(name.back());
    }
    // Fibonacci hashing: the upper bits of the product depend on all of the factor's.
    constexpr std::uint32_t kGolden = 0x9E3779B9;
    const std::uint32_t mixed =
        (first ^ (last * kGolden)) + static_cast<std::uint32_t>(name.size());
    return (mixed * kGolden) >> 16;
}

void CheckSize(std::size_t size) {
    if (size > std::numeric_limits<std::uint32_t>::max()) {
        throw std::bad_alloc();
    }
}

}  // namespace

Arena* Arena::Create() {
    char* const memory = static_cast<char*>(::operator new(kFirstBlockSize));
    auto* const arena =
        ::new (memory) Arena(memory + RoundUp(sizeof(Arena)), memory + kFirstBlockSize);
    arena->nextBlockSize_ = kFirstBlockSize * 2;
    return arena;
}

void Arena::Destroy() {
    for (Block* block = blocks_; block != nullptr;) {
        Block* const previous = block->previous;
        ::operator delete(block);
        block = previous;
    }
    this->~Arena();
    ::operator delete(this);
}

char* Arena::NewBlock(std::size_t size) {
    constexpr std::size_t kHeader = RoundUp(sizeof(Block));
    char* const memory = static_cast<char*>(::operator new(kHeader + size));
    blocks_ = ::new (memory) Block{blocks_};
    return memory + kHeader;
}

void Arena::StartBlock(std::size_t needed) {
    const std::size_t size = std::max(needed, nextBlockSize_);
    front_ = NewBlock(size);
    back_ = front_ + size;
    nextBlockSize_ = std::min(nextBlockSize_ * 2, kLargestBlockSize);
}

char* Arena::AllocateElsewhere(std::size_t size) {
    CheckSize(size);
    if (size > kLargeText) {
        return NewBlock(size);
    }
    StartBlock(size);
    return back_ -= size;
}

const Name* Arena::FindOrAddName(std::string_view name) {
    if (nameCount_ == fullAt_) {
        GrowNameTable();
    }
    const std::uint32_t hash = HashName(name);
    Name* found = nullptr;
    for (std::uint32_t probe = 0; found == nullptr && probe < kProbes; ++probe) {
        Name*& slot = slots_[(hash + probe) & (slotCount_ - 1)];
        if (slot == nullptr) {
            found = slot = NewName(name, hash);
            ++nameCount_;
        } else if (slot->hash == hash && zq::IsSameText(slot->View(), name)) {
            found = slot;
        }
    }
    if (found == nullptr) {
        found = NewName(name, hash);
    }
    if (latestName_ != nullptr) {
        latestName_->successor = found;
    }
    return latestName_ = found;
}

inline Name* Arena::NewName(std::string_view name, std::uint32_t hash) {
    CheckSize(name.size());
    void* const memory = Allocate(sizeof(Name) + name.size());
    Name* const stored =
        ::new (memory) Name{static_cast<std::uint32_t>(name.size()), hash, nullptr};
    zq::CopyText(name, reinterpret_cast<char*>(stored + 1));
    return stored;
}

[[gnu::noinline]] void Arena::GrowNameTable() {
    const std::uint32_t count = slotCount_ == 0 ? kFirstSlotCount : slotCount_ * 4;
    auto** const slots = static_cast<Name**>(Allocate(count * sizeof(void*)));
    std::fill_n(slots, count, nullptr);
    for (std::uint32_t old = 0; old < slotCount_; ++old) {
        if (slots_[old] == nullptr) {
            continue;
        }
        std::uint32_t probe = 0;
        while (probe < kProbes && slots[(slots_[old]->hash + probe) & (count - 1)] != nullptr) {
            ++probe;
        }
        if (probe < kProbes) {
            slots[(slots_[old]->hash + probe) & (count - 1)] = slots_[old];
        }
    }
    slots_ = slots;
    slotCount_ = count;
    fullAt_ = count < kLargestSlotCount ? count / 4 * 3 : kNever;
}

}  // namespace ZQXML
