#include "ModelTest.h"

namespace ModelTests {
namespace {

using ValueElementsTest = CModelTest;
using Objects::ICaptureParam;
using Objects::IConstCaptureParam;
using Objects::IConstCaptureString;

TEST_F(ValueElementsTest, AParameterStartsAtItsDefault) {
    ASSERT_TRUE(Load(R"(<PARAM id="gain" name="Gain" comment="Loudness" unit="dB" min="-60"
                               max="12" default="-6"/>)"));
    EXPECT_EQ(Messages(), Lines());
    EXPECT_EQ(Get("gain"), -6.0);
    const auto& info = Find<ICaptureParam>("gain")->GetInfo();
    EXPECT_EQ(info.GetType(), Objects::kParamReal);
    EXPECT_STREQ(info.GetName(), "Gain");
    EXPECT_STREQ(info.GetComment(), "Loudness");
    EXPECT_STREQ(info.GetUnit(), "dB");
    EXPECT_EQ(info.GetMin(), -60.0);
    EXPECT_EQ(info.GetMax(), 12.0);
    Set("gain", 100.0);
    EXPECT_EQ(Get("gain"), 12.0);
    EXPECT_EQ(Get("gain.min"), -60.0);
    EXPECT_EQ(Get("gain.max"), 12.0);
    EXPECT_EQ(Get("gain.default"), -6.0);
}

TEST_F(ValueElementsTest, AnElementWithoutIdentifierIsOneErrorAndNoObject) {
    ExpectError(R"(<PARAM default="1"/>)", "Cannot create parameter, id field is empty.");
    EXPECT_TRUE(model->GetObjects().GetEntries().size() == 1U) << "alive";
    ExpectError(R"(<PARAM id=""/>)", "Cannot create parameter, id field is empty.");
    ExpectError("<CURVE/>", "Cannot create curve, id field is empty.");
    ExpectError("<STRING/>", "Cannot create string, id field is empty.");
    ExpectError("<CURVE_VALUE_PARAM curve_id=\"a\"/>", "Cannot create curve, id field is empty.");
    ExpectError("<SURFACE_VALUE_PARAM/>", "Cannot create surface, id field is empty.");
}

TEST_F(ValueElementsTest, TheSecondOfOneIdentifierIsAnErrorAndTheFirstStays) {
    ExpectError(R"(<PARAM id="a" max="9" default="1"/><PARAM id="a" max="9" default="2"/>)",
                "'a' : this object identifier already exists, use another identifier.");
    EXPECT_EQ(Get("a"), 1.0);
    ExpectError(R"(<STRING id="a" default="x"/><PARAM id="a"/>)",
                "'a' : this object identifier already exists, use another identifier.");
    EXPECT_EQ(GetText("a"), "x");
}

TEST_F(ValueElementsTest, MessagesStandAtTheLineOfTheElement) {
    EXPECT_FALSE(LoadDocument("<MODEL>\n"
                              "  <PARAM id=\"a\"/>\n"
                              "\n"
                              "  <PARAM/>\n"
                              "  <STRING id=\"a\"/>\n"
                              "</MODEL>"));
    EXPECT_EQ(Messages(),
              (Lines{"main.model:4: error: Cannot create parameter, id field is empty.",
                     "main.model:5: error: 'a' : this object identifier already exists, use "
                     "another identifier.",
                     "main.model:1: error: Fatal error: model parsing failed"}));
}

TEST_F(ValueElementsTest, TypesAreWords) {
    ASSERT_TRUE(Load(R"(<PARAM id="b" type="boolean"/>
                        <PARAM id="i" type="integer" max="7"/>
                        <PARAM id="e" type="enumeration" max="7"/>
                        <PARAM id="r" type="real" max="7"/>
                        <PARAM id="o" type="Boolean" max="7"/>
                        <PARAM id="n" max="7"/>
                        <PARAM id="wide" type="boolean" max="4" min="-1"/>)"));
    const auto type = [&](const char* id) { return Find<ICaptureParam>(id)->GetInfo().GetType(); };
    EXPECT_EQ(type("b"), Objects::kParamBoolean);
    EXPECT_EQ(type("i"), Objects::kParamInteger);
    EXPECT_EQ(type("e"), Objects::kParamInteger);
    EXPECT_EQ(type("r"), Objects::kParamReal);
    EXPECT_EQ(type("o"), Objects::kParamReal);
    EXPECT_EQ(type("n"), Objects::kParamReal);
    EXPECT_EQ(Get("b.min"), 0.0);
    EXPECT_EQ(Get("b.max"), 1.0);
    EXPECT_EQ(Get("wide.min"), -1.0);
    EXPECT_EQ(Get("wide.max"), 4.0);
}

TEST_F(ValueElementsTest, WithoutARangeAParameterStaysAtZero) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" default="3"/>)"));
    EXPECT_EQ(Get("a"), 0.0);
}

TEST_F(ValueElementsTest, ValuesReadWithOneDecimalUnlessTold) {
    ASSERT_TRUE(Load(R"(
        <PARAM id="a" max="9" default="1.25"/>
        <PARAM id="b" max="9" default="1.256" value_format=".2"/>
        <PARAM id="c" max="9" default="1.25" value_format="+08.3"/>
        <PARAM id="d" max="9" default="2.5" content="about {value}!"/>
        <PARAM id="e" max="9" default="2.5" unit="dB" value_suffix="true"/>
        <PARAM id="f" max="9" default="2.5" unit="dB"/>
        <PARAM id="g" max="9" default="2.5" value_suffix="true"/>
        <PARAM id="h" max="9" default="2" value_format=".3" drop_trailing_zeros="true"/>
        <PARAM id="i" max="9999" default="1234.5" significant_digits="2"/>
        <PARAM id="j" max="9" default="3" type="integer"/>
        <PARAM id="k" max="9" default="2.5" unit="{x}" value_suffix="true"/>)"));
    EXPECT_EQ(ValueText("a"), "1.2");
    EXPECT_EQ(ValueText("b"), "1.26");
    EXPECT_EQ(ValueText("c"), "+001.250");
    EXPECT_EQ(ValueText("d"), "about 2.5!");
    EXPECT_EQ(ValueText("e"), "2.5 dB");
    EXPECT_EQ(ValueText("f"), "2.5");
    EXPECT_EQ(ValueText("g"), "2.5");
    EXPECT_EQ(ValueText("h"), "2");
    EXPECT_EQ(ValueText("i"), "1200.0");
    EXPECT_EQ(ValueText("j"), "3.0");
    EXPECT_EQ(ValueText("k"), "2.5 {x}");
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(ValueElementsTest, AnInvalidFormatIsAWarningAndTheDefault) {
    for (const char* format : {"abc", ".2f", "%", "5d", "..2", ".123", "*"}) {
        ASSERT_TRUE(Load(std::string(R"(<PARAM id="a" max="9" default="1.25" value_format=")") +
                         format + "\"/>"));
        EXPECT_EQ(Messages(), Lines{std::string("main.model:1: warning: PARAM, '") + format +
                                    "' : Invalid value format. Using default."});
        EXPECT_EQ(ValueText("a"), "1.2");
    }
}

TEST_F(ValueElementsTest, AnEnumerationHasALabelForEachValue) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" type="enumeration" enum_values="one;two;three"
                               default="1"/>)"));
    EXPECT_EQ(Messages(), Lines());
    EXPECT_EQ(Get("a.max"), 2.0);
    EXPECT_EQ(ValueText("a"), "two");
    EXPECT_EQ(GetText("a.enum_values"), "one;two;three");
    EXPECT_STREQ(Find<IConstCaptureString>("a.enum_values")->GetInfo().GetName(), "Enum Values");
    EXPECT_EQ(Find<Objects::ICaptureString>("a.enum_values"), nullptr);
}

TEST_F(ValueElementsTest, LabelsBeginAtTheMinimum) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" type="enumeration" enum_values="one;two" min="1" max="2"
                               default="2"/>)"));
    EXPECT_EQ(Messages(), Lines());
    EXPECT_EQ(ValueText("a"), "two");
}

