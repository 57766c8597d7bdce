#include "datamodel/links/MultipleCaptureCurveLink.h"

#include "datamodel/links/CaptureObjectLink.h"
#include "datamodel/links/LinkTestTools.h"
#include "datamodel/objects/CaptureCurve.h"
#include "math/Constant.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using CConstantFunction = Math::CConstantFunction;

class MultipleCaptureCurveLinkTest : public ::testing::Test {
protected:
    MultipleCaptureCurveLinkTest() {
        a.SetValue(Math::TFunction<&Library::Identity>());
        b.SetValue(CConstantFunction(2.0));
        link.AddSource(&a);
        link.AddSource(&b);
        link.SetTarget(&target);
    }

    double At(double x) const { return target.GetValue().Evaluate(x); }

    CCaptureCurve a;
    CCaptureCurve b;
    CCaptureCurve target;
    CObjectLog log{target};
    CMultipleCaptureCurveLink link;
};

TEST_F(MultipleCaptureCurveLinkTest, TheCurveThatChangedLastWins) {
    link.SetEnabled(true);
    EXPECT_EQ(At(7.0), 2.0); // at first the last one of the list
    a.SetValue(Math::TFunction<&Library::Square>());
    EXPECT_EQ(At(7.0), 49.0);
    b.SetValue(CConstantFunction(3.0));
    EXPECT_EQ(At(7.0), 3.0);
    EXPECT_EQ(log.Take(), "vvv");
}

TEST_F(MultipleCaptureCurveLinkTest, AfterAPauseItIsTheOneThatChangedMeanwhile) {
    link.SetEnabled(true);
    link.SetPaused(true);
    a.SetValue(CConstantFunction(5.0));
    EXPECT_EQ(At(0.0), 2.0);
    link.SetPaused(false);
    EXPECT_EQ(At(0.0), 5.0);
}

TEST_F(MultipleCaptureCurveLinkTest, AMuxFunctionFoldsTheCurvesInOrder) {
    link.SetEnabled(true);
    link.SetMuxFunction("+");
    EXPECT_EQ(At(7.0), 9.0);
    link.SetMuxFunction("-");
    EXPECT_EQ(At(7.0), 5.0);
    link.SetMuxFunction("*");
    EXPECT_EQ(At(7.0), 14.0);
    link.SetMuxFunction("/");
    EXPECT_EQ(At(7.0), 3.5);
    a.SetValue(CConstantFunction(4.0));
    EXPECT_EQ(At(7.0), 2.0);
    link.SetMuxFunction("max");
    EXPECT_EQ(At(7.0), 4.0); // no such word: the one that changed last
}

TEST_F(MultipleCaptureCurveLinkTest, TheGestureIsForwarded) {
    link.SetEnabled(true);
    log.Take();
    a.Capture();
    b.Capture();
    a.Release();
    b.Release();
    EXPECT_EQ(log.Take(), "cr");
}

TEST_F(MultipleCaptureCurveLinkTest, ATargetAmongTheSourcesIsNotFoldedIn) {
    link.AddSource(&target);
    link.SetMuxFunction("+");
    link.SetEnabled(true);
    a.SetValue(CConstantFunction(1.0));
    a.SetValue(CConstantFunction(10.0));
    EXPECT_EQ(At(0.0), 12.0);
}

TEST_F(MultipleCaptureCurveLinkTest, AFoldThatLeadsBackIntoItselfStopsGrowing) {
    CCaptureCurve again;
    CCaptureCurveLink toB;
    CCaptureCurveLink toAgain;
    link.AddSource(&again);
    link.SetMuxFunction("+");
    link.SetEnabled(true);
    toB.SetSource(&target);
    toB.SetTarget(&b);
    toB.SetEnabled(true);
    toAgain.SetSource(&target);
    toAgain.SetTarget(&again);
    toAgain.SetEnabled(true);
    for (int i = 0; i < 40; ++i) { // would double each time
        a.SetValue(CConstantFunction(1.0));
    }
    const double stopped = At(0.0);
    a.SetValue(CConstantFunction(1.0));
    EXPECT_EQ(At(0.0), stopped);
    link.Disconnect();
}

} // namespace
} // namespace Vorin::DataModel::Objects
