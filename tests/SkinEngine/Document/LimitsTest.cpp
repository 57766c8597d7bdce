#include "SkinEngine/Document/SkinLimits.h"

#include "DocumentTest.h"

#include <chrono>
#include <filesystem>

#include <sys/stat.h>

namespace DocumentTests {
namespace {

std::string Times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

class CLimitsTest : public CDocumentTest {
protected:
    /// Parses in vain: the log holds one error, with this place and a text that has `named` in it.
    void ExpectRefused(const std::string& text, const std::string& place,
                       const std::string& named) {
        EXPECT_FALSE(Parse(text));
        ExpectError(place, named);
    }

    void ExpectError(const std::string& place, const std::string& named) {
        ASSERT_EQ(log.GetCount(Core::kErrorMessage), 1);
        log.Remove(Core::kWarningMessage);
        log.Remove(Core::kInfoMessage);
        const std::string message = Messages()[0];
        EXPECT_EQ(message.substr(0, message.find(" error:")), place + ":");
        EXPECT_NE(message.find(named), std::string::npos) << message;
        log.Clear();
        // And the parser works as before.
        stream.clear();
        EXPECT_TRUE(Parse("<A><B/></A>"));
        EXPECT_EQ(stream, "<A><B></B></A>");
        EXPECT_EQ(Messages(), Lines());
    }

