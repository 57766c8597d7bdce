// Formulas by chance, in all forms, against a plain evaluator.

#include "SkinEngine/Formula/ParseFormula.h"
#include "SkinEngine/Formula/PlainFormula.h"
#include "SkinEngine/Formula/RandomFormula.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <set>
#include <thread>

namespace Vorin::AppEngine {
namespace {

using Math::FunctionsLibrary;
using Math::IBinaryFunction;
using Math::IConstant;
using Math::IFunction;
using Testing::CPlainNames;
using Testing::EvaluatePlainly;
using Names = std::set<std::string>;

constexpr double kX = 0.7;
constexpr double kY = -1.25;

/// What stands at open names, which depends on the name alone.
double ConstantOf(const std::string& name) {
    return static_cast<double>(name.size()) * 0.3 - static_cast<double>(name.front() % 7);
}
bool IsSecondKind(const std::string& name) { return name.size() % 2 == 0; }

const Math::TFunction<&FunctionsLibrary::Square> kSquare;
const Math::TFunction<&FunctionsLibrary::TodB> kToDecibels;
const Math::TBinaryFunction<&FunctionsLibrary::Distance> kDistance;
const Math::TBinaryFunction<&FunctionsLibrary::Average> kAverage;

struct CFoundNames {
    Names constants;
    Names functions;
    Names binaryFunctions;
    bool operator==(const CFoundNames&) const = default;
};

/// The names of a plain form: variables, and nothing else.
CPlainNames PlainNames(const std::map<std::string, double>& variables) {
    return {[variables](const std::string& name) {
                const auto found = variables.find(name);
                return found != variables.end() ? std::optional(found->second) : std::nullopt;
            },
            [](const std::string&, double) { return std::optional<double>(); },
            [](const std::string&, double, double) { return std::optional<double>(); }};
}

/// The same with all other names open.
CPlainNames OpenNames(const std::map<std::string, double>& variables, CFoundNames& found) {
    return {[variables, &found](const std::string& name) {
                const auto variable = variables.find(name);
                if (variable != variables.end()) {
                    return std::optional(variable->second);
                }
                found.constants.insert(name);
                return std::optional(ConstantOf(name));
            },
            [&found](const std::string& name, double x) {
                found.functions.insert(name);
                return std::optional(IsSecondKind(name) ? x * x : 20.0 * std::log10(x));
            },
            [&found](const std::string& name, double x, double y) {
                found.binaryFunctions.insert(name);
                return std::optional(IsSecondKind(name) ? std::fabs(x - y) : (x + y) * 0.5);
            }};
}

template <class Iterator>
Names Drain(Iterator* iterator) {
    const std::unique_ptr<Iterator> owned(iterator);
    Names names;
    for (; !iterator->IsAtEnd(); iterator->Next()) {
        names.insert(iterator->GetValue());
    }
    return names;
}

template <class F>
CFoundNames SetNames(TParametrizedFunction<F>& formula) {
    const CFoundNames found{Drain(formula.CreateConstantIterator()),
                            Drain(formula.CreateFunctionIterator()),
                            Drain(formula.CreateBinaryFunctionIterator())};
    for (const std::string& name : found.constants) {
        EXPECT_TRUE(formula.SetConstant(name.c_str(), ConstantOf(name)));
    }
    for (const std::string& name : found.functions) {
        const IFunction& function =
            IsSecondKind(name) ? static_cast<const IFunction&>(kSquare) : kToDecibels;
        EXPECT_TRUE(formula.SetFunction(name.c_str(), function));
    }
    for (const std::string& name : found.binaryFunctions) {
        const IBinaryFunction& function =
            IsSecondKind(name) ? static_cast<const IBinaryFunction&>(kDistance) : kAverage;
        EXPECT_TRUE(formula.SetBinaryFunction(name.c_str(), function));
    }
    return found;
}

/// To the last bit; what a NaN's bits are is up to the order of operands in the machine.
bool IsSame(std::optional<double> a, std::optional<double> b) {
    if (!a || !b || std::isnan(*a) || std::isnan(*b)) {
        return a.has_value() == b.has_value() && (!a || std::isnan(*a) == std::isnan(*b));
    }
    return std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b);
}

/// How many formulas were valid in any form; -1 at the first difference, which is told.
class CComparison {
public:
    /// False at a difference.
    bool Compare(const std::string& formula) {
        text = formula;
        isAnyValid = false;
        const bool isSame = CompareConstant() && CompareFunction() && CompareOpenConstant() &&
                            CompareOpenFunction() && CompareOpenBinaryFunction();
        valid += isAnyValid ? 1 : 0;
        invalid += isAnyValid ? 0 : 1;
        return isSame;
    }

