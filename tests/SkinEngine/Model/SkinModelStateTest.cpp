#include "ModelTest.h"

#include "math/LibraryFunction.h"
#include "serialization/MemDataObject.h"
#include "serialization/XmlDataObject.h"

namespace ModelTests {
namespace {

class SkinModelStateTest : public CModelTest {
protected:
    using CState = Serialization::CMemDataObject;

    std::unique_ptr<CState> Save() const {
        auto state = std::make_unique<CState>();
        EXPECT_TRUE(model->Serialize(*state));
        return state;
    }

    bool Restore(const CState& state) const {
        model->SetEnabled(false);
        const bool isTaken = model->DeSerialize(state);
        model->SetEnabled(true);
        return isTaken;
    }

    /// The state as the text of a document.
    std::string SaveText() const {
        Serialization::CXmlDataObject document("Model", Serialization::kXmlAttributes);
        EXPECT_TRUE(model->Serialize(document));
        Containers::CCharString text;
        EXPECT_TRUE(document.SaveString(text));
        return text.Get();
    }

    bool RestoreText(const std::string& text) const {
        Serialization::CXmlDataObject document("Model", Serialization::kXmlAttributes);
        EXPECT_TRUE(document.Parse(text.data(), static_cast<int>(text.size())));
        model->SetEnabled(false);
        const bool isTaken = model->DeSerialize(document);
        model->SetEnabled(true);
        return isTaken;
    }
};

constexpr const char* kObjects = R"(
    <PARAM id="p" max="9" default="1" persistent="true"/><PARAM id="q" max="9" default="1"/>
    <STRING id="s" default="x" persistent="true"/><CURVE id="c" persistent="true"/>
    <COLLECTION id="k" count="1" max_count="5" persistent="true">
      <PARAM id="$item_id$.v" max="9" default="2" persistent="true"/>
    </COLLECTION>)";

TEST_F(SkinModelStateTest, KeepsTheValuesOfPersistentObjects) {
    ASSERT_TRUE(Load(kObjects));
    EXPECT_EQ(Messages(), Lines());
    Set("p", 4.0);
    Set("q", 5.0);
    SetText("s", "kept");
    Find<Objects::ICaptureCurve>("c")->SetValue(Math::TFunction<&Math::FunctionsLibrary::Square>());
    Set("k.count", 3.0);
    Set("k[2].v", 7.0);
    const auto state = Save();
    ASSERT_TRUE(Load(kObjects));
    ASSERT_TRUE(Restore(*state));
    EXPECT_EQ(Get("p"), 4.0);
    EXPECT_EQ(Get("q"), 1.0) << "not persistent";
    EXPECT_EQ(GetText("s"), "kept");
    EXPECT_EQ(Evaluate("c", 3.0), 9.0);
    EXPECT_EQ(GetCount("k"), 3);
    EXPECT_EQ(Get("k[1].v"), 2.0);
    EXPECT_EQ(Get("k[2].v"), 7.0);
}

TEST_F(SkinModelStateTest, StandsUnderItsKeys) {
    ASSERT_TRUE(Load(kObjects));
    Set("p", 4.0);
    const std::string text = SaveText();
    for (const char* part : {"<state version=\"1\">", "<params ", "pp=\"4\"",
                             "pk_x5B_0_x5D_.v=\"2\"", "<strings ss=\"x\"/>", "<curves",
                             "<surfaces/>", "<collectionCounts k.count=\"1\"/>", "<properties/>"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
    }
}

TEST_F(SkinModelStateTest, SurvivesAnotherSkin) {
    ASSERT_TRUE(Load(kObjects));
    Set("p", 4.0);
    SetText("s", "kept");
    const auto state = Save();
    ASSERT_TRUE(Load(R"(<PARAM id="p" max="3" persistent="true"/>
                        <PARAM id="new" max="9" default="6" persistent="true"/>
                        <PARAM id="s" max="9" default="2" persistent="true"/>)"));
    ASSERT_TRUE(Restore(*state));
    EXPECT_EQ(Get("p"), 3.0) << "within its range";
    EXPECT_EQ(Get("new"), 6.0) << "not in the state";
    EXPECT_EQ(Get("s"), 2.0) << "another kind by now";
}

TEST_F(SkinModelStateTest, IsTakenWholeOrNotAtAll) {
    ASSERT_TRUE(Load(kObjects));
    Set("p", 4.0);
    Set("k.count", 2.0);
    Set("k[1].v", 6.0);
    for (const char* bad : {R"(<params pp="nan"/>)", R"(<params pp="2" pk_x5B_0_x5D_.v="inf"/>)",
                            R"(<collectionCounts k.count="-1"/>)",
                            R"(<collectionCounts k.count="1"/><params pp="inf"/>)"}) {
        SCOPED_TRACE(bad);
        EXPECT_FALSE(
            RestoreText(std::string("<Model><state version=\"1\">") + bad + "</state></Model>"));
        EXPECT_EQ(Get("p"), 4.0);
        EXPECT_EQ(GetCount("k"), 2);
        EXPECT_EQ(Get("k[1].v"), 6.0);
    }
    EXPECT_FALSE(RestoreText("<Model/>"));
    EXPECT_FALSE(RestoreText("<Model><state/></Model>"));
    EXPECT_EQ(Get("p"), 4.0);
}

TEST_F(SkinModelStateTest, CountsKeepToTheirBounds) {
    ASSERT_TRUE(Load(kObjects));
    EXPECT_TRUE(RestoreText("<Model><state version=\"1\">"
                            "<collectionCounts k.count=\"2000000000\"/></state></Model>"));
    EXPECT_EQ(GetCount("k"), 5);
}

TEST_F(SkinModelStateTest, CountsOfCollectionsInItemsAreRestored) {
    const char* nested = R"(<COLLECTION id="o" persistent="true" item_name="outer">
        <COLLECTION id="$outer$.i" persistent="true" item_name="inner">
          <PARAM id="$inner$.v" max="9" persistent="true"/></COLLECTION></COLLECTION>)";
    ASSERT_TRUE(Load(nested));
    Set("o.count", 2.0);
    Set("o[1].i.count", 3.0);
    Set("o[1].i[2].v", 8.0);
    const auto state = Save();
    ASSERT_TRUE(Load(nested));
    ASSERT_TRUE(Restore(*state));
    EXPECT_EQ(GetCount("o[0].i"), 0);
    EXPECT_EQ(Get("o[1].i[2].v"), 8.0);
}

TEST_F(SkinModelStateTest, GivesATargetWhatItHadWhateverItsSourceSays) {
    for (const char* order : {"a;b;s;t", "t;s;b;a"}) {
        SCOPED_TRACE(order);
        const std::string linked =
            std::string(R"(<PARAM id="a" max="9"/><PARAM id="b" max="9"/><PARAM id="c" max="9"/>
                <STRING id="s"/><STRING id="t"/>
                <PARAM_LINK from="a" to="b"/><PARAM_LINK from="a" to="c"/>
                <STRING_LINK from="s" to="t"/><PERSISTENT_OBJECTS object_ids=")") +
            order + "\"/>";
        ASSERT_TRUE(Load(linked.c_str()));
        Set("a", 3.0);
        Set("b", 7.0);
        SetText("s", "theirs");
        SetText("t", "mine");
        const auto state = Save();
        for (const bool isSourceThere : {false, true}) {
            ASSERT_TRUE(Load(linked.c_str()));
            Set("a", isSourceThere ? 3.0 : 1.0);
            ASSERT_TRUE(Restore(*state));
            EXPECT_EQ(Get("a"), 3.0);
            EXPECT_EQ(Get("b"), 7.0);
            EXPECT_EQ(Get("c"), 3.0) << "not persistent: follows its source";
            EXPECT_EQ(GetText("t"), "mine");
        }
        Set("b", 6.0);
        Set("c", 6.0);
        EXPECT_FALSE(
            RestoreText(R"(<Model><state version="1"><params pa="inf"/></state></Model>)"));
        EXPECT_EQ(Get("b"), 6.0) << "a refused state moves nothing";
        EXPECT_EQ(Get("c"), 6.0);
    }
}

TEST_F(SkinModelStateTest, GoesWithoutTheItemsThatItsOwnValuesTakeAway) {
    const char* counted =
        R"(<PARAM id="n" max="5" persistent="true"/><PARAM_LINK from="n" to="k.count"/>
        <COLLECTION id="k" max_count="5" persistent="true">
          <PARAM id="$item_id$.v" max="9" persistent="true"/></COLLECTION>)";
    ASSERT_TRUE(Load(counted));
    Set("n", 2.0);
    EXPECT_TRUE(RestoreText(R"(<Model><state version="1">
        <params pn="1" pk_x5B_0_x5D_.v="4" pk_x5B_2_x5D_.v="5"/>
        <collectionCounts k.count="3"/></state></Model>)"));
    EXPECT_EQ(GetCount("k"), 1);
    EXPECT_EQ(Get("k[0].v"), 4.0);
}

TEST_F(SkinModelStateTest, ItemsThatAStateMakesHaveTheirLinksRunning) {
    const char* linked = R"(<COLLECTION id="k" max_count="5" persistent="true">
          <PARAM id="$item_id$.a" max="9" persistent="true"/>
          <PARAM id="$item_id$.b" max="9" persistent="true"/><PARAM id="$item_id$.c" max="9"/>
          <PARAM_LINK from="$item_id$.a" to="$item_id$.b"/>
          <PARAM_LINK from="$item_id$.a" to="$item_id$.c"/></COLLECTION>)";
    ASSERT_TRUE(Load(linked));
    Set("k.count", 1.0);
    Set("k[0].a", 3.0);
    Set("k[0].b", 7.0);
    const auto state = Save();
    ASSERT_TRUE(Load(linked));
    ASSERT_TRUE(Restore(*state));
    EXPECT_EQ(Get("k[0].a"), 3.0);
    EXPECT_EQ(Get("k[0].b"), 7.0);
    EXPECT_EQ(Get("k[0].c"), 3.0);
    Set("k[0].a", 4.0);
    EXPECT_EQ(Get("k[0].b"), 4.0);
}

TEST_F(SkinModelStateTest, LinksOfDifferencesDoNotMoveWhatIsRestored) {
    const char* linked = R"(<PARAM id="a" max="9" persistent="true"/>
        <PARAM id="b" max="9" persistent="true"/>
        <PARAM_LINK from="a" to="b" mode="diff"/>)";
    ASSERT_TRUE(Load(linked));
    Set("b", 2.0);
    Set("a", 3.0);
    EXPECT_EQ(Get("b"), 5.0);
    const auto state = Save();
    ASSERT_TRUE(Load(linked));
    ASSERT_TRUE(Restore(*state));
    EXPECT_EQ(Get("a"), 3.0);
    EXPECT_EQ(Get("b"), 5.0);
    Set("a", 4.0);
    EXPECT_EQ(Get("b"), 6.0);
}

} // namespace
} // namespace ModelTests
