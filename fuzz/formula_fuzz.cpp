// Any bytes as a formula. The forms have to agree on what is valid, and plain and open forms on the
// value.
#include "SkinEngine/Formula/ParseFormula.h"
#include "fuzz/Explore.h"
#include "math/LibraryFunction.h"

#include <bit>
#include <cmath>
#include <string>

namespace {

using namespace Vorin;
using namespace Vorin::AppEngine;

void RequireSame(double a, double b) {
    Fuzz::Require(std::isnan(a)
                      ? std::isnan(b)
                      : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b));
}

template <class F>
void SetNames(TParametrizedFunction<F>& formula) {
    using Names = Containers::IConstValueIterator<const char*>;
    for (const std::unique_ptr<Names> name(formula.CreateConstantIterator()); !name->IsAtEnd();
         name->Next()) {
        Fuzz::Require(formula.SetConstant(name->GetValue(), 0.5));
    }
    static const Math::TFunction<&Math::FunctionsLibrary::Square> square;
    for (const std::unique_ptr<Names> name(formula.CreateFunctionIterator()); !name->IsAtEnd();
         name->Next()) {
        Fuzz::Require(formula.SetFunction(name->GetValue(), square));
    }
    static const Math::TBinaryFunction<&Math::FunctionsLibrary::Average> average;
    for (const std::unique_ptr<Names> name(formula.CreateBinaryFunctionIterator());
         !name->IsAtEnd(); name->Next()) {
        Fuzz::Require(formula.SetBinaryFunction(name->GetValue(), average));
    }
}

/// Uses the formula as the model would, and a copy of it.
template <class F, class... Arguments>
void UseOpen(std::unique_ptr<TParametrizedFunction<F>> formula, Arguments... arguments) {
    if (!formula) {
        return;
    }
    SetNames(*formula);
    const double value = formula->GetFunction()->Evaluate(arguments...);
    const std::unique_ptr<TParametrizedFunction<F>> clone(formula->Clone());
    formula.reset();
    RequireSame(clone->GetFunction()->Evaluate(arguments...), value);
    SetNames(*clone);
}

/// Whether the open form is valid.
bool UseConstants(const char* text) {
    const auto plain = ParseConstantFormula(text);
    auto open = ParseParametrizedConstant(text);
    Fuzz::Require(!plain || open);
    if (plain) {
        RequireSame(plain->Evaluate(), open->GetFunction()->Evaluate());
    }
    const bool isValid = open != nullptr;
    UseOpen(std::move(open));
    return isValid;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const bool isValid = UseConstants(text.c_str());
    // Two forms more for each input would halve the inputs: they take turns.
    if (size % 2 == 0) {
        auto curve = ParseParametrizedFunction(text.c_str(), "t");
        Fuzz::Require((curve != nullptr) == isValid);
        UseOpen(std::move(curve), 0.25);
    } else {
        auto surface = ParseParametrizedBinaryFunction(text.c_str());
        Fuzz::Require((surface != nullptr) == isValid);
        UseOpen(std::move(surface), 0.25, -3.0);
    }
    return 0;
}
