// Properties of the mapping over random infos and configs, and its plain twin: the mapping as its
// rule reads, with nothing cached and no short ways.

#include "datamodel/controls/ParamViewerConfig.h"
#include "datamodel/controls/Params.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

/// Everything that a mapping is made of.
struct CSetup {
    EParamType type = kParamReal;
    double min = 0.0;
    double max = 1.0;
    bool reversed = false;
    bool logScale = false;
    bool useParameterCurve = true;
    EParamValueCurve curve = kParamValueCurveLinear;
    double zoom = 1.0;
    double zoomPosition = 0.0;
    int count = -1;
    bool enablePositionsZoom = false;
    int base = 1;
    int maxPositionsZoom = -1;
};

void Configure(CParamViewerConfig& config, const CSetup& s) {
    config.SetReversed(s.reversed);
    config.SetLogScale(s.logScale);
    config.SetUseParameterCurve(s.useParameterCurve);
    config.SetResponseCurve(s.curve);
    config.SetZoom(s.zoom);
    config.SetZoomPosition(s.zoomPosition);
    config.SetPositionsZoomBaseFactor(s.base);
    config.SetMaxPositionsZoom(s.maxPositionsZoom);
    config.SetEnablePositionsZoom(s.enablePositionsZoom);
    config.SetPositionsCount(s.count);
}

class CRandom {
public:
    explicit CRandom(unsigned seed) : engine(seed) {}

    int Int(int first, int last) {
        return first + static_cast<int>(engine() % static_cast<unsigned>(last - first + 1));
    }
    bool Bool() { return Int(0, 1) == 1; }
    double Real(double first, double last) {
        return first + (last - first) * (static_cast<double>(engine()) / 4294967296.0);
    }

    CSetup Setup() {
        CSetup s;
        s.type = static_cast<EParamType>(Int(0, 3));
        SetRange(s);
        s.reversed = Bool();
        s.logScale = s.type == kParamReal && s.min > 0.0 && Bool();
        s.useParameterCurve = Bool();
        s.curve = static_cast<EParamValueCurve>(Int(0, kParamValueCurvesCount - 1));
        s.zoom = Bool() ? 1.0 : Real(1.0, 64.0);
        s.zoomPosition = Real(0.0, 1.0);
        s.count = Bool() ? -1 : Int(1, 300);
        s.enablePositionsZoom = Bool();
        s.base = Int(0, 4);
        s.maxPositionsZoom = Bool() ? -1 : Int(1, 20);
        return s;
    }

    /// A value that the parameter can have.
    double Value(const CSetup& s) {
        if (IsTwoState(s.type)) {
            return Bool() ? s.min : s.max;
        }
        if (s.type == kParamInteger) {
            return static_cast<double>(Int(static_cast<int>(s.min), static_cast<int>(s.max)));
        }
        return Real(s.min, s.max);
    }

    static bool IsTwoState(EParamType type) {
        return type == kParamBoolean || type == kParamSwitch;
    }

private:
    void SetRange(CSetup& s) {
        if (s.type == kParamReal) {
            s.min = Bool() ? Real(0.1, 100.0) : Real(-100.0, 0.0);
            s.max = s.min + (Int(0, 9) == 0 ? 0.0 : Real(0.5, 2000.0));
        } else {
            s.min = static_cast<double>(Int(-20, 20));
            s.max = s.min + static_cast<double>(Int(0, 9) == 0 ? 0 : Int(1, 200));
        }
    }

    std::mt19937 engine;
};

// The plain twin

class CTwin {
public:
    CTwin(const CSetup& setup, const CParamViewerConfig& config)
        : s(setup), count(config.GetPositionsCount()),
          functions(CreateParamValueCurveFunctions(s.curve)), mapper(s.type, s.min, s.max) {}

    double ValueToPosition(bool clamp, double value) const {
        double q = functions.inverse->Evaluate(Normalise(value));
        q = s.reversed ? 1.0 - q : q;
        if (count != -1) {
            const int c = GetZoomedCount();
            const int k = static_cast<int>((c - 1) * q + 0.5);
            q = c > 1 ? static_cast<double>(k) / (c - 1) : k;
        }
        const double z = q * s.zoom - (s.zoom - 1.0) * s.zoomPosition;
        return clamp ? std::clamp(z, 0.0, 1.0) : z;
    }

    double PositionToValue(double position) const {
        double q = (position + (s.zoom - 1.0) * s.zoomPosition) * (1.0 / s.zoom);
        if (count != -1) {
            const int c = GetZoomedCount();
            q = c >= 2 ? static_cast<double>(static_cast<int>(q * (c - 1) + 0.5)) / (c - 1) : 0.0;
        }
        return Quantized(Denormalise(functions.forward->Evaluate(s.reversed ? 1.0 - q : q)));
    }

    int GetZoomedCount() const { return GetFactor() * (count - 1) + 1; }

private:
    double Normalise(double value) const {
        if (s.max == s.min) {
            return 0.0;
        }
        if (s.logScale) {
            return std::log(value / s.min) * (1.0 / std::log(s.max / s.min));
        }
        return s.useParameterCurve ? mapper.ValueToPosition(value)
                                   : (value - s.min) * (1.0 / (s.max - s.min));
    }

