#include "ModelTest.h"

namespace ModelTests {
namespace {

class ActionElementsTest : public CModelTest {
protected:
    void Run(const char* id) const {
        auto* action = Find<Objects::IConstAction>(id);
        ASSERT_TRUE(action) << id;
        action->Execute();
    }
};

TEST_F(ActionElementsTest, AFunctionOpensAFixedUrl) {
    ASSERT_TRUE(Load(R"(<FUNCTION_INVOKE_ACTION id="a" function="OpenUrl" arg_url="'x'"/>
                        <FUNCTION_INVOKE_ACTION id="b" function="OpenUrl" arg_url="''"/>)"));
    Run("a");
    EXPECT_EQ(opened, Lines{"x"});
    Run("b");
    EXPECT_EQ(opened, (Lines{"x", ""}));
}

TEST_F(ActionElementsTest, AFunctionOpensWhatATextSaysWhenItRuns) {
    ASSERT_TRUE(Load(R"(<FUNCTION_INVOKE_ACTION id="a" function="OpenUrl" arg_url="s"/>
                        <STRING id="s" default="first"/>)"));
    Run("a");
    SetText("s", "second");
    Run("a");
    EXPECT_EQ(opened, (Lines{"first", "second"}));
    ExpectError(R"(<FUNCTION_INVOKE_ACTION id="a" function="OpenUrl" arg_url="'"/>)",
                "': Unknown identifier (object does not exist).");
    ExpectError(R"(<PARAM id="p"/><FUNCTION_INVOKE_ACTION id="a" function="OpenUrl" arg_url="p"/>)",
                "p: Unknown string identifier (wrong object type).");
}

TEST_F(ActionElementsTest, FaultsOfFunctionsAreErrors) {
    ExpectError(R"(<FUNCTION_INVOKE_ACTION function="OpenUrl" arg_url="'x'"/>)",
                "Cannot create action, id field is empty.");
    ExpectError(R"(<FUNCTION_INVOKE_ACTION id="a" arg_url="'x'"/>)",
                "Cannot create action, 'function' field is empty.");
    ExpectError(R"(<FUNCTION_INVOKE_ACTION id="a" function="Format"/>)", "a: unkown function");
    ExpectError(R"(<FUNCTION_INVOKE_ACTION id="a" function="OpenUrl"/>)",
                "Cannot create action, 'arg_url' field is empty.");
}

TEST_F(ActionElementsTest, ThePrePassDeclaresTheTextOfAnUrl) {
    ASSERT_TRUE(Load(R"(<STRING id="s" default="u"/><STRING id="'t'"/>
                        <FUNCTION_INVOKE_ACTION id="a" function="OpenUrl" arg_url="s"/>
                        <FUNCTION_INVOKE_ACTION id="b" function="OpenUrl" arg_url="'t'"/>)",
                     kBothPasses));
    EXPECT_TRUE(Has("s"));
    EXPECT_FALSE(Has("'t'"));
}

TEST_F(ActionElementsTest, AnActionIsMadeByTheFactoryOfItsType) {
    ASSERT_TRUE(Load(R"(<ACTION type="OpenUrl" id="a" url="x"/>)"));
    Run("a");
    EXPECT_EQ(opened, Lines{"x"});
    ExpectError(R"(<ACTION type="Explode" id="a"/>)", "Explode: unkown action type");
    ExpectError(R"(<ACTION id="a"/>)", ": unkown action type");
    ExpectError(R"(<ACTION type="OpenUrl" url="x"/>)",
                "Cannot create action of type OpenUrl: id field is empty.");
}

TEST_F(ActionElementsTest, AnActionIsNoParameter) {
    EXPECT_FALSE(Load(R"(<PARAM id="p" max="1"/><ACTION type="OpenUrl" id="a" url="x"/>
                         <PARAM_LINK from="p" to="a"/>)"));
    EXPECT_EQ(Messages(),
              Failed("main.model:2: error: a: Unknown parameter identifier (wrong object type)."));
}

} // namespace
} // namespace ModelTests
