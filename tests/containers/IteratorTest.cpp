// The cursor and list interfaces, over small collections that implement them.

#include "containers/List.h"
#include "containers/Vector.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;

class CNumbersIterator : public I2WaysIterator<int> {
public:
    explicit CNumbersIterator(std::vector<int>& walked) : numbers(walked) {}

    void Reset() override { index = 0; }
    void Next() override { index += IsAtEnd() ? 0 : 1; }
    bool IsAtEnd() const override { return index >= numbers.size(); }
    const int& Get() const override { return numbers[index]; }
    int& Get() override { return numbers[index]; }
    void SetToLast() override { index = numbers.empty() ? 0 : numbers.size() - 1; }
    void Previous() override { index = index == 0 ? numbers.size() : index - 1; }

private:
    std::vector<int>& numbers;
    std::size_t index = 0;
};

class CNumbers : public IConstList<int>, public IConstValueVector<int> {
public:
    int GetCount() const override { return static_cast<int>(numbers.size()); }
    int GetValue(int index) const override { return numbers[static_cast<std::size_t>(index)]; }
    IConstIterator<int>* CreateIterator() const override { return new CNumbersIterator(numbers); }
    I2WaysIterator<int>* Create2WaysIterator() { return new CNumbersIterator(numbers); }

private:
    mutable std::vector<int> numbers{1, 2, 3};
};

TEST(IteratorTest, ListIsWalkedWithACursorOfTheCaller) {
    const CNumbers numbers;
    const IConstList<int>& list = numbers;
    int sum = 0;
    const std::unique_ptr<IConstIterator<int>> iterator(list.CreateIterator());
    for (; !iterator->IsAtEnd(); iterator->Next()) {
        sum += iterator->Get();
    }
    EXPECT_EQ(sum, 6);
    EXPECT_EQ(list.GetCount(), 3);
}

TEST(IteratorTest, TwoWaysCursorGoesBackToTheEndBeforeTheFirst) {
    CNumbers numbers;
    const std::unique_ptr<I2WaysIterator<int>> iterator(numbers.Create2WaysIterator());
    std::vector<int> met;
    for (iterator->SetToLast(); !iterator->IsAtEnd(); iterator->Previous()) {
        met.push_back(iterator->Get());
    }
    EXPECT_EQ(met, (std::vector<int>{3, 2, 1}));
    ICursor& cursor = *iterator;
    cursor.Reset();
    iterator->Get() = 7;
    EXPECT_EQ(numbers.GetValue(0), 7);
}

TEST(IteratorTest, OneCountServesACollectionOfTwoFaces) {
    const CNumbers numbers;
    const IConstCount& count = numbers; // one base, however many faces
    EXPECT_EQ(count.GetCount(), 3);
}

} // namespace
