#include "datamodel/links/MuxFunction.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace Vorin::DataModel::Objects {
namespace {

double Mux(const char* word, std::initializer_list<double> values) {
    const std::vector<double> list(values);
    return FindMuxFunction(word)(list.data(), static_cast<int>(list.size()));
}

TEST(MuxFunctionTest, MeanMaxAndMin) {
    EXPECT_EQ(Mux("mean", {1, 2, 6}), 3.0);
    EXPECT_EQ(Mux("max", {1, 6, 2}), 6.0);
    EXPECT_EQ(Mux("min", {2, 1, 6}), 1.0);
    EXPECT_EQ(Mux("max", {-3, -2}), -2.0);
    EXPECT_EQ(Mux("min", {3, 2}), 2.0);
}

TEST(MuxFunctionTest, TheSameNegated) {
    EXPECT_EQ(Mux("-mean", {1, 2, 6}), -3.0);
    EXPECT_EQ(Mux("-max", {1, 6, 2}), -6.0);
    EXPECT_EQ(Mux("-min", {2, 1, 6}), -1.0);
}

TEST(MuxFunctionTest, AnyOtherWordIsTheMean) {
    EXPECT_EQ(Mux(nullptr, {1, 2, 6}), 3.0);
    EXPECT_EQ(Mux("", {1, 2, 6}), 3.0);
    EXPECT_EQ(Mux("Max", {1, 2, 6}), 3.0);
    EXPECT_EQ(Mux("<>", {1, 2, 6}), 3.0);
}

TEST(MuxFunctionTest, WithoutValuesTheResultIsZero) {
    for (const char* word : {"mean", "max", "min", "-mean", "-max", "-min", "+", "-", "*", "/"}) {
        EXPECT_EQ(Mux(word, {}), 0.0) << word;
    }
}

TEST(MuxFunctionTest, RelationsHoldFromEachValueToTheNext) {
    EXPECT_EQ(Mux("<", {1, 2, 2}), 0.0);
    EXPECT_EQ(Mux("<=", {1, 2, 2}), 1.0);
    EXPECT_EQ(Mux("<", {1, 2, 3}), 1.0);
    EXPECT_EQ(Mux("<=", {1, 2, 1}), 0.0);
    EXPECT_EQ(Mux(">", {3, 2, 1}), 1.0);
    EXPECT_EQ(Mux(">", {3, 3, 1}), 0.0);
    EXPECT_EQ(Mux(">=", {3, 3, 1}), 1.0);
    EXPECT_EQ(Mux(">=", {3, 3, 4}), 0.0);
    EXPECT_EQ(Mux("=", {2, 2, 2}), 1.0);
    EXPECT_EQ(Mux("=", {2, 2, 3}), 0.0);
}

TEST(MuxFunctionTest, RelationsHoldForOneValueAndForNone) {
    for (const char* word : {"<", "<=", ">", ">=", "="}) {
        EXPECT_EQ(Mux(word, {5}), 1.0) << word;
        EXPECT_EQ(Mux(word, {}), 1.0) << word;
    }
}

TEST(MuxFunctionTest, ArithmeticFoldsFromTheFirstValueOn) {
    EXPECT_EQ(Mux("+", {1, 2, 6}), 9.0);
    EXPECT_EQ(Mux("-", {10, 2, 5}), 3.0);
    EXPECT_EQ(Mux("*", {2, 3, 4}), 24.0);
    EXPECT_EQ(Mux("/", {24, 2, 3}), 4.0);
    EXPECT_EQ(Mux("-", {7}), 7.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects
