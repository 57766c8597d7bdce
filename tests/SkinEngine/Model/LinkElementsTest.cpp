#include "ModelTest.h"

#include <cmath>

namespace ModelTests {
namespace {

using LinkElementsTest = CModelTest;

constexpr const char* kTwoParams =
    R"(<PARAM id="a" max="10" default="2"/><PARAM id="b" max="100"/>)";

std::string WithParams(const char* elements) { return std::string(kTwoParams) + elements; }

TEST_F(LinkElementsTest, ALinkPassesItsSourceOn) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK from="a" to="b"/>)")));
    EXPECT_EQ(Get("b"), 2.0) << "at once";
    Set("a", 3.0);
    EXPECT_EQ(Get("b"), 3.0);
}

TEST_F(LinkElementsTest, ALinkMayStandBeforeItsEnds) {
    ASSERT_TRUE(Load(std::string(R"(<PARAM_LINK from="a" to="b"/>)") + kTwoParams));
    EXPECT_EQ(Get("b"), 2.0);
}

TEST_F(LinkElementsTest, ALinkGoesThroughAFormula) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK from="a" to="b" formula="x*10+1"/>)")));
    EXPECT_EQ(Get("b"), 21.0);
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK from="a" to="b" formula="v*10" variable="v"/>)")));
    EXPECT_EQ(Get("b"), 20.0);
    ExpectError(WithParams(R"(<PARAM_LINK from="a" to="b" formula="a*10"/>)"),
                "Cannot create curve for link, invalid formula.");
}

TEST_F(LinkElementsTest, ALinkMapsPositionsThroughAResponseCurve) {
    // 5 of 10 is the position 0.5, whose square is a quarter of 100.
    ASSERT_TRUE(Load(
        WithParams(R"(<PARAM_LINK from="a" to="b" normalized="true" response_curve="square"/>)")));
    Set("a", 5.0);
    EXPECT_EQ(Get("b"), 25.0);
}

TEST_F(LinkElementsTest, ResponseCurvesAreWords) {
    const auto at = [&](const char* word) {
        EXPECT_TRUE(Load(WithParams((std::string(R"(<PARAM_LINK from="a" to="b" normalized="true"
                                                     response_curve=")") +
                                     word + "\"/>")
                                        .c_str())));
        Set("a", 2.5); // the position 0.25
        return Get("b") / 100.0;
    };
    const auto logOf = [](double k) { return std::log(k * 0.25 + 1.0) / std::log(k + 1.0); };
    const auto expOf = [](double k) { return (std::exp(std::log(k + 1.0) * 0.25) - 1.0) / k; };
    EXPECT_NEAR(at("exp"), expOf(1.0), 1e-12);
    EXPECT_NEAR(at("log"), logOf(1.0), 1e-12);
    EXPECT_NEAR(at("exp1"), expOf(10.0), 1e-12);
    EXPECT_NEAR(at("log1"), logOf(10.0), 1e-12);
    EXPECT_NEAR(at("exp2"), expOf(100.0), 1e-12);
    EXPECT_NEAR(at("log2"), logOf(100.0), 1e-12);
    EXPECT_NEAR(at("exp3"), expOf(1000.0), 1e-12);
    EXPECT_NEAR(at("log3"), logOf(1000.0), 1e-12);
    EXPECT_NEAR(at("square"), 0.0625, 1e-12);
    EXPECT_NEAR(at("square_root"), 0.5, 1e-12);
    EXPECT_NEAR(at("linear"), 0.25, 1e-12);
    EXPECT_NEAR(at("Exp3"), 0.25, 1e-12);
}

TEST_F(LinkElementsTest, ALinkCanBeReversedAndSwitchedOff) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK id="l" from="a" to="b" reverse="true"/>)")));
    EXPECT_EQ(Get("b"), 98.0);
    EXPECT_EQ(Get("l.reverse"), 1.0);
    EXPECT_EQ(ValueText("l.reverse"), "reverse");
    EXPECT_EQ(ValueText("l.enabled"), "enabled");
    Set("l.reverse", 0.0);
    EXPECT_EQ(Get("b"), 2.0);
    EXPECT_EQ(ValueText("l.reverse"), "normal");
    Set("l.enabled", 0.0);
    Set("a", 7.0);
    EXPECT_EQ(Get("b"), 2.0);
    Set("l.enabled", 1.0);
    EXPECT_EQ(Get("b"), 7.0);

    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK id="l" from="a" to="b" enabled="false"/>)")));
    EXPECT_EQ(Get("b"), 0.0);
    EXPECT_EQ(ValueText("l.enabled"), "disabled");
    EXPECT_EQ(Get("l.enabled.default"), 0.0);
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK from="a" to="b" enabled="no"/>)")));
    EXPECT_EQ(Get("b"), 2.0) << "only false switches off";
}

TEST_F(LinkElementsTest, ADifferenceLinkAddsMoves) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK id="l" from="a" to="b" mode="diff"/>)")));
    EXPECT_EQ(Get("b"), 0.0);
    Set("b", 50.0);
    Set("a", 5.0);
    EXPECT_EQ(Get("b"), 53.0);
    EXPECT_EQ(ValueText("l.mode"), "diff");
    Set("l.mode", 0.0);
    Set("a", 6.0);
    EXPECT_EQ(Get("b"), 6.0);
}

TEST_F(LinkElementsTest, ATriggerConditionPassesModificationsAlone) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK from="a" to="b" trigger_condition="modify"/>)")));
    EXPECT_EQ(Get("b"), 0.0);
    Set("a", 3.0);
    EXPECT_EQ(Get("b"), 3.0);
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK from="a" to="b" trigger_condition="all"/>)")));
    EXPECT_EQ(Get("b"), 2.0);
}

TEST_F(LinkElementsTest, AHeldSourceHoldsTheTarget) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_LINK from="a" to="b"/>)")));
    Find<Objects::ICaptureParam>("a")->Capture();
    EXPECT_TRUE(Find<Objects::ICaptureParam>("b")->IsCaptured());
    Find<Objects::ICaptureParam>("a")->Release();
    EXPECT_FALSE(Find<Objects::ICaptureParam>("b")->IsCaptured());
}

TEST_F(LinkElementsTest, AParameterIsShownAsText) {
    ASSERT_TRUE(Load(R"(
        <PARAM id="a" max="10" default="2.25" unit="dB" value_format=".2"/>
        <STRING id="s"/><STRING id="t"/><STRING id="u"/>
        <PARAM_TO_STRING_LINK from="a" to="s"/>
        <PARAM_TO_STRING_LINK from="a" to="t" content="{value} of {max}" value_suffix="true"/>
        <PARAM_TO_STRING_LINK from="a" to="u" value_suffix="true"/>)"));
    EXPECT_EQ(GetText("s"), "2.25 dB");
    EXPECT_EQ(GetText("t"), "2.2 of 10.0 dB");
    EXPECT_EQ(GetText("u"), "2.25 dB");
    Set("a", 3.0);
    EXPECT_EQ(GetText("s"), "3.00 dB");
}

TEST_F(LinkElementsTest, AConnectionWorksBothWays) {
    ASSERT_TRUE(
        Load(WithParams(R"(<PARAM_CONNECTION id="k" id1="a" id2="b" normalized="true"/>)")));
    EXPECT_EQ(Get("b"), 20.0);
    Set("b", 50.0);
    EXPECT_EQ(Get("a"), 5.0);
    Set("a", 1.0);
    EXPECT_EQ(Get("b"), 10.0);
    Set("k.reverse", 1.0);
    EXPECT_EQ(Get("b"), 90.0);
    Set("k.enabled", 0.0);
    Set("a", 3.0);
    EXPECT_EQ(Get("b"), 90.0);
}

TEST_F(LinkElementsTest, AConnectionHasAResponseCurveAndItsInverse) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_CONNECTION id1="a" id2="b" normalized="true"
                                                     response_curve="square"/>)")));
    Set("a", 5.0);
    EXPECT_NEAR(Get("b"), 25.0, 1e-9);
    Set("b", 81.0);
    EXPECT_NEAR(Get("a"), 9.0, 1e-9);
}

TEST_F(LinkElementsTest, TheConstraintSaysWhichEndGivesWay) {
    const std::string ends = R"(<PARAM id="a" max="10" default="2"/>
                                <PARAM id="b" max="10" default="7"/>)";
    ASSERT_TRUE(Load(ends + R"(<PARAM_CONNECTION id1="a" id2="b"/>)"));
    EXPECT_EQ(Get("b"), 2.0);
    ASSERT_TRUE(Load(ends + R"(<PARAM_CONNECTION id1="a" id2="b" constraint="id2"/>)"));
    EXPECT_EQ(Get("a"), 7.0);
    ASSERT_TRUE(Load(ends + R"(<PARAM_CONNECTION id1="a" id2="b" mode="diff"/>)"));
    Set("a", 3.0);
    EXPECT_EQ(Get("b"), 8.0);
}

TEST_F(LinkElementsTest, AnAnimatedLinkTakesItsTime) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_ANIMATED_LINK id="l" from="a" to="b" duration_ms="100"
                                                        refresh_time_ms="10"/>)")));
    Wait(200);
    EXPECT_EQ(Get("b"), 2.0);
    EXPECT_EQ(Get("l.refresh_time_ms"), 10.0);
    EXPECT_EQ(Get("l.refresh_time_ms.max"), 1000000.0);
    EXPECT_STREQ(Find<Objects::ICaptureParam>("l.refresh_time_ms")->GetInfo().GetUnit(), "ms");
    Set("a", 10.0);
    Wait(50);
    EXPECT_EQ(Get("b"), 6.0);
    Wait(50);
    EXPECT_EQ(Get("b"), 10.0);
    Set("l.enabled", 0.0);
    Set("a", 1.0);
    Wait(200);
    EXPECT_EQ(Get("b"), 10.0);
}

TEST_F(LinkElementsTest, AnAnimatedLinkHasARefreshTimeOfItsOwn) {
    ASSERT_TRUE(Load(WithParams(R"(<PARAM_ANIMATED_LINK id="l" from="a" to="b"/>)")));
    EXPECT_EQ(Get("l.refresh_time_ms"), 50.0);
    Set("l.refresh_time_ms", 20.0);
    EXPECT_EQ(Get("l.refresh_time_ms"), 20.0);
}

TEST_F(LinkElementsTest, CurvesAndTextsFollow) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="10" default="2"/>
                        <FORMULA_CURVE id="c" formula="a*x"/>
                        <CURVE id="d"/>
                        <CURVE_LINK id="cl" from="c" to="d"/>
                        <STRING id="s" default="one"/><STRING id="t"/>
                        <STRING_LINK id="sl" from="s" to="t"/>)"));
    EXPECT_EQ(Evaluate("d", 3.0), 6.0);
    EXPECT_EQ(GetText("t"), "one");
    Set("a", 5.0);
    SetText("s", "two");
    EXPECT_EQ(Evaluate("d", 3.0), 15.0);
    EXPECT_EQ(GetText("t"), "two");
    Set("cl.enabled", 0.0);
    Set("sl.enabled", 0.0);
    Set("a", 1.0);
    SetText("s", "three");
    EXPECT_EQ(Evaluate("d", 3.0), 15.0);
    EXPECT_EQ(GetText("t"), "two");
}

TEST_F(LinkElementsTest, MissingEndsAreErrors) {
    for (const char* name :
         {"PARAM_LINK", "PARAM_TO_STRING_LINK", "PARAM_MULTI_LINK", "PARAM_ANIMATED_LINK",
          "CURVE_LINK", "CURVE_MULTI_LINK", "STRING_LINK", "STRING_MULTI_LINK"}) {
        const std::string element = name;
        ExpectError("<" + element + " to=\"b\"/>",
                    element + ": invalid link, missing from attribute.");
        ExpectError("<" + element + " from=\"b\"/>",
                    element + ": invalid link, missing to attribute.");
        ExpectError("<" + element + "/>", element + ": invalid link, missing from attribute.");
    }
    ExpectError(R"(<PARAM_CONNECTION id2="b"/>)",
                "PARAM_CONNECTION: invalid connection, missing id1 attribute.");
    ExpectError(R"(<PARAM_CONNECTION id1="b"/>)",
                "PARAM_CONNECTION: invalid connection, missing id2 attribute.");
}

