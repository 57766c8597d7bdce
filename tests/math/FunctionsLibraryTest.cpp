#include "math/FunctionsLibrary.h"

#include "core/NonFinite.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Vorin::Math {
namespace {

using L = FunctionsLibrary;

constexpr double kPi = 3.14159265358979323846;

TEST(FunctionsLibraryTest, PlainFunctionsOfOneArgument) {
    EXPECT_EQ(L::Abs(-2.5), 2.5);
    EXPECT_EQ(L::Ceil(1.25), 2.0);
    EXPECT_EQ(L::Ceil(-1.25), -1.0);
    EXPECT_EQ(L::Floor(1.75), 1.0);
    EXPECT_EQ(L::Floor(-1.25), -2.0);
    EXPECT_EQ(L::Identity(-7.5), -7.5);
    EXPECT_EQ(L::Negate(3.0), -3.0);
    EXPECT_EQ(L::Square(-3.0), 9.0);
    EXPECT_EQ(L::SquareRoot(2.25), 1.5);
}

TEST(FunctionsLibraryTest, TranscendentalFunctions) {
    EXPECT_NEAR(L::Cos(kPi / 3), 0.5, 1e-15);
    EXPECT_NEAR(L::Sin(kPi / 6), 0.5, 1e-15);
    EXPECT_NEAR(L::Tan(kPi / 4), 1.0, 1e-15);
    EXPECT_NEAR(L::Exp(1.0), 2.718281828459045, 1e-15);
    EXPECT_NEAR(L::Log(10.0), 2.302585092994046, 1e-15);
    // cosh(ln 2) = (2 + 1/2) / 2, sinh(ln 2) = (2 - 1/2) / 2
    EXPECT_NEAR(L::Cosh(std::log(2.0)), 1.25, 1e-15);
    EXPECT_NEAR(L::Sinh(std::log(2.0)), 0.75, 1e-15);
    EXPECT_NEAR(L::Tanh(std::log(2.0)), 0.6, 1e-15);
}

TEST(FunctionsLibraryTest, RoundTakesHalvesAwayFromZero) {
    EXPECT_EQ(L::Round(2.5), 3.0);
    EXPECT_EQ(L::Round(-2.5), -3.0);
    EXPECT_EQ(L::Round(2.25), 2.0);
}

TEST(FunctionsLibraryTest, DecibelsAreTwentyPerDecade) {
    EXPECT_DOUBLE_EQ(L::TodB(100.0), 40.0);
    EXPECT_DOUBLE_EQ(L::TodB(0.1), -20.0);
    EXPECT_DOUBLE_EQ(L::FromdB(-20.0), 0.1);
    EXPECT_DOUBLE_EQ(L::FromdB(6.0), 1.9952623149688795);
}

TEST(FunctionsLibraryTest, NotIsOneOnlyForZero) {
    EXPECT_EQ(L::Not(0.0), 1.0);
    EXPECT_EQ(L::Not(-0.0), 1.0);
    EXPECT_EQ(L::Not(0.5), 0.0);
    EXPECT_EQ(L::Not(-1.0), 0.0);
}

TEST(FunctionsLibraryTest, SquareRootOfANegativeIsZero) {
    EXPECT_EQ(L::SquareRoot(-4.0), 0.0);
    EXPECT_TRUE(std::isnan(L::SquareRoot(kNaN)));
}

TEST(FunctionsLibraryTest, NormalisedLogarithmsAtOneTenthAndOneHalf) {
    EXPECT_NEAR(L::NormLog(0.5), 0.5849625007211562, 1e-14);    // log2(1.5)
    EXPECT_NEAR(L::NormLog1(0.1), 0.2890648263178879, 1e-14);   // ln 2 / ln 11
    EXPECT_NEAR(L::NormLog2(0.09), 0.4989219858054783, 1e-14);  // ln 10 / ln 101
    EXPECT_NEAR(L::NormLog3(0.099), 0.6665702189598550, 1e-14); // ln 100 / ln 1001
}

TEST(FunctionsLibraryTest, NormalisedExponentialsAtOneHalf) {
    // (sqrt(K + 1) - 1) / K
    EXPECT_NEAR(L::NormExp(0.5), 0.41421356237309515, 1e-14);
    EXPECT_NEAR(L::NormExp1(0.5), 0.23166247903554, 1e-14);
    EXPECT_NEAR(L::NormExp2(0.5), 0.09049875621120890, 1e-14);
    EXPECT_NEAR(L::NormExp3(0.5), 0.03063858403911274, 1e-14);
}

TEST(FunctionsLibraryTest, NormalisedFormsKeepZeroAndOne) {
    for (auto function : {&L::NormLog, &L::NormLog1, &L::NormLog2, &L::NormLog3, &L::NormExp,
                          &L::NormExp1, &L::NormExp2, &L::NormExp3}) {
        EXPECT_EQ(function(0.0), 0.0);
        EXPECT_NEAR(function(1.0), 1.0, 1e-14);
    }
}

TEST(FunctionsLibraryTest, SquaresAreThoseOfTheGeneralPower) {
    for (double x = -1e3; x < 1e3; x += 0.37) {
        EXPECT_DOUBLE_EQ(L::Power(x, 2.0), std::pow(x, 2.0)) << x;
    }
    EXPECT_EQ(L::Power(-kInfinity, 2.0), kInfinity);
    EXPECT_EQ(L::Power(1e200, 2.0), kInfinity);
    EXPECT_FALSE(std::signbit(L::Power(-0.0, 2.0)));
    EXPECT_TRUE(std::isnan(L::Power(kNaN, 2.0)));
}

TEST(FunctionsLibraryTest, ArithmeticOfTwoArguments) {
    EXPECT_EQ(L::Sum(1.5, 2.0), 3.5);
    EXPECT_EQ(L::Difference(1.5, 2.0), -0.5);
    EXPECT_EQ(L::Product(1.5, 2.0), 3.0);
    EXPECT_EQ(L::Division(3.0, 2.0), 1.5);
    EXPECT_EQ(L::Power(2.0, 10.0), 1024.0);
    EXPECT_EQ(L::Average(1.0, 4.0), 2.5);
    EXPECT_EQ(L::Distance(1.0, 4.0), 3.0);
    EXPECT_EQ(L::Distance(4.0, 1.0), 3.0);
    EXPECT_EQ(L::Max(2.0, 3.0), 3.0);
    EXPECT_EQ(L::Max(3.0, 2.0), 3.0);
    EXPECT_EQ(L::Min(2.0, 3.0), 2.0);
    EXPECT_EQ(L::Min(3.0, 2.0), 2.0);
    EXPECT_EQ(L::X(2.0, 3.0), 2.0);
    EXPECT_EQ(L::Y(2.0, 3.0), 3.0);
}

TEST(FunctionsLibraryTest, ModuleIsAModulusAndNotARemainder) {
    EXPECT_EQ(L::Module(3.0, 4.0), 5.0);
    EXPECT_EQ(L::Module(-3.0, 4.0), 5.0);
}

TEST(FunctionsLibraryTest, LogicTakesAnythingButZeroAsTrue) {
    EXPECT_EQ(L::And(0.5, -2.0), 1.0);
    EXPECT_EQ(L::And(0.5, 0.0), 0.0);
    EXPECT_EQ(L::And(0.0, 0.5), 0.0);
    EXPECT_EQ(L::Or(0.0, -0.5), 1.0);
    EXPECT_EQ(L::Or(0.5, 0.0), 1.0);
    EXPECT_EQ(L::Or(0.0, 0.0), 0.0);
}

TEST(FunctionsLibraryTest, ComparisonsGiveOneOrZero) {
    // Rows: less, equal, greater. Columns as in the header line.
    struct CRow {
        double x, y, equal, notEqual, greater, greaterEqual, lower, lowerEqual;
    };
    for (const CRow& row : {CRow{1, 2, 0, 1, 0, 0, 1, 1}, CRow{2, 2, 1, 0, 0, 1, 0, 1},
                            CRow{2, 1, 0, 1, 1, 1, 0, 0}}) {
        EXPECT_EQ(L::Equality(row.x, row.y), row.equal);
        EXPECT_EQ(L::NotEqual(row.x, row.y), row.notEqual);
        EXPECT_EQ(L::GreaterThan(row.x, row.y), row.greater);
        EXPECT_EQ(L::GreaterThanEqual(row.x, row.y), row.greaterEqual);
        EXPECT_EQ(L::LowerThan(row.x, row.y), row.lower);
        EXPECT_EQ(L::LowerThanEqual(row.x, row.y), row.lowerEqual);
    }
}

TEST(FunctionsLibraryTest, UndefinedResultsAreThoseOfFloatingPoint) {
    EXPECT_EQ(L::Division(1.0, 0.0), kInfinity);
    EXPECT_TRUE(std::isnan(L::Division(0.0, 0.0)));
    EXPECT_EQ(L::Log(0.0), -kInfinity);
    EXPECT_TRUE(std::isnan(L::Log(-1.0)));
    EXPECT_EQ(L::TodB(0.0), -kInfinity);
    EXPECT_TRUE(std::isnan(L::NormLog3(-1.0)));
}

} // namespace
} // namespace Vorin::Math
