#include "DocumentTest.h"

#include "serialization/MemDataObject.h"

#include <filesystem>

namespace DocumentTests {
namespace {

class CPlacesTest : public CDocumentTest {
protected:
    /// FILE:LINE of each message, with that of the template behind it where there is one.
    Lines Places() const {
        Lines places;
        for (const auto& record : log.GetRecords()) {
            const Core::CDocumentPlace& place = record.place;
            std::string text = std::string(place.GetFile()) + ":" + std::to_string(place.GetLine());
            if (place.HasOrigin()) {
                text += std::string(" ") + place.GetOriginFile() + ":" +
                        std::to_string(place.GetOriginLine());
            }
            places.push_back(text);
        }
        return places;
    }
};

TEST_F(CPlacesTest, AreWhereAnElementBegins) {
    EXPECT_TRUE(Parse("<A>\n<LOG\n\ntext=\"here\"\n/>\n<B>\n<LOG/></B></A>"));
    EXPECT_EQ(Places(), Lines({"main.xml:2", "main.xml:7"}));
}

TEST_F(CPlacesTest, OfEndHandlersAreThoseOfTheStart) {
    struct CEnd : Core::TIReturnCommand<bool> {
        explicit CEnd(Core::IMessageLog& endLog) : log(endLog) {}
        bool Execute() override {
            log.Log(Core::kErrorMessage, "end", 0);
            return true;
        }
        Core::IMessageLog& log;
    };
    parser.RegisterEndHandler("B", new CEnd(log));
    EXPECT_TRUE(Parse("<A>\n<B>\n<C/>\n</B></A>"));
    EXPECT_EQ(Places(), Lines({"main.xml:2"}));
}

TEST_F(CPlacesTest, OfIncludedFilesAreSeenFromTheRootDocument) {
    std::filesystem::create_directory(Path("sub"));
    folder.Write("sub/part.xml", "<PART>\n<LOG/></PART>");
    EXPECT_TRUE(Parse("<A>\n\n<INCLUDE file=\"sub/part.xml\"/><LOG/></A>"));
    EXPECT_EQ(Places(), Lines({"sub/part.xml:1", "sub/part.xml:2", "main.xml:3"}));
}

TEST_F(CPlacesTest, OfTemplatesAreThoseOfTheCall) {
    folder.Write("lib.xml", "<A>\n<TEMPLATE id=\"T\">\n<LOG/>\n<TEMPLATE_INNER_CONTENT/>\n<LOG/>"
                            "</TEMPLATE></A>");
    EXPECT_TRUE(Parse("<A><INCLUDE file=\"lib.xml\"/>\n<T>\n<LOG/></T><LOG/></A>"));
    EXPECT_EQ(Places(),
              Lines({"main.xml:2 lib.xml:3", "main.xml:3", "main.xml:2 lib.xml:5", "main.xml:3"}));
}

TEST_F(CPlacesTest, OfTemplatesInTemplatesAreThoseOfTheOutermostCall) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"IN\">\n<LOG/></TEMPLATE>\n<TEMPLATE id=\"OUT\">\n"
                      "<IN/></TEMPLATE>\n<OUT/></A>"));
    EXPECT_EQ(Places(), Lines({"main.xml:5 main.xml:2"}));
}

TEST_F(CPlacesTest, OfRepeatsAreThoseOfTheirBody) {
    EXPECT_TRUE(Parse("<A><REPEAT count=\"2\">\n<LOG/>\n<REPEAT count=\"1\">\n<LOG/></REPEAT>"
                      "</REPEAT>\n<LOG/></A>"));
    EXPECT_EQ(Places(),
              Lines({"main.xml:2", "main.xml:4", "main.xml:2", "main.xml:4", "main.xml:5"}));
}

TEST_F(CPlacesTest, OfRepeatsInTemplatesAreThoseOfTheCall) {
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><REPEAT count=\"1\">\n<LOG/></REPEAT></TEMPLATE>\n"
                      "<T/></A>"));
    EXPECT_EQ(Places(), Lines({"main.xml:3 main.xml:2"}));
}

TEST_F(CPlacesTest, OfFilesIncludedByATemplateAreTheirOwn) {
    folder.Write("part.xml", "<A>\n<LOG/></A>");
    EXPECT_TRUE(Parse("<A><TEMPLATE id=\"T\"><INCLUDE file=\"part.xml\"/>\n<LOG/></TEMPLATE>\n"
                      "<T/></A>"));
    EXPECT_EQ(Places(), Lines({"part.xml:2", "main.xml:3 main.xml:2"}));
}

TEST_F(CPlacesTest, OfDefinitionsAreThoseOfTheirUse) {
    EXPECT_TRUE(Parse("<A><DEFINE><HERE base_type=\"LOG\"/></DEFINE>\n<HERE/></A>"));
    EXPECT_EQ(Places(), Lines({"main.xml:2"}));
}

TEST_F(CPlacesTest, AreNowhereOutsideOfAParse) {
    EXPECT_TRUE(Parse("<A/>"));
    EXPECT_TRUE(log.GetPlace().IsNowhere());
}

