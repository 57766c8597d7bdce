#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace Vorin::Math {
namespace {

TEST(LibraryFunctionTest, WrapsAFunctionOfOneArgument) {
    const TFunction<&FunctionsLibrary::Square> square;
    EXPECT_EQ(square.Evaluate(-3.0), 9.0);
    EXPECT_STREQ(square.GetType(), "{F31A0DDB-1670-420a-AA0B-4AED41271DBC}");
}

TEST(LibraryFunctionTest, WrapsAFunctionOfTwoArguments) {
    const TBinaryFunction<&FunctionsLibrary::Difference> difference;
    EXPECT_EQ(difference.Evaluate(5.0, 3.0), 2.0);
    EXPECT_STREQ(difference.GetType(), "{B32E9916-D75D-4a9f-B240-C07B49A87E16}");
}

TEST(LibraryFunctionTest, CloneIsAnotherObjectOfTheSameFunction) {
    const TFunction<&FunctionsLibrary::Negate> negate;
    const std::unique_ptr<IFunction> clone(negate.Clone());
    EXPECT_NE(clone.get(), &negate);
    EXPECT_EQ(clone->Evaluate(4.0), -4.0);

    const TBinaryFunction<&FunctionsLibrary::Y> y;
    const std::unique_ptr<IBinaryFunction> binaryClone(y.Clone());
    EXPECT_EQ(binaryClone->Evaluate(1.0, 2.0), 2.0);
}

TEST(LibraryFunctionTest, EveryFunctionHasAnIdentifierOfItsOwn) {
    std::set<std::string> identifiers;
    int functions = 0;
    int binaryFunctions = 0;
    LibraryFunctions::ForEach([&]<double (*F)(double)>() {
        identifiers.insert(TFunction<F>::kIdentifier);
        ++functions;
    });
    LibraryBinaryFunctions::ForEach([&]<double (*F)(double, double)>() {
        identifiers.insert(TBinaryFunction<F>::kIdentifier);
        ++binaryFunctions;
    });
    EXPECT_EQ(functions, 27);
    EXPECT_EQ(binaryFunctions, 20);
    EXPECT_EQ(identifiers.size(), 47U);
}

} // namespace
} // namespace Vorin::Math
