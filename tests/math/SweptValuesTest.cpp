#include "math/SweptValues.h"

#include "core/NonFinite.h"
#include "math/ReferenceSweptValues.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace Vorin::Math {
namespace {

using namespace Serialization;

/// Points at 0, 1, 2 ... seconds with ten times the time as value; the default is -1.
CSweptValues MakeSwept(int capacity, int points) {
    CSweptValues swept;
    swept.SetCapacity(capacity);
    swept.SetDefaultValue(-1.0);
    for (int i = 0; i < points; ++i) {
        EXPECT_TRUE(swept.AddPoint(i, 10.0 * i));
    }
    return swept;
}

TEST(SweptValuesTest, WithoutPointsItIsTheDefault) {
    CSweptValues swept;
    EXPECT_EQ(swept.Evaluate(0.0), 0.0);
    swept.SetDefaultValue(3.0);
    for (const double x : {-1.0, 0.0, 1.0, kNaN, kInfinity, -kInfinity}) {
        EXPECT_EQ(swept.Evaluate(x), 3.0);
    }
}

TEST(SweptValuesTest, ASinglePointCountsFromNowOnOnly) {
    const CSweptValues swept = MakeSwept(4, 1);
    EXPECT_EQ(swept.Evaluate(0.0), 0.0);
    EXPECT_EQ(swept.Evaluate(5.0), 0.0);
    EXPECT_EQ(swept.Evaluate(-0.001), -1.0);
}

TEST(SweptValuesTest, IsLinearBetweenPoints) {
    const CSweptValues swept = MakeSwept(8, 5); // the newest at 4 s
    EXPECT_EQ(swept.Evaluate(0.0), 40.0);
    EXPECT_EQ(swept.Evaluate(-0.25), 37.5);
    EXPECT_EQ(swept.Evaluate(-1.0), 30.0);
    EXPECT_EQ(swept.Evaluate(-1.5), 25.0);
    EXPECT_EQ(swept.Evaluate(-3.0), 10.0);
    EXPECT_EQ(swept.Evaluate(1.0), 40.0);
}

TEST(SweptValuesTest, OlderThanTheOldestPointIsTheDefault) {
    const CSweptValues swept = MakeSwept(8, 5);
    EXPECT_EQ(swept.Evaluate(-4.001), -1.0);
    EXPECT_EQ(swept.Evaluate(-1e300), -1.0);
    EXPECT_EQ(swept.Evaluate(-kInfinity), -1.0);
}

TEST(SweptValuesTest, TheSegmentBehindTheOldestPointIsTheDefault) {
    const CSweptValues swept = MakeSwept(8, 5);
    EXPECT_EQ(swept.Evaluate(-3.001), -1.0);
    EXPECT_EQ(swept.Evaluate(-4.0), -1.0);
    EXPECT_EQ(MakeSwept(8, 2).Evaluate(-0.5), -1.0);
}

TEST(SweptValuesTest, NaNIsTheDefaultAndInfinityTheNewest) {
    const CSweptValues swept = MakeSwept(8, 5);
    EXPECT_EQ(swept.Evaluate(kNaN), -1.0);
    EXPECT_EQ(swept.Evaluate(kInfinity), 40.0);
}

TEST(SweptValuesTest, ASecondPointOfEqualOrEarlierTimeIsRefused) {
    CSweptValues swept = MakeSwept(4, 1);
    EXPECT_FALSE(swept.AddPoint(0.0, 7.0));
    EXPECT_FALSE(swept.AddPoint(-1.0, 7.0));
    EXPECT_EQ(swept.GetPointsCount(), 1);
    EXPECT_EQ(swept.Evaluate(0.0), 0.0);
}

TEST(SweptValuesTest, ATimeThatIsNoNumberIsRefusedAlsoAsTheFirst) {
    CSweptValues swept;
    for (const double time : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_FALSE(swept.AddPoint(time, 7.0));
    }
    EXPECT_TRUE(swept.AddPoint(-5.0, 7.0));
    EXPECT_FALSE(swept.AddPoint(kNaN, 8.0));
    EXPECT_EQ(swept.Evaluate(0.0), 7.0);
}

TEST(SweptValuesTest, AfterWrapAroundTheCountOfPointsIsTheCapacity) {
    CSweptValues swept = MakeSwept(4, 11);
    EXPECT_EQ(swept.GetPointsCount(), 4);
    EXPECT_EQ(swept.GetCapacity(), 4);
    EXPECT_EQ(swept.Evaluate(0.0), 100.0);
    EXPECT_EQ(swept.Evaluate(-2.0), 80.0); // the oldest is at 7 s, -3
    EXPECT_EQ(swept.Evaluate(-2.5), -1.0);
    EXPECT_EQ(swept.GetPointsPerSecond(), 1.0);
}

TEST(SweptValuesTest, CapacityIsThePowerOfTwoThatIsAtLeastTheCount) {
    CSweptValues swept;
    const int expected[][2] = {{1, 1},
                               {2, 2},
                               {3, 4},
                               {4, 4},
                               {5, 8},
                               {1000, 1024},
                               {1 << 20, 1 << 20},
                               {0, 1},
                               {-1, 1},
                               {std::numeric_limits<int>::min(), 1},
                               {(1 << 20) + 1, 1 << 20},
                               {std::numeric_limits<int>::max(), 1 << 20}};
    for (const auto& [count, capacity] : expected) {
        swept.SetCapacity(count);
        EXPECT_EQ(swept.GetCapacity(), capacity) << count;
    }
}

TEST(SweptValuesTest, SettingTheCapacityForgetsThePoints) {
    CSweptValues swept = MakeSwept(4, 4);
    swept.SetCapacity(4);
    EXPECT_EQ(swept.GetPointsCount(), 0);
    EXPECT_EQ(swept.Evaluate(0.0), -1.0);
    EXPECT_TRUE(swept.AddPoint(-100.0, 2.0)); // earlier than what was forgotten
    EXPECT_EQ(swept.Evaluate(0.0), 2.0);
}

TEST(SweptValuesTest, ARingOfOneSlotHoldsTheNewest) {
    CSweptValues swept = MakeSwept(1, 3);
    EXPECT_EQ(swept.GetPointsCount(), 1);
    EXPECT_EQ(swept.Evaluate(0.0), 20.0);
    EXPECT_EQ(swept.Evaluate(-0.5), -1.0);
}

TEST(SweptValuesTest, PointsPerSecondAreMeasuredOverThePointsThatAreThere) {
    CSweptValues swept;
    swept.SetCapacity(4);
    EXPECT_EQ(swept.GetPointsPerSecond(), 0.0);
    swept.AddPoint(1.0, 0.0);
    EXPECT_EQ(swept.GetPointsPerSecond(), 0.0);
    swept.AddPoint(1.5, 0.0);
    EXPECT_EQ(swept.GetPointsPerSecond(), 2.0);
    swept.AddPoint(2.0, 0.0);
    swept.AddPoint(5.0, 0.0);
    EXPECT_EQ(swept.GetPointsPerSecond(), 3.0 / 4.0);
    swept.AddPoint(5.5, 0.0); // the one at 1 s is gone
    EXPECT_EQ(swept.GetPointsPerSecond(), 3.0 / 4.0);
}

TEST(SweptValuesTest, DurationIsKept) {
    CSweptValues swept;
    EXPECT_EQ(swept.GetDuration(), 0.0);
    swept.SetDuration(5.0);
    EXPECT_EQ(swept.GetDuration(), 5.0);
    swept.SetDuration(-1.0);
    EXPECT_EQ(swept.GetDuration(), 0.0);
    swept.SetDuration(kNaN);
    EXPECT_EQ(swept.GetDuration(), 0.0);
}

TEST(SweptValuesTest, ANegativeXThatVanishesBesideTheTimeIsTheNewest) {
    CSweptValues swept;
    swept.SetCapacity(4);
    for (int i = 0; i < 5; ++i) {
        swept.AddPoint(1e9 + i, i);
    }
    EXPECT_EQ(swept.Evaluate(-1e-12), 4.0);
}

TEST(SweptValuesTest, WildTimesStayDefined) {
    CSweptValues swept;
    swept.SetCapacity(4);
    swept.SetDefaultValue(-1.0);
    constexpr double most = std::numeric_limits<double>::max();
    for (const double time : {-most, -1.0, 0.0, 5e-324, most}) {
        ASSERT_TRUE(swept.AddPoint(time, 1.0));
        for (const double x : {-5e-324, -1.0, -most, -kInfinity, 0.0, kNaN}) {
            const double value = swept.Evaluate(x);
            EXPECT_TRUE(value == 1.0 || value == -1.0) << time << " " << x;
        }
    }
}

/// Runs both over the same points and compares them all over the window.
void CompareWithTwin(int capacity, int points, const std::function<double(int)>& step) {
    CSweptValues swept;
    CReferenceSweptValues twin;
    swept.SetCapacity(capacity);
    twin.SetCapacity(capacity);
    swept.SetDefaultValue(-1.0);
    twin.defaultValue = -1.0;
    std::mt19937 random(11);
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    std::vector<double> times;
    double time = 100.0;
    for (int i = 0; i < points; ++i) {
        time += step(i);
        const double y = value(random);
        EXPECT_EQ(swept.AddPoint(time, y), twin.AddPoint(time, y));
        times.push_back(time);
    }
    EXPECT_EQ(swept.GetPointsPerSecond(), twin.pointsPerSecond);
    const int present = std::min(points, swept.GetCapacity());
    const double window = time - times[static_cast<std::size_t>(points - present)];
    for (int i = 0; i < 500; ++i) {
        const double x = -window * 1.05 * i / 499.0;
        EXPECT_EQ(swept.Evaluate(x), twin.Evaluate(x)) << x;
        const auto at = static_cast<std::size_t>(std::abs(value(random)) * (points - 1));
        const double onPoint = times[at] - time;
        EXPECT_EQ(swept.Evaluate(onPoint), twin.Evaluate(onPoint)) << onPoint;
    }
}

TEST(SweptValuesTest, FindsWhatAPlainWalkFinds) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (const int capacity : {1, 2, 4, 64, 1024}) {
        for (const int points : {1, 2, 3, 63, 64, 65, 1024, 3000}) {
            CompareWithTwin(capacity, points, [](int) { return 0.02; });
            CompareWithTwin(capacity, points, [&](int) { return unit(random); });
            CompareWithTwin(capacity, points, [&](int) { return std::pow(unit(random), 12.0); });
            CompareWithTwin(capacity, points, [](int i) { return i % 700 < 350 ? 1e-5 : 1.0; });
            CompareWithTwin(capacity, points, [](int i) { return std::ldexp(1.0, i % 40); });
            CompareWithTwin(capacity, points, [](int i) { return i % 7 == 0 ? 0.0 : 1.0; });
        }
    }
}

