#include "SkinEngine/Formula/FormulaTree.h"

#include "SkinEngine/Formula/FormulaLimits.h"

#include <cstddef>
#include <cstring>

// Last: they define macros such as OR and GT.
#include <FormulaLexer.h>
#include <FormulaParser.h>

namespace Vorin::AppEngine {

static_assert(kParamToken == PARAM && kNegateToken == NEGATE && kIdentToken == IDENT,
              "the tree is read by the numbers that the parser was generated with");

namespace {

constexpr ANTLR3_UINT32 kExpectedTokens = 1025;

template <class T>
struct TFreeRecognizer {
    void operator()(T* object) const { object->free(object); }
};

struct CCloseInput {
    void operator()(ANTLR3_INPUT_STREAM* input) const { input->close(input); }
};

/// In place of the runtime's report, which goes to the standard error.
void KeepSilent(pANTLR3_BASE_RECOGNIZER, pANTLR3_UINT8*) {}

/// The same for the parser. One error is enough: nothing is left to read, so that the runtime does
/// not try to recover, in which it would lose count of parentheses.
void KeepSilentAndStop(pANTLR3_BASE_RECOGNIZER recognizer, pANTLR3_UINT8*) {
    pANTLR3_INT_STREAM tokens = static_cast<pANTLR3_PARSER>(recognizer->super)->tstream->istream;
    tokens->seek(tokens, tokens->size(tokens));
}

/// The tokens are counted, and not the characters, some of which the lexer drops.
bool IsWithinNesting(pANTLR3_COMMON_TOKEN_STREAM stream) {
    pANTLR3_VECTOR tokens = stream->getTokens(stream);
    int depth = 0;
    for (ANTLR3_UINT32 i = 0; i < tokens->count; ++i) {
        auto* token = static_cast<pANTLR3_COMMON_TOKEN>(tokens->get(tokens, i));
        const ANTLR3_UINT32 type = token->getType(token);
        depth += type == T__31 ? 1 : 0;
        depth -= type == T__32 && depth > 0 ? 1 : 0;
        if (depth > FormulaLimits::kNesting) {
            return false;
        }
    }
    return true;
}

} // namespace

/// The runtime's objects in the order in which each stands on the one before.
struct CFormulaTree::CParser {
    std::unique_ptr<ANTLR3_INPUT_STREAM, CCloseInput> input;
    std::unique_ptr<FormulaLexer, TFreeRecognizer<FormulaLexer>> lexer;
    std::unique_ptr<ANTLR3_COMMON_TOKEN_STREAM, TFreeRecognizer<ANTLR3_COMMON_TOKEN_STREAM>> tokens;
    std::unique_ptr<FormulaParser, TFreeRecognizer<FormulaParser>> parser;
    pANTLR3_BASE_TREE root = nullptr;

    /// False when there is no memory.
    bool Open(const char* text, std::size_t length) {
        // The runtime reads the text where it is, and does not write to it.
        auto* bytes = reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>(text));
        static char name[] = "formula";
        input.reset(antlr3StringStreamNew(bytes, ANTLR3_ENC_8BIT,
                                          static_cast<ANTLR3_UINT32>(length),
                                          reinterpret_cast<pANTLR3_UINT8>(name)));
        lexer.reset(input ? FormulaLexerNew(input.get()) : nullptr);
        if (!lexer) {
            return false;
        }
        lexer->pLexer->rec->displayRecognitionError = KeepSilent;
        tokens.reset(antlr3CommonTokenStreamSourceNew(kExpectedTokens, TOKENSOURCE(lexer)));
        parser.reset(tokens ? FormulaParserNew(tokens.get()) : nullptr);
        if (!parser) {
            return false;
        }
        parser->pParser->rec->displayRecognitionError = KeepSilentAndStop;
        return true;
    }

    bool Run() {
        root = parser->expression(parser.get()).tree;
        pANTLR3_BASE_RECOGNIZER recognizer = parser->pParser->rec;
        return recognizer->getNumberOfSyntaxErrors(recognizer) == 0 && root;
    }
};

CFormulaTree::CFormulaTree() = default;
CFormulaTree::~CFormulaTree() = default;

bool CFormulaTree::Parse(const char* text) {
    const std::size_t length = strnlen(text, FormulaLimits::kLength + 1);
    if (length > FormulaLimits::kLength) {
        return false;
    }
    parser = std::make_unique<CParser>();
    return parser->Open(text, length) && IsWithinNesting(parser->tokens.get()) && parser->Run();
}

CFormulaNode CFormulaTree::GetRoot() const { return CFormulaNode(*parser->root); }

int CFormulaNode::GetToken() const { return static_cast<int>(node->getType(node)); }

const char* CFormulaNode::GetText() const {
    pANTLR3_STRING text = node->getText(node);
    return text && text->chars ? reinterpret_cast<const char*>(text->chars) : "";
}

int CFormulaNode::GetChildCount() const { return static_cast<int>(node->getChildCount(node)); }

CFormulaNode CFormulaNode::GetChild(int index) const {
    return CFormulaNode(
        *static_cast<pANTLR3_BASE_TREE>(node->getChild(node, static_cast<ANTLR3_UINT32>(index))));
}

} // namespace Vorin::AppEngine
