#include "platform/Arena.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace ZQXML {
namespace {

// Small enough for a million single nodes, with growth so that large trees take few blocks.
constexpr std::size_t kFirstBlockSize = 256;
constexpr std::size_t kLargestBlockSize = 16384;
// Longer texts get a block of their own, so that they do not cut short the one being filled.
constexpr std::size_t kLargeText = kLargestBlockSize / 4;

// A name is looked for in this many slots only: a hostile set of names costs memory, not time.
constexpr std::uint32_t kProbes = 8;
constexpr std::uint32_t kFirstSlotCount = 16;
constexpr std::uint32_t kLargestSlotCount = 1024;

constexpr std::size_t RoundUp(std::size_t size) {
    constexpr std::size_t kAlignment = alignof(void*);
    return (size + kAlignment - 1) / kAlignment * kAlignment;
}

std::uint32_t HashName(std::string_view name) {
    std::uint32_t hash = 2166136261U;  // FNV-1a
    for (const char character : name) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
    }
    return hash;
}

void CheckSize(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
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

void* Arena::Allocate(std::size_t size) {
    const std::size_t rounded = RoundUp(size);
    if (FreeSpace() < rounded) {
        StartBlock(rounded);
    }
    return std::exchange(front_, front_ + rounded);
}

const char* Arena::StoreText(std::string_view text) {
    CheckSize(text);
    if (text.empty()) {
        return back_;
    }
    char* place = nullptr;
    if (text.size() > kLargeText) {
        place = NewBlock(text.size());
    } else {
        if (FreeSpace() < text.size()) {
            StartBlock(text.size());
        }
        place = back_ -= text.size();
    }
    std::memcpy(place, text.data(), text.size());
    return place;
}

const Name* Arena::StoreName(std::string_view name) {
    CheckSize(name);
    if (nameCount_ * 2 >= slotCount_ && slotCount_ < kLargestSlotCount) {
        GrowNameTable();
    }
    const std::uint32_t hash = HashName(name);
    for (std::uint32_t probe = 0; probe < kProbes; ++probe) {
        const Name*& slot = slots_[(hash + probe) % slotCount_];
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
    Name* const stored = ::new (memory) Name{static_cast<std::uint32_t>(name.size()), hash};
    std::copy(name.begin(), name.end(), reinterpret_cast<char*>(stored + 1));
    return stored;
}

void Arena::GrowNameTable() {
    const std::uint32_t count = slotCount_ == 0 ? kFirstSlotCount : slotCount_ * 4;
    const auto** const slots = static_cast<const Name**>(Allocate(count * sizeof(void*)));
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
