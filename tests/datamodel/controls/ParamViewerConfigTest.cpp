#include "datamodel/controls/ParamViewerConfig.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/controls/Params.h"
#include "math/Constant.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <memory>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

constexpr double kLargest = std::numeric_limits<double>::max();

/// A config with an info of its own, and its events.
struct CFixture {
    CFixture(EParamType type, double min, double max)
        : info(MakeInfo(type, min, max)), config(info) {
        log.Listen(config.GetReverseEvents(), "reverse");
        log.Listen(config.GetZoomEvents(), "zoom");
        log.Listen(config.GetZoomPositionEvents(), "zoomPosition");
        log.Listen(config.GetConfigEvents(), "config");
        log.Listen(config.GetInfoEvents(), "info");
    }

    CParamInfo info;
    CParamViewerConfig config;
    CEventLog log;
};

// Number of positions

TEST(ParamViewerConfigTest, ANewConfigHasTheNaturalCountOfItsType) {
    EXPECT_EQ(CFixture(kParamReal, 0.0, 1.0).config.GetPositionsCount(), -1);
    EXPECT_EQ(CFixture(kParamInteger, 1.0, 5.0).config.GetPositionsCount(), 5);
    EXPECT_EQ(CFixture(kParamInteger, -2.0, 2.5).config.GetPositionsCount(), 5);
    EXPECT_EQ(CFixture(kParamBoolean, 0.0, 1.0).config.GetPositionsCount(), 2);
    EXPECT_EQ(CFixture(kParamSwitch, 0.0, 9.0).config.GetPositionsCount(), 2);
    EXPECT_EQ(CFixture(static_cast<EParamType>(9), 0.0, 9.0).config.GetPositionsCount(), -1);
}

TEST(ParamViewerConfigTest, AnIntegerHasNoMorePositionsThanValues) {
    CFixture f(kParamInteger, 1.0, 5.0);
    f.config.SetPositionsCount(3);
    EXPECT_EQ(f.log.Take(), "config");
    f.config.SetPositionsCount(100);
    EXPECT_EQ(f.config.GetPositionsCount(), 5);
    EXPECT_EQ(f.log.Take(), "config");
    f.config.SetPositionsCount(6);
    EXPECT_EQ(f.log.Take(), "") << "six is refused, and five it was";
}

TEST(ParamViewerConfigTest, ANegativeCountIsTheNaturalOne) {
    CFixture integer(kParamInteger, 1.0, 5.0);
    integer.config.SetPositionsCount(2);
    integer.config.SetPositionsCount(-7);
    EXPECT_EQ(integer.config.GetPositionsCount(), 5);

    CFixture real(kParamReal, 0.0, 1.0);
    real.config.SetPositionsCount(7);
    real.config.SetPositionsCount(-7);
    EXPECT_EQ(real.config.GetPositionsCount(), -1);
}

TEST(ParamViewerConfigTest, ZeroPositionsAreOne) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetPositionsCount(0);
    EXPECT_EQ(f.config.GetPositionsCount(), 1);
    EXPECT_EQ(f.log.Take(), "config");
    f.config.SetPositionsCount(0);
    EXPECT_EQ(f.log.Take(), "") << "one it was";
}

TEST(ParamViewerConfigTest, ARealTakesAnyCount) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetPositionsCount(INT_MAX);
    EXPECT_EQ(f.config.GetPositionsCount(), INT_MAX);
    f.config.SetPositionsCount(INT_MIN);
    EXPECT_EQ(f.config.GetPositionsCount(), -1);
}

TEST(ParamViewerConfigTest, ResetGoesBackToTheNaturalCount) {
    CFixture f(kParamInteger, 0.0, 10.0);
    f.config.SetPositionsCount(3);
    f.config.ResetPositionsCount();
    EXPECT_EQ(f.config.GetPositionsCount(), 11);

    CFixture real(kParamReal, 0.0, 10.0);
    real.config.SetPositionsCount(3);
    real.config.ResetPositionsCount();
    EXPECT_EQ(real.config.GetPositionsCount(), -1);
}

