#include "serialization/MemDataObject.h"

#include "serialization/StreamHelpers.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

TEST(MemDataObjectTest, IntDoesNotReadAsFloat) {
    CMemDataObject object;
    EXPECT_TRUE(object.WriteInt("a", 1));
    float value = 7;
    EXPECT_FALSE(object.ReadFloat("a", value));
    EXPECT_EQ(value, 7);
    EXPECT_EQ(IntOf(object, "a"), 1);
}

TEST(MemDataObjectTest, NullTextReadsAsNull) {
    CMemDataObject object;
    EXPECT_TRUE(object.WriteString("s", nullptr));
    EXPECT_EQ(StringOf(object, "s"), "(null)");
    EXPECT_TRUE(object.WriteString("s", ""));
    EXPECT_EQ(StringOf(object, "s"), "");
}

TEST(MemDataObjectTest, MissingKeyIsFalseAndLeavesTheValue) {
    const CMemDataObject object;
    bool truth = true;
    int integer = 3;
    double number = 4;
    char* text = nullptr;
    void* data = nullptr;
    EXPECT_FALSE(object.ReadBool("a", truth));
    EXPECT_FALSE(object.ReadInt("a", integer));
    EXPECT_FALSE(object.ReadDouble("a", number));
    EXPECT_FALSE(object.ReadString("a", text));
    EXPECT_FALSE(object.ReadData("a", data, integer));
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_TRUE(truth);
    EXPECT_EQ(integer, 3);
    EXPECT_EQ(number, 4);
    EXPECT_FALSE(object.IsTolerant());
}

TEST(MemDataObjectTest, RemoveOfAnAbsentKeyIsTrue) {
    CMemDataObject object;
    EXPECT_TRUE(object.Remove("a"));
    object.WriteInt("a", 1);
    EXPECT_TRUE(object.Remove("a"));
    EXPECT_FALSE(object.Exists("a"));
}

TEST(MemDataObjectTest, NullNamesFail) {
    CMemDataObject object;
    EXPECT_FALSE(object.WriteInt(nullptr, 1));
    EXPECT_FALSE(object.Remove(nullptr));
    EXPECT_FALSE(object.Exists(nullptr));
    int value = 0;
    EXPECT_FALSE(object.ReadInt(nullptr, value));
}

TEST(MemDataObjectTest, FailedWriteLeavesTheKeyRemoved) {
    CMemDataObject object;
    object.WriteInt("a", 1);
    EXPECT_FALSE(object.WriteData("a", nullptr, 5));
    EXPECT_FALSE(object.Exists("a"));
    object.WriteInt("a", 1);
    EXPECT_FALSE(object.WriteObject("a", CWrites([](IWriteDataStream&) { return false; })));
    EXPECT_FALSE(object.Exists("a"));
}

TEST(MemDataObjectTest, NestedObjectsAreReadBackByTheirReader) {
    CMemDataObject object;
    EXPECT_TRUE(object.WriteObject(
        "o", CWrites([](IWriteDataStream& stream) { return stream.WriteInt("x", 5); })));
    int value = 0;
    CReads reader([&value](const IReadDataStream& stream) { return stream.ReadInt("x", value); });
    EXPECT_TRUE(object.ReadObject("o", reader));
    EXPECT_EQ(value, 5);
    CReads failing([](const IReadDataStream&) { return false; });
    EXPECT_FALSE(object.ReadObject("o", failing));
    EXPECT_FALSE(object.ReadObject("p", reader));
}

TEST(MemDataObjectTest, ClearRemovesEverything) {
    CMemDataObject object;
    object.WriteInt("a", 1);
    object.WriteString("b", "x");
    EXPECT_TRUE(object.Clear());
    EXPECT_EQ(object.GetCount(), 0);
    EXPECT_FALSE(object.Exists("a"));
}

TEST(MemDataObjectTest, IsWrittenAsCountNamesAndItemsInBucketOrder) {
    CMemDataObject object;
    object.WriteInt("b", 2); // bucket 98 % 17 = 13
    object.WriteInt("a", 1); // bucket 97 % 17 = 12
    CMemDataObject stream;
    ASSERT_TRUE(object.Serialize(stream));
    EXPECT_EQ(stream.GetCount(), 5);
    EXPECT_EQ(IntOf(stream, "ItemsCount"), 2);
    EXPECT_EQ(StringOf(stream, "ItemName0"), "a");
    EXPECT_EQ(StringOf(stream, "ItemName1"), "b");
    int type = 0;
    CReads item([&type](const IReadDataStream& nested) { return nested.ReadInt("type", type); });
    EXPECT_TRUE(stream.ReadObject("Item1", item));
    EXPECT_EQ(type, 2);
}

TEST(MemDataObjectTest, ReadReplacesTheContent) {
    CMemDataObject source;
    source.WriteInt("a", 1);
    CMemDataObject stream;
    ASSERT_TRUE(source.Serialize(stream));
    CMemDataObject target;
    target.WriteInt("old", 1);
    ASSERT_TRUE(target.DeSerialize(stream));
    EXPECT_EQ(IntOf(target, "a"), 1);
    EXPECT_FALSE(target.Exists("old"));
}

TEST(MemDataObjectTest, MissingItemFailsAndChangesNothing) {
    CMemDataObject source;
    source.WriteInt("a", 1);
    source.WriteInt("b", 2);
    CMemDataObject stream;
    ASSERT_TRUE(source.Serialize(stream));
    stream.Remove("Item1");
    CMemDataObject target;
    target.WriteInt("old", 9);
    EXPECT_FALSE(target.DeSerialize(stream));
    EXPECT_EQ(target.GetCount(), 1);
    EXPECT_EQ(IntOf(target, "old"), 9);
    EXPECT_FALSE(target.DeSerialize(CMemDataObject()));
    EXPECT_EQ(IntOf(target, "old"), 9);
}

TEST(MemDataObjectTest, MissingItemOnATolerantStreamIsLeftOut) {
    CMemDataObject source;
    source.WriteInt("a", 1);
    source.WriteInt("b", 2);
    TTolerant<CMemDataObject> stream;
    ASSERT_TRUE(source.Serialize(stream));
    stream.Remove("Item0");
    CMemDataObject target;
    target.WriteInt("a", 9);
    ASSERT_TRUE(target.DeSerialize(stream));
    EXPECT_EQ(IntOf(target, "a"), 9);
    EXPECT_EQ(IntOf(target, "b"), 2);
}

TEST(MemDataObjectTest, HostileCountsAreRefused) {
    for (const int count :
         {-1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 1000001, 1}) {
        CMemDataObject stream;
        stream.WriteInt("ItemsCount", count);
        CMemDataObject target;
        EXPECT_FALSE(target.DeSerialize(stream)) << count;
    }
    TTolerant<CMemDataObject> tolerant;
    tolerant.WriteInt("ItemsCount", std::numeric_limits<int>::max());
    EXPECT_FALSE(CMemDataObject().DeSerialize(tolerant));
}

TEST(MemDataObjectTest, ValueMayBeATextOfTheKeyReplaced) {
    CMemDataObject object;
    object.WriteString("k", "one");
    char* text = nullptr;
    ASSERT_TRUE(object.ReadString("k", text));
    EXPECT_TRUE(object.WriteString("k", text));
    EXPECT_EQ(StringOf(object, "k"), "one");
    delete[] text;
}

} // namespace
