#include "ModelTest.h"

namespace ModelTests {
namespace {

using SkinModelFactoryTest = CModelTest;

TEST_F(SkinModelFactoryTest, WhatNobodyRefersToIsNotMade) {
    ASSERT_TRUE(Load(R"(<PARAM id="unused"/><STRING id="s"/><CURVE id="c"/>
        <FORMULA_PARAM id="fp" formula="x"/><FORMULA_CURVE id="fc" formula="x"/>
        <FORMULA_SURFACE id="fs" formula="x"/>
        <CURVE_VALUE_PARAM id="cv" curve_id="k" x_param_id="x"/>
        <SURFACE_VALUE_PARAM id="sv" surface_id="u" x_param_id="x" y_param_id="x"/>
        <CURVE_FROM_PARAM_OVER_TIME id="ct" param_id="x"/>
        <SURFACE_FROM_CURVE_OVER_TIME id="st" curve_id="k"/>
        <PARAM id="x"/><CURVE id="k"/><FORMULA_SURFACE id="u" formula="x+y"/>
        <PARAM id="e" exposed="true"/><STRING id="p" persistent="true"/>
        <PARAM id="y"/>)",
                     kBothPasses));
    EXPECT_EQ(Messages(), Lines());
    EXPECT_EQ(GetIds(), (Lines{"e", "k", "p", "u", "x"}));
    EXPECT_STREQ(model->GetParam("unused").GetInfo().GetName(), "?");
    EXPECT_STREQ(model->GetParam("unused").GetInfo().GetComment(), "Parameter not found");
}

TEST_F(SkinModelFactoryTest, WithoutAPrePassEverythingIsMade) {
    ASSERT_TRUE(Load(R"(<PARAM id="unused"/>)"));
    EXPECT_TRUE(Has("unused"));
    EXPECT_TRUE(Has("alive"));
}

TEST_F(SkinModelFactoryTest, ElementsDeclareWhatTheyReferTo) {
    struct CCase {
        const char* element;
        Lines ids;
    };
    const CCase cases[] = {
        {"<PARAM_LINK from='a' to='b'/>", {"a", "b"}},
        {"<PARAM_TO_STRING_LINK from='a' to='s'/>", {"a", "s"}},
        {"<CURVE_LINK from='c' to='d'/>", {"c", "d"}},
        {"<STRING_LINK from='s' to='t'/>", {"s", "t"}},
        {"<PARAM_ANIMATED_LINK from='a' to='b'/>", {"a", "b"}},
        {"<PARAM_MULTI_LINK from='a;b' to='e'/>", {"a", "b", "e"}},
        {"<CURVE_MULTI_LINK from='c' to='d'/>", {"c", "d"}},
        {"<STRING_MULTI_LINK from='s' to='t'/>", {"s", "t"}},
        {"<PARAM_CONNECTION id1='a' id2='b'/>", {"a", "b"}},
        {"<PARAM_LINK from='a.max' to='b'/>", {"a", "b"}},
        {"<FORMULA_PARAM id='f' formula='a+c(b)+s'/>", {"a", "b", "c", "s"}},
        {"<PERSISTENT_PARAMS param_ids='a'/>", {"a"}},
        {"<PERSISTENT_OBJECTS object_ids='a;s'/>", {"a", "s"}},
        {"<EXPOSED_OBJECTS object_ids='c'/>", {"c"}},
        {"<EXPOSED_OBJECTS param_ids='a'/>", {"a"}},
        {"<PARAM_LINK from='alive' to='a'/>", {"a", "alive"}},
    };
    for (const CCase& each : cases) {
        SCOPED_TRACE(each.element);
        Load(std::string(R"(<PARAM id="a"/><PARAM id="b"/><PARAM id="e"/><CURVE id="c"/>
                            <CURVE id="d"/><STRING id="s"/><STRING id="t"/>)") +
                 each.element,
             kBothPasses);
        EXPECT_EQ(GetIds(), each.ids);
    }
}

TEST_F(SkinModelFactoryTest, TheNameOfAVariableIsDeclaredWhichDoesNoHarm) {
    ASSERT_TRUE(Load(R"(<FORMULA_CURVE id="c" formula="2*t" variable="t" exposed="true"/>
                        <PARAM id="t" max="9" default="5"/>)",
                     kBothPasses));
    EXPECT_TRUE(Has("t"));
    EXPECT_EQ(Evaluate("c", 3.0), 6.0);
}