    void MakePipe(const char* name) const { ASSERT_EQ(mkfifo(Path(name).c_str(), 0600), 0); }
};

TEST_F(CLimitsTest, ADoctypeIsRefusedHoweverItLooks) {
    for (const char* doctype :
         {"<!DOCTYPE A>", "<!DOCTYPE A []>", "<!DOCTYPE A SYSTEM \"other.dtd\">",
          "<!DOCTYPE A PUBLIC \"x\" \"other.dtd\">",
          "<!DOCTYPE A [<!ENTITY a \"1\"><!ENTITY b \"&a;&a;\">]>",
          "<!DOCTYPE A [<!ENTITY % p SYSTEM \"pipe\">%p;]>"}) {
        SCOPED_TRACE(doctype);
        ExpectRefused(std::string("<?xml version=\"1.0\"?>\n") + doctype + "<A x=\"&b;\"/>",
                      "main.xml:2", "DOCTYPE");
    }
}

TEST_F(CLimitsTest, NoFileIsOpenedThatTheDocumentNamesAsAnEntityOrASchema) {
    // Whoever opened the pipe would wait for ever.
    MakePipe("pipe");
    ExpectRefused("<!DOCTYPE A [<!ENTITY e SYSTEM \"" + Path("pipe") + "\">]><A>&e;</A>",
                  "main.xml:1", "DOCTYPE");
    const std::string instance = "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" ";
    EXPECT_TRUE(Parse("<B " + instance + "xsi:noNamespaceSchemaLocation=\"" + Path("pipe") +
                      "\" xsi:schemaLocation=\"urn:x " + Path("pipe") + "\"/>"));
    EXPECT_EQ(log.GetCount(), 0);
}

TEST_F(CLimitsTest, OnlyRegularFilesAreRead) {
    MakePipe("pipe");
    std::filesystem::create_directory(Path("sub"));
    ExpectRefused("<A>\n<INCLUDE file=\"pipe\"/></A>", "main.xml:2", "not a regular file");
    ExpectRefused("<A>\n<INCLUDE file=\"sub\"/></A>", "main.xml:2", "is a folder");
    ExpectRefused("<A>\n<INCLUDE file=\"\"/></A>", "main.xml:2", "is a folder");
    ExpectRefused("<A>\n<INCLUDE file=\"/dev/zero\"/></A>", "main.xml:2", "not a regular file");
    EXPECT_FALSE(parser.Parse(folder.GetPath().c_str()));
    ExpectError(std::filesystem::path(folder.GetPath()).filename().string() + ":0", "is a folder");
}

TEST_F(CLimitsTest, FilesMayHold16MegaBytes) {
    const std::string frame = "<A><!----></A>";
    const std::string filled(SkinLimits::kFileBytes - frame.size(), ' ');
    EXPECT_TRUE(Parse("<A><!--" + filled + "--></A>"));
    ExpectRefused("<A><!--" + filled + " --></A>", "main.xml:0", "larger than 16 MB");
}

TEST_F(CLimitsTest, FilesTogetherMayHold32MegaBytes) {
    folder.Write("big.xml", "<B><!--" + std::string(SkinLimits::kFileBytes - 100, ' ') + "--></B>");
    ExpectRefused("<A>\n<REPEAT count=\"100\">\n<INCLUDE file=\"big.xml\"/></REPEAT></A>",
                  "main.xml:3", "32 MB together");
}

TEST_F(CLimitsTest, ElementsMayBeNested64Deep) {
    EXPECT_TRUE(Parse(Times(64, "<A>") + Times(64, "</A>")));
    ExpectRefused(Times(64, "<A>") + "\n<B/>" + Times(64, "</A>"), "main.xml:2", "deeper than 64");
    ExpectRefused(Times(100000, "<A>"), "main.xml:1", "deeper than 64");
}

TEST_F(CLimitsTest, FilesMayHold100000Elements) {
    EXPECT_TRUE(Parse("<A>" + Times(99999, "<B/>") + "</A>"));
    ExpectRefused("<A>" + Times(99999, "<B/>") + "\n<C/></A>", "main.xml:2", "100000");
}

TEST_F(CLimitsTest, ElementsMayHave256Attributes) {
    const auto element = [](int count) {
        std::string text = "<A>\n<B";
        for (int i = 0; i < count; ++i) {
            text += " a" + std::to_string(i) + "=\"\"";
        }
        return text + "/></A>";
    };
    EXPECT_TRUE(Parse(element(256)));
    ExpectRefused(element(257), "main.xml:2", "256");
    ExpectRefused(element(200000), "main.xml:2", "256");
}

TEST_F(CLimitsTest, DefinitionsGiveNoMoreThan256AttributesToo) {
    const auto attributes = [](char name) {
        std::string text;
        for (int i = 0; i < 150; ++i) {
            text += std::string(" ") + name + std::to_string(i) + "=\"\"";
        }
        return text;
    };
    const std::string definitions = "<A><DEFINE><D base_type=\"E\"" + attributes('d') +
                                    "/><E base_type=\"B\"" + attributes('e') + "/></DEFINE>\n";
    EXPECT_TRUE(Parse(definitions + "<E/></A>"));
    ExpectRefused(definitions + "<D/></A>", "main.xml:2", "256");
}

TEST_F(CLimitsTest, ValuesMayHoldAMegaByte) {
    EXPECT_TRUE(Parse("<A x=\"" + std::string(1024 * 1024, 'x') + "\"/>"));
    ExpectRefused("<A>\n<B x=\"" + std::string(1024 * 1024 + 1, 'x') + "\"/></A>", "main.xml:2",
                  "1048576");
}

TEST_F(CLimitsTest, VariablesThatDoubleEnd) {
    ExpectRefused("<A><VARIABLE id=\"v\" value=\"x\"/>\n<REPEAT count=\"1000\">"
                  "<VARIABLE id=\"v\" value=\"$v$$v$\" override=\"true\"/></REPEAT></A>",
                  "main.xml:2", "1048576");
}

TEST_F(CLimitsTest, ParametersThatDoubleEnd) {
    ExpectRefused("<A><TEMPLATE id=\"T\"><T v=\"$v$$v$\"/></TEMPLATE>\n<T v=\"xx\"/></A>",
                  "main.xml:2", "1048576");
}

TEST_F(CLimitsTest, LargeValuesEndAt64MegaBytesTogether) {
    const std::string large(1024 * 1024, 'x');
    ExpectRefused("<A><VARIABLE id=\"v\" value=\"" + large +
                      "\"/>\n<REPEAT count=\"1000\">\n"
                      "<B x=\"$v$\"/></REPEAT></A>",
                  "main.xml:3", "64 MB");
    ExpectRefused("<A><TEMPLATE id=\"T\" v=\"" + large +
                      "\"><B x=\"$v$\"/></TEMPLATE>\n"
                      "<REPEAT count=\"1000\">\n<T/></REPEAT></A>",
                  "main.xml:3", "64 MB");
}

TEST_F(CLimitsTest, NamesCountLikeValues) {
    const std::string name(1024 * 1024, 'x');
    ExpectRefused("<A>\n<REPEAT count=\"1000\">\n<" + name + "/></REPEAT></A>", "main.xml:3",
                  "64 MB");
    ExpectRefused("<A>\n<REPEAT count=\"1000\">\n<B " + name + "=\"\"/></REPEAT></A>", "main.xml:3",
                  "64 MB");
    ExpectRefused("<A><DEFINE><D base_type=\"B\" v=\"" + name +
                      "\"/></DEFINE>\n<REPEAT count=\"1000\">\n<D/></REPEAT></A>",
                  "main.xml:3", "64 MB");
}

TEST_F(CLimitsTest, DefaultsOfATemplateAreNotCopiedForEachCall) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\" v=\"" + std::string(1024 * 1024, 'x') +
                      "\"/><REPEAT count=\"100000\"><T/></REPEAT></A>"));
    // 100 GB would take longer than that on any machine.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST_F(CLimitsTest, DocumentsMayExpandToAMillionElements) {
    ExpectRefused("<A>\n<REPEAT count=\"10000000\">\n<B/></REPEAT></A>", "main.xml:3", "1000000");
    ExpectRefused("<A>\n<REPEAT count=\"2000000000\">\n</REPEAT></A>", "main.xml:2", "1000000");
    const std::string nested = "<REPEAT count=\"10000000\">";
    ExpectRefused("<A>\n" + Times(60, nested) + Times(60, "</REPEAT>") + "</A>", "main.xml:2",
                  "1000000");
    ExpectRefused("<A>\n<REPEAT index_list=\"" + std::string(1000001, ';') + "\"/></A>",
                  "main.xml:2", "1000000");
}

