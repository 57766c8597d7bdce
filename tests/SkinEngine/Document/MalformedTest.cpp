// What an author mistypes, and what no author would write: a message with the place, and never
// more than a failed parse.
#include "DocumentTest.h"

#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include <clocale>
#include <functional>
#include <new>
#include <stdexcept>
#include <thread>

#include "files/Locale.h"

namespace DocumentTests {
namespace {

class CMalformedTest : public CDocumentTest {
protected:
    /// The XML reader words what it finds, so only the frame of its message is ours.
    void ExpectFatal(const std::string& text, int line, const std::string& named = "") {
        SCOPED_TRACE(text);
        Reset();
        EXPECT_FALSE(Parse(text));
        log.Remove(Core::kInfoMessage);
        ASSERT_EQ(log.GetCount(), 1);
        const std::string number = std::to_string(line);
        const std::string message = Messages()[0];
        const std::string head =
            "main.xml:" + number + ": error: Fatal error line " + number + ": ";
        EXPECT_EQ(message.substr(0, head.size()), head);
        EXPECT_EQ(message.substr(message.size() - 11), " (main.xml)");
        EXPECT_GT(message.size(), head.size() + 11) << "it says nothing";
        EXPECT_NE(message.find(named), std::string::npos) << message;
    }
};

TEST_F(CMalformedTest, ElementsThatAreNotClosedOrNotOpened) {
    ExpectFatal("<A>\n<B>\n</A>", 3, "'B'");
    ExpectFatal("<A>\n<B/>", 2);
    ExpectFatal("<A/>\n</A>", 2);
    ExpectFatal("<A/>\n<B/>", 2);
    ExpectFatal("<A>\n<B", 2);
    EXPECT_EQ(stream, "<A>");
}

TEST_F(CMalformedTest, WrongCase) {
    ExpectFatal("<A>\n<B></b></A>", 2, "'B'");
    Reset();
    EXPECT_TRUE(Parse("<A>\n<b/></A>"));
    EXPECT_EQ(Messages(), Lines({"main.xml:2: info: Skipping 'b': unknown tag"}));
}

TEST_F(CMalformedTest, Attributes) {
    ExpectFatal("<A>\n<B x=\"1\"\n x=\"2\"/></A>", 3, "'x'");
    ExpectFatal("<A>\n<B x/></A>", 2);
    ExpectFatal("<A>\n<B x=1/></A>", 2);
    ExpectFatal("<A>\n<B x=\"1\"y=\"2\"/></A>", 2);
    ExpectFatal("<A>\n<B x=\"<\"/></A>", 2);
    ExpectFatal("<A>\n<B x=\"&none;\"/></A>", 2);
    ExpectFatal("<A>\n<B x=\"a & b\"/></A>", 2);
    ExpectFatal("<A>\n<B x=\"1/></A>", 2);
}

TEST_F(CMalformedTest, ADollarTooMany) {
    parser.AddVariable("v", "1");
    EXPECT_TRUE(Parse("<A a=\"$$v$\" b=\"$v$$\" c=\"$v\" d=\"$ v$\" e=\"$V$\"/>"));
    EXPECT_EQ(stream, "<A a=\"$1\" b=\"1$\" c=\"$v\" d=\"$ v$\" e=\"$V$\"></A>");
}

TEST_F(CMalformedTest, Bytes) {
    ExpectFatal("<A>\n<B x=\"\xff\"/></A>", 2);
    ExpectFatal("<A>\n<B x=\"\xc3(\"/></A>", 2, "UTF-8");
    ExpectFatal("<?xml version=\"1.0\" encoding='Utf-8'?><A>\n\n<B x=\"\xed\xa0\x80\"/></A>", 3,
                "UTF-8");
    ExpectFatal(std::string("<A>\n<B x=\"\0\"/></A>", 17), 2, "NUL");
    ExpectFatal(std::string("\0\0\0\0", 4), 1); // as of 32 bits
    ExpectFatal(std::string("<A/>\n\0<<<", 9), 2, "NUL");
    ExpectFatal("<A>\n<B x=\"\x01\"/></A>", 2);
    ExpectFatal("", 1);
    ExpectFatal("   \n\n", 3);
    ExpectFatal("no document", 1);
    ExpectFatal("<?xml version=\"1.0\" encoding=\"no-such-code\"?>\n<A/>", 1);
    ExpectFatal("<?xml version=\"7.0\"?><A/>", 1);
}

TEST_F(CMalformedTest, InAnIncludedFileIsFoundThere) {
    folder.Write("part.xml", "<B>\n\n<C></B>");
    EXPECT_FALSE(Parse("<A>\n<INCLUDE file=\"part.xml\"/><C/></A>"));
    EXPECT_EQ(stream, "<A><B><C><C></C></A>") << "the rest of the root document is read";
    ASSERT_EQ(log.GetCount(), 1);
    EXPECT_EQ(Messages()[0].substr(0, 40), "part.xml:3: error: Fatal error line 3: e");
}

TEST_F(CMalformedTest, ElementsInEachOther) {
    folder.Write("open.xml", "<A><REPEAT count=\"2\"><B/>");
    EXPECT_FALSE(Parse("<A><INCLUDE file=\"open.xml\"/><C/></REPEAT></A>"));
    for (const char* text :
         {"<REPEAT/>", "<TEMPLATE/>", "<DEFINE/>", "<UNDEFINE/>", "<TEMPLATE_INNER_CONTENT/>",
          "<DEFINE><REPEAT/><TEMPLATE/><DEFINE/><X base_type=\"REPEAT\"/></DEFINE><X/>",
          "<UNDEFINE><REPEAT/><DEFINE/></UNDEFINE>", "<TEMPLATE id=\"REPEAT\"/><REPEAT/>",
          "<TEMPLATE id=\"TEMPLATE\"><B/></TEMPLATE><TEMPLATE id=\"X\"/>",
          "<TEMPLATE id=\"\"><B/></TEMPLATE>",
          "<REPEAT count=\"2\"><DEFINE><X base_type=\"B\"/></DEFINE><UNDEFINE><X/></UNDEFINE>"
          "</REPEAT>",
          "<TEMPLATE id=\"T\"><UNDEFINE><TEMPLATE_INNER_CONTENT/></UNDEFINE></TEMPLATE>"
          "<T><B/></T>",
          "<TEMPLATE id=\"T\"><DEFINE><TEMPLATE_INNER_CONTENT/></DEFINE></TEMPLATE>"
          "<T><Z base_type=\"B\"/></T><Z/>",
          "<TEMPLATE id=\"T\"><REPEAT count=\"2\"><TEMPLATE_INNER_CONTENT/></REPEAT></TEMPLATE>"
          "<T><B/></T>"}) {
        SCOPED_TRACE(text);
        Reset();
        static_cast<void>(Parse("<A>" + std::string(text) + "<C/></A>"));
        EXPECT_EQ(stream.substr(0, 3), "<A>");
        EXPECT_NE(stream.find("<C></C></A>"), std::string::npos) << stream;
    }
}

TEST_F(CMalformedTest, AnEncodingThatIsNotThatOfTheFileIsAWarning) {
    EXPECT_TRUE(Parse("<?xml version=\"1.0\" encoding=\"UTF-16\"?><A/>"));
    ASSERT_EQ(log.GetCount(), 1);
    EXPECT_EQ(Messages()[0].substr(0, 23), "main.xml:1: warning: 1:");
    EXPECT_EQ(Messages()[0].substr(Messages()[0].size() - 11), " (main.xml)");
}

/// An element in whose start handler something goes wrong that no document could bring about.
class CBreak : public CSkinParser::CStartHandler {
public:
    explicit CBreak(std::function<void()> brokenWork) : work(std::move(brokenWork)) {}
    bool Execute(const Containers::IConstNamedAttributes& /*attributes*/) override {
        work();
        return true;
    }

private:
    std::function<void()> work;
};

TEST_F(CMalformedTest, AnErrorThatTheReaderGoesOnAfterFailsTheParse) {
    parser.RegisterStartHandler("BREAK", new CBreak([this] {
                                    static_cast<xercesc::ErrorHandler&>(parser).error(
                                        xercesc::SAXParseException(u"odd", u"", u"", 7, 1));
                                }));
    EXPECT_FALSE(Parse("<A><BREAK/><B/></A>"));
    EXPECT_EQ(stream, "<A><B></B></A>");
    EXPECT_EQ(Messages(), Lines({"main.xml:7: error: line 7: odd (main.xml)"}));
}

TEST_F(CMalformedTest, WhatAHandlerThrowsStaysInTheParser) {
    parser.RegisterStartHandler("BREAK", new CBreak([] { throw std::bad_alloc(); }));
    EXPECT_FALSE(Parse("<A>\n<BREAK/><B/></A>"));
    EXPECT_EQ(Messages(), Lines({"main.xml:2: error: Out of memory"}));
    log.Clear();
    parser.RegisterStartHandler("BREAK", new CBreak([] { throw std::runtime_error("odd"); }));
    EXPECT_FALSE(Parse("<A>\n<BREAK/><B/></A>"));
    EXPECT_EQ(Messages(), Lines({"main.xml:2: error: Internal error"}));
    EXPECT_EQ(stream, "<A><A>");
}

class CSurroundingsTest : public CDocumentTest {};

TEST_F(CSurroundingsTest, NothingIsPrinted) {
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(Parse("<A><B x=\"&none;\"/></A>"));
    EXPECT_FALSE(Parse("<A><VARIABLE id=\"v\" formula=\"1+@(\"/></A>"));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

TEST_F(CSurroundingsTest, TheLocaleIsThatOfTheHostAgain) {
    const TestFiles::CLocale german("de_DE.UTF-8");
    if (!german.isThere) {
        GTEST_SKIP() << "this system makes no locales";
    }
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const locale_t threadBefore = uselocale(nullptr);
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"v\" formula=\"0.5*3\"/><B x=\"$v$\"/></A>"));
    EXPECT_EQ(stream, "<A><B x=\"1.5\"></B></A>");
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
    EXPECT_EQ(uselocale(nullptr), threadBefore);
}

TEST_F(CSurroundingsTest, HandlersRunInTheClassicLocale) {
    const TestFiles::CLocale german("de_DE.UTF-8");
    if (!german.isThere) {
        GTEST_SKIP() << "this system makes no locales";
    }
    struct CRead : CSkinParser::CStartHandler {
        explicit CRead(double& readValue) : value(readValue) {}
        bool Execute(const Containers::IConstNamedAttributes& attributes) override {
            value = std::strtod(attributes.GetValue("x"), nullptr);
            return true;
        }
        double& value;
    };
    double value = 0.0;
    parser.RegisterStartHandler("READ", new CRead(value));
    EXPECT_TRUE(Parse("<READ x=\"0.5\"/>"));
    EXPECT_EQ(value, 0.5);
}

TEST_F(CSurroundingsTest, SeveralThreadsParseAtOnce) {
    folder.Write("part.xml", "<B><TEMPLATE id=\"T\"><C x=\"$x$\"/></TEMPLATE></B>");
    folder.Write("main.xml", "<A><INCLUDE file=\"part.xml\"/><REPEAT count=\"50\">"
                             "<VARIABLE id=\"v$index$\" formula=\"$index$/4\"/>"
                             "<T x=\"$v$index$$\"/></REPEAT><OOPS/></A>");
    constexpr int kThreads = 4;
    constexpr int kPasses = 20;
    std::vector<int> failures(kThreads, 0);
    std::vector<std::thread> threads;
    for (int& failed : failures) {
        threads.emplace_back([this, &failed] {
            for (int i = 0; i < kPasses; ++i) {
                CoreUtilities::CMemMessageLog ownLog;
                CSkinParser ownParser(&ownLog);
                ownParser.ResetHandlers();
                failed += ownParser.Parse(Path("main.xml").c_str()) ? 0 : 1;
                failed += ownLog.GetCount() == 53 ? 0 : 1; // A, B, 50 times C, OOPS are unknown
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, std::vector<int>(kThreads, 0));
}

} // namespace
} // namespace DocumentTests