TEST_F(SkinModelFactoryTest, ExposedObjectsAreAList) {
    ASSERT_TRUE(Load(R"(<PARAM id="a"/><STRING id="s"/><PARAM id="b"/>
                        <EXPOSED_OBJECTS object_ids="a; s"/>)"));
    EXPECT_TRUE(model->GetExposure().IsExposed("a"));
    EXPECT_TRUE(model->GetExposure().IsExposed("a.max"));
    EXPECT_TRUE(model->GetExposure().IsExposed("s"));
    EXPECT_FALSE(model->GetExposure().IsExposed("b"));
    EXPECT_EQ(model->GetExposure().GetEntries().size(), 2U);
}

TEST_F(SkinModelFactoryTest, ExposedObjectsAreNotReadFromParamIds) {
    ASSERT_TRUE(Load(R"(<PARAM id="a"/><EXPOSED_OBJECTS param_ids="a"/>)", kBothPasses));
    EXPECT_TRUE(Has("a")) << "declared";
    EXPECT_FALSE(model->GetExposure().IsExposed("a"));
}

TEST_F(SkinModelFactoryTest, WhatCannotBePersistentOrExposedIsAWarningAtItsElement) {
    ASSERT_TRUE(LoadDocument("<MODEL><PARAM id='a' persistent='true' exposed='true'/>\n"
                             "<PERSISTENT_PARAMS param_ids='a;nobody'/>\n"
                             "<EXPOSED_OBJECTS object_ids='a;nobody'/>\n"
                             "<FORMULA_PARAM id='f' formula='1' persistent='true'/></MODEL>"));
    const std::string persistent =
        ": cannot make object persistent (already persistent or unknown object).";
    const std::string exposed = ": cannot expose object (already exposed or unknown object).";
    EXPECT_EQ(Messages(),
              (Lines{"main.model:2: warning: a" + persistent,
                     "main.model:2: warning: nobody" + persistent,
                     "main.model:4: warning: f" + persistent, "main.model:3: warning: a" + exposed,
                     "main.model:3: warning: nobody" + exposed}));
}

TEST_F(SkinModelFactoryTest, PersistentObjectsAreReadFromEitherList) {
    ASSERT_TRUE(Load(R"(<PARAM id="a"/><PARAM id="b"/><PARAM id="c"/>
                        <PERSISTENT_PARAMS object_ids="a" param_ids="b"/>
                        <PERSISTENT_OBJECTS object_ids="c"/>)"));
    EXPECT_TRUE(model->SetPersistent("a")) << "param_ids goes first";
    EXPECT_FALSE(model->SetPersistent("b"));
    EXPECT_FALSE(model->SetPersistent("c"));
}

TEST_F(SkinModelFactoryTest, AliveTellsWhetherTheWindowIsUp) {
    ASSERT_TRUE(Load(""));
    EXPECT_EQ(Get("alive"), 0.0);
    EXPECT_EQ(ValueText("alive"), "asleep");
    EXPECT_EQ(Find<Objects::ICaptureParam>("alive"), nullptr);
    EXPECT_EQ(Get("alive.max"), 1.0);
}

TEST_F(SkinModelFactoryTest, TheModelHasAnIdentifier) {
    ASSERT_TRUE(LoadDocument("<MODEL id='shared'/>"));
    EXPECT_STREQ(model->GetId(), "shared");
}

TEST_F(SkinModelFactoryTest, TheRootIsModel) {
    EXPECT_FALSE(LoadDocument("<SKIN/>"));
    EXPECT_EQ(Messages(),
              Failed("main.model:1: error: Invalid file: root element must be 'MODEL'"));
}

TEST_F(SkinModelFactoryTest, AFailingPrePassEndsTheLoad) {
    EXPECT_FALSE(
        LoadDocument("<MODEL>\n<VARIABLE/><PARAM id='a' exposed='true'/></MODEL>", kBothPasses));
    EXPECT_EQ(Messages(),
              Failed("main.model:2: error: mandatory id for VARIABLE attribute empty or missing"));
    EXPECT_FALSE(Has("a"));
}

TEST_F(SkinModelFactoryTest, InformationTellsOfTheSteps) {
    ASSERT_TRUE(Load("", kBothPasses));
    Lines texts;
    for (const auto& record : log.GetRecords()) {
        EXPECT_EQ(record.type, Core::kInfoMessage);
        texts.push_back(record.text);
    }
    EXPECT_EQ(texts, (Lines{"Pre-Parsing the model...", "Parsing the model...",
                            "Pre-Linking objects (managing dynamic collections)...",
                            "Setting up collections count...", "Linking objects...",
                            "Storing objects information...", "Cleaning..."}));
}

TEST_F(SkinModelFactoryTest, AllFaultsAreListedInOneRun) {
    EXPECT_FALSE(LoadDocument("<MODEL>\n<PARAM/>\n<STRING/>\n<PARAM_LINK from='a'/>\n"
                              "<PARAM id='p' max='1' default='1'/>\n"
                              "<PARAM_LINK from='p' to='q'/></MODEL>"));
    EXPECT_EQ(Messages(),
              (Lines{"main.model:2: error: Cannot create parameter, id field is empty.",
                     "main.model:3: error: Cannot create string, id field is empty.",
                     "main.model:4: error: PARAM_LINK: invalid link, missing to attribute.",
                     "main.model:6: error: q: Unknown identifier (object does not exist).",
                     "main.model:1: error: Fatal error: model parsing failed"}));
    EXPECT_EQ(Get("p"), 1.0) << "what is right is there";
}

class SkinModelVariablesTest : public CModelTest {
protected:
    void Prepare(CSkinModelFactory& factory) override {
        factory.AddVariable("PLUGIN_NAME", "Ondara");
        factory.AddVariable("N", "7");
    }
};

TEST_F(SkinModelVariablesTest, AreThereInBothPasses) {
    ASSERT_TRUE(Load(R"(<STRING id="s" default="$PLUGIN_NAME$"/><PARAM id="p$N$" max="$N$"/>
                        <EXPOSED_OBJECTS object_ids="s;p$N$"/>)",
                     kBothPasses));
    EXPECT_EQ(GetText("s"), "Ondara");
    EXPECT_EQ(Get("p7.max"), 7.0);
}

TEST(SplitIdsTest, PartsAtSemicolons) {
    EXPECT_EQ(SplitIds("a;b"), (Lines{"a", "b"}));
    EXPECT_EQ(SplitIds(" a ;\tb.c ;; "), (Lines{"a", "b.c"}));
    EXPECT_EQ(SplitIds(""), Lines());
    EXPECT_EQ(SplitIds(nullptr), Lines());
}

} // namespace
} // namespace ModelTests
