// Formulas that are long, deep, or made to do harm.

#include "SkinEngine/Formula/FormulaLimits.h"

#include "SkinEngine/Formula/FormulaTestTools.h"
#include "math/FunctionTreeWalk.h"

#include <gtest/gtest.h>

#include <limits>

namespace Vorin::AppEngine {
namespace {

using Testing::kInAllForms;
using Testing::kInNoForm;
using Testing::kInOpenForms;
using Testing::Repeat;
using Testing::ValidForms;
using Testing::Value;

constexpr int kLength = FormulaLimits::kLength;
constexpr int kNesting = FormulaLimits::kNesting;
constexpr int kDepth = FormulaLimits::kDepth;

std::string Nested(const std::string& opening, int levels) {
    return Repeat(opening, levels) + "1" + Repeat(")", levels);
}

TEST(FormulaLimitsTest, AreThoseThatAuthorsAreTold) {
    EXPECT_EQ(kLength, 65536);
    EXPECT_EQ(kNesting, 128);
    EXPECT_EQ(kDepth, 1024);
}

TEST(FormulaLimitsTest, AFormulaOf64KilobytesIsReadAndALongerOneIsNot) {
    EXPECT_EQ(Value(std::string(kLength - 1, ' ') + "7"), 7.0);
    EXPECT_FALSE(Value(std::string(kLength, ' ') + "7"));
    EXPECT_EQ(ValidForms("7" + std::string(1U << 24U, ' ')), kInNoForm);
}

TEST(FormulaLimitsTest, ASingleTokenMayBeThatLongToo) {
    EXPECT_EQ(Value(std::string(kLength, '9')), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Value("." + std::string(kLength - 1, '0')), 0.0);
    const std::string name(kLength, 'a');
    EXPECT_EQ(ValidForms(name), kInOpenForms);
    EXPECT_EQ(Testing::Sorted(ParseParametrizedConstant(name.c_str())->CreateConstantIterator()),
              std::vector<std::string>{name});
    EXPECT_EQ(ValidForms("'" + std::string(kLength - 2, 'a') + "'"), kInNoForm);
    EXPECT_EQ(ValidForms("#" + std::string(kLength - 2, 'a') + "#"), kInNoForm);
}

TEST(FormulaLimitsTest, ParenthesesNest128Deep) {
    EXPECT_EQ(ValidForms(Nested("(", kNesting)), kInAllForms);
    EXPECT_EQ(ValidForms(Nested("(", kNesting + 1)), kInNoForm);
    EXPECT_EQ(ValidForms(Nested("(", 1000)), kInNoForm);
    EXPECT_EQ(Value(Nested("-(", kNesting)), 1.0);
    EXPECT_EQ(ValidForms(Nested("-(", kNesting + 1)), kInNoForm);
    EXPECT_EQ(ValidForms(Nested("abs(", kNesting)), kInAllForms);
    EXPECT_EQ(ValidForms(Nested("abs(", kNesting + 1)), kInNoForm);
    EXPECT_EQ(ValidForms(Nested("f(", kNesting)), kInOpenForms);
    EXPECT_EQ(ValidForms(Nested("f(", kNesting + 1)), kInNoForm);
}

TEST(FormulaLimitsTest, ParenthesesSideBySideDoNotNest) {
    EXPECT_EQ(Value(Repeat("(1)+", 1000) + "1"), 1001.0);
    EXPECT_EQ(Value(Repeat("abs(1)+", 1000) + "(1)"), 1001.0);
}

TEST(FormulaLimitsTest, ParenthesesThatAreDroppedDoNotCount) {
    // Each ")" goes with the broken sign before it: to the parser these are all open.
    EXPECT_EQ(ValidForms(Repeat("(|))", 16000)), kInNoForm);
    EXPECT_EQ(ValidForms(Repeat("f(')\x01\x01", 10000)), kInNoForm);
    EXPECT_EQ(ValidForms(Repeat("(|))", kNesting) + "1" + Repeat(")", kNesting)), kInAllForms);
    EXPECT_EQ(ValidForms(Repeat("(|))", kNesting + 1) + "1" + Repeat(")", kNesting + 1)),
              kInNoForm);
    // Those in a text do not count either.
    EXPECT_EQ(ValidForms("'" + std::string(1000, '(') + "'"), kInNoForm);
}

TEST(FormulaLimitsTest, AChainHasUpTo1024Operators) {
    for (const char* sign : {"+", "-", "*", "/", "^", "=", "<", " or ", " and "}) {
        EXPECT_EQ(ValidForms(Repeat("1" + std::string(sign), kDepth) + "1"), kInAllForms) << sign;
        EXPECT_EQ(ValidForms(Repeat("1" + std::string(sign), kDepth + 1) + "1"), kInNoForm) << sign;
    }
    EXPECT_EQ(Value(Repeat("1+", kDepth) + "1"), 1025.0);
}

TEST(FormulaLimitsTest, AChainThatFillsTheTextIsRefused) {
    EXPECT_EQ(ValidForms(Repeat("1+", kLength / 2 - 1) + "1"), kInNoForm);
    EXPECT_EQ(ValidForms(Repeat("a*", kLength / 2 - 1) + "a"), kInNoForm);
    EXPECT_EQ(ValidForms("f(" + Repeat("1,", kLength / 2 - 3) + "1)"), kInNoForm);
}

TEST(FormulaLimitsTest, TheDeepestFormulaCanBeUsedAsAnyOther) {
    const auto formula = ParseParametrizedFunction((Repeat("a+", kDepth) + "x").c_str());
    ASSERT_TRUE(formula);
    EXPECT_TRUE(formula->SetConstant("a", 2.0));
    EXPECT_EQ(formula->GetFunction()->Evaluate(1.0), 2049.0);
    const std::unique_ptr<TParametrizedFunction<Math::IFunction>> clone(formula->Clone());
    EXPECT_TRUE(clone->SetConstant("a", 3.0));
    EXPECT_EQ(clone->GetFunction()->Evaluate(1.0), 3073.0);
    EXPECT_EQ(formula->GetFunction()->Evaluate(1.0), 2049.0);
}

using DeepFormulas = std::vector<std::unique_ptr<TParametrizedFunction<Math::IFunction>>>;

/// So many formulas, each as deep as can be, that read the one before where they are deepest.
DeepFormulas MakeDeepFormulas(int count) {
    const std::string text = "f(x)" + Repeat("*1", kDepth - 1);
    DeepFormulas formulas;
    for (int i = 0; i < count; ++i) {
        formulas.push_back(ParseParametrizedFunction(text.c_str()));
        if (i > 0) {
            formulas.back()->SetFunction("f",
                                         *formulas[static_cast<std::size_t>(i) - 1]->GetFunction());
        }
    }
    return formulas;
}

TEST(FormulaLimitsTest, DeepFormulasCanReadEachOther) {
    const DeepFormulas formulas = MakeDeepFormulas(4);
    EXPECT_EQ(formulas.back()->GetFunction()->Evaluate(7.0), 7.0);
    const std::unique_ptr<Math::IFunction> clone(formulas.back()->GetFunction()->Clone());
    EXPECT_EQ(clone->Evaluate(7.0), 7.0);
}

TEST(FormulaLimitsTest, SoManyDeepFormulasThatNoStackIsLargeEnoughAreCutShort) {
    // As many as may read through each other. Where it is cut depends on how much each level takes.
    const DeepFormulas formulas = MakeDeepFormulas(64);
    const Math::IFunction& deepest = *formulas.back()->GetFunction();
    const double value = deepest.Evaluate(7.0);
    EXPECT_TRUE(value == 7.0 || value == 0.0) << value;
    const std::unique_ptr<Math::IFunction> clone(deepest.Clone());
    EXPECT_NE(clone, nullptr);
    int parts = 0;
    Math::WalkFunctionTree(deepest, [&parts](const Serialization::ISerialize&) {
        ++parts;
        return true;
    });
    EXPECT_GT(parts, kDepth);
}

TEST(FormulaLimitsTest, RowsOfTheSameCharacterEndWell) {
    for (int code = 1; code < 256; ++code) {
        const std::string row(kLength, static_cast<char>(code));
        const bool isName = code == '$' || code == '_' || (code >= 'a' && code <= 'z') ||
                            (code >= 'A' && code <= 'Z');
        const bool isNumber = code >= '0' && code <= '9';
        EXPECT_EQ(ParseParametrizedConstant(row.c_str()) != nullptr, isName || isNumber) << code;
    }
}

TEST(FormulaLimitsTest, WhatIsBehindAZeroByteIsNotRead) {
    const std::string text = std::string("1+2\0*nonsense(", 14);
    EXPECT_EQ(Value(text.c_str()), 3.0);
}

} // namespace
} // namespace Vorin::AppEngine
