#include "core/Capture.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CCaptureWatcher {
public:
    explicit CCaptureWatcher(ICapture& source) : capture(source) {
        capture.GetCaptureEvents().Connect(onCapture);
        capture.GetReleaseEvents().Connect(onRelease);
    }
    void OnCapture() { log += capture.IsCaptured() ? "C1 " : "C0 "; }
    void OnRelease() { log += capture.IsCaptured() ? "R1 " : "R0 "; }

    std::string log;

private:
    ICapture& capture;
    TCommand<CCaptureWatcher> onCapture{this, &CCaptureWatcher::OnCapture};
    TCommand<CCaptureWatcher> onRelease{this, &CCaptureWatcher::OnRelease};
};

TEST(CaptureTest, StartsReleased) {
    CCapture capture;
    EXPECT_FALSE(capture.IsCaptured());
}

TEST(CaptureTest, TwoCapturesAndOneReleaseSendOneEventEach) {
    CCapture capture;
    CCaptureWatcher watcher(capture);
    capture.Capture();
    capture.Capture();
    EXPECT_TRUE(capture.IsCaptured());
    capture.Release();
    EXPECT_FALSE(capture.IsCaptured());
    // Each listener sees the flag as it stands after the change.
    EXPECT_EQ(watcher.log, "C1 R0 ");
}

TEST(CaptureTest, ReleaseWithoutCaptureIsSilent) {
    CCapture capture;
    CCaptureWatcher watcher(capture);
    capture.Release();
    EXPECT_EQ(watcher.log, "");
}

TEST(CaptureTest, GestureCanBeRepeated) {
    CCapture capture;
    CCaptureWatcher watcher(capture);
    for (int gesture = 0; gesture < 2; ++gesture) {
        capture.Capture();
        capture.Release();
        capture.Release();
    }
    EXPECT_EQ(watcher.log, "C1 R0 C1 R0 ");
}

} // namespace
