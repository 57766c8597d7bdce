#include "DocumentTest.h"

#include "SkinEngine/Document/XMLNamedAttributes.h"

namespace DocumentTests {
namespace {

TEST(XMLNamedAttributesTest, AreInUtf8) {
    CXMLNamedAttributes attributes;
    attributes.AddXMLAttribute(u"a", u"z\u00e9\u20ac\U0001f600\u07ff\u0800\uffff");
    EXPECT_STREQ(attributes.GetValue("a"), "z\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\xdf\xbf"
                                           "\xe0\xa0\x80\xef\xbf\xbf");
}

TEST(XMLNamedAttributesTest, ReplaceTheValueOfANameThatStands) {
    CXMLNamedAttributes attributes;
    attributes.AddXMLAttribute(u"a", u"1");
    attributes.AddXMLAttribute(u"b", u"2");
    attributes.AddXMLAttribute(u"a", u"3");
    EXPECT_EQ(TagText("X", attributes), "<X a=\"3\" b=\"2\">");
}

TEST(XMLNamedAttributesTest, TakeNoNull) {
    CXMLNamedAttributes attributes;
    attributes.AddXMLAttribute(nullptr, u"1");
    attributes.AddXMLAttribute(u"a", nullptr);
    EXPECT_EQ(attributes.GetCount(), 0);
}

class CEncodingsTest : public CDocumentTest {};

TEST_F(CEncodingsTest, OfADocumentAreThoseOfXml) {
    EXPECT_TRUE(Parse("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><A x=\"\xe9\"/>"));
    EXPECT_TRUE(Parse("\xef\xbb\xbf<A x=\"\xc3\xa9\"/>"));
    std::string wide = "\xff\xfe";
    for (const char character : std::string("<A x=\"1\">\n<LOG text=\"here\"/></A>")) {
        wide += character;
        wide += '\0';
    }
    EXPECT_TRUE(Parse(wide));
    EXPECT_EQ(stream, "<A x=\"\xc3\xa9\"></A><A x=\"\xc3\xa9\"></A><A x=\"1\"></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:2: error: here"}));
}

} // namespace
} // namespace DocumentTests