    int valid = 0;
    int invalid = 0;

private:
    bool Same(const char* form, std::optional<double> actual, std::optional<double> expected) {
        isAnyValid = isAnyValid || actual;
        EXPECT_TRUE(IsSame(actual, expected)) << form << " of " << ::testing::PrintToString(text)
                                              << ": " << ::testing::PrintToString(actual)
                                              << ", plainly " << ::testing::PrintToString(expected);
        return IsSame(actual, expected);
    }

    bool CompareConstant() {
        const auto formula = ParseConstantFormula(text.c_str());
        return Same("constant", formula ? std::optional(formula->Evaluate()) : std::nullopt,
                    EvaluatePlainly(text, PlainNames({})));
    }

    bool CompareFunction() {
        const auto formula = ParseFunctionFormula(text.c_str(), "t");
        return Same("function", formula ? std::optional(formula->Evaluate(kX)) : std::nullopt,
                    EvaluatePlainly(text, PlainNames({{"t", kX}})));
    }

    template <class F, class... Arguments>
    bool CompareOpen(const char* form, std::unique_ptr<TParametrizedFunction<F>> formula,
                     const std::map<std::string, double>& variables, Arguments... arguments) {
        CFoundNames expectedNames;
        const auto expected = EvaluatePlainly(text, OpenNames(variables, expectedNames));
        if (!formula) {
            return Same(form, std::nullopt, expected);
        }
        const bool isSame = SetNames(*formula) == expectedNames || !expected;
        EXPECT_TRUE(isSame) << "the names of " << ::testing::PrintToString(text);
        return Same(form, formula->GetFunction()->Evaluate(arguments...), expected) && isSame;
    }

    bool CompareOpenConstant() {
        return CompareOpen("open constant", ParseParametrizedConstant(text.c_str()), {});
    }
    bool CompareOpenFunction() {
        return CompareOpen("open function", ParseParametrizedFunction(text.c_str()), {{"x", kX}},
                           kX);
    }
    bool CompareOpenBinaryFunction() {
        return CompareOpen("open binary function",
                           ParseParametrizedBinaryFunction(text.c_str(), "t", nullptr),
                           {{"t", kX}, {"y", kY}}, kX, kY);
    }

    std::string text;
    bool isAnyValid = false;
};

/// True when all agree; counts go to `comparison`.
bool CompareMany(unsigned seed, int count, CComparison& comparison) {
    Testing::CRandomFormula formulas(seed);
    for (int i = 0; i < count; ++i) {
        if (!comparison.Compare(formulas.Next())) {
            return false;
        }
    }
    return true;
}

TEST(FormulaDifferenceTest, TenThousandFormulasAgreeToTheLastBitOrBothRefuse) {
    CComparison comparison;
    ::testing::internal::CaptureStderr();
    EXPECT_TRUE(CompareMany(20, 10000, comparison));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    // The seed gives enough of both.
    EXPECT_GT(comparison.valid, 5000);
    EXPECT_GT(comparison.invalid, 2000);
    RecordProperty("valid", comparison.valid);
}

TEST(FormulaDifferenceTest, TwoThreadsParseAtOnce) {
    CComparison first;
    CComparison second;
    bool isFirstSame = false;
    std::thread thread([&] { isFirstSame = CompareMany(7, 500, first); });
    EXPECT_TRUE(CompareMany(8, 500, second));
    thread.join();
    EXPECT_TRUE(isFirstSame);
    EXPECT_EQ(first.valid + first.invalid, 500);
}

} // namespace
} // namespace Vorin::AppEngine
