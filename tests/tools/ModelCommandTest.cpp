#include "ProgramTest.h"

namespace WorkbenchTests {
namespace {

class ModelCommand : public CProgramTest {
protected:
    std::string Write(const std::string& document) const {
        folder.Write("test.model", document);
        return Path("test.model");
    }

    /// What operations on a model print, which goes well.
    std::string On(const std::string& content, const Words& operations) const {
        const CRun run = RunOndara(
            Words{"model", Write("<MODEL>" + content + "</MODEL>"), "--quiet"} + operations);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        return run.out;
    }

    CRun RunOn(const std::string& content, const Words& operations) const {
        return RunOndara(Words{"model", Write("<MODEL>" + content + "</MODEL>"), "--quiet"} +
                         operations);
    }

    /// An operation on a model that cannot be done.
    void ExpectCannot(const std::string& content, const Words& operations,
                      const std::string& text) const {
        SCOPED_TRACE(::testing::PrintToString(operations));
        const CRun run = RunOn(content, operations);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "ondara: " + text + "\n");
    }
};

constexpr const char* kGain =
    R"(<PARAM id="gain" min="-60" max="12" default="-6" value_format=".2"/>)";

TEST_F(ModelCommand, GetsAndSetsValues) {
    EXPECT_EQ(On(kGain, {"get", "gain", "set", "gain=-1.5", "get", "gain", "text", "gain"}),
              "gain = -6\ngain = -1.5\ngain = -1.50\n");
    EXPECT_EQ(On(kGain, {"set", "gain=0.1", "get", "gain", "set", "gain=100", "get", "gain"}),
              "gain = 0.1\ngain = 12\n");
    EXPECT_EQ(On(kGain, {"get", "gain.max", "text", "gain.min"}),
              "gain.max = 12\ngain.min = -60.00\n");
    EXPECT_EQ(On("<STRING id='s' default='x'/>",
                 {"get", "s", "set", "s=a=b", "get", "s", "text", "s", "set", "s=", "get", "s"}),
              "s = x\ns = a=b\ns = a=b\ns = \n");
    EXPECT_EQ(On("<COLLECTION id='c' count='2'/>",
                 {"get", "c", "set", "c=3", "get", "c", "get", "c.count"}),
              "c = 2\nc = 3\nc.count = 3\n");
}

TEST_F(ModelCommand, TypesTexts) {
    EXPECT_EQ(On(kGain, {"type", "gain=-3 dB", "get", "gain"}), "gain = -3\n");
    EXPECT_EQ(On("<PARAM id='v' type='enumeration' enum_values='Flow;Loop'/>",
                 {"type", "v=Loop", "get", "v", "text", "v"}),
              "v = 1\nv = Loop\n");
    EXPECT_EQ(On("<STRING id='s'/>", {"type", "s=hello", "get", "s"}), "s = hello\n");
    ExpectCannot(kGain, {"type", "gain=loud"}, "gain: \"loud\" cannot be read as a value");
}

TEST_F(ModelCommand, EvaluatesCurvesAndSurfaces) {
    const std::string content = "<FORMULA_CURVE id='c' formula='x*x'/>"
                                "<FORMULA_SURFACE id='s' formula='x-y'/>";
    EXPECT_EQ(On(content, {"eval", "c", "-3", "eval", "s", "5", "7", "eval", "c", "0.5"}),
              "c = 9\ns = -2\nc = 0.25\n");
    ExpectCannot(content, {"eval", "c", "1", "2"}, "c: a curve is evaluated at one number");
    ExpectCannot(content, {"eval", "s", "1"}, "s: a surface is evaluated at two numbers");
}

TEST_F(ModelCommand, TellsOfChangesFromWhereItWasAsked) {
    EXPECT_EQ(On(std::string(kGain) + "<FORMULA_PARAM id='f' formula='gain*2'/>",
                 {"set", "gain=1", "events", "gain", "events", "f", "set", "gain=2", "set",
                  "gain=2", "get", "f"}),
              "f changed\ngain changed\nf = 4\n");
    EXPECT_EQ(
        On("<COLLECTION id='c'><PARAM id='$item_id$.p' max='1'/></COLLECTION>",
           {"events", "c", "set", "c=1", "events", "c[0].p", "set", "c[0].p=1", "set", "c=0"}),
        "c changed\nc[0].p changed\nc changed\n");
}

TEST_F(ModelCommand, HoldsAndLetsGo) {
    EXPECT_EQ(
        On(std::string(kGain) + "<STRING id='s'/><CURVE id='c'/>",
           {"capture", "gain", "release", "gain", "capture", "s", "release", "s", "capture", "c"}),
        "");
}

TEST_F(ModelCommand, MovesTheClock) {
    const std::string content =
        "<PARAM id='p' max='10'/>"
        "<PARAM_ANIMATOR id='a' param_id='p' duration_ms='1000' refresh_time_ms='10'/>";
    EXPECT_EQ(On(content,
                 {"get", "p", "wait", "300", "get", "p", "wait", "0", "wait", "400", "get", "p"}),
              "p = 0\np = 3\np = 7\n");
}

TEST_F(ModelCommand, RunsActions) {
    EXPECT_EQ(On("<STRING id='s' default='there'/>"
                 "<FUNCTION_INVOKE_ACTION id='a' function='OpenUrl' arg_url='s'/>"
                 "<ACTION type='OpenUrl' id='b' url='here'/>",
                 {"run", "a", "run", "b"}),
              "open there\nopen here\n");
}

TEST_F(ModelCommand, ListsObjectsByKindAndIdentifier) {
    EXPECT_EQ(On("<STRING id='z'/><PARAM id='b'/><PARAM id='a'/><CURVE id='c'/>"
                 "<FORMULA_SURFACE id='s' formula='x'/><COLLECTION id='k' count='1'>"
                 "<PARAM id='$item_id$.p'/></COLLECTION>"
                 "<ACTION type='OpenUrl' id='o' url=''/>",
                 {"list"}),
              "action o\ncollection k\ncurve c\nparam a\nparam alive\nparam b\nparam k.count\n"
              "param k[0].p\nstring z\nsurface s\n");
}

TEST_F(ModelCommand, SavesAndLoadsTheState) {
    const std::string content = "<PARAM id='p' max='9' persistent='true'/><PARAM id='q' max='9'/>";
    const std::string state = Path("state.xml");
    EXPECT_EQ(On(content, {"set", "p=4", "set", "q=5", "save", state, "set", "p=1", "load", state,
                           "get", "p"}),
              "p = 4\n");
    EXPECT_EQ(On(content, {"load", state, "get", "p", "get", "q"}), "p = 4\nq = 0\n");
    const std::string other = Path("other.xml");
    folder.Write("other.xml", "<Model><state version='1'><params pp='nan'/></state></Model>");
    const std::string unfit = other + ": is no state that save has written, or holds a value that "
                                      "no object can have; the model is as it was";
    ExpectCannot(content, {"load", other}, unfit);
    folder.Write("other.xml", "<Model/>");
    ExpectCannot(content, {"load", other}, unfit);
    folder.Write("other.xml", "<Preset/>");
    ExpectCannot(content, {"load", other},
                 other + ": cannot be read, or is no state that save has written");
    ExpectCannot(content, {"load", Path("missing.xml")},
                 Path("missing.xml") + ": cannot be read: No such file or directory");
    ExpectCannot(content, {"save", Path("no/folder.xml")},
                 Path("no/folder.xml") + ": cannot be written");
}

TEST_F(ModelCommand, GivesVariablesValues) {
    const std::string path = Write("<MODEL><PARAM id='p' max='$MOST$' default='$MOST$'/></MODEL>");
    const CRun run = RunOndara({"model", path, "--let", "MOST=7", "--quiet", "get", "p"});
    EXPECT_EQ(run.out, "p = 7\n");
    EXPECT_EQ(run.status, 0);
}

TEST_F(ModelCommand, PrintsMessagesWithFileAndLine) {
    const CRun run = RunOndara({"model", Write("<MODEL>\n<PARAM/>\n</MODEL>"), "get", "alive"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "alive = 0\n") << "what is right is there";
    EXPECT_EQ(run.err.find("test.model:1: info: Parsing the model...\n"
                           "test.model:2: error: Cannot create parameter, id field is empty.\n"),
              0U)
        << run.err;
    EXPECT_NE(run.err.find("test.model:1: error: Fatal error: model parsing failed\n"),
              std::string::npos)
        << run.err;
}

TEST_F(ModelCommand, TellsOfFaultsInItemsOfCollections) {
    const CRun run = RunOn("<COLLECTION id='c' count='1'>\n<PARAM/></COLLECTION>", {"set", "c=2"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "test.model:2: error: Cannot create parameter, id field is empty.\n"
                       "test.model:2: error: Cannot create parameter, id field is empty.\n");
}

TEST_F(ModelCommand, TellsOfFaultsThatAnOperationSetsOff) {
    const CRun twice = RunOn("<PARAM id='c[1].p'/>\n<COLLECTION id='c' count='1'>"
                             "<PARAM id='$item_id$.p'/></COLLECTION>",
                             {"set", "c=2", "get", "c"});
    EXPECT_EQ(twice.status, 1);
    EXPECT_EQ(twice.out, "c = 2\n");
    EXPECT_EQ(twice.err, "test.model:2: error: 'c[1].p' : this object identifier already exists, "
                         "use another identifier.\n");
    const CRun tooMany = RunOn("\n<COLLECTION id='c'/>", {"set", "c=30000", "get", "c"});
    EXPECT_EQ(tooMany.status, 1);
    EXPECT_EQ(tooMany.out, "c = 20000\n");
    EXPECT_EQ(tooMany.err, "test.model:2: error: c: a model has at most 20000 items in its "
                           "collections, use a smaller count.\n");
}

TEST_F(ModelCommand, WaitsPartsOfAMillisecond) {
    EXPECT_EQ(RunOn("<PARAM id='p' max='9'/><PARAM_ANIMATOR id='a' param_id='p' duration_ms='900' "
                    "refresh_time_ms='100'/>",
                    {"wait", "99.9", "get", "p", "wait", "0.1", "get", "p"})
                  .out,
              "p = 0\np = 1\n");
}

TEST_F(ModelCommand, MakesOnlyWhatIsUsedWhenTold) {
    const std::string path = Write("<MODEL><PARAM id='p'/><PARAM id='q' exposed='true'/></MODEL>");
    EXPECT_EQ(RunOndara({"model", path, "--used-only", "--quiet", "list"}).out, "param q\n");
}

TEST_F(ModelCommand, SaysWhatCannotBeDone) {
    ExpectCannot(kGain, {"get", "nobody"},
                 "nobody: the model has no such object; list names those it has");
    ExpectCannot(kGain, {"eval", "gain", "1"},
                 "gain: eval does not work with an object of the kind param");
    ExpectCannot(kGain, {"run", "gain"},
                 "gain: run does not work with an object of the kind param");
    ExpectCannot("<CURVE id='c'/>", {"get", "c"},
                 "c: get does not work with an object of the kind curve");
    ExpectCannot("<FORMULA_PARAM id='f' formula='1'/>", {"set", "f=1"},
                 "f: set does not work with what can only be read");
    ExpectCannot("<FORMULA_PARAM id='f' formula='1'/>", {"capture", "f"},
                 "f: capture does not work with what can only be read");
    ExpectCannot("<ACTION type='OpenUrl' id='a' url=''/>", {"events", "a"},
                 "a: events does not work with an object of the kind action");
    ExpectCannot(kGain, {"set", "gain=loud"}, "gain: \"loud\" is not a number");
}

TEST_F(ModelCommand, AFileThatIsNotThereIsAnError) {
    const CRun run = RunOndara({"model", Path("no.model"), "--quiet"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("file does not exist"), std::string::npos) << run.err;
}

TEST_F(ModelCommand, WrongUsageIsToldBeforeAnythingIsDone) {
    const std::string path = Write("<MODEL/>");
    ExpectRefused({"model"}, 2, "FILE");
    ExpectRefused({"model", path, "fly"}, 2, "fly");
    ExpectRefused({"model", path, "get"}, 2, "get");
    ExpectRefused({"model", path, "set", "gain"}, 2, "gain");
    ExpectRefused({"model", path, "eval", "c"}, 2, "eval");
    ExpectRefused({"model", path, "eval", "c", "x"}, 2, "eval");
    ExpectRefused({"model", path, "wait", "-1"}, 2, "wait");
    ExpectRefused({"model", path, "wait", "soon"}, 2, "wait");
    ExpectRefused({"model", path, "--fast"}, 2, "--fast");
    ExpectRefused({"model", path, "--let", "x"}, 2, "--let");
    const CRun help = RunOndara({"model", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.find("usage: ondara model FILE"), 0U);
}

TEST_F(ModelCommand, TheTourHasEveryElementAndItsValues) {
    const std::string tour = DOCUMENTS "/examples/tour.model";
    const CRun run = RunOndara({"model",
                                tour,
                                "--quiet",
                                "text",
                                "gain",
                                "text",
                                "view",
                                "get",
                                "steps",
                                "get",
                                "on",
                                "get",
                                "amplitude",
                                "eval",
                                "line",
                                "2",
                                "eval",
                                "field",
                                "2",
                                "3",
                                "get",
                                "line_at_x",
                                "get",
                                "field_at_xy",
                                "text",
                                "percent",
                                "get",
                                "gain_text",
                                "get",
                                "loudest",
                                "get",
                                "steps_knob",
                                "eval",
                                "shape",
                                "3",
                                "eval",
                                "product",
                                "1",
                                "get",
                                "heading",
                                "get",
                                "both",
                                "get",
                                "meters[1].shown",
                                "set",
                                "bands=3",
                                "get",
                                "meters[2].shown",
                                "wait",
                                "250",
                                "get",
                                "phase",
                                "eval",
                                "phase_history",
                                "0",
                                "eval",
                                "line_history",
                                "2",
                                "0",
                                "get",
                                "slow_x",
                                "run",
                                "open_title",
                                "run",
                                "open_home"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "gain = -6.0 dB\n"
                       "view = Loop\n"
                       "steps = 4\n"
                       "on = 1\n"
                       "amplitude = 0.5011872336272722\n" // 10^(-6/20)
                       "line = 9\n"                       // 4*2 + 1
                       "field = 27\n"                     // 9*3
                       "line_at_x = 9\n"
                       "field_at_xy = 27\n"
                       "percent = 16.0\n" // 0.4 squared
                       "gain_text = Gain: -6.0 dB\n"
                       "loudest = 4\n"
                       "steps_knob = 0.4\n"
                       "shape = 13\n"   // 4*3 + 1
                       "product = 25\n" // 5*5
                       "heading = A tour\n"
                       "both = A tour | Gain: -6.0 dB\n"
                       "meters[1].shown = 10\n"
                       "meters[2].shown = 10\n"
                       "phase = 0.25\n"
                       "phase_history = 0.24\n" // it looked a tick before
                       "line_history = 9\n"
                       "slow_x = 2\n"
                       "open A tour\n"
                       "open https://example.org/\n");
}

} // namespace
} // namespace WorkbenchTests