TEST(ParamViewerConfigTest, ARangeWiderThanIntHasAsManyPositionsAsAnIntCounts) {
    CFixture f(kParamInteger, 0.0, 1e18);
    EXPECT_EQ(f.config.GetPositionsCount(), INT_MAX);
    EXPECT_EQ(f.config.PositionToValue(0.0), 0.0);
    EXPECT_EQ(f.config.PositionToValue(1.0), 1e18);
    EXPECT_NEAR(f.config.PositionToValue(0.5), 5e17, 1e9);
    EXPECT_EQ(CFixture(kParamInteger, -kInfinity, kInfinity).config.GetPositionsCount(), INT_MAX);
}

TEST(ParamViewerConfigTest, AnInvertedIntegerRangeIsAContinuum) {
    CFixture f(kParamInteger, 5.0, 1.0);
    EXPECT_EQ(f.config.GetPositionsCount(), -1);
    f.config.SetPositionsCount(4);
    EXPECT_EQ(f.config.GetPositionsCount(), -1);
    EXPECT_EQ(f.config.PositionToValue(0.25), 4.0);
    EXPECT_EQ(f.config.ValueToPosition(true, 4.0), 0.25);
}

// A change of the info

TEST(ParamViewerConfigTest, AChangeOfTheRangeIsTwoConfigEventsWhenTheCountChanges) {
    CFixture f(kParamInteger, 1.0, 5.0);
    f.info.SetMax(3.0);
    EXPECT_EQ(f.config.GetPositionsCount(), 3);
    EXPECT_EQ(f.log.Take(), "config config") << "for the count and for the range";
    EXPECT_EQ(f.config.ValueToPosition(true, 2.0), 0.5);
}

TEST(ParamViewerConfigTest, AChangeOfTheInfoIsOneConfigEventWhenTheCountStays) {
    CFixture f(kParamReal, 1.0, 5.0);
    f.info.SetMax(3.0);
    f.info.SetName("Q");
    EXPECT_EQ(f.log.Take(), "config config");
    EXPECT_EQ(f.config.ValueToPosition(true, 2.0), 0.5);
}

TEST(ParamViewerConfigTest, ACountThatWasChosenSurvivesAWiderRange) {
    CFixture f(kParamInteger, 1.0, 5.0);
    f.config.SetPositionsCount(3);
    f.info.SetMax(9.0);
    EXPECT_EQ(f.config.GetPositionsCount(), 3);
    f.info.SetMax(2.0);
    EXPECT_EQ(f.config.GetPositionsCount(), 2);
}

TEST(ParamViewerConfigTest, TheFirstEventOfANewRangeAlreadySeesAllOfIt) {
    CFixture f(kParamInteger, 0.0, 4.0);
    std::vector<double> seen;
    const CEventHook hook(f.config.GetConfigEvents(),
                          [&] { seen.push_back(f.config.ValueToPosition(true, 1.0)); });
    f.info.SetMax(10.0);
    EXPECT_EQ(f.config.GetPositionsCount(), 5) << "the count stays";
    f.info.SetMax(5.0);
    f.info.SetMax(2.0);
    EXPECT_EQ(seen, (std::vector<double>{0.0, 0.25, 0.5, 0.5}));
}

TEST(ParamViewerConfigTest, AnotherInfoIsAConfigEventThenAnInfoEvent) {
    CFixture f(kParamReal, 0.0, 1.0);
    CParamInfo other = MakeInfo(kParamReal, 0.0, 10.0);
    f.config.SetInfo(other);
    EXPECT_EQ(f.log.Take(), "config info");
    EXPECT_EQ(&f.config.GetInfo(), &other);
    EXPECT_EQ(f.config.ValueToPosition(true, 5.0), 0.5);

    f.info.SetMax(2.0);
    EXPECT_EQ(f.log.Take(), "") << "the info before is let go of";
    other.SetMax(20.0);
    EXPECT_EQ(f.log.Take(), "config");
    f.config.SetInfo(f.info); // `other` dies first
}

