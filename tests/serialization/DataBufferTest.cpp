#include "serialization/DataBuffer.h"

#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"

#include <cstring>
#include <limits>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

/// Tries every typed read and says which work.
std::string ReadableTypes(const CDataBuffer& buffer) {
    std::string types;
    bool truth = false;
    int integer = 0;
    float single = 0;
    double number = 0;
    char* text = nullptr;
    void* data = nullptr;
    types += buffer.GetBool(truth) ? "b" : "";
    types += buffer.GetInt(integer) ? "i" : "";
    types += buffer.GetFloat(single) ? "f" : "";
    types += buffer.GetDouble(number) ? "d" : "";
    types += buffer.GetString(text) ? "s" : "";
    types += buffer.GetData(data, integer) ? "x" : "";
    CReads reader([](const IReadDataStream&) { return true; });
    types += buffer.GetObject(reader) ? "o" : "";
    delete[] text;
    delete[] static_cast<char*>(data);
    return types;
}

TEST(DataBufferTest, EachTypeReadsAsItselfAlone) {
    CDataBuffer buffer;
    EXPECT_EQ(ReadableTypes(buffer), "");
    EXPECT_TRUE(buffer.SetBool(true));
    EXPECT_EQ(ReadableTypes(buffer), "b");
    EXPECT_EQ(buffer.GetSize(), 1);
    EXPECT_TRUE(buffer.SetInt(1));
    EXPECT_EQ(ReadableTypes(buffer), "i");
    EXPECT_EQ(buffer.GetSize(), 4);
    EXPECT_TRUE(buffer.SetFloat(1));
    EXPECT_EQ(ReadableTypes(buffer), "f");
    EXPECT_EQ(buffer.GetSize(), 4);
    EXPECT_TRUE(buffer.SetDouble(1));
    EXPECT_EQ(ReadableTypes(buffer), "d");
    EXPECT_EQ(buffer.GetSize(), 8);
    EXPECT_TRUE(buffer.SetString("abc"));
    EXPECT_EQ(ReadableTypes(buffer), "s");
    EXPECT_EQ(buffer.GetSize(), 4);
    EXPECT_TRUE(buffer.SetData("abc", 3));
    EXPECT_EQ(ReadableTypes(buffer), "x");
    EXPECT_EQ(buffer.GetSize(), 3);
    EXPECT_TRUE(buffer.SetObject(CWrites([](IWriteDataStream&) { return true; })));
    EXPECT_EQ(ReadableTypes(buffer), "o");
    EXPECT_EQ(buffer.GetSize(), CDataBuffer::kObjectSize);
}

TEST(DataBufferTest, TypeNumbersAreThoseOfTheFiles) {
    CDataBuffer buffer;
    EXPECT_EQ(buffer.GetType(), 0);
    buffer.SetBool(true);
    EXPECT_EQ(buffer.GetType(), 1);
    buffer.SetInt(0);
    EXPECT_EQ(buffer.GetType(), 2);
    buffer.SetFloat(0);
    EXPECT_EQ(buffer.GetType(), 3);
    buffer.SetDouble(0);
    EXPECT_EQ(buffer.GetType(), 4);
    buffer.SetString("");
    EXPECT_EQ(buffer.GetType(), 5);
    buffer.SetData("", 0);
    EXPECT_EQ(buffer.GetType(), 6);
}

TEST(DataBufferTest, NullTextIsHeldAsNullAndEmptyTextAsEmpty) {
    CDataBuffer buffer;
    char dummy = 0;
    char* text = &dummy;
    EXPECT_TRUE(buffer.SetString(nullptr));
    EXPECT_EQ(buffer.GetSize(), 0);
    EXPECT_TRUE(buffer.GetString(text));
    EXPECT_EQ(text, nullptr);
    EXPECT_TRUE(buffer.SetString(""));
    EXPECT_EQ(buffer.GetSize(), 1);
    EXPECT_TRUE(buffer.GetString(text));
    EXPECT_STREQ(text, "");
    delete[] text;
}

TEST(DataBufferTest, ReadsGiveFreshCopies) {
    CDataBuffer buffer;
    buffer.SetString("abc");
    char* first = nullptr;
    char* second = nullptr;
    ASSERT_TRUE(buffer.GetString(first));
    first[0] = 'X';
    ASSERT_TRUE(buffer.GetString(second));
    EXPECT_STREQ(second, "abc");
    delete[] first;
    delete[] second;
}

TEST(DataBufferTest, EqualsComparesTypeAndValue) {
    CDataBuffer buffer;
    buffer.SetInt(1);
    EXPECT_TRUE(buffer.Equals(1));
    EXPECT_FALSE(buffer.Equals(2));
    EXPECT_FALSE(buffer.Equals(1.0));
    EXPECT_FALSE(buffer.Equals(true));
    buffer.SetBool(true);
    EXPECT_TRUE(buffer.Equals(true));
    EXPECT_FALSE(buffer.Equals(false));
    buffer.SetFloat(0.5f);
    EXPECT_TRUE(buffer.Equals(0.5f));
    EXPECT_FALSE(buffer.Equals(0.5));
    buffer.SetString("a");
    EXPECT_TRUE(buffer.Equals("a"));
    EXPECT_FALSE(buffer.Equals("b"));
    EXPECT_FALSE(buffer.Equals(static_cast<const char*>(nullptr)));
    buffer.SetString(nullptr);
    EXPECT_TRUE(buffer.Equals(static_cast<const char*>(nullptr)));
    EXPECT_FALSE(buffer.Equals(""));
    buffer.SetData("a\0b", 3);
    EXPECT_TRUE(buffer.Equals("a\0b", 3));
    EXPECT_FALSE(buffer.Equals("a\0c", 3));
    EXPECT_FALSE(buffer.Equals("a\0b", 2));
    EXPECT_FALSE(buffer.Equals(nullptr, 3));
    buffer.SetData(nullptr, 0);
    EXPECT_TRUE(buffer.Equals(nullptr, 0));
}

