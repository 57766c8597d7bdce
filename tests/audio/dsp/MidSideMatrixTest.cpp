#include "audio/dsp/MidSideMatrix.h"

#include "audio/dsp/FilterTestKit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace Vorin::Audio::DSP {
namespace {

using Samples = std::vector<float>;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

struct CPair {
    Samples first;
    Samples second;
};

CMidSideMatrix MatrixOf(const std::vector<double>& orders) {
    CMidSideMatrix matrix;
    for (std::size_t k = 0; k < orders.size(); ++k) {
        matrix.SetOrder(static_cast<int>(k), orders[k]);
    }
    return matrix;
}

CPair Apply(const CMidSideMatrix& matrix, Samples left, Samples right) {
    const int frames = static_cast<int>(left.size());
    CPair result{Samples(left.size()), Samples(left.size())};
    const CAudioStream l(left.data(), frames);
    const CAudioStream r(right.data(), frames);
    CAudioStream first(result.first.data(), frames);
    CAudioStream second(result.second.data(), frames);
    matrix.Apply(l, r, first, second, frames);
    return result;
}

void ApplyInverse(const CMidSideMatrix& matrix, CPair& pair) {
    const int frames = static_cast<int>(pair.first.size());
    CAudioStream first(pair.first.data(), frames);
    CAudioStream second(pair.second.data(), frames);
    matrix.ApplyInverse(first, second, frames);
}

/// The matrix for one frame in the mode `a`, as it is told.
std::pair<float, float> Plain(double mode, float l, float r) {
    const float a = static_cast<float>(mode);
    const bool isMidSide = a == 0.0F || !std::isnormal(a);
    const float p = isMidSide ? 1.0F : 1.0F + a;
    const float q = isMidSide ? 1.0F : 1.0F - a;
    return {(p * r + q * l) * 0.5F, (q * r - p * l) * 0.5F};
}

/// n over k, for the few that a ramp needs.
double Choose(int n, int k) {
    double result = 1.0;
    for (int i = 0; i < k; ++i) {
        result = result * (n - i) / (i + 1);
    }
    return result;
}

/// The mode at a frame. The orders are added from the highest down, so that after i frames the
/// order k has gone in (i + k - 1) over k times.
double ModeAt(const std::vector<double>& orders, int frame) {
    double mode = 0.0;
    for (int k = 0; k < static_cast<int>(orders.size()); ++k) {
        mode += orders[static_cast<std::size_t>(k)] * (k == 0 ? 1.0 : Choose(frame + k - 1, k));
    }
    return mode;
}

TEST(MidSideMatrixTest, StartsInLeftRight) { EXPECT_EQ(CMidSideMatrix().GetOrder(0), -1.0); }

TEST(MidSideMatrixTest, PassesLeftAndRightThroughBitForBit) {
    const Samples left{0.1F, -0.0F, 0.0F, kNaN, 1.0F, kInfinity, 1e-40F, 3.4e38F, -0.3F};
    const Samples right{0.7F, 1.0F, -0.0F, 0.5F, -kNaN, 0.25F, -kInfinity, 3.4e38F, 1e-45F};
    const CPair pair = Apply(MatrixOf({-1.0}), left, right);
    EXPECT_EQ(BitsOf(pair.first), BitsOf(left));
    EXPECT_EQ(BitsOf(pair.second), BitsOf(right));
}

TEST(MidSideMatrixTest, GivesMidAndSide) {
    // Mid is half the sum, Side half of right less left.
    const CPair pair = Apply(MatrixOf({0.0}), {1, 1, 0.5F, -0.25F}, {1, -1, 0.25F, -0.75F});
    EXPECT_EQ(pair.first, (Samples{1, 0, 0.375F, -0.5F}));
    EXPECT_EQ(pair.second, (Samples{0, -1, -0.125F, -0.25F}));
}

TEST(MidSideMatrixTest, TakesADenormalModeForMidSide) {
    for (const double mode : {1e-40, -1e-40, -0.0, 1e-200}) {
        const CPair pair = Apply(MatrixOf({mode}), {1.0F}, {0.5F});
        EXPECT_EQ(pair.first, Samples{0.75F}) << mode;
        EXPECT_EQ(pair.second, Samples{-0.25F}) << mode;
    }
}

TEST(MidSideMatrixTest, CoversEveryModeInBetween) {
    const Samples left = MakeTestNoise(100, 1);
    const Samples right = MakeTestNoise(100, 2);
    for (const double mode : {-0.999, -0.75, -0.5, -0.1, 0.25, 1.0}) {
        const CPair pair = Apply(MatrixOf({mode}), left, right);
        for (std::size_t i = 0; i < left.size(); ++i) {
            const auto [first, second] = Plain(mode, left[i], right[i]);
            ASSERT_EQ(pair.first[i], first) << mode;
            ASSERT_EQ(pair.second[i], second) << mode;
        }
    }
}

TEST(MidSideMatrixTest, GivesTheSameInAnyStride) {
    Samples interleaved = MakeTestNoise(64, 3);
    for (const double mode : {-1.0, -0.5, 0.0}) {
        Samples left;
        Samples right;
        for (std::size_t i = 0; i < interleaved.size(); i += 2) {
            left.push_back(interleaved[i]);
            right.push_back(interleaved[i + 1]);
        }
        const CPair expected = Apply(MatrixOf({mode}), left, right);
        Samples result(64);
        const CAudioStream l(interleaved.data(), 64, 2);
        const CAudioStream r(interleaved.data(), 64, 2, 1);
        CAudioStream first(result.data(), 64, 2);
        CAudioStream second(result.data(), 64, 2, 1);
        MatrixOf({mode}).Apply(l, r, first, second, 32);
        for (std::size_t i = 0; i < left.size(); ++i) {
            EXPECT_EQ(result[2 * i], expected.first[i]) << mode;
            EXPECT_EQ(result[2 * i + 1], expected.second[i]) << mode;
        }
    }
}

TEST(MidSideMatrixTest, MovesTheModeFromFrameToFrame) {
    const Samples left = MakeTestNoise(33, 4);
    const Samples right = MakeTestNoise(33, 5);
    // All of them sums of powers of two, so that no order of adding rounds.
    const std::vector<std::vector<double>> courses{
        {-1.0, 0.03125},
        {0.0, -0.03125},
        {-1.0, 0.0, 0.0009765625},
        {-1.0, 0.015625, 0.0009765625},
        {-0.5, 0.25, -0.0625, 0.00390625},
    };
    for (const std::vector<double>& orders : courses) {
        const CPair pair = Apply(MatrixOf(orders), left, right);
        for (int i = 0; i < 33; ++i) {
            const auto at = static_cast<std::size_t>(i);
            const auto [first, second] = Plain(ModeAt(orders, i), left[at], right[at]);
            ASSERT_EQ(pair.first[at], first) << orders.size() << " orders, frame " << i;
            ASSERT_EQ(pair.second[at], second) << orders.size() << " orders, frame " << i;
        }
    }
}

TEST(MidSideMatrixTest, AddsEachOrderAsItHasJustBecome) {
    // After the first frame: order 1 is 0 + 0.5, and order 0 is -1 + 0.5.
    const CPair pair = Apply(MatrixOf({-1.0, 0.0, 0.5}), {1, 1, 1}, {0, 0, 0});
    EXPECT_EQ(pair.first, (Samples{1, 0.75F, 0.25F})); // (1 - a) / 2 for a = -1, -0.5, 0.5
}

TEST(MidSideMatrixTest, StandsStillWithDifferencesOfZero) {
    const Samples left = MakeTestNoise(20, 6);
    const Samples right = MakeTestNoise(20, 7);
    const CPair moving = Apply(MatrixOf({-0.25, 0.0, 0.0}), left, right);
    const CPair standing = Apply(MatrixOf({-0.25}), left, right);
    EXPECT_EQ(moving.first, standing.first);
    EXPECT_EQ(moving.second, standing.second);
}

TEST(MidSideMatrixTest, ForgetsHigherOrdersWhenALowerOneIsSet) {
    CMidSideMatrix matrix = MatrixOf({-1.0, 0.5});
    matrix.SetOrder(0, 0.0);
    const CPair pair = Apply(matrix, {1, 1, 1}, {1, 1, 1});
    EXPECT_EQ(pair.first, (Samples{1, 1, 1}));
    EXPECT_EQ(pair.second, (Samples{0, 0, 0}));
}

TEST(MidSideMatrixTest, IgnoresOrdersThatItHasNoRoomFor) {
    CMidSideMatrix matrix = MatrixOf({0.0});
    matrix.SetOrder(CMidSideMatrix::kMaxOrder + 1, 5.0);
    matrix.SetOrder(-1, 5.0);
    EXPECT_EQ(Apply(matrix, {1, 1}, {1, 1}).first, (Samples{1, 1}));
}

TEST(MidSideMatrixTest, StartsEachBlockFromTheOrdersThatWereSet) {
    const CMidSideMatrix matrix = MatrixOf({-1.0, 0.5});
    const CPair once = Apply(matrix, {1, 1}, {0, 0});
    EXPECT_EQ(Apply(matrix, {1, 1}, {0, 0}).first, once.first);
}

TEST(MidSideMatrixTest, ComesBackByTheInverse) {
    const Samples left = MakeTestNoise(200, 8);
    const Samples right = MakeTestNoise(200, 9);
    for (const std::vector<double>& orders :
         std::vector<std::vector<double>>{{-1.0}, {0.0}, {-0.5}, {0.75}, {1.0}, {-1.0, 0.005}}) {
        CPair pair = Apply(MatrixOf(orders), left, right);
        ApplyInverse(MatrixOf(orders), pair);
        for (std::size_t i = 0; i < left.size(); ++i) {
            ASSERT_NEAR(pair.first[i], left[i], 1e-6) << orders[0];
            ASSERT_NEAR(pair.second[i], right[i], 1e-6) << orders[0];
        }
    }
}

TEST(MidSideMatrixTest, LeavesLeftAndRightAloneInTheInverse) {
    CPair pair{{-0.0F, kNaN, 1e-40F}, {1.0F, 2.0F, kInfinity}};
    const CPair before = pair;
    ApplyInverse(MatrixOf({-1.0}), pair);
    EXPECT_EQ(BitsOf(pair.first), BitsOf(before.first));
    EXPECT_EQ(BitsOf(pair.second), BitsOf(before.second));
}

TEST(MidSideMatrixTest, GivesExactLeftAndRightBackFromMidAndSide) {
    CPair pair = Apply(MatrixOf({0.0}), {0.5F, 0.25F}, {-0.25F, 1.0F});
    ApplyInverse(MatrixOf({0.0}), pair);
    EXPECT_EQ(pair.first, (Samples{0.5F, 0.25F}));
    EXPECT_EQ(pair.second, (Samples{-0.25F, 1.0F}));
}

TEST(MidSideMatrixTest, WorksInPlace) {
    Samples left{1, 0.5F};
    Samples right{1, -0.5F};
    CAudioStream l(left.data(), 2);
    CAudioStream r(right.data(), 2);
    MatrixOf({0.0}).Apply(l, r, l, r, 2);
    EXPECT_EQ(left, (Samples{1, 0}));
    EXPECT_EQ(right, (Samples{0, -0.5F}));
}

TEST(MidSideMatrixTest, DoesNothingWithoutDataOrFrames) {
    Samples samples{1, 2};
    CAudioStream stream(samples.data(), 2);
    CAudioStream absent;
    CEmptyStream silence(2);
    const CMidSideMatrix matrix = MatrixOf({0.0});
    matrix.Apply(absent, stream, stream, stream, 2);
    matrix.Apply(stream, stream, silence, stream, 2);
    matrix.Apply(stream, stream, stream, stream, -1);
    matrix.Apply(stream, stream, stream, stream, 0);
    matrix.ApplyInverse(silence, stream, 2);
    matrix.ApplyInverse(stream, stream, std::numeric_limits<int>::min());
    EXPECT_EQ(samples, (Samples{1, 2}));
}

} // namespace
} // namespace Vorin::Audio::DSP