TEST(ParamViewerConfigTest, TheDestructorLetsGoOfTheInfo) {
    CParamInfo info = MakeInfo(kParamReal, 0.0, 1.0);
    { const CParamViewerConfig config(info); }
    info.SetMax(2.0); // would run a command that is gone
    EXPECT_EQ(info.GetMax(), 2.0);
}

// Zoom

TEST(ParamViewerConfigTest, ZoomIsAtLeastOne) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetZoom(4.0);
    f.config.SetZoom(0.5);
    EXPECT_EQ(f.config.GetZoom(), 1.0);
    f.config.SetZoom(-kInfinity);
    EXPECT_EQ(f.config.GetZoom(), 1.0);
}

TEST(ParamViewerConfigTest, ZoomEventsComeBeforeConfigEvents) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetZoom(4.0);
    EXPECT_EQ(f.log.Take(), "zoom config");
    f.config.SetZoom(4.0);
    EXPECT_EQ(f.log.Take(), "");
    f.config.SetZoomPosition(0.5);
    EXPECT_EQ(f.log.Take(), "zoomPosition config");
    f.config.SetZoomPosition(0.5);
    EXPECT_EQ(f.log.Take(), "");
}

TEST(ParamViewerConfigTest, ZoomedAroundTheMiddleTheCentreStays) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetZoom(4.0);
    f.config.SetZoomPosition(0.5);
    // 0.5 * 4 - 1.5
    EXPECT_EQ(f.config.ValueToPosition(false, 0.5), 0.5);
    EXPECT_EQ(f.config.ValueToPosition(false, 0.375), 0.0);
    EXPECT_EQ(f.config.ValueToPosition(false, 0.625), 1.0);
    EXPECT_EQ(f.config.ValueToPosition(false, 0.0), -1.5);
    EXPECT_EQ(f.config.ValueToPosition(true, 0.0), 0.0);
    EXPECT_EQ(f.config.ValueToPosition(false, 1.0), 2.5);
    EXPECT_EQ(f.config.ValueToPosition(true, 1.0), 1.0);
    EXPECT_EQ(f.config.PositionToValue(0.0), 0.375);
    EXPECT_EQ(f.config.PositionToValue(1.0), 0.625);
}

TEST(ParamViewerConfigTest, TheOrderOfZoomAndZoomPositionDoesNotMatter) {
    CFixture a(kParamReal, 0.0, 1.0);
    a.config.SetZoom(4.0);
    a.config.SetZoomPosition(0.25);
    CFixture b(kParamReal, 0.0, 1.0);
    b.config.SetZoomPosition(0.25);
    EXPECT_EQ(b.config.ValueToPosition(false, 0.5), 0.5) << "no zoom, no offset";
    b.config.SetZoom(4.0);
    EXPECT_EQ(a.config.ValueToPosition(false, 0.5), 1.25);
    EXPECT_EQ(b.config.ValueToPosition(false, 0.5), 1.25);
}

TEST(ParamViewerConfigTest, NaNIsNoZoom) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetZoom(2.0);
    f.config.SetZoomPosition(1.0);
    f.log.Take();
    f.config.SetZoom(kNaN);
    f.config.SetZoomPosition(kNaN);
    EXPECT_EQ(f.config.GetZoom(), 2.0);
    EXPECT_EQ(f.config.GetZoomPosition(), 1.0);
    EXPECT_EQ(f.log.Take(), "");
}

TEST(ParamViewerConfigTest, InfiniteZoomIsTheLargestNumber) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetZoom(kInfinity);
    f.config.SetZoomPosition(-kInfinity);
    EXPECT_EQ(f.config.GetZoom(), kLargest);
    EXPECT_EQ(f.config.GetZoomPosition(), -kLargest);
    EXPECT_FALSE(std::isnan(f.config.ValueToPosition(false, 0.5)));
    EXPECT_FALSE(std::isnan(f.config.PositionToValue(0.5)));
}

