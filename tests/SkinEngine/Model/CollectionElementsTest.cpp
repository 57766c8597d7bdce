#include "ModelTest.h"

namespace ModelTests {
namespace {

using CollectionElementsTest = CModelTest;
using Objects::ICaptureParam;
using Objects::IConstCaptureParam;

constexpr const char* kBands = R"(<COLLECTION id="bands" count="2" max_count="6">
    <PARAM id="$item_id$.gain" max="10" default="3"/>
    </COLLECTION>)";

TEST_F(CollectionElementsTest, ACollectionRepeatsItsContent) {
    ASSERT_TRUE(Load(kBands));
    EXPECT_EQ(GetCount("bands"), 2);
    EXPECT_EQ(Get("bands[0].gain"), 3.0);
    EXPECT_EQ(Get("bands[1].gain"), 3.0);
    EXPECT_EQ(Get("bands[1].gain.max"), 10.0);
    EXPECT_FALSE(Has("bands[2].gain"));
    Find<DataModel::ICollection>("bands")->SetCount(3);
    EXPECT_EQ(Get("bands[2].gain"), 3.0);
    Find<DataModel::ICollection>("bands")->SetCount(1);
    EXPECT_FALSE(Has("bands[1].gain"));
    EXPECT_EQ(Get("bands[0].gain"), 3.0);
}

TEST_F(CollectionElementsTest, TheCountIsAParameter) {
    ASSERT_TRUE(Load(kBands));
    EXPECT_EQ(Get("bands.count"), 2.0);
    EXPECT_EQ(Get("bands.count.max"), 6.0);
    EXPECT_EQ(Get("bands.count.min"), 0.0);
    EXPECT_EQ(Get("bands.count.default"), 2.0);
    EXPECT_EQ(ValueText("bands.count"), "2");
    EXPECT_STREQ(Find<ICaptureParam>("bands.count")->GetInfo().GetName(), "bands.count");
    Set("bands.count", 99.0);
    EXPECT_EQ(GetCount("bands"), 6);
    EXPECT_TRUE(Has("bands[5].gain"));
    Find<DataModel::ICollection>("bands")->SetCount(1);
    EXPECT_EQ(Get("bands.count"), 1.0);
}

TEST_F(CollectionElementsTest, TheInitialCountIsClamped) {
    const auto count = [&](const char* attributes) {
        EXPECT_TRUE(Load(std::string("<COLLECTION id='c' ") + attributes + "/>"));
        return GetCount("c");
    };
    EXPECT_EQ(count(""), 0);
    EXPECT_EQ(count("count='3'"), 3);
    EXPECT_EQ(count("count='9' max_count='4'"), 4);
    EXPECT_EQ(count("count='1' min_count='4'"), 4);
    EXPECT_EQ(count("count='1' min_count='9' max_count='4'"), 4);
    EXPECT_EQ(count("count='-3'"), 0);
    EXPECT_EQ(count("count='2*3'"), 6);
}

TEST_F(CollectionElementsTest, MissingIdsAreErrorsAndTheContentIsNotMade) {
    ExpectError(R"(<COLLECTION count="2"><PARAM id="p$item_id$"/></COLLECTION>)",
                "Cannot create collection, id field is empty.");
    EXPECT_EQ(GetIds(), Lines{"alive"});
    ExpectError(R"(<FOREACH id="f"><PARAM id="p"/></FOREACH>)",
                "Cannot create \"foreach\" collection, collection_id field is empty.");
    EXPECT_EQ(GetIds(), Lines{"alive"});
}

TEST_F(CollectionElementsTest, AnEmptyIdIsACollectionWithoutAName) {
    ASSERT_TRUE(
        Load(R"(<COLLECTION id="" count="2"><PARAM id="p$item_id$" max="1"/></COLLECTION>)"));
    EXPECT_EQ(GetIds(), (Lines{"alive", "p[0]", "p[1]"}));
}

TEST_F(CollectionElementsTest, TheItemNameIsAnAttribute) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="c" count="1" item_name="band">
        <PARAM id="$band$.x"/><PARAM id="$item_id$"/></COLLECTION>)"));
    EXPECT_TRUE(Has("c[0].x"));
    EXPECT_TRUE(Has("$item_id$"));
}

