#include "SkinEngine/Formula/ParseFormula.h"

#include "SkinEngine/Formula/FormulaTestTools.h"
#include "files/Locale.h"
#include "math/FunctionsCombination.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

namespace Vorin::AppEngine {
namespace {

using Math::FunctionsLibrary;
using Math::IConstant;
using Math::IFunction;
using Testing::kInAllForms;
using Testing::kInNoForm;
using Testing::kInOpenForms;
using Testing::Sorted;
using Testing::ValidForms;
using Testing::Value;
using NameList = std::vector<std::string>;

void ExpectValues(const std::map<std::string, double>& values) {
    for (const auto& [text, value] : values) {
        EXPECT_EQ(Value(text), value) << text;
    }
}

void ExpectForms(const NameList& texts, const char* forms) {
    for (const std::string& text : texts) {
        EXPECT_EQ(ValidForms(text), forms) << text;
    }
}

TEST(ParseFormulaTest, OperatorsBindFromOrToPower) {
    ExpectValues({{"2+3*4", 14},
                  {"(2+3)*4", 20},
                  {"1 or 0 and 0", 1},
                  {"1=1 and 2<3", 1},
                  {"1<2=1", 1},
                  {"1+1<2", 0},
                  {"2*3^2", 18},
                  {"0 = 1 < 0", 1},
                  {"5 > 4 and 4 > 5 or 1", 1}});
}

TEST(ParseFormulaTest, OperatorsOfALevelGroupFromTheLeft) {
    ExpectValues(
        {{"2^3^2", 64}, {"10-4-3", 3}, {"16/4/2", 2}, {"3>2>1", 0}, {"0=0=0", 0}, {"2*3/4*2", 3}});
}

TEST(ParseFormulaTest, ASignBindsClosestAndStandsAlone) {
    ExpectValues({{"-2^2", 4},
                  {"-(2^2)", -4},
                  {"2^-1", 0.5},
                  {"2--1", 3},
                  {"2+-1", 1},
                  {"-(-1)", 1},
                  {"!0+1", 2},
                  {"not 0.5", 0},
                  {"-(!0)", -1},
                  {"!(-0)", 1}});
    ExpectForms({"--1", "----1", "-!1", "!-1", "!!1", "not not 1", "+1", "-"}, kInNoForm);
}

TEST(ParseFormulaTest, EachOperatorHasItsSpellings) {
    ExpectValues({{"0||2", 1},  {"0 or 2", 1}, {"1&&0", 0}, {"1 and 0", 0}, {"2==2", 1},
                  {"2=2", 1},   {"2!=2", 0},   {"2<>3", 1}, {"1<1", 0},     {"1<=1", 1},
                  {"1>1", 0},   {"1>=1", 1},   {"3+4", 7},  {"3-4", -1},    {"3*4", 12},
                  {"3/4", .75}, {"3^4", 81},   {"!3", 0},   {"not 0", 1},   {"true", 1},
                  {"false", 0}});
}

TEST(ParseFormulaTest, KeywordsAreWordsOfTheirOwn) {
    ExpectForms({"order", "orb", "or1", "or.x", "or$", "_or", "not1", "nota", "and_", "android",
                 "trueish", "false.", "true1", "Or", "TRUE", "Not", "True"},
                kInOpenForms);
    ExpectForms({"1 or2", "1or2", "not", "or", "1 and", "2 Or 3"}, kInNoForm);
    ExpectValues({{"1or 2", 1}, {"not(1)", 0}, {"1 or(0)", 1}, {"true+true", 2}});
}

TEST(ParseFormulaTest, NumbersHaveNoExponentAndDigitsBehindThePoint) {
    ExpectValues({{".5", .5},
                  {"0.5", .5},
                  {"00012", 12},
                  {"3.25", 3.25},
                  {"0.1", 0.1},
                  {"123456789012345678901234567890", 123456789012345678901234567890.0},
                  {"2.2250738585072011", 2.2250738585072011}});
    ExpectForms({"1e3", "1E3", "0x10", "1.5.5", "1 2", "1.", "12.e", "."}, kInNoForm);
}

TEST(ParseFormulaTest, NumbersBeyondADoubleAreInfiniteOrZero) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Value("1" + Testing::Repeat("0", 400)), infinity);
    EXPECT_EQ(Value("0." + Testing::Repeat("0", 400) + "1"), 0.0);
    EXPECT_EQ(Value("0." + Testing::Repeat("0", 323) + "5"),
              std::numeric_limits<double>::denorm_min());
}

TEST(ParseFormulaTest, NumbersAreReadWithAPointWhateverTheLocale) {
    const TestFiles::CLocale locale("de_DE.UTF-8");
    ASSERT_TRUE(locale.isThere);
    EXPECT_EQ(Value("0.5+1.25"), 1.75);
}

