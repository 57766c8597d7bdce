#include "datamodel/links/BaseCaptureObjectLink.h"

#include "core/EventCounter.h"
#include "datamodel/links/LinkTestTools.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Vorin::DataModel::Objects {
namespace {

using CBase = TBaseCaptureObjectLink<IConstCaptureParam, ICaptureParam>;

/// Writes down what is asked of a link, beside what the base does.
class CStepLink : public CBase {
public:
    explicit CStepLink(std::string& stepLog) : log(stepLog) {}
    ~CStepLink() override { Switch(false); }

protected:
    void OnSourceChanged() override { log += "changed "; }
    void Resync() override { log += "resync "; }
    void OnConnectSource() override {
        log += "connect ";
        CBase::OnConnectSource();
    }
    void OnDisconnectSource() override {
        log += "disconnect ";
        CBase::OnDisconnectSource();
    }
    void OnConnectTarget() override { log += "target "; }
    void OnDisconnectTarget() override { log += "no-target "; }
    void OnCapture() override {
        log += "capture ";
        CBase::OnCapture();
    }
    void OnEnabled() override {
        log += "enabled ";
        CBase::OnEnabled();
    }
    void OnRelease() override {
        log += "release ";
        CBase::OnRelease();
    }

private:
    std::string& log;
};

class BaseCaptureObjectLinkTest : public ::testing::Test {
protected:
    BaseCaptureObjectLinkTest() {
        link->SetSource(&source);
        link->SetTarget(&target);
        log.clear();
    }

    std::string Take() { return std::exchange(log, std::string()); }

