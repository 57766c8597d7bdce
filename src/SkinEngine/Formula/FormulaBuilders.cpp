#include "SkinEngine/Formula/FormulaBuilders.h"

#include "SkinEngine/Formula/FormulaFunctions.h"
#include "SkinEngine/Formula/FormulaLimits.h"
#include "math/FunctionsCombination.h"
#include "math/FunctionsComposition.h"

#include <cstdlib>
#include <cstring>
#include <locale.h>

namespace Vorin::AppEngine {

namespace {

using Math::FunctionsLibrary;
using Math::IBinaryFunction;
using Math::IConstant;
using Math::IFunction;

template <class F>
using FormulaConstant = typename Math::TConstantPlaceholder<F>::Type;

template <class F>
struct TCombination;
template <>
struct TCombination<IConstant> {
    using Type = Math::CConstantsCombination;
};
template <>
struct TCombination<IFunction> {
    using Type = Math::CFunctionsCombination;
};
template <>
struct TCombination<IBinaryFunction> {
    using Type = Math::CBinaryFunctionsCombination;
};

std::unique_ptr<IConstant> Compose(std::unique_ptr<IConstant> inner,
                                   std::unique_ptr<IFunction> outer) {
    auto composition = std::make_unique<Math::CConstantComposition>();
    composition->SetConstFunction(inner.release(), Core::kOwn);
    composition->SetFunction(outer.release(), Core::kOwn);
    return composition;
}

std::unique_ptr<IFunction> Compose(std::unique_ptr<IFunction> inner,
                                   std::unique_ptr<IFunction> outer) {
    auto composition = std::make_unique<Math::CFunctionsComposition>();
    composition->SetCount(2);
    composition->SetFunction(0, inner.release(), Core::kOwn);
    composition->SetFunction(1, outer.release(), Core::kOwn);
    return composition;
}

std::unique_ptr<IBinaryFunction> Compose(std::unique_ptr<IBinaryFunction> inner,
                                         std::unique_ptr<IFunction> outer) {
    auto composition = std::make_unique<Math::CBinaryFunctionComposition>();
    composition->SetBinaryFunction(inner.release(), Core::kOwn);
    composition->SetFunction(outer.release(), Core::kOwn);
    return composition;
}

/// The locale of the thread plays no part. A number beyond what a double holds is infinite.
double ReadNumber(const char* digits) {
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(digits, nullptr, classic);
}

} // namespace

template <class F>
std::unique_ptr<F> TLocalFormulaBuilder<F>::Build(const CFormulaNode& node) {
    switch (node.GetToken()) {
    case kParamToken:
        return BuildParameter(node);
    case kIntegerToken:
    case kFloatToken:
        return std::make_unique<FormulaConstant<F>>(ReadNumber(node.GetText()));
    case kBooleanToken:
        return std::make_unique<FormulaConstant<F>>(std::strcmp(node.GetText(), "true") == 0 ? 1.0
                                                                                             : 0.0);
    default:
        break;
    }
    if (depth == FormulaLimits::kDepth) {
        return nullptr;
    }
    ++depth;
    std::unique_ptr<F> built = BuildOperation(node);
    --depth;
    return built;
}

template <class F>
std::unique_ptr<F> TLocalFormulaBuilder<F>::BuildOperation(const CFormulaNode& node) {
    switch (node.GetToken()) {
    case kNegateToken:
        return BuildUnary(node, std::make_unique<Math::TFunction<&FunctionsLibrary::Negate>>());
    case kNotToken:
        return BuildUnary(node, std::make_unique<Math::TFunction<&FunctionsLibrary::Not>>());
    case kIdentToken:
        switch (node.GetChildCount()) {
        case 1:
            return BuildCall1(node);
        case 2:
            return BuildCall2(node);
        default:
            return nullptr;
        }
    default:
        // Texts, dates and the remainder are read by the parser, and nothing comes of them.
        return BuildBinary(node, FormulaFunctions::MakeOperator(node.GetToken()));
    }
}

template <class F>
std::unique_ptr<F> TLocalFormulaBuilder<F>::BuildBinary(const CFormulaNode& node,
                                                        std::unique_ptr<IBinaryFunction> function) {
    if (!function || node.GetChildCount() != 2) {
        return nullptr;
    }
    std::unique_ptr<F> first = Build(node.GetChild(0));
    if (!first) {
        return nullptr;
    }
    std::unique_ptr<F> second = Build(node.GetChild(1));
    if (!second) {
        return nullptr;
    }
    auto combination = std::make_unique<typename TCombination<F>::Type>();
    combination->SetFunc1(first.release(), Core::kOwn);
    combination->SetFunc2(second.release(), Core::kOwn);
    combination->SetCombineFunction(function.release(), Core::kOwn);
    return combination;
}

template <class F>
std::unique_ptr<F> TPlainFormulaBuilder<F>::BuildParameter(const CFormulaNode& node) {
    if (node.GetChildCount() != 1) {
        return nullptr;
    }
    const CFormulaNode child = node.GetChild(0);
    const char* name = child.GetText();
    if (FormulaFunctions::IsPi(name)) {
        return std::make_unique<FormulaConstant<F>>(FormulaFunctions::kPi);
    }
    return BuildVariable(name);
}

template <class F>
std::unique_ptr<F> TPlainFormulaBuilder<F>::BuildUnary(const CFormulaNode& node,
                                                       std::unique_ptr<IFunction> function) {
    if (!function || node.GetChildCount() != 1) {
        return nullptr;
    }
    std::unique_ptr<F> operand = this->Build(node.GetChild(0));
    return operand ? Compose(std::move(operand), std::move(function)) : nullptr;
}

template <class F>
std::unique_ptr<F> TPlainFormulaBuilder<F>::BuildCall1(const CFormulaNode& node) {
    return BuildUnary(node, FormulaFunctions::Make(node.GetText()));
}

template <class F>
std::unique_ptr<F> TPlainFormulaBuilder<F>::BuildCall2(const CFormulaNode& node) {
    return this->BuildBinary(node, FormulaFunctions::MakeBinary(node.GetText()));
}

std::unique_ptr<IConstant> CConstantFormulaBuilder::BuildVariable(const char*) { return nullptr; }

CFunctionFormulaBuilder::CFunctionFormulaBuilder(const char* variableName)
    : variable(variableName ? variableName : "x") {}

std::unique_ptr<IFunction> CFunctionFormulaBuilder::BuildVariable(const char* name) {
    if (variable != name) {
        return nullptr;
    }
    return std::make_unique<Math::TFunction<&FunctionsLibrary::Identity>>();
}

CBinaryFunctionFormulaBuilder::CBinaryFunctionFormulaBuilder(const char* xVariableName,
                                                             const char* yVariableName)
    : xVariable(xVariableName ? xVariableName : "x"),
      yVariable(yVariableName ? yVariableName : "y") {}

std::unique_ptr<IBinaryFunction> CBinaryFunctionFormulaBuilder::BuildVariable(const char* name) {
    if (xVariable == name) {
        return std::make_unique<Math::TBinaryFunction<&FunctionsLibrary::X>>();
    }
    if (yVariable == name) {
        return std::make_unique<Math::TBinaryFunction<&FunctionsLibrary::Y>>();
    }
    return nullptr;
}

template <class F>
std::unique_ptr<F>
TParametrizedFunctionFormulaBuilder<F>::BuildParameter(const CFormulaNode& node) {
    std::unique_ptr<F> known = Plain::BuildParameter(node);
    if (known || node.GetChildCount() != 1) {
        return known;
    }
    auto place = std::make_unique<FormulaConstant<F>>(0.0);
    const CFormulaNode child = node.GetChild(0);
    if (!function.AddConstant(child.GetText(), place.get())) {
        return nullptr;
    }
    return place;
}

// Whether a name is known is asked before the arguments are built: to build them first, and again
// when it is not, would take twice the time for each level of calls, and leave places behind.

template <class F>
std::unique_ptr<F> TParametrizedFunctionFormulaBuilder<F>::BuildCall1(const CFormulaNode& node) {
    const char* name = node.GetText();
    if (auto known = FormulaFunctions::Make(name)) {
        return this->BuildUnary(node, std::move(known));
    }
    auto proxy = std::make_unique<Math::CFunctionProxy>();
    Math::CFunctionProxy* place = proxy.get();
    std::unique_ptr<F> built = this->BuildUnary(node, std::move(proxy));
    return built && function.AddFunction(name, place) ? std::move(built) : nullptr;
}

template <class F>
std::unique_ptr<F> TParametrizedFunctionFormulaBuilder<F>::BuildCall2(const CFormulaNode& node) {
    const char* name = node.GetText();
    if (auto known = FormulaFunctions::MakeBinary(name)) {
        return this->BuildBinary(node, std::move(known));
    }
    auto proxy = std::make_unique<Math::CBinaryFunctionProxy>();
    Math::CBinaryFunctionProxy* place = proxy.get();
    std::unique_ptr<F> built = this->BuildBinary(node, std::move(proxy));
    return built && function.AddBinaryFunction(name, place) ? std::move(built) : nullptr;
}

template class TLocalFormulaBuilder<IConstant>;
template class TLocalFormulaBuilder<IFunction>;
template class TLocalFormulaBuilder<IBinaryFunction>;
template class TPlainFormulaBuilder<IConstant>;
template class TPlainFormulaBuilder<IFunction>;
template class TPlainFormulaBuilder<IBinaryFunction>;
template class TParametrizedFunctionFormulaBuilder<IConstant>;
template class TParametrizedFunctionFormulaBuilder<IFunction>;
template class TParametrizedFunctionFormulaBuilder<IBinaryFunction>;

} // namespace Vorin::AppEngine
