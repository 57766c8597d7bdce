#include "DocumentTest.h"

namespace DocumentTests {
namespace {

class CVariablesTest : public CDocumentTest {};

TEST_F(CVariablesTest, AreReplacedInValuesAndNowhereElse) {
    EXPECT_TRUE(Parse("<ROOT><VARIABLE id=\"a\" value=\"1\"/><A a=\"a\" b=\"<$a$>\"/></ROOT>") ==
                false); // "<" is no text of a value
    Reset();
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"a\" value=\"1\"/><B a=\"a\" b=\"[$a$]\"/></A>"));
    EXPECT_EQ(stream, "<A><B a=\"a\" b=\"[1]\"></B></A>");
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(CVariablesTest, StandNextToEachOther) {
    parser.AddVariable("a", "1");
    parser.AddVariable("b", "2");
    EXPECT_TRUE(Parse("<A x=\"$a$$b$\" y=\"-$a$-$b$-\"/>"));
    EXPECT_EQ(stream, "<A x=\"12\" y=\"-1-2-\"></A>");
}

TEST_F(CVariablesTest, UnknownNamesStayAndTheirEndMayBeginTheNext) {
    parser.AddVariable("b", "2");
    EXPECT_TRUE(Parse("<A u=\"$a$b$\" v=\"$a$\" w=\"$\" x=\"$$\" y=\"$b\" z=\"$b$$\"/>"));
    EXPECT_EQ(stream, "<A u=\"$a2\" v=\"$a$\" w=\"$\" x=\"$$\" y=\"$b\" z=\"2$\"></A>");
}

TEST_F(CVariablesTest, WhatIsPutInIsNotLookedAtAgain) {
    parser.AddVariable("a", "$b$");
    parser.AddVariable("b", "2");
    EXPECT_TRUE(Parse("<A x=\"$a$\"/>"));
    EXPECT_EQ(stream, "<A x=\"$b$\"></A>");
}

TEST_F(CVariablesTest, KnownTextBetweenTwoReferencesDoesNoHarm) {
    for (const char* name : {"a", "b", "c"}) {
        parser.AddVariable(name, "1");
    }
    EXPECT_TRUE(Parse("<A x=\"$a$b$c$\"/>"));
    EXPECT_EQ(log.GetCount(), 0);
}

TEST_F(CVariablesTest, OfOnePassAreGoneInTheNext) {
    parser.AddVariable("a", "1");
    EXPECT_TRUE(Parse("<A x=\"$a$\"/>"));
    EXPECT_TRUE(Parse("<A x=\"$a$\"/>"));
    EXPECT_EQ(stream, "<A x=\"1\"></A><A x=\"$a$\"></A>");
}

TEST_F(CVariablesTest, WithoutValueAreEmpty) {
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"a\"/><B x=\"[$a$]\"/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"[]\"></B></A>");
}

TEST_F(CVariablesTest, NeedAnId) {
    EXPECT_FALSE(Parse("<A>\n<VARIABLE value=\"1\"/>\n<VARIABLE id=\"\" value=\"1\"/>\n"
                       "<LOCAL_VARIABLE/></A>"));
    EXPECT_EQ(Messages(),
              Lines({"main.xml:2: error: mandatory id for VARIABLE attribute empty or missing",
                     "main.xml:3: error: mandatory id for VARIABLE attribute empty or missing",
                     "main.xml:4: error: mandatory id for VARIABLE attribute empty or missing"}));
}

TEST_F(CVariablesTest, AreOverwrittenWithAWarningUnlessTheySaySo) {
    EXPECT_TRUE(Parse("<A>\n<VARIABLE id=\"a\" value=\"1\"/>\n<VARIABLE id=\"a\" value=\"2\"/>\n"
                      "<B x=\"$a$\"/>\n<VARIABLE id=\"a\" value=\"3\" override=\"true\"/>\n"
                      "<B x=\"$a$\"/>\n<VARIABLE id=\"a\" value=\"4\" override=\"yes\"/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"2\"></B><B x=\"3\"></B></A>");
    const std::string warning =
        "warning: a variable already in use. New definition will overwrite previous one.";
    EXPECT_EQ(Messages(), Lines({"main.xml:3: " + warning, "main.xml:7: " + warning}));
}

TEST_F(CVariablesTest, TakeTheValueOfAFormula) {
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"a\" formula=\"2*3\" value=\"unused\"/>"
                      "<VARIABLE id=\"b\" formula=\"$a$/4\"/><VARIABLE id=\"c\" formula=\"-8\"/>"
                      "<VARIABLE id=\"d\" formula=\"0.1\"/>"
                      "<VARIABLE id=\"e\" formula=\"10^15\"/><VARIABLE id=\"f\" formula=\"-0\"/>"
                      "<VARIABLE id=\"g\" formula=\"0/0\"/><VARIABLE id=\"h\" formula=\"-(0/0)\"/>"
                      "<B a=\"$a$\" b=\"$b$\" c=\"$c$\" d=\"$d$\" e=\"$e$\" f=\"$f$\" g=\"$g$\" "
                      "h=\"$h$\"/></A>"));
    EXPECT_EQ(stream, "<A><B a=\"6\" b=\"1.5\" c=\"-8\" d=\"0.10000000000000000555\" "
                      "e=\"1000000000000000\" f=\"0\" g=\"nan\" h=\"nan\"></B></A>");
}

TEST_F(CVariablesTest, OfAnInvalidFormulaKeepTheirValue) {
    EXPECT_FALSE(Parse("<A><VARIABLE id=\"a\" value=\"1\"/>\n"
                       "<VARIABLE id=\"a\" formula=\"2*\" override=\"true\"/>"
                       "<B x=\"$a$\"/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"1\"></B></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:2: error: a:'2*' is an invalid formula."}));
}

TEST_F(CVariablesTest, LocalOnesLiveToTheEndOfTheirElement) {
    EXPECT_TRUE(Parse("<A><B x=\"$a$\"><LOCAL_VARIABLE id=\"a\" value=\"1\"/><C x=\"$a$\"/>"
                      "<C x=\"$a$\"/></B><B x=\"$a$\"/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"$a$\"><C x=\"1\"></C><C x=\"1\"></C></B><B x=\"$a$\"></B></A>");
    EXPECT_EQ(log.GetCount(), 0);
}

TEST_F(CVariablesTest, LocalOnesThatHideAnotherOverwriteItForGood) {
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"a\" value=\"1\"/><B>"
                      "<LOCAL_VARIABLE id=\"a\" value=\"2\" override=\"true\"/></B>"
                      "<C x=\"$a$\"/></A>"));
    EXPECT_EQ(stream, "<A><B></B><C x=\"2\"></C></A>");
}

TEST_F(CVariablesTest, LocalOnesOfATemplateBodyEndWithIt) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><LOCAL_VARIABLE id=\"a\" value=\"1\"/>"
                      "<B x=\"$a$\"/></TEMPLATE><T/><C x=\"$a$\"/><T/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"1\"></B><C x=\"$a$\"></C><B x=\"1\"></B></A>");
    EXPECT_EQ(log.GetCount(), 0) << "the second call found the variable of the first";
}

TEST_F(CVariablesTest, LocalOnesOfARepeatAreGoneInTheNextIteration) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"2\"><B x=\"$a$\"/>"
                      "<LOCAL_VARIABLE id=\"a\" value=\"$index$\"/><B x=\"$a$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"$a$\"></B><B x=\"0\"></B><B x=\"$a$\"></B><B x=\"1\"></B></A>");
    EXPECT_EQ(log.GetCount(), 0);
}

} // namespace
} // namespace DocumentTests