TEST_F(CollectionElementsTest, ForEachFollowsItsCollections) {
    ASSERT_TRUE(Load(R"(
        <COLLECTION id="a" count="3"><PARAM id="$item_id$.v" max="9" default="1"/></COLLECTION>
        <COLLECTION id="b" count="5"><PARAM id="$item_id$.v" max="9" default="2"/></COLLECTION>
        <FOREACH id="f" collection_id="a;b">
          <PARAM id="$item_id$.sum" max="99"/>
          <PARAM_MULTI_LINK from="$a_item_id$.v;$b_item_id$.v" to="$item_id$.sum"
                            mux_function="+"/>
        </FOREACH>)"));
    EXPECT_EQ(GetCount("f"), 3);
    EXPECT_EQ(Get("f.count"), 3.0);
    EXPECT_EQ(Find<ICaptureParam>("f.count"), nullptr);
    EXPECT_EQ(Find<DataModel::ICollection>("f"), nullptr);
    EXPECT_EQ(Get("f[2].sum"), 3.0);
    Set("b[2].v", 7.0);
    EXPECT_EQ(Get("f[2].sum"), 8.0);
    Set("a.count", 7.0);
    EXPECT_EQ(GetCount("f"), 5);
    EXPECT_EQ(Get("f.count"), 5.0);
    EXPECT_EQ(Get("f[4].sum"), 3.0);
    Set("b.count", 1.0);
    EXPECT_EQ(GetCount("f"), 1);
    EXPECT_FALSE(Has("f[1].sum"));
    Set("a[0].v", 5.0);
    EXPECT_EQ(Get("f[0].sum"), 7.0);
}

TEST_F(CollectionElementsTest, ForEachMayStandBeforeItsCollections) {
    ASSERT_TRUE(Load(R"(<FOREACH id="f" collection_id="c"><PARAM id="$item_id$"/></FOREACH>
                        <COLLECTION id="c" count="2"/>)"));
    EXPECT_TRUE(Has("f[1]"));
}

TEST_F(CollectionElementsTest, ForEachOverForEach) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="c" count="2"/>
                        <FOREACH id="f" collection_id="c"/>
                        <FOREACH id="g" collection_id="f"><PARAM id="$item_id$"/></FOREACH>)"));
    EXPECT_TRUE(Has("g[1]"));
    Set("c.count", 3.0);
    EXPECT_TRUE(Has("g[2]"));
}

TEST_F(CollectionElementsTest, AnUnknownSourceIsAnErrorAndCountsForNothing) {
    EXPECT_FALSE(
        Load(R"(<FOREACH id="f" collection_id="nobody"><PARAM id="$item_id$"/></FOREACH>)"));
    EXPECT_EQ(Messages(),
              Failed("main.model:1: error: nobody: Unknown identifier (object does not exist)."));
    EXPECT_EQ(GetCount("f"), 0);
    EXPECT_FALSE(Load(R"(<PARAM id="p"/><FOREACH id="f" collection_id="p"/>)"));
    EXPECT_EQ(Messages(), Failed("main.model:1: error: p: Unknown collection identifier (wrong "
                                 "object type)."));
}

TEST_F(CollectionElementsTest, ForEachOverItselfIsEmpty) {
    ASSERT_TRUE(Load(R"(<FOREACH id="f" collection_id="f"><PARAM id="$item_id$"/></FOREACH>)"));
    EXPECT_EQ(GetCount("f"), 0);
    ASSERT_TRUE(Load(R"(<FOREACH id="f" collection_id="g"/><FOREACH id="g" collection_id="f"/>)"));
    EXPECT_EQ(GetCount("g"), 0);
}

TEST_F(CollectionElementsTest, CollectionsNest) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="o" count="2" item_name="outer">
        <COLLECTION id="$outer$.i" count="2" item_name="inner">
          <PARAM id="$inner$.p" max="9" default="4"/>
          <FORMULA_PARAM id="$inner$.f" formula="base+1"/>
        </COLLECTION></COLLECTION><PARAM id="base" max="9" default="6"/>)"));
    EXPECT_EQ(Get("o[1].i[1].p"), 4.0);
    EXPECT_EQ(Get("o[1].i[1].f"), 7.0);
    Set("o[1].i.count", 3.0);
    EXPECT_TRUE(Has("o[1].i[2].p"));
    EXPECT_FALSE(Has("o[0].i[2].p"));
    Set("o.count", 1.0);
    EXPECT_FALSE(Has("o[1].i[0].p"));
    EXPECT_FALSE(Has("o[1].i"));
    EXPECT_TRUE(Has("o[0].i[0].p"));
    Set("o.count", 2.0);
    EXPECT_EQ(Get("o[1].i.count"), 2.0);
}

