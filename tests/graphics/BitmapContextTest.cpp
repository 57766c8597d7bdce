// Cairo and our own pixel routines on the same bitmap: what one side draws, the other finds.

#include "graphics/BitmapContext.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "GuardedMemory.h"
#include "PlainPicture.h"
#include "TestImage.h"
#include "TestPicture.h"

namespace Vorin::Graphics::Testing {
namespace {

using Core::C2DRectangle;

// A colour as it reads back from each depth.
RGB AsKept(const RGB& color, int bits) {
    const auto narrow = [](std::uint8_t v) { return static_cast<std::uint8_t>(v / 8); };
    if (bits == 16)
        return {narrow(color.red), narrow(color.green), narrow(color.blue)};
    if (bits == 8) {
        const auto grey = static_cast<std::uint8_t>((color.red + 2 * color.green + color.blue) / 4);
        return {grey, grey, grey};
    }
    return color;
}

TEST(BitmapContextTest, ALineBetweenAFillAndABlitLandsBetweenThem) {
    const RGB ground{200, 100, 48};
    const RGB line{8, 240, 120};
    const RGB cover{96, 160, 32};
    for (int bits : {8, 16, 24, 32}) {
        CTestPicture picture({16, 8}, bits);
        CTestPicture copy({16, 8}, bits);
        picture->SetFillColor(ground);
        picture->FillRectangle({0, 0, 16, 8});
        picture->SetPenColor(line);
        picture->DrawLine({0, 3}, {15, 3});
        copy->DrawBitmap(picture.GetBitmap(), {0, 0}, {0, 0}, {16, 8});
        picture->SetFillColor(cover);
        picture->FillRectangle({4, 2, 4, 3});
        picture->DrawLine({0, 7}, {15, 7});
        for (int x = 0; x < 16; ++x)
            for (int y = 0; y < 8; ++y) {
                const RGB copied = y == 3 ? line : ground;
                const bool covered = C2DRectangle(4, 2, 4, 3).Contains({x, y});
                const RGB kept = covered ? cover : y == 7 ? line : copied;
                ASSERT_EQ(copy.GetColor(x, y), AsKept(copied, bits)) << bits << ": " << x << y;
                ASSERT_EQ(picture.GetColor(x, y), AsKept(kept, bits)) << bits << ": " << x << y;
            }
    }
}

TEST(BitmapContextTest, SinglePixelsTakeTheirTurnToo) {
    for (int bits : {8, 16, 24, 32}) {
        CTestPicture picture({4, 4}, bits);
        CTestPicture copy({4, 4}, bits);
        picture->SetFillColor({255, 255, 255});
        picture->FillRectangle({0, 0, 4, 4});
        picture.SetColor(1, 2, {80, 80, 80});
        copy->DrawBitmap(picture.GetBitmap(), {0, 0}, {0, 0}, {4, 4});
        EXPECT_EQ(copy.GetColor(1, 2), AsKept({80, 80, 80}, bits)) << bits;
        EXPECT_EQ(copy.GetColor(2, 1), AsKept({255, 255, 255}, bits)) << bits;
        picture.GetBitmap().Clear();
        copy->DrawBitmap(picture.GetBitmap(), {0, 0}, {0, 0}, {4, 4});
        // What is clear in 32 bits is transparent, and black in the others.
        EXPECT_EQ(copy.GetColor(2, 1), bits == 32 ? RGB({255, 255, 255}) : RGB{}) << bits;
    }
}

// A fill by Cairo gives the bytes that writing each pixel would give, for each colour value.
TEST(BitmapContextTest, AFillKeepsEachColourExactly) {
    for (int bits : {8, 16, 24, 32}) {
        CTestPicture picture({2, 1}, bits);
        for (int value = 0; value < 256; ++value) {
            const auto channel = static_cast<std::uint8_t>(value);
            const RGB color{channel, static_cast<std::uint8_t>(255 - value),
                            static_cast<std::uint8_t>(value ^ 0x55)};
            picture->SetFillColor(color);
            picture->FillRectangle({0, 0, 2, 1});
            ASSERT_EQ(picture.GetColor(1, 0), AsKept(color, bits)) << bits << ", " << value;
        }
    }
}

// Whatever is in the memory stays as it is when it goes to Cairo and comes back.
TEST(BitmapContextTest, WhatCairoDoesNotTouchStaysToTheBit) {
    const auto check = []<class Iterator>(Iterator) {
        TGuardedMemory<Iterator> memory({256, 256});
        std::vector<std::uint8_t> bytes(memory.GetByteCount());
        std::mt19937 random(5);
        for (auto& byte : bytes)
            byte = static_cast<std::uint8_t>(random() &
                                             (sizeof(typename Iterator::Unit) == 2 ? 0x7F : 0xFF));
        memory.SetBytes(bytes);
        auto& context = *memory.GetSurface().GetContext();
        ASSERT_NE(context.BeginCairo(), nullptr); // takes all, draws nothing
        EXPECT_EQ(memory.GetBytes(), bytes) << Iterator::kBitsPerPixel;
        EXPECT_TRUE(memory.AreGuardsIntact());
    };
    check(CDIB32BGRIterator{});
    check(CDIB24BGRIterator{});
    check(CDIB16BGRIterator{});
    check(CDIB8MonoIterator{});
}

// Random turns of both sides, under random clips and origins, against the plain twin.
template <class Iterator>
void MixAtRandom() {
    constexpr Core::C2DSize kSize{37, 29};
    std::mt19937 random(77);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const auto pickColor = [&pick] {
        const auto channel = [&pick] { return static_cast<std::uint8_t>(pick(0, 255)); };
        return RGB{channel(), channel(), channel()};
    };
    TGuardedMemory<Iterator> memory(kSize);
    CPlainPicture twin(kSize, Iterator::kBitsPerPixel);
    memory.SetBytes(twin.GetBytes());
    auto& surface = memory.GetSurface();
    for (int round = 0; round < 3000; ++round) {
        const C2DRectangle clip{pick(0, 20), pick(0, 15), pick(1, 17), pick(1, 14)};
        const Core::C2DVector origin{pick(-20, 20), pick(-20, 20)};
        const RGB color = pickColor();
        surface.SaveState();
        surface.IntersectClip(clip);
        surface.SetOrigin(origin);
        surface.SetPenColor(color);
        surface.SetFillColor(color);
        twin.SetClip(clip);
        twin.SetPen(color);
        const Core::C2DPoint a{pick(-5, 40), pick(-5, 40)};
        const Core::C2DPoint b{pick(-5, 40), pick(-5, 40)};
        switch (pick(0, 3)) {
        case 0: {
            const C2DRectangle area{a.x, a.y, pick(-1, 20), pick(-1, 20)};
            surface.FillRectangle({area.x - origin.x, area.y - origin.y, area.width, area.height});
            for (int y = area.y; y < area.y + area.height; ++y)
                for (int x = area.x; x < area.x + area.width; ++x)
                    twin.SetPixel(x, y);
            break;
        }
        case 1:
            surface.DrawLine(a - origin, b - origin);
            twin.DrawLine(a, b);
            break;
        case 2: {
            const auto place = [&](const Core::C2DPoint& point, float part) {
                return C2DFloatPoint{static_cast<float>(point.x) + part,
                                     static_cast<float>(point.y) + 0.25f};
            };
            surface.DrawSmoothLine(place(a - origin, 0.5f), place(b - origin, 0.125f));
            twin.DrawSmoothLine(place(a, 0.5f), place(b, 0.125f));
            break;
        }
        default:
            surface.DrawPoint(a - origin);
            twin.SetPixel(a.x, a.y);
        }
        surface.RestoreState();
        if (round % 3 == 0) {
            ASSERT_EQ(memory.GetBytes(), twin.GetBytes()) << "round " << round;
        }
    }
    ASSERT_EQ(memory.GetBytes(), twin.GetBytes());
    ASSERT_TRUE(memory.AreGuardsIntact());
}

TEST(BitmapContextTest, RandomTurnsMatchThePlainTwin) {
    MixAtRandom<CDIB32BGRIterator>();
    MixAtRandom<CDIB24BGRIterator>();
    MixAtRandom<CDIB16BGRIterator>();
    MixAtRandom<CDIB8MonoIterator>();
}

TEST(BitmapContextTest, PartsThatShowThroughReachEveryDepth) {
    const auto half = MakePlainImage({4, 4}, 0x80800000); // red, half opaque
    for (int bits : {8, 16, 24, 32}) {
        CTestPicture picture({4, 4}, bits);
        picture->SetFillColor({0, 0, 255});
        picture->FillRectangle({0, 0, 4, 4});
        picture->DrawImage(*half, {0, 0}, {0, 0}, {4, 4});
        const RGB mixed = picture.GetColor(2, 2);
        const RGB expected = AsKept({128, 0, 127}, bits); // 255 * 127 / 255 of the blue is left
        EXPECT_NEAR(mixed.red, expected.red, 1) << bits;
        EXPECT_NEAR(mixed.green, expected.green, bits == 8 ? 1 : 0) << bits;
        EXPECT_NEAR(mixed.blue, expected.blue, 1) << bits;
    }
}

TEST(BitmapContextTest, MemoryOfSomebodyElseIsTakenAndGivenUp) {
    std::vector<std::uint32_t> memory(12, 0xFF123456u);
    {
        CBitmapAdapter bitmap(
            CBitmapContext::CreateOver(memory.data(), {4, 3}, EPixelFormat::kBGRA32));
        EXPECT_EQ(bitmap.GetSize(), (Core::C2DSize{4, 3}));
        EXPECT_EQ(bitmap.GetBitsPerPixel(), 32);
        const auto surface = bitmap.CreateSurface();
        surface->SetFillColor({1, 2, 3});
        surface->FillRectangle({3, 2, 1, 1});
    }
    EXPECT_EQ(memory[10], 0xFF123456u);
    EXPECT_EQ(memory[11], 0xFF010203u);
    EXPECT_EQ(CBitmapContext::CreateOver(nullptr, {4, 3}, EPixelFormat::kBGRA32), nullptr);
    EXPECT_EQ(CBitmapContext::CreateOver(memory.data(), {0, 3}, EPixelFormat::kBGRA32), nullptr);
    EXPECT_EQ(CBitmapContext::CreateOver(memory.data(), {-4, 3}, EPixelFormat::kBGRA32), nullptr);
}

TEST(BitmapContextTest, SizesBeyondTheLimitsAreNone) {
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    for (const Core::C2DSize& size : {Core::C2DSize{0, 0},
                                      {0, 5},
                                      {5, 0},
                                      {-1, 5},
                                      {kMin, kMin},
                                      {kMin, kMax},
                                      {kMax, kMax},
                                      {kMax, 1},
                                      {1, kMax},
                                      {8193, 1},
                                      {20000, 20000},
                                      {4001, 4000}})
        for (int bits : {8, 16, 24, 32})
            EXPECT_EQ(CBitmapContext::Create(size, bits), nullptr) << size.width << size.height;
    EXPECT_NE(CBitmapContext::Create({8192, 1953}, 8), nullptr);
}

} // namespace
} // namespace Vorin::Graphics::Testing
