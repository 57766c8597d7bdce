#include "graphics/DIBIterator.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "graphics/LineRaster.h"

namespace Vorin::Graphics {
namespace {

TEST(DIBIteratorTest, RowsOf32BitsAreNotPadded) {
    EXPECT_EQ(CDIB32BGRIterator::GetStride(1), 1);
    EXPECT_EQ(CDIB32BGRIterator::GetStride(7), 7);
}

TEST(DIBIteratorTest, RowsOf24BitsAreRoundedUpToFourBytes) {
    EXPECT_EQ(CDIB24BGRIterator::GetStride(1), 4);
    EXPECT_EQ(CDIB24BGRIterator::GetStride(2), 8);
    EXPECT_EQ(CDIB24BGRIterator::GetStride(3), 12);
    EXPECT_EQ(CDIB24BGRIterator::GetStride(4), 12);
    EXPECT_EQ(CDIB24BGRIterator::GetStride(5), 16);
}

TEST(DIBIteratorTest, RowsOf16BitsAreRoundedUpToAnEvenNumberOfPixels) {
    EXPECT_EQ(CDIB16BGRIterator::GetStride(1), 2);
    EXPECT_EQ(CDIB16BGRIterator::GetStride(2), 2);
    EXPECT_EQ(CDIB16BGRIterator::GetStride(7), 8);
}

TEST(DIBIteratorTest, RowsOf8BitsAreRoundedUpToFourBytes) {
    EXPECT_EQ(CDIB8MonoIterator::GetStride(1), 4);
    EXPECT_EQ(CDIB8MonoIterator::GetStride(4), 4);
    EXPECT_EQ(CDIB8MonoIterator::GetStride(5), 8);
}

TEST(DIBIteratorTest, A32BitPixelIsAWordWithFullAlpha) {
    std::uint32_t word = 0;
    CDIB32BGRIterator::Write(&word, {0x12, 0x34, 0x56});
    EXPECT_EQ(word, 0xFF123456u);
    word = 0x00ABCDEFu;
    EXPECT_EQ(CDIB32BGRIterator::Read(&word), (RGB{0xAB, 0xCD, 0xEF}));
}

TEST(DIBIteratorTest, A24BitPixelIsThreeBytesBlueFirst) {
    std::array<std::uint8_t, 4> bytes{1, 1, 1, 0x77};
    CDIB24BGRIterator::Write(bytes.data(), {0x12, 0x34, 0x56});
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{0x56, 0x34, 0x12, 0x77}));
    EXPECT_EQ(CDIB24BGRIterator::Read(bytes.data()), (RGB{0x12, 0x34, 0x56}));
}

TEST(DIBIteratorTest, A16BitPixelDropsThreeBitsAndReadsFiveBitValues) {
    std::uint16_t word = 0xFFFF;
    CDIB16BGRIterator::Write(&word, {0xFF, 0x80, 0x0F}); // 31, 16, 1
    EXPECT_EQ(word, (31 << 10) | (16 << 5) | 1);
    EXPECT_EQ(CDIB16BGRIterator::Read(&word), (RGB{31, 16, 1}));
    word = 0x8000; // the top bit belongs to no channel
    EXPECT_EQ(CDIB16BGRIterator::Read(&word), (RGB{0, 0, 0}));
}

TEST(DIBIteratorTest, An8BitPixelIsTheWeightedGrey) {
    std::uint8_t byte = 0;
    CDIB8MonoIterator::Write(&byte, {10, 20, 33}); // (10 + 40 + 33) / 4 = 20.75
    EXPECT_EQ(byte, 20);
    EXPECT_EQ(CDIB8MonoIterator::Read(&byte), (RGB{20, 20, 20}));
    CDIB8MonoIterator::Write(&byte, {255, 255, 255});
    EXPECT_EQ(byte, 255);
}

// The form that the blend is written in, for each source, destination and weight there is. The
// channels hold different values, so that one that spills into the next shows.
template <class Iterator, int kMax>
void ExpectBlendLikeTheFormula(std::uint64_t (*toLanes)(int, int, int)) {
    const auto blend = [](int dst, int src, int a) { return dst + (((src - dst) * a) >> 8); };
    for (int src = 0; src <= kMax; ++src)
        for (int dst = 0; dst <= kMax; ++dst)
            for (int a = 0; a <= 255; ++a) {
                const std::uint64_t result = BlendLanes<Iterator>(toLanes(dst, kMax - dst, src),
                                                                  toLanes(src, kMax - src, dst), a);
                const std::uint64_t expected = toLanes(
                    blend(dst, src, a), blend(kMax - dst, kMax - src, a), blend(src, dst, a));
                if (result != expected)
                    FAIL() << "src " << src << ", dst " << dst << ", weight " << a;
            }
}

std::uint64_t ToThreeLanes(int red, int green, int blue) {
    return (static_cast<std::uint64_t>(red) << 32) | (static_cast<std::uint64_t>(green) << 16) |
           static_cast<std::uint64_t>(blue);
}

// A word of 32 bits keeps the green channel above the red one, and its alpha, here full, on top.
std::uint64_t ToWordLanes(int red, int green, int blue) {
    return (std::uint64_t{255} << 48) | ToThreeLanes(green, red, blue);
}

std::uint64_t ToGreyLane(int, int, int grey) { return static_cast<std::uint64_t>(grey); }

TEST(DIBIteratorTest, BlendOf32BitsIsTheFormulaForEveryValue) {
    ExpectBlendLikeTheFormula<CDIB32BGRIterator, 255>(ToWordLanes);
}

TEST(DIBIteratorTest, BlendOf24BitsIsTheFormulaForEveryValue) {
    ExpectBlendLikeTheFormula<CDIB24BGRIterator, 255>(ToThreeLanes);
}

TEST(DIBIteratorTest, BlendOf16BitsIsTheFormulaForEveryValue) {
    ExpectBlendLikeTheFormula<CDIB16BGRIterator, 31>(ToThreeLanes);
}

TEST(DIBIteratorTest, BlendOf8BitsIsTheFormulaForEveryValue) {
    ExpectBlendLikeTheFormula<CDIB8MonoIterator, 255>(ToGreyLane);
}

// Lanes are taken apart and put together without loss, for every pixel of 16 bits and for each
// channel of the others.
template <class Iterator>
void ExpectRoundTrip(const RGB& color) {
    typename Iterator::Unit pixel[3] = {};
    typename Iterator::Unit copy[3] = {};
    Iterator::Write(pixel, color);
    Iterator::Store(copy, Iterator::Load(pixel));
    EXPECT_EQ(Iterator::Read(copy), Iterator::Read(pixel));
}

TEST(DIBIteratorTest, LanesKeepEveryChannel) {
    for (int value = 0; value < 256; ++value) {
        const auto a = static_cast<std::uint8_t>(value);
        const auto b = static_cast<std::uint8_t>(255 - value);
        for (const RGB& color : {RGB{a, b, 0}, RGB{0, a, b}, RGB{b, 0, a}}) {
            ExpectRoundTrip<CDIB32BGRIterator>(color);
            ExpectRoundTrip<CDIB24BGRIterator>(color);
            ExpectRoundTrip<CDIB8MonoIterator>(color);
        }
    }
    for (int word = 0; word < 0x8000; ++word) {
        const auto pixel = static_cast<std::uint16_t>(word);
        std::uint16_t copy = 0;
        CDIB16BGRIterator::Store(&copy, CDIB16BGRIterator::Load(&pixel));
        ASSERT_EQ(copy, pixel);
    }
}

} // namespace
} // namespace Vorin::Graphics