TEST_F(CollectionElementsTest, AnItemMayReferToItemsBeforeIt) {
    ASSERT_TRUE(Load(R"(<PARAM id="root" max="9" default="2"/>
        <COLLECTION id="c" count="3"><FORMULA_PARAM id="$item_id$.f" formula="root*2"/></COLLECTION>)"));
    EXPECT_EQ(Get("c[2].f"), 4.0);
    Set("root", 3.0);
    EXPECT_EQ(Get("c[2].f"), 6.0);
}

TEST_F(CollectionElementsTest, WhoIsConnectedToAnItemIsLetGoOf) {
    ASSERT_TRUE(Load(std::string(kBands) + R"(
        <PARAM id="a" max="10"/><PARAM id="b" max="10"/><STRING id="s"/><PARAM id="m" max="99"/>
        <PARAM id="fixed" max="9" default="5"/><PARAM id="anim" max="9"/>
        <PARAM_LINK from="bands[1].gain" to="a"/>
        <PARAM_LINK from="b" to="bands[1].gain"/>
        <PARAM_CONNECTION id1="bands[1].gain" id2="b"/>
        <PARAM_TO_STRING_LINK from="bands[1].gain.max" to="s"/>
        <PARAM_MULTI_LINK from="fixed;bands[1].gain" to="m" mux_function="+"/>
        <CURVE_FROM_PARAM_OVER_TIME id="h" param_id="bands[1].gain"/>
        <PARAM_ANIMATOR id="an" param_id="bands[1].gain"/>)"));
    Set("bands[1].gain", 4.0);
    EXPECT_EQ(Get("m"), 9.0);
    Set("bands.count", 1.0);
    Wait(100);
    Set("b", 7.0);
    EXPECT_EQ(Get("m"), 5.0) << "the other source is still there";
    Set("fixed", 6.0);
    EXPECT_EQ(Get("m"), 6.0);
    Unload();
}

TEST_F(CollectionElementsTest, AFormulaOfAnItemThatGoesKeepsAPlaceholder) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="c" count="1"><PARAM id="c_gain" max="9" default="4"/>
        <FORMULA_CURVE id="c_curve" formula="x*3"/></COLLECTION>
        <FORMULA_PARAM id="f" formula="c_gain+c_curve(1)+1"/>)"));
    EXPECT_EQ(Get("f"), 8.0);
    Set("c.count", 0.0);
    Wait(10);
    EXPECT_EQ(Get("f"), 1.0);
}

TEST_F(CollectionElementsTest, AnItemMayTakeItselfAway) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="c" count="3">
        <PARAM id="$item_id$.n" max="9" default="3"/>
        <PARAM_LINK from="$item_id$.n" to="c.count" trigger_condition="modify"/></COLLECTION>)"));
    Set("c[2].n", 0.0);
    EXPECT_EQ(GetCount("c"), 0);
    Wait(10);
    EXPECT_FALSE(Has("c[0].n"));
}

TEST_F(CollectionElementsTest, ItemsThatAskForMoreItemsEnd) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="c" count="1" max_count="50">
        <PARAM_LINK from="c.count" to="c.count" formula="x+1"/></COLLECTION>)"));
    EXPECT_LE(GetCount("c"), 50);
}

TEST_F(CollectionElementsTest, ThereIsALimitOfItems) {
    EXPECT_FALSE(LoadDocument("<MODEL>\n<COLLECTION id=\"c\" count=\"2000000000\"/></MODEL>"));
    EXPECT_EQ(Messages(), Failed("main.model:2: error: c: a model has at most 20000 items in its "
                                 "collections, use a smaller count."));
    EXPECT_EQ(GetCount("c"), 20000);
    Set("c.count", 100000.0);
    EXPECT_EQ(GetCount("c"), 20000);
    Set("c.count", 1.0);
    EXPECT_EQ(GetCount("c"), 1);

    EXPECT_FALSE(LoadDocument("<MODEL>\n<COLLECTION id=\"c\" count=\"200\" item_name=\"o\">"
                              "<COLLECTION id=\"$o$.d\" count=\"200\"/></COLLECTION></MODEL>"));
    EXPECT_LE(GetCount("c"), 200);
}

// Four lines that would take minutes.
TEST_F(CollectionElementsTest, ItemsTogetherExpandToAMillionElements) {
    EXPECT_FALSE(LoadDocument("<MODEL>\n<COLLECTION id=\"c\" count=\"1000\">\n"
                              "<REPEAT count=\"10000\"><NOBODY/></REPEAT></COLLECTION></MODEL>"));
    const Lines messages = Messages();
    ASSERT_EQ(messages.size(), 3U);
    EXPECT_EQ(messages[0],
              "main.model:3: error: the document expands to more elements than 1000000; "
              "look for repeats and templates within each other");
    EXPECT_EQ(messages[1],
              "main.model:2: error: c: the items of a model are made from at most 1000000 "
              "elements, use a smaller count.");
    const int count = GetCount("c");
    EXPECT_GT(count, 40);
    EXPECT_LT(count, 101);
    // What goes makes room again.
    Set("c.count", 1.0);
    Set("c.count", 2.0);
    EXPECT_EQ(GetCount("c"), 2);
}