    double Denormalise(double t) const {
        if (s.max == s.min) {
            return s.min;
        }
        if (s.logScale) {
            return std::pow(s.max / s.min, t) * s.min;
        }
        return s.useParameterCurve ? mapper.PositionToValue(t) : (s.max - s.min) * t + s.min;
    }

    double Quantized(double value) const {
        if (s.type == kParamReal) {
            return value;
        }
        if (CRandom::IsTwoState(s.type)) {
            return value > (s.max - s.min) * 0.5 ? s.max : s.min;
        }
        return std::round(value);
    }

    /// By multiplying up, where the code takes logarithms.
    int GetFactor() const {
        if (!s.enablePositionsZoom) {
            return 1;
        }
        int factor = 1;
        if (s.base > 1) {
            while (factor * s.base <= s.zoom) {
                factor *= s.base;
            }
        } else {
            factor = static_cast<int>(s.zoom);
        }
        return std::max(s.maxPositionsZoom == -1 ? factor : std::min(factor, s.maxPositionsZoom),
                        1);
    }

    const CSetup& s;
    int count;
    CParamValueCurveFunctions functions;
    CLinearPositionMapper mapper;
};

/// Runs a check over many mappings, each with many values.
template <class Check>
void ForRandomSetups(unsigned seed, Check check) {
    CRandom random(seed);
    for (int round = 0; round < 4000; ++round) {
        const CSetup s = random.Setup();
        CParamInfo info = MakeInfo(s.type, s.min, s.max);
        CParamViewerConfig config(info);
        Configure(config, s);
        SCOPED_TRACE(testing::Message()
                     << "round " << round << " type " << s.type << " range " << s.min << " to "
                     << s.max << " reversed " << s.reversed << " log " << s.logScale << " own "
                     << s.useParameterCurve << " curve " << s.curve << " zoom " << s.zoom << " at "
                     << s.zoomPosition << " count " << config.GetPositionsCount() << " of "
                     << config.GetZoomedPositionsCount());
        check(s, config, random);
        if (testing::Test::HasFailure()) {
            return; // one mapping with all that is wrong about it says enough
        }
    }
}

TEST(ParamViewerConfigRoundTripTest, TheMappingIsThatOfItsPlainTwin) {
    ForRandomSetups(1, [](const CSetup& s, const CParamViewerConfig& config, CRandom& random) {
        const CTwin twin(s, config);
        if (config.GetPositionsCount() != -1) {
            EXPECT_EQ(config.GetZoomedPositionsCount(), twin.GetZoomedCount());
        }
        for (int i = 0; i < 10; ++i) {
            const double value = random.Value(s);
            const double position = random.Real(-0.2, 1.2);
            EXPECT_EQ(config.ValueToPosition(true, value), twin.ValueToPosition(true, value));
            EXPECT_EQ(config.ValueToPosition(false, value), twin.ValueToPosition(false, value));
            const double expected = twin.PositionToValue(position);
            if (std::isnan(expected)) { // the logarithm of a position below the range
                EXPECT_TRUE(std::isnan(config.PositionToValue(position)));
            } else {
                EXPECT_EQ(config.PositionToValue(position), expected);
            }
        }
    });
}

TEST(ParamViewerConfigRoundTripTest, ClampedPositionsLieWithinZeroToOne) {
    ForRandomSetups(2, [](const CSetup& s, const CParamViewerConfig& config, CRandom& random) {
        for (int i = 0; i < 10; ++i) {
            const double value = random.Value(s);
            const double open = config.ValueToPosition(false, value);
            const double clamped = config.ValueToPosition(true, value);
            EXPECT_GE(clamped, 0.0);
            EXPECT_LE(clamped, 1.0);
            EXPECT_EQ(clamped, std::min(std::max(open, 0.0), 1.0));
        }
    });
}

/// How far a value comes back at most from where it set out when nothing is stepped. The steepest
/// curves have an infinite slope at an end, where the last bit of a position is the 1e-8th part of
/// the range; a log scale is as steep again as its logarithm at max.
double GetTolerance(const CSetup& s) {
    const double slope = s.logScale ? s.max * std::log(s.max / s.min) : s.max - s.min;
    return 1e-6 * slope;
}

TEST(ParamViewerConfigRoundTripTest, AContinuousValueComesBack) {
    ForRandomSetups(3, [](const CSetup& s, const CParamViewerConfig& config, CRandom& random) {
        if (config.GetPositionsCount() != -1) {
            return; // steps have their own test
        }
        for (int i = 0; i < 10; ++i) {
            const double value = random.Value(s);
            const double position = config.ValueToPosition(false, value);
            EXPECT_NEAR(config.PositionToValue(position), value, GetTolerance(s));
            // Clamped it comes back when it is in view; else as the nearer end of the view.
            const double shown = config.PositionToValue(config.ValueToPosition(true, value));
            const double end = config.PositionToValue(position < 0.0 ? 0.0 : 1.0);
            const bool isInView = position >= 0.0 && position <= 1.0;
            EXPECT_NEAR(shown, isInView ? value : end, GetTolerance(s));
        }
    });
}

