#include "math/DeprecatedCircularLUTFunction.h"

#include "serialization/MemDataObject.h"
#include "serialization/TypeSerializer.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::Math {
namespace {

using Table = TLookupTable<float, TConstrainedSplineInterpolator<float, float>>;
using Circle = TCircularLUTFunction<Table>;
using Deprecated = TDeprecatedCircularLUTFunction<Table>;

template <class C>
C MakeCircle() {
    C circle(-1.0f, 0.0f);
    circle.SetCount(5);
    const float samples[] = {1, 2, 3, 4, 5, 6, 7};
    circle.Write(samples, 7);
    circle.SetView(2, 3);
    return circle;
}

TEST(DeprecatedCircularLUTFunctionTest, EvaluatesAsTheCircularTable) {
    const Circle circle = MakeCircle<Circle>();
    const Deprecated deprecated = MakeCircle<Deprecated>();
    for (int i = -10; i <= 110; ++i) {
        const double x = -1.0 + i / 100.0;
        EXPECT_EQ(deprecated.Evaluate(x), circle.Evaluate(x)) << x;
    }
}

TEST(DeprecatedCircularLUTFunctionTest, KeepsItsIdentifierWhenItIsReadClonedAndWritten) {
    const Deprecated deprecated = MakeCircle<Deprecated>();
    EXPECT_STREQ(deprecated.GetType(), "{C2D27847-1FD3-461e-9E92-922EAE3D07E2}");
    const std::unique_ptr<IFunction> clone(deprecated.Clone());
    EXPECT_STREQ(clone->GetType(), deprecated.GetType());
    Serialization::CMemDataObject stream;
    ASSERT_TRUE(stream.WriteObject("f", Serialization::CTypeSerializer(clone.get())));
    Serialization::TRuntimeDeSerializer<IFunction> reader;
    ASSERT_TRUE(stream.ReadObject("f", reader));
    ASSERT_NE(reader.Get(), nullptr);
    EXPECT_STREQ(reader.Get()->GetType(), deprecated.GetType());
    EXPECT_EQ(reader.Get()->Evaluate(-0.3), deprecated.Evaluate(-0.3));
}

TEST(DeprecatedCircularLUTFunctionTest, ReadsTheFormOfTheCircularTable) {
    Serialization::CMemDataObject stream;
    ASSERT_TRUE(MakeCircle<Circle>().Serialize(stream));
    Deprecated read;
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.GetCount(), 5);
    EXPECT_EQ(read.Evaluate(-0.3), MakeCircle<Circle>().Evaluate(-0.3));
}

} // namespace
} // namespace Vorin::Math
