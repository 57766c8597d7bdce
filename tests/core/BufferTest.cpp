#include "core/Buffer.h"

#include <cstring>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

std::string ContentOf(const CBuffer& buffer) {
    return std::string(static_cast<const char*>(buffer.GetData()),
                       static_cast<std::size_t>(buffer.GetSize()));
}

char* NewBlock(const char* text) {
    const std::size_t length = std::strlen(text);
    char* block = new char[length];
    std::memcpy(block, text, length);
    return block;
}

TEST(BufferTest, StartsAsNullAndOwn) {
    const CBuffer buffer;
    EXPECT_EQ(buffer.GetData(), nullptr);
    EXPECT_EQ(buffer.GetSize(), 0);
    EXPECT_EQ(buffer.GetOwnership(), kOwn);
}

TEST(BufferTest, SetBufferFreesTheOwnedBlockItReplaces) {
    CBuffer buffer;
    buffer.SetBuffer(NewBlock("first"), 5, kOwn);
    buffer.SetBuffer(NewBlock("second"), 6, kOwn); // a leak of the first shows under ASan
    EXPECT_EQ(ContentOf(buffer), "second");
}

TEST(BufferTest, SetBufferOfTheHeldPointerWithDontOwnFreesNothingAndStopsOwning) {
    char* block = NewBlock("block");
    {
        CBuffer buffer;
        buffer.SetBuffer(block, 5, kOwn);
        buffer.SetBuffer(block, 3, kDontOwn);
        EXPECT_EQ(buffer.GetData(), block);
        EXPECT_EQ(buffer.GetSize(), 3);
        EXPECT_EQ(buffer.GetOwnership(), kDontOwn);
    }
    EXPECT_EQ(block[4], 'k');
    delete[] block;
}

TEST(BufferTest, SetBufferLeavesABlockThatIsNotOwned) {
    char block[] = "stack";
    CBuffer buffer;
    buffer.SetBuffer(block, 5, kDontOwn);
    buffer.SetBuffer(nullptr, 0, kOwn);
    EXPECT_STREQ(block, "stack");
    EXPECT_EQ(buffer.GetData(), nullptr);
}

TEST(BufferTest, SetSizeOfThePresentSizeChangesNothing) {
    char block[] = "stack";
    CBuffer buffer;
    buffer.SetBuffer(block, 5, kDontOwn);
    buffer.SetSize(5);
    EXPECT_EQ(buffer.GetData(), block);
    EXPECT_EQ(buffer.GetOwnership(), kDontOwn);
}

TEST(BufferTest, SetSizeGrowsAndKeepsTheContent) {
    char block[] = "abc";
    CBuffer buffer;
    buffer.SetBuffer(block, 3, kDontOwn);
    buffer.SetSize(100);
    EXPECT_EQ(buffer.GetSize(), 100);
    EXPECT_EQ(buffer.GetOwnership(), kOwn);
    EXPECT_EQ(ContentOf(buffer).substr(0, 3), "abc");
    EXPECT_NE(buffer.GetData(), block);
}

TEST(BufferTest, SetSizeShrinksAndCopiesNoMoreThanTheNewSize) {
    CBuffer buffer;
    buffer.SetBuffer(NewBlock("abcdef"), 6, kOwn);
    buffer.SetSize(2); // copying all six bytes would overrun the new block
    EXPECT_EQ(ContentOf(buffer), "ab");
}

TEST(BufferTest, SetSizeOfZeroEndsAsNullAndOwn) {
    char block[] = "abc";
    CBuffer buffer;
    buffer.SetBuffer(block, 3, kDontOwn);
    buffer.SetSize(0);
    EXPECT_EQ(buffer.GetData(), nullptr);
    EXPECT_EQ(buffer.GetSize(), 0);
    EXPECT_EQ(buffer.GetOwnership(), kOwn);
}

TEST(BufferTest, SetSizeFromANullBlockCopiesNothing) {
    CBuffer buffer;
    buffer.SetBuffer(nullptr, 10, kDontOwn);
    EXPECT_EQ(buffer.GetSize(), 10);
    buffer.SetSize(20);
    EXPECT_NE(buffer.GetData(), nullptr);
    EXPECT_EQ(buffer.GetSize(), 20);
}

TEST(BufferTest, CopyThatFitsWritesThroughABlockThatIsNotOwned) {
    char block[] = "abcdef";
    CBuffer buffer;
    buffer.SetBuffer(block, 6, kDontOwn);
    buffer.CopyFrom("xy", 2);
    EXPECT_EQ(buffer.GetSize(), 2);
    EXPECT_EQ(buffer.GetData(), block);
    EXPECT_EQ(buffer.GetOwnership(), kDontOwn);
    EXPECT_STREQ(block, "xycdef");
}

TEST(BufferTest, CopyOfEqualSizeStaysInPlace) {
    CBuffer buffer;
    buffer.SetBuffer(NewBlock("abc"), 3, kOwn);
    const void* before = buffer.GetData();
    buffer.CopyFrom("xyz", 3);
    EXPECT_EQ(buffer.GetData(), before);
    EXPECT_EQ(ContentOf(buffer), "xyz");
}

TEST(BufferTest, CopyThatFitsFromNullOnlyShrinks) {
    CBuffer buffer;
    buffer.SetBuffer(NewBlock("abc"), 3, kOwn);
    buffer.CopyFrom(nullptr, 2);
    EXPECT_EQ(ContentOf(buffer), "ab");
}

TEST(BufferTest, CopyThatIsLargerMakesAnOwnBlock) {
    char block[] = "ab";
    CBuffer buffer;
    buffer.SetBuffer(block, 2, kDontOwn);
    buffer.CopyFrom("wxyz", 4);
    EXPECT_EQ(ContentOf(buffer), "wxyz");
    EXPECT_EQ(buffer.GetOwnership(), kOwn);
    EXPECT_STREQ(block, "ab");
}

TEST(BufferTest, CopyThatIsLargerFromNullFillsWithZeroBytes) {
    CBuffer buffer;
    buffer.CopyFrom(nullptr, 4);
    EXPECT_EQ(ContentOf(buffer), std::string(4, '\0'));
    EXPECT_EQ(buffer.GetOwnership(), kOwn);
}

TEST(BufferTest, CopyFromInsideTheBufferMovesTheBytes) {
    CBuffer buffer;
    buffer.SetBuffer(NewBlock("abcdef"), 6, kOwn);
    buffer.CopyFrom(static_cast<const char*>(buffer.GetData()) + 1, 5);
    EXPECT_EQ(ContentOf(buffer), "bcdef");
}

TEST(BufferTest, NegativeSizesCountAsZero) {
    constexpr int lowest = std::numeric_limits<int>::min();
    char block[] = "abc";
    CBuffer buffer;
    buffer.SetBuffer(block, lowest, kDontOwn);
    EXPECT_EQ(buffer.GetSize(), 0);
    buffer.SetBuffer(block, 3, kDontOwn);
    buffer.CopyFrom("x", -1);
    EXPECT_EQ(buffer.GetSize(), 0);
    EXPECT_STREQ(block, "abc");
    buffer.SetBuffer(block, 3, kDontOwn);
    buffer.SetSize(lowest);
    EXPECT_EQ(buffer.GetSize(), 0);
    EXPECT_EQ(buffer.GetData(), nullptr);
}

} // namespace
