#include "containers/DynamicVector.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

using Bytes = TDynamicVector<char, CExpGrowthStrategy, TMemoryCopier<char>>;
using Steps = TDynamicVector<int, CStepGrowthStrategy, TMemoryCopier<int>>;

/// A vector whose capacity is exactly `capacity`, a multiple of 4.
Bytes BytesOfCapacity(int capacity) {
    Bytes bytes;
    bytes.SetSize(capacity);
    EXPECT_EQ(bytes.GetCapacity(), capacity);
    return bytes;
}

TEST(ExpGrowthStrategyTest, GrowthByOneTakesHalfMoreRoundedToFour) {
    Bytes bytes = BytesOfCapacity(4);
    bytes.SetSize(5); // max(5, 4 * 3 / 2) = 6, rounded up to 8
    EXPECT_EQ(bytes.GetCapacity(), 8);
    bytes.SetSize(9); // max(9, 12)
    EXPECT_EQ(bytes.GetCapacity(), 12);
    bytes.SetSize(13); // max(13, 18), rounded up
    EXPECT_EQ(bytes.GetCapacity(), 20);
}

TEST(ExpGrowthStrategyTest, GrowthByMuchTakesTheSizeRoundedToFour) {
    Bytes bytes = BytesOfCapacity(4);
    bytes.SetSize(101);
    EXPECT_EQ(bytes.GetCapacity(), 104);
}

TEST(ExpGrowthStrategyTest, ShrinkFrom100To70KeepsTheCapacity) {
    Bytes bytes = BytesOfCapacity(100);
    bytes.SetSize(70, true); // 70 >= 100 * 2 / 3 = 66
    EXPECT_EQ(bytes.GetSize(), 70);
    EXPECT_EQ(bytes.GetCapacity(), 100);
    bytes.SetSize(66, true);
    EXPECT_EQ(bytes.GetCapacity(), 100);
    bytes.SetSize(65, true);
    EXPECT_EQ(bytes.GetCapacity(), 68);
}

TEST(ExpGrowthStrategyTest, ShrinkFrom100To60TakesACapacityOf60) {
    Bytes bytes = BytesOfCapacity(100);
    bytes.SetSize(60, true);
    EXPECT_EQ(bytes.GetCapacity(), 60);
}

TEST(ExpGrowthStrategyTest, CapacityFallsOnlyOnRequest) {
    Bytes bytes = BytesOfCapacity(100);
    bytes.SetSize(0);
    EXPECT_EQ(bytes.GetCapacity(), 100);
    bytes.SetSize(0, true);
    EXPECT_EQ(bytes.GetCapacity(), 0);
    EXPECT_EQ(bytes.GetData(), nullptr);
}

TEST(ExpGrowthStrategyTest, LargestSizesDoNotOverflow) {
    const CExpGrowthStrategy growth;
    EXPECT_EQ(growth.GetTarget(highest, 4, false), highest);
    EXPECT_EQ(growth.GetTarget(highest, highest - 1, false), highest);
    EXPECT_EQ(growth.GetTarget(highest - 7, 2000000000, false), highest);
    EXPECT_EQ(growth.GetTarget(highest, highest, true), highest);
}

TEST(ExpGrowthStrategyTest, AppendingReallocatesSeldom) {
    Bytes bytes;
    int reallocations = 0;
    int capacity = 0;
    for (int count = 0; count < 100000; ++count) {
        bytes.Add('x');
        if (bytes.GetCapacity() != capacity) {
            capacity = bytes.GetCapacity();
            ++reallocations;
        }
    }
    EXPECT_LT(reallocations, 30); // log of 25000 to the base 1.5 is 25
}

TEST(StepGrowthStrategyTest, GrowthTakesAStepAtLeast) {
    Steps steps(10);
    steps.SetSize(1);
    EXPECT_EQ(steps.GetCapacity(), 10);
    steps.SetSize(11);
    EXPECT_EQ(steps.GetCapacity(), 20);
    steps.SetSize(55);
    EXPECT_EQ(steps.GetCapacity(), 55);
}

