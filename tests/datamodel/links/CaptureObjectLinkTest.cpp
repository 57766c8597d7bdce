#include "datamodel/links/CaptureObjectLink.h"

#include "datamodel/links/LinkTestTools.h"
#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureString.h"
#include "math/Constant.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

TEST(CaptureObjectLinkTest, ACurveFollowsACurve) {
    CCaptureCurve source;
    CCaptureCurve target;
    source.SetValue(Math::CConstantFunction(2.0));
    CCaptureCurveLink link;
    link.SetSource(&source);
    link.SetTarget(&target);
    link.SetEnabled(true);
    EXPECT_EQ(target.GetValue().Evaluate(0.0), 2.0);
    source.SetValue(Math::TFunction<&Library::Square>());
    EXPECT_EQ(target.GetValue().Evaluate(3.0), 9.0);
    EXPECT_NE(&target.GetValue(), &source.GetValue()); // a clone
}

TEST(CaptureObjectLinkTest, ATextFollowsAText) {
    CCaptureString source;
    CCaptureString target;
    source.SetValue("one");
    CCaptureStringLink link;
    link.SetSource(&source);
    link.SetTarget(&target);
    link.SetEnabled(true);
    EXPECT_STREQ(target.GetValue(), "one");
    source.SetValue("two");
    EXPECT_STREQ(target.GetValue(), "two");
    link.SetPaused(true);
    source.SetValue("three");
    EXPECT_STREQ(target.GetValue(), "two");
    link.SetPaused(false);
    EXPECT_STREQ(target.GetValue(), "three");
}

TEST(CaptureObjectLinkTest, TheGestureOfACurveIsForwarded) {
    CCaptureCurve source;
    CCaptureCurve target;
    CObjectLog log(target);
    CCaptureCurveLink link;
    link.SetSource(&source);
    link.SetTarget(&target);
    link.SetEnabled(true);
    log.Take();
    source.Capture();
    source.SetValue(Math::CConstantFunction(1.0));
    source.Release();
    EXPECT_EQ(log.Take(), "cvr");
}

TEST(CaptureObjectLinkTest, TwoCurvesThatFollowEachOtherComeToRest) {
    CCaptureCurve a;
    CCaptureCurve b;
    CObjectLog log(b);
    CCaptureCurveLink forth;
    CCaptureCurveLink back;
    forth.SetSource(&a);
    forth.SetTarget(&b);
    back.SetSource(&b);
    back.SetTarget(&a);
    forth.SetEnabled(true);
    back.SetEnabled(true);
    log.Take();
    a.SetValue(Math::CConstantFunction(3.0));
    EXPECT_EQ(log.Take(), "v");
    b.SetValue(Math::CConstantFunction(4.0));
    EXPECT_EQ(a.GetValue().Evaluate(0.0), 4.0);
}

TEST(CaptureObjectLinkTest, AnObjectLinkedToItselfKeepsItsValue) {
    CCaptureString text;
    CCaptureCurve curve;
    CCaptureStringLink textLink;
    CCaptureCurveLink curveLink;
    textLink.SetSource(&text);
    textLink.SetTarget(&text);
    curveLink.SetSource(&curve);
    curveLink.SetTarget(&curve);
    textLink.SetEnabled(true);
    curveLink.SetEnabled(true);
    text.SetValue("same");
    curve.SetValue(Math::CConstantFunction(5.0));
    EXPECT_STREQ(text.GetValue(), "same");
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 5.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects
