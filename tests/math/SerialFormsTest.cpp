#include "math/CircularLUTFunction.h"
#include "math/Constant.h"
#include "math/FunctionsOperation.h"
#include "math/LUTFunction.h"
#include "math/LibraryFunction.h"
#include "serialization/IniDataObject.h"
#include "serialization/MemDataObject.h"
#include "serialization/TypeSerializer.h"
#include "serialization/XmlDataObject.h"

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin;
using namespace Vorin::Math;
using namespace Vorin::Serialization;

using FloatTable = TLookupTable<float, TConstrainedSplineInterpolator<float, float>>;
using DoubleTable = TLookupTable<double, TLinearInterpolator<double, double>>;
using Circle = TCircularLUTFunction<FloatTable>;
using SumOfFunctions = TFunctionsOperation<&FunctionsLibrary::Sum>;

class CTolerantMemory : public CMemDataObject {
public:
    bool IsTolerant() const override { return true; }
};

/// Through the text of an XML document, as a preset does.
template <class F>
std::unique_ptr<F> ThroughXml(const F& function) {
    CXmlDataObject written("Root", kXmlAttributes);
    EXPECT_TRUE(written.WriteObject("f", CTypeSerializer(&function)));
    Containers::CCharString text;
    EXPECT_TRUE(written.SaveString(text));
    CXmlDataObject read("Root", kXmlAttributes);
    EXPECT_TRUE(read.Parse(text.Get(), text.GetLength()));
    TRuntimeDeSerializer<F> reader;
    EXPECT_TRUE(read.ReadObject("f", reader));
    return std::unique_ptr<F>(reader.Release());
}

TEST(SerialFormsTest, ConstantsAreTheirValue) {
    CMemDataObject stream;
    ASSERT_TRUE(CConstant(0.1).Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 1);
    double value = 0;
    EXPECT_TRUE(stream.ReadDouble("value", value));
    EXPECT_EQ(value, 0.1);
    EXPECT_EQ(ThroughXml<IConstant>(CConstant(0.1))->Evaluate(), 0.1);
    EXPECT_EQ(ThroughXml<IFunction>(CConstantFunction(0.2))->Evaluate(5), 0.2);
    EXPECT_EQ(ThroughXml<IBinaryFunction>(CConstantBinaryFunction(0.3))->Evaluate(5, 6), 0.3);
}

TEST(SerialFormsTest, ConstantWithoutAValueFailsUnlessTheStreamIsTolerant) {
    CConstant constant(4.0);
    EXPECT_FALSE(constant.DeSerialize(CMemDataObject()));
    EXPECT_TRUE(constant.DeSerialize(CTolerantMemory()));
    EXPECT_EQ(constant.GetValue(), 4.0);
}

TEST(SerialFormsTest, EveryLibraryFunctionIsEmptyAndComesBackAsItself) {
    LibraryFunctions::ForEach([]<double (*F)(double)>() {
        const TFunction<F> function;
        CMemDataObject stream;
        EXPECT_TRUE(function.Serialize(stream));
        EXPECT_EQ(stream.GetCount(), 0);
        const std::unique_ptr<IFunction> read = ThroughXml<IFunction>(function);
        ASSERT_NE(read, nullptr);
        EXPECT_STREQ(read->GetType(), function.GetType());
        EXPECT_EQ(read->Evaluate(0.25), F(0.25));
    });
    LibraryBinaryFunctions::ForEach([]<double (*F)(double, double)>() {
        const TBinaryFunction<F> function;
        const std::unique_ptr<IBinaryFunction> read = ThroughXml<IBinaryFunction>(function);
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(read->Evaluate(0.25, 0.5), F(0.25, 0.5));
    });
}

TEST(SerialFormsTest, TableIsAnObjectTable) {
    TLUTFunction<DoubleTable> function;
    function.GetTable().SetCount(3);
    function.GetTable().SetRange(-1.0, 1.0);
    function.GetTable().GetValues()[1] = 8.0;
    CMemDataObject stream;
    ASSERT_TRUE(function.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 1);
    CMemDataObject table;
    EXPECT_TRUE(stream.Exists("table"));
    const std::unique_ptr<IFunction> read = ThroughXml<IFunction>(function);
    ASSERT_NE(read, nullptr);
    for (const double x : {-2.0, -1.0, -0.5, 0.0, 0.25, 1.0, 2.0}) {
        EXPECT_EQ(read->Evaluate(x), function.Evaluate(x)) << x;
    }
    EXPECT_EQ(read->Evaluate(0.0), 8.0);
    EXPECT_EQ(read->Evaluate(-0.5), 4.0);
}

TEST(SerialFormsTest, TableThatIsNoneLeavesTheFunction) {
    TLUTFunction<DoubleTable> function;
    function.GetTable().SetCount(2);
    EXPECT_FALSE(function.DeSerialize(CMemDataObject()));
    EXPECT_TRUE(function.DeSerialize(CTolerantMemory()));
    EXPECT_EQ(function.GetTable().GetCount(), 2);
}

Circle MakeCircle() {
    Circle circle(-1.0f, 0.0f);
    circle.SetCount(4);
    const float samples[] = {1, 2, 3, 4, 5, 6};
    circle.Write(samples, 6);
    circle.SetView(2, 3);
    return circle;
}

TEST(SerialFormsTest, CircleKeepsItsTableAndPlaces) {
    const Circle circle = MakeCircle();
    CMemDataObject stream;
    ASSERT_TRUE(circle.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 5);
    int value = 0;
    EXPECT_TRUE(stream.ReadInt("offset", value));
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(stream.ReadInt("currentIndex", value));
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(stream.ReadInt("count", value));
    EXPECT_EQ(value, 4);
    EXPECT_TRUE(stream.ReadInt("limit", value));
    EXPECT_EQ(value, 3);
    EXPECT_TRUE(stream.Exists("function"));
    const std::unique_ptr<IFunction> read = ThroughXml<IFunction>(circle);
    ASSERT_NE(read, nullptr);
    for (int i = 0; i <= 64; ++i) {
        const double x = -1.0 + i / 64.0;
        EXPECT_EQ(read->Evaluate(x), circle.Evaluate(x)) << x;
    }
}

TEST(SerialFormsTest, CircleThatNeverHadASizeComesBack) {
    const std::unique_ptr<IFunction> read = ThroughXml<IFunction>(Circle());
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->Evaluate(0.0), 0.0);
    auto* circle = dynamic_cast<Circle*>(read.get());
    ASSERT_NE(circle, nullptr);
    const float sample = 1;
    circle->Write(&sample, 1); // there is no room, and it ends
    circle->SetCount(2);
    circle->Write(&sample, 1);
    EXPECT_EQ(circle->GetSamples()[0], 1.0f);
}

/// Uses a circle that was read in all ways that index its table.
void Use(Circle& circle) {
    EXPECT_GE(circle.GetOffset(), 0);
    EXPECT_LE(circle.GetOffset(), circle.GetCount());
    EXPECT_GE(circle.GetLimit(), 0);
    EXPECT_LE(circle.GetLimit(), circle.GetCount());
    EXPECT_GE(circle.GetCurrentIndex(), 0);
    EXPECT_LT(circle.GetCurrentIndex(), circle.GetCount());
    EXPECT_LE(circle.GetCount() + 3, circle.GetTable().GetCount());
    for (const double x :
         {-1e30, -1.0, -0.7, -0.3, 0.0, 1e30, std::numeric_limits<double>::quiet_NaN(),
          std::numeric_limits<double>::infinity()}) {
        circle.Evaluate(x);
    }
    const std::vector<float> samples(11, 1.0f);
    circle.Write(samples.data(), 11);
    circle.WriteZeros(11);
}

TEST(SerialFormsTest, HostilePlacesOfACircleAreMovedInside) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    for (const char* key : {"offset", "currentIndex", "count", "limit"}) {
        for (const int value : {least, -1, 0, 3, 4, 5, 7, 8, 1000000, most}) {
            CMemDataObject stream;
            ASSERT_TRUE(MakeCircle().Serialize(stream));
            stream.WriteInt(key, value);
            Circle circle;
            ASSERT_TRUE(circle.DeSerialize(stream)) << key << " " << value;
            Use(circle);
        }
    }
}

TEST(SerialFormsTest, CircleOfWildRangeOrTooSmallATableIsRefused) {
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        double min;
        double max;
        int entries;
    } cases[] = {{0, infinity, 7}, {-infinity, 0, 7}, {0, std::nan(""), 7},
                 {-3e38, 3e38, 7}, {0, 1e-45, 7},     {0, 1, 3},
                 {0, 1, 1}};
    for (const auto& wrong : cases) {
        FloatTable table;
        table.SetCount(wrong.entries);
        CMemDataObject stream;
        ASSERT_TRUE(MakeCircle().Serialize(stream));
        class CWrongTable : public virtual ISerialize {
        public:
            CWrongTable(const FloatTable& written, double newMin, double newMax)
                : values(written), min(newMin), max(newMax) {}
            bool Serialize(IWriteDataStream& nested) const override {
                return TLookupTableSerializer<FloatTable>(values).Serialize(nested) &&
                       nested.WriteDouble("min", min) && nested.WriteDouble("max", max);
            }
            const FloatTable& values;
            double min;
            double max;
        };
        stream.WriteObject("function", CWrongTable(table, wrong.min, wrong.max));
        Circle circle = MakeCircle();
        EXPECT_FALSE(circle.DeSerialize(stream)) << wrong.min << " " << wrong.max;
        EXPECT_EQ(circle.GetCount(), 4); // as it was
        EXPECT_EQ(circle.GetSamples()[3], 4.0f);
    }
    Circle circle = MakeCircle();
    EXPECT_FALSE(circle.DeSerialize(CMemDataObject()));
    EXPECT_TRUE(circle.DeSerialize(CTolerantMemory()));
    EXPECT_EQ(circle.GetSamples()[3], 4.0f);
}

TEST(SerialFormsTest, CircleOfOneSampleAndOfEmptyRangeCanBeUsed) {
    Circle circle(0.0f, 0.0f);
    circle.SetCount(1);
    CMemDataObject stream;
    ASSERT_TRUE(circle.Serialize(stream));
    Circle read;
    ASSERT_TRUE(read.DeSerialize(stream));
    Use(read);
}

TEST(SerialFormsTest, ListKeepsItsPartsAndNullSlots) {
    SumOfFunctions sum;
    sum.SetCount(3);
    sum.SetFunction(0, new CConstantFunction(2.0), Core::kOwn);
    sum.SetFunction(2, new TFunction<&FunctionsLibrary::Square>, Core::kOwn);
    for (const EXmlMode mode : {kXmlAttributes, kXmlElements, kXmlTypedElements}) {
        CXmlDataObject stream("Root", mode);
        ASSERT_TRUE(sum.Serialize(stream));
        SumOfFunctions read;
        ASSERT_TRUE(read.DeSerialize(stream));
        ASSERT_EQ(read.GetCount(), 3);
        EXPECT_EQ(read.GetFunction(1), nullptr);
        EXPECT_EQ(read.Evaluate(3.0), 11.0);
    }
    CIniDataObject stream;
    ASSERT_TRUE(sum.Serialize(stream));
    SumOfFunctions read;
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.Evaluate(3.0), 11.0);
}

TEST(SerialFormsTest, ListsNest) {
    auto* inner = new SumOfFunctions;
    inner->SetCount(1);
    inner->SetFunction(0, new CConstantFunction(5.0), Core::kOwn);
    TFunctionsOperation<&FunctionsLibrary::Product> product;
    product.SetCount(2);
    product.SetFunction(0, inner, Core::kOwn);
    product.SetFunction(1, new TFunction<&FunctionsLibrary::Identity>, Core::kOwn);
    const std::unique_ptr<IFunction> read = ThroughXml<IFunction>(product);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->Evaluate(3.0), 15.0);
}

TEST(SerialFormsTest, PartOfUnknownTypeBecomesTheSharedIdentity) {
    SumOfFunctions sum;
    sum.SetCount(2);
    sum.SetFunction(0, new CConstantFunction(2.0), Core::kOwn);
    sum.SetFunction(1, new CConstantFunction(7.0), Core::kOwn);
    CXmlDataObject written("Root", kXmlElements);
    ASSERT_TRUE(sum.Serialize(written));
    Containers::CCharString printed;
    ASSERT_TRUE(written.SaveString(printed));
    std::string text = printed.Get();
    const std::string type = CConstantFunction::kIdentifier;
    text.replace(text.find(type), type.size(), "{nobody}");
    CXmlDataObject stream("Root", kXmlElements);
    ASSERT_TRUE(stream.Parse(text.data(), static_cast<int>(text.size())));
    SumOfFunctions read;
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.GetFunction(0), GetNeutralFunction<IFunction>());
    EXPECT_EQ(read.Evaluate(3.0), 10.0); // reading went on: 3 + 7
    SumOfFunctions again;
    ASSERT_TRUE(again.DeSerialize(stream));
    EXPECT_EQ(again.GetFunction(0), read.GetFunction(0));
    const std::unique_ptr<IFunction> clone(read.Clone());
    EXPECT_EQ(clone->Evaluate(3.0), 10.0);
}

TEST(SerialFormsTest, NeutralBinaryFunctionIsTheSum) {
    EXPECT_EQ(GetNeutralFunction<IBinaryFunction>()->Evaluate(2.0, 5.0), 7.0);
    EXPECT_EQ(GetNeutralFunction<IBinaryFunction>(), GetNeutralFunction<IBinaryFunction>());
}

TEST(SerialFormsTest, CountOfAListWithoutItsItemsChangesNothing) {
    for (const char* count : {"-1", "2147483647", "1000000", "1000001", "1"}) {
        CXmlDataObject stream("Root", kXmlAttributes);
        const std::string text = std::string("<Root><functions itemCount='") + count + "'/></Root>";
        ASSERT_TRUE(stream.Parse(text.data(), static_cast<int>(text.size())));
        SumOfFunctions sum;
        sum.SetCount(2);
        EXPECT_FALSE(sum.DeSerialize(stream)) << count;
        EXPECT_EQ(sum.GetCount(), 2);
    }
}

} // namespace
