#include "DocumentTest.h"

#include "SkinEngine/Document/TemplateParser.h"
#include "serialization/MemDataObject.h"

#include <algorithm>

namespace DocumentTests {
namespace {

class CTemplatesTest : public CDocumentTest {
protected:
    long CountOf(const std::string& text) const {
        long count = 0;
        for (std::size_t at = stream.find(text); at != std::string::npos;
             at = stream.find(text, at + 1)) {
            ++count;
        }
        return count;
    }
};

TEST_F(CTemplatesTest, FillInWhatTheCallSaysOverTheirDefaults) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\" x=\"1\" y=\"2\">"
                      "<B x=\"$x$\" y=\"$y$\" more=\"$more$\" none=\"$none$\"/></TEMPLATE>"
                      "<T y=\"3\" more=\"4\"/></A>"));
    EXPECT_EQ(stream, "<A><B more=\"4\" none=\"$none$\" x=\"1\" y=\"3\"></B></A>");
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(CTemplatesTest, PutTheContentOfTheCallWhereTheySay) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B><C n=\"1\"/><TEMPLATE_INNER_CONTENT/>"
                      "<C n=\"2\"/></B><C n=\"3\"/></TEMPLATE><T><A/></T><C n=\"4\"/></A>"));
    EXPECT_EQ(stream, "<A><B><C n=\"1\"></C><A></A><C n=\"2\"></C></B><C n=\"3\"></C>"
                      "<C n=\"4\"></C></A>");
}

TEST_F(CTemplatesTest, WithoutAPlaceForContentPutItBehind) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B/></TEMPLATE><T><C/></T></A>"));
    EXPECT_EQ(stream, "<A><B></B><C></C></A>");
}

TEST_F(CTemplatesTest, WithTwoPlacesForContentWarn) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B><TEMPLATE_INNER_CONTENT/></B>\n"
                      "<TEMPLATE_INNER_CONTENT/></TEMPLATE>\n<T><C/></T></A>"));
    EXPECT_EQ(stream, "<A><B><C></C></B></A>");
    EXPECT_EQ(Messages(),
              Lines({"main.xml:2: warning: TEMPLATE_INNER_CONTENT: cannot be used multiple times "
                     "within a TEMPLATE",
                     "main.xml:3: info: Skipping 'TEMPLATE_INNER_CONTENT': unknown tag"}));
}

TEST_F(CTemplatesTest, CallEachOtherAroundContent) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"IN\"><B n=\"$n$\"><TEMPLATE_INNER_CONTENT/></B>"
                      "</TEMPLATE><TEMPLATE id=\"OUT\"><IN n=\"1\"><IN n=\"2\">"
                      "<TEMPLATE_INNER_CONTENT/></IN></IN></TEMPLATE><OUT><C/></OUT></A>"));
    EXPECT_EQ(stream, "<A><B n=\"1\"><B n=\"2\"><C></C></B></B></A>");
}

TEST_F(CTemplatesTest, MayBeCalledInTheContentOfACallOfThemselves) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B><TEMPLATE_INNER_CONTENT/></B></TEMPLATE>"
                      "<T><T><C/></T></T></A>"));
    EXPECT_EQ(stream, "<A><B><B><C></C></B></B></A>");
}

TEST_F(CTemplatesTest, SeeTheVariablesAndDefinitionsOfTheCall) {
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"v\" value=\"1\"/><TEMPLATE id=\"T\"><D x=\"$v$\"/>"
                      "</TEMPLATE><VARIABLE id=\"v\" value=\"2\" override=\"true\"/>"
                      "<DEFINE><D base_type=\"B\"/></DEFINE><T/></A>"));
    EXPECT_EQ(stream, "<A><B base_type=\"B\" x=\"2\"></B></A>");
}

TEST_F(CTemplatesTest, HoldTheElementsOfThePreprocessorForLater) {
    folder.Write("part.xml", "<PART><C/></PART>");
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\" n=\"1\"><REPEAT count=\"$n$\"><B x=\"$index$\"/>"
                      "</REPEAT><INCLUDE file=\"part.xml\"/></TEMPLATE><T n=\"2\"/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"0\"></B><B x=\"1\"></B><C></C></A>");
}

TEST_F(CTemplatesTest, MayDefineTemplatesWhenCalled) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><TEMPLATE id=\"$n$\"><B/>"
                      "<TEMPLATE_INNER_CONTENT/></TEMPLATE></TEMPLATE><T n=\"X\"/>"
                      "<X><C/></X></A>"));
    EXPECT_EQ(stream, "<A><B></B><C></C></A>");
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(CTemplatesTest, NeedAnIdOfTheirOwn) {
    EXPECT_FALSE(Parse("<A>\n<TEMPLATE><B/></TEMPLATE>\n<TEMPLATE id=\"T\"><B/></TEMPLATE>\n"
                       "<TEMPLATE id=\"T\"><C><TEMPLATE/></C></TEMPLATE><T/></A>"));
    EXPECT_EQ(stream, "<A><B></B></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:2: error: id attribute missing in template definition.",
                                 "main.xml:4: error: 'T': template already defined."}));
}

TEST_F(CTemplatesTest, OfOnePassAreGoneInTheNext) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B/></TEMPLATE></A>"));
    EXPECT_TRUE(Parse("<A><T/></A>"));
    EXPECT_EQ(stream, "<A></A><A></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:1: info: Skipping 'T': unknown tag"}));
}

TEST_F(CTemplatesTest, GoOnWhenAnElementFails) {
    EXPECT_FALSE(Parse("<A><TEMPLATE id=\"T\"><FAIL/><B/></TEMPLATE><T/><C/></A>"));
    EXPECT_EQ(stream, "<A><B></B><C></C></A>");
}

TEST_F(CTemplatesTest, ThatCallThemselvesEndAfter256Levels) {
    EXPECT_FALSE(Parse("<A><TEMPLATE id=\"T\"><B><T/></B></TEMPLATE>\n<T/><C/></A>"));
    EXPECT_EQ(CountOf("<B>"), 256);
    EXPECT_EQ(CountOf("</B>"), 256);
    EXPECT_EQ(stream.substr(stream.size() - 15), "</B><C></C></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:2: warning: Recursion detected: 'T has been recursively "
                                 "instantiated more than 256 times."}));
}

TEST_F(CTemplatesTest, OfARingEndToo) {
    EXPECT_FALSE(Parse("<A><TEMPLATE id=\"T\"><U/></TEMPLATE><TEMPLATE id=\"U\"><T/></TEMPLATE>"
                       "<T/><C/></A>"));
    EXPECT_EQ(stream, "<A><C></C></A>");
    EXPECT_EQ(log.GetCount(Core::kWarningMessage), 1);
}

TEST_F(CTemplatesTest, AreWrittenAndReadWithTheirContentNode) {
    CTemplateParser recorded("TEMPLATE", "INNER", &log);
    ASSERT_TRUE(recorded.OnTemplateStart(Attributes({{"id", "T"}, {"x", "1"}})));
    recorded.OnElementStart("B", Attributes({{"x", "$x$"}}));
    recorded.OnElementStart("INNER", Attributes({}));
    recorded.OnElementEnd("INNER");
    recorded.OnElementEnd("B");
    ASSERT_TRUE(recorded.OnTemplateEnd());
    Serialization::CMemDataObject stored;
    ASSERT_TRUE(recorded.GetTemplates().Serialize(stored));

    CTemplateParser read("TEMPLATE", "INNER", &log);
    ASSERT_TRUE(read.GetTemplates().DeSerialize(stored));
    const std::unique_ptr<IParsedTemplate> detached(read.GetTemplates().Detach("T"));
    ASSERT_TRUE(detached);
    EXPECT_EQ(read.GetTemplates().Get("T"), nullptr);
    const std::unique_ptr<IParsedTemplateInstance> instance(
        detached->Instantiate(Attributes({}), &parser));
    EXPECT_EQ(stream, "<B x=\"1\">");
    EXPECT_EQ(detached->GetInstancesCount(), 0) << "one that waits does not count";
    ASSERT_TRUE(instance);
    EXPECT_TRUE(instance->Resume());
    EXPECT_EQ(stream, "<B x=\"1\"></B>");

    const Serialization::CMemDataObject empty;
    EXPECT_FALSE(recorded.GetTemplates().DeSerialize(empty));
    EXPECT_NE(recorded.GetTemplates().Get("T"), nullptr);
}

} // namespace
} // namespace DocumentTests
