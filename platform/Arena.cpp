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

std::uint32_t HashName(std::string_view name) {
    std::uint32_t hash = 2166136261U;  // FNV-1a
    for (const char character : name) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
    }
    return hash;
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

void Arena::FindOrAddName(std::string_view name) {
    CheckSize(name.size());
    Name* const found = Lookup(name);
    if (latestName_ != nullptr) {
        latestName_->successor = found;
    }
    latestName_ = found;
}

Name* Arena::Lookup(std::string_view name) {
    if (nameCount_ * 2 >= slotCount_ && slotCount_ < kLargestSlotCount) {
        GrowNameTable();
    }
    const std::uint32_t hash = HashName(name);
    for (std::uint32_t probe = 0; probe < kProbes; ++probe) {
        Name*& slot = slots_[(hash + probe) % slotCount_];
        if (slot == nullptr) {
            slot = NewName(name, hash);
            ++nameCount_;
            return slot;
        }
        if (slot->hash == hash && slot->View() == name) {
            return slot;
        }
    }
    return NewName(name, hash);
}

Name* Arena::NewName(std::string_view name, std::uint32_t hash) {
    void* const memory = Allocate(sizeof(Name) + name.size());
    Name* const stored =
        ::new (memory) Name{static_cast<std::uint32_t>(name.size()), hash, nullptr};
    std::copy(name.begin(), name.end(), reinterpret_cast<char*>(stored + 1));
    return stored;
}

void Arena::GrowNameTable() {
    const std::uint32_t count = slotCount_ == 0 ? kFirstSlotCount : slotCount_ * 4;
    auto** const slots = static_cast<Name**>(Allocate(count * sizeof(void*)));
    std::fill_n(slots, count, nullptr);
    for (std::uint32_t old = 0; old < slotCount_; ++old) {
        if (slots_[old] == nullptr) {
            continue;
        }
        std::uint32_t probe = 0;
        while (probe < kProbes && slots[(slots_[old]->hash + probe) % count] != nullptr) {
            ++probe;
        }
        if (probe < kProbes) {
            slots[(slots_[old]->hash + probe) % count] = slots_[old];
        }
    }
    slots_ = slots;
    slotCount_ = count;
}

}  // namespace ZQXML