TEST_F(CLimitsTest, TemplatesThatCallEachOtherTwiceEnd) {
    std::string text = "<A>";
    for (int i = 1; i < 40; ++i) {
        const std::string call = "<T" + std::to_string(i - 1) + "/>";
        text += "<TEMPLATE id=\"T" + std::to_string(i) + "\">" + call + call + "</TEMPLATE>";
    }
    ExpectRefused(text + "<TEMPLATE id=\"T0\"><B/></TEMPLATE>\n<T39/></A>", "main.xml:2",
                  "1000000");
    ExpectRefused("<A><TEMPLATE id=\"T\"><T/><T/></TEMPLATE>\n<T/></A>", "main.xml:2", "1000000");
}

TEST_F(CLimitsTest, ATemplateThatCallsItselfBehindItsInnerContentEnds) {
    ExpectRefused("<A><TEMPLATE id=\"T\"><TEMPLATE_INNER_CONTENT/><T/></TEMPLATE>\n<T/></A>",
                  "main.xml:2", "deeper than 1024");
    ExpectRefused("<A><TEMPLATE id=\"T\"><TEMPLATE_INNER_CONTENT/><REPEAT count=\"1\"><T/></REPEAT>"
                  "</TEMPLATE>\n<T/></A>",
                  "main.xml:2", "deeper than 1024");
}

TEST_F(CLimitsTest, CallsWithInnerContentSideBySideAreNoDepth) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><B><TEMPLATE_INNER_CONTENT/></B><B/></TEMPLATE>"
                      "<REPEAT count=\"3000\"><T><B/></T></REPEAT><T/></A>"));
}