TEST_F(LinkElementsTest, UnknownEndsAreErrorsAndLeaveTheOtherEndAlone) {
    EXPECT_FALSE(LoadDocument("<MODEL>\n<PARAM id=\"b\" max=\"9\" default=\"4\"/>\n"
                              "<PARAM_LINK from=\"a\" to=\"b\"/>\n"
                              "<PARAM_LINK from=\"b\" to=\"c\"/></MODEL>"));
    EXPECT_EQ(Messages(),
              (Lines{"main.model:3: error: a: Unknown identifier (object does not exist).",
                     "main.model:4: error: c: Unknown identifier (object does not exist).",
                     "main.model:1: error: Fatal error: model parsing failed"}));
    EXPECT_EQ(Get("b"), 4.0);
}

TEST_F(LinkElementsTest, EndsOfTheWrongKindAreErrors) {
    const std::string objects = R"(<PARAM id="p"/><STRING id="s"/><CURVE id="c"/>
                                   <FORMULA_PARAM id="f" formula="p"/>)";
    const auto expect = [&](const std::string& element, const std::string& text) {
        EXPECT_FALSE(Load(objects + element)) << element;
        EXPECT_EQ(Messages(), Failed("main.model:2: error: " + text)) << element;
    };
    expect(R"(<PARAM_LINK from="s" to="p"/>)",
           "s: Unknown parameter identifier (wrong object type).");
    expect(R"(<PARAM_LINK from="p" to="f"/>)",
           "f: Unknown parameter identifier (wrong object type).");
    expect(R"(<CURVE_LINK from="p" to="c"/>)", "p: Unknown curve identifier (wrong object type).");
    expect(R"(<STRING_LINK from="s" to="c"/>)",
           "c: Unknown string identifier (wrong object type).");
    expect(R"(<PARAM_TO_STRING_LINK from="p" to="c"/>)",
           "c: Unknown string identifier (wrong object type).");
    expect(R"(<PARAM_LINK from="p.info" to="p"/>)",
           "p.info: Unknown parameter identifier (wrong object type).");
}

TEST_F(LinkElementsTest, SwitchesAreMadeWhenTheyAreUsed) {
    const char* content = R"(<PARAM id="a" max="1"/><PARAM id="b" max="1"/>
                             <PARAM_LINK id="l" from="a" to="b"/>
                             <EXPOSED_OBJECTS object_ids="l.enabled"/>)";
    ASSERT_TRUE(Load(content, kBothPasses));
    EXPECT_TRUE(Has("l.enabled"));
    EXPECT_FALSE(Has("l.reverse"));
    EXPECT_FALSE(Has("l.mode"));
    ASSERT_TRUE(Load(content));
    EXPECT_TRUE(Has("l.reverse"));
    EXPECT_TRUE(Has("l.mode"));
    EXPECT_FALSE(Has("l.refresh_time_ms"));
}

TEST_F(LinkElementsTest, LinksInARingEnd) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="10"/><PARAM id="b" max="10"/>
                        <PARAM_LINK from="a" to="b" formula="x+1"/>
                        <PARAM_LINK from="b" to="a" formula="x+1"/>)"));
    Set("a", 3.0);
}

// Links from many.

TEST_F(LinkElementsTest, ParametersAreMixed) {
    const auto mixed = [&](const char* word) {
        EXPECT_TRUE(Load(std::string(R"(<PARAM id="a" max="10" default="8"/>
                                        <PARAM id="b" max="10" default="2"/>
                                        <PARAM id="c" max="10" default="2"/>
                                        <PARAM id="t" min="-99" max="99"/>
                                        <PARAM_MULTI_LINK from="a; b;c" to="t" mux_function=")") +
                         word + "\"/>"));
        return Get("t");
    };
    EXPECT_EQ(mixed("+"), 12.0);
    EXPECT_EQ(mixed("-"), 4.0);
    EXPECT_EQ(mixed("/"), 2.0);
    EXPECT_EQ(mixed("*"), 32.0);
    EXPECT_EQ(mixed("max"), 8.0);
    EXPECT_EQ(mixed("min"), 2.0);
    EXPECT_EQ(mixed("mean"), 4.0);
    EXPECT_EQ(mixed("-max"), -8.0);
    EXPECT_EQ(mixed("-min"), -2.0);
    EXPECT_EQ(mixed("-mean"), -4.0);
    EXPECT_EQ(mixed("&lt;"), 0.0);
    EXPECT_EQ(mixed("&lt;="), 0.0);
    EXPECT_EQ(mixed(">"), 0.0);
    EXPECT_EQ(mixed(">="), 1.0);
    EXPECT_EQ(mixed("="), 0.0);
    EXPECT_EQ(mixed("other"), 4.0);
}

