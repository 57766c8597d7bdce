#include "ModelTest.h"

namespace ModelTests {
namespace {

using TimeElementsTest = CModelTest;

constexpr const char* kHistory =
    R"(<PARAM id="p" max="10" default="4" unit="dB"/>
       <CURVE_FROM_PARAM_OVER_TIME id="h" param_id="p" duration_ms="1000" refresh_time_ms="10"
                                   name="History" comment="C"/>)";

TEST_F(TimeElementsTest, AParameterOverTimeIsACurve) {
    ASSERT_TRUE(Load(kHistory));
    EXPECT_EQ(Evaluate("h", 0.0), 4.0) << "the default, before the first tick";
    Wait(100);
    Set("p", 8.0);
    Wait(100);
    EXPECT_EQ(Evaluate("h", 0.0), 8.0);
    EXPECT_EQ(Evaluate("h", -0.15), 4.0);
    const auto& info = Find<Objects::IConstCaptureCurve>("h")->GetInfo();
    EXPECT_STREQ(info.GetName(), "History");
    EXPECT_STREQ(info.GetComment(), "C");
    EXPECT_EQ(info.GetXInfo().GetMin(), -1.0);
    EXPECT_STREQ(info.GetYInfo().GetUnit(), "dB");
    EXPECT_EQ(Get("h.refresh_time_ms"), 10.0);
}

TEST_F(TimeElementsTest, AHistoryOfFiveSecondsEvery50Milliseconds) {
    ASSERT_TRUE(Load(R"(<PARAM id="p"/><CURVE_FROM_PARAM_OVER_TIME id="h" param_id="p"/>)"));
    EXPECT_EQ(Find<Objects::IConstCaptureCurve>("h")->GetInfo().GetXInfo().GetMin(), -5.0);
    EXPECT_EQ(Get("h.refresh_time_ms"), 50.0);
}

TEST_F(TimeElementsTest, AHistoryCanBePaused) {
    ASSERT_TRUE(Load(kHistory));
    EXPECT_EQ(ValueText("h.paused"), "running");
    Wait(50);
    Set("h.paused", 1.0);
    EXPECT_EQ(ValueText("h.paused"), "paused");
    Set("p", 8.0);
    Wait(100);
    EXPECT_EQ(Evaluate("h", 0.0), 4.0);
    Set("h.paused", 0.0);
    Wait(20);
    EXPECT_EQ(Evaluate("h", 0.0), 8.0);

    ASSERT_TRUE(Load(R"(<PARAM id="p" max="10" default="4"/>
        <CURVE_FROM_PARAM_OVER_TIME id="h" param_id="p" paused="true"/>)"));
    EXPECT_EQ(Get("h.paused"), 1.0);
    Set("p", 8.0);
    Wait(100);
    EXPECT_EQ(Evaluate("h", 0.0), 4.0);
}

TEST_F(TimeElementsTest, AHistoryRestsWhileTheModelIsDisabled) {
    ASSERT_TRUE(Load(kHistory));
    Wait(50);
    model->SetEnabled(false);
    Set("p", 8.0);
    Wait(50);
    EXPECT_EQ(Evaluate("h", 0.0), 4.0);
    EXPECT_EQ(Get("h.paused"), 0.0) << "that is the user's";
    model->SetEnabled(true);
    Wait(20);
    EXPECT_EQ(Evaluate("h", 0.0), 8.0);
    Set("h.paused", 1.0);
    model->SetEnabled(false);
    model->SetEnabled(true);
    Set("p", 2.0);
    Wait(50);
    EXPECT_EQ(Evaluate("h", 0.0), 8.0) << "still paused";
}

TEST_F(TimeElementsTest, ACurveOverTimeIsASurface) {
    ASSERT_TRUE(Load(R"(<PARAM id="p" max="10" default="4"/>
        <FORMULA_CURVE id="c" formula="p*x" y_unit="W"/>
        <SURFACE_FROM_CURVE_OVER_TIME id="s" curve_id="c" duration_ms="1000" refresh_time_ms="10"
                                      name="Fall"/>)"));
    Wait(100);
    Set("p", 8.0);
    Wait(100);
    EXPECT_EQ(Evaluate("s", 2.0, 0.0), 16.0);
    EXPECT_EQ(Evaluate("s", 2.0, -0.15), 8.0);
    const auto& info = Find<Objects::IConstCaptureSurface>("s")->GetInfo();
    EXPECT_STREQ(info.GetName(), "Fall");
    EXPECT_STREQ(info.GetZInfo().GetUnit(), "W");
    EXPECT_EQ(ValueText("s.paused"), "running");
}

TEST_F(TimeElementsTest, AnAnimatorMovesItsParameter) {
    ASSERT_TRUE(Load(R"(<PARAM id="p" max="10"/>
        <PARAM_ANIMATOR id="a" param_id="p" duration_ms="1000" refresh_time_ms="10"/>)"));
    Wait(500);
    EXPECT_EQ(Get("p"), 5.0);
    EXPECT_EQ(Get("a"), 5.0);
    Set("a.enabled", 0.0);
    Wait(100);
    EXPECT_EQ(Get("p"), 5.0);
    Set("a", 7.0);
    EXPECT_EQ(Get("p"), 7.0);
    Set("a.reverse", 1.0);
    Set("a.enabled", 1.0);
    Wait(200);
    EXPECT_EQ(Get("p"), 8.0);
    EXPECT_EQ(Get("a.refresh_time_ms"), 10.0);
}

TEST_F(TimeElementsTest, AnAnimatorWrapsOrStops) {
    const auto after = [&](const char* attributes) {
        EXPECT_TRUE(Load(std::string(R"(<PARAM id="p" max="10"/>
            <PARAM_ANIMATOR id="a" param_id="p" duration_ms="1000" refresh_time_ms="10" )") +
                         attributes + "/>"));
        Wait(1300);
        return Get("p");
    };
    EXPECT_DOUBLE_EQ(after(""), 3.0);
    EXPECT_DOUBLE_EQ(after("end='wrap'"), 3.0);
    EXPECT_EQ(after("end='stop'"), 10.0);
    EXPECT_EQ(after("enabled='false'"), 0.0);
    EXPECT_EQ(after("reverse='true' end='stop'"), 0.0);
}

TEST_F(TimeElementsTest, AnAnimatorRestsWhileTheModelIsDisabled) {
    ASSERT_TRUE(Load(R"(<PARAM id="p" max="10"/>
        <PARAM_ANIMATOR id="a" param_id="p" duration_ms="1000" refresh_time_ms="10"/>)"));
    Wait(300);
    model->SetEnabled(false);
    Wait(300);
    EXPECT_EQ(Get("p"), 3.0);
    model->SetEnabled(true);
    Wait(100);
    EXPECT_EQ(Get("p"), 4.0);
}

TEST_F(TimeElementsTest, AnAnimatorIsMadeWhetherItIsUsedOrNot) {
    ASSERT_TRUE(Load(R"(<PARAM id="p" max="10" exposed="true"/>
        <PARAM_ANIMATOR id="a" param_id="p" duration_ms="1000" refresh_time_ms="10"/>)",
                     kBothPasses));
    Wait(500);
    EXPECT_EQ(Get("p"), 5.0);
    EXPECT_FALSE(Has("a.enabled"));
}

TEST_F(TimeElementsTest, ElementsWithoutIdentifierAreErrors) {
    ExpectError("<CURVE_FROM_PARAM_OVER_TIME/>", "Cannot create curve, id field is empty.");
    ExpectError("<SURFACE_FROM_CURVE_OVER_TIME/>", "Cannot create surface, id field is empty.");
    ExpectError("<PARAM_ANIMATOR/>", "Cannot create parameter animator, id field is empty.");
}

TEST_F(TimeElementsTest, SourcesThatAreNotThereAreErrors) {
    ExpectError(R"(<CURVE_FROM_PARAM_OVER_TIME id="h" param_id="p"/>)",
                "p: Unknown identifier (object does not exist).");
    Wait(200);
    EXPECT_EQ(Evaluate("h", 0.0), 0.0);
    ExpectError(R"(<SURFACE_FROM_CURVE_OVER_TIME id="h" curve_id="p"/>)",
                "p: Unknown identifier (object does not exist).");
    ExpectError(R"(<PARAM_ANIMATOR id="h" param_id="p"/>)",
                "p: Unknown identifier (object does not exist).");
    ExpectError(R"(<STRING id="p"/><PARAM_ANIMATOR id="h" param_id="p"/>)",
                "p: Unknown parameter identifier (wrong object type).");
    ExpectError(R"(<PARAM_ANIMATOR id="h"/>)", ": Unknown identifier (object does not exist).");
}

TEST_F(TimeElementsTest, OddDurationsAndPeriodsDoNoHarm) {
    for (const char* number : {"0", "-5", "2147483647", "0.4", "1e9"}) {
        const std::string attributes =
            std::string("duration_ms='") + number + "' refresh_time_ms='" + number + "'/>";
        ASSERT_TRUE(Load("<PARAM id='p' max='10' default='4'/><FORMULA_CURVE id='c' formula='x'/>"
                         "<CURVE_FROM_PARAM_OVER_TIME id='h' param_id='p' " +
                         attributes + "<SURFACE_FROM_CURVE_OVER_TIME id='s' curve_id='c' " +
                         attributes +
                         "<PARAM id='q' max='1'/><PARAM_ANIMATOR id='a' param_id='q' " +
                         attributes + "<PARAM_ANIMATED_LINK from='p' to='q' " + attributes));
        Wait(20);
        Evaluate("h", 0.0);
        Evaluate("s", 0.0, 0.0);
    }
}

TEST_F(TimeElementsTest, APeriodIsWithinItsRange) {
    ASSERT_TRUE(Load("<PARAM id='p' max='1'/>"
                     "<PARAM_ANIMATOR id='a' param_id='p' refresh_time_ms='-3'/>"
                     "<PARAM_ANIMATOR id='b' param_id='p' refresh_time_ms='99999999'/>"));
    EXPECT_EQ(Get("a.refresh_time_ms"), 0.0);
    EXPECT_EQ(Get("b.refresh_time_ms"), 1000000.0);
}

TEST_F(TimeElementsTest, TheModelSaysHowOftenObjectsOfThePlugInAreRefreshed) {
    // What a plug-in puts into the model before the document is read.
    class CRefreshed : public Objects::CCaptureParam, public virtual Core::IRefreshTime {
    public:
        void SetRefreshTime(int newTime) override { time = newTime; }
        int GetRefreshTime() const override { return time; }

    private:
        int time = 7;
    };
    CRefreshed first;
    CRefreshed second;
    const auto load = [&](const char* root) {
        Unload();
        model->AddParam("dsp.a", &first, Core::kDontOwn);
        model->AddParam("dsp.b", &second, Core::kDontOwn);
        folder.Write("main.model", root);
        CSkinParser parser(&log);
        CSkinModelFactory factory(log, parser, *model, GetServices());
        EXPECT_TRUE(factory.LoadModelFile(folder.Path("main.model").c_str(), false));
    };
    load("<MODEL/>");
    EXPECT_EQ(first.GetRefreshTime(), 7);
    load("<MODEL refresh_time_ms='20' dsp.a_refresh_time='30'/>");
    EXPECT_EQ(first.GetRefreshTime(), 30);
    EXPECT_EQ(second.GetRefreshTime(), 20);
    load("<MODEL dsp.b_refresh_time='40'/>");
    EXPECT_EQ(first.GetRefreshTime(), 30);
    EXPECT_EQ(second.GetRefreshTime(), 40);
    Unload();
}

} // namespace
} // namespace ModelTests
