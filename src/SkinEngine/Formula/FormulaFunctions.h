#pragma once

#include "math/Function.h"

#include <memory>

namespace Vorin::AppEngine {

/// The names that formulas have built in. All are new objects of the function library; null for a
/// name that is none.
struct FormulaFunctions {
    /// What a name that is called with one argument stands for.
    static std::unique_ptr<Math::IFunction> Make(const char* name);
    /// The same for two arguments.
    static std::unique_ptr<Math::IBinaryFunction> MakeBinary(const char* name);
    /// What the operator of an EFormulaToken does with its two operands.
    static std::unique_ptr<Math::IBinaryFunction> MakeOperator(int token);

    static bool IsPi(const char* name);
    static constexpr double kPi = 3.141592653589793;
};

} // namespace Vorin::AppEngine