TEST_F(ValueElementsTest, ARangeThatDoesNotFitTheLabelsIsAWarningAndGivesWay) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" type="enumeration" enum_values="a;b;c;d" min="0"
                               max="5"/>)"));
    EXPECT_EQ(Messages(),
              Lines{"main.model:1: warning: the number of values in the enumeration list is "
                    "different from specified min/max range"});
    EXPECT_EQ(Get("a.max"), 3.0);
}

TEST_F(ValueElementsTest, LabelsAreForEnumerationsAlone) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" type="integer" enum_values="a;b" max="9" default="1"/>)"));
    EXPECT_EQ(ValueText("a"), "1.0");
    EXPECT_FALSE(Has("a.enum_values"));
}

TEST_F(ValueElementsTest, NumbersMayBeFormulas) {
    ASSERT_TRUE(Load(R"(<VARIABLE id="n" value="4"/>
                        <PARAM id="a" min="-1e2" max="$n$*25" default="0-1.5"/>
                        <PARAM id="b" max="+9"/>)"));
    EXPECT_EQ(Get("a.min"), -100.0);
    EXPECT_EQ(Get("a.max"), 100.0);
    EXPECT_EQ(Get("a"), -1.5);
    EXPECT_EQ(Get("b.max"), 9.0);
}

TEST_F(ValueElementsTest, WhatIsNoNumberIsAnErrorAndCountsAsAbsent) {
    for (const char* text : {"", "+", "12 dB", "abc", "1,5", "nan", "inf", "1/0", "0x10", " 1"}) {
        SCOPED_TRACE(text);
        const bool isNumber = std::string(text) == " 1"; // a formula may begin with a blank
        EXPECT_EQ(Load(std::string(R"(<PARAM id="a" max=")") + text + "\"/>"), isNumber);
        EXPECT_EQ(Messages(), isNumber ? Lines()
                                       : Failed(std::string("main.model:1: error: Line 1:'") +
                                                text + "' is an invalid formula."));
        EXPECT_EQ(Get("a.max"), isNumber ? 1.0 : 0.0);
    }
}

TEST_F(ValueElementsTest, ACurveIsAtFirstTheDefaultOfY) {
    ASSERT_TRUE(Load(R"(<CURVE id="c" name="Curve" comment="C" x_name="Time" x_min="-1" x_unit="s"
                               y_max="10" y_default="3" y_type="integer" x_value_format=".3"/>)"));
    EXPECT_EQ(Evaluate("c", 0.5), 3.0);
    const auto* curve = Find<Objects::ICaptureCurve>("c");
    ASSERT_TRUE(curve);
    EXPECT_STREQ(curve->GetInfo().GetName(), "Curve");
    EXPECT_STREQ(curve->GetInfo().GetComment(), "C");
    EXPECT_STREQ(curve->GetInfo().GetXInfo().GetName(), "Time");
    EXPECT_STREQ(curve->GetInfo().GetXInfo().GetUnit(), "s");
    EXPECT_EQ(curve->GetInfo().GetXInfo().GetMin(), -1.0);
    EXPECT_EQ(curve->GetInfo().GetYInfo().GetMax(), 10.0);
    EXPECT_EQ(curve->GetInfo().GetYInfo().GetType(), Objects::kParamInteger);
    EXPECT_TRUE(Has("c.x_info"));
    EXPECT_TRUE(Has("c.y_info"));
}

TEST_F(ValueElementsTest, TheLabelsOfAnAxisStandUnderItsPrefix) {
    ASSERT_TRUE(Load(R"(<CURVE id="c" x_type="enumeration" x_enum_values="a;b"/>)"));
    EXPECT_EQ(GetText("c.x_enum_values"), "a;b");
    EXPECT_FALSE(Has("c.enum_values"));
}

TEST_F(ValueElementsTest, AStringHasItsDefault) {
    ASSERT_TRUE(Load(R"(<STRING id="s" default="hello" name="Greeting" comment="C"/>
                        <STRING id="e"/>)"));
    EXPECT_EQ(GetText("s"), "hello");
    EXPECT_EQ(GetText("e"), "");
    EXPECT_STREQ(Find<Objects::ICaptureString>("s")->GetInfo().GetName(), "Greeting");
    EXPECT_STREQ(Find<Objects::ICaptureString>("s")->GetInfo().GetComment(), "C");
}

TEST_F(ValueElementsTest, ACurveIsReadAtAParameter) {
    ASSERT_TRUE(Load(R"(<PARAM id="x" max="10" default="2"/>
                        <FORMULA_CURVE id="c" formula="x*x" y_max="100" y_unit="W"/>
                        <CURVE_VALUE_PARAM id="v" curve_id="c" x_param_id="x"/>)"));
    EXPECT_EQ(Get("v"), 4.0);
    Set("x", 3.0);
    EXPECT_EQ(Get("v"), 9.0);
    EXPECT_STREQ(Find<IConstCaptureParam>("v")->GetInfo().GetUnit(), "W");
    EXPECT_EQ(Find<ICaptureParam>("v"), nullptr);
}

TEST_F(ValueElementsTest, ASurfaceIsReadAtTwoParameters) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="10" default="2"/>
                        <PARAM id="b" max="10" default="5"/>
                        <FORMULA_SURFACE id="s" formula="x*10+y" z_max="100"/>
                        <SURFACE_VALUE_PARAM id="v" surface_id="s" x_param_id="a"
                                             y_param_id="b"/>)"));
    EXPECT_EQ(Get("v"), 25.0);
    Set("b", 7.0);
    EXPECT_EQ(Get("v"), 27.0);
}

TEST_F(ValueElementsTest, AMissingEndOfASampledParameterIsAnError) {
    const std::string curve = "Cannot create curve, an id field is missing.";
    ExpectError(R"(<CURVE_VALUE_PARAM id="v" curve_id="c"/>)", curve);
    ExpectError(R"(<CURVE_VALUE_PARAM id="v" x_param_id="c"/>)", curve);
    const std::string surface = "Cannot create surface, an id field is missing.";
    ExpectError(R"(<SURFACE_VALUE_PARAM id="v" surface_id="s" x_param_id="x"/>)", surface);
    ExpectError(R"(<SURFACE_VALUE_PARAM id="v" surface_id="s" y_param_id="x"/>)", surface);
    ExpectError(R"(<SURFACE_VALUE_PARAM id="v" x_param_id="s" y_param_id="x"/>)", surface);
}

/// A host that writes down what it is asked for.
class CTestScriptHost : public IScriptHost {
public:
    bool Run(const char* script) override {
        runs.emplace_back(script);
        return true;
    }
    void OnModelComplete(ISkinModel& completeModel) override { completed = &completeModel; }

    Lines runs;
    ISkinModel* completed = nullptr;
};

TEST_F(ValueElementsTest, AScriptRunsAtEachChangeOfItsParameter) {
    CTestScriptHost host;
    scriptHost = &host;
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="9" on_value_changed_script="beep"/>)"));
    EXPECT_EQ(host.completed, model.get());
    Set("a", 3.0);
    Set("a", 3.0);
    Set("a", 4.0);
    EXPECT_EQ(host.runs, (Lines{"beep", "beep"}));
    Unload();
}

TEST_F(ValueElementsTest, AScriptWithoutAHostIsAWarning) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="9" on_value_changed_script="beep"/>)"));
    EXPECT_EQ(Messages(), Lines{"main.model:1: warning: a: on_value_changed_script is ignored, "
                                "current engine does not supports scripts."});
}

} // namespace
} // namespace ModelTests