TEST_F(CPlacesTest, CanBeKeptForLater) {
    std::vector<Core::CDocumentPlace> kept;
    struct CKeep : CSkinParser::CStartHandler {
        CKeep(Core::IMessageLog& keepLog, std::vector<Core::CDocumentPlace>& keepPlaces)
            : log(keepLog), places(keepPlaces) {}
        bool Execute(const Containers::IConstNamedAttributes& /*attributes*/) override {
            places.push_back(log.GetPlace());
            return true;
        }
        Core::IMessageLog& log;
        std::vector<Core::CDocumentPlace>& places;
    };
    parser.RegisterStartHandler("LINK", new CKeep(log, kept));
    EXPECT_TRUE(Parse("<A>\n<LINK/><TEMPLATE id=\"T\">\n<LINK/></TEMPLATE>\n<T/></A>"));
    for (const Core::CDocumentPlace& place : kept) {
        const Core::CPlaceScope scope(log, place);
        log.Log(Core::kErrorMessage, "no such object", 0);
    }
    log.Log(Core::kErrorMessage, "at the end", 0);
    EXPECT_EQ(Places(), Lines({"main.xml:2", "main.xml:4 main.xml:3", ":0"}));
}

/// Records what the element holds, and keeps it beyond the parser.
class CRecordingTest : public CPlacesTest {
public:
    bool OnRecordStart(const Containers::IConstNamedAttributes& /*attributes*/) {
        parser.StartRecording(&tagged);
        return true;
    }
    bool OnRecordEnd() {
        void* tag = nullptr;
        recorded.reset(parser.StopRecording(&tag));
        EXPECT_EQ(tag, &tagged);
        return parser.GetPublicState().Serialize(state);
    }

protected:
    CRecordingTest() {
        parser.RegisterStartHandler(
            "RECORD", new Core::TArgReturnCommand<CRecordingTest, bool,
                                                  const Containers::IConstNamedAttributes&>(
                          this, &CRecordingTest::OnRecordStart));
        parser.RegisterEndHandler("RECORD", new Core::TReturnCommand<CRecordingTest, bool>(
                                                this, &CRecordingTest::OnRecordEnd));
    }

    int tagged = 0;
    std::unique_ptr<IParsedTemplate> recorded;
    Serialization::CMemDataObject state;
};

TEST_F(CRecordingTest, KeepsExpandedElementsForLater) {
    EXPECT_TRUE(Parse("<A><VARIABLE id=\"v\" value=\"1\"/><DEFINE><D base_type=\"B\"/></DEFINE>"
                      "<TEMPLATE id=\"T\"><C x=\"$x$\"><TEMPLATE_INNER_CONTENT/></C></TEMPLATE>"
                      "<RECORD><D x=\"$v$ $item$\"/><T x=\"2\"><RECORD/></T></RECORD><C/></A>"));
    EXPECT_EQ(stream, "<A><C></C></A>");
    ASSERT_TRUE(recorded);
    stream.clear();
    Register("RECORD", &CDocumentTest::OnStart, &CDocumentTest::OnEnd);
    for (const char* item : {"0", "1"}) {
        EXPECT_EQ(recorded->Instantiate(Attributes({{"item", item}}), &parser), nullptr);
    }
    const std::string rest = "<C x=\"2\"><RECORD></RECORD></C>";
    EXPECT_EQ(stream, "<B base_type=\"B\" x=\"1 0\"></B>" + rest +
                          "<B base_type=\"B\" x=\"1 1\"></B>" + rest);
    EXPECT_EQ(Messages(), Lines());
}

TEST_F(CRecordingTest, KnowsPlacesWithoutTheParser) {
    EXPECT_TRUE(
        Parse("<A><TEMPLATE id=\"T\">\n<LOG/></TEMPLATE>\n<RECORD>\n<LOG/>\n<T/></RECORD></A>"));
    ASSERT_TRUE(recorded);
    EXPECT_EQ(Places(), Lines());
    CSkinParser other(&log);
    other.ResetHandlers();
    other.RegisterStartHandler(
        "LOG",
        new Core::TArgReturnCommand<CDocumentTest, bool, const Containers::IConstNamedAttributes&>(
            this, &CDocumentTest::OnLog));
    ASSERT_TRUE(other.GetPublicState().DeSerialize(state));
    EXPECT_EQ(other.GetRootFilePath(), folder.GetPath() + "/");
    EXPECT_EQ(recorded->Instantiate(Attributes({}), &other), nullptr);
    EXPECT_EQ(Places(), Lines({"main.xml:4", "main.xml:5 main.xml:2"}));
    const Serialization::CMemDataObject empty;
    EXPECT_FALSE(other.GetPublicState().DeSerialize(empty));
    EXPECT_EQ(other.GetRootFilePath(), folder.GetPath() + "/");
}

TEST_F(CRecordingTest, EndsWithADocumentThatBreaksOff) {
    EXPECT_FALSE(Parse("<A><RECORD><B/>"));
    EXPECT_FALSE(recorded);
    log.Clear();
    EXPECT_TRUE(Parse("<A><RECORD><C/></RECORD></A>"));
    ASSERT_TRUE(recorded);
    stream.clear();
    EXPECT_EQ(recorded->Instantiate(Attributes({}), &parser), nullptr);
    EXPECT_EQ(stream, "<C></C>");
}

TEST_F(CRecordingTest, OfNothingGivesNothing) { EXPECT_EQ(parser.StopRecording(nullptr), nullptr); }

} // namespace
} // namespace DocumentTests
