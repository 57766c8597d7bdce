#include "serialization/ListSerializers.h"

#include "containers/Vector.h"
#include "serialization/LookupTableSerializers.h"
#include "serialization/MemDataObject.h"
#include "serialization/NamedAttributesSerializers.h"
#include "serialization/NamedValues.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <limits>
#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin;
using namespace Vorin::Serialization;

using Pair = TSerializableNamedValue<int>;
using Pairs = std::vector<Pair>;

constexpr int kWrongCounts[] = {-1, std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max(), 1000001, 3};

class CNumbers : public virtual Containers::IVector<double>, public virtual Containers::ICount {
public:
    int GetCount() const override { return static_cast<int>(numbers.size()); }
    void SetCount(int count) override { numbers.resize(static_cast<std::size_t>(count)); }
    const double& Get(int index) const override {
        return numbers.at(static_cast<std::size_t>(index));
    }
    double& Get(int index) override { return numbers.at(static_cast<std::size_t>(index)); }
    std::vector<double> numbers;
};

class CTable {
public:
    using Value = float;
    int GetCount() const { return static_cast<int>(values.size()); }
    void SetCount(int count) { values.resize(static_cast<std::size_t>(count)); }
    void SetRange(float newMin, float newMax) {
        min = newMin;
        max = newMax;
    }
    float GetMin() const { return min; }
    float GetMax() const { return max; }
    float* GetValues() { return values.data(); }
    const float* GetValues() const { return values.data(); }
    float min = 0;
    float max = 1;
    std::vector<float> values;
};

TEST(NamedValueTest, IsNameAndValue) {
    CMemDataObject stream;
    EXPECT_TRUE(TSerializableNamedValue<int>("a", 5).Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 2);
    EXPECT_EQ(StringOf(stream, "name"), "a");
    EXPECT_EQ(IntOf(stream, "value"), 5);
    TSerializableNamedValue<int> read;
    EXPECT_TRUE(read.DeSerialize(stream));
    EXPECT_STREQ(read.GetName(), "a");
    EXPECT_EQ(read.GetValue(), 5);
    EXPECT_TRUE(TSerializableNamedValue<double>("b", 0.5).Serialize(stream));
    EXPECT_EQ(DoubleOf(stream, "value"), 0.5);
    EXPECT_TRUE(TSerializableNamedValue<char*>("c", "text").Serialize(stream));
    TSerializableNamedValue<char*> text;
    EXPECT_TRUE(text.DeSerialize(stream));
    EXPECT_STREQ(text.GetValue().Get(), "text");
}

TEST(NamedValueTest, MissingFieldFailsUnlessTheStreamIsTolerant) {
    CMemDataObject stream;
    stream.WriteInt("value", 5);
    TSerializableNamedValue<int> read;
    EXPECT_FALSE(read.DeSerialize(stream));
    TTolerant<CMemDataObject> tolerant;
    tolerant.WriteInt("value", 6);
    EXPECT_TRUE(read.DeSerialize(tolerant));
    EXPECT_EQ(read.GetValue(), 6);
}

TEST(NamedValueTest, PointerIsReadInPlace) {
    Pair inner("x", 1);
    CMemDataObject stream;
    EXPECT_TRUE(TSerializableNamedPointer<Pair>("p", &inner).Serialize(stream));
    Pair target;
    TSerializableNamedPointer<Pair> read("", &target);
    EXPECT_TRUE(read.DeSerialize(stream));
    EXPECT_STREQ(read.GetName(), "p");
    EXPECT_EQ(target.GetValue(), 1);
    EXPECT_FALSE(TSerializableNamedPointer<Pair>("p", nullptr).Serialize(stream));
    EXPECT_FALSE(TSerializableNamedPointer<Pair>("p", nullptr).DeSerialize(stream));
}

TEST(StdContainerSerializerTest, IsCountAndNumberedItems) {
    CMemDataObject stream;
    const Pairs pairs = {Pair("a", 1), Pair("b", 2)};
    EXPECT_TRUE(TStdContainerSerializer<Pairs>(pairs, "item").Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 3);
    EXPECT_EQ(IntOf(stream, "itemCount"), 2);
    Pair second;
    EXPECT_TRUE(stream.ReadObject("item1", second));
    EXPECT_EQ(second.GetValue(), 2);
    std::list<Pair> read;
    TStdContainerDeSerializer<Pair, std::list<Pair>> reader(read, "item");
    EXPECT_TRUE(reader.DeSerialize(stream));
    ASSERT_EQ(read.size(), 2u);
    EXPECT_STREQ(read.front().GetName(), "a");
    EXPECT_EQ(read.back().GetValue(), 2);
}

TEST(StdContainerSerializerTest, EmptyListComesBackEmpty) {
    CMemDataObject stream;
    EXPECT_TRUE(TStdContainerSerializer<Pairs>(Pairs(), "item").Serialize(stream));
    Pairs read(3);
    EXPECT_TRUE((TStdContainerDeSerializer<Pair, Pairs>(read, "item").DeSerialize(stream)));
    EXPECT_TRUE(read.empty());
}

TEST(StdContainerSerializerTest, CountsWithoutItemsLeaveTheListAlone) {
    Pairs read(3);
    TStdContainerDeSerializer<Pair, Pairs> reader(read, "item");
    EXPECT_FALSE(reader.DeSerialize(CMemDataObject()));
    for (const int count : kWrongCounts) {
        CMemDataObject stream;
        stream.WriteObject("item0", Pair("a", 1));
        stream.WriteObject("item1", Pair("a", 1));
        stream.WriteInt("itemCount", count);
        EXPECT_FALSE(reader.DeSerialize(stream)) << count;
        EXPECT_EQ(read.size(), 3u);
    }
}

TEST(StdContainerSerializerTest, TolerantStreamMayLeaveItemsOut) {
    TTolerant<CMemDataObject> stream;
    stream.WriteInt("itemCount", 3);
    stream.WriteObject("item2", Pair("c", 3));
    Pairs read;
    TStdContainerDeSerializer<Pair, Pairs> reader(read, "item");
    EXPECT_TRUE(reader.DeSerialize(stream));
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].GetValue(), 3);
    EXPECT_TRUE(reader.DeSerialize(TTolerant<CMemDataObject>()));
    EXPECT_EQ(read.size(), 1u);
}

TEST(VectorSerializerTest, NumbersStandAsValues) {
    CNumbers numbers;
    numbers.numbers = {0.5, -1.0, 2.0};
    CMemDataObject stream;
    EXPECT_TRUE(TVectorSerializer<CNumbers>(numbers, "value").Serialize(stream));
    EXPECT_EQ(IntOf(stream, "valueCount"), 3);
    EXPECT_EQ(DoubleOf(stream, "value1"), -1.0);
    CNumbers read;
    read.numbers = {7.0, 7.0, 7.0};
    EXPECT_TRUE(TVectorDeSerializer<CNumbers>(read, "value").DeSerialize(stream));
    EXPECT_EQ(read.numbers, numbers.numbers);
}

TEST(VectorSerializerTest, FixedVectorRefusesAnotherCount) {
    CNumbers numbers;
    numbers.numbers = {1.0, 2.0};
    CMemDataObject stream;
    TVectorSerializer<CNumbers>(numbers, "value").Serialize(stream);
    CNumbers read;
    read.numbers = {7.0};
    EXPECT_FALSE(TVectorDeSerializer<CNumbers>(read, "value").DeSerialize(stream));
    EXPECT_EQ(read.numbers, std::vector<double>({7.0}));
    TTolerant<CMemDataObject> tolerant;
    TVectorSerializer<CNumbers>(numbers, "value").Serialize(tolerant);
    EXPECT_TRUE(TVectorDeSerializer<CNumbers>(read, "value").DeSerialize(tolerant));
    EXPECT_EQ(read.numbers, std::vector<double>({1.0}));
}

TEST(VectorSerializerTest, DynamicVectorTakesTheCount) {
    CNumbers numbers;
    numbers.numbers = {1.0, 2.0, 3.0};
    CMemDataObject stream;
    TVectorSerializer<CNumbers>(numbers, "value").Serialize(stream);
    CNumbers read;
    EXPECT_TRUE(TDynamicVectorDeSerializer<CNumbers>(read, "value").DeSerialize(stream));
    EXPECT_EQ(read.numbers, numbers.numbers);
}

TEST(VectorSerializerTest, CountsWithoutItemsResizeNothing) {
    CNumbers read;
    read.numbers = {7.0};
    TDynamicVectorDeSerializer<CNumbers> reader(read, "value");
    EXPECT_FALSE(reader.DeSerialize(CMemDataObject()));
    for (const int count : kWrongCounts) {
        CMemDataObject stream;
        stream.WriteDouble("value0", 1.0);
        stream.WriteInt("valueCount", count);
        EXPECT_FALSE(reader.DeSerialize(stream)) << count;
        EXPECT_EQ(read.numbers, std::vector<double>({7.0}));
    }
}

TEST(LookupTableSerializerTest, IsRangeCountAndValues) {
    CTable table;
    table.SetRange(-0.5f, 2.0f);
    table.values = {1.0f, -0.0f, std::numeric_limits<float>::quiet_NaN()};
    CMemDataObject stream;
    EXPECT_TRUE(TLookupTableSerializer<CTable>(table).Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 4);
    EXPECT_EQ(DoubleOf(stream, "min"), -0.5);
    EXPECT_EQ(DoubleOf(stream, "max"), 2.0);
    EXPECT_EQ(IntOf(stream, "valuesCount"), 3);
    EXPECT_EQ(DataOf(stream, "values").value_or("").size(), 12u);
    CTable read;
    EXPECT_TRUE(TLookupTableDeSerializer<CTable>(read).DeSerialize(stream));
    EXPECT_EQ(read.min, -0.5f);
    EXPECT_EQ(read.max, 2.0f);
    EXPECT_EQ(std::memcmp(read.GetValues(), table.GetValues(), 12), 0);
}

TEST(LookupTableSerializerTest, EmptyTableComesBack) {
    CMemDataObject stream;
    EXPECT_TRUE(TLookupTableSerializer<CTable>(CTable()).Serialize(stream));
    CTable read;
    read.SetCount(4);
    EXPECT_TRUE(TLookupTableDeSerializer<CTable>(read).DeSerialize(stream));
    EXPECT_EQ(read.GetCount(), 0);
}

TEST(LookupTableSerializerTest, CountThatIsNotThatOfTheValuesIsRefused) {
    CTable table;
    table.values = {1.0f, 2.0f};
    for (const int count : {-1, 0, 1, 3, std::numeric_limits<int>::min(),
                            std::numeric_limits<int>::max(), 0x40000002}) {
        CMemDataObject stream;
        TLookupTableSerializer<CTable>(table).Serialize(stream);
        stream.WriteInt("valuesCount", count);
        CTable read;
        read.values = {7.0f};
        EXPECT_FALSE(TLookupTableDeSerializer<CTable>(read).DeSerialize(stream)) << count;
        EXPECT_EQ(read.values, std::vector<float>({7.0f}));
    }
    for (const char* key : {"min", "max", "valuesCount", "values"}) {
        CMemDataObject stream;
        TLookupTableSerializer<CTable>(table).Serialize(stream);
        stream.Remove(key);
        CTable read;
        EXPECT_FALSE(TLookupTableDeSerializer<CTable>(read).DeSerialize(stream)) << key;
        EXPECT_EQ(read.GetCount(), 0);
        EXPECT_EQ(read.max, 1.0f);
    }
}

TEST(LookupTableSerializerTest, RangeBeyondTheValueTypeIsItsOutermost) {
    CMemDataObject stream;
    TLookupTableSerializer<CTable>(CTable()).Serialize(stream);
    stream.WriteDouble("min", -1e300);
    stream.WriteDouble("max", 1e300);
    CTable read;
    EXPECT_TRUE(TLookupTableDeSerializer<CTable>(read).DeSerialize(stream));
    EXPECT_EQ(read.min, std::numeric_limits<float>::lowest());
    EXPECT_EQ(read.max, std::numeric_limits<float>::max());
}

TEST(NamedAttributesSerializerTest, FormDoesNotHangOnTheOrderOfTheTable) {
    Containers::CNamedAttributes attributes;
    for (const char* name : {"b", "a", "C", "aa"}) {
        attributes.SetValue(name, (std::string("value of ") + name).c_str());
    }
    CXmlDataObject stream("Root", kXmlAttributes);
    EXPECT_TRUE(CSerializableNamedAttributes(attributes).Serialize(stream));
    Containers::CCharString text;
    ASSERT_TRUE(stream.SaveString(text));
    EXPECT_STREQ(text.Get(), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                             "<Root>\n"
                             "    <namedValues itemCount=\"4\">\n"
                             "        <item0 name=\"C\" value=\"value of C\"/>\n"
                             "        <item1 name=\"a\" value=\"value of a\"/>\n"
                             "        <item2 name=\"aa\" value=\"value of aa\"/>\n"
                             "        <item3 name=\"b\" value=\"value of b\"/>\n"
                             "    </namedValues>\n"
                             "</Root>\n");
    Containers::CNamedAttributes read;
    read.SetValue("old", "x");
    EXPECT_TRUE(CSerializableNamedAttributes(read).DeSerialize(stream));
    EXPECT_EQ(read.GetCount(), 4);
    EXPECT_STREQ(read.GetValue("aa"), "value of aa");
}

TEST(NamedAttributesSerializerTest, FailedReadLeavesTheTableAlone) {
    Containers::CNamedAttributes read;
    read.SetValue("old", "x");
    EXPECT_FALSE(CSerializableNamedAttributes(read).DeSerialize(CMemDataObject()));
    CMemDataObject stream;
    stream.WriteObject("namedValues", CWrites([](IWriteDataStream& nested) {
                           return nested.WriteInt("itemCount", 2) &&
                                  nested.WriteObject("item0",
                                                     TSerializableNamedValue<char*>("a", "b"));
                       }));
    EXPECT_FALSE(CSerializableNamedAttributes(read).DeSerialize(stream));
    EXPECT_EQ(read.GetCount(), 1);
    EXPECT_STREQ(read.GetValue("old"), "x");
    EXPECT_TRUE(CSerializableNamedAttributes(read).DeSerialize(TTolerant<CMemDataObject>()));
    EXPECT_EQ(read.GetCount(), 1);
}

} // namespace
