#include "DocumentTest.h"

#include "SkinEngine/Document/DefineParser.h"
#include "serialization/MemDataObject.h"

namespace DocumentTests {
namespace {

class CDefinitionsTest : public CDocumentTest {};

TEST_F(CDefinitionsTest, StandForTheirBaseTypeWithAttributes) {
    EXPECT_TRUE(Parse("<A><DEFINE><BOX base_type=\"B\" x=\"1\" y=\"2\"/></DEFINE>"
                      "<BOX y=\"3\"><C/></BOX></A>"));
    EXPECT_EQ(stream, "<A><B base_type=\"B\" x=\"1\" y=\"3\"><C></C></B></A>");
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(CDefinitionsTest, MayStandForOtherDefinitions) {
    EXPECT_TRUE(Parse("<A><DEFINE><BOX base_type=\"B\" x=\"1\" y=\"1\"/>"
                      "<BIG_BOX base_type=\"BOX\" y=\"2\" z=\"2\"/></DEFINE>"
                      "<BIG_BOX z=\"3\"/></A>"));
    EXPECT_EQ(stream, "<A><B base_type=\"BOX\" x=\"1\" y=\"2\" z=\"3\"></B></A>");
}

TEST_F(CDefinitionsTest, MayStandForATemplate) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B x=\"$x$\"><TEMPLATE_INNER_CONTENT/></B>"
                      "</TEMPLATE><DEFINE><D base_type=\"T\" x=\"1\"/></DEFINE><D><C/></D></A>"));
    EXPECT_EQ(stream, "<A><B x=\"1\"><C></C></B></A>");
}

TEST_F(CDefinitionsTest, MayStandForAnElementOfThePreprocessor) {
    EXPECT_TRUE(Parse("<A><DEFINE><TWICE base_type=\"REPEAT\" count=\"2\"/></DEFINE>"
                      "<TWICE><B/></TWICE><C/></A>"));
    EXPECT_EQ(stream, "<A><B></B><B></B><C></C></A>");
}

TEST_F(CDefinitionsTest, TakeVariablesWhereTheyAreDefined) {
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"v\" value=\"1\"/>"
                      "<DEFINE><BOX base_type=\"B\" x=\"$v$\"/></DEFINE>"
                      "<VARIABLE id=\"v\" value=\"2\" override=\"true\"/><BOX y=\"$v$\"/></A>"));
    EXPECT_EQ(stream, "<A><B base_type=\"B\" x=\"1\" y=\"2\"></B></A>");
}

TEST_F(CDefinitionsTest, MayBeReplacedWithAWarning) {
    EXPECT_TRUE(Parse("<A><DEFINE><BOX base_type=\"B\"/>\n<BOX base_type=\"C\"/></DEFINE>"
                      "<BOX/></A>"));
    EXPECT_EQ(stream, "<A><C base_type=\"C\"></C></A>");
    EXPECT_EQ(Messages(),
              Lines({"main.xml:2: warning: BOX: this element has already been defined. The new "
                     "definition overrides the previous one."}));
}

TEST_F(CDefinitionsTest, WithoutABaseTypeAreNotStoredAndTheParseStaysGood) {
    EXPECT_TRUE(Parse("<A><DEFINE>\n<BOX x=\"1\"/>\n<CAN base_type=\"CAN\"/></DEFINE><BOX/></A>"));
    EXPECT_EQ(stream, "<A></A>");
    EXPECT_EQ(Messages(),
              Lines({"main.xml:2: error: BOX: invalid definition, the mandatory 'base_type' "
                     "attribute is not defined",
                     "main.xml:3: error: CAN: base_type cannot be the same as the defined element "
                     "name.",
                     "main.xml:3: info: Skipping 'BOX': unknown tag"}));
}

TEST_F(CDefinitionsTest, AFailingReplacementRemovesWhatStood) {
    EXPECT_TRUE(Parse("<A><DEFINE><BOX base_type=\"B\"/><BOX/></DEFINE><BOX/></A>"));
    EXPECT_EQ(stream, "<A></A>");
}

