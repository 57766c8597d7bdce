#include "Arguments.h"

#include <gtest/gtest.h>

#include <limits>

namespace Workbench {
namespace {

/// Arguments that stand at their first word.
CArguments At(std::vector<std::string> words) {
    CArguments arguments(std::move(words));
    EXPECT_TRUE(arguments.Next());
    return arguments;
}

TEST(Arguments, AreSteppedThroughToTheirEnd) {
    CArguments arguments({"a", "b"});
    ASSERT_TRUE(arguments.Next());
    EXPECT_EQ(arguments.Get(), "a");
    ASSERT_TRUE(arguments.Next());
    EXPECT_EQ(arguments.Get(), "b");
    EXPECT_FALSE(arguments.Next());
    EXPECT_FALSE(arguments.Next());
}

TEST(Arguments, MayBeNone) {
    CArguments arguments({});
    EXPECT_FALSE(arguments.Next());
}

TEST(Arguments, TellOptionsFromTheRest) {
    EXPECT_TRUE(At({"-o"}).IsOption());
    EXPECT_TRUE(At({"--view"}).IsOption());
    EXPECT_FALSE(At({"-"}).IsOption());
    EXPECT_FALSE(At({"sound.wav"}).IsOption());
    EXPECT_FALSE(At({""}).IsOption());
}

TEST(Arguments, GiveTheWordBehindAnOptionAsItsText) {
    CArguments arguments = At({"-o", "--odd name", "next"});
    std::string text;
    ASSERT_TRUE(arguments.TakeText(text));
    EXPECT_EQ(text, "--odd name");
    ASSERT_TRUE(arguments.Next());
    EXPECT_EQ(arguments.Get(), "next");
}

TEST(Arguments, MissATextAtTheEnd) {
    CArguments arguments = At({"-o"});
    std::string text = "as it was";
    const COutcome outcome = arguments.TakeText(text);
    EXPECT_EQ(outcome.exit, kWrongUsage);
    EXPECT_EQ(outcome.message, "-o: a value has to follow");
    EXPECT_EQ(text, "as it was");
}

TEST(Arguments, TakeNumbersUpToBothEndsOfTheRange) {
    for (const auto& [text, expected] :
         {std::pair{"-1", -1.0}, std::pair{"1", 1.0}, std::pair{"-0.125", -0.125}}) {
        CArguments arguments = At({"--v", text});
        double value = 0.0;
        EXPECT_TRUE(arguments.TakeNumber(value, -1.0, 1.0)) << text;
        EXPECT_EQ(value, expected);
    }
}

TEST(Arguments, RefuseNumbersOutOfRange) {
    for (const char* text : {"-1.0000001", "1.0000001", "1e300", "-1e300"}) {
        CArguments arguments = At({"--v", text});
        double value = 0.5;
        const COutcome outcome = arguments.TakeNumber(value, -1.0, 1.0);
        EXPECT_EQ(outcome.exit, kWrongUsage);
        EXPECT_EQ(outcome.message,
                  std::string("--v: ") + text + " is out of range, which is -1 to 1");
        EXPECT_EQ(value, 0.5);
    }
}

TEST(Arguments, RefuseWhatIsNoNumber) {
    for (const char* text : {"", "abc", "1x", "nan", "inf", "--view"}) {
        CArguments arguments = At({"--v", text});
        double value = 0.5;
        const COutcome outcome = arguments.TakeNumber(value, -1.0, 1.0);
        EXPECT_EQ(outcome.exit, kWrongUsage);
        EXPECT_EQ(outcome.message, std::string("--v: \"") + text + "\" is not a number");
        EXPECT_EQ(value, 0.5);
    }
}

TEST(Arguments, TakeWholeNumbers) {
    CArguments arguments = At({"--n", "1e3"});
    int value = 0;
    ASSERT_TRUE(arguments.TakeInteger(value, 1, 1000));
    EXPECT_EQ(value, 1000);
}

TEST(Arguments, RefuseFractionsAndHugeNumbersAsWholeOnes) {
    for (const char* text : {"1.5", "0", "1001", "1e99", "-1", "one"}) {
        CArguments arguments = At({"--n", text});
        int value = 7;
        const COutcome outcome = arguments.TakeInteger(value, 1, 1000);
        EXPECT_EQ(outcome.exit, kWrongUsage) << text;
        EXPECT_EQ(outcome.message.substr(0, 5), "--n: ");
        EXPECT_EQ(value, 7);
    }
}

TEST(Arguments, TakeTheEdgesOfTheIntegers) {
    using Limits = std::numeric_limits<int>;
    for (const int edge : {Limits::min(), Limits::max()}) {
        CArguments arguments = At({"--n", std::to_string(edge)});
        int value = 0;
        ASSERT_TRUE(arguments.TakeInteger(value, Limits::min(), Limits::max()));
        EXPECT_EQ(value, edge);
    }
}

TEST(Arguments, TakeOneOfSomeWords) {
    CArguments arguments = At({"--view", "trigger"});
    int index = -1;
    ASSERT_TRUE(arguments.TakeChoice(index, {"flow", "loop", "trigger"}));
    EXPECT_EQ(index, 2);
}

TEST(Arguments, NameTheWordsThatMayBeChosen) {
    for (const char* text : {"Flow", "flo", "", "flow "}) {
        CArguments arguments = At({"--view", text});
        int index = 7;
        const COutcome outcome = arguments.TakeChoice(index, {"flow", "loop"});
        EXPECT_EQ(outcome.exit, kWrongUsage);
        EXPECT_EQ(outcome.message, std::string("--view: \"") + text + "\" is none of flow, loop");
        EXPECT_EQ(index, 7);
    }
}

} // namespace
} // namespace Workbench