    std::string log;
    CTestParam source;
    CTestParam target;
    CObjectLog targetLog{target};
    std::unique_ptr<CStepLink> link = std::make_unique<CStepLink>(log);
};

TEST_F(BaseCaptureObjectLinkTest, ANewOneIsDisabledAndNotPaused) {
    EXPECT_FALSE(link->IsEnabled());
    EXPECT_FALSE(link->IsPaused());
    source.SetValue(0.5);
    source.Capture();
    EXPECT_EQ(Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, EnablingConnectsThenSynchronizesThenPasses) {
    link->SetEnabled(true);
    EXPECT_EQ(Take(), "connect resync enabled changed ");
    source.SetValue(0.5);
    EXPECT_EQ(Take(), "changed ");
}

TEST_F(BaseCaptureObjectLinkTest, EnablingForwardsACaptureBeforeItSynchronizes) {
    source.Capture();
    link->SetEnabled(true);
    EXPECT_EQ(Take(), "connect capture resync enabled changed ");
    EXPECT_EQ(targetLog.Take(), "c");
}

TEST_F(BaseCaptureObjectLinkTest, EnablingWhilePausedConnectsAndSynchronizesOnly) {
    link->SetPaused(true);
    source.Capture();
    link->SetEnabled(true);
    EXPECT_EQ(Take(), "connect capture resync ");
    source.SetValue(0.5);
    EXPECT_EQ(Take(), "");
    EXPECT_EQ(targetLog.Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, TheEnableEventFollowsTheConnection) {
    const CReaction reaction(link->GetEnableEvents(), [this] { log += "event "; });
    link->SetEnabled(true);
    EXPECT_EQ(Take(), "connect resync enabled changed event ");
    link->SetEnabled(true);
    EXPECT_EQ(Take(), "");
    link->SetEnabled(false);
    EXPECT_EQ(Take(), "disconnect event ");
    link->SetEnabled(false);
    EXPECT_EQ(Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, DisablingDuringAForwardedCaptureReleasesTheTargetOnce) {
    link->SetEnabled(true);
    source.Capture();
    EXPECT_EQ(targetLog.Take(), "c");
    link->SetEnabled(false);
    EXPECT_EQ(targetLog.Take(), "r");
    source.Release();
    EXPECT_EQ(targetLog.Take(), "");
    EXPECT_FALSE(target.IsCaptured());
}

TEST_F(BaseCaptureObjectLinkTest, DisablingReleasesBeforeItDisconnects) {
    link->SetEnabled(true);
    source.Capture();
    Take();
    const CReaction reaction(target.GetReleaseEvents(), [this] { log += "released "; });
    link->SetEnabled(false);
    EXPECT_EQ(Take(), "released disconnect ");
}

TEST_F(BaseCaptureObjectLinkTest, ACaptureOfTheSourceIsOneGestureAtTheTarget) {
    link->SetEnabled(true);
    source.Capture();
    source.Capture();
    EXPECT_EQ(targetLog.Take(), "c");
    source.Release();
    source.Release();
    EXPECT_EQ(targetLog.Take(), "r");
}

TEST_F(BaseCaptureObjectLinkTest, UnpausingStartsTheLinkAnew) {
    link->SetEnabled(true);
    Take();
    link->SetPaused(true);
    EXPECT_EQ(Take(), "");
    link->SetPaused(true);
    link->SetPaused(false);
    EXPECT_EQ(Take(), "disconnect connect resync enabled changed ");
    link->SetPaused(false);
    EXPECT_EQ(Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, UnpausingADisabledLinkDoesNothing) {
    link->SetPaused(true);
    link->SetPaused(false);
    EXPECT_EQ(Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, UnpausingDoesNotTellOfBeingEnabled) {
    link->SetEnabled(true);
    CEventCounter events(link->GetEnableEvents());
    link->SetPaused(true);
    link->SetPaused(false);
    link->SetSource(&target);
    link->SetSource(&source);
    EXPECT_EQ(events.Take(), 0);
}

TEST_F(BaseCaptureObjectLinkTest, AGestureEndsThoughTheLinkIsPausedMeanwhile) {
    link->SetEnabled(true);
    source.Capture();
    link->SetPaused(true);
    EXPECT_EQ(targetLog.Take(), "c");
    source.Release();
    EXPECT_EQ(targetLog.Take(), "r");
    source.Capture();
    EXPECT_EQ(targetLog.Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, AnotherTargetTakesOverTheGesture) {
    link->SetEnabled(true);
    source.Capture();
    Take();
    targetLog.Take();
    CTestParam other;
    CObjectLog otherLog(other);
    link->SetTarget(&other);
    EXPECT_EQ(Take(), "disconnect no-target target connect capture resync enabled changed ");
    EXPECT_EQ(targetLog.Take(), "r");
    EXPECT_EQ(otherLog.Take(), "c");
    source.Release();
    EXPECT_EQ(targetLog.Take(), "");
    EXPECT_EQ(otherLog.Take(), "r");
    link->Disconnect();
}

TEST_F(BaseCaptureObjectLinkTest, AnotherSourceEndsTheGestureOfTheOldOne) {
    link->SetEnabled(true);
    source.Capture();
    Take();
    targetLog.Take();
    CTestParam other;
    link->SetSource(&other);
    EXPECT_EQ(Take(), "disconnect connect resync enabled changed ");
    EXPECT_EQ(targetLog.Take(), "r");
    source.Release();
    source.SetValue(0.5);
    EXPECT_EQ(Take() + targetLog.Take(), "");
    other.Capture();
    EXPECT_EQ(targetLog.Take(), "c");
    link->SetSource(nullptr);
    EXPECT_EQ(targetLog.Take(), "r");
}

TEST_F(BaseCaptureObjectLinkTest, ACapturedNewSourceIsForwarded) {
    CTestParam other;
    other.Capture();
    link->SetEnabled(true);
    link->SetSource(&other);
    EXPECT_EQ(targetLog.Take(), "c");
    link->Disconnect();
    EXPECT_EQ(targetLog.Take(), "r");
}

TEST_F(BaseCaptureObjectLinkTest, DisconnectLetsGoOfBothEndsAndStaysEnabled) {
    link->SetEnabled(true);
    source.Capture();
    Take();
    link->Disconnect();
    EXPECT_EQ(targetLog.Take(), "cr");
    EXPECT_EQ(link->GetSource(), nullptr);
    EXPECT_EQ(link->GetTarget(), nullptr);
    EXPECT_TRUE(link->IsEnabled());
    Take();
    source.SetValue(0.5);
    source.Release();
    EXPECT_EQ(Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, ANullEndMakesEveryOperationANoOp) {
    CStepLink lonely(log);
    lonely.SetEnabled(true);
    lonely.SetPaused(true);
    lonely.SetPaused(false);
    lonely.SetEnabled(false);
    lonely.Disconnect();
    EXPECT_EQ(Take(), "");
    lonely.SetEnabled(true);
    source.Capture();
    lonely.SetSource(&source);
    source.Release();
    EXPECT_EQ(Take(), "connect capture resync enabled changed release ");
}

TEST_F(BaseCaptureObjectLinkTest, DeathReleasesAndDisconnects) {
    link->SetEnabled(true);
    source.Capture();
    targetLog.Take();
    link.reset();
    EXPECT_EQ(targetLog.Take(), "r");
    Take();
    source.SetValue(0.5);
    EXPECT_EQ(Take(), "");
}

TEST_F(BaseCaptureObjectLinkTest, ATriggerOnChangesKeepsTheLinkFromWritingWhenItStarts) {
    link->SetTrigger(kLinkTriggerModify);
    link->SetEnabled(true);
    link->SetPaused(true);
    link->SetPaused(false);
    EXPECT_EQ(Take(), "connect resync disconnect connect resync ");
    source.SetValue(0.5);
    EXPECT_EQ(Take(), "changed ");
}

TEST_F(BaseCaptureObjectLinkTest, MayBeDisabledByWhatItsCaptureSetsOff) {
    const CReaction reaction(target.GetCaptureEvents(), [this] { link->SetEnabled(false); });
    source.Capture();
    link->SetEnabled(true);
    EXPECT_EQ(Take(), "connect capture disconnect ");
    EXPECT_EQ(targetLog.Take(), "cr");
    EXPECT_FALSE(link->IsEnabled());
}

TEST_F(BaseCaptureObjectLinkTest, MayBeEnabledAgainByWhatItsReleaseSetsOff) {
    link->SetEnabled(true);
    source.Capture();
    source.SetValue(0.25);
    Take();
    {
        const CReaction reaction(target.GetReleaseEvents(), [this] { link->SetEnabled(true); });
        link->SetEnabled(false);
    }
    EXPECT_TRUE(link->IsEnabled());
    Take();
    source.SetValue(0.5); // connected, and once
    EXPECT_EQ(Take(), "changed ");
}

TEST_F(BaseCaptureObjectLinkTest, AnotherSourceMayComeWithTheRelease) {
    link->SetEnabled(true);
    source.Capture();
    auto other = std::make_unique<CTestParam>();
    {
        const CReaction reaction(target.GetReleaseEvents(), [&] { link->SetSource(other.get()); });
        link->SetEnabled(false);
    }
    Take();
    source.SetValue(0.5); // nothing listens to the old one
    EXPECT_EQ(Take(), "");
    link->SetSource(nullptr);
}

TEST_F(BaseCaptureObjectLinkTest, AnObjectLinkedToItselfKeepsTheGestureOfItsHolder) {
    link->SetTarget(nullptr);
    link->SetSource(&target);
    link->SetTarget(&target);
    link->SetEnabled(true);
    target.Capture();
    link->SetEnabled(false);
    EXPECT_EQ(targetLog.Take(), "c");
    EXPECT_TRUE(target.IsCaptured());
}

} // namespace
} // namespace Vorin::DataModel::Objects
