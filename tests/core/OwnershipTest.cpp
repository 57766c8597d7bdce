#include "core/Ownership.h"

#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CThing {
public:
    CThing(int ownNumber, int& livingCount) : number(ownNumber), living(livingCount) { ++living; }
    ~CThing() { --living; }
    CThing(const CThing&) = delete;
    CThing& operator=(const CThing&) = delete;
    CThing* Clone() const { return new CThing(number, living); }

    int number;

private:
    int& living;
};

static_assert(!std::is_copy_constructible_v<TOwnership<CThing>>);
static_assert(!std::is_copy_assignable_v<TOwnership<CThing>>);
static_assert(kDontOwn == 0 && kOwn == 1);

TEST(OwnershipTest, StartsAsNullAndOwn) {
    TOwnership<CThing> holder;
    EXPECT_EQ(holder.Get(), nullptr);
    EXPECT_EQ(holder.GetOwnership(), kOwn);
}

TEST(OwnershipTest, DestructorDeletesOnlyWhatIsOwned) {
    int living = 0;
    CThing mine(1, living);
    {
        TOwnership<CThing> owning(new CThing(2, living), kOwn);
        TOwnership<CThing> borrowing(&mine, kDontOwn);
        EXPECT_EQ(living, 2);
    }
    EXPECT_EQ(living, 1);
}

TEST(OwnershipTest, SetDeletesTheOldObjectWhenOwnedAndAnother) {
    int living = 0;
    TOwnership<CThing> holder(new CThing(1, living), kOwn);
    holder.Set(new CThing(2, living), kOwn);
    EXPECT_EQ(living, 1);
    EXPECT_EQ(holder.Get()->number, 2);
    holder.Set(nullptr, kDontOwn);
    EXPECT_EQ(living, 0);
    EXPECT_EQ(holder.GetOwnership(), kDontOwn);
}

TEST(OwnershipTest, SetOfTheHeldPointerOnlyChangesTheFlag) {
    int living = 0;
    auto* thing = new CThing(1, living);
    TOwnership<CThing> holder(thing, kOwn);
    holder.Set(thing, kDontOwn);
    EXPECT_EQ(living, 1);
    holder.Set(nullptr, kOwn); // not owned any more: stays
    EXPECT_EQ(living, 1);
    delete thing;
}

TEST(OwnershipTest, ConstHolderGivesAConstObject) {
    int living = 0;
    const TOwnership<CThing> holder(new CThing(3, living), kOwn);
    static_assert(std::is_same_v<decltype(holder.Get()), const CThing*>);
    EXPECT_EQ(holder.Get()->number, 3);
}

TEST(OwnershipTest, CopyWithCloneOwnsAClone) {
    int living = 0;
    {
        TOwnershipWithClone<CThing> original(new CThing(1, living), kOwn);
        TOwnershipWithClone<CThing> copy(original);
        EXPECT_NE(copy.Get(), original.Get());
        EXPECT_EQ(copy.Get()->number, 1);
        EXPECT_EQ(copy.GetOwnership(), kOwn);
        EXPECT_EQ(living, 2);
    }
    EXPECT_EQ(living, 0);
}

TEST(OwnershipTest, WhatIsNotOwnedIsClonedTooAndTheCopyOwnsIt) {
    int living = 0;
    CThing mine(5, living);
    {
        TOwnershipWithClone<CThing> original(&mine, kDontOwn);
        TOwnershipWithClone<CThing> copy(original);
        EXPECT_NE(copy.Get(), &mine);
        EXPECT_EQ(copy.GetOwnership(), kOwn);
        EXPECT_EQ(living, 2);
    }
    EXPECT_EQ(living, 1);
}

TEST(OwnershipTest, AssignmentWithCloneReplacesAndFreesTheOld) {
    int living = 0;
    TOwnershipWithClone<CThing> target(new CThing(1, living), kOwn);
    const TOwnershipWithClone<CThing> source(new CThing(2, living), kOwn);
    target = source;
    EXPECT_EQ(target.Get()->number, 2);
    EXPECT_EQ(living, 2);
    TOwnershipWithClone<CThing>& alias = target;
    const CThing* before = target.Get();
    target = alias;
    EXPECT_EQ(target.Get(), before);
}

TEST(OwnershipTest, NullStaysNullInCopies) {
    int living = 0;
    const TOwnershipWithClone<CThing> none;
    const TOwnershipWithClone<CThing> copy(none);
    EXPECT_EQ(copy.Get(), nullptr);
    TOwnershipWithClone<CThing> target(new CThing(1, living), kOwn);
    target = none;
    EXPECT_EQ(target.Get(), nullptr);
    EXPECT_EQ(living, 0);
}

} // namespace
