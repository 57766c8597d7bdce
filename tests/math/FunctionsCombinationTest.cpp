#include "math/FunctionsCombination.h"

#include "math/FunctionProxy.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <utility>

namespace Vorin::Math {
namespace {

using namespace Serialization;

using Square = TFunction<&FunctionsLibrary::Square>;
using Difference = TBinaryFunction<&FunctionsLibrary::Difference>;

/// Notes the order in which parts are asked.
class CNotingFunction : public CConstantFunction {
public:
    CNotingFunction(double initial, std::string notedName, std::string& allNotes)
        : CConstantFunction(initial), name(std::move(notedName)), notes(allNotes) {}
    double Evaluate(double x) const override {
        notes += name;
        return CConstantFunction::Evaluate(x) + x;
    }

private:
    std::string name;
    std::string& notes;
};

TEST(FunctionsCombinationTest, CombinesWithTheSumByDefault) {
    CFunctionsCombination combination;
    combination.SetFunc1(new Square, Core::kOwn);
    combination.SetFunc2(new CConstantFunction(1.0), Core::kOwn);
    EXPECT_EQ(combination.Evaluate(3.0), 10.0);
    EXPECT_EQ(combination.GetCombineFunction(), GetNeutralFunction<IBinaryFunction>());
}

TEST(FunctionsCombinationTest, AsksThePartsInOrder) {
    std::string notes;
    CFunctionsCombination combination;
    combination.SetFunc1(new CNotingFunction(10.0, "1", notes), Core::kOwn);
    combination.SetFunc2(new CNotingFunction(4.0, "2", notes), Core::kOwn);
    combination.SetCombineFunction(new Difference, Core::kOwn);
    EXPECT_EQ(combination.Evaluate(5.0), 6.0); // a class of constants that is none is asked too
    EXPECT_EQ(notes, "12");
}

TEST(FunctionsCombinationTest, AllThreeKindsCombine) {
    CConstantsCombination constants;
    constants.SetFunc1(new CConstant(10.0), Core::kOwn);
    constants.SetFunc2(new CConstant(4.0), Core::kOwn);
    constants.SetCombineFunction(new Difference, Core::kOwn);
    EXPECT_EQ(constants.Evaluate(), 6.0);

    CBinaryFunctionsCombination binary;
    binary.SetFunc1(new TBinaryFunction<&FunctionsLibrary::Product>, Core::kOwn);
    binary.SetFunc2(new TBinaryFunction<&FunctionsLibrary::Y>, Core::kOwn);
    binary.SetCombineFunction(new Difference, Core::kOwn);
    EXPECT_EQ(binary.Evaluate(3.0, 4.0), 8.0);
}

TEST(FunctionsCombinationTest, NullPartsCountAsNeutral) {
    EXPECT_EQ(CFunctionsCombination().Evaluate(3.0), 6.0);
    EXPECT_EQ(CConstantsCombination().Evaluate(), 0.0);
    CBinaryFunctionsCombination binary;
    binary.SetCombineFunction(nullptr, Core::kOwn);
    EXPECT_EQ(binary.Evaluate(3.0, 4.0), 14.0);
}

TEST(FunctionsCombinationTest, ConstantsThatAreSetLaterAreSeen) {
    CConstantFunction constant(1.0);
    CFunctionsCombination combination;
    combination.SetFunc1(&constant, Core::kDontOwn);
    EXPECT_EQ(combination.Evaluate(3.0), 4.0);
    constant.SetValue(2.0);
    EXPECT_EQ(combination.Evaluate(3.0), 5.0);
}

/// Every library function as a part gives what it gives by itself, on ordinary and odd arguments.
TEST(FunctionsCombinationTest, PartsAreEvaluatedAsByThemselves) {
    const double values[] = {0.0,
                             -0.0,
                             1.0,
                             -2.5,
                             0.3,
                             1e300,
                             std::nan(""),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()};
    const auto isSame = [](double a, double b) {
        return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
    };
    LibraryBinaryFunctions::ForEach([&]<double (*F)(double, double)>() {
        CFunctionsCombination combine;
        combine.SetCombineFunction(new TBinaryFunction<F>, Core::kOwn);
        CBinaryFunctionsCombination part; // F(x, y) + 0
        part.SetFunc1(new TBinaryFunction<F>, Core::kOwn);
        part.SetFunc2(new CConstantBinaryFunction(-0.0), Core::kOwn);
        for (const double x : values) {
            EXPECT_TRUE(isSame(combine.Evaluate(x), F(x, x))) << TBinaryFunction<F>::kIdentifier;
            for (const double y : values) {
                EXPECT_TRUE(isSame(part.Evaluate(x, y), F(x, y)))
                    << TBinaryFunction<F>::kIdentifier << " " << x << " " << y;
            }
        }
    });
    LibraryFunctions::ForEach([&]<double (*F)(double)>() {
        CFunctionsCombination part;
        part.SetFunc1(new TFunction<F>, Core::kOwn);
        part.SetFunc2(new CConstantFunction(-0.0), Core::kOwn);
        for (const double x : values) {
            EXPECT_TRUE(isSame(part.Evaluate(x), F(x))) << TFunction<F>::kIdentifier;
        }
    });
}

TEST(FunctionsCombinationTest, ACloneHasIndependentParts) {
    auto* proxy = new CFunctionProxy(new CConstantFunction(1.0), Core::kOwn);
    CFunctionsCombination original;
    original.SetFunc1(proxy, Core::kOwn);
    original.SetFunc2(new CConstantFunction(10.0), Core::kOwn);
    const std::unique_ptr<IFunction> clone(original.Clone());
    auto* cloned = dynamic_cast<CFunctionsCombination*>(clone.get());
    ASSERT_NE(cloned, nullptr);
    auto* clonedProxy = dynamic_cast<CFunctionProxy*>(cloned->GetFunc1());
    ASSERT_NE(clonedProxy, nullptr);
    ASSERT_NE(clonedProxy, proxy);
    clonedProxy->SetTarget(new CConstantFunction(5.0), Core::kOwn);
    EXPECT_EQ(clone->Evaluate(0.0), 15.0);
    EXPECT_EQ(original.Evaluate(0.0), 11.0);
    proxy->SetTarget(new CConstantFunction(7.0), Core::kOwn);
    EXPECT_EQ(clone->Evaluate(0.0), 15.0);
    EXPECT_EQ(original.Evaluate(0.0), 17.0);
    cloned->SetCombineFunction(new Difference, Core::kOwn);
    EXPECT_EQ(clone->Evaluate(0.0), -5.0);
    EXPECT_EQ(original.Evaluate(0.0), 17.0);
}

TEST(FunctionsCombinationTest, PartsAreWrittenUnderTheirNames) {
    CFunctionsCombination combination;
    combination.SetFunc1(new Square, Core::kOwn);
    combination.SetCombineFunction(new Difference, Core::kOwn);
    CMemDataObject stream;
    ASSERT_TRUE(combination.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 3);
    TRuntimeDeSerializer<IFunction> func1;
    ASSERT_TRUE(stream.ReadObject("func1", func1));
    EXPECT_STREQ(func1.Get()->GetType(), Square::kIdentifier);
    TRuntimeDeSerializer<IFunction> func2;
    ASSERT_TRUE(stream.ReadObject("func2", func2));
    EXPECT_EQ(func2.Get(), nullptr);
    TRuntimeDeSerializer<IBinaryFunction> combine;
    ASSERT_TRUE(stream.ReadObject("combineFunction", combine));
    EXPECT_STREQ(combine.Get()->GetType(), Difference::kIdentifier);
}

TEST(FunctionsCombinationTest, MissingPartsBecomeNeutralAndReadingGoesOn) {
    CFunctionsCombination combination;
    combination.SetFunc1(new Square, Core::kOwn);
    combination.SetFunc2(new CConstantFunction(2.0), Core::kOwn);
    combination.SetCombineFunction(new Difference, Core::kOwn);
    CMemDataObject stream;
    ASSERT_TRUE(combination.Serialize(stream));
    stream.Remove("func1");
    CFunctionsCombination read;
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.GetFunc1(), GetNeutralFunction<IFunction>());
    EXPECT_EQ(read.Evaluate(9.0), 7.0);
    stream.Remove("combineFunction");
    stream.WriteObject("func1", CTypeSerializer(nullptr));
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.GetFunc1(), nullptr); // a null that was written stays null
    EXPECT_EQ(read.Evaluate(9.0), 11.0);
    EXPECT_EQ(read.GetCombineFunction(), GetNeutralFunction<IBinaryFunction>());
}

