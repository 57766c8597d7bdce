#include "math/LookupTable.h"

#include "math/Interpolators.h"

#include <gtest/gtest.h>

#include <limits>

namespace Vorin::Math {
namespace {

using Bins = TLookupTable<float, TNearestInterpolator<float, float>>;
using Line = TLookupTable<double, TLinearInterpolator<double, double>>;
using CSplineTable = TLookupTable<float, TConstrainedSplineInterpolator<float, float>>;

Line MakeLine() {
    Line table;
    table.SetRange(10.0, 14.0);
    table.SetCount(3);
    table.GetValues()[0] = 1.0;
    table.GetValues()[1] = 3.0;
    table.GetValues()[2] = -1.0;
    return table;
}

TEST(LookupTableTest, ScaleIsStepsPerUnit) {
    Bins table;
    table.SetRange(-1, 1);
    table.SetCount(151);
    EXPECT_EQ(table.GetScale(), 75.0F);
    EXPECT_EQ(table.GetMin(), -1.0F);
    EXPECT_EQ(table.GetMax(), 1.0F);
    EXPECT_EQ(table.GetCount(), 151);

    table.SetRange(0, 1);
    EXPECT_EQ(table.GetScale(), 150.0F);
    table.SetCount(11);
    EXPECT_EQ(table.GetScale(), 10.0F);
}

TEST(LookupTableTest, AnEmptyRangeKeepsTheScale) {
    Line table = MakeLine();
    table.SetRange(5.0, 5.0);
    EXPECT_EQ(table.GetScale(), 0.5);
    EXPECT_EQ(table.Evaluate(5.0), 1.0);
    EXPECT_EQ(table.Evaluate(7.0), 1.0);
}

TEST(LookupTableTest, AGivenScaleLastsUntilTheNextCountOrRange) {
    Line table = MakeLine();
    table.SetScale(0.25);
    EXPECT_EQ(table.GetScale(), 0.25);
    EXPECT_EQ(table.Evaluate(14.0), 3.0); // (14 - 10) * 0.25 = 1
    table.SetCount(3);
    EXPECT_EQ(table.GetScale(), 0.5);
}

TEST(LookupTableTest, EvaluatesAlongTheGrid) {
    const Line table = MakeLine();
    EXPECT_EQ(table.Evaluate(10.0), 1.0);
    EXPECT_EQ(table.Evaluate(11.0), 2.0);
    EXPECT_EQ(table.Evaluate(12.0), 3.0);
    EXPECT_EQ(table.Evaluate(13.5), 0.0);
    EXPECT_EQ(table.Evaluate(14.0), -1.0);
}

TEST(LookupTableTest, OutsideTheRangeReadsAsTheNearerEndAndNaNAsMin) {
    const Line table = MakeLine();
    EXPECT_EQ(table.Evaluate(9.0), 1.0);
    EXPECT_EQ(table.Evaluate(-std::numeric_limits<double>::infinity()), 1.0);
    EXPECT_EQ(table.Evaluate(15.0), -1.0);
    EXPECT_EQ(table.Evaluate(std::numeric_limits<double>::infinity()), -1.0);
    EXPECT_EQ(table.Evaluate(std::numeric_limits<double>::quiet_NaN()), 1.0);
}

TEST(LookupTableTest, ARangeThatIsNotFiniteReadsSomeEntry) {
    Line table = MakeLine();
    const double infinity = std::numeric_limits<double>::infinity();
    table.SetRange(-infinity, infinity);
    EXPECT_EQ(table.Evaluate(0.0), 1.0);
    table.SetRange(std::numeric_limits<double>::quiet_NaN(), 1.0);
    EXPECT_EQ(table.Evaluate(0.0), 1.0);
}

TEST(LookupTableTest, AReversedRangeStaysInsideTheTable) {
    Line table = MakeLine();
    table.SetRange(14.0, 10.0);
    for (const double x : {9.0, 10.0, 12.0, 14.0, 15.0}) {
        const double value = table.Evaluate(x);
        EXPECT_GE(value, -1.0);
        EXPECT_LE(value, 3.0);
    }
}

TEST(LookupTableTest, EachBinIsReadAtItsOwnPlace) {
    Bins table;
    table.SetRange(-1, 1);
    table.SetCount(151);
    for (int i = 0; i < 151; ++i) {
        table.GetValues()[i] = static_cast<float>(i);
    }
    EXPECT_EQ(table.Evaluate(-1.0F), 0.0F);
    EXPECT_EQ(table.Evaluate(0.0F), 75.0F);
    EXPECT_EQ(table.Evaluate(1.0F), 150.0F);
    EXPECT_EQ(table.Evaluate(3.0F), 150.0F);
    EXPECT_EQ(table.Evaluate(0.01F), 76.0F); // 75.75 + 0.5
    EXPECT_EQ(table.Evaluate(0.005F), 75.0F);
}

TEST(LookupTableTest, SetCountKeepsWhatFitsAndZeroesNewEntries) {
    Line table = MakeLine();
    table.SetCount(2);
    table.SetCount(4);
    EXPECT_EQ(table.GetValues()[0], 1.0);
    EXPECT_EQ(table.GetValues()[1], 3.0);
    EXPECT_EQ(table.GetValues()[2], 0.0);
    EXPECT_EQ(table.GetValues()[3], 0.0);
}

TEST(LookupTableTest, ANegativeCountIsAnEmptyTable) {
    Line table = MakeLine();
    table.SetCount(-5);
    EXPECT_EQ(table.GetCount(), 0);
    EXPECT_EQ(table.Evaluate(12.0), 0.0);
}

TEST(LookupTableTest, AnEmptyTableReadsZeroAndOneValueReadsAsItself) {
    CSplineTable table;
    EXPECT_EQ(table.GetCount(), 0);
    EXPECT_EQ(table.Evaluate(0.5F), 0.0F);
    table.SetCount(1);
    table.GetValues()[0] = 0.75F;
    EXPECT_EQ(table.Evaluate(-2.0F), 0.75F);
    EXPECT_EQ(table.Evaluate(0.5F), 0.75F);
    EXPECT_EQ(table.Evaluate(2.0F), 0.75F);
}

TEST(LookupTableTest, ACopyHasItsOwnValues) {
    Line table = MakeLine();
    Line copy = table;
    table.GetValues()[0] = 99.0;
    EXPECT_EQ(copy.Evaluate(10.0), 1.0);
    EXPECT_EQ(copy.GetScale(), 0.5);
    EXPECT_EQ(copy.GetMin(), 10.0);
    EXPECT_EQ(copy.GetMax(), 14.0);
}

TEST(LookupTableTest, AssigningTheSameCountWritesInPlace) {
    Line published = MakeLine();
    const double* values = published.GetValues();
    Line table = MakeLine();
    table.GetValues()[1] = 42.0;
    published = table;
    EXPECT_EQ(published.GetValues(), values);
    EXPECT_EQ(published.GetValues()[1], 42.0);
}

} // namespace
} // namespace Vorin::Math
