#include "datamodel/controls/ActionControl.h"

#include "datamodel/controls/EventLog.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

struct CActionFixture {
    CActionFixture() {
        log.Listen(control.GetConnectEvents(), "connect");
        log.Listen(control.GetEnableEvents(), "enable");
        off.SetEnabled(false);
    }

    CAction on;
    CAction off;
    CActionControl control;
    CEventLog log;
};

TEST(ActionControlTest, WithoutAnActionItIsEnabled) {
    CActionFixture f;
    EXPECT_TRUE(f.control.IsEnabled());
    EXPECT_EQ(f.control.GetAction(), nullptr);
}

TEST(ActionControlTest, ConnectTellsOfTheEnableStateOnlyWhenThatDiffers) {
    CActionFixture f;
    f.control.Connect(f.on);
    EXPECT_EQ(f.log.Take(), "connect");
    f.control.Connect(f.off);
    EXPECT_EQ(f.log.Take(), "connect enable");
    EXPECT_FALSE(f.control.IsEnabled());
    EXPECT_EQ(f.control.GetAction(), &f.off);
    f.control.Connect(f.off);
    EXPECT_EQ(f.log.Take(), "connect");
    f.control.Connect(f.on);
    EXPECT_EQ(f.log.Take(), "connect enable");
}

TEST(ActionControlTest, ADisabledActionAsTheFirstIsADifference) {
    CActionFixture f;
    f.control.Connect(f.off);
    EXPECT_EQ(f.log.Take(), "connect enable");
}

TEST(ActionControlTest, FollowsItsActionAndNoOther) {
    CActionFixture f;
    f.control.Connect(f.on);
    f.log.Take();
    f.on.SetEnabled(false);
    EXPECT_FALSE(f.control.IsEnabled());
    EXPECT_EQ(f.log.Take(), "enable");
    f.control.Connect(f.off);
    f.log.Take();
    f.on.SetEnabled(true);
    EXPECT_EQ(f.log.Take(), "");
    f.off.SetEnabled(true);
    EXPECT_EQ(f.log.Take(), "enable");
}

TEST(ActionControlTest, ItsCaptureIsItsOwn) {
    CAction action;
    CActionControl control(action);
    EXPECT_EQ(control.GetAction(), &action);
    CEventLog log;
    log.Listen(control.GetCaptureEvents(), "capture");
    log.Listen(control.GetReleaseEvents(), "release");
    control.Capture();
    control.Capture();
    EXPECT_TRUE(control.IsCaptured());
    control.Release();
    EXPECT_EQ(log.Take(), "capture release");
}

TEST(ActionControlTest, TheDestructorLetsGoOfTheAction) {
    CAction action;
    { const CActionControl control(action); }
    action.SetEnabled(false); // would run a command that is gone
    EXPECT_FALSE(action.IsEnabled());
}

} // namespace
} // namespace Vorin::DataModel::Controls