TEST(StepGrowthStrategyTest, ShrinkNeedsMoreThanAStepAndTheRequest) {
    Steps steps(10);
    steps.SetSize(55);
    steps.SetSize(45, true); // 45 is not below 55 - 10
    EXPECT_EQ(steps.GetCapacity(), 55);
    steps.SetSize(44);
    EXPECT_EQ(steps.GetCapacity(), 55);
    steps.SetSize(44, true);
    EXPECT_EQ(steps.GetCapacity(), 44);
}

TEST(StepGrowthStrategyTest, HostileStepsAndSizesAreSafe) {
    EXPECT_EQ(CStepGrowthStrategy(0).GetStep(), 1);
    EXPECT_EQ(CStepGrowthStrategy(lowest).GetStep(), 1);
    const CStepGrowthStrategy growth(highest);
    EXPECT_EQ(growth.GetTarget(5, 4, false), highest);
    EXPECT_EQ(growth.GetTarget(0, 4, true), 4);
}

TEST(DynamicVectorTest, NegativeSizesCountAsZero) {
    Bytes bytes = BytesOfCapacity(8);
    bytes.SetSize(-1);
    EXPECT_EQ(bytes.GetSize(), 0);
    bytes.SetSize(lowest, true);
    EXPECT_EQ(bytes.GetSize(), 0);
    EXPECT_EQ(bytes.GetCapacity(), 0);
    Steps steps(4);
    steps.SetSize(lowest, true);
    EXPECT_EQ(steps.GetSize(), 0);
}

TEST(DynamicVectorTest, ElementsSurviveGrowthAndShrink) {
    Steps steps(2);
    for (int number = 0; number < 100; ++number) {
        steps.Add(number);
    }
    steps.SetSize(50, true);
    ASSERT_EQ(steps.GetCapacity(), 50);
    for (int index = 0; index < 50; ++index) {
        EXPECT_EQ(steps[index], index);
    }
}

TEST(DynamicVectorTest, ElementsOfClassesAreCarriedOver) {
    TDynamicVector<std::string> texts;
    for (int number = 0; number < 20; ++number) {
        texts.Add("a text that lives on the heap " + std::to_string(number));
    }
    for (int index = 0; index < 20; ++index) {
        EXPECT_EQ(texts[index], "a text that lives on the heap " + std::to_string(index));
    }
}

TEST(DynamicVectorTest, NewElementsAreDefaultOnes) {
    TDynamicVector<int> numbers;
    numbers.SetSize(5);
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(numbers[index], 0);
    }
}

TEST(DynamicVectorTest, OwnElementCanBeAppended) {
    TDynamicVector<std::string> texts;
    texts.Add("a text that is too long to be kept in place");
    for (int count = 0; count < 10; ++count) {
        texts.Add(texts[0]); // reallocates while the argument lies in the old array
    }
    EXPECT_EQ(texts[10], "a text that is too long to be kept in place");
}

TEST(DynamicVectorTest, CopiesAreIndependent) {
    TDynamicVector<int> numbers;
    numbers.Add(1);
    numbers.Add(2);
    TDynamicVector<int> copy(numbers);
    copy[0] = 10;
    EXPECT_EQ(numbers[0], 1);
    numbers = copy;
    EXPECT_EQ(numbers[0], 10);
    const TDynamicVector<int> moved(std::move(copy));
    EXPECT_EQ(moved.GetSize(), 2);
    TDynamicVector<int>& alias = numbers;
    numbers = alias;
    EXPECT_EQ(numbers[1], 2);
    const TDynamicVector<int> empty;
    numbers = empty;
    EXPECT_EQ(numbers.GetSize(), 0);
}

TEST(NCDynamicVectorTest, ReallocationForgetsTheElements) {
    TNCDynamicVector<int, CExpGrowthStrategy> scratch;
    scratch.SetSize(4);
    scratch[0] = 7;
    scratch.SetSize(2);
    EXPECT_EQ(scratch[0], 7); // the array stayed
    scratch.SetSize(100);
    EXPECT_EQ(scratch[0], 0);
}

TEST(NCDynamicVectorTest, CopyingVectorSeenAsItsBaseStillKeepsItsElements) {
    TDynamicVector<int> numbers;
    numbers.Add(7);
    TNCDynamicVector<int, CExpGrowthStrategy>& base = numbers;
    base.SetSize(100);
    EXPECT_EQ(numbers[0], 7);
}

} // namespace