TEST(SweptValuesTest, AMillionUnevenPointsAreRead) {
    CSweptValues swept;
    swept.SetCapacity(1000000);
    // The first half a thousand times as far apart as the second: a walk from the mean rate would
    // take half a million steps.
    double time = 0.0;
    for (int i = 0; i < 1000000; ++i) {
        time += i < 500000 ? 1.0 : 0.001;
        ASSERT_TRUE(swept.AddPoint(time, time));
    }
    for (int i = 1; i < 200000; ++i) {
        const double x = -2.5 * i;
        ASSERT_NEAR(swept.Evaluate(x), time + x, 1e-6);
    }
}

TEST(SweptValuesTest, CopiesAndClonesAreTheirOwn) {
    CSweptValues swept = MakeSwept(4, 4);
    const std::unique_ptr<IFunction> clone(swept.Clone());
    swept.AddPoint(9.0, 99.0);
    EXPECT_EQ(clone->Evaluate(0.0), 30.0);
    EXPECT_EQ(clone->Evaluate(-1.5), 15.0);
    EXPECT_EQ(swept.Evaluate(0.0), 99.0);
}

TEST(SweptValuesTest, IsWrittenFieldByField) {
    CSweptValues swept = MakeSwept(4, 6);
    swept.SetDuration(2.5);
    CMemDataObject stream;
    ASSERT_TRUE(swept.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 9);
    EXPECT_EQ(IntOf(stream, "version"), 1);
    EXPECT_EQ(IntOf(stream, "currentIndex"), 1);
    EXPECT_EQ(IntOf(stream, "mask"), 3);
    EXPECT_EQ(IntOf(stream, "pointsCount"), 4);
    EXPECT_EQ(DoubleOf(stream, "duration"), 2.5);
    EXPECT_EQ(DoubleOf(stream, "pointsPerSecond"), 1.0);
    EXPECT_EQ(DoubleOf(stream, "defaultValue"), -1.0);
    CReads values([](const IReadDataStream& nested) {
        EXPECT_EQ(IntOf(nested, "valueCount"), 4);
        EXPECT_EQ(DoubleOf(nested, "value0"), 40.0);
        EXPECT_EQ(DoubleOf(nested, "value1"), 50.0);
        EXPECT_EQ(DoubleOf(nested, "value2"), 20.0);
        EXPECT_EQ(DoubleOf(nested, "value3"), 30.0);
        return true;
    });
    EXPECT_TRUE(stream.ReadObject("values", values));
    CReads times([](const IReadDataStream& nested) {
        EXPECT_EQ(IntOf(nested, "timeCount"), 4);
        EXPECT_EQ(DoubleOf(nested, "time1"), 5.0);
        return true;
    });
    EXPECT_TRUE(stream.ReadObject("times", times));
}

