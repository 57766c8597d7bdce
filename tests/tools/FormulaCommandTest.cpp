#include "ProgramTest.h"

#include <utility>

namespace WorkbenchTests {
namespace {

class FormulaCommand : public CProgramTest {
protected:
    static void ExpectPrints(const Words& words, const std::string& out) {
        SCOPED_TRACE(::testing::PrintToString(words));
        EXPECT_EQ(Run(Words{"formula"} + words), out);
    }

    static void ExpectInvalid(const Words& words, const std::string& told) {
        const CRun run = RunOndara(Words{"formula"} + words);
        EXPECT_EQ(run.status, 1) << told;
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, told + ": invalid formula\n");
    }

    void ExpectWrongWords(const Words& words, const std::string& named) const {
        ExpectRefused(Words{"formula"} + words, 2, named);
    }
};

TEST_F(FormulaCommand, PrintsTheValueWith17Digits) {
    ExpectPrints({"2+3*4"}, "14\n");
    ExpectPrints({"0.1"}, "0.10000000000000001\n");
    ExpectPrints({"1/3"}, "0.33333333333333331\n");
    ExpectPrints({"pi"}, "3.1415926535897931\n");
    ExpectPrints({"10^20"}, "1e+20\n");
    ExpectPrints({"12345678"}, "12345678\n");
    ExpectPrints({"-(2^70)"}, "-1.1805916207174113e+21\n");
    ExpectPrints({"-0"}, "-0\n");
}

TEST_F(FormulaCommand, PrintsWhatIsNoNumberAsAWord) {
    ExpectPrints({"1/0"}, "inf\n");
    ExpectPrints({"log(0)"}, "-inf\n");
    ExpectPrints({"0/0"}, "nan\n");
    ExpectPrints({"-(0/0)"}, "nan\n");
}

TEST_F(FormulaCommand, TakesAFormulaThatBeginsWithAMinus) {
    ExpectPrints({"-2^2"}, "4\n");
    ExpectPrints({"-x", "--kind", "function", "--at", "3"}, "-3\n");
    ExpectPrints({"--kind", "function", "--at", "3", "-x"}, "-3\n");
    ExpectPrints({"--", "-2"}, "-2\n");
    ExpectPrints({"--let", "h=2", "--", "-h"}, "-2\n");
}

TEST_F(FormulaCommand, TellsAnInvalidFormula) {
    for (const char* text : {"2+", "", "10%3", "'text'", "#2010-01-01#", "1e3", "foo(1,2,3)",
                             "sin()", "--1", "----1", "(", "100%s%n"}) {
        ExpectInvalid({text}, text);
    }
    ExpectInvalid({"two\nlines \x1b[31m"}, "two?lines ?[31m");
    ExpectInvalid({"--", "--names"}, "--names");
    const std::string deep = std::string(1000, '(') + "1" + std::string(1000, ')');
    ExpectInvalid({deep}, deep);
    const std::string longest(65537, '1');
    ExpectInvalid({longest}, longest);
}

TEST_F(FormulaCommand, DropsWhatBeginsNothingWithoutAWord) { ExpectPrints({"1+@2"}, "3\n"); }

TEST_F(FormulaCommand, EvaluatesCurvesAndSurfacesAtAPoint) {
    ExpectPrints({"x^2", "--kind", "function", "--at", "3"}, "9\n");
    ExpectPrints({"x^2", "--kind", "function"}, "0\n");
    ExpectPrints({"t^2", "--kind", "function", "--x", "t", "--at", "-3"}, "9\n");
    ExpectPrints({"x^2", "--kind", "function", "--x", "t", "--at", "3"}, "0\n");
    ExpectPrints({"x-y", "--kind", "surface", "--at", "5,2"}, "3\n");
    ExpectPrints({"x-y", "--kind", "surface", "--at", "5"}, "5\n");
    ExpectPrints({"u-v", "--kind", "surface", "--at", "5,2", "--x", "u", "--y", "v"}, "3\n");
    ExpectPrints({"x", "--kind", "function", "--at", "-inf"}, "-inf\n");
    ExpectPrints({"7", "--kind", "constant"}, "7\n");
}

TEST_F(FormulaCommand, SetsOpenNames) {
    ExpectPrints({"a*2+dsp.input0", "--let", "a=2.5", "--let", "dsp.input0=-1"}, "4\n");
    ExpectPrints({"a", "--let", "a=1", "--let", "a=2"}, "2\n");
    ExpectPrints({"a"}, "0\n");
    ExpectPrints({"a", "--let", "a=inf"}, "inf\n");
    ExpectPrints({"a*x", "--kind", "function", "--at", "3", "--let", "a=2"}, "6\n");
    ExpectPrints({"a*x*y", "--kind", "surface", "--at", "3,4", "--let", "a=2"}, "24\n");
    ExpectPrints({"f(3)+g(3,4)"}, "10\n");
}

TEST_F(FormulaCommand, TellsOfANameThatIsNotThere) {
    for (const Words& words : {Words{"2*pi", "--let", "tau=1"}, Words{"2*pi", "--let", "pi=1"},
                               Words{"2*pi", "--plain", "--let", "x=1"}}) {
        const CRun run = RunOndara(Words{"formula"} + words);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, "6.2831853071795862\n");
        const std::string name = words.back().substr(0, words.back().find('='));
        EXPECT_EQ(run.err, "--let: " + name + " is no open name of the formula\n");
    }
}

