#include "datamodel/ParamValueCurve.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Vorin::DataModel::Objects {
namespace {

EParamValueCurve CurveAt(int index) { return static_cast<EParamValueCurve>(index); }

double Forward(EParamValueCurve curve, double x) {
    return CreateParamValueCurveFunctions(curve).forward->Evaluate(x);
}

TEST(ParamValueCurveTest, NamesAndWhatUsersSee) {
    const char* const names[][2] = {
        {"Log3", "Fast 5"},        {"Log2", "Fast 4"}, {"Log1", "Fast 3"},   {"Log0", "Fast 2"},
        {"Square Root", "Fast 1"}, {"Log", "Fast"},    {"Linear", "Linear"}, {"Exp", "Slow"},
        {"Square", "Slow 1"},      {"Exp0", "Slow 2"}, {"Exp1", "Slow 3"},   {"Exp2", "Slow 4"},
        {"Exp3", "Slow 5"}};
    ASSERT_EQ(kParamValueCurvesCount, 13);
    for (int i = 0; i < 13; ++i) {
        EXPECT_STREQ(GetParamValueCurveName(CurveAt(i)), names[i][0]);
        EXPECT_STREQ(GetParamValueCurveDisplayName(CurveAt(i)), names[i][1]);
        EParamValueCurve found = CurveAt(-1);
        EXPECT_TRUE(FindParamValueCurve(names[i][0], found));
        EXPECT_EQ(found, CurveAt(i));
    }
}

TEST(ParamValueCurveTest, AnUnknownNameLeavesTheCurve) {
    EParamValueCurve curve = kParamValueCurveSquare;
    for (const char* name : {"log3", "", "Fast 5", static_cast<const char*>(nullptr)}) {
        EXPECT_FALSE(FindParamValueCurve(name, curve));
        EXPECT_EQ(curve, kParamValueCurveSquare);
    }
}

TEST(ParamValueCurveTest, ForwardFunctionsAtAHalfByHand) {
    EXPECT_NEAR(Forward(kParamValueCurveLog3, 0.5), std::log(501.0) / std::log(1001.0), 1e-14);
    EXPECT_NEAR(Forward(kParamValueCurveLog2, 0.5), std::log(51.0) / std::log(101.0), 1e-14);
    EXPECT_NEAR(Forward(kParamValueCurveLog1, 0.5), std::log(6.0) / std::log(11.0), 1e-14);
    EXPECT_EQ(Forward(kParamValueCurveLog0, 0.5), 0.5);
    EXPECT_NEAR(Forward(kParamValueCurveSquareRoot, 0.5), 0.70710678118654757, 1e-14);
    EXPECT_NEAR(Forward(kParamValueCurveLog, 0.5), std::log2(1.5), 1e-14);
    EXPECT_EQ(Forward(kParamValueCurveLinear, 0.5), 0.5);
    EXPECT_NEAR(Forward(kParamValueCurveExp, 0.5), std::sqrt(2.0) - 1.0, 1e-14);
    EXPECT_EQ(Forward(kParamValueCurveSquare, 0.5), 0.25);
    EXPECT_EQ(Forward(kParamValueCurveExp0, 0.5), 0.5);
    EXPECT_NEAR(Forward(kParamValueCurveExp1, 0.5), (std::sqrt(11.0) - 1.0) / 10.0, 1e-14);
    EXPECT_NEAR(Forward(kParamValueCurveExp2, 0.5), (std::sqrt(101.0) - 1.0) / 100.0, 1e-14);
    EXPECT_NEAR(Forward(kParamValueCurveExp3, 0.5), (std::sqrt(1001.0) - 1.0) / 1000.0, 1e-14);
}

TEST(ParamValueCurveTest, EachCurveIsUndoneByItsInverse) {
    for (int i = 0; i < kParamValueCurvesCount; ++i) {
        const CParamValueCurveFunctions functions = CreateParamValueCurveFunctions(CurveAt(i));
        for (int step = 0; step <= 20; ++step) {
            const double x = step / 20.0;
            EXPECT_NEAR(functions.inverse->Evaluate(functions.forward->Evaluate(x)), x, 1e-12);
            EXPECT_NEAR(functions.forward->Evaluate(functions.inverse->Evaluate(x)), x, 1e-12);
        }
    }
}

TEST(ParamValueCurveTest, EachCurveMirrorsTheOneAtTheOtherEnd) {
    for (int i = 0; i < kParamValueCurvesCount; ++i) {
        const CParamValueCurveFunctions a = CreateParamValueCurveFunctions(CurveAt(i));
        const CParamValueCurveFunctions b = CreateParamValueCurveFunctions(CurveAt(12 - i));
        EXPECT_STREQ(a.forward->GetType(), b.inverse->GetType());
        EXPECT_STREQ(a.inverse->GetType(), b.forward->GetType());
    }
}

TEST(ParamValueCurveTest, OutsideTheTableIsTheIdentity) {
    for (const int index : {-1, 13, 1000000, -1000000}) {
        const CParamValueCurveFunctions functions = CreateParamValueCurveFunctions(CurveAt(index));
        EXPECT_EQ(functions.forward->Evaluate(0.3), 0.3);
        EXPECT_EQ(functions.inverse->Evaluate(0.3), 0.3);
        EXPECT_EQ(GetParamValueCurveName(CurveAt(index)), nullptr);
        EXPECT_EQ(GetParamValueCurveDisplayName(CurveAt(index)), nullptr);
    }
}

} // namespace
} // namespace Vorin::DataModel::Objects