TEST(DataBufferTest, TwoNotANumbersAreEqual) {
    CDataBuffer buffer;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    buffer.SetDouble(nan);
    EXPECT_TRUE(buffer.Equals(nan));
    buffer.SetFloat(static_cast<float>(nan));
    EXPECT_TRUE(buffer.Equals(static_cast<float>(nan)));
    CDataBuffer other;
    other.SetFloat(static_cast<float>(nan));
    EXPECT_TRUE(buffer.HasValueOf(other));
    buffer.SetDouble(1.0);
    EXPECT_FALSE(buffer.Equals(2.0));
}

TEST(DataBufferTest, SetterTakesItsOwnContent) {
    CDataBuffer buffer;
    buffer.SetString("abc");
    char* text = nullptr;
    ASSERT_TRUE(buffer.GetString(text));
    const std::unique_ptr<char[]> owned(text);
    ASSERT_TRUE(buffer.SetData(nullptr, 0));
    EXPECT_TRUE(buffer.SetString(text));
    EXPECT_TRUE(buffer.Equals("abc"));
}

TEST(DataBufferTest, FailedSetterLeavesTheBufferEmpty) {
    CDataBuffer buffer;
    buffer.SetInt(1);
    EXPECT_FALSE(buffer.SetData(nullptr, 1));
    EXPECT_EQ(ReadableTypes(buffer), "");
    buffer.SetInt(1);
    EXPECT_FALSE(buffer.SetData("x", -1));
    EXPECT_EQ(ReadableTypes(buffer), "");
    buffer.SetInt(1);
    EXPECT_FALSE(buffer.SetObject(CWrites([](IWriteDataStream&) { return false; })));
    EXPECT_EQ(ReadableTypes(buffer), "");
}

TEST(DataBufferTest, TravelsAsTypeAndValue) {
    CDataBuffer source;
    source.SetString("abc");
    CMemDataObject stream;
    ASSERT_TRUE(source.Serialize(stream));
    EXPECT_EQ(IntOf(stream, "type"), 5);
    EXPECT_EQ(DataOf(stream, "value"), std::string("abc\0", 4));
    CDataBuffer target;
    ASSERT_TRUE(target.DeSerialize(stream));
    EXPECT_TRUE(target.Equals("abc"));
}

TEST(DataBufferTest, NullTextAndEmptyDataTravel) {
    CDataBuffer source;
    CDataBuffer target;
    CMemDataObject stream;
    source.SetString(nullptr);
    ASSERT_TRUE(source.Serialize(stream) && target.DeSerialize(stream));
    EXPECT_TRUE(target.Equals(static_cast<const char*>(nullptr)));
    source.SetData(nullptr, 0);
    ASSERT_TRUE(source.Serialize(stream) && target.DeSerialize(stream));
    EXPECT_TRUE(target.Equals(nullptr, 0));
}

TEST(DataBufferTest, ValuesThatAreNoneOfTheirTypeAreRefused) {
    const struct {
        int type;
        std::string bytes;
    } cases[] = {{1, ""},     {1, "12"},  {2, "123"}, {2, "12345"}, {3, ""},
                 {4, "1234"}, {5, "abc"}, {7, "a"},   {-1, "a"},    {1000000, "a"}};
    for (const auto& wrong : cases) {
        CMemDataObject stream;
        stream.WriteInt("type", wrong.type);
        stream.WriteData("value", wrong.bytes.data(), static_cast<int>(wrong.bytes.size()));
        CDataBuffer buffer;
        buffer.SetInt(1);
        EXPECT_FALSE(buffer.DeSerialize(stream)) << wrong.type << " " << wrong.bytes;
        EXPECT_EQ(ReadableTypes(buffer), "");
    }
    CMemDataObject zeroInside;
    zeroInside.WriteInt("type", 5);
    zeroInside.WriteData("value", "a\0b", 4);
    EXPECT_FALSE(CDataBuffer().DeSerialize(zeroInside));
}

TEST(DataBufferTest, MissingTypeOrValueIsRefused) {
    CMemDataObject stream;
    CDataBuffer buffer;
    EXPECT_FALSE(buffer.DeSerialize(stream));
    stream.WriteInt("type", 2);
    EXPECT_FALSE(buffer.DeSerialize(stream));
    stream.WriteInt("type", 0);
    EXPECT_FALSE(buffer.DeSerialize(stream));
}

TEST(DataBufferTest, MissingObjectOnATolerantStreamGivesAnEmptyOne) {
    TTolerant<CMemDataObject> stream;
    stream.WriteInt("type", 0);
    CDataBuffer buffer;
    EXPECT_TRUE(buffer.DeSerialize(stream));
    EXPECT_EQ(ReadableTypes(buffer), "o");
}

} // namespace
