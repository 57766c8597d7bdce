#include "datamodel/controls/StringViewer.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/objects/CaptureString.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

struct CStrings {
    CStrings() {
        first.SetValue("one");
        first.GetInfo().SetName("First");
        second.SetValue("two");
        second.GetInfo().SetName("Second");
    }
    CCaptureString first;
    CCaptureString second;
};

TEST(StringViewerTest, ShowsTheStringAndItsInfo) {
    CStrings s;
    CStringViewer viewer(s.first);
    CEventLog log;
    log.Listen(viewer.GetValueChangedEvents(), "text");
    EXPECT_STREQ(viewer.GetValue(), "one");
    EXPECT_STREQ(viewer.GetInfo().GetName(), "First");
    EXPECT_EQ(&viewer.GetObject(), &s.first);
    s.first.SetValue("uno");
    EXPECT_STREQ(viewer.GetValue(), "uno");
    EXPECT_EQ(log.Take(), "text");
}

TEST(StringViewerTest, AnotherObjectIsAnEventWhenItReadsDifferently) {
    CStrings s;
    CStringViewer viewer(s.first);
    CEventLog log;
    log.Listen(viewer.GetValueChangedEvents(), "text");
    viewer.Connect(s.second);
    EXPECT_STREQ(viewer.GetValue(), "two");
    EXPECT_STREQ(viewer.GetInfo().GetName(), "Second");
    EXPECT_EQ(log.Take(), "text");
    s.first.SetValue("two");
    EXPECT_EQ(log.Take(), "") << "the object before is let go of";
    viewer.Connect(s.first);
    EXPECT_EQ(log.Take(), "") << "it reads the same";
}

TEST(StringViewerTest, MirrorsTheCaptureOfItsObject) {
    CStrings s;
    CStringViewer viewer(s.first);
    CEventLog log;
    log.Listen(viewer.GetCaptureEvents(), "capture");
    log.Listen(viewer.GetReleaseEvents(), "release");
    s.first.Capture();
    EXPECT_TRUE(viewer.IsCaptured());
    s.first.Release();
    s.second.Capture();
    EXPECT_EQ(log.Take(), "capture release");
    viewer.Connect(s.second);
    EXPECT_TRUE(viewer.IsCaptured());
    EXPECT_EQ(log.Take(), "capture");
}

TEST(StringViewerTest, TheDestructorLetsGoOfTheObject) {
    CStrings s;
    { const CStringViewer viewer(s.first); }
    s.first.SetValue("uno"); // would run commands that are gone
    s.first.Capture();
    s.first.Release();
    EXPECT_STREQ(s.first.GetValue(), "uno");
}

} // namespace
} // namespace Vorin::DataModel::Controls
