#include "ModelTest.h"

namespace ModelTests {
namespace {

using FormulaElementsTest = CModelTest;

TEST_F(FormulaElementsTest, AFormulaFollowsTheParametersThatItNames) {
    ASSERT_TRUE(Load(R"(<FORMULA_PARAM id="sum" formula="a+2*b.c" max="100"/>
                        <PARAM id="a" max="10" default="1"/>
                        <PARAM id="b.c" max="10" default="2"/>)"));
    EXPECT_EQ(Get("sum"), 5.0);
    Set("a", 4.0);
    EXPECT_EQ(Get("sum"), 8.0);
    Set("b.c", 10.0);
    EXPECT_EQ(Get("sum"), 24.0);
    EXPECT_EQ(Find<Objects::ICaptureParam>("sum"), nullptr) << "to be read alone";
}

TEST_F(FormulaElementsTest, AFormulaTellsOfChanges) {
    ASSERT_TRUE(Load(R"(<FORMULA_PARAM id="twice" formula="a*2"/><PARAM id="a" max="10"/>
                        <PARAM id="target" max="100"/>
                        <PARAM_LINK from="twice" to="target"/>)"));
    Set("a", 4.0);
    EXPECT_EQ(Get("target"), 8.0);
}

TEST_F(FormulaElementsTest, AFormulaReadsDerivedNamesAndFormulas) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" min="-3" max="10"/>
                        <FORMULA_PARAM id="range" formula="a.max-a.min"/>
                        <FORMULA_PARAM id="half" formula="range/2"/>)"));
    EXPECT_EQ(Get("half"), 6.5);
}

TEST_F(FormulaElementsTest, ACurveHasAVariableOfAnyName) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="10" default="3"/>
                        <FORMULA_CURVE id="c" formula="a*t" variable="t" name="Line"/>
                        <FORMULA_CURVE id="d" formula="a*x"/>
                        <FORMULA_CURVE id="e" formula='c(x)+d(1)'/>)"));
    EXPECT_EQ(Evaluate("c", 2.0), 6.0);
    EXPECT_EQ(Evaluate("d", 2.0), 6.0);
    EXPECT_EQ(Evaluate("e", 2.0), 9.0);
    Set("a", 1.0);
    EXPECT_EQ(Evaluate("e", 2.0), 3.0);
    EXPECT_STREQ(Find<Objects::IConstCaptureCurve>("c")->GetInfo().GetName(), "Line");
}

TEST_F(FormulaElementsTest, ASurfaceHasTwoVariables) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="10" default="3"/>
                        <FORMULA_SURFACE id="s" formula="a*u-v" x_variable="u" y_variable="v"/>
                        <FORMULA_SURFACE id="t" formula="x*y"/>
                        <FORMULA_PARAM id="p" formula='s(1,2)+t(3,4)'/>)"));
    EXPECT_EQ(Evaluate("s", 2.0, 1.0), 5.0);
    EXPECT_EQ(Evaluate("t", 2.0, 5.0), 10.0);
    EXPECT_EQ(Get("p"), 13.0);
}