TEST_F(CollectionElementsTest, AnEmptyCountIsNone) {
    EXPECT_TRUE(Load("<COLLECTION id=\"c\" count=\"\"/>"));
    EXPECT_EQ(GetCount("c"), 0);
}

TEST_F(CollectionElementsTest, FaultsOfItemsStopNoOtherItem) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="c" count="2">
        <PARAM/><PARAM id="same"/><PARAM id="$item_id$.p" max="1" default="1"/>
        <PARAM_LINK from="nobody" to="$item_id$.p"/></COLLECTION>)"));
    const Lines ofEach = {"main.model:2: error: Cannot create parameter, id field is empty.",
                          "main.model:3: error: nobody: Unknown identifier (object does not "
                          "exist)."};
    Lines expected = ofEach;
    expected.push_back("main.model:1: error: 'same' : this object identifier already exists, use "
                       "another identifier.");
    expected.insert(expected.end(), ofEach.begin(), ofEach.end());
    EXPECT_EQ(Messages(), expected);
    EXPECT_EQ(Get("c[0].p"), 1.0);
    EXPECT_EQ(Get("c[1].p"), 1.0);
    EXPECT_TRUE(Has("same"));
    Set("c.count", 0.0);
    EXPECT_FALSE(Has("same"));
}

TEST_F(CollectionElementsTest, ThePrePassDeclaresNamesForAllItems) {
    ASSERT_TRUE(Load(R"(
        <COLLECTION id="bands" count="2">
          <PARAM id="$item_id$.gain" max="9" default="3"/>
          <PARAM id="$item_id$.unused" max="9"/>
          <PARAM id="$item_id$.q" max="9" default="1"/>
          <PARAM_LINK from="$item_id$.q" to="$item_id$.gain"/>
        </COLLECTION>
        <FOREACH id="f" collection_id="bands">
          <FORMULA_PARAM id="$item_id$.twice" formula="total*2"/>
          <PARAM id="$item_id$.shown" max="9" exposed="true"/>
          <PARAM_LINK from="$bands_item_id$.gain" to="$item_id$.shown"/>
        </FOREACH>
        <PARAM id="total" max="9"/>
        <EXPOSED_OBJECTS object_ids="f[1].twice"/>)",
                     kBothPasses));
    EXPECT_EQ(GetIds(),
              (Lines{"bands", "bands[0].gain", "bands[0].q", "bands[1].gain", "bands[1].q", "f",
                     "f[0].shown", "f[0].twice", "f[1].shown", "f[1].twice", "total"}));
    EXPECT_EQ(Get("f[1].shown"), 1.0);
    Find<DataModel::ICollection>("bands")->SetCount(3);
    EXPECT_EQ(Get("f[2].shown"), 1.0) << "the names hold for items to come";
    EXPECT_FALSE(Has("bands[2].unused"));
}

TEST_F(CollectionElementsTest, CountsAreMadeWhenTheyAreUsed) {
    ASSERT_TRUE(Load(R"(<COLLECTION id="a" count="1"/><COLLECTION id="b" count="1"/>
                        <EXPOSED_OBJECTS object_ids="b.count"/>)",
                     kBothPasses));
    EXPECT_FALSE(Has("a.count"));
    EXPECT_TRUE(Has("b.count"));
}

TEST_F(CollectionElementsTest, ItemsAreEnabledWithTheModel) {
    ASSERT_TRUE(Load(R"(<PARAM id="a" max="9"/>
        <COLLECTION id="c" count="1"><PARAM id="$item_id$.p" max="9"/>
        <PARAM_ANIMATED_LINK from="a" to="$item_id$.p" duration_ms="0"/></COLLECTION>)"));
    model->SetEnabled(false);
    Set("a", 5.0);
    Set("c.count", 2.0);
    Wait(100);
    EXPECT_EQ(Get("c[0].p"), 0.0);
    EXPECT_EQ(Get("c[1].p"), 0.0);
    model->SetEnabled(true);
    Wait(100);
    EXPECT_EQ(Get("c[0].p"), 5.0);
    EXPECT_EQ(Get("c[1].p"), 5.0);
}

TEST_F(CollectionElementsTest, VariablesOfTheDocumentAreFixedInTheContent) {
    ASSERT_TRUE(Load(R"(<VARIABLE id="n" value="7"/>
        <COLLECTION id="c" count="1"><PARAM id="$item_id$.p" max="$n$"/></COLLECTION>
        <VARIABLE id="n" value="9" override="true"/>)"));
    Set("c.count", 2.0);
    EXPECT_EQ(Get("c[1].p.max"), 7.0);
}

} // namespace
} // namespace ModelTests
