#include "SkinEngine/Formula/FormulaFunctions.h"

#include "SkinEngine/Formula/FormulaTree.h"
#include "math/LibraryFunction.h"

#include <cstring>

namespace Vorin::AppEngine {

namespace {

using Math::FunctionsLibrary;
using Math::IBinaryFunction;
using Math::IFunction;

template <double (*F)(double)>
std::unique_ptr<IFunction> MakeLibraryFunction() {
    return std::make_unique<Math::TFunction<F>>();
}

template <double (*F)(double, double)>
std::unique_ptr<IBinaryFunction> MakeLibraryBinaryFunction() {
    return std::make_unique<Math::TBinaryFunction<F>>();
}

struct CNamedFunction {
    const char* name;
    std::unique_ptr<IFunction> (*make)();
};

constexpr CNamedFunction kNamedFunctions[] = {
    {"exp", MakeLibraryFunction<&FunctionsLibrary::Exp>},
    {"log", MakeLibraryFunction<&FunctionsLibrary::Log>},
    {"cosh", MakeLibraryFunction<&FunctionsLibrary::Cosh>},
    {"sinh", MakeLibraryFunction<&FunctionsLibrary::Sinh>},
    {"tanh", MakeLibraryFunction<&FunctionsLibrary::Tanh>},
    {"sqrt", MakeLibraryFunction<&FunctionsLibrary::SquareRoot>},
    {"cos", MakeLibraryFunction<&FunctionsLibrary::Cos>},
    {"sin", MakeLibraryFunction<&FunctionsLibrary::Sin>},
    {"tan", MakeLibraryFunction<&FunctionsLibrary::Tan>},
    {"floor", MakeLibraryFunction<&FunctionsLibrary::Floor>},
    {"ceil", MakeLibraryFunction<&FunctionsLibrary::Ceil>},
    {"round", MakeLibraryFunction<&FunctionsLibrary::Round>},
    {"abs", MakeLibraryFunction<&FunctionsLibrary::Abs>},
};

struct CNamedBinaryFunction {
    const char* name;
    std::unique_ptr<IBinaryFunction> (*make)();
};

constexpr CNamedBinaryFunction kNamedBinaryFunctions[] = {
    {"min", MakeLibraryBinaryFunction<&FunctionsLibrary::Min>},
    {"max", MakeLibraryBinaryFunction<&FunctionsLibrary::Max>},
};

struct COperator {
    EFormulaToken token;
    std::unique_ptr<IBinaryFunction> (*make)();
};

// The parser reads kModToken too, but there is no such function.
constexpr COperator kOperators[] = {
    {kOrToken, MakeLibraryBinaryFunction<&FunctionsLibrary::Or>},
    {kAndToken, MakeLibraryBinaryFunction<&FunctionsLibrary::And>},
    {kEqualsToken, MakeLibraryBinaryFunction<&FunctionsLibrary::Equality>},
    {kNotEqualsToken, MakeLibraryBinaryFunction<&FunctionsLibrary::NotEqual>},
    {kLowerToken, MakeLibraryBinaryFunction<&FunctionsLibrary::LowerThan>},
    {kLowerEqualToken, MakeLibraryBinaryFunction<&FunctionsLibrary::LowerThanEqual>},
    {kGreaterToken, MakeLibraryBinaryFunction<&FunctionsLibrary::GreaterThan>},
    {kGreaterEqualToken, MakeLibraryBinaryFunction<&FunctionsLibrary::GreaterThanEqual>},
    {kPlusToken, MakeLibraryBinaryFunction<&FunctionsLibrary::Sum>},
    {kMinusToken, MakeLibraryBinaryFunction<&FunctionsLibrary::Difference>},
    {kMultToken, MakeLibraryBinaryFunction<&FunctionsLibrary::Product>},
    {kDivToken, MakeLibraryBinaryFunction<&FunctionsLibrary::Division>},
    {kPowToken, MakeLibraryBinaryFunction<&FunctionsLibrary::Power>},
};

} // namespace

std::unique_ptr<IFunction> FormulaFunctions::Make(const char* name) {
    for (const CNamedFunction& function : kNamedFunctions) {
        if (std::strcmp(function.name, name) == 0) {
            return function.make();
        }
    }
    return nullptr;
}

std::unique_ptr<IBinaryFunction> FormulaFunctions::MakeBinary(const char* name) {
    for (const CNamedBinaryFunction& function : kNamedBinaryFunctions) {
        if (std::strcmp(function.name, name) == 0) {
            return function.make();
        }
    }
    return nullptr;
}

std::unique_ptr<IBinaryFunction> FormulaFunctions::MakeOperator(int token) {
    for (const COperator& candidate : kOperators) {
        if (candidate.token == token) {
            return candidate.make();
        }
    }
    return nullptr;
}

bool FormulaFunctions::IsPi(const char* name) { return std::strcmp(name, "pi") == 0; }

} // namespace Vorin::AppEngine