TEST_F(CDefinitionsTest, CannotTakeTheNameOfAKnownElement) {
    EXPECT_FALSE(Parse("<A><DEFINE>\n<B base_type=\"C\"/>\n<REPEAT base_type=\"C\"/></DEFINE>"
                       "<B/></A>"));
    EXPECT_EQ(stream, "<A><B></B></A>");
    const std::string text = ": you cannot redefine reserved elements. Please choose another name "
                             "for your definition";
    EXPECT_EQ(Messages(),
              Lines({"main.xml:2: error: B" + text, "main.xml:3: error: REPEAT" + text}));
}

TEST_F(CDefinitionsTest, OfANameThatOnlyALaterPassKnowsAreTaken) {
    EXPECT_TRUE(Parse("<A><DEFINE><LATER base_type=\"B\"/></DEFINE><LATER/></A>"));
    EXPECT_EQ(stream, "<A><B base_type=\"B\"></B></A>");
    Reset();
    Register("LATER", &CDocumentTest::OnStart, nullptr);
    EXPECT_FALSE(Parse("<A><DEFINE><LATER base_type=\"B\"/></DEFINE><LATER/></A>"));
    EXPECT_EQ(stream, "<A><LATER></A>");
}

TEST_F(CDefinitionsTest, AreRemovedByUndefine) {
    EXPECT_TRUE(Parse("<A><DEFINE><BOX base_type=\"B\"/></DEFINE><BOX/>"
                      "<UNDEFINE><BOX/><NEVER_THERE/></UNDEFINE>\n<BOX/></A>"));
    EXPECT_EQ(stream, "<A><B base_type=\"B\"></B></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:2: info: Skipping 'BOX': unknown tag"}));
}

TEST_F(CDefinitionsTest, EndWhereTheirElementEndsWhateverItHolds) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B><TEMPLATE_INNER_CONTENT/></B></TEMPLATE>"
                      "<T><DEFINE><T base_type=\"C\"/></DEFINE><UNDEFINE><T/></UNDEFINE>"
                      "<C/></T></A>"));
    EXPECT_EQ(stream, "<A><B><C></C></B></A>");
}

TEST_F(CDefinitionsTest, InACircleAreAnError) {
    EXPECT_FALSE(Parse("<A><DEFINE><X base_type=\"Y\"/><Y base_type=\"X\"/></DEFINE>\n<X/></A>"));
    ASSERT_EQ(log.GetCount(), 1);
    EXPECT_EQ(Messages()[0].substr(0, 19), "main.xml:2: error: ");
    EXPECT_NE(Messages()[0].find("each other as base_type"), std::string::npos);
}

TEST_F(CDefinitionsTest, AreWrittenAndRead) {
    CDefineParser defines(&log);
    defines.Define("BOX", Attributes({{"base_type", "B"}, {"x", "1"}}));
    defines.Define("CAN", Attributes({{"base_type", "C"}}));
    Serialization::CMemDataObject stored;
    ASSERT_TRUE(defines.Serialize(stored));
    int count = 0;
    EXPECT_TRUE(stored.ReadInt("itemsCount", count));
    EXPECT_EQ(count, 2);

    CDefineParser read(&log);
    read.Define("OLD", Attributes({{"base_type", "C"}}));
    ASSERT_TRUE(read.DeSerialize(stored));
    EXPECT_STREQ(read.GetBaseType("BOX"), "B");
    EXPECT_STREQ(read.GetBaseType("CAN"), "C");
    EXPECT_EQ(read.GetBaseType("OLD"), nullptr);
    Containers::CNamedAttributes attributes = Attributes({{"y", "2"}});
    EXPECT_TRUE(read.ExpandElement("BOX", attributes));
    EXPECT_STREQ(attributes.GetValue("x"), "1");

    const Serialization::CMemDataObject empty;
    EXPECT_FALSE(read.DeSerialize(empty));
    EXPECT_STREQ(read.GetBaseType("BOX"), "B") << "a failed reading changed something";
}

} // namespace
} // namespace DocumentTests
