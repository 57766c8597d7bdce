// Every class that the factory makes, with content, nested three deep and brought back.
#include "math/RegisteredFunctions.h"

#include "math/DeprecatedCircularLUTFunction.h"
#include "math/FunctionProxy.h"
#include "math/FunctionsCombination.h"
#include "math/FunctionsComposition.h"
#include "math/LUTFunction.h"
#include "math/SweptCurvesFunction.h"
#include "math/SweptValues.h"
#include "runtime/ObjectsFactory.h"
#include "serialization/MemDataObject.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace Vorin::Math {
namespace {

using namespace Serialization;

using Sin = TFunction<&FunctionsLibrary::Sin>;
using Negate = TFunction<&FunctionsLibrary::Negate>;
using LibraryProduct = TBinaryFunction<&FunctionsLibrary::Product>;

bool IsOfLibrary(const Runtime::IDynamicObject& object) {
    bool isOf = false;
    LibraryFunctions::ForEach([&]<double (*F)(double)>() {
        isOf |= dynamic_cast<const TFunction<F>*>(&object) != nullptr;
    });
    LibraryBinaryFunctions::ForEach([&]<double (*F)(double, double)>() {
        isOf |= dynamic_cast<const TBinaryFunction<F>*>(&object) != nullptr;
    });
    return isOf;
}

/// Calls `fill` when the object is a C.
template <class C>
bool FillAs(Runtime::IDynamicObject& object, const std::function<void(C&)>& fill) {
    auto* narrowed = dynamic_cast<C*>(&object);
    if (narrowed) {
        fill(*narrowed);
    }
    return narrowed;
}

template <class L>
void FillTable(L& table) {
    table.SetCount(9);
    table.SetRange(-1, 1);
    for (int i = 0; i < table.GetCount(); ++i) {
        table.GetValues()[i] = static_cast<typename L::Value>(std::cos(1.7 * i));
    }
}

template <class T>
bool FillTables(Runtime::IDynamicObject& object) {
    using Nearest = TLUTFunction<TLookupTable<T, TNearestInterpolator<T, T>>>;
    using Linear = TLUTFunction<TLookupTable<T, TLinearInterpolator<T, T>>>;
    using SplineTable = TLookupTable<T, TConstrainedSplineInterpolator<T, T>>;
    using Circle = TCircularLUTFunction<SplineTable>;
    return FillAs<Nearest>(object, [](Nearest& f) { FillTable(f.GetTable()); }) ||
           FillAs<Linear>(object, [](Linear& f) { FillTable(f.GetTable()); }) ||
           FillAs<TLUTFunction<SplineTable>>(object, [](auto& f) { FillTable(f.GetTable()); }) ||
           FillAs<Circle>(object, [](Circle& circle) {
               Circle filled(T(-1), T(1));
               filled.SetCount(8);
               const T samples[] = {1, -2, 3, 5, -1, 0, 2, 4, 6, 1, 3};
               filled.Write(samples, 11);
               filled.SetView(2, 6);
               circle.CopyFrom(filled);
           });
}

template <class C, class F>
void FillCombination(C& combination, F* func1, F* func2) {
    combination.SetFunc1(func1, Core::kOwn);
    combination.SetFunc2(func2, Core::kOwn);
    combination.SetCombineFunction(new LibraryProduct, Core::kOwn);
}

bool FillCompounds(Runtime::IDynamicObject& object) {
    return FillAs<TNFunctionsAggregate<IFunction>>(
               object,
               [](auto& list) {
                   list.SetCount(4);
                   list.SetFunction(0, new CConstantFunction(0.75), Core::kOwn);
                   list.SetFunction(2, new Sin, Core::kOwn);
                   list.SetFunction(3, new TFunction<&FunctionsLibrary::Identity>, Core::kOwn);
               }) ||
           FillAs<CFunctionProxy>(object,
                                  [](auto& proxy) { proxy.SetTarget(new Sin, Core::kOwn); }) ||
           FillAs<CBinaryFunctionProxy>(
               object, [](auto& proxy) { proxy.SetTarget(new LibraryProduct, Core::kOwn); }) ||
           FillAs<CBinaryFunctionComposition>(object,
                                              [](auto& composition) {
                                                  composition.SetFunction(new Sin, Core::kOwn);
                                                  composition.SetBinaryFunction(new LibraryProduct,
                                                                                Core::kOwn);
                                              }) ||
           FillAs<CConstantComposition>(object,
                                        [](auto& composition) {
                                            composition.SetFunction(new Sin, Core::kOwn);
                                            composition.SetConstFunction(new CConstant(0.7),
                                                                         Core::kOwn);
                                        }) ||
           FillAs<CFunctionsCombination>(object,
                                         [](auto& combination) {
                                             FillCombination<CFunctionsCombination, IFunction>(
                                                 combination, new Sin, new CConstantFunction(0.3));
                                         }) ||
           FillAs<CBinaryFunctionsCombination>(
               object,
               [](auto& combination) {
                   FillCombination<CBinaryFunctionsCombination, IBinaryFunction>(
                       combination, new LibraryProduct, new CConstantBinaryFunction(0.3));
               }) ||
           FillAs<CConstantsCombination>(object, [](auto& combination) {
               FillCombination<CConstantsCombination, IConstant>(combination, new CConstant(0.1),
                                                                 new CConstant(0.3));
           });
}

/// Gives content to an object of each class that can have any; false for a class not known here.
bool Fill(Runtime::IDynamicObject& object) {
    return IsOfLibrary(object) || FillTables<double>(object) || FillTables<float>(object) ||
           FillCompounds(object) ||
           FillAs<CConstant>(object, [](auto& constant) { constant.SetValue(0.1); }) ||
           FillAs<CConstantFunction>(object, [](auto& constant) { constant.SetValue(0.1); }) ||
           FillAs<CConstantBinaryFunction>(object,
                                           [](auto& constant) { constant.SetValue(0.1); }) ||
           FillAs<CSweptValues>(object,
                                [](auto& swept) {
                                    swept.SetCapacity(8);
                                    swept.SetDefaultValue(0.6);
                                    for (int i = 0; i < 11; ++i) {
                                        swept.AddPoint(0.1 * i * i, std::cos(1.3 * i));
                                    }
                                }) ||
           FillAs<CSweptCurvesFunction>(object, [](auto& swept) {
               swept.SetCapacity(4);
               swept.SetDefaultValue(new CConstantFunction(0.6), Core::kOwn);
               for (int i = 0; i < 7; ++i) {
                   swept.AddPoint(0.3 * i, i == 5 ? nullptr : new CConstantFunction(0.1 * i));
               }
           });
}

template <class F>
std::unique_ptr<F> Make(const char* classId, const char* interfaceId) {
    std::unique_ptr<Runtime::IDynamicObject> made(
        Runtime::CObjectsFactory::Instance().CreateObject(classId, interfaceId));
    F* narrowed = dynamic_cast<F*>(made.get());
    if (narrowed) {
        static_cast<void>(made.release());
    }
    return std::unique_ptr<F>(narrowed);
}

/// The function within a proxy, a combination and a composition.
std::unique_ptr<IFunction> Nest(std::unique_ptr<IFunction> function) {
    auto* combination = new CFunctionsCombination;
    combination->SetFunc1(new CFunctionProxy(function.release(), Core::kOwn), Core::kOwn);
    combination->SetFunc2(new CConstantFunction(0.5), Core::kOwn);
    auto composition = std::make_unique<CFunctionsComposition>();
    composition->SetCount(2);
    composition->SetFunction(0, combination, Core::kOwn);
    composition->SetFunction(1, new Negate, Core::kOwn);
    return composition;
}

std::unique_ptr<IBinaryFunction> Nest(std::unique_ptr<IBinaryFunction> function) {
    auto* combination = new CBinaryFunctionsCombination;
    combination->SetFunc1(new CBinaryFunctionProxy(function.release(), Core::kOwn), Core::kOwn);
    combination->SetFunc2(new CConstantBinaryFunction(0.5), Core::kOwn);
    auto composition = std::make_unique<CBinaryFunctionComposition>();
    composition->SetBinaryFunction(combination, Core::kOwn);
    composition->SetFunction(new Negate, Core::kOwn);
    return composition;
}

std::unique_ptr<IConstant> Nest(std::unique_ptr<IConstant> constant) {
    auto* inner = new CConstantComposition;
    inner->SetConstFunction(constant.release(), Core::kOwn);
    auto* combination = new CConstantsCombination;
    combination->SetFunc1(inner, Core::kOwn);
    combination->SetFunc2(new CConstant(0.5), Core::kOwn);
    auto composition = std::make_unique<CConstantComposition>();
    composition->SetConstFunction(combination, Core::kOwn);
    composition->SetFunction(new Negate, Core::kOwn);
    return composition;
}

double EvaluateAt(const IFunction& function, double x, double) { return function.Evaluate(x); }
double EvaluateAt(const IBinaryFunction& function, double x, double y) {
    return function.Evaluate(x, y);
}
double EvaluateAt(const IConstant& constant, double, double) { return constant.Evaluate(); }

template <class F>
void ExpectEqual(const F& expected, const F& actual, const char* what) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> unit(-2.0, 2.0);
    for (int i = 0; i < 1000; ++i) {
        const double x = unit(random);
        const double y = unit(random);
        const double a = EvaluateAt(expected, x, y);
        const double b = EvaluateAt(actual, x, y);
        ASSERT_TRUE(a == b || (std::isnan(a) && std::isnan(b)))
            << what << " at " << x << ", " << y << ": " << a << " " << b;
    }
}