TEST(ParseFormulaTest, BuiltInFunctionsAreThoseOfTheLibrary) {
    // Not known to the compiler, which would do the sums by another library.
    const volatile double two = 2.0;
    ExpectValues({{"sin(pi/2)", 1},
                  {"cos(0)", 1},
                  {"exp(2)", std::exp(two)},
                  {"log(2)", std::log(two)},
                  {"cosh(2)", std::cosh(two)},
                  {"sinh(2)", std::sinh(two)},
                  {"tanh(2)", std::tanh(two)},
                  {"tan(2)", std::tan(two)},
                  {"sqrt(9)", 3},
                  {"sqrt(-4)", 0},
                  {"floor(-1.5)", -2},
                  {"ceil(-1.5)", -1},
                  {"round(2.5)", 3},
                  {"round(-2.5)", -3},
                  {"abs(-3)", 3},
                  {"min(2,3)", 2},
                  {"max(2,3)", 3},
                  {"max(min(5, 4), 1 + 2)", 4},
                  {"pi", 3.141592653589793}});
    ExpectForms({"sin(pi/2)", "min(pi,pi)"}, kInAllForms);
    EXPECT_EQ(ParseFunctionFormula("sin(pi/2)")->Evaluate(9.0), 1.0);
    EXPECT_EQ(ParseParametrizedConstant("sin(pi/2)")->GetFunction()->Evaluate(), 1.0);
    EXPECT_EQ(ParseParametrizedFunction("sin(pi/2)")->GetFunction()->Evaluate(9.0), 1.0);
    EXPECT_EQ(ParseParametrizedBinaryFunction("sin(pi/2)")->GetFunction()->Evaluate(9.0, 8.0), 1.0);
}

