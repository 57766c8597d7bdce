// How a text is taken apart, above all one that is not quite right.

#include "SkinEngine/Formula/FormulaTree.h"

#include "SkinEngine/Formula/FormulaTestTools.h"

#include <gtest/gtest.h>

#include <utility>

namespace Vorin::AppEngine {
namespace {

std::string Show(const CFormulaNode& node) {
    std::string text = node.GetToken() == kParamToken    ? "PARAM"
                       : node.GetToken() == kNegateToken ? "NEGATE"
                                                         : node.GetText();
    for (int i = 0; i < node.GetChildCount(); ++i) {
        text += (i == 0 ? "(" : " ") + Show(node.GetChild(i));
    }
    return node.GetChildCount() > 0 ? text + ")" : text;
}

/// The tree with each node before its children in parentheses; empty for an invalid formula.
std::string Tree(const std::string& text) {
    CFormulaTree tree;
    return tree.Parse(text.c_str()) ? Show(tree.GetRoot()) : "";
}

using Cases = std::vector<std::pair<std::string, std::string>>;

void ExpectTrees(const Cases& cases) {
    for (const auto& [text, tree] : cases) {
        EXPECT_EQ(Tree(text), tree) << ::testing::PrintToString(text);
    }
}

TEST(FormulaTreeTest, OperatorsAreTheRootsOfTheirOperands) {
    ExpectTrees({{"1+2*3", "+(1 *(2 3))"},
                 {"(1+2)*3", "*(+(1 2) 3)"},
                 {"1-2-3", "-(-(1 2) 3)"},
                 {"-2^2", "^(NEGATE(2) 2)"},
                 {"not 1 or !0", "or(not(1) !(0))"},
                 {"10%3", "%(10 3)"},
                 {"((((1))))", "1"}});
}

TEST(FormulaTreeTest, NamesAreParametersOrCalls) {
    ExpectTrees({{"a", "PARAM(a)"},
                 {"f(a)", "f(PARAM(a))"},
                 {"f()", "f"},
                 {"f(1,2,3)", "f(1 2 3)"},
                 {"dsp.input0+$x", "+(PARAM(dsp.input0) PARAM($x))"}});
}

TEST(FormulaTreeTest, TextsAndDatesAreLeaves) {
    ExpectTrees({{"'a b'", "'a b'"},
                 {"'\\'\\\\\\n\\r\\t\\u00Ef'", "'\\'\\\\\\n\\r\\t\\u00Ef'"},
                 {"#2010-01-01 '(#", "#2010-01-01 '(#"},
                 {"#\n#", "#\n#"},
                 {"'\x80\xff'", "'\x80\xff'"}});
}

TEST(FormulaTreeTest, CharactersThatBeginNothingAreDropped) {
    ExpectTrees({{"1+@2", "+(1 2)"},
                 {"@", ""},
                 {"@@@@1~~~", "1"},
                 {"1;", "1"},
                 {"{1}+[2]", "+(1 2)"},
                 {"\x01\x7f\x80\xc3\xa4\xff"
                  "1",
                  "1"},
                 {"a\x01"
                  "b",
                  ""},
                 {"a?", "PARAM(a)"},
                 {"\\1", "1"},
                 {"1 \v + 2", "+(1 2)"}});
}

TEST(FormulaTreeTest, ASignThatBreaksOffGoesWithTheNextTwoCharacters) {
    ExpectTrees({{"1|+2", "1"},
                 {"1|", "1"},
                 {"1|2", "1"},
                 {"1|23", "1"},
                 {"1|234", ""},
                 {"1&  ||2", "||(1 2)"},
                 {"1|||2", ""},
                 {"1|||  2", "||(1 2)"}});
}

TEST(FormulaTreeTest, ANumberThatEndsInAPointGoesWithTheNextCharacter) {
    ExpectTrees({{"1.", ""}, {"1.+2", "2"}, {"2 1.", "2"}, {"1..5", "5"}, {"1+.+2", "+(1 2)"}});
}

TEST(FormulaTreeTest, ATextOrDateThatIsNotClosedGoesWhole) {
    ExpectTrees({{"1+2'abc*4", "+(1 2)"},
                 {"1+2'", "+(1 2)"},
                 {"1+2#abc", "+(1 2)"},
                 {"'a", ""},
                 {"#", ""},
                 {"1+2'a\\", "+(1 2)"}});
}

TEST(FormulaTreeTest, ATextThatBreaksOffGoesUpToThere) {
    ExpectTrees({{"1'a\n;+2", "+(1 2)"},      // a line break, and the character behind it
                 {"1'a\\q+2", "+(1 2)"},      // an unknown escape
                 {"1'\\u12-;+2", "+(1 2)"}}); // an escape with too few digits, and one more
}

TEST(FormulaTreeTest, NothingIsPrinted) {
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    for (const char* text : {"1+@2", "1|+2", "--1", "(", "f(1", "'a", "#", "", "1 2", "or", "%%",
                             "f(,)", "1+*2)", "\xff\xfe"}) {
        Tree(text);
        Testing::ValidForms(text);
    }
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(FormulaTreeTest, CanBeParsedIntoAgain) {
    CFormulaTree tree;
    EXPECT_TRUE(tree.Parse("1+2"));
    EXPECT_FALSE(tree.Parse("1+"));
    EXPECT_TRUE(tree.Parse("a"));
    EXPECT_EQ(Show(tree.GetRoot()), "PARAM(a)");
}

} // namespace
} // namespace Vorin::AppEngine