// Steps when zoomed in

struct CZoomedCount {
    double zoom;
    int base;
    int maximum;
    int factor; // what the number of steps is multiplied by
};

TEST(ParamViewerConfigTest, StepsMultiplyByTheWholeZoomOrByThePowerOfTheBaseWithinIt) {
    const CZoomedCount cases[] = {
        {1.0, 1, -1, 1},
        {3.9, 1, -1, 3},
        {8.0, 0, -1, 8},
        {3.9, 2, -1, 2},
        {8.0, 2, -1, 8},
        {7.99, 2, -1, 4},
        {15.0, 2, -1, 8},
        {999.0, 10, -1, 100},
        {1.0, 2, -1, 1},
        {9.0, 3, 5, 5},
        {9.0, 1, 5, 5},
        {9.0, 1, 0, 1},
        {9.0, 1, -3, 1},
        {9.0, 1, -1, 9},
        {9.0, 1, INT_MAX, 9},
        {9.0, 1, INT_MIN, 1},
        {9.0, -5, -1, 9},
        {9.0, INT_MAX, -1, 1},
        // The logarithms of these fall short of a whole number when they are divided.
        {1000.0, 10, -1, 1000},
        {243.0, 3, -1, 243},
        {125.0, 5, -1, 125},
    };
    for (const CZoomedCount& c : cases) {
        CFixture f(kParamReal, 0.0, 1.0);
        f.config.SetPositionsCount(5);
        f.config.SetZoom(c.zoom);
        f.config.SetPositionsZoomBaseFactor(c.base);
        f.config.SetMaxPositionsZoom(c.maximum);
        EXPECT_EQ(f.config.GetZoomedPositionsCount(), 5) << "not enabled";
        f.config.SetEnablePositionsZoom(true);
        EXPECT_EQ(f.config.GetZoomedPositionsCount(), 4 * c.factor + 1)
            << c.zoom << " " << c.base << " " << c.maximum;
        EXPECT_DOUBLE_EQ(f.config.GetVisiblePositionsCount(), 4.0 / c.zoom * c.factor + 1.0);
    }
}

TEST(ParamViewerConfigTest, PositionsZoomSettersFireOnlyAChange) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetEnablePositionsZoom(false);
    f.config.SetPositionsZoomBaseFactor(1);
    f.config.SetMaxPositionsZoom(-1);
    EXPECT_EQ(f.log.Take(), "");
    f.config.SetEnablePositionsZoom(true);
    EXPECT_TRUE(f.config.GetEnablePositionsZoom());
    EXPECT_EQ(f.log.Take(), "config");
    f.config.SetPositionsZoomBaseFactor(2);
    EXPECT_EQ(f.log.Take(), "config");
    f.config.SetMaxPositionsZoom(8);
    EXPECT_EQ(f.log.Take(), "config");
}

TEST(ParamViewerConfigTest, AContinuumHasNoVisibleCount) {
    CFixture f(kParamReal, 0.0, 1.0);
    EXPECT_EQ(f.config.GetVisiblePositionsCount(), -1.0);
    EXPECT_LT(f.config.GetZoomedPositionsCount(), 0);
    f.config.SetPositionsCount(11);
    f.config.SetZoom(4.0);
    EXPECT_EQ(f.config.GetVisiblePositionsCount(), 3.5);
}

TEST(ParamViewerConfigTest, AnExtremeZoomOfExtremeCountsStaysAnInt) {
    for (const int base : {1, 2, 10}) {
        CFixture f(kParamReal, 0.0, 1.0);
        f.config.SetEnablePositionsZoom(true);
        f.config.SetPositionsZoomBaseFactor(base);
        f.config.SetZoom(kLargest);
        EXPECT_EQ(f.config.GetZoomedPositionsCount(), INT_MIN);
        f.config.SetPositionsCount(INT_MAX);
        EXPECT_EQ(f.config.GetZoomedPositionsCount(), INT_MAX);
        EXPECT_TRUE(std::isfinite(f.config.GetVisiblePositionsCount()));
    }
}