TEST(SweptValuesTest, GoesOnWhereItWasAfterItWasRead) {
    for (const int points : {0, 1, 2, 3, 4, 5, 9}) {
        CSweptValues swept = MakeSwept(4, points);
        CXmlDataObject stream("Root", kXmlElements);
        ASSERT_TRUE(swept.Serialize(stream));
        CSweptValues read;
        ASSERT_TRUE(read.DeSerialize(stream)) << points;
        EXPECT_EQ(read.GetCapacity(), 4);
        EXPECT_EQ(read.GetPointsCount(), swept.GetPointsCount());
        EXPECT_EQ(read.GetPointsPerSecond(), swept.GetPointsPerSecond());
        for (int more = 0; more < 3; ++more) {
            for (int i = -20; i <= 4; ++i) {
                EXPECT_EQ(read.Evaluate(i / 4.0), swept.Evaluate(i / 4.0));
            }
            EXPECT_EQ(read.AddPoint(points + more, 3.0), swept.AddPoint(points + more, 3.0));
        }
    }
}

TEST(SweptValuesTest, ALargerRingThanAReaderTakesIsNotWritten) {
    CSweptValues swept;
    swept.SetCapacity(kMaximumItems);
    CMemDataObject stream;
    EXPECT_FALSE(swept.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 0);
}

