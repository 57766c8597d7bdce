#include "math/FunctionsComposition.h"

#include "math/Constant.h"
#include "math/FunctionProxy.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Vorin::Math {
namespace {

using namespace Serialization;

using Square = TFunction<&FunctionsLibrary::Square>;
using Negate = TFunction<&FunctionsLibrary::Negate>;
using Exp = TFunction<&FunctionsLibrary::Exp>;

TEST(FunctionsCompositionTest, AppliesTheFirstFunctionFirst) {
    CFunctionsComposition composition;
    composition.SetCount(2);
    composition.SetFunction(0, new Negate, Core::kOwn);
    composition.SetFunction(1, new Square, Core::kOwn);
    EXPECT_EQ(composition.Evaluate(3.0), 9.0);
    composition.SetFunction(0, new Square, Core::kOwn);
    composition.SetFunction(1, new Negate, Core::kOwn);
    EXPECT_EQ(composition.Evaluate(3.0), -9.0);
}

TEST(FunctionsCompositionTest, AnEmptyListGivesX) {
    EXPECT_EQ(CFunctionsComposition().Evaluate(3.0), 3.0);
}

TEST(FunctionsCompositionTest, ANullFirstElementLeavesTheOthers) {
    CFunctionsComposition composition;
    composition.SetCount(4);
    composition.SetFunction(1, new Square, Core::kOwn);
    composition.SetFunction(3, new Negate, Core::kOwn);
    EXPECT_EQ(composition.Evaluate(3.0), -9.0);
    CMemDataObject stream;
    ASSERT_TRUE(composition.Serialize(stream));
    CFunctionsComposition read;
    ASSERT_TRUE(read.DeSerialize(stream));
    ASSERT_EQ(read.GetCount(), 4);
    EXPECT_EQ(read.GetFunction(0), nullptr);
    EXPECT_EQ(read.Evaluate(3.0), -9.0);
}

TEST(FunctionsCompositionTest, ABinaryFunctionGoesThroughAFunction) {
    CBinaryFunctionComposition composition;
    EXPECT_EQ(composition.Evaluate(3.0, 4.0), 7.0); // neutral parts
    composition.SetBinaryFunction(new TBinaryFunction<&FunctionsLibrary::Product>, Core::kOwn);
    EXPECT_EQ(composition.Evaluate(3.0, 4.0), 12.0);
    composition.SetFunction(new Square, Core::kOwn);
    EXPECT_EQ(composition.Evaluate(3.0, 4.0), 144.0);
    const std::unique_ptr<IBinaryFunction> clone(composition.Clone());
    composition.SetFunction(nullptr, Core::kOwn);
    EXPECT_EQ(composition.Evaluate(3.0, 4.0), 12.0);
    EXPECT_EQ(clone->Evaluate(3.0, 4.0), 144.0);
}

TEST(FunctionsCompositionTest, AConstantGoesThroughAFunction) {
    CConstantComposition composition;
    EXPECT_EQ(composition.Evaluate(), 0.0);
    composition.SetFunction(new Exp, Core::kOwn);
    EXPECT_EQ(composition.Evaluate(), 1.0);
    CConstant constant(3.0);
    composition.SetFunction(new Square, Core::kOwn);
    composition.SetConstFunction(&constant, Core::kDontOwn);
    EXPECT_EQ(composition.Evaluate(), 9.0);
    const std::unique_ptr<IConstant> clone(composition.Clone());
    constant.SetValue(4.0); // set in place, after it became a part
    EXPECT_EQ(composition.Evaluate(), 16.0);
    EXPECT_EQ(clone->Evaluate(), 9.0);
}

TEST(FunctionsCompositionTest, PartsAreWrittenUnderTheirNames) {
    CBinaryFunctionComposition binary;
    CMemDataObject stream;
    ASSERT_TRUE(binary.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 2);
    EXPECT_TRUE(stream.Exists("function"));
    EXPECT_TRUE(stream.Exists("binaryFunction"));
    CConstantComposition constant;
    stream.Clear();
    ASSERT_TRUE(constant.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 2);
    EXPECT_TRUE(stream.Exists("function"));
    EXPECT_TRUE(stream.Exists("constFunction"));
}

TEST(FunctionsCompositionTest, MissingPartsBecomeNeutralAndReadingGoesOn) {
    CConstantComposition constant;
    constant.SetFunction(new Square, Core::kOwn);
    constant.SetConstFunction(new CConstant(3.0), Core::kOwn);
    CMemDataObject stream;
    ASSERT_TRUE(constant.Serialize(stream));
    stream.Remove("function");
    ASSERT_TRUE(constant.DeSerialize(stream));
    EXPECT_EQ(constant.GetFunction(), GetNeutralFunction<IFunction>());
    EXPECT_EQ(constant.Evaluate(), 3.0);
    ASSERT_TRUE(constant.DeSerialize(CMemDataObject()));
    EXPECT_EQ(constant.GetConstFunction(), GetNeutralFunction<IConstant>());
    EXPECT_EQ(constant.Evaluate(), 0.0);

    CBinaryFunctionComposition binary;
    ASSERT_TRUE(binary.DeSerialize(CMemDataObject()));
    EXPECT_EQ(binary.GetFunction(), GetNeutralFunction<IFunction>());
    EXPECT_EQ(binary.GetBinaryFunction(), GetNeutralFunction<IBinaryFunction>());
}

TEST(FunctionsCompositionTest, OnATolerantStreamPartsStay) {
    CConstantComposition constant;
    constant.SetFunction(new Square, Core::kOwn);
    constant.SetConstFunction(new CConstant(3.0), Core::kOwn);
    EXPECT_TRUE(constant.DeSerialize(TTolerant<CMemDataObject>()));
    EXPECT_EQ(constant.Evaluate(), 9.0);
}

/// A proxy of a proxy ... of a constant 5.
CFunctionProxy MakeNested(int proxies) {
    CFunctionProxy outermost(new CConstantFunction(5.0), Core::kOwn);
    for (int i = 1; i < proxies; ++i) {
        auto* inner = new CFunctionProxy;
        inner->SetTarget(outermost.GetTarget(), Core::kOwn);
        outermost.SetTarget(outermost.GetTarget(), Core::kDontOwn); // given away
        outermost.SetTarget(inner, Core::kOwn);
    }
    return outermost;
}

TEST(FunctionsCompositionTest, ATreeDeeperThanADocumentIsNotWritten) {
    // A proxy and its target take an element each, and the root is one.
    CXmlDataObject stream("Root", kXmlElements);
    EXPECT_TRUE(MakeNested(31).Serialize(stream));
    CFunctionProxy read;
    EXPECT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.Evaluate(0.0), 5.0);
    CXmlDataObject tooSmall("Root", kXmlElements);
    EXPECT_FALSE(MakeNested(32).Serialize(tooSmall));
    CMemDataObject memory;
    EXPECT_TRUE(MakeNested(60).Serialize(memory));
    EXPECT_TRUE(read.DeSerialize(memory));
    EXPECT_EQ(read.Evaluate(0.0), 5.0);
}

TEST(FunctionsCompositionTest, ADocumentOfDepth65IsNoFunctionAtAll) {
    for (const int depth : {64, 65}) {
        std::string text = "<Root>";
        for (int i = 1; i < depth; ++i) {
            text += "<value>";
        }
        for (int i = 1; i < depth; ++i) {
            text += "</value>";
        }
        text += "</Root>";
        CXmlDataObject stream("Root", kXmlElements);
        EXPECT_EQ(stream.Parse(text.data(), static_cast<int>(text.size())), depth == 64);
        CFunctionProxy proxy;
        EXPECT_TRUE(proxy.DeSerialize(stream));
        EXPECT_EQ(proxy.GetTarget(), GetNeutralFunction<IFunction>());
    }
}

} // namespace
} // namespace Vorin::Math