// Values and positions

TEST(ParamViewerConfigTest, ABooleanTurnsAtTheMiddleOfTheWay) {
    CFixture f(kParamBoolean, 0.0, 1.0);
    EXPECT_EQ(f.config.PositionToValue(0.4), 0.0);
    EXPECT_EQ(f.config.PositionToValue(0.6), 1.0);
    EXPECT_EQ(f.config.ValueToPosition(true, 0.0), 0.0);
    EXPECT_EQ(f.config.ValueToPosition(true, 1.0), 1.0);
}

TEST(ParamViewerConfigTest, ATwoStateRangeAboveHalfItsSpanIsAlwaysMax) {
    for (const EParamType type : {kParamBoolean, kParamSwitch}) {
        CFixture f(type, 10.0, 11.0);
        EXPECT_EQ(f.config.PositionToValue(0.0), 11.0);
        EXPECT_EQ(f.config.PositionToValue(1.0), 11.0);
        CFixture low(type, -3.0, -1.0);
        EXPECT_EQ(low.config.PositionToValue(1.0), -3.0);
    }
}

TEST(ParamViewerConfigTest, TwoStatesTakeMoreThanHalfTheSpanForMax) {
    CFixture f(kParamSwitch, 1.0, 4.0);
    f.config.SetUseParameterCurve(false);
    EXPECT_EQ(f.config.PositionToValue(0.0), 1.0) << "1 is below 1.5";
    EXPECT_EQ(f.config.PositionToValue(1.0), 4.0);
}

TEST(ParamViewerConfigTest, IntegersRoundHalvesAwayFromZero) {
    // A count of -1 is not to be had for an integer of positive width: steps in between come from
    // fewer positions than values.
    CFixture f(kParamInteger, -5.0, 5.0);
    f.config.SetUseParameterCurve(false);
    f.config.SetPositionsCount(5); // at -5, -2.5, 0, 2.5 and 5
    EXPECT_EQ(f.config.PositionToValue(0.25), -3.0);
    EXPECT_EQ(f.config.PositionToValue(0.5), 0.0);
    EXPECT_FALSE(std::signbit(f.config.PositionToValue(0.5)));
    EXPECT_EQ(f.config.PositionToValue(0.75), 3.0);
}

TEST(ParamViewerConfigTest, AnUnknownTypeRoundsLikeAnInteger) {
    CFixture f(static_cast<EParamType>(9), 0.0, 10.0);
    EXPECT_EQ(f.config.PositionToValue(0.26), 3.0);
    EXPECT_EQ(f.config.PositionToValue(0.24), 2.0);
}

TEST(ParamViewerConfigTest, StepsAreWhereTheNearestOneIs) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.config.SetPositionsCount(5);
    EXPECT_EQ(f.config.ValueToPosition(true, 0.3), 0.25);
    EXPECT_EQ(f.config.ValueToPosition(true, 0.375), 0.5);
    EXPECT_EQ(f.config.PositionToValue(0.9), 1.0);
    EXPECT_EQ(f.config.PositionToValue(0.85), 0.75);
    EXPECT_EQ(f.config.ValueToPosition(false, 1.3), 1.25) << "steps go on outside the range";
}

TEST(ParamViewerConfigTest, OnePositionIsTheFirstValue) {
    CFixture f(kParamReal, 3.0, 7.0);
    f.config.SetPositionsCount(1);
    for (const double position : {-1.0, 0.0, 0.7, 1.0, 1e300, kInfinity, kNaN}) {
        EXPECT_EQ(f.config.PositionToValue(position), 3.0);
    }
    EXPECT_EQ(f.config.ValueToPosition(true, 6.0), 0.0);
    f.config.SetReversed(true);
    EXPECT_EQ(f.config.PositionToValue(0.0), 7.0);
}