/// A column with that word, count and items.
CWrites Column(const char* word, int count, std::vector<double> items) {
    return CWrites([word, count, items](IWriteDataStream& stream) {
        const CItemNames names(word);
        bool done = names.WriteCount(stream, count);
        for (std::size_t i = 0; i < items.size(); ++i) {
            done &= stream.WriteDouble(names.GetName(static_cast<int>(i)).Get(), items[i]);
        }
        return done;
    });
}

class SweptValuesHostileTest : public testing::Test {
protected:
    SweptValuesHostileTest() { EXPECT_TRUE(MakeSwept(4, 6).Serialize(stream)); }

    /// Reads into an object with content of its own, which has to stay as it was.
    void ExpectRefused(const char* what) {
        CSweptValues swept = MakeSwept(2, 3);
        swept.SetDuration(9.0);
        EXPECT_FALSE(swept.DeSerialize(stream)) << what;
        EXPECT_EQ(swept.GetCapacity(), 2) << what;
        EXPECT_EQ(swept.GetPointsCount(), 2) << what;
        EXPECT_EQ(swept.GetDuration(), 9.0) << what;
        EXPECT_EQ(swept.GetDefaultValue(), -1.0) << what;
        EXPECT_EQ(swept.Evaluate(0.0), 20.0) << what;
        stream.Clear();
        EXPECT_TRUE(MakeSwept(4, 6).Serialize(stream));
    }

    CMemDataObject stream;
};

TEST_F(SweptValuesHostileTest, TheFormItselfIsTaken) {
    CSweptValues swept;
    EXPECT_TRUE(swept.DeSerialize(stream));
    EXPECT_EQ(swept.Evaluate(-1.5), 35.0);
}

TEST_F(SweptValuesHostileTest, AMissingFieldIsRefused) {
    for (const char* key : {"version", "values", "times", "currentIndex", "mask", "pointsCount",
                            "duration", "pointsPerSecond", "defaultValue"}) {
        stream.Remove(key);
        ExpectRefused(key);
    }
}

