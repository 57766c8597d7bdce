#include "ProgramTest.h"

namespace WorkbenchTests {
namespace {

class Skin : public CProgramTest {
protected:
    CRun Expand(const std::string& text, const Words& options = {}) const {
        folder.Write("skin.xml", text);
        return RunOndara(Words{"skin", "expand", Path("skin.xml")} + options);
    }
};

TEST_F(Skin, IsExpandedIntoTheElementsThatHandlersGet) {
    const CRun run = Expand("<SKIN><TEMPLATE id=\"PANEL\" title=\"none\"><ROW>\n"
                            "<TEXT value=\"$title$ &lt;&amp;&gt;&quot;\" font=\"a\"/>\n"
                            "<TEMPLATE_INNER_CONTENT/></ROW></TEMPLATE>\n"
                            "<PANEL title=\"\xc3\xa9\"><IMAGE/></PANEL></SKIN>");
    ExpectSuccess(run);
    EXPECT_EQ(run.out, "<SKIN>\n"
                       "  <ROW>\n"
                       "    <TEXT font=\"a\" value=\"\xc3\xa9 &lt;&amp;&gt;&quot;\">\n"
                       "    </TEXT>\n"
                       "    <IMAGE>\n"
                       "    </IMAGE>\n"
                       "  </ROW>\n"
                       "</SKIN>\n");
}

TEST_F(Skin, WithWarningsAndUnknownElementsIsNoFailure) {
    const CRun run = Expand("<SKIN>\n<VARIABLE id=\"a\" value=\"1\"/>\n<VARIABLE id=\"a\"/>\n"
                            "<NOVELTY/></SKIN>");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "<SKIN>\n</SKIN>\n");
    EXPECT_EQ(run.err, "skin.xml:3: warning: a variable already in use. New definition will "
                       "overwrite previous one.\n"
                       "skin.xml:4: info: Skipping 'NOVELTY': unknown tag\n");
}

TEST_F(Skin, WithErrorsFailsAfterAllOfThemAreShown) {
    folder.Write("part.xml", "<PART>\n<REPEAT count=\"x\"/></PART>");
    const CRun run = Expand("<SKIN>\n<INCLUDE file=\"none.xml\"/>\n<INCLUDE file=\"part.xml\"/>"
                            "<TEXT/></SKIN>");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "<SKIN>\n  <TEXT>\n  </TEXT>\n</SKIN>\n");
    EXPECT_EQ(run.err, "skin.xml:2: error: " + Path("none.xml") +
                           ": file does not exist\n"
                           "part.xml:1: info: Skipping 'PART': unknown tag\n"
                           "part.xml:2: error: Line 2:'x' is an invalid formula.\n");
}

TEST_F(Skin, TakesVariables) {
    const CRun run = Expand("<SKIN a=\"$a$ $b$\"/>", {"--let", "a=1", "--let", "b=x=y"});
    ExpectSuccess(run);
    EXPECT_EQ(run.out, "<SKIN a=\"1 x=y\">\n</SKIN>\n");
}

TEST_F(Skin, TakesTheNameOfTheRoot) {
    const CRun run = Expand("<MODEL/>", {"--root", "SKIN"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "skin.xml:1: error: Invalid file: root element must be 'SKIN'\n");
    ExpectSuccess(Expand("<MODEL/>", {"--root", "MODEL"}));
}

TEST_F(Skin, TakesTheElementsToKnow) {
    const CRun run = Expand("<SKIN><MINE/><TEXT/></SKIN>", {"--elements", "MINE,SKIN"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "<SKIN>\n  <MINE>\n  </MINE>\n</SKIN>\n");
    EXPECT_EQ(run.err, "skin.xml:1: info: Skipping 'TEXT': unknown tag\n");
}

TEST_F(Skin, AnElementThatIsDefinedWhileItIsOpenEndsAsWhatItIsDefinedBy) {
    const CRun run = Expand("<SKIN><MINE><DEFINE><MINE base_type='TEXT'/></DEFINE></MINE></SKIN>",
                            {"--elements", "TEXT,SKIN"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "<SKIN>\n</TEXT>\n</SKIN>\n");
    EXPECT_EQ(run.err, "skin.xml:1: info: Skipping 'MINE': unknown tag\n");
}

TEST_F(Skin, SaysWhereInATemplateAnElementStandsWhenAsked) {
    const std::string text = "<SKIN><TEMPLATE id=\"T\">\n<NOVELTY/></TEMPLATE>\n<T/></SKIN>";
    EXPECT_EQ(Expand(text).err, "skin.xml:3: info: Skipping 'NOVELTY': unknown tag\n");
    EXPECT_EQ(Expand(text, {"--origins"}).err,
              "skin.xml:3: info: Skipping 'NOVELTY': unknown tag (in the template at "
              "skin.xml:2)\n");
}

TEST_F(Skin, ThatIsNotThereIsAnError) {
    const CRun run = RunOndara({"skin", "expand", Path("none.xml")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "none.xml:0: error: " + Path("none.xml") + ": file does not exist\n");
}

TEST_F(Skin, MessagesStayWithinALineAndDoNotSteerATerminal) {
    const CRun run = Expand("<SKIN><INCLUDE file=\"a&#10;b&#x9b;c\"/></SKIN>");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "skin.xml:1: error: " + Path("a?b?c") + ": file does not exist\n");
}

TEST_F(Skin, IsHelpedWith) {
    EXPECT_EQ(Run({"skin", "--help"}).substr(0, 31), "usage: ondara skin expand FILE ");
    EXPECT_EQ(Run({"skin", "expand", "--help"}), Run({"skin", "--help"}));
}

TEST_F(Skin, RefusesWrongUsage) {
    ExpectRefused({"skin"}, 2, "skin: say expand");
    ExpectRefused({"skin", "shrink", "x"}, 2, "shrink: say expand");
    ExpectRefused({"skin", "expand"}, 2, "name one file");
    ExpectRefused({"skin", "expand", "x", "y"}, 2, "name one file");
    ExpectRefused({"skin", "expand", "x", "--what"}, 2, "--what");
    ExpectRefused({"skin", "expand", "x", "--let", "a"}, 2, "NAME=VALUE");
    ExpectRefused({"skin", "expand", "x", "--let", "=a"}, 2, "NAME=VALUE");
    ExpectRefused({"skin", "expand", "x", "--root"}, 2, "--root");
    ExpectRefused({"skin", "expand", "x", "--elements", "TEXT,REPEAT"}, 2, "REPEAT");
}

} // namespace
} // namespace WorkbenchTests
