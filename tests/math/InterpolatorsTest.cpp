#include "math/Interpolators.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace Vorin::Math {
namespace {

template <class P>
constexpr P kInfinityOf = std::numeric_limits<P>::infinity();
template <class P>
const P kNaNOf = std::numeric_limits<P>::quiet_NaN();

template <class I>
double At(const std::vector<typename I::Value>& values, typename I::Position position) {
    // An exact allocation, so that the address sanitizer sees a read outside.
    return I::Interpolate(values.data(), static_cast<int>(values.size()), position);
}

using Nearest = TNearestInterpolator<float, float>;
using Linear = TLinearInterpolator<double, double>;
using Spline = TConstrainedSplineInterpolator<double, double>;
using FloatSpline = TConstrainedSplineInterpolator<float, float>;

TEST(InterpolatorsTest, NearestTakesTheLaterOfTwoAtHalfway) {
    const std::vector<float> values = {10, 20, 30};
    EXPECT_EQ(At<Nearest>(values, 0.25F), 10.0);
    EXPECT_EQ(At<Nearest>(values, 0.5F), 20.0);
    EXPECT_EQ(At<Nearest>(values, 1.25F), 20.0);
    EXPECT_EQ(At<Nearest>(values, 1.5F), 30.0);
    EXPECT_EQ(At<Nearest>(values, 2.0F), 30.0);
}

TEST(InterpolatorsTest, LinearGoesStraightFromEntryToEntry) {
    const std::vector<double> values = {10, 20, 0};
    EXPECT_EQ(At<Linear>(values, 0.0), 10.0);
    EXPECT_EQ(At<Linear>(values, 0.25), 12.5);
    EXPECT_EQ(At<Linear>(values, 1.0), 20.0);
    EXPECT_EQ(At<Linear>(values, 1.75), 5.0);
}

TEST(InterpolatorsTest, LinearAtTheLastEntryReadsNothingBehindIt) {
    EXPECT_EQ(At<Linear>({10, 20, 30}, 2.0), 30.0);
    // An infinite entry is itself, not the NaN of infinity minus infinity.
    EXPECT_EQ(At<Linear>({10, kInfinityOf<double>}, 1.0), kInfinityOf<double>);
}

TEST(InterpolatorsTest, SplineWithEvenNeighboursByHand) {
    // Differences 1, 2, 1: the slope at both ends is the harmonic mean 4/3, so the cubic is
    // 1 + 4/3 f + 2 f^2 - 4/3 f^3.
    const std::vector<double> values = {0, 1, 3, 4};
    EXPECT_NEAR(At<Spline>(values, 1.25), 1.4375, 1e-6);
    EXPECT_NEAR(At<Spline>(values, 1.5), 2.0, 1e-6);
    EXPECT_NEAR(At<Spline>(values, 1.75), 2.5625, 1e-6);
}

TEST(InterpolatorsTest, SplineIsFlatWhereANeighbourTurns) {
    // Both neighbours turn: slopes 0 at both ends, 3 f^2 - 2 f^3.
    const std::vector<double> values = {1, 0, 1, 0};
    EXPECT_NEAR(At<Spline>(values, 1.25), 0.15625, 1e-12);
    EXPECT_NEAR(At<Spline>(values, 1.5), 0.5, 1e-12);
}

TEST(InterpolatorsTest, SplineRepeatsTheEdgesInPlaceOfMissingNeighbours) {
    // First segment of 0, 2, 4 with a 0 before it: slope 0 at the left, 2 at the right, so
    // 0 + 0 f + 4 f^2 - 2 f^3.
    EXPECT_NEAR(At<Spline>({0, 2, 4}, 0.5), 0.75, 1e-6);
    // The last segment is its mirror image: 2 + 2 f + 2 f^2 - 2 f^3.
    EXPECT_NEAR(At<Spline>({0, 2, 4}, 1.5), 3.25, 1e-6);
    EXPECT_EQ(At<Spline>({0, 2, 4}, 2.0), 4.0);
    EXPECT_NEAR(At<Spline>({5, 7}, 0.5), 6.0, 1e-12);
}

/// The cubic with given ends and end slopes, where a slope is the harmonic mean of the differences
/// at its side, or 0 when they differ in sign.
double HermiteTwin(double a, double b, double c, double d, double f) {
    const auto slope = [](double left, double right) {
        return left * right > 0 ? 2 * left * right / (left + right) : 0.0;
    };
    const double s = c - b;
    const double m0 = slope(b - a, s);
    const double m1 = slope(s, d - c);
    return b + m0 * f + (3 * s - 2 * m0 - m1) * f * f + (m0 + m1 - 2 * s) * f * f * f;
}

TEST(InterpolatorsTest, SplineSegmentsMatchTheCubicWithHarmonicSlopesAndNeverOvershoot) {
    std::mt19937 random(20240517);
    std::uniform_real_distribution<double> sample(-1.0, 1.0);
    for (int i = 0; i < 2000; ++i) {
        const double k[4] = {sample(random), sample(random), sample(random), sample(random)};
        const float kf[4] = {static_cast<float>(k[0]), static_cast<float>(k[1]),
                             static_cast<float>(k[2]), static_cast<float>(k[3])};
        const double f = (sample(random) + 1.0) / 2.0;
        const double value = Spline::Segment(k + 1, f);
        EXPECT_NEAR(value, HermiteTwin(k[0], k[1], k[2], k[3], f), 1e-6);
        EXPECT_NEAR(FloatSpline::Segment(kf + 1, static_cast<float>(f)), value, 1e-5);
        EXPECT_GE(value, std::min(k[1], k[2]) - 1e-7);
        EXPECT_LE(value, std::max(k[1], k[2]) + 1e-7);
    }
}

TEST(InterpolatorsTest, SplineSegmentStartsAtTheFirstValueExactly) {
    const float k[4] = {0.1F, 0.3F, 0.2F, 0.7F};
    EXPECT_EQ(FloatSpline::Segment(k + 1, 0.0F), 0.3F);
}

template <class I>
void ExpectClamped() {
    using P = typename I::Position;
    const std::vector<typename I::Value> values = {1, 2, 4, 8};
    for (const P before : {P(-0.75), P(-1), P(-1e30), -kInfinityOf<P>, kNaNOf<P>}) {
        EXPECT_EQ(At<I>(values, before), 1.0);
    }
    for (const P behind : {P(3), P(3.75), P(4), P(1e30), kInfinityOf<P>}) {
        EXPECT_EQ(At<I>(values, behind), 8.0);
    }
    for (const P any : {P(-1), P(0), P(0.5), P(1), P(1e30), kNaNOf<P>}) {
        EXPECT_EQ(At<I>({}, any), 0.0);
        EXPECT_EQ(At<I>({5}, any), 5.0);
    }
    EXPECT_EQ(I::Interpolate(values.data(), -1, P(0)), 0.0);
}

TEST(InterpolatorsTest, NothingOutsideTheTableIsRead) {
    ExpectClamped<TNearestInterpolator<float, float>>();
    ExpectClamped<TNearestInterpolator<double, double>>();
    ExpectClamped<TLinearInterpolator<float, float>>();
    ExpectClamped<TLinearInterpolator<double, double>>();
    ExpectClamped<TConstrainedSplineInterpolator<float, float>>();
    ExpectClamped<TConstrainedSplineInterpolator<double, double>>();
}

} // namespace
} // namespace Vorin::Math
