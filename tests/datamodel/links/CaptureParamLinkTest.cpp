#include "datamodel/links/CaptureParamLink.h"

#include "core/EventCounter.h"
#include "core/NonFinite.h"
#include "datamodel/links/LinkTestTools.h"
#include "math/Constant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

namespace Vorin::DataModel::Objects {
namespace {

void Bind(CCaptureParamLink& link, IConstCaptureParam& source, ICaptureParam& target) {
    link.SetSource(&source);
    link.SetTarget(&target);
    link.SetEnabled(true);
}

TEST(CaptureParamLinkTest, ANewOneIsTheIdentity) {
    const CCaptureParamLink link;
    EXPECT_EQ(link.GetFunction().Evaluate(0.3), 0.3);
    EXPECT_FALSE(link.IsReversed());
    EXPECT_FALSE(link.IsNormalized());
    EXPECT_FALSE(link.IsDifferential());
}

TEST(CaptureParamLinkTest, EnablingWritesTheTarget) {
    CTestParam source(0, 1, 0.5);
    CTestParam target;
    CCaptureParamLink link;
    Bind(link, source, target);
    EXPECT_EQ(target.GetValue(), 0.5);
    source.SetValue(0.75);
    EXPECT_EQ(target.GetValue(), 0.75);
    target.SetValue(0.1); // the source does not follow
    EXPECT_EQ(source.GetValue(), 0.75);
}

TEST(CaptureParamLinkTest, UnpausingReadsTheSourceAgainAndWritesTheTarget) {
    CTestParam source(0, 1, 0.5);
    CTestParam target;
    CCaptureParamLink link;
    Bind(link, source, target);
    link.SetPaused(true);
    source.SetValue(0.75);
    EXPECT_EQ(target.GetValue(), 0.5);
    link.SetPaused(false);
    EXPECT_EQ(target.GetValue(), 0.75);
}

TEST(CaptureParamLinkTest, AReversedLinkMirrorsTheValue) {
    CTestParam source(0, 1, 0.25);
    CTestParam target;
    CCaptureParamLink link;
    link.SetReversed(true);
    Bind(link, source, target);
    EXPECT_EQ(target.GetValue(), 0.75);
}

TEST(CaptureParamLinkTest, AChangeOfTheWayWritesTheTargetAnew) {
    CTestParam source(0, 10, 2.0);
    CTestParam target(0, 20);
    CCaptureParamLink link;
    Bind(link, source, target);
    CEventCounter events(link.GetReverseEvents());
    link.SetFunction(MakeFunction<&Library::Square>(), Core::kOwn);
    EXPECT_EQ(target.GetValue(), 4.0);
    link.SetReversed(true);
    EXPECT_EQ(target.GetValue(), 16.0);
    link.SetReversed(true);
    EXPECT_EQ(events.Take(), 1);
    link.SetReversed(false);
    link.SetFunction(nullptr, Core::kDontOwn);
    EXPECT_EQ(target.GetValue(), 2.0);
    link.SetNormalized(true);
    EXPECT_EQ(target.GetValue(), 4.0);
    link.SetResponseCurve(kParamValueCurveSquare); // 20 * 0.2 * 0.2
    EXPECT_NEAR(target.GetValue(), 0.8, 1e-12);
}

TEST(CaptureParamLinkTest, AChangeOfTheWayWhileItRestsWritesNothing) {
    CTestParam source(0, 1, 0.25);
    CTestParam target;
    CCaptureParamLink link;
    Bind(link, source, target);
    link.SetPaused(true);
    link.SetReversed(true);
    EXPECT_EQ(target.GetValue(), 0.25);
    link.SetPaused(false);
    EXPECT_EQ(target.GetValue(), 0.75);
    link.SetEnabled(false);
    link.SetReversed(false);
    EXPECT_EQ(target.GetValue(), 0.75);
}

TEST(CaptureParamLinkTest, AFunctionThatIsNotOwnedIsLeftAlone) {
    Math::CConstantFunction function(0.5);
    CTestParam source;
    CTestParam target;
    {
        CCaptureParamLink link;
        link.SetFunction(&function, Core::kDontOwn);
        Bind(link, source, target);
    }
    EXPECT_EQ(target.GetValue(), 0.5);
}

TEST(CaptureParamLinkTest, TheResponseCurveIsTheForwardFunctionOfThePair) {
    CTestParam source(0, 1, 0.25);
    CTestParam target;
    CCaptureParamLink link;
    Bind(link, source, target);
    link.SetResponseCurve(kParamValueCurveSquareRoot);
    EXPECT_EQ(target.GetValue(), 0.5);
    link.SetResponseCurve(kParamValueCurveExp3); // (1001^0.25 - 1) / 1000
    EXPECT_NEAR(target.GetValue(), (std::pow(1001.0, 0.25) - 1.0) / 1000.0, 1e-12);
    link.SetResponseCurve(static_cast<EParamValueCurve>(99));
    EXPECT_EQ(target.GetValue(), 0.25);
}

TEST(CaptureParamLinkTest, ADifferentialLinkAddsTheMoveOfTheSource) {
    CTestParam source(0, 1, 0.2);
    CTestParam target(0, 1, 0.5);
    CCaptureParamLink link;
    link.SetDifferential(true);
    Bind(link, source, target);
    EXPECT_EQ(target.GetValue(), 0.5); // enabling adds nothing
    source.SetValue(0.3);
    EXPECT_NEAR(target.GetValue(), 0.6, 1e-12);
    target.SetValue(0.1);
    source.SetValue(0.2);
    EXPECT_NEAR(target.GetValue(), 0.0, 1e-12);
}

TEST(CaptureParamLinkTest, ADifferentialLinkAddsWhatTheFunctionMakesOfTheMove) {
    CTestParam source(0, 10, 2.0);
    CTestParam target(0, 100, 50.0);
    CCaptureParamLink link;
    link.SetDifferential(true);
    link.SetFunction(MakeFunction<&Library::Square>(), Core::kOwn);
    Bind(link, source, target);
    source.SetValue(3.0); // 9 - 4
    EXPECT_EQ(target.GetValue(), 55.0);
    link.SetReversed(true);
    source.SetValue(4.0); // (100 - 16) - (100 - 9)
    EXPECT_EQ(target.GetValue(), 48.0);
}

TEST(CaptureParamLinkTest, ADifferentialNormalizedLinkAddsPositions) {
    CTestParam source(0, 10, 2.0);
    CTestParam target(100, 200, 150.0);
    CCaptureParamLink link;
    link.SetDifferential(true);
    link.SetNormalized(true);
    Bind(link, source, target);
    source.SetValue(3.0);
    EXPECT_NEAR(target.GetValue(), 160.0, 1e-9);
    link.SetReversed(true);
    source.SetValue(5.0);
    EXPECT_NEAR(target.GetValue(), 140.0, 1e-9);
}

TEST(CaptureParamLinkTest, WhatHappensDuringAPauseIsNotAddedLater) {
    CTestParam source(0, 1, 0.2);
    CTestParam target(0, 1, 0.5);
    CCaptureParamLink link;
    link.SetDifferential(true);
    Bind(link, source, target);
    link.SetPaused(true);
    source.SetValue(0.4);
    link.SetPaused(false);
    EXPECT_EQ(target.GetValue(), 0.5);
    source.SetValue(0.5);
    EXPECT_NEAR(target.GetValue(), 0.6, 1e-12);
}

TEST(CaptureParamLinkTest, ChangingTheModeMovesNothing) {
    CTestParam source(0, 1, 0.2);
    CTestParam target(0, 1, 0.5);
    CCaptureParamLink link;
    link.SetDifferential(true);
    Bind(link, source, target);
    link.SetDifferential(false);
    EXPECT_EQ(target.GetValue(), 0.5);
    source.SetValue(0.3);
    EXPECT_EQ(target.GetValue(), 0.3);
}

TEST(CaptureParamLinkTest, AFunctionThatGivesNaNMovesTheTargetToItsMaximum) {
    CTestParam source(0, 1, 0.2);
    CTestParam target(-5, 5);
    CCaptureParamLink link;
    link.SetFunction(new Math::CConstantFunction(kNaN), Core::kOwn);
    Bind(link, source, target);
    EXPECT_EQ(target.GetValue(), 5.0);
    target.SetValue(0.0);
    link.SetDifferential(true);
    source.SetValue(0.3);
    EXPECT_EQ(target.GetValue(), 5.0);
    link.SetFunction(nullptr, Core::kDontOwn); // and back again
    link.SetDifferential(false);
    source.SetValue(0.4);
    EXPECT_EQ(target.GetValue(), 0.4);
}

TEST(CaptureParamLinkTest, ATargetThatFeedsBackEndsByItself) {
    CTestParam a(0, 1, 0.25);
    CTestParam b;
    CCaptureParamLink forth;
    CCaptureParamLink back;
    back.SetReversed(true);
    Bind(forth, a, b);
    CObjectLog log(b);
    // Mirrors 0.25 into a, which comes back as 0.75, and mirrors that: there the other link runs.
    Bind(back, b, a);
    EXPECT_EQ(a.GetValue(), 0.25);
    EXPECT_EQ(b.GetValue(), 0.75);
    log.Take();
    a.SetValue(0.5);
    EXPECT_EQ(log.Take(), "v");
}

TEST(CaptureParamLinkTest, AMoveThatAnswersTheFirstWriteIsAddedOnce) {
    CTestParam source(0, 1, 0.2);
    CTestParam target(0, 10, 0.0);
    CCaptureParamLink link;
    Bind(link, source, target);
    link.SetDifferential(true);
    bool answered = false;
    const CReaction reaction(target.GetValueChangedEvents(), [&] {
        if (!answered) {
            answered = true;
            source.SetValue(0.6);
        }
    });
    source.SetValue(0.3);
    EXPECT_NEAR(target.GetValue(), 0.3, 1e-12); // the answer came while the link was running
    source.SetValue(0.7);                       // and is caught up with
    EXPECT_NEAR(target.GetValue(), 0.7, 1e-12);
}

TEST(CaptureParamLinkTest, AParameterLinkedToItselfIsChangedOnceByEachChange) {
    CTestParam param(0, 10, 2.0);
    CCaptureParamLink link;
    link.SetFunction(MakeFunction<&Library::Floor>(), Core::kOwn);
    Bind(link, param, param);
    param.SetValue(5.5);
    EXPECT_EQ(param.GetValue(), 5.0);
    link.SetFunction(nullptr, Core::kDontOwn);
    link.SetReversed(true);
    const double before = param.GetValue();
    param.SetValue(before + 1.0);
    EXPECT_EQ(param.GetValue(), 10.0 - (before + 1.0));
}

TEST(CaptureParamLinkTest, DisablingItFromItsOwnWriteIsAllowed) {
    CTestParam source;
    CTestParam target;
    CCaptureParamLink link;
    Bind(link, source, target);
    const CReaction reaction(target.GetValueChangedEvents(), [&link] { link.Disconnect(); });
    source.SetValue(0.5);
    EXPECT_EQ(target.GetValue(), 0.5);
    source.SetValue(0.75);
    EXPECT_EQ(target.GetValue(), 0.5);
}

class CChain {
public:
    explicit CChain(int count) {
        for (int i = 0; i <= count; ++i) {
            params.push_back(std::make_unique<CTestParam>());
        }
        for (std::size_t i = 0; i + 1 < params.size(); ++i) {
            links.push_back(std::make_unique<CCaptureParamLink>());
            Bind(*links.back(), *params[i], *params[i + 1]);
        }
    }

