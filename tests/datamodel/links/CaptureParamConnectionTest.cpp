#include "datamodel/links/CaptureParamConnection.h"

#include "core/EventCounter.h"
#include "datamodel/links/LinkTestTools.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::DataModel::Objects {
namespace {

class CaptureParamConnectionTest : public ::testing::Test {
protected:
    void Bind(ICaptureParam& first, ICaptureParam& second) {
        connection->SetObject1(&first);
        connection->SetObject2(&second);
        connection->SetEnabled(true);
    }

    CTestParam a{0, 1, 0.25};
    CTestParam b{0, 1, 0.5};
    CTestParam wide{100, 200, 150};
    CObjectLog logA{a};
    CObjectLog logB{b};
    std::unique_ptr<CCaptureParamConnection> connection =
        std::make_unique<CCaptureParamConnection>();
};

TEST_F(CaptureParamConnectionTest, TheSecondFollowsTheFirstAtFirst) {
    Bind(a, b);
    EXPECT_EQ(a.GetValue(), 0.25);
    EXPECT_EQ(b.GetValue(), 0.25);
}

TEST_F(CaptureParamConnectionTest, OrTheFirstTheSecond) {
    connection->SetSyncFromFirst(false);
    Bind(a, b);
    EXPECT_EQ(a.GetValue(), 0.5);
    EXPECT_EQ(b.GetValue(), 0.5);
}

TEST_F(CaptureParamConnectionTest, EachEndFollowsTheOtherInOneChange) {
    Bind(a, b);
    logA.Take();
    logB.Take();
    a.SetValue(0.75);
    EXPECT_EQ(b.GetValue(), 0.75);
    EXPECT_EQ(logA.Take() + logB.Take(), "vv");
    b.SetValue(0.1);
    EXPECT_EQ(a.GetValue(), 0.1);
    EXPECT_EQ(logA.Take() + logB.Take(), "vv");
}

TEST_F(CaptureParamConnectionTest, TheInverseLeadsBack) {
    CTestParam far(0, 100, 0);
    connection->SetFunctions(MakeFunction<&Library::Square>(), MakeFunction<&Library::SquareRoot>(),
                             Core::kOwn);
    CTestParam near(0, 10, 3);
    Bind(near, far);
    EXPECT_EQ(far.GetValue(), 9.0);
    far.SetValue(25.0);
    EXPECT_EQ(near.GetValue(), 5.0);
    connection->SetFunctions(nullptr, nullptr, Core::kDontOwn);
    EXPECT_EQ(far.GetValue(), 5.0);
    connection->Disconnect();
}

TEST_F(CaptureParamConnectionTest, AResponseCurveIsAPairOfFunctions) {
    connection->SetResponseCurve(kParamValueCurveSquare);
    Bind(a, b);
    EXPECT_EQ(b.GetValue(), 0.0625);
    b.SetValue(0.25);
    EXPECT_EQ(a.GetValue(), 0.5);
    connection->SetResponseCurve(kParamValueCurveSquareRoot);
    a.SetValue(0.25);
    EXPECT_EQ(b.GetValue(), 0.5);
    b.SetValue(0.7);
    EXPECT_NEAR(a.GetValue(), 0.49, 1e-12);
}

TEST_F(CaptureParamConnectionTest, AReversedConnectionMirrorsBothWays) {
    CEventCounter events(connection->GetReverseEvents());
    Bind(a, b);
    connection->SetReversed(true);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_TRUE(connection->IsReversed());
    EXPECT_EQ(b.GetValue(), 0.75);
    b.SetValue(0.1);
    EXPECT_EQ(a.GetValue(), 0.9);
}

TEST_F(CaptureParamConnectionTest, ANormalizedConnectionGoesByPositionBothWays) {
    connection->SetNormalized(true);
    Bind(a, wide);
    EXPECT_EQ(wide.GetValue(), 125.0);
    wide.SetValue(175.0);
    EXPECT_EQ(a.GetValue(), 0.75);
    connection->SetReversed(true);
    EXPECT_EQ(wide.GetValue(), 125.0);
    wide.SetValue(110.0);
    EXPECT_EQ(a.GetValue(), 0.9);
    connection->Disconnect();
}

TEST_F(CaptureParamConnectionTest, ADifferentialConnectionAddsMovesBothWays) {
    connection->SetDifferential(true);
    Bind(a, b);
    EXPECT_EQ(b.GetValue(), 0.5); // starting adds nothing
    a.SetValue(0.35);
    EXPECT_NEAR(b.GetValue(), 0.6, 1e-12);
    b.SetValue(0.8);
    EXPECT_NEAR(a.GetValue(), 0.55, 1e-12);
    a.SetValue(0.45); // the write of the other end was no move of this one
    EXPECT_NEAR(b.GetValue(), 0.7, 1e-12);
}

TEST_F(CaptureParamConnectionTest, ADifferentialNormalizedReversedConnectionAddsPositionsAway) {
    connection->SetDifferential(true);
    connection->SetNormalized(true);
    connection->SetReversed(true);
    Bind(a, wide);
    EXPECT_EQ(wide.GetValue(), 150.0);
    a.SetValue(0.35);
    EXPECT_NEAR(wide.GetValue(), 140.0, 1e-9);
    wide.SetValue(160.0);
    EXPECT_NEAR(a.GetValue(), 0.15, 1e-9);
    connection->Disconnect();
}

TEST_F(CaptureParamConnectionTest, AClampAtTheOtherEndDoesNotComeBack) {
    CTestParam narrow(0, 0.5);
    Bind(a, narrow);
    a.SetValue(0.9);
    EXPECT_EQ(narrow.GetValue(), 0.5);
    EXPECT_EQ(a.GetValue(), 0.9);
    narrow.SetValue(0.4);
    EXPECT_EQ(a.GetValue(), 0.4);
    connection->Disconnect();
}

TEST_F(CaptureParamConnectionTest, AChangeOfARangeSynchronizes) {
    connection->SetNormalized(true);
    Bind(a, wide);
    wide.GetInfo().SetMax(300.0);
    EXPECT_EQ(wide.GetValue(), 150.0); // still a quarter of the way
    EXPECT_EQ(a.GetValue(), 0.25);
    connection->Disconnect();
}

TEST_F(CaptureParamConnectionTest, ACaptureIsOneGestureAtTheOtherEnd) {
    Bind(a, b);
    logA.Take();
    logB.Take();
    a.Capture();
    a.SetValue(0.75);
    a.Release();
    EXPECT_EQ(logA.Take(), "cvr");
    EXPECT_EQ(logB.Take(), "cvr");
    b.Capture();
    b.SetValue(0.5);
    b.Release();
    EXPECT_EQ(logA.Take(), "cvr");
    EXPECT_EQ(logB.Take(), "cvr");
}

TEST_F(CaptureParamConnectionTest, EnablingForwardsTheCaptureOfEitherEnd) {
    b.Capture();
    Bind(a, b);
    EXPECT_TRUE(a.IsCaptured());
    b.Release();
    EXPECT_FALSE(a.IsCaptured());
    EXPECT_EQ(logB.Take(), "cvr");
}

TEST_F(CaptureParamConnectionTest, DisablingReleasesTheForwardedEndOnce) {
    Bind(a, b);
    logB.Take();
    a.Capture();
    connection->SetEnabled(false);
    EXPECT_EQ(logB.Take(), "cr");
    EXPECT_TRUE(a.IsCaptured()); // that one is its holder's
    a.Release();
    EXPECT_EQ(logB.Take(), "");
}

TEST_F(CaptureParamConnectionTest, AGestureEndsThoughTheConnectionIsPausedMeanwhile) {
    Bind(a, b);
    b.Capture();
    connection->SetPaused(true);
    EXPECT_TRUE(a.IsCaptured());
    b.Release();
    EXPECT_FALSE(a.IsCaptured());
    b.Capture();
    EXPECT_FALSE(a.IsCaptured());
}

TEST_F(CaptureParamConnectionTest, APausedConnectionPassesNothingAndCatchesUp) {
    Bind(a, b);
    connection->SetPaused(true);
    a.SetValue(0.9);
    b.SetValue(0.1);
    EXPECT_EQ(a.GetValue(), 0.9);
    EXPECT_EQ(b.GetValue(), 0.1);
    connection->SetPaused(false);
    EXPECT_EQ(b.GetValue(), 0.9);
}

TEST_F(CaptureParamConnectionTest, AnotherEndTakesTheGestureOver) {
    Bind(a, b);
    a.Capture();
    logB.Take();
    CTestParam other;
    connection->SetObject2(&other);
    EXPECT_EQ(logB.Take(), "r");
    EXPECT_TRUE(other.IsCaptured());
    EXPECT_EQ(other.GetValue(), 0.25);
    b.SetValue(0.9);
    EXPECT_EQ(a.GetValue(), 0.25);
    connection->Disconnect();
    EXPECT_FALSE(other.IsCaptured());
}

TEST_F(CaptureParamConnectionTest, ANullEndMakesEveryOperationANoOp) {
    connection->SetEnabled(true);
    connection->SetReversed(true);
    connection->SetPaused(true);
    connection->SetPaused(false);
    connection->SetObject1(&a);
    a.Capture();
    a.SetValue(0.9);
    a.Release();
    EXPECT_EQ(a.GetValue(), 0.9);
    connection->SetObject1(nullptr);
    connection->SetObject2(&b);
    b.SetValue(0.1);
    EXPECT_EQ(b.GetValue(), 0.1);
}

TEST_F(CaptureParamConnectionTest, AnObjectConnectedToItselfComesToRest) {
    connection->SetReversed(true);
    Bind(a, a); // mirrors it once
    EXPECT_EQ(a.GetValue(), 0.75);
    a.Capture();
    a.Release();
    EXPECT_EQ(logA.Take(), "vcr");
    a.SetValue(0.1);
    EXPECT_EQ(a.GetValue(), 0.9);
    a.Capture();
    connection->SetEnabled(false);
    EXPECT_TRUE(a.IsCaptured());
}

TEST_F(CaptureParamConnectionTest, ARingOfThreeComesToRest) {
    CTestParam c;
    CCaptureParamConnection second;
    CCaptureParamConnection third;
    Bind(a, b);
    second.SetObject1(&b);
    second.SetObject2(&c);
    second.SetEnabled(true);
    third.SetObject1(&c);
    third.SetObject2(&a);
    third.SetEnabled(true);
    for (CTestParam* param : {&a, &b, &c}) {
        const double value = param->GetValue() + 0.1;
        param->SetValue(value);
        EXPECT_EQ(a.GetValue(), value);
        EXPECT_EQ(b.GetValue(), value);
        EXPECT_EQ(c.GetValue(), value);
        param->Capture();
        EXPECT_TRUE(a.IsCaptured() && b.IsCaptured() && c.IsCaptured());
        param->Release();
        EXPECT_FALSE(a.IsCaptured() || b.IsCaptured() || c.IsCaptured());
    }
    second.Disconnect();
    third.Disconnect();
}

TEST_F(CaptureParamConnectionTest, DeathReleasesAndDisconnects) {
    Bind(a, b);
    a.Capture();
    connection.reset();
    EXPECT_FALSE(b.IsCaptured());
    a.SetValue(0.9);
    EXPECT_EQ(b.GetValue(), 0.25);
}

} // namespace
} // namespace Vorin::DataModel::Objects