TEST_F(CLimitsTest, ALongRingOfTemplatesEnds) {
    std::string text = "<A>";
    for (int i = 0; i < 1000; ++i) {
        text += "<TEMPLATE id=\"T" + std::to_string(i) + "\"><T" + std::to_string((i + 1) % 1000) +
                "/></TEMPLATE>";
    }
    ExpectRefused(text + "\n<T0/></A>", "main.xml:2", "deeper than 1024");
}

TEST_F(CLimitsTest, FilesThatIncludeThemselvesEnd) {
    ExpectRefused("<LOOP>\n<INCLUDE file=\"main.xml\"/></LOOP>", "main.xml:2",
                  "nested deeper than 32");
    folder.Write("twice.xml", "<LOOP>\n\n<INCLUDE file=\"twice.xml\"/>"
                              "<INCLUDE file=\"twice.xml\"/></LOOP>");
    ExpectRefused("<LOOP>\n<INCLUDE file=\"twice.xml\"/></LOOP>", "twice.xml:3",
                  "nested deeper than 32");
}

TEST_F(CLimitsTest, IncludesMayBeNested32Deep) {
    for (int i = 1; i < 32; ++i) {
        folder.Write("f" + std::to_string(i) + ".xml",
                     "<A><INCLUDE file=\"f" + std::to_string(i + 1) + ".xml\"/></A>");
    }
    folder.Write("f32.xml", "<B/>");
    EXPECT_TRUE(Parse("<A><INCLUDE file=\"f1.xml\"/></A>"));
    EXPECT_EQ(stream, Times(32, "<A>") + "<B></B>" + Times(32, "</A>"));
}

TEST_F(CLimitsTest, FilesIncludedOverAndOverEnd) {
    folder.Write("f0.xml", "<B/>");
    for (int i = 1; i < 31; ++i) {
        const std::string include = "<INCLUDE file=\"f" + std::to_string(i - 1) + ".xml\"/>";
        folder.Write("f" + std::to_string(i) + ".xml", "<X>" + include + include + "</X>");
    }
    EXPECT_FALSE(Parse("<X><INCLUDE file=\"f30.xml\"/></X>"));
    EXPECT_EQ(log.GetCount(Core::kErrorMessage), 1);
}

TEST_F(CLimitsTest, FormulasByTheMillionEnd) {
    ExpectRefused("<A><REPEAT count=\"900000\">\n"
                  "<VARIABLE id=\"a$index$\" formula=\"$index$+1\"/></REPEAT></A>",
                  "main.xml:2", "1000000");
}

TEST_F(CLimitsTest, FormulasBeyondTheirLimitsAreInvalid) {
    for (const std::string& formula : {std::string(1000, '(') + "1" + std::string(1000, ')'),
                                       "1" + Times(40000, "+1"), std::string("----1")}) {
        SCOPED_TRACE(formula.substr(0, 20));
        EXPECT_FALSE(Parse("<A>\n<VARIABLE id=\"v\" formula=\"" + formula + "\"/></A>"));
        EXPECT_EQ(Messages(),
                  Lines({"main.xml:2: error: v:'" + formula + "' is an invalid formula."}));
        log.Clear();
    }
}

TEST_F(CLimitsTest, NamesWithOneHashCostNoMoreThanOthers) {
    // "af" and "ba" have the same text hash, and so have all texts made of them.
    std::string text = "<A>";
    for (int i = 0; i < 50000; ++i) {
        std::string name;
        for (int bit = 0; bit < 16; ++bit) {
            name += (i >> bit & 1) ? "af" : "ba";
        }
        text += "<VARIABLE id=\"" + name + "\" value=\"1\"/>";
    }
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(Parse(text + "<B x=\"$afafafafafafafafafafafafafafafaf$\"/></A>"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

} // namespace
} // namespace DocumentTests
