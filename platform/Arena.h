#ifndef QUAVERA_PLATFORM_ARENA_H_
#define QUAVERA_PLATFORM_ARENA_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ZQXML {

/// An element name in an arena; its characters follow it in memory.
struct Name {
    std::uint32_t size;
    std::uint32_t hash;

    std::string_view View() const { return {reinterpret_cast<const char*>(this + 1), size}; }
};

/// The memory of the elements that were made under one created node: blocks of growing size,
/// filled from both ends (elements and names from the front, texts from the back) and freed
/// together. It lives as long as somebody pins it; it is created with one pin.
///
/// Elements of one tree repeat a few names, so names are kept once where that is cheap to find out.
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
    void* Allocate(std::size_t size);
    /// A copy of `text`, which may hold any bytes and has at most 2^32 - 1 of them.
    const char* StoreText(std::string_view text);
    /// The arena's copy of `name`, shared with earlier uses of the same name where it is found.
    const Name* StoreName(std::string_view name);

    /// Links from elements of this arena to children in other arenas.
    std::size_t outwardLinks = 0;

 private:
    struct Block {
        Block* previous;
    };

    Arena(char* begin, char* end) : front_(begin), back_(end) {}
    ~Arena() = default;

    std::size_t FreeSpace() const { return static_cast<std::size_t>(back_ - front_); }
    char* NewBlock(std::size_t size);
    void StartBlock(std::size_t needed);
    Name* NewName(std::string_view name, std::uint32_t hash);
    void GrowNameTable();
    void Destroy();

    char* front_;
    char* back_;
    Block* blocks_ = nullptr;
    const Name** slots_ = nullptr;
    std::uint32_t slotCount_ = 0;
    std::uint32_t nameCount_ = 0;
    std::size_t nextBlockSize_ = 0;
    std::size_t pins_ = 1;
};

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_ARENA_H_