TEST(ParamViewerConfigTest, ReversedIsTheOtherWayRound) {
    CFixture f(kParamReal, 0.0, 10.0);
    f.config.SetResponseCurve(kParamValueCurveSquare);
    f.config.SetReversed(true);
    EXPECT_EQ(f.log.Take(), "config reverse config") << "curve; then direction";
    EXPECT_TRUE(f.config.IsReversed());
    f.config.SetReversed(true);
    EXPECT_EQ(f.log.Take(), "");

    EXPECT_EQ(f.config.PositionToValue(0.0), 10.0) << "forward(1)";
    EXPECT_EQ(f.config.PositionToValue(0.5), 2.5);
    EXPECT_EQ(f.config.PositionToValue(1.0), 0.0);
    EXPECT_EQ(f.config.ValueToPosition(true, 2.5), 0.5);
    EXPECT_EQ(f.config.GetMinPosition(true), 0.0) << "the position of max";
    EXPECT_EQ(f.config.GetMaxPosition(true), 1.0) << "the position of min";
}

TEST(ParamViewerConfigTest, MinMaxAndDefaultHavePositions) {
    CFixture f(kParamReal, 0.0, 10.0);
    f.info.SetDefault(2.0);
    EXPECT_EQ(f.config.GetMinPosition(true), 0.0);
    EXPECT_EQ(f.config.GetMaxPosition(true), 1.0);
    EXPECT_DOUBLE_EQ(f.config.GetDefaultPosition(true), 0.2);
    f.config.SetZoom(2.0);
    f.config.SetZoomPosition(1.0);
    EXPECT_EQ(f.config.GetMinPosition(false), -1.0);
    EXPECT_EQ(f.config.GetMinPosition(true), 0.0);
    EXPECT_EQ(f.config.GetMaxPosition(false), 1.0);
    EXPECT_DOUBLE_EQ(f.config.GetDefaultPosition(false), -0.6);
    EXPECT_EQ(f.config.GetDefaultPosition(true), 0.0);
}

TEST(ParamViewerConfigTest, AResponseCurveOutsideTheTableIsAStraightLine) {
    CFixture f(kParamReal, 0.0, 1.0);
    for (const int curve : {-1, 3, 6, 9, 13, INT_MAX, INT_MIN}) {
        f.config.SetResponseCurve(static_cast<EParamValueCurve>(curve));
        EXPECT_EQ(f.log.Take(), "config") << "also when nothing changed";
        EXPECT_EQ(f.config.PositionToValue(0.25), 0.25);
        EXPECT_EQ(f.config.ValueToPosition(true, 0.25), 0.25);
    }
}

TEST(ParamViewerConfigTest, ResponseFunctionsAreTheCallersOwn) {
    CFixture f(kParamReal, 0.0, 1.0);
    const Math::TFunction<&Math::FunctionsLibrary::Square> square;
    const Math::TFunction<&Math::FunctionsLibrary::SquareRoot> root;
    f.config.SetResponseFunctions(&square, &root);
    EXPECT_EQ(f.log.Take(), "config");
    EXPECT_EQ(f.config.PositionToValue(0.5), 0.25);
    EXPECT_EQ(f.config.ValueToPosition(true, 0.25), 0.5);
    f.config.SetResponseFunctions(nullptr, nullptr);
    EXPECT_EQ(f.config.PositionToValue(0.5), 0.5) << "null is a straight line";
    EXPECT_EQ(f.config.ValueToPosition(true, 0.5), 0.5);
}

