#include "audio/plugin/midi/MIDICCMapping.h"

#include "audio/plugin/midi/MIDITestKit.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;
using namespace DataModel::Objects;

constexpr double kStep = 0.007874015748031496;

/// The curves as formulas, by their number.
double Forward(int curve, double x) {
    const auto log = [](double steepness, double v) {
        return std::log1p(steepness * v) / std::log1p(steepness);
    };
    const auto exp = [](double steepness, double v) {
        return (std::pow(steepness + 1.0, v) - 1.0) / steepness;
    };
    switch (curve) {
    case 0:
        return log(1000.0, x);
    case 1:
        return log(100.0, x);
    case 2:
        return log(10.0, x);
    case 4:
        return std::sqrt(x);
    case 5:
        return log(1.0, x);
    case 7:
        return exp(1.0, x);
    case 8:
        return x * x;
    case 10:
        return exp(10.0, x);
    case 11:
        return exp(100.0, x);
    case 12:
        return exp(1000.0, x);
    default:
        return x;
    }
}

TEST(MIDICCMapping, EachCurveBendsTheRangeByItsFunction) {
    const CParamInfo info = MakeInfo(-20.0, 60.0);
    CMIDICCSetting setting(info);
    setting.SetMin(-10.0);
    setting.SetMax(40.0);
    for (int curve = 0; curve < kParamValueCurvesCount; ++curve) {
        setting.SetCurve(static_cast<EParamValueCurve>(curve));
        for (int cc = 0; cc <= 127; ++cc) {
            const double x = cc * kStep;
            EXPECT_NEAR(ToValue(info, setting, x), -10.0 + 50.0 * Forward(curve, x), 1e-11)
                << curve << " " << cc;
        }
    }
}

TEST(MIDICCMapping, FromValueUndoesToValueWithinOneStepForAllCurves) {
    const CParamInfo info = MakeInfo(0.0, 300.0);
    CMIDICCSetting setting(info);
    const double ranges[][2] = {{0.0, 300.0}, {300.0, 0.0}, {12.5, 77.7}, {-5.0, 1e6}, {9.0, 8.9}};
    for (const auto& range : ranges) {
        setting.SetMin(range[0]);
        setting.SetMax(range[1]);
        for (int curve = -1; curve <= kParamValueCurvesCount; ++curve) {
            setting.SetCurve(static_cast<EParamValueCurve>(curve));
            for (int cc = 0; cc <= 127; ++cc) {
                const double value = ToValue(info, setting, cc * kStep);
                EXPECT_NEAR(FromValue(info, setting, value) * 127.0, cc, 1e-6)
                    << range[0] << ".." << range[1] << " " << curve << " " << cc;
            }
        }
    }
}

TEST(MIDICCMapping, AValueOf127GivesExactlyMaxUnderTheLinearCurveAnd0GivesMin) {
    // Ends for which the way through positions rounds to a neighbour.
    for (const double end : {0.1, 77.7, 33.3, 1.0 / 3.0, 299.9999, 1e-300}) {
        const CParamInfo info = MakeInfo(0.0, 300.0);
        CMIDICCSetting setting(info);
        setting.SetMin(-end);
        setting.SetMax(end);
        for (int curve = 0; curve < kParamValueCurvesCount; ++curve) {
            setting.SetCurve(static_cast<EParamValueCurve>(curve));
            EXPECT_EQ(ToValue(info, setting, 127 * kStep), end);
            EXPECT_EQ(ToValue(info, setting, 0.0), -end);
        }
    }
}

TEST(MIDICCMapping, WithMinAboveMaxTheControllerRunsBackwards) {
    const CParamInfo info = MakeInfo(0.0, 100.0);
    CMIDICCSetting setting(info);
    setting.SetMin(80.0);
    setting.SetMax(20.0);
    EXPECT_EQ(ToValue(info, setting, 0.0), 80.0);
    EXPECT_DOUBLE_EQ(ToValue(info, setting, 0.25), 65.0);
    EXPECT_EQ(ToValue(info, setting, 1.0), 20.0);
    EXPECT_DOUBLE_EQ(FromValue(info, setting, 65.0), 0.25);
    EXPECT_EQ(FromValue(info, setting, 80.0), 0.0);
    EXPECT_EQ(FromValue(info, setting, 20.0), 1.0);
    EXPECT_EQ(FromValue(info, setting, 100.0), 0.0);
    EXPECT_EQ(FromValue(info, setting, 0.0), 1.0);
}

TEST(MIDICCMapping, WithMinEqualToMaxThereIsOneValue) {
    const CParamInfo info = MakeInfo(0.0, 100.0);
    CMIDICCSetting setting(info);
    setting.SetMin(40.0);
    setting.SetMax(40.0);
    for (const double x : {0.0, 0.3, 1.0}) {
        EXPECT_EQ(ToValue(info, setting, x), 40.0);
    }
    EXPECT_EQ(FromValue(info, setting, 40.0), 0.0);
    EXPECT_EQ(FromValue(info, setting, 10.0), 0.0);
    EXPECT_DOUBLE_EQ(FromValue(info, setting, 90.0), 0.5); // positions apart, undivided
    EXPECT_EQ(FromValue(info, setting, 1000.0), 1.0);
}

TEST(MIDICCMapping, PositionsOutsideCountAsTheNearerEnd) {
    const CParamInfo info = MakeInfo(0.0, 100.0);
    const CMIDICCSetting setting(info);
    for (const double below : {-1e-9, -1.0, -kInfinity, kNaN}) {
        EXPECT_EQ(ToValue(info, setting, below), 0.0);
    }
    for (const double above : {1.000001, 5.0, kInfinity}) {
        EXPECT_EQ(ToValue(info, setting, above), 100.0);
    }
}

