#pragma once

#include "SkinEngine/Formula/FormulaLimits.h"
#include "math/Function.h"
#include "math/ParametrizedFunction.h"

#include <memory>

namespace Vorin::AppEngine {

/// Formulas of skins: a text is parsed once into a tree of function objects, and evaluated as such.
///
/// The five forms differ in what a formula is a function of, and in whether it may have open names.
/// Each gives null for a null text, for an invalid formula, and for one beyond FormulaLimits;
/// whoever calls words the error. A null variable stands for the default name, "x" or "y". Nothing
/// is kept of the text. Locales play no part, and nothing is printed. [any]
///
/// In the parametrized forms a name that is not built in is open: bare it stands for a constant,
/// called with one argument for a function, with two for a binary function. Until something is set
/// there, these are 0, the identity, and the sum of both.
using Math::TParametrizedFunction;

/// A fixed value, without open names: 2*pi.
std::unique_ptr<Math::IConstant> ParseConstantFormula(const char* text);

/// A curve over its variable, without open names: sin(2*pi*x).
std::unique_ptr<Math::IFunction> ParseFunctionFormula(const char* text,
                                                      const char* variable = nullptr);

/// A value of open names: gain*2.
std::unique_ptr<TParametrizedFunction<Math::IConstant>> ParseParametrizedConstant(const char* text);

/// A curve over its variable and of open names: gain*wave(x).
std::unique_ptr<TParametrizedFunction<Math::IFunction>>
ParseParametrizedFunction(const char* text, const char* variable = nullptr);

/// A surface over its variables and of open names: gain*wave(x)*y.
std::unique_ptr<TParametrizedFunction<Math::IBinaryFunction>>
ParseParametrizedBinaryFunction(const char* text, const char* xVariable = nullptr,
                                const char* yVariable = nullptr);

} // namespace Vorin::AppEngine