TEST_F(FormulaCommand, PrintsTheOpenNamesSorted) {
    ExpectPrints({"b+a+foo*foo(1)+foo(1,2)+a+pi+sin(z)", "--names"},
                 "function foo\nparam a\nparam b\nparam foo\nparam z\nsurface foo\n");
    ExpectPrints({"x+y", "--names"}, "param x\nparam y\n");
    ExpectPrints({"x+y", "--names", "--kind", "function"}, "param y\n");
    ExpectPrints({"x+y", "--names", "--kind", "surface"}, "");
    ExpectPrints({"x+y+t", "--names", "--kind", "surface", "--x", "t"}, "param x\n");
    ExpectPrints({"1", "--names"}, "");
    ExpectInvalid({"1+", "--names"}, "1+");
}

TEST_F(FormulaCommand, PlainFormsHaveNoOpenNames) {
    ExpectPrints({"sin(pi/2)", "--plain"}, "1\n");
    ExpectPrints({"x*2", "--plain", "--kind", "function", "--at", "4"}, "8\n");
    ExpectPrints({"t*2", "--plain", "--kind", "function", "--x", "t", "--at", "4"}, "8\n");
    ExpectPrints({"1", "--plain", "--names"}, "");
    ExpectInvalid({"x", "--plain"}, "x");
    ExpectInvalid({"x", "--plain", "--kind", "function", "--x", "t"}, "x");
    ExpectInvalid({"foo(1)", "--plain", "--kind", "function"}, "foo(1)");
}

TEST_F(FormulaCommand, TellsWrongUsage) {
    ExpectWrongWords({}, "TEXT");
    ExpectWrongWords({"--names"}, "TEXT");
    ExpectWrongWords({"--"}, "--");
    ExpectWrongWords({"1", "2"}, "2: is not understood");
    ExpectWrongWords({"1", "--kinds"}, "--kinds");
    ExpectWrongWords({"1", "--kind"}, "--kind");
    ExpectWrongWords({"1", "--kind", "curve"}, "constant, function, surface");
    for (const char* let : {"a", "a=", "=1", "a=b", "a=1x", "", "a = 1", "a=1,5", "a=0x1"}) {
        ExpectWrongWords({"a", "--let", let}, "--let");
    }
    for (const char* at : {"", "x", "1,", ",1", "1,2,3", "1 2"}) {
        ExpectWrongWords({"x", "--kind", "surface", "--at", at}, "--at");
    }
    ExpectWrongWords({"1", "--at", "1"}, "--at");
    ExpectWrongWords({"1", "--x", "t"}, "--x");
    ExpectWrongWords({"1", "--y", "t"}, "--y");
    ExpectWrongWords({"x", "--kind", "function", "--at", "1,2"}, "--at");
    ExpectWrongWords({"x", "--kind", "function", "--y", "t"}, "--y");
    ExpectWrongWords({"x", "--kind", "surface", "--plain"}, "--plain");
}

TEST_F(FormulaCommand, HelpNamesTheOptions) {
    const std::string help = Run({"formula", "--help"});
    EXPECT_EQ(help.substr(0, 28), "usage: ondara formula TEXT [");
    for (const char* option : {"--kind constant|function|surface", "--x NAME", "--y NAME",
                               "--at X[,Y]", "--let NAME=VALUE", "--names", "--plain"}) {
        EXPECT_NE(help.find(option), std::string::npos) << option;
    }
    EXPECT_EQ(Run({"formula", "1", "-h"}), help);
    EXPECT_NE(Run({"--help"}).find("formula"), std::string::npos);
}

} // namespace
} // namespace WorkbenchTests