TEST(FunctionsCombinationTest, PartsOfUnknownOrUnfitTypeBecomeNeutral) {
    for (const char* type : {"{nobody}", "", CConstant::kIdentifier, Difference::kIdentifier}) {
        CMemDataObject stream;
        stream.WriteObject("func1", CWrites([type](IWriteDataStream& nested) {
                               return nested.WriteBool("isNull", false) &&
                                      nested.WriteString("type", type);
                           }));
        stream.WriteObject("func2", CTypeSerializer(GetNeutralFunction<IFunction>()));
        CFunctionsCombination read;
        read.SetFunc1(new Square, Core::kOwn);
        ASSERT_TRUE(read.DeSerialize(stream));
        EXPECT_EQ(read.GetFunc1(), GetNeutralFunction<IFunction>());
        EXPECT_EQ(read.Evaluate(9.0), 18.0);
    }
}

TEST(FunctionsCombinationTest, OnATolerantStreamPartsStay) {
    CFunctionsCombination combination;
    combination.SetFunc1(new Square, Core::kOwn);
    EXPECT_TRUE(combination.DeSerialize(TTolerant<CMemDataObject>()));
    EXPECT_EQ(combination.Evaluate(3.0), 12.0);
}

TEST(FunctionsCombinationTest, NobodySetsTheNeutralConstant) {
    EXPECT_EQ(dynamic_cast<CConstant*>(GetNeutralFunction<IConstant>()), nullptr);
    CMemDataObject five;
    ASSERT_TRUE(CConstant(5.0).Serialize(five));
    EXPECT_TRUE(GetNeutralFunction<IConstant>()->DeSerialize(five));
    EXPECT_EQ(GetNeutralFunction<IConstant>()->Evaluate(), 0.0);
    CConstantsCombination combination;
    combination.SetFunc1(GetNeutralFunction<IConstant>(), Core::kDontOwn);
    combination.SetFunc2(new CConstant(2.0), Core::kOwn);
    const std::unique_ptr<IConstant> clone(combination.Clone());
    EXPECT_EQ(clone->Evaluate(), 2.0);
    CMemDataObject stream;
    ASSERT_TRUE(combination.Serialize(stream));
    CConstantsCombination read;
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_NE(dynamic_cast<CConstant*>(read.GetFunc1()), nullptr);
    EXPECT_EQ(read.Evaluate(), 2.0);
}

} // namespace
} // namespace Vorin::Math
