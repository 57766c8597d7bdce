#include "DocumentTest.h"

#include <filesystem>

namespace DocumentTests {
namespace {

class CIncludesTest : public CDocumentTest {};

TEST_F(CIncludesTest, DeliverTheirElementsInPlace) {
    folder.Write("part.xml",
                 "<PART x=\"1\">\n<C x=\"$v$\"/><VARIABLE id=\"w\" value=\"2\"/></PART>");
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"v\" value=\"1\"/><B><INCLUDE file=\"part.xml\"/></B>"
                      "<C x=\"$w$\"/></A>"));
    EXPECT_EQ(stream, "<A><B><C x=\"1\"></C></B><C x=\"2\"></C></A>");
    EXPECT_EQ(Messages(), Lines({"part.xml:1: info: Skipping 'PART': unknown tag"}));
}

TEST_F(CIncludesTest, AreFoundFromTheFolderOfTheRootDocument) {
    std::filesystem::create_directory(Path("sub"));
    folder.Write("sub/one.xml", "<PART><INCLUDE file=\"sub/two.xml\"/></PART>");
    folder.Write("sub/two.xml", "<B/>");
    EXPECT_TRUE(Parse("<A><INCLUDE file=\"./sub/../sub/one.xml\"/></A>"));
    EXPECT_EQ(stream, "<A><B></B></A>");
}

TEST_F(CIncludesTest, ShareTheScopeOfLocalVariables) {
    folder.Write("part.xml", "<B><LOCAL_VARIABLE id=\"v\" value=\"1\"/><C x=\"$v$\"/></B>");
    EXPECT_TRUE(Parse("<A><INCLUDE file=\"part.xml\"/><C x=\"$v$\"/></A>"));
    EXPECT_EQ(stream, "<A><B><C x=\"1\"></C></B><C x=\"$v$\"></C></A>");
}

TEST_F(CIncludesTest, MayBringTemplatesAndTheirContent) {
    folder.Write("templates.xml", "<LIB><TEMPLATE id=\"T\"><B><TEMPLATE_INNER_CONTENT/></B>"
                                  "</TEMPLATE></LIB>");
    folder.Write("content.xml", "<C/>");
    EXPECT_TRUE(
        Parse("<A><INCLUDE file=\"templates.xml\"/><T><INCLUDE file=\"content.xml\"/></T></A>"));
    EXPECT_EQ(stream, "<A><B><C></C></B></A>");
}

TEST_F(CIncludesTest, OnceMeansOnceHoweverThePathIsSpelled) {
    std::filesystem::create_directory(Path("sub"));
    folder.Write("part.xml", "<B/>");
    EXPECT_TRUE(Parse("<A><INCLUDE_ONCE file=\"part.xml\"/><INCLUDE_ONCE file=\"sub/../part.xml\"/>"
                      "<INCLUDE file=\"part.xml\"/></A>"));
    EXPECT_EQ(stream, "<A><B></B><B></B></A>");
}

TEST_F(CIncludesTest, OnceStartsAnewWithEachPass) {
    folder.Write("part.xml", "<B/>");
    EXPECT_TRUE(Parse("<A><INCLUDE_ONCE file=\"part.xml\"/></A>"));
    EXPECT_TRUE(Parse("<A><INCLUDE_ONCE file=\"part.xml\"/></A>"));
    EXPECT_EQ(stream, "<A><B></B></A><A><B></B></A>");
}

TEST_F(CIncludesTest, OfFilesThatAreNotThereAreErrors) {
    EXPECT_FALSE(Parse("<A>\n<INCLUDE file=\"no.xml\"/>\n<INCLUDE/>\n"
                       "<INCLUDE_ONCE file=\"no.xml\"/><B/></A>"));
    EXPECT_EQ(stream, "<A><B></B></A>");
    EXPECT_EQ(Messages(),
              Lines({"main.xml:2: error: " + Path("no.xml") + ": file does not exist",
                     "main.xml:3: error: : file does not exist",
                     "main.xml:4: error: " + Path("no.xml") + ": file does not exist"}));
}

TEST_F(CIncludesTest, LookOnceWhetherAFileIsThere) {
    EXPECT_FALSE(Parse("<A><INCLUDE file=\"late.xml\"/></A>"));
    folder.Write("late.xml", "<B/>");
    EXPECT_FALSE(Parse("<A><INCLUDE file=\"late.xml\"/></A>"));
    parser.ClearFileChecks();
    EXPECT_TRUE(Parse("<A><INCLUDE file=\"late.xml\"/></A>"));
}

TEST_F(CIncludesTest, OfARootElementAreRefused) {
    parser.SetRootElement("A");
    folder.Write("part.xml", "<A/>");
    EXPECT_FALSE(Parse("<A>\n<INCLUDE file=\"part.xml\"/>\n<A/><B/></A>"));
    EXPECT_EQ(stream, "<A><B></B></A>");
    EXPECT_EQ(Messages(),
              Lines({"part.xml:1: error: Invalid file: 'A' is reserved for root element",
                     "main.xml:3: error: Invalid file: 'A' is reserved for root element"}));
}

TEST_F(CIncludesTest, RootElementsMustHaveTheNameAskedFor) {
    parser.SetRootElement("SKIN");
    EXPECT_FALSE(Parse("<A><B/></A>"));
    EXPECT_EQ(stream, "<B></B>") << "what it holds is read all the same";
    EXPECT_EQ(Messages(), Lines({"main.xml:1: error: Invalid file: root element must be 'SKIN'"}));
    log.Clear();
    EXPECT_FALSE(Parse("<skin/>")) << "names are case-sensitive";
    EXPECT_EQ(log.GetCount(Core::kErrorMessage), 1);
}

TEST_F(CIncludesTest, TheRootDocumentMustBeThere) {
    EXPECT_FALSE(parser.Parse(Path("no.xml").c_str()));
    EXPECT_EQ(Messages(), Lines({"no.xml:0: error: " + Path("no.xml") + ": file does not exist"}));
    log.Clear();
    EXPECT_FALSE(parser.Parse(nullptr));
    EXPECT_EQ(Messages(), Lines({":0: error: : file does not exist"}));
}

class CScriptEngine : public IScriptEngine {
public:
    bool Run(const char* path, Core::IMessageLog* /*log*/) override {
        paths.emplace_back(path);
        return paths.size() == 1;
    }
    Lines paths;
};

class CScriptsTest : public CDocumentTest {};

TEST_F(CScriptsTest, AreIgnoredWithAWarning) {
    EXPECT_TRUE(Parse("<A>\n<SCRIPT src=\"x.js\"/></A>"));
    EXPECT_EQ(Messages(),
              Lines({"main.xml:2: warning: SCRIPT: current engine does not supports scripts."}));
}

TEST_F(CScriptsTest, NeedASource) {
    EXPECT_FALSE(Parse("<A>\n<SCRIPT/></A>"));
    EXPECT_EQ(Messages(), Lines({"main.xml:2: error: SCRIPT: missing mandatory src attribute."}));
}

TEST_F(CScriptsTest, AreRunByAnEngine) {
    CScriptEngine engine;
    parser.SetScriptEngine(&engine);
    EXPECT_TRUE(Parse("<A><SCRIPT src=\"x.js\"/></A>"));
    EXPECT_FALSE(Parse("<A><SCRIPT src=\"y.js\"/></A>"));
    EXPECT_EQ(engine.paths, Lines({Path("x.js"), Path("y.js")}));
}

} // namespace
} // namespace DocumentTests
