#pragma once

#include <memory>

struct ANTLR3_BASE_TREE_struct;

namespace Vorin::AppEngine {

/// What a node of a formula's tree is; the numbers of FormulaTokens.tokens.
enum EFormulaToken {
    kParamToken = 4, ///< a bare name, which is the text of its child
    kNegateToken = 5,
    kStringToken = 6,
    kOrToken = 7,
    kAndToken = 8,
    kEqualsToken = 9,
    kNotEqualsToken = 10,
    kLowerToken = 11,
    kLowerEqualToken = 12,
    kGreaterToken = 13,
    kGreaterEqualToken = 14,
    kPlusToken = 15,
    kMinusToken = 16,
    kMultToken = 17,
    kDivToken = 18,
    kModToken = 19,
    kPowToken = 20,
    kNotToken = 21,
    kIntegerToken = 22,
    kFloatToken = 23,
    kDateTimeToken = 24,
    kBooleanToken = 25,
    kIdentToken = 26, ///< a call: the name is the text, the children are the arguments
};

/// A node of a CFormulaTree, for as long as that lives and keeps its text.
class CFormulaNode {
public:
    explicit CFormulaNode(ANTLR3_BASE_TREE_struct& tree) : node(&tree) {}

    /// One of EFormulaToken, or any other number.
    int GetToken() const;
    /// The token as it stands in the formula; empty for a node that has no text.
    const char* GetText() const;
    int GetChildCount() const;
    /// 0 <= index < GetChildCount().
    CFormulaNode GetChild(int index) const;

private:
    ANTLR3_BASE_TREE_struct* node;
};

/// A formula as the generated parser reads it: operators over their operands, without parentheses.
/// One thread; each has its own objects.
///
/// What the lexer cannot read, it drops: 1+@2 is 1+2. Only what the parser then cannot read makes a
/// formula invalid. A token that breaks off, as "|" that is not followed by another one, goes
/// together with up to two characters behind it; a text or a date that is not closed goes whole.
class CFormulaTree {
public:
    CFormulaTree();
    ~CFormulaTree();
    CFormulaTree(const CFormulaTree&) = delete;
    CFormulaTree& operator=(const CFormulaTree&) = delete;

    /// False for an invalid formula, and for one beyond FormulaLimits. The text is not null; it is
    /// used for as long as the tree is.
    bool Parse(const char* text);

    /// The root, after Parse has been true.
    CFormulaNode GetRoot() const;

private:
    struct CParser;
    std::unique_ptr<CParser> parser;
};

} // namespace Vorin::AppEngine