TEST(ParamViewerConfigTest, LogScalePutsEqualRatiosAtEqualDistances) {
    CFixture f(kParamReal, 20.0, 20000.0);
    f.config.SetLogScale(true);
    EXPECT_EQ(f.log.Take(), "config");
    f.config.SetLogScale(true);
    EXPECT_EQ(f.log.Take(), "");
    EXPECT_NEAR(f.config.ValueToPosition(true, 200.0), 1.0 / 3.0, 1e-15);
    EXPECT_NEAR(f.config.PositionToValue(2.0 / 3.0), 2000.0, 1e-9);
    EXPECT_EQ(f.config.ValueToPosition(true, 0.0), 0.0);
    EXPECT_EQ(f.config.ValueToPosition(true, -5.0), 0.0);
    f.config.SetReversed(true);
    EXPECT_EQ(f.config.ValueToPosition(true, 0.0), 1.0);
    EXPECT_EQ(f.config.ValueToPosition(true, -5.0), 1.0) << "as far below as 0 itself";
}

TEST(ParamViewerConfigTest, LogScaleWorksBelowZeroToo) {
    CFixture f(kParamReal, -1.0, -100.0);
    f.config.SetLogScale(true);
    EXPECT_NEAR(f.config.ValueToPosition(true, -10.0), 0.5, 1e-15);
    EXPECT_NEAR(f.config.PositionToValue(0.5), -10.0, 1e-12);
}

TEST(ParamViewerConfigTest, LogScaleWithoutALogarithmPutsEveryValueAtZero) {
    const double ranges[][2] = {{0.0, 10.0}, {-1.0, 1.0}, {-5.0, 0.0}, {4.0, 4.0}, {1e-300, 1e300}};
    for (const auto& [min, max] : ranges) {
        CFixture f(kParamReal, min, max);
        f.config.SetLogScale(true);
        for (const double value : {min, max, 0.5 * (min + max), 0.0, -7.0, kInfinity, kNaN}) {
            EXPECT_EQ(f.config.ValueToPosition(false, value), 0.0) << min << " " << max;
        }
        EXPECT_EQ(f.config.PositionToValue(0.0), min);
        EXPECT_EQ(f.config.PositionToValue(0.5), min);
    }
}

/// Lays the range 0 to 1 out by squares.
class CSquareMapper : public IParamPositionMapper {
public:
    double ValueToPosition(double value) const override { return std::sqrt(value); }
    double PositionToValue(double position) const override { return position * position; }
    IParamPositionMapper* Clone() const override { return new CSquareMapper; }
};

TEST(ParamViewerConfigTest, TheParametersOwnCurveIsUsedUnlessItIsSwitchedOff) {
    CFixture f(kParamReal, 0.0, 1.0);
    f.info.SetPositionMapper(new CSquareMapper, Core::kOwn);
    EXPECT_EQ(f.log.Take(), "config");
    EXPECT_EQ(f.config.ValueToPosition(true, 0.25), 0.5);
    EXPECT_EQ(f.config.PositionToValue(0.5), 0.25);
    f.config.SetUseParameterCurve(true);
    EXPECT_EQ(f.log.Take(), "");
    f.config.SetUseParameterCurve(false);
    EXPECT_EQ(f.log.Take(), "config");
    EXPECT_EQ(f.config.ValueToPosition(true, 0.25), 0.25);
    EXPECT_EQ(f.config.PositionToValue(0.5), 0.5);
}

TEST(ParamViewerConfigTest, AMapperThatIsReplacedIsNotAskedAnyMore) {
    CParamInfo info = MakeInfo(kParamReal, 0.0, 1.0);
    info.SetPositionMapper(new CSquareMapper, Core::kOwn);
    // Listens ahead of the config, as the object of the info does.
    std::unique_ptr<CParamViewerConfig> config;
    double seen = 0.0;
    const CEventHook early(info.GetInfoChangedEvents(), [&] {
        if (config) {
            seen = config->ValueToPosition(true, 0.25);
        }
    });
    config = std::make_unique<CParamViewerConfig>(info);
    info.SetPositionMapper(nullptr, Core::kOwn);
    EXPECT_EQ(seen, 0.25);
    config.reset();
}