TEST_F(SweptValuesHostileTest, NumbersThatDoNotFitTheVectorsAreRefused) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    const struct {
        const char* key;
        std::vector<int> values;
    } cases[] = {{"version", {0, 2, -1, most}},
                 {"currentIndex", {-1, -2, 4, least, most}},
                 {"mask", {-1, 0, 1, 2, 4, 6, 7, least, most}},
                 {"pointsCount", {-1, 0, 1, 3, 5, least, most}}};
    for (const auto& wrong : cases) {
        for (const int value : wrong.values) {
            stream.WriteInt(wrong.key, value);
            ExpectRefused((std::string(wrong.key) + std::to_string(value)).c_str());
        }
    }
}

TEST_F(SweptValuesHostileTest, VectorsOfOtherLengthsAreRefused) {
    stream.WriteObject("values", Column("value", 3, {1, 2, 3}));
    ExpectRefused("short values");
    stream.WriteObject("times", Column("time", 5, {4, 5, 2, 3, 6}));
    ExpectRefused("long times");
    stream.WriteObject("values", Column("value", 0, {}));
    ExpectRefused("no values");
    stream.WriteObject("values", Column("value", 0, {}));
    stream.WriteObject("times", Column("time", 0, {}));
    stream.WriteInt("mask", -1);
    stream.WriteInt("pointsCount", 0);
    stream.WriteInt("currentIndex", -1);
    ExpectRefused("no slots");
    stream.WriteObject("values", Column("value", 3, {1, 2, 3}));
    stream.WriteObject("times", Column("time", 3, {1, 2, 3}));
    stream.WriteInt("mask", 2);
    stream.WriteInt("pointsCount", 3);
    stream.WriteInt("currentIndex", 2);
    ExpectRefused("no power of two");
}

TEST_F(SweptValuesHostileTest, CountsWithoutItemsAreRefused) {
    for (const int count : {5, 1000, kMaximumItems, 1 << 20, std::numeric_limits<int>::max(), -1}) {
        stream.WriteObject("values", Column("value", count, {1, 2, 3, 4}));
        ExpectRefused("values");
        stream.WriteObject("times", Column("time", count, {4, 5, 2, 3}));
        ExpectRefused("times");
    }
}

TEST_F(SweptValuesHostileTest, TimesThatDoNotIncreaseAreRefused) {
    // The ring starts at index 2.
    for (const std::vector<double>& times :
         std::vector<std::vector<double>>{{4, 5, 2, 2},
                                          {4, 4, 2, 3},
                                          {3, 5, 2, 3},
                                          {5, 4, 2, 3},
                                          {2, 3, 4, 5},
                                          {4, kNaN, 2, 3},
                                          {4, 5, kNaN, 3},
                                          {4, kInfinity, 2, 3},
                                          {4, 5, -kInfinity, 3}}) {
        stream.WriteObject("times", Column("time", 4, times));
        ExpectRefused("times");
    }
}

TEST_F(SweptValuesHostileTest, SlotsWithoutAPointMayHoldAnything) {
    stream.WriteObject("times", Column("time", 4, {1, 2, kNaN, -7}));
    stream.WriteInt("pointsCount", 2);
    stream.WriteInt("currentIndex", 1);
    CSweptValues swept;
    ASSERT_TRUE(swept.DeSerialize(stream));
    EXPECT_EQ(swept.Evaluate(0.0), 50.0);
    EXPECT_TRUE(swept.AddPoint(3.0, 1.0));
    EXPECT_EQ(swept.Evaluate(-1.0), 50.0);
}

TEST_F(SweptValuesHostileTest, AWrongRateAndDurationDoNoHarm) {
    for (const double wrong : {kNaN, kInfinity, -kInfinity, -5.0, 0.0, 1e300}) {
        stream.WriteDouble("pointsPerSecond", wrong);
        stream.WriteDouble("duration", wrong);
        CSweptValues swept;
        ASSERT_TRUE(swept.DeSerialize(stream));
        EXPECT_EQ(swept.GetPointsPerSecond(), 1.0); // measured anew
        EXPECT_GE(swept.GetDuration(), 0.0);
        EXPECT_EQ(swept.Evaluate(-1.5), 35.0);
    }
}

TEST_F(SweptValuesHostileTest, ATolerantStreamMayLeaveOutWhatItLikes) {
    CSweptValues swept = MakeSwept(2, 3);
    EXPECT_TRUE(swept.DeSerialize(TTolerant<CMemDataObject>()));
    EXPECT_EQ(swept.Evaluate(0.0), 20.0);
    EXPECT_EQ(swept.Evaluate(-5.0), -1.0);
}

} // namespace
} // namespace Vorin::Math