TEST(MIDICCMapping, ValuesOutsideCountAsTheNearerEndAndNaNAsTheLower) {
    const CParamInfo info = MakeInfo(0.0, 100.0);
    CMIDICCSetting setting(info);
    for (int curve = 0; curve < kParamValueCurvesCount; ++curve) {
        setting.SetCurve(static_cast<EParamValueCurve>(curve));
        EXPECT_EQ(FromValue(info, setting, -0.001), 0.0);
        EXPECT_EQ(FromValue(info, setting, -kInfinity), 0.0);
        EXPECT_EQ(FromValue(info, setting, kNaN), 0.0);
        EXPECT_NEAR(FromValue(info, setting, 101.0), 1.0, 1e-15);
        EXPECT_NEAR(FromValue(info, setting, kInfinity), 1.0, 1e-15);
    }
}

TEST(MIDICCMapping, IntegersAndTwoStatesGetOnlyTheirOwnValues) {
    const CParamInfo mode = MakeInfo(0.0, 2.0, kParamInteger);
    CMIDICCSetting setting(mode);
    EXPECT_EQ(ToValue(mode, setting, 0.2), 0.0);
    EXPECT_EQ(ToValue(mode, setting, 0.3), 1.0);
    EXPECT_EQ(ToValue(mode, setting, 0.8), 2.0);
    setting.SetMin(0.4);
    setting.SetMax(1.7);
    EXPECT_EQ(ToValue(mode, setting, 0.0), 0.0);
    EXPECT_EQ(ToValue(mode, setting, 1.0), 2.0);

    for (const EParamType type : {kParamBoolean, kParamSwitch}) {
        const CParamInfo sync = MakeInfo(0.0, 1.0, type);
        CMIDICCSetting onOff(sync);
        for (int cc = 0; cc <= 127; ++cc) {
            EXPECT_EQ(ToValue(sync, onOff, cc * kStep), cc < 64 ? 0.0 : 1.0) << cc;
        }
        onOff.SetMin(1.0);
        onOff.SetMax(0.0);
        EXPECT_EQ(ToValue(sync, onOff, 0.1), 1.0);
        EXPECT_EQ(ToValue(sync, onOff, 0.9), 0.0);
        EXPECT_EQ(FromValue(sync, onOff, 1.0), 0.0);
    }
}

/// A logarithmic scale, as of a frequency: no value at 0 and below has a position.
class CLogMapper : public virtual IParamPositionMapper {
public:
    double ValueToPosition(double value) const override { return std::log10(value) / 4.0; }
    double PositionToValue(double position) const override {
        return std::pow(10.0, 4.0 * position);
    }
    IParamPositionMapper* Clone() const override { return new CLogMapper(*this); }
};

TEST(MIDICCMapping, GoesAlongTheScaleOfTheParameter) {
    CParamInfo info = MakeInfo(1.0, 10000.0);
    info.SetPositionMapper(new CLogMapper, Core::kOwn);
    CMIDICCSetting setting(info);
    EXPECT_NEAR(ToValue(info, setting, 0.5), 100.0, 1e-9);
    EXPECT_NEAR(FromValue(info, setting, 10.0), 0.25, 1e-12);
    setting.SetMin(100.0);
    EXPECT_NEAR(ToValue(info, setting, 0.5), 1000.0, 1e-9);
    EXPECT_NEAR(FromValue(info, setting, 1000.0), 0.5, 1e-12);
}

TEST(MIDICCMapping, WithoutAFinitePositionBetweenItGivesTheNearerEnd) {
    CParamInfo info = MakeInfo(1.0, 10000.0);
    info.SetPositionMapper(new CLogMapper, Core::kOwn);
    CMIDICCSetting setting(info);
    for (const double min : {0.0, -1.0}) {
        setting.SetMin(min);
        EXPECT_EQ(ToValue(info, setting, 0.0), min);
        EXPECT_EQ(ToValue(info, setting, 0.4), min);
        EXPECT_EQ(ToValue(info, setting, 0.6), 10000.0);
        EXPECT_EQ(ToValue(info, setting, 1.0), 10000.0);
        for (const double value : {0.0, 1.0, 10000.0, kNaN, kInfinity}) {
            const double way = FromValue(info, setting, value);
            EXPECT_TRUE(way >= 0.0 && way <= 1.0) << way;
        }
    }
}

TEST(MIDICCMapping, IsFiniteForTheLargestRanges) {
    const double largest = std::numeric_limits<double>::max();
    for (const double width : {0.0, 1e-300, 1.0, largest}) {
        const CParamInfo info = MakeInfo(0.0, width);
        CMIDICCSetting setting(info);
        setting.SetMin(-largest);
        setting.SetMax(largest);
        for (int curve = 0; curve < kParamValueCurvesCount; ++curve) {
            setting.SetCurve(static_cast<EParamValueCurve>(curve));
            for (int cc = 0; cc <= 127; ++cc) {
                EXPECT_TRUE(std::isfinite(ToValue(info, setting, cc * kStep)));
            }
            const double way = FromValue(info, setting, 0.5);
            EXPECT_TRUE(way >= 0.0 && way <= 1.0 + 1e-15) << way;
        }
    }
}

} // namespace
} // namespace Vorin::Audio::Plugin