    std::vector<std::unique_ptr<CTestParam>> params;
    std::vector<std::unique_ptr<CCaptureParamLink>> links;
};

TEST(CaptureParamLinkTest, AChainOfAThousandPassesAValueInOneChangeEach) {
    CChain chain(1000);
    std::vector<std::unique_ptr<CEventCounter>> counters;
    for (const auto& param : chain.params) {
        counters.push_back(std::make_unique<CEventCounter>(param->GetValueChangedEvents()));
    }
    chain.params.front()->SetValue(0.5);
    EXPECT_EQ(chain.params.back()->GetValue(), 0.5);
    chain.params.front()->Capture();
    EXPECT_TRUE(chain.params.back()->IsCaptured());
    chain.params.front()->Release();
    EXPECT_FALSE(chain.params.back()->IsCaptured());
    for (const auto& counter : counters) {
        EXPECT_EQ(counter->Take(), 1);
    }
}

TEST(CaptureParamLinkTest, AChainThatIsTooDeepIsCutOff) {
    CChain chain(CChangePass::kMaxDepth + 10);
    chain.params.front()->SetValue(0.5);
    chain.params.front()->Capture();
    EXPECT_EQ(chain.params[CChangePass::kMaxDepth]->GetValue(), 0.5);
    EXPECT_EQ(chain.params[CChangePass::kMaxDepth + 1]->GetValue(), 0.0);
    EXPECT_TRUE(chain.params[CChangePass::kMaxDepth]->IsCaptured());
    EXPECT_FALSE(chain.params[CChangePass::kMaxDepth + 1]->IsCaptured());
    chain.params.front()->Release();
    for (const auto& param : chain.params) {
        EXPECT_FALSE(param->IsCaptured());
    }
}

TEST(CaptureParamLinkTest, WaysThatPartAndMeetAgainEndInReasonableTime) {
    // At each step two links lead on, each through a function of its own: that doubles the changes
    // of what follows.
    CChain chain(40);
    std::vector<std::unique_ptr<CCaptureParamLink>> others;
    for (std::size_t i = 0; i + 1 < chain.params.size(); ++i) {
        chain.links[i]->SetResponseCurve(kParamValueCurveSquare);
        others.push_back(std::make_unique<CCaptureParamLink>());
        others.back()->SetResponseCurve(kParamValueCurveLog);
        Bind(*others.back(), *chain.params[i], *chain.params[i + 1]);
    }
    CEventCounter last(chain.params.back()->GetValueChangedEvents());
    chain.params.front()->SetValue(0.3);
    // Both links at the front begin something of their own, and neither comes to its second half.
    const int changes = last.Take();
    EXPECT_GT(changes, 1000);
    EXPECT_LE(changes, 2 * CChangePass::kMaxCount);
    const double second = chain.params[1]->GetValue();
    EXPECT_NEAR(second, 0.378511623, 1e-9); // the binary logarithm of 1.3
    EXPECT_EQ(chain.params[2]->GetValue(), second * second);
    // What comes next is free again: the binary logarithm of 1.5.
    chain.params[chain.params.size() - 2]->SetValue(0.5);
    EXPECT_NEAR(chain.params.back()->GetValue(), 0.5849625, 1e-7);
}

} // namespace
} // namespace Vorin::DataModel::Objects