template <class F, class Stream>
std::unique_ptr<F> Read(const Stream& stream, const char* what) {
    TRuntimeDeSerializer<F> reader;
    EXPECT_TRUE(stream.ReadObject("f", reader)) << what;
    EXPECT_NE(reader.Get(), nullptr) << what;
    return std::unique_ptr<F>(reader.Release());
}

template <class F>
void ExpectComesBack(const CRegisteredFunction& registered) {
    const char* id = registered.classId;
    std::unique_ptr<F> made = Make<F>(id, registered.interfaceId);
    ASSERT_TRUE(made) << id;
    EXPECT_STREQ(made->GetType(), id);
    ASSERT_TRUE(Fill(*made)) << id << " has no content here";
    const std::unique_ptr<F> nested = Nest(std::move(made));
    const std::unique_ptr<F> clone(nested->Clone());
    ExpectEqual(*nested, *clone, id);

    CMemDataObject memory;
    ASSERT_TRUE(memory.WriteObject("f", CTypeSerializer(nested.get()))) << id;
    const std::unique_ptr<F> fromMemory = Read<F>(memory, id);
    ASSERT_TRUE(fromMemory);
    ExpectEqual(*nested, *fromMemory, id);

    for (const EXmlMode mode : {kXmlAttributes, kXmlElements, kXmlTypedElements}) {
        CXmlDataObject written("Root", mode);
        ASSERT_TRUE(written.WriteObject("f", CTypeSerializer(fromMemory.get()))) << id;
        Containers::CCharString text;
        ASSERT_TRUE(written.SaveString(text));
        CXmlDataObject read("Root", mode);
        ASSERT_TRUE(read.Parse(text.Get(), text.GetLength()));
        const std::unique_ptr<F> fromText = Read<F>(read, id);
        ASSERT_TRUE(fromText);
        ExpectEqual(*nested, *fromText, id);
        // The class that was read is the one that was written.
        CXmlDataObject again("Root", mode);
        ASSERT_TRUE(again.WriteObject("f", CTypeSerializer(fromText.get())));
        Containers::CCharString secondText;
        ASSERT_TRUE(again.SaveString(secondText));
        EXPECT_STREQ(secondText.Get(), text.Get()) << id;
    }
}

