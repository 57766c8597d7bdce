#pragma once

#include "SkinEngine/Formula/FormulaTree.h"
#include "math/ParametrizedFunction.h"

#include <memory>
#include <string>

namespace Vorin::AppEngine {

/// Makes a function of interface F out of the tree of a formula. What the operators mean is the
/// same for all kinds of function; what names mean is up to the derived class.
///
/// Each operation gives null where the formula is invalid. A builder serves one tree, on one
/// thread.
template <class F>
class TLocalFormulaBuilder {
public:
    TLocalFormulaBuilder() = default;
    TLocalFormulaBuilder(const TLocalFormulaBuilder&) = delete;
    TLocalFormulaBuilder& operator=(const TLocalFormulaBuilder&) = delete;
    virtual ~TLocalFormulaBuilder() = default;

    std::unique_ptr<F> Build(const CFormulaNode& node);

protected:
    /// A bare name.
    virtual std::unique_ptr<F> BuildParameter(const CFormulaNode& node) = 0;
    /// The function over what the only child is.
    virtual std::unique_ptr<F> BuildUnary(const CFormulaNode& node,
                                          std::unique_ptr<Math::IFunction> function) = 0;
    /// A name that is called with one argument.
    virtual std::unique_ptr<F> BuildCall1(const CFormulaNode& node) = 0;
    /// The same with two.
    virtual std::unique_ptr<F> BuildCall2(const CFormulaNode& node) = 0;

    /// The function over what both children are.
    std::unique_ptr<F> BuildBinary(const CFormulaNode& node,
                                   std::unique_ptr<Math::IBinaryFunction> function);

private:
    std::unique_ptr<F> BuildOperation(const CFormulaNode& node);

    int depth = 0; // operations above the one at hand
};

/// Knows the names that are built in, as a function of interface F sees them.
template <class F>
class TPlainFormulaBuilder : public TLocalFormulaBuilder<F> {
protected:
    std::unique_ptr<F> BuildParameter(const CFormulaNode& node) override;
    std::unique_ptr<F> BuildUnary(const CFormulaNode& node,
                                  std::unique_ptr<Math::IFunction> function) override;
    std::unique_ptr<F> BuildCall1(const CFormulaNode& node) override;
    std::unique_ptr<F> BuildCall2(const CFormulaNode& node) override;

    /// A bare name that is none of them.
    virtual std::unique_ptr<F> BuildVariable(const char* name) = 0;
};

/// A value, of no variable.
class CConstantFormulaBuilder : public TPlainFormulaBuilder<Math::IConstant> {
protected:
    std::unique_ptr<Math::IConstant> BuildVariable(const char* name) override;
};

/// A function of one variable. A null name stands for the default.
class CFunctionFormulaBuilder : public TPlainFormulaBuilder<Math::IFunction> {
public:
    explicit CFunctionFormulaBuilder(const char* variableName = nullptr);

protected:
    std::unique_ptr<Math::IFunction> BuildVariable(const char* name) override;

private:
    const std::string variable;
};

/// A function of two variables; of the same name, the first counts.
class CBinaryFunctionFormulaBuilder : public TPlainFormulaBuilder<Math::IBinaryFunction> {
public:
    explicit CBinaryFunctionFormulaBuilder(const char* xVariableName = nullptr,
                                           const char* yVariableName = nullptr);

protected:
    std::unique_ptr<Math::IBinaryFunction> BuildVariable(const char* name) override;

private:
    const std::string xVariable;
    const std::string yVariable;
};

/// The plain builder of an interface.
template <class F>
struct TPlainBuilder;
template <>
struct TPlainBuilder<Math::IConstant> {
    using Type = CConstantFormulaBuilder;
};
template <>
struct TPlainBuilder<Math::IFunction> {
    using Type = CFunctionFormulaBuilder;
};
template <>
struct TPlainBuilder<Math::IBinaryFunction> {
    using Type = CBinaryFunctionFormulaBuilder;
};

/// Makes names that the plain builder does not know into places of a parametrized function, one for
/// each time that a name stands in the formula. The places are registered while the tree is built;
/// it is for the caller to set it.
template <class F>
class TParametrizedFunctionFormulaBuilder : public TPlainBuilder<F>::Type {
    using Plain = typename TPlainBuilder<F>::Type;

public:
    /// The function, which is borrowed, and the names of variables that the plain builder takes.
    template <class... Variables>
    explicit TParametrizedFunctionFormulaBuilder(Math::TParametrizedFunction<F>& target,
                                                 Variables... variables)
        : Plain(variables...), function(target) {}

protected:
    std::unique_ptr<F> BuildParameter(const CFormulaNode& node) override;
    std::unique_ptr<F> BuildCall1(const CFormulaNode& node) override;
    std::unique_ptr<F> BuildCall2(const CFormulaNode& node) override;

private:
    Math::TParametrizedFunction<F>& function;
};

using CParametrizedFunctionFormulaBuilder = TParametrizedFunctionFormulaBuilder<Math::IFunction>;
using CParametrizedBinaryFunctionFormulaBuilder =
    TParametrizedFunctionFormulaBuilder<Math::IBinaryFunction>;

} // namespace Vorin::AppEngine
