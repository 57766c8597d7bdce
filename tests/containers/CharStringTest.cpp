#include "containers/CharString.h"

#include <cstring>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;

TEST(CharStringTest, StartsEmptyWithATextThatIsNotNull) {
    const CCharString text;
    EXPECT_STREQ(text.Get(), "");
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CharStringTest, NullCountsAsEmpty) {
    CCharString text(nullptr);
    EXPECT_STREQ(text.Get(), "");
    text = "something";
    text = static_cast<const char*>(nullptr);
    EXPECT_TRUE(text.IsEmpty());
    text.Append(static_cast<const char*>(nullptr));
    text.Append(nullptr, 5);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(text == static_cast<const char*>(nullptr));
}

TEST(CharStringTest, AppendToCapacity4AtSize5TakesACapacityOf8) {
    CCharString text("abc"); // four bytes with the final zero
    EXPECT_EQ(text.GetCapacity(), 4);
    text.Append('d'); // size 5: max(5, 6), rounded up to 8
    EXPECT_EQ(text.GetCapacity(), 8);
    EXPECT_STREQ(text.Get(), "abcd");
    EXPECT_EQ(text.GetLength(), 4);
}

TEST(CharStringTest, AppendTakesTextsBytesAndParts) {
    CCharString text;
    text.Append("one");
    text.Append(' ');
    text.Append("twofold", 3);
    EXPECT_STREQ(text.Get(), "one two");
    text.Append("", 0);
    text.Append("never", -1);
    EXPECT_STREQ(text.Get(), "one two");
}

TEST(CharStringTest, LengthBeyondTheTextStopsAtItsEnd) {
    CCharString text;
    text.Append("ab", 1000);
    EXPECT_EQ(text.GetLength(), 2);
}

TEST(CharStringTest, ZeroBytesNeverGetInside) {
    CCharString text("a");
    text.Append('\0');
    text.Append("b\0c", 3);
    EXPECT_EQ(text.GetLength(), 2);
    EXPECT_EQ(std::strlen(text.Get()), 2u);
}

TEST(CharStringTest, CopiesAreIndependent) {
    CCharString first("first");
    CCharString second(first);
    second.Append('!');
    EXPECT_STREQ(first.Get(), "first");
    first = second;
    second = "other";
    EXPECT_STREQ(first.Get(), "first!");
    const CCharString moved(std::move(first));
    EXPECT_STREQ(moved.Get(), "first!");
}

TEST(CharStringTest, TextFromInsideTheStringCanBeAssigned) {
    CCharString text("forward");
    text = text.Get() + 3;
    EXPECT_STREQ(text.Get(), "ward");
    text = text.Get();
    EXPECT_STREQ(text.Get(), "ward");
    text = text.Get() + 4;
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CharStringTest, TextFromInsideTheStringCanBeAppended) {
    CCharString text("ab");
    std::string expected = "ab";
    for (int doubling = 0; doubling < 6; ++doubling) {
        text.Append(text.Get()); // reallocates while the argument lies in the old array
        expected += expected;
    }
    EXPECT_EQ(text.Get(), expected);
    text.Append(text.Get() + 1, 1);
    EXPECT_EQ(text.Get(), expected + "b");
}

TEST(CharStringTest, ComparesByContent) {
    EXPECT_TRUE(CCharString("same") == CCharString("same"));
    EXPECT_TRUE(CCharString("same") == "same");
    EXPECT_TRUE("same" == CCharString("same"));
    EXPECT_TRUE(CCharString("same") != "Same");
    EXPECT_TRUE(CCharString() == "");
}

TEST(CharStringTest, ClearKeepsTheMemory) {
    CCharString text("a text of some length");
    const int capacity = text.GetCapacity();
    text.Clear();
    EXPECT_STREQ(text.Get(), "");
    EXPECT_EQ(text.GetCapacity(), capacity);
    text.Append("next");
    EXPECT_STREQ(text.Get(), "next");
}

} // namespace