TEST(RegisteredFunctionsTest, EveryClassComesBackNestedThreeDeep) {
    for (const CRegisteredFunction& registered : GetRegisteredFunctions()) {
        if (std::strcmp(registered.interfaceId, kFunctionInterface) == 0) {
            ExpectComesBack<IFunction>(registered);
        } else if (std::strcmp(registered.interfaceId, kBinaryFunctionInterface) == 0) {
            ExpectComesBack<IBinaryFunction>(registered);
        } else {
            ASSERT_STREQ(registered.interfaceId, kConstantInterface);
            ExpectComesBack<IConstant>(registered);
        }
    }
}

TEST(RegisteredFunctionsTest, EveryClassHasItsOwnIdentifier) {
    std::set<std::string> identifiers;
    for (const CRegisteredFunction& registered : GetRegisteredFunctions()) {
        EXPECT_TRUE(identifiers.insert(registered.classId).second) << registered.classId;
        EXPECT_EQ(std::strlen(registered.classId), 38u);
    }
    // 27 and 20 of the library, 4 that fold a list, 9 tables, 3 constants, 8 compounds, 2 swept.
    EXPECT_EQ(identifiers.size(), 73u);
}

TEST(RegisteredFunctionsTest, CompoundsHaveTheIdentifiersOfTheFileFormat) {
    EXPECT_STREQ(CFunctionProxy().GetType(), "{709DCE8B-8C2B-44c4-AF00-EF02D7F53121}");
    EXPECT_STREQ(CBinaryFunctionProxy().GetType(), "{3F409A8F-20F5-4531-80DA-99441215C125}");
    EXPECT_STREQ(CFunctionsComposition().GetType(), "{C6B18AB7-10C4-46c3-975E-91255060ECA9}");
    EXPECT_STREQ(CBinaryFunctionComposition().GetType(), "{D9BEEC6F-C530-46c7-A19C-FF009E5E2C26}");
    EXPECT_STREQ(CConstantComposition().GetType(), "{83F37E7C-0ABF-4083-9F35-DD6310CC0951}");
    EXPECT_STREQ(CFunctionsCombination().GetType(), "{FA439331-DF20-4e00-8922-1FEEE83F9B39}");
    EXPECT_STREQ(CBinaryFunctionsCombination().GetType(), "{A8FBFEF4-0FFE-41a6-83AC-D8B94B84AABF}");
    EXPECT_STREQ(CConstantsCombination().GetType(), "{5145420A-1DCF-449e-8AC4-0006CF96D0F2}");
    EXPECT_STREQ(CSweptValues().GetType(), "{852FDB81-5DDA-4440-9598-AF98A8CFBC3D}");
    EXPECT_STREQ(CSweptCurvesFunction().GetType(), "{D4E5AB2C-72BD-446e-BC18-BA7745DCA94A}");
}

} // namespace
} // namespace Vorin::Math
