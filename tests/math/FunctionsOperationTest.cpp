#include "math/FunctionsOperation.h"

#include "math/Constant.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::Math {
namespace {

using Product = TFunctionsOperation<&FunctionsLibrary::Product>;
using DifferenceOperation = TFunctionsOperation<&FunctionsLibrary::Difference>;
using Sum = TFunctionsOperation<&FunctionsLibrary::Sum>;
using Division = TFunctionsOperation<&FunctionsLibrary::Division>;

/// A function that tells of its death.
class CCountedFunction : public CConstantFunction {
public:
    CCountedFunction(double constant, int& deathCount)
        : CConstantFunction(constant), deaths(deathCount) {}
    ~CCountedFunction() override { ++deaths; }

private:
    int& deaths;
};

template <class Operation>
double Fold(double a, double b, double c) {
    Operation operation;
    operation.SetCount(3);
    operation.SetFunction(0, new CConstantFunction(a), Core::kOwn);
    operation.SetFunction(1, new CConstantFunction(b), Core::kOwn);
    operation.SetFunction(2, new CConstantFunction(c), Core::kOwn);
    return operation.Evaluate(0.0);
}

TEST(FunctionsOperationTest, FoldsInOrderFromTheFirst) {
    EXPECT_EQ(Fold<Sum>(16, 4, 2), 22.0);
    EXPECT_EQ(Fold<DifferenceOperation>(16, 4, 2), 10.0);
    EXPECT_EQ(Fold<Product>(16, 4, 2), 128.0);
    EXPECT_EQ(Fold<Division>(16, 4, 2), 2.0);
}

TEST(FunctionsOperationTest, EvaluatesEachFunctionAtX) {
    TFunction<&FunctionsLibrary::Square> square;
    TFunction<&FunctionsLibrary::Identity> identity;
    DifferenceOperation operation;
    operation.SetCount(2);
    operation.SetFunction(0, &square, Core::kDontOwn);
    operation.SetFunction(1, &identity, Core::kDontOwn);
    EXPECT_EQ(operation.Evaluate(3.0), 6.0);
}

TEST(FunctionsOperationTest, AnEmptyListGivesZero) { EXPECT_EQ(Product().Evaluate(5.0), 0.0); }

TEST(FunctionsOperationTest, NullSlotsAreKeptAndSkipped) {
    Product operation;
    operation.SetCount(3);
    EXPECT_EQ(operation.Evaluate(1.0), 0.0);
    operation.SetFunction(1, new CConstantFunction(3.0), Core::kOwn);
    EXPECT_EQ(operation.GetCount(), 3);
    EXPECT_EQ(operation.GetFunction(0), nullptr);
    EXPECT_EQ(operation.Evaluate(1.0), 3.0);
    operation.SetFunction(2, new CConstantFunction(5.0), Core::kOwn);
    EXPECT_EQ(operation.Evaluate(1.0), 15.0);
}

TEST(FunctionsOperationTest, DeletesOnlyWhatItOwns) {
    int deaths = 0;
    {
        CCountedFunction borrowed(1.0, deaths);
        {
            Sum operation;
            operation.SetCount(2);
            operation.SetFunction(0, &borrowed, Core::kDontOwn);
            operation.SetFunction(1, new CCountedFunction(2.0, deaths), Core::kOwn);
            operation.SetFunction(1, new CCountedFunction(3.0, deaths), Core::kOwn);
            EXPECT_EQ(deaths, 1);
        }
        EXPECT_EQ(deaths, 2);
    }
    EXPECT_EQ(deaths, 3);
}

TEST(FunctionsOperationTest, AChangeOfCountLeavesBorrowedFunctionsBorrowed) {
    CConstantFunction gain(2.0);
    Product operation;
    operation.SetCount(1);
    operation.SetFunction(0, &gain, Core::kDontOwn);
    operation.SetCount(1000);
    operation.SetCount(2);
    EXPECT_EQ(operation.GetFunction(0), &gain);
    gain.SetValue(7.0);
    EXPECT_EQ(operation.Evaluate(0.0), 7.0);
}

TEST(FunctionsOperationTest, AShrinkingCountDeletesOwnedFunctions) {
    int deaths = 0;
    Sum operation;
    operation.SetCount(2);
    operation.SetFunction(1, new CCountedFunction(2.0, deaths), Core::kOwn);
    operation.SetCount(1);
    EXPECT_EQ(deaths, 1);
    operation.SetCount(-3);
    EXPECT_EQ(operation.GetCount(), 0);
}

TEST(FunctionsOperationTest, CopiesAndClonesAreDeep) {
    CConstantFunction gain(2.0);
    Product original;
    original.SetCount(2);
    original.SetFunction(0, &gain, Core::kDontOwn);
    const Product copy(original);
    Product assigned;
    assigned = original;
    const std::unique_ptr<IFunction> clone(original.Clone());

    gain.SetValue(3.0);
    EXPECT_EQ(original.Evaluate(0.0), 3.0);
    EXPECT_EQ(copy.Evaluate(0.0), 2.0);
    EXPECT_EQ(assigned.Evaluate(0.0), 2.0);
    EXPECT_EQ(clone->Evaluate(0.0), 2.0);
    EXPECT_EQ(copy.GetCount(), 2);
    EXPECT_EQ(copy.GetFunction(1), nullptr);
}

TEST(FunctionsOperationTest, TheOperationsHaveTheirIdentifiers) {
    EXPECT_STREQ(Sum().GetType(), "{B8280134-87FF-44ae-809E-1B645160B214}");
    EXPECT_STREQ(DifferenceOperation().GetType(), "{F95377FF-6828-4a2d-8CB9-2A63C47EA65D}");
    EXPECT_STREQ(Product().GetType(), "{3D5E106B-C306-476c-8817-24E755168A5C}");
    EXPECT_STREQ(Division().GetType(), "{41B8F3B2-540C-4c85-B874-FFA435C71129}");
}

} // namespace
} // namespace Vorin::Math
