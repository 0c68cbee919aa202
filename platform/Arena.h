#ifndef QUAVERA_PLATFORM_ARENA_H_
#define QUAVERA_PLATFORM_ARENA_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "base/SmallText.h"

namespace ZQXML {

/// An element name in an arena. Its characters follow it in memory, between those of an end tag:
/// "</Name>".
struct Name {
    /// Whether XML text can carry it as it is. Found out by the first one who writes it.
    enum class Fitness : std::uint8_t { kUnknown, kFit, kUnfit };

    /// There is memory for this many bytes behind the name's characters, so that these can be
    /// copied in whole steps, without looking at their number.
    static constexpr std::size_t kStep = 16;
    static constexpr std::string_view kBegin = "</";
    static constexpr std::string_view kEnd = ">";

    std::uint32_t size;
    std::uint32_t hash;
    Name* successor;  // the name that was used after it the last time; null at first
    mutable Fitness fitness;

    std::string_view View() const { return {Memory() + kBegin.size(), size}; }
    std::string_view EndTag() const { return {Memory(), kBegin.size() + size + kEnd.size()}; }

 private:
    const char* Memory() const { return reinterpret_cast<const char*>(this + 1); }
};

/// The empty name, which is kept in no arena.
struct EmptyName {
    Name name;
    char endTag[4];
};
static_assert(offsetof(EmptyName, endTag) == sizeof(Name));
inline constexpr EmptyName kEmptyName = {{0, 0, nullptr, Name::Fitness::kUnfit}, "</>"};
inline constexpr const Name* kNoName = &kEmptyName.name;

/// The memory of the elements that were made under one created node: blocks of growing size,
/// filled from both ends (elements and names from the front, texts from the back, which saves 5 %
/// of a tree's heap and 2 % of ToXML) and freed together. It lives as long as somebody pins it; it
/// is created with one pin.
///
/// Elements of one tree repeat a few names, so names are kept once where that is cheap to find out:
/// saves 27 % of a tree's heap.
class Arena {
 public:
    /// A new arena, which is itself the head of its first block.
    static Arena* Create();

    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    void Pin() { ++pins_; }
    /// Frees the arena, with all that lies in it, at the last pin.
    void Unpin() {
        if (--pins_ == 0) {
            Destroy();
        }
    }
    bool IsPinnedOnce() const { return pins_ == 1; }

    /// Uninitialised memory for an object without a destructor to run.
    void* Allocate(std::size_t size) {
        const std::size_t rounded = RoundUp(size);
        if (FreeSpace() < rounded) {
            StartBlock(rounded);
        }
        return std::exchange(front_, front_ + rounded);
    }
    /// Uninitialised memory for a text; throws `std::bad_alloc` for more than 2^32 - 1 bytes.
    char* AllocateText(std::size_t size) {
        return size <= FreeSpace() ? back_ -= size : AllocateElsewhere(size);
    }
    /// Memory for an object and a text.
    struct Pair {
        void* object;
        char* text;
    };
    /// Whether there is room for both without another block. Then `TakePair` gives them.
    bool HasRoom(std::size_t size, std::size_t textSize) const {
        return RoundUp(size) + textSize <= FreeSpace();
    }
    Pair TakePair(std::size_t size, std::size_t textSize) {
        return {std::exchange(front_, front_ + RoundUp(size)), back_ -= textSize};
    }
    /// Both, or an exception.
    Pair AllocatePair(std::size_t size, std::size_t textSize) {
        return HasRoom(size, textSize) ? TakePair(size, textSize)
                                       : AllocatePairElsewhere(size, textSize);
    }
    /// Takes back the memory of the text that was allocated last, if it can.
    void TakeBack(const char* place, std::size_t size) {
        if (place == back_) {
            back_ += size;
        }
    }
    /// A copy of `text`, which may hold any bytes.
    const char* StoreText(std::string_view text) {
        char* const place = AllocateText(text.size());
        quavera::CopyText(text, place);
        return place;
    }
    /// The arena's copy of `name`, shared with earlier uses of the same name where it is found.
    const Name* StoreName(std::string_view name) {
        const Name* const expected = ExpectedName(name);
        return expected == nullptr ? FindOrAddName(name) : expected;
    }
    /// The same, or null if it takes a search. Records repeat not only their names but the order of
    /// them, so that a comparison mostly does: saves 56 % of ToXML.
    const Name* ExpectedName(std::string_view name) {
        const Name* const expected = NextName();
        return expected != nullptr && quavera::IsSameText(expected->View(), name) ? UseNextName()
                                                                                  : nullptr;
    }
    /// The name that is expected next; null where there is none.
    const Name* NextName() const {
        return latestName_ == nullptr ? nullptr : latestName_->successor;
    }
    /// Says that it is it, and returns it.
    const Name* UseNextName() { return latestName_ = latestName_->successor; }

    /// The same by a search; throws `std::bad_alloc` for more than 2^32 - 1 bytes, unread.
    const Name* FindOrAddName(std::string_view name);

    /// Links from elements of this arena to children in other arenas.
    std::size_t outwardLinks = 0;

 private:
    struct Block {
        Block* previous;
    };

    // A longer text that finds no room gets a block of its own, so that it does not cut short the
    // one being filled. Saves a quarter of the heap of a tree with texts of 5,000 bytes.
    static constexpr std::size_t kLargeText = 4096;

    static constexpr std::size_t RoundUp(std::size_t size) {
        constexpr std::size_t kAlignment = alignof(void*);
        return (size + kAlignment - 1) / kAlignment * kAlignment;
    }

    Arena(char* begin, char* end) : front_(begin), back_(end) {}
    ~Arena() = default;

    std::size_t FreeSpace() const { return static_cast<std::size_t>(back_ - front_); }
    char* NewBlock(std::size_t size);
    void StartBlock(std::size_t needed);
    char* AllocateElsewhere(std::size_t size);
    Pair AllocatePairElsewhere(std::size_t size, std::size_t textSize);
    Name* NewName(std::string_view name, std::uint32_t hash);
    std::uint32_t SlotOf(std::uint32_t hash, std::uint32_t probe) const {
        return ((hash >> slotShift_) + probe) & lastSlot_;
    }
    void GrowNameTable();
    void PutInSlot(Name* name);
    void Destroy();

    char* front_;
    char* back_;
    Block* blocks_ = nullptr;
    Name** slots_ = nullptr;
    Name* latestName_ = nullptr;   // the one that was stored or found last
    std::uint32_t lastSlot_ = 0;   // their number is a power of two
    std::uint32_t slotShift_ = 0;  // of a hash, to a slot
    std::uint32_t nameCount_ = 0;  // in the slots
    std::uint32_t fullAt_ = 0;     // with that many names the slots have to become more
    std::size_t nextBlockSize_ = 0;
    std::size_t pins_ = 1;
};

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_ARENA_H_