TEST(ParseFormulaTest, WhatFloatingPointGivesIsNoError) {
    EXPECT_EQ(Value("1/0"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Value("log(0)"), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(*Value("0/0")));
    EXPECT_TRUE(std::isnan(*Value("log(-1)")));
}

TEST(ParseFormulaTest, RemainderTextAndDateAreInvalidWhereverTheyStand) {
    ExpectForms({"10%3", "1+10%3", "sin(10%3)", "f(10%3,1)", "'text'", "''", "'it\\'s'",
                 "'\\u00e4'", "1='a'", "f('a')", "#2010-01-01#", "##", "min(1,#a#)", "-'a'"},
                kInNoForm);
}

TEST(ParseFormulaTest, CallsHaveOneArgumentOrTwo) {
    ExpectForms({"foo(1,2,3)", "sin()", "foo()", "min(1,2,3)", "sin(1,2,3)", "foo(", "foo(1",
                 "foo(1,", "foo(1,)", "foo(,1)", "foo)", "1(2)", "(foo)(1)", "true(1)"},
                kInNoForm);
}

TEST(ParseFormulaTest, NamesThatAreNotBuiltInAreOpenOrInvalid) {
    ExpectForms({"foo", "foo(1)", "foo(1,2)", "foo+1", "-foo", "dsp.input0", "$a.b$", "_", "$",
                 "a..b", "sin", "log", "min", "min(1)", "sin(1,2)", "pi(1)", "pi(1,2)"},
                kInOpenForms);
}

TEST(ParseFormulaTest, NamesMayBeWrittenApartFromTheirArguments) {
    ExpectValues({{"sin (0)", 0}, {"max\n(\t1 ,\f2\r)", 2}});
}

TEST(ParseFormulaTest, AVariableIsTheIdentity) {
    const auto formula = ParseFunctionFormula("x", "x");
    ASSERT_TRUE(formula);
    EXPECT_STREQ(formula->GetType(), Math::TFunction<&FunctionsLibrary::Identity>::kIdentifier);
    EXPECT_FALSE(ParseConstantFormula("x"));
    EXPECT_FALSE(ParseFunctionFormula("x", "t"));
    EXPECT_EQ(ParseFunctionFormula("t", "t")->Evaluate(3.0), 3.0);
    EXPECT_EQ(ParseFunctionFormula("a.b+1", "a.b")->Evaluate(3.0), 4.0);
    EXPECT_EQ(ParseFunctionFormula("x*2", nullptr)->Evaluate(3.0), 6.0);
}

TEST(ParseFormulaTest, VariablesOfASurfaceAreXAndYUnlessSaidOtherwise) {
    EXPECT_EQ(ParseParametrizedBinaryFunction("x-y")->GetFunction()->Evaluate(5.0, 2.0), 3.0);
    EXPECT_EQ(ParseParametrizedBinaryFunction("u-v", "u", "v")->GetFunction()->Evaluate(5.0, 2.0),
              3.0);
    EXPECT_EQ(
        ParseParametrizedBinaryFunction("x-v", nullptr, "v")->GetFunction()->Evaluate(5.0, 2.0),
        3.0);
    EXPECT_EQ(ParseParametrizedBinaryFunction("u", "u", "u")->GetFunction()->Evaluate(5.0, 2.0),
              5.0);
    const auto partly = ParseParametrizedBinaryFunction("x-y", "u", nullptr);
    EXPECT_EQ(Sorted(partly->CreateConstantIterator()), NameList{"x"});
    EXPECT_EQ(partly->GetFunction()->Evaluate(5.0, 2.0), -2.0);
}

TEST(ParseFormulaTest, ABuiltInNameWinsOverAVariable) {
    EXPECT_EQ(ParseFunctionFormula("pi", "pi")->Evaluate(7.0), 3.141592653589793);
    EXPECT_EQ(ParseFunctionFormula("sin+sin(0)", "sin")->Evaluate(7.0), 7.0);
}

TEST(ParseFormulaTest, NothingAndEmptinessAreInvalid) {
    ExpectForms({"", " ", "\t\r\n\f", "()", "(", ")", "1)", "(1", "((1)", ",", "1,2", "1+", "*1",
                 "1**2", "1 2", "a b"},
                kInNoForm);
    EXPECT_FALSE(ParseConstantFormula(nullptr));
    EXPECT_FALSE(ParseFunctionFormula(nullptr, "x"));
    EXPECT_FALSE(ParseParametrizedConstant(nullptr));
    EXPECT_FALSE(ParseParametrizedFunction(nullptr));
    EXPECT_FALSE(ParseParametrizedBinaryFunction(nullptr));
}

TEST(ParseFormulaTest, OpenNamesAreKeptByTheirUse) {
    const auto formula = ParseParametrizedFunction("b+a+foo*foo(x)+foo(1,2)-a+pi+min(1)+sin(c)");
    ASSERT_TRUE(formula);
    EXPECT_EQ(Sorted(formula->CreateConstantIterator()), (NameList{"a", "b", "c", "foo"}));
    EXPECT_EQ(Sorted(formula->CreateFunctionIterator()), (NameList{"foo", "min"}));
    EXPECT_EQ(Sorted(formula->CreateBinaryFunctionIterator()), NameList{"foo"});
}

TEST(ParseFormulaTest, ANewOpenNameIsZeroTheArgumentOrTheSum) {
    EXPECT_EQ(ParseParametrizedConstant("a")->GetFunction()->Evaluate(), 0.0);
    EXPECT_EQ(ParseParametrizedConstant("f(3)")->GetFunction()->Evaluate(), 3.0);
    EXPECT_EQ(ParseParametrizedConstant("f(3,4)")->GetFunction()->Evaluate(), 7.0);
}

TEST(ParseFormulaTest, ANameIsSetWhereverItStands) {
    const auto formula = ParseParametrizedBinaryFunction("a*x + a^2 + f(f(y)) + g(x, g(a, y))");
    ASSERT_TRUE(formula);
    const Math::TFunction<&FunctionsLibrary::Square> square;
    const Math::TBinaryFunction<&FunctionsLibrary::Product> product;
    EXPECT_TRUE(formula->SetConstant("a", 3.0));
    EXPECT_TRUE(formula->SetFunction("f", square));
    EXPECT_TRUE(formula->SetBinaryFunction("g", product));
    // 3*5 + 9 + (2^2)^2 + 5*(3*2)
    EXPECT_EQ(formula->GetFunction()->Evaluate(5.0, 2.0), 15.0 + 9.0 + 16.0 + 30.0);
    EXPECT_FALSE(formula->SetConstant("f", 1.0));
    EXPECT_FALSE(formula->SetFunction("a", square));
    EXPECT_FALSE(formula->SetBinaryFunction("f", product));
}

TEST(ParseFormulaTest, AParsedFormulaCanBeClonedWithItsNames) {
    const auto formula = ParseParametrizedConstant("a+f(2)");
    const std::unique_ptr<TParametrizedFunction<IConstant>> clone(formula->Clone());
    EXPECT_TRUE(clone->SetConstant("a", 40.0));
    EXPECT_EQ(clone->GetFunction()->Evaluate(), 42.0);
    EXPECT_EQ(formula->GetFunction()->Evaluate(), 2.0);
}

TEST(ParseFormulaTest, OperatorsBecomeCombinationsOfLibraryFunctions) {
    const auto constant = ParseConstantFormula("1<2");
    const auto* combination = dynamic_cast<const Math::CConstantsCombination*>(constant.get());
    ASSERT_TRUE(combination);
    EXPECT_STREQ(combination->GetCombineFunction()->GetType(),
                 Math::TBinaryFunction<&FunctionsLibrary::LowerThan>::kIdentifier);
    const auto function = ParseFunctionFormula("x+1");
    EXPECT_STREQ(function->GetType(), Math::CFunctionsCombination::kIdentifier);
    const auto surface = ParseParametrizedBinaryFunction("x+y");
    EXPECT_STREQ(surface->GetFunction()->GetType(), Math::CBinaryFunctionsCombination::kIdentifier);
    EXPECT_STREQ(ParseFunctionFormula("-x")->GetType(),
                 "{C6B18AB7-10C4-46c3-975E-91255060ECA9}"); // a composition
    EXPECT_STREQ(ParseConstantFormula("-1")->GetType(), "{83F37E7C-0ABF-4083-9F35-DD6310CC0951}");
}

} // namespace
} // namespace Vorin::AppEngine