TEST(ParamViewerConfigRoundTripTest, ASteppedValueComesBackWithinOneStep) {
    ForRandomSetups(4, [](const CSetup& s, const CParamViewerConfig& config, CRandom& random) {
        const int count = config.GetZoomedPositionsCount();
        if (config.GetPositionsCount() == -1 || CRandom::IsTwoState(s.type)) {
            return; // these have their own tests
        }
        CSetup continuous = s;
        continuous.type = kParamReal; // the mapping without steps and rounding
        continuous.count = -1;
        CParamInfo info = MakeInfo(kParamReal, s.min, s.max);
        CParamViewerConfig unstepped(info);
        Configure(unstepped, continuous);
        for (int i = 0; i < 10; ++i) {
            const double value = random.Value(s);
            const double back = config.PositionToValue(config.ValueToPosition(false, value));
            if (count == 1) { // one position, one value
                EXPECT_EQ(back, config.PositionToValue(0.0));
                continue;
            }
            // The value and what comes back have their places on the way within a step of each
            // other; an integer is rounded besides, by half a value.
            const double step = s.zoom / (count - 1);
            const double place = unstepped.ValueToPosition(false, value);
            double low = unstepped.PositionToValue(place - step);
            double high = unstepped.PositionToValue(place + step);
            // A place beyond the range, where a curve may have no value, is that of its end.
            low = place - step < -(s.zoom - 1.0) * s.zoomPosition ? (s.reversed ? s.max : s.min)
                                                                  : low;
            high = place + step > s.zoom - (s.zoom - 1.0) * s.zoomPosition
                       ? (s.reversed ? s.min : s.max)
                       : high;
            const double slack = GetTolerance(s) + (s.type == kParamInteger ? 0.5 : 0.0);
            EXPECT_GE(back, std::min(low, high) - slack) << value;
            EXPECT_LE(back, std::max(low, high) + slack) << value;
        }
    });
}

TEST(ParamViewerConfigRoundTripTest, AnIntegerWithAllItsPositionsComesBackExactly) {
    ForRandomSetups(5, [](const CSetup& s, CParamViewerConfig& config, CRandom& random) {
        if (s.type != kParamInteger) {
            return;
        }
        config.SetResponseCurve(kParamValueCurveLinear); // others spread the steps unevenly
        config.ResetPositionsCount();
        for (int i = 0; i < 10; ++i) {
            const double value = random.Value(s);
            EXPECT_EQ(config.PositionToValue(config.ValueToPosition(false, value)), value);
        }
    });
}

TEST(ParamViewerConfigRoundTripTest, ATwoStateValueComesBackUnlessBothLieOnOneSideOfHalfTheSpan) {
    ForRandomSetups(6, [](const CSetup& s, CParamViewerConfig& config, CRandom& random) {
        if (!CRandom::IsTwoState(s.type)) {
            return;
        }
        config.ResetPositionsCount();
        const double half = (s.max - s.min) * 0.5;
        for (int i = 0; i < 4; ++i) {
            const double value = random.Value(s);
            const double back = config.PositionToValue(config.ValueToPosition(false, value));
            if (s.min > half) {
                EXPECT_EQ(back, s.max);
            } else if (s.max <= half) {
                EXPECT_EQ(back, s.min);
            } else {
                EXPECT_EQ(back, value);
            }
        }
    });
}

TEST(ParamViewerConfigRoundTripTest, StepsAreFixedPoints) {
    ForRandomSetups(7, [](const CSetup& s, CParamViewerConfig& config, CRandom& random) {
        if (CRandom::IsTwoState(s.type) || s.min == s.max) {
            return; // two states have their own test, and an empty range has one value
        }
        if (s.type == kParamInteger) {
            // With steps finer than the values, two may mean the same one. They are not, when they
            // are even and no zoom adds any.
            config.SetResponseCurve(kParamValueCurveLinear);
            config.SetEnablePositionsZoom(false);
        }
        const int count = config.GetZoomedPositionsCount();
        if (count < 2) {
            return;
        }
        for (int i = 0; i < 10; ++i) {
            const int step = random.Int(0, count - 1);
            const double offset = (s.zoom - 1.0) * s.zoomPosition;
            const double position = static_cast<double>(step) / (count - 1) * s.zoom - offset;
            const double again = config.ValueToPosition(false, config.PositionToValue(position));
            EXPECT_EQ(again, position) << "step " << step;
        }
    });
}

TEST(ParamViewerConfigRoundTripTest, AnEmptyRangeHasOneValue) {
    ForRandomSetups(8, [](const CSetup& s, const CParamViewerConfig& config, CRandom& random) {
        if (s.min == s.max) {
            EXPECT_EQ(config.PositionToValue(random.Real(-1.0, 2.0)), s.min);
        }
    });
}

} // namespace
} // namespace Vorin::DataModel::Controls
