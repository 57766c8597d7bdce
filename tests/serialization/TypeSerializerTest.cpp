#include "serialization/TypeSerializer.h"

#include "serialization/IniDataObject.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

namespace {

using namespace Vorin;

class IShape : public virtual Serialization::ITypeSerializable {
public:
    virtual IShape* Clone() const = 0;
};

constexpr char kShape[] = "{shape}";
constexpr char kCircle[] = "{circle}";

class CCircle : public virtual IShape {
public:
    const char* GetType() const override { return kCircle; }
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteInt("radius", radius);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return stream.ReadInt("radius", radius);
    }
    IShape* Clone() const override {
        auto* clone = new CCircle;
        clone->radius = radius;
        return clone;
    }
    int radius = 0;
};

class CNameless : public CCircle {
public:
    const char* GetType() const override { return nullptr; }
};

const Runtime::TRegisteredObjectFactory<CCircle, IShape> kCircles(kCircle, kShape);

} // namespace

template <>
struct Vorin::Serialization::TInterfaceIdentifier<IShape> {
    static constexpr const char* kValue = kShape;
};

namespace {

using namespace Vorin::Serialization;

int RadiusOf(const IShape* shape) {
    const auto* circle = dynamic_cast<const CCircle*>(shape);
    return circle ? circle->radius : -1;
}

TEST(TypeSerializerTest, NullWritesIsNullAlone) {
    CMemDataObject stream;
    EXPECT_TRUE(CTypeSerializer(nullptr).Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 1);
    bool isNull = false;
    EXPECT_TRUE(stream.ReadBool("isNull", isNull));
    EXPECT_TRUE(isNull);
}

TEST(TypeSerializerTest, ObjectWithoutATypeWritesIsNullAlone) {
    CMemDataObject stream;
    const CNameless nameless;
    EXPECT_TRUE(CTypeSerializer(&nameless).Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 1);
    bool isNull = true;
    EXPECT_TRUE(stream.ReadBool("isNull", isNull));
    EXPECT_FALSE(isNull);
}

TEST(TypeSerializerTest, ContentStandsUnderTheEncodedType) {
    EXPECT_STREQ(ContentKey("{circle}").Get(), "Y29udGVudHtjaXJjbGV9"); // by coreutils' base64
    CMemDataObject stream;
    CCircle circle;
    circle.radius = 4;
    EXPECT_TRUE(CTypeSerializer(&circle).Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 3);
    EXPECT_EQ(StringOf(stream, "type"), "{circle}");
    CReads content([](const IReadDataStream& nested) { return IntOf(nested, "radius") == 4; });
    EXPECT_TRUE(stream.ReadObject("Y29udGVudHtjaXJjbGV9", content));
}

template <class Stream>
void ExpectRoundTrip(Stream&& stream) {
    CCircle circle;
    circle.radius = 4;
    ASSERT_TRUE(stream.WriteObject("shape", CTypeSerializer(&circle)));
    TRuntimeDeSerializer<IShape> reader;
    ASSERT_TRUE(stream.ReadObject("shape", reader));
    EXPECT_EQ(RadiusOf(reader.Get()), 4);
    ASSERT_TRUE(stream.WriteObject("shape", CTypeSerializer(nullptr)));
    ASSERT_TRUE(stream.ReadObject("shape", reader));
    EXPECT_EQ(reader.Get(), nullptr);
}

TEST(TypeSerializerTest, ObjectsComeBackOverEveryMedium) {
    ExpectRoundTrip(CMemDataObject());
    ExpectRoundTrip(CXmlDataObject("Root", kXmlAttributes));
    ExpectRoundTrip(CXmlDataObject("Root", kXmlElements));
    ExpectRoundTrip(CXmlDataObject("Root", kXmlTypedElements));
    ExpectRoundTrip(CIniDataObject());
}

TEST(TypeSerializerTest, UnknownTypeFailsAndGivesNoObject) {
    CMemDataObject stream;
    stream.WriteBool("isNull", false);
    TRuntimeDeSerializer<IShape> reader;
    EXPECT_FALSE(reader.DeSerialize(stream)); // no type
    stream.WriteString("type", "{square}");
    EXPECT_FALSE(reader.DeSerialize(stream));
    EXPECT_EQ(reader.Get(), nullptr);
    stream.WriteString("type", nullptr);
    EXPECT_FALSE(reader.DeSerialize(stream));
}

TEST(TypeSerializerTest, ContentThatIsMissingOrUnfitFails) {
    CMemDataObject stream;
    stream.WriteBool("isNull", false);
    stream.WriteString("type", "{circle}");
    TRuntimeDeSerializer<IShape> reader;
    EXPECT_FALSE(reader.DeSerialize(stream));
    stream.WriteObject(ContentKey("{circle}").Get(),
                       CWrites([](IWriteDataStream&) { return true; })); // no radius
    EXPECT_FALSE(reader.DeSerialize(stream));
    EXPECT_EQ(reader.Get(), nullptr);
    EXPECT_FALSE(reader.DeSerialize(TTolerant<CMemDataObject>())); // nothing there to make
}

TEST(TypeSerializerTest, HolderKeepsItsObjectWhenReadingFails) {
    auto* circle = new CCircle;
    circle->radius = 7;
    Core::TOwnershipWithClone<IShape> holder(circle, Core::kOwn);
    TOwnershipWithCloneTypeDeSerializer<IShape> reader(holder);
    EXPECT_FALSE(reader.DeSerialize(CMemDataObject()));
    EXPECT_EQ(RadiusOf(holder.Get()), 7);
    CMemDataObject stream;
    CCircle other;
    other.radius = 9;
    CTypeSerializer(&other).Serialize(stream);
    EXPECT_TRUE(reader.DeSerialize(stream));
    EXPECT_EQ(RadiusOf(holder.Get()), 9);
    stream.Clear();
    CTypeSerializer(nullptr).Serialize(stream);
    EXPECT_TRUE(reader.DeSerialize(stream));
    EXPECT_EQ(holder.Get(), nullptr);
}

TEST(TypeSerializerTest, TesterTellsWhatWasRead) {
    CTypeDeSerializerTester tester;
    EXPECT_FALSE(tester.DeSerialize(CMemDataObject()));
    EXPECT_FALSE(tester.IsNullRead());
    EXPECT_FALSE(tester.IsTypeRead());
    EXPECT_FALSE(tester.IsTolerant());
    CMemDataObject stream;
    stream.WriteBool("isNull", false);
    EXPECT_FALSE(tester.DeSerialize(stream));
    EXPECT_TRUE(tester.IsNullRead());
    EXPECT_FALSE(tester.IsTypeRead());
    stream.WriteString("type", "{any}");
    EXPECT_TRUE(tester.DeSerialize(stream)); // makes nothing, so any type will do
    EXPECT_TRUE(tester.IsTypeRead());
    EXPECT_STREQ(tester.GetType(), "{any}");
    stream.Remove("type");
    stream.WriteBool("isNull", true);
    EXPECT_TRUE(tester.DeSerialize(stream));
    EXPECT_TRUE(tester.IsNull());
    EXPECT_TRUE(tester.DeSerialize(TTolerant<CMemDataObject>()));
    EXPECT_TRUE(tester.IsTolerant());
}

} // namespace
