#include "math/ParametrizedFunction.h"

#include "math/FunctionsCombination.h"
#include "math/FunctionsComposition.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <type_traits>

namespace Vorin::Math {
namespace {

using Square = TFunction<&FunctionsLibrary::Square>;
using Negate = TFunction<&FunctionsLibrary::Negate>;
using Parametrized = TParametrizedFunction<IFunction>;

template <class Iterator>
std::set<std::string> NamesOf(Iterator* created) {
    const std::unique_ptr<Iterator> iterator(created);
    std::set<std::string> names;
    for (; !iterator->IsAtEnd(); iterator->Next()) {
        EXPECT_TRUE(names.insert(iterator->GetValue()).second);
    }
    return names;
}

using Names = std::set<std::string>;

/// a + (foo(x) + (a + foo(-x) + foo'(x, b))), where a name is used in all three ways.
std::unique_ptr<Parametrized> MakeParametrized() {
    auto parametrized = std::make_unique<Parametrized>();
    auto constant = [&](const char* name) {
        auto* place = new CConstantFunction;
        EXPECT_TRUE(parametrized->AddConstant(name, place));
        return place;
    };
    auto call = [&](IFunction* argument) {
        auto* place = new CFunctionProxy;
        EXPECT_TRUE(parametrized->AddFunction("foo", place));
        auto* composition = new CFunctionsComposition;
        composition->SetCount(2);
        composition->SetFunction(0, argument, Core::kOwn);
        composition->SetFunction(1, place, Core::kOwn);
        return composition;
    };
    auto sum = [](IFunction* a, IFunction* b) {
        auto* combination = new CFunctionsCombination;
        combination->SetFunc1(a, Core::kOwn);
        combination->SetFunc2(b, Core::kOwn);
        return combination;
    };
    auto* surface = new CFunctionsCombination;
    auto* binaryPlace = new CBinaryFunctionProxy;
    EXPECT_TRUE(parametrized->AddBinaryFunction("foo", binaryPlace));
    surface->SetFunc2(constant("b"), Core::kOwn);
    surface->SetCombineFunction(binaryPlace, Core::kOwn);
    parametrized->SetFunction(
        sum(constant("a"), sum(call(nullptr), sum(constant("a"), sum(call(new Negate), surface)))));
    return parametrized;
}

TEST(ParametrizedFunctionTest, NamesAreListedPerKind) {
    const auto parametrized = MakeParametrized();
    EXPECT_EQ(NamesOf(parametrized->CreateConstantIterator()), (Names{"a", "b"}));
    EXPECT_EQ(NamesOf(parametrized->CreateFunctionIterator()), Names{"foo"});
    EXPECT_EQ(NamesOf(parametrized->CreateBinaryFunctionIterator()), Names{"foo"});
    const Parametrized empty;
    EXPECT_EQ(NamesOf(empty.CreateConstantIterator()), Names());
    EXPECT_EQ(empty.GetFunction(), nullptr);
}

TEST(ParametrizedFunctionTest, ACursorStartsAnewAndStaysAtItsEnd) {
    const auto parametrized = MakeParametrized();
    const std::unique_ptr<Parametrized::NameIterator> names(parametrized->CreateFunctionIterator());
    names->Next();
    EXPECT_TRUE(names->IsAtEnd());
    names->Next();
    EXPECT_TRUE(names->IsAtEnd());
    names->Reset();
    EXPECT_STREQ(names->GetValue(), "foo");
}

TEST(ParametrizedFunctionTest, SettingReachesEveryPlaceOfTheName) {
    const auto parametrized = MakeParametrized();
    const IFunction& function = *parametrized->GetFunction();
    // Nothing set: constants 0, foo the identity, and the sum of x and b.
    EXPECT_EQ(function.Evaluate(3.0), 3.0 - 3.0 + 3.0);
    EXPECT_TRUE(parametrized->SetConstant("a", 100.0));
    EXPECT_EQ(function.Evaluate(3.0), 203.0);
    EXPECT_TRUE(parametrized->SetConstant("b", 1000.0));
    EXPECT_EQ(function.Evaluate(3.0), 1203.0);
    const Square square;
    EXPECT_TRUE(parametrized->SetFunction("foo", square));
    EXPECT_EQ(function.Evaluate(3.0), 1221.0); // 9 + 9 in the place of 3 - 3
    const TBinaryFunction<&FunctionsLibrary::Product> product;
    EXPECT_TRUE(parametrized->SetBinaryFunction("foo", product));
    EXPECT_EQ(function.Evaluate(3.0), 200.0 + 18.0 + 3000.0);
}

TEST(ParametrizedFunctionTest, AFunctionIsBorrowed) {
    const auto parametrized = MakeParametrized();
    CConstantFunction source(4.0);
    ASSERT_TRUE(parametrized->SetFunction("foo", source));
    EXPECT_EQ(parametrized->GetFunction()->Evaluate(0.0), 8.0);
    source.SetValue(5.0);
    EXPECT_EQ(parametrized->GetFunction()->Evaluate(0.0), 10.0);
    ASSERT_TRUE(parametrized->SetFunction("foo", *GetNeutralFunction<IFunction>()));
}

TEST(ParametrizedFunctionTest, UnknownNamesAreNotSet) {
    const auto parametrized = MakeParametrized();
    EXPECT_FALSE(parametrized->SetConstant("c", 1.0));
    EXPECT_FALSE(parametrized->SetConstant("foo", 1.0)); // not as a constant
    EXPECT_FALSE(parametrized->SetConstant("", 1.0));
    EXPECT_FALSE(parametrized->SetConstant(nullptr, 1.0));
    EXPECT_FALSE(parametrized->SetFunction("a", Square()));
    EXPECT_FALSE(parametrized->SetBinaryFunction("a", *GetNeutralFunction<IBinaryFunction>()));
    EXPECT_EQ(parametrized->GetFunction()->Evaluate(3.0), 3.0);
}

TEST(ParametrizedFunctionTest, PlacesWithoutANameAreNotTaken) {
    Parametrized parametrized;
    CConstantFunction place;
    EXPECT_FALSE(parametrized.AddConstant(nullptr, &place));
    EXPECT_FALSE(parametrized.AddConstant("", &place));
    EXPECT_FALSE(parametrized.AddConstant("a", nullptr));
    EXPECT_EQ(NamesOf(parametrized.CreateConstantIterator()), Names());
}

TEST(ParametrizedFunctionTest, AnotherTreeForgetsThePlacesOfThePreviousOne) {
    const auto parametrized = MakeParametrized();
    auto* place = new CConstantFunction;
    parametrized->AddConstant("a", place);
    parametrized->AddConstant("c", place);
    parametrized->SetFunction(place); // the place is the tree
    EXPECT_EQ(NamesOf(parametrized->CreateConstantIterator()), (Names{"a", "c"}));
    EXPECT_EQ(NamesOf(parametrized->CreateFunctionIterator()), Names());
    EXPECT_TRUE(parametrized->SetConstant("a", 5.0));
    EXPECT_EQ(parametrized->GetFunction()->Evaluate(0.0), 5.0);
    parametrized->SetFunction(place); // the same again changes nothing
    EXPECT_TRUE(parametrized->SetConstant("c", 6.0));
    EXPECT_EQ(parametrized->GetFunction()->Evaluate(0.0), 6.0);
    parametrized->SetFunction(nullptr);
    EXPECT_FALSE(parametrized->SetConstant("a", 7.0));
    EXPECT_EQ(parametrized->GetFunction(), nullptr);
}

TEST(ParametrizedFunctionTest, APlaceThatDiedBeforeTheTreeWasSetIsForgotten) {
    Parametrized parametrized;
    auto* dead = new CFunctionProxy;
    parametrized.AddFunction("foo", dead);
    delete dead;
    parametrized.SetFunction(new Square);
    EXPECT_FALSE(parametrized.SetFunction("foo", Square()));
}

TEST(ParametrizedFunctionTest, ACloneHasItsOwnPlacesUnderTheSameNames) {
    auto original = MakeParametrized();
    const Square square;
    original->SetConstant("a", 100.0);
    original->SetFunction("foo", square);
    const std::unique_ptr<Parametrized> clone(original->Clone());
    EXPECT_EQ(clone->GetFunction()->Evaluate(3.0), 221.0);
    EXPECT_EQ(NamesOf(clone->CreateConstantIterator()), (Names{"a", "b"}));
    EXPECT_EQ(NamesOf(clone->CreateFunctionIterator()), Names{"foo"});
    EXPECT_EQ(NamesOf(clone->CreateBinaryFunctionIterator()), Names{"foo"});

    const CConstantFunction zero(0.0);
    EXPECT_TRUE(clone->SetConstant("a", 1.0));
    EXPECT_TRUE(clone->SetConstant("b", 50.0));
    EXPECT_TRUE(clone->SetFunction("foo", zero));
    EXPECT_EQ(clone->GetFunction()->Evaluate(3.0), 2.0 + 53.0);
    EXPECT_EQ(original->GetFunction()->Evaluate(3.0), 221.0);
    EXPECT_TRUE(original->SetConstant("b", 7.0));
    EXPECT_EQ(clone->GetFunction()->Evaluate(3.0), 55.0);
    original.reset();
    EXPECT_TRUE(clone->SetConstant("a", 2.0));
    EXPECT_EQ(clone->GetFunction()->Evaluate(3.0), 57.0);
    const std::unique_ptr<Parametrized> again(clone->Clone());
    EXPECT_TRUE(again->SetConstant("a", 3.0));
    EXPECT_EQ(again->GetFunction()->Evaluate(3.0), 59.0);
}

TEST(ParametrizedFunctionTest, ACloneDoesNotTakeThePlacesOfWhatIsBound) {
    const auto inner = MakeParametrized();
    const auto outer = MakeParametrized();
    inner->SetConstant("a", 10.0);
    outer->SetFunction("foo", *inner->GetFunction());
    const std::unique_ptr<Parametrized> clone(outer->Clone());
    const double before = clone->GetFunction()->Evaluate(1.0);
    EXPECT_EQ(before, outer->GetFunction()->Evaluate(1.0));
    EXPECT_TRUE(clone->SetConstant("a", 0.5)); // both places of its own, none of the inner one's
    EXPECT_EQ(clone->GetFunction()->Evaluate(1.0), before + 1.0);
    inner->SetConstant("a", 20.0);
    EXPECT_EQ(clone->GetFunction()->Evaluate(1.0), before + 1.0);
    EXPECT_EQ(outer->GetFunction()->Evaluate(1.0), before + 40.0);
}

TEST(ParametrizedFunctionTest, ACloneOfTheTreeIsAFunctionWithoutNames) {
    const auto parametrized = MakeParametrized();
    parametrized->SetConstant("a", 100.0);
    const std::unique_ptr<IFunction> frozen(parametrized->GetFunction()->Clone());
    parametrized->SetConstant("a", 0.0);
    EXPECT_EQ(frozen->Evaluate(3.0), 203.0);
}

TEST(ParametrizedFunctionTest, AFunctionBoundToItselfEnds) {
    const auto parametrized = MakeParametrized();
    parametrized->SetConstant("a", 1.0);
    parametrized->SetFunction("foo", *parametrized->GetFunction());
    // The inner ones: 1 + 0 + 1 + 0 + x for x = 3 and x = -3; around them 1 + 1 + 3.
    EXPECT_EQ(parametrized->GetFunction()->Evaluate(3.0), 5.0 - 1.0 + 5.0);
    const std::unique_ptr<Parametrized> clone(parametrized->Clone());
    EXPECT_TRUE(clone->SetConstant("a", 2.0));
}

TEST(ParametrizedFunctionTest, TheOtherKindsOfTreesHaveConstantsOfTheirKind) {
    TParametrizedFunction<IConstant> constant;
    auto* place = new CConstant;
    constant.AddConstant("level", place);
    auto* composition = new CConstantComposition;
    composition->SetFunction(new Square, Core::kOwn);
    composition->SetConstFunction(place, Core::kOwn);
    constant.SetFunction(composition);
    EXPECT_TRUE(constant.SetConstant("level", 3.0));
    EXPECT_EQ(constant.GetFunction()->Evaluate(), 9.0);
    const std::unique_ptr<TIParametrizedFunction<IConstant>> clone(
        static_cast<TIParametrizedFunction<IConstant>&>(constant).Clone());
    EXPECT_TRUE(clone->SetConstant("level", 4.0));
    EXPECT_EQ(clone->GetFunction()->Evaluate(), 16.0);
    EXPECT_EQ(constant.GetFunction()->Evaluate(), 9.0);

    TParametrizedFunction<IBinaryFunction> binary;
    auto* binaryPlace = new CConstantBinaryFunction;
    binary.AddConstant("level", binaryPlace);
    binary.SetFunction(binaryPlace);
    EXPECT_TRUE(binary.SetConstant("level", 3.0));
    EXPECT_EQ(binary.GetFunction()->Evaluate(1.0, 2.0), 3.0);
}

} // namespace
} // namespace Vorin::Math
