#include "core/RefCountItem.h"

#include <barrier>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

/// A stored number that counts the living, with the `Get` of a holder.
class CTracked {
public:
    CTracked(int ownNumber, int& livingCount) : number(ownNumber), living(livingCount) { ++living; }
    ~CTracked() { --living; }
    CTracked(const CTracked&) = delete;
    CTracked& operator=(const CTracked&) = delete;

    const int* Get() const { return &number; }
    int number;

private:
    int& living;
};

class CText {
public:
    explicit CText(const char* source) : text(source) {}
    const char* Get() const { return text.c_str(); }

private:
    std::string text;
};

// Not inlined: a compiler that sees through to the item warns of the uses that the count forbids.
template <class Item>
[[gnu::noinline]] IRefCountItem<const int&>* NewItem(int number, int& living) {
    return new Item(number, living);
}

template <class Item>
class RefCountItemTest : public ::testing::Test {};

using Items =
    ::testing::Types<RefCountItem<const int&, CTracked>, MTRefCountItem<const int&, CTracked>>;
TYPED_TEST_SUITE(RefCountItemTest, Items);

TYPED_TEST(RefCountItemTest, NewItemCountsOneAndItsReleaseDestroysIt) {
    int living = 0;
    IRefCountItem<const int&>* item = NewItem<TypeParam>(7, living);
    EXPECT_EQ(item->GetRefCount(), 1);
    EXPECT_EQ(living, 1);
    item->Release();
    EXPECT_EQ(living, 0);
}

TYPED_TEST(RefCountItemTest, CountOfTwoNeedsTwoReleases) {
    int living = 0;
    IRefCountItem<const int&>* item = NewItem<TypeParam>(7, living);
    item->AddRef();
    EXPECT_EQ(item->GetRefCount(), 2);
    item->Release();
    EXPECT_EQ(living, 1);
    EXPECT_EQ(item->GetRefCount(), 1);
    item->Release();
    EXPECT_EQ(living, 0);
}

TYPED_TEST(RefCountItemTest, AllAccessorsGiveTheStoredValue) {
    int living = 0;
    IRefCountItem<const int&>* item = NewItem<TypeParam>(7, living);
    EXPECT_EQ(item->GetValue(), 7);
    EXPECT_EQ(&item->Get(), &item->GetValue());
    const int& converted = *item;
    EXPECT_EQ(&converted, &item->GetValue());
    item->Release();
}

TYPED_TEST(RefCountItemTest, PointersCountTheirReferences) {
    int living = 0;
    {
        RefCountItemPtr<const int&> first(NewItem<TypeParam>(7, living));
        {
            const RefCountItemPtr<const int&> second(first);
            EXPECT_EQ(first->GetRefCount(), 2);
            const auto third = RefCountItemPtr<const int&>::Share(first.Get());
            EXPECT_EQ(first->GetRefCount(), 3);
        }
        EXPECT_EQ(first->GetRefCount(), 1);
        RefCountItemPtr<const int&> moved(std::move(first));
        EXPECT_EQ(moved->GetRefCount(), 1);
        first = moved;
        EXPECT_EQ(moved->GetRefCount(), 2);
        first = RefCountItemPtr<const int&>(NewItem<TypeParam>(8, living));
        EXPECT_EQ(living, 2);
        EXPECT_EQ((*moved).GetValue(), 7);
    }
    EXPECT_EQ(living, 0);
}

TEST(RefCountItemPtrTest, NullIsHarmless) {
    RefCountItemPtr<double> none;
    const RefCountItemPtr<double> copy(none);
    EXPECT_FALSE(copy);
    EXPECT_FALSE(RefCountItemPtr<double>::Share(nullptr));
    none = copy;
}

TEST(RefCountItemValueTest, PlainTextAndObjectValuesAreSeenAsTheirType) {
    const RefCountItemPtr<double> number(new RefCountItem<double, double>(2.5));
    EXPECT_EQ(number->GetValue(), 2.5);
    const RefCountItemPtr<const char*> text(new RefCountItem<const char*, CText>("hello"));
    EXPECT_STREQ(text->GetValue(), "hello");
    using Item = RefCountItem<const std::string&, OwnedPtr<std::string>>;
    const RefCountItemPtr<const std::string&> object(new Item(new std::string("object")));
    EXPECT_EQ(object->GetValue(), "object");
}

TEST(MTRefCountItemTest, ExactlyOneOfTheReleasingThreadsDestroysTheItem) {
    constexpr int threadCount = 4;
    constexpr int rounds = 500;
    std::vector<IRefCountItem<const int&>*> items(rounds);
    int living = 0; // only the thread that destroys an item writes it, ordered by the count
    std::vector<int> livingOfItem(rounds, 0);
    for (std::size_t round = 0; round < items.size(); ++round) {
        items[round] = new MTRefCountItem<const int&, CTracked>(1, livingOfItem[round]);
        for (int reference = 1; reference < threadCount; ++reference) {
            items[round]->AddRef();
        }
        living += livingOfItem[round];
    }
    EXPECT_EQ(living, rounds);
    std::barrier start(threadCount);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (IRefCountItem<const int&>* item : items) {
                item->AddRef();
                item->Release();
                item->Release();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(livingOfItem, std::vector<int>(rounds, 0));
}

} // namespace