TEST(ParamViewerConfigTest, ARangeOfZeroWidthPutsEveryValueAtZero) {
    for (const bool useCurve : {true, false}) {
        CFixture f(kParamReal, 4.0, 4.0);
        f.config.SetUseParameterCurve(useCurve);
        for (const double value : {4.0, 5.0, -5.0, kInfinity, kNaN}) {
            EXPECT_EQ(f.config.ValueToPosition(false, value), 0.0);
        }
        for (const double position : {0.0, 0.5, 1.0, 7.0, kInfinity, kNaN}) {
            EXPECT_EQ(f.config.PositionToValue(position), 4.0);
        }
    }
}

// Hostile numbers

const double kHostile[] = {0.0,  -0.0,  1.0,    -1.0,     0.5,       2.0,       1e-320,     1e9,
                           -3e9, 1e300, -1e300, kLargest, -kLargest, kInfinity, -kInfinity, kNaN};

void ExpectDefined(const CParamViewerConfig& config) {
    const int count = config.GetPositionsCount();
    EXPECT_TRUE(count == -1 || count >= 1);
    EXPECT_TRUE(count == -1 || config.GetZoomedPositionsCount() >= 1);
    EXPECT_FALSE(std::isnan(config.GetVisiblePositionsCount()));
    for (const double number : kHostile) {
        const double clamped = config.ValueToPosition(true, number);
        EXPECT_TRUE(clamped >= 0.0 && clamped <= 1.0) << number;
        config.ValueToPosition(false, number);
        config.PositionToValue(number);
    }
    for (const double position : {config.GetMinPosition(true), config.GetMaxPosition(true),
                                  config.GetDefaultPosition(true)}) {
        EXPECT_TRUE(position >= 0.0 && position <= 1.0);
    }
}

TEST(ParamViewerConfigTest, AnyRangeGivesPositionsWithinZeroToOne) {
    for (const int type : {-1, 0, 1, 2, 3, 4}) {
        for (const double min : kHostile) {
            for (const double max : kHostile) {
                CParamInfo info = MakeInfo(static_cast<EParamType>(type), min, max);
                CParamViewerConfig config(info);
                for (const int variant : {0, 1, 2, 3}) {
                    config.SetLogScale((variant & 1) != 0);
                    config.SetUseParameterCurve((variant & 2) != 0);
                    ExpectDefined(config);
                }
            }
        }
    }
}

TEST(ParamViewerConfigTest, AnyZoomAndCountGivePositionsWithinZeroToOne) {
    for (const EParamType type : {kParamReal, kParamInteger}) {
        CParamInfo info = MakeInfo(type, -3.0, 1e12);
        CParamViewerConfig config(info);
        config.SetEnablePositionsZoom(true);
        for (const int curve : {0, 4, 8, 12}) {
            config.SetResponseCurve(static_cast<EParamValueCurve>(curve));
            for (const double zoom : kHostile) {
                config.SetZoom(zoom);
                for (const double position : kHostile) {
                    config.SetZoomPosition(position);
                    for (const int count : {INT_MIN, -1, 0, 1, 2, INT_MAX}) {
                        config.SetPositionsCount(count);
                        config.SetPositionsZoomBaseFactor(count);
                        config.SetMaxPositionsZoom(count);
                        ExpectDefined(config);
                    }
                }
            }
        }
    }
}

TEST(ParamViewerConfigTest, AListenerMayChangeTheConfig) {
    CFixture f(kParamReal, 0.0, 1.0);
    const CEventHook hook(f.config.GetConfigEvents(), [&] { f.config.SetZoomPosition(0.5); });
    f.config.SetZoom(2.0);
    EXPECT_EQ(f.config.GetZoomPosition(), 0.5);
    EXPECT_EQ(f.config.ValueToPosition(false, 0.75), 1.0);
}

} // namespace
} // namespace Vorin::DataModel::Controls
