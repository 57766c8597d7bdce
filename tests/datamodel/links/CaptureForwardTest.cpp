#include "datamodel/links/CaptureForward.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel {
namespace {

TEST(CaptureForwardTest, IsOpenUntilItIsClosed) {
    Core::CCapture a;
    Core::CCapture b;
    CCaptureForward forward;
    EXPECT_FALSE(forward.IsOpen());
    EXPECT_FALSE(forward.Close());
    forward.Open(a, b);
    EXPECT_TRUE(forward.IsOpen());
    EXPECT_TRUE(CCaptureForward::LeadsFrom(a, b));
    EXPECT_FALSE(CCaptureForward::LeadsFrom(b, a));
    EXPECT_TRUE(forward.Close());
    EXPECT_FALSE(forward.IsOpen());
    EXPECT_FALSE(CCaptureForward::LeadsFrom(a, b));
}

TEST(CaptureForwardTest, LeadsOverAnyNumberOfGestures) {
    Core::CCapture objects[5];
    CCaptureForward forwards[4];
    for (const int i : {2, 0, 3, 1}) {
        forwards[i].Open(objects[i], objects[i + 1]);
    }
    EXPECT_TRUE(CCaptureForward::LeadsFrom(objects[0], objects[4]));
    EXPECT_FALSE(CCaptureForward::LeadsFrom(objects[4], objects[0]));
    forwards[1].Close(); // one of the middle
    EXPECT_FALSE(CCaptureForward::LeadsFrom(objects[0], objects[4]));
    EXPECT_TRUE(CCaptureForward::LeadsFrom(objects[2], objects[4]));
}

TEST(CaptureForwardTest, ARingOfGesturesIsSearchedOnce) {
    Core::CCapture a;
    Core::CCapture b;
    Core::CCapture c;
    CCaptureForward forth;
    CCaptureForward back;
    forth.Open(a, b);
    back.Open(b, a);
    EXPECT_TRUE(CCaptureForward::LeadsFrom(a, a));
    EXPECT_FALSE(CCaptureForward::LeadsFrom(c, a));
}

TEST(CaptureForwardTest, DeathAndReopeningCloseIt) {
    Core::CCapture a;
    Core::CCapture b;
    Core::CCapture c;
    {
        CCaptureForward forward;
        forward.Open(a, b);
        forward.Open(a, c);
        EXPECT_FALSE(CCaptureForward::LeadsFrom(a, b));
        EXPECT_TRUE(CCaptureForward::LeadsFrom(a, c));
    }
    EXPECT_FALSE(CCaptureForward::LeadsFrom(a, c));
}

} // namespace
} // namespace Vorin::DataModel