TEST_F(FormulaElementsTest, OneNameMayStandForThreeThings) {
    // One identifier has one object, so of the three uses two are of the wrong kind.
    EXPECT_FALSE(Load(R"(<PARAM id="f" max="10" default="3"/>
                         <FORMULA_PARAM id="p" formula='f+f(1)+f(1,2)'/>)"));
    EXPECT_EQ(Messages(),
              (Lines{"main.model:2: error: f: Unknown curve identifier (wrong object type).",
                     "main.model:2: error: f: Unknown surface identifier (wrong object type).",
                     "main.model:1: error: Fatal error: model parsing failed"}));
    EXPECT_EQ(Get("p"), 7.0) << "3, the identity at 1, and 1 + 2";
}

TEST_F(FormulaElementsTest, ElementsWithoutIdentifierAreErrors) {
    ExpectError(R"(<FORMULA_PARAM formula="1"/>)", "Cannot create param, id field is empty.");
    ExpectError(R"(<FORMULA_CURVE formula="1"/>)", "Cannot create curve, id field is empty.");
    ExpectError(R"(<FORMULA_SURFACE formula="1"/>)", "Cannot create surface, id field is empty.");
}

TEST_F(FormulaElementsTest, InvalidFormulasAreErrors) {
    ExpectError(R"(<FORMULA_PARAM id="a" formula="1+"/>)", "Cannot create param, invalid formula.");
    ExpectError(R"(<FORMULA_PARAM id="a"/>)", "Cannot create param, invalid formula.");
    ExpectError(R"(<FORMULA_CURVE id="a" formula="10%3"/>)",
                "Cannot create curve, invalid formula.");
    ExpectError(R"(<FORMULA_SURFACE id="a" formula='sin()'/>)",
                "Cannot create surface, invalid formula.");
    EXPECT_FALSE(Has("a"));
}

TEST_F(FormulaElementsTest, UnknownNamesAreErrorsInTheOrderOfTheAlphabet) {
    EXPECT_FALSE(Load("\n<FORMULA_PARAM id=\"p\" formula=\"zebra+ape*cat\"/>"
                      "<PARAM id=\"cat\" max=\"5\" default=\"2\"/>"));
    EXPECT_EQ(Messages(),
              (Lines{"main.model:2: error: ape: Unknown identifier (object does not exist).",
                     "main.model:2: error: zebra: Unknown identifier (object does not exist).",
                     "main.model:1: error: Fatal error: model parsing failed"}));
    EXPECT_EQ(Get("p"), 0.0);
}

TEST_F(FormulaElementsTest, ThePrePassTellsOfInvalidFormulasToo) {
    EXPECT_FALSE(Load(R"(<FORMULA_PARAM id="a" formula="1+"/><EXPOSED_OBJECTS object_ids="a"/>)",
                      kBothPasses));
    EXPECT_EQ(Messages(),
              (Lines{"main.model:1: error: a: cannot create object (invalid formula)",
                     "main.model:1: error: Cannot create param, invalid formula.",
                     "main.model:1: warning: a: cannot expose object (already exposed or unknown "
                     "object).",
                     "main.model:1: error: Fatal error: model parsing failed"}));
}

// Each step tells the next one twice: sixty would go on for longer than anybody waits.
TEST_F(FormulaElementsTest, WaysThatPartAndMeetAgainEnd) {
    std::string content = "<PARAM id=\"p0\" max=\"9\"/>";
    for (int i = 0; i < 60; ++i) {
        const std::string here = std::to_string(i);
        content += "<FORMULA_PARAM id=\"a" + here + "\" formula=\"p" + here + "+1\"/>" +
                   "<FORMULA_PARAM id=\"b" + here + "\" formula=\"p" + here + "+2\"/>" +
                   "<FORMULA_PARAM id=\"p" + std::to_string(i + 1) + "\" formula=\"a" + here +
                   "+b" + here + "\"/>";
    }
    ASSERT_TRUE(Load(content));
    Set("p0", 1.0);
    EXPECT_EQ(Get("p1"), 5.0);
}

TEST_F(FormulaElementsTest, AChainOfFormulasIsNoDeeperThanAStackTakes) {
    constexpr int kLength = 30000;
    std::string content = "<PARAM id=\"f0\" max=\"9\"/>";
    for (int i = 0; i < kLength; ++i) {
        content += "<FORMULA_PARAM id=\"f" + std::to_string(i + 1) + "\" formula=\"f" +
                   std::to_string(i) + "+1\"/>";
    }
    ASSERT_TRUE(Load(content));
    Set("f0", 1.0);
    EXPECT_EQ(Get("f1000"), 1001.0);
}

TEST_F(FormulaElementsTest, AFormulaOfItselfEnds) {
    ASSERT_TRUE(Load(R"(<FORMULA_PARAM id="a" formula="a+1"/>)"));
    EXPECT_TRUE(Has("a"));
    ASSERT_TRUE(Load(R"(<FORMULA_CURVE id="c" formula="d(x)+1"/>
                        <FORMULA_CURVE id="d" formula="c(x)+1"/>)"));
    Evaluate("c", 1.0);
}

} // namespace
} // namespace ModelTests
