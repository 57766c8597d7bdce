#include "SkinEngine/Formula/ParseFormula.h"

#include "SkinEngine/Formula/FormulaBuilders.h"

namespace Vorin::AppEngine {

namespace {

template <class F>
std::unique_ptr<F> ParseWith(const char* text, TLocalFormulaBuilder<F>& builder) {
    CFormulaTree tree;
    return text && tree.Parse(text) ? builder.Build(tree.GetRoot()) : nullptr;
}

template <class F, class... Variables>
std::unique_ptr<TParametrizedFunction<F>> ParseParametrized(const char* text,
                                                            Variables... variables) {
    auto function = std::make_unique<TParametrizedFunction<F>>();
    TParametrizedFunctionFormulaBuilder<F> builder(*function, variables...);
    std::unique_ptr<F> root = ParseWith<F>(text, builder);
    if (!root) {
        return nullptr;
    }
    function->SetFunction(root.release());
    return function;
}

} // namespace

std::unique_ptr<Math::IConstant> ParseConstantFormula(const char* text) {
    CConstantFormulaBuilder builder;
    return ParseWith<Math::IConstant>(text, builder);
}

std::unique_ptr<Math::IFunction> ParseFunctionFormula(const char* text, const char* variable) {
    CFunctionFormulaBuilder builder(variable);
    return ParseWith<Math::IFunction>(text, builder);
}

std::unique_ptr<TParametrizedFunction<Math::IConstant>>
ParseParametrizedConstant(const char* text) {
    return ParseParametrized<Math::IConstant>(text);
}

std::unique_ptr<TParametrizedFunction<Math::IFunction>>
ParseParametrizedFunction(const char* text, const char* variable) {
    return ParseParametrized<Math::IFunction>(text, variable);
}

std::unique_ptr<TParametrizedFunction<Math::IBinaryFunction>>
ParseParametrizedBinaryFunction(const char* text, const char* xVariable, const char* yVariable) {
    return ParseParametrized<Math::IBinaryFunction>(text, xVariable, yVariable);
}

} // namespace Vorin::AppEngine