TEST_F(LinkElementsTest, AMixHasSwitchesAndATriggerRange) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="10" default="1"/><PARAM id="b" max="10" default="2"/>
                        <PARAM id="t" max="100"/>
                        <PARAM_MULTI_LINK id="l" from="a;b" to="t" mux_function="+"
                                          trigger_min="5" trigger_max="12"/>)"));
    EXPECT_EQ(Get("t"), 0.0) << "3 lies below";
    Set("a", 7.0);
    EXPECT_EQ(Get("t"), 9.0);
    Set("b", 9.0);
    EXPECT_EQ(Get("t"), 9.0) << "16 lies above";
    Set("l.reverse", 1.0);
    Set("b", 3.0);
    EXPECT_EQ(Get("t"), 90.0);
    Set("l.enabled", 0.0);
    Set("b", 4.0);
    EXPECT_EQ(Get("t"), 90.0);
}

TEST_F(LinkElementsTest, AMixMapsPositions) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="10" default="5"/><PARAM id="b" max="100" default="100"/>
                        <PARAM id="t" max="1000"/>
                        <PARAM_MULTI_LINK from="a;b" to="t" normalized="true"/>)"));
    EXPECT_EQ(Get("t"), 750.0);
}

TEST_F(LinkElementsTest, CurvesAreMixed) {
    const auto mixed = [&](const char* function) {
        EXPECT_TRUE(Load(std::string(R"(<FORMULA_CURVE id="a" formula="x*6"/>
                                        <FORMULA_CURVE id="b" formula="x+1"/>
                                        <CURVE id="t"/><CURVE_MULTI_LINK from="a;b" to="t" )") +
                         function + "/>"));
        return Evaluate("t", 2.0);
    };
    EXPECT_EQ(mixed("mux_function='+'"), 15.0);
    EXPECT_EQ(mixed("mux_function='-'"), 9.0);
    EXPECT_EQ(mixed("mux_function='*'"), 36.0);
    EXPECT_EQ(mixed("mux_function='/'"), 4.0);
    EXPECT_EQ(mixed(""), 3.0) << "the last one";
}

TEST_F(LinkElementsTest, TextsAreJoinedOrTheLastOneWins) {
    const std::string texts = R"(<STRING id="a" default="x"/><STRING id="b" default="y"/>
                                 <STRING id="t"/>)";
    ASSERT_TRUE(Load(texts + R"(<STRING_MULTI_LINK from="a;b" to="t" separator=", "/>)"));
    EXPECT_EQ(GetText("t"), "x, y");
    SetText("a", "z");
    EXPECT_EQ(GetText("t"), "z, y");
    ASSERT_TRUE(Load(texts + R"(<STRING_MULTI_LINK from="a;b" to="t"/>)"));
    EXPECT_EQ(GetText("t"), "y");
    SetText("a", "z");
    EXPECT_EQ(GetText("t"), "z");
}

TEST_F(LinkElementsTest, AnUnknownSourceAmongManyIsToldAndLeftOut) {
    EXPECT_FALSE(Load(R"(<PARAM id="a" max="10" default="3"/><PARAM id="t" max="99"/>
                         <PARAM_MULTI_LINK from="a;nobody" to="t" mux_function="+"/>)"));
    EXPECT_EQ(Messages(),
              Failed("main.model:2: error: nobody: Unknown identifier (object does not exist)."));
    EXPECT_EQ(Get("t"), 3.0);
}

} // namespace
} // namespace ModelTests
