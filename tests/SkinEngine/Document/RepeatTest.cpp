#include "DocumentTest.h"

namespace DocumentTests {
namespace {

class CRepeatTest : public CDocumentTest {};

TEST_F(CRepeatTest, CountsFromItsStart) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"3\" start=\"-1\"><B x=\"$index$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"-1\"></B><B x=\"0\"></B><B x=\"1\"></B></A>");
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(CRepeatTest, NamesItsIndex) {
    EXPECT_TRUE(
        Parse("<A><REPEAT count=\"1\" index_name=\"i\"><B x=\"$i$ $index$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"0 $index$\"></B></A>");
}

TEST_F(CRepeatTest, ReadsFormulas) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"2*3\" start=\"7/2\"><B x=\"$index$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"3\"></B><B x=\"4\"></B><B x=\"5\"></B><B x=\"6\"></B>"
                      "<B x=\"7\"></B><B x=\"8\"></B></A>");
}

TEST_F(CRepeatTest, OfNothingReplaysNothing) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"0\"><B/></REPEAT><REPEAT count=\"-2\"><B/></REPEAT>"
                      "<REPEAT><B/></REPEAT><REPEAT count=\"\"><B/></REPEAT>"
                      "<REPEAT count=\"2\"/></A>"));
    EXPECT_EQ(stream, "<A></A>");
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(CRepeatTest, OfAnInvalidCountReplaysNothingAndFails) {
    EXPECT_FALSE(Parse("<A>\n<REPEAT count=\"abc\"><B/></REPEAT>\n"
                       "<REPEAT count=\"1\" start=\"2*\"><C x=\"$index$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><C x=\"0\"></C></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:2: error: Line 2:'abc' is an invalid formula.",
                                 "main.xml:3: error: Line 3:'2*' is an invalid formula."}));
}

TEST_F(CRepeatTest, GoesThroughAList) {
    EXPECT_TRUE(Parse("<A><REPEAT index_list=\"a;b c;;d\"><B x=\"$index$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"a\"></B><B x=\"b c\"></B><B x=\"\"></B><B x=\"d\"></B></A>");
}

TEST_F(CRepeatTest, WithListAndCountWarnsAndTakesTheList) {
    EXPECT_TRUE(
        Parse("<A>\n<REPEAT index_list=\"a;b\" count=\"5\"><B x=\"$index$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"a\"></B><B x=\"b\"></B></A>");
    EXPECT_EQ(
        Messages(),
        Lines({"main.xml:2: warning: REPEAT: index_list attribute overrides count attribute"}));
}

TEST_F(CRepeatTest, OfAnEmptyListCounts) {
    EXPECT_TRUE(Parse("<A><REPEAT index_list=\"\" count=\"1\"><B x=\"$index$\"/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"0\"></B></A>");
}

TEST_F(CRepeatTest, NestsWithTwoNames) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"2\" index_name=\"i\"><REPEAT count=\"2\" "
                      "index_name=\"j\"><B x=\"$i$$j$\"/></REPEAT><C/></REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"00\"></B><B x=\"01\"></B><C></C><B x=\"10\"></B>"
                      "<B x=\"11\"></B><C></C></A>");
}

TEST_F(CRepeatTest, NestedWithOneNameSeesTheOuterValue) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"2\"><REPEAT count=\"2\"><B x=\"$index$\"/></REPEAT>"
                      "</REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"0\"></B><B x=\"0\"></B><B x=\"1\"></B><B x=\"1\"></B></A>");
}

TEST_F(CRepeatTest, MayCallTemplatesAndStandInThem) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B x=\"$x$\"><TEMPLATE_INNER_CONTENT/></B></TEMPLATE>"
                      "<REPEAT count=\"2\"><T x=\"$index$\"><C/></T></REPEAT>"
                      "<T x=\"r\"><REPEAT count=\"2\"><C/></REPEAT></T></A>"));
    EXPECT_EQ(stream, "<A><B x=\"0\"><C></C></B><B x=\"1\"><C></C></B>"
                      "<B x=\"r\"><C></C><C></C></B></A>");
}

TEST_F(CRepeatTest, RepeatsTheContentOfATemplateToo) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><REPEAT count=\"2\"><B x=\"$index$\">"
                      "<TEMPLATE_INNER_CONTENT/></B></REPEAT></TEMPLATE>"
                      "<T><C x=\"$index$\"/></T></A>"));
    EXPECT_EQ(stream, "<A><B x=\"0\"><C x=\"0\"></C></B><B x=\"1\"><C x=\"1\"></C></B></A>");
}

TEST_F(CRepeatTest, TakesVariablesForItsAttributesAndItsBody) {
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"n\" value=\"2\"/><REPEAT count=\"$n$\">"
                      "<VARIABLE id=\"v$index$\" formula=\"$index$*10\"/></REPEAT>"
                      "<B x=\"$v0$ $v1$\"/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"0 10\"></B></A>");
}

TEST_F(CRepeatTest, CountsBeyondTheLargestInteger) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"2\" start=\"99999999999999999999\"><B x=\"$index$\"/>"
                      "</REPEAT></A>"));
    EXPECT_EQ(stream, "<A><B x=\"2147483647\"></B><B x=\"2147483648\"></B></A>");
}

} // namespace
} // namespace DocumentTests
