#include "platform/AutoCom.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace {

/// Counts what is done to it; it outlives its references.
struct Counted {
    void Release() {
        ++released;
        if (log != nullptr) {
            *log += name;
        }
    }
    int Answer() const { return 42; }

    char name = '?';
    std::string* log = nullptr;
    int released = 0;
};

using Pointer = zq::auto_com<Counted>;

static_assert(!std::is_copy_constructible_v<Pointer> && !std::is_copy_assignable_v<Pointer>);
static_assert(std::is_nothrow_move_constructible_v<Pointer>);
static_assert(std::is_nothrow_move_assignable_v<Pointer>);
static_assert(!std::is_convertible_v<Counted*, Pointer>, "taking over a reference is explicit");
static_assert(std::is_convertible_v<std::nullptr_t, Pointer>);
static_assert(!std::is_convertible_v<Pointer, bool>);

TEST(AutoCom, DefaultHoldsNothing) {
    const Pointer pointer;
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_FALSE(pointer);
}

TEST(AutoCom, NullHoldsNothing) {
    const Pointer fromNull = nullptr;
    const Pointer fromNullObject(static_cast<Counted*>(nullptr));
    EXPECT_FALSE(fromNull);
    EXPECT_FALSE(fromNullObject);
}

TEST(AutoCom, TakesOverOneReferenceAndReleasesItOnce) {
    Counted object;
    {
        const Pointer pointer(&object);
        EXPECT_EQ(pointer.get(), &object);
        EXPECT_TRUE(pointer);
        EXPECT_EQ(pointer->Answer(), 42);
        EXPECT_EQ(object.released, 0);
    }
    EXPECT_EQ(object.released, 1);
}

/// Looks at its owner while it is released.
struct Observer {
    void Release() { wasOwned = owner->get() == this; }

    const zq::auto_com<Observer>* owner = nullptr;
    bool wasOwned = false;
};

TEST(AutoCom, OwnsItsObjectUntilThatIsReleased) {
    Observer object;
    {
        const zq::auto_com<Observer> pointer(&object);
        object.owner = &pointer;
    }
    EXPECT_TRUE(object.wasOwned);
}

TEST(AutoCom, MoveConstructionHandsTheReferenceOn) {
    Counted object;
    {
        Pointer first(&object);
        const Pointer second(std::move(first));
        EXPECT_EQ(first.get(), nullptr);  // NOLINT(*-use-after-move,*.Move): empty by contract
        EXPECT_EQ(second.get(), &object);
        EXPECT_EQ(object.released, 0);
    }
    EXPECT_EQ(object.released, 1);
}

TEST(AutoCom, MoveAssignmentReleasesTheOldObjectAtOnce) {
    Counted oldObject;
    Counted newObject;
    {
        Pointer target(&oldObject);
        Pointer source(&newObject);
        target = std::move(source);
        EXPECT_EQ(oldObject.released, 1);
        EXPECT_EQ(newObject.released, 0);
        EXPECT_EQ(target.get(), &newObject);
        EXPECT_EQ(source.get(), nullptr);  // NOLINT(*-use-after-move,*.Move): empty by contract
    }
    EXPECT_EQ(oldObject.released, 1);
    EXPECT_EQ(newObject.released, 1);
}

TEST(AutoCom, AssigningNullReleases) {
    Counted object;
    Pointer pointer(&object);
    pointer = nullptr;
    EXPECT_EQ(object.released, 1);
    EXPECT_FALSE(pointer);
}

TEST(AutoCom, SelfMoveKeepsTheObject) {
    Counted object;
    {
        Pointer pointer(&object);
        Pointer& same = pointer;
        pointer = std::move(same);
        EXPECT_EQ(pointer.get(), &object);
        EXPECT_EQ(object.released, 0);
    }
    EXPECT_EQ(object.released, 1);
}

TEST(AutoCom, SwapExchangesWithoutReleasing) {
    Counted first;
    Counted second;
    Pointer left(&first);
    Pointer right(&second);
    left.swap(right);
    EXPECT_EQ(left.get(), &second);
    EXPECT_EQ(right.get(), &first);
    EXPECT_EQ(first.released + second.released, 0);
}

TEST(AutoCom, ReleasesInReverseOrderOfConstruction) {
    std::string log;
    Counted first{'1', &log};
    Counted second{'2', &log};
    Counted third{'3', &log};
    {
        const Pointer one(&first);
        const Pointer two(&second);
        const Pointer three(&third);
    }
    EXPECT_EQ(log, "321");
}

/// An object that looks, while it is being released, at the pointer that releases it.
struct Watcher {
    void Release() { wasEmpty = pointer->get() == nullptr; }

    zq::auto_com<Watcher>* pointer = nullptr;
    bool wasEmpty = false;
};

TEST(AutoCom, IsEmptyWhileTheOldObjectIsReleased) {
    Watcher object;
    zq::auto_com<Watcher> pointer(&object);
    object.pointer = &pointer;
    pointer = nullptr;
    EXPECT_TRUE(object.wasEmpty);
}

}  // namespace
