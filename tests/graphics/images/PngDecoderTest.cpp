// PNG in all its forms, and in none.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "ImageBytes.h"
#include "PngBytes.h"
#include "graphics/images/Premultiply.h"

namespace Vorin::Graphics::Testing {
namespace {

std::uint32_t Word(int alpha, int red, int green, int blue) {
    return static_cast<std::uint32_t>(alpha) << 24 | static_cast<std::uint32_t>(red) << 16 |
           static_cast<std::uint32_t>(green) << 8 | static_cast<std::uint32_t>(blue);
}

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

CPngPicture GetSmallPicture() {
    return {5, 4, 8, kColourAlpha, [](int x, int y, int channel) {
                return channel == 3 ? 255 - 40 * y : 50 * x + channel;
            }};
}

TEST(PremultiplyTest, ScalingByAlphaIsTheWholeDivision) {
    for (unsigned value = 0; value < 256; ++value)
        for (unsigned alpha = 0; alpha < 256; ++alpha)
            ASSERT_EQ(ScaleByAlpha(value, alpha), value * alpha / 255) << value << ", " << alpha;
}

TEST(PngDecoderTest, ColoursArePremultiplied) {
    const CLoadedImage loaded = DecodePngText(GetPngBytes(GetSmallPicture()));
    ASSERT_NE(loaded.image, nullptr) << loaded.problem;
    EXPECT_TRUE(loaded.hasAlpha);
    EXPECT_TRUE(loaded.image->HasAlpha());
    EXPECT_EQ(loaded.problem, "");
    EXPECT_EQ(loaded.image->GetSize(), (Core::C2DSize{5, 4}));
    EXPECT_EQ(loaded.image->GetBitsPerPixel(), 32);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 5; ++x) {
            const int a = 255 - 40 * y;
            EXPECT_EQ(GetWord(*loaded.image, x, y),
                      Word(a, 50 * x * a / 255, (50 * x + 1) * a / 255, (50 * x + 2) * a / 255));
        }
}

TEST(PngDecoderTest, AnOpaqueImageHasNoAlphaEvenWithAChannelForIt) {
    CPngPicture picture = GetSmallPicture();
    picture.sample = [](int x, int, int channel) { return channel == 3 ? 255 : x; };
    const CLoadedImage opaque = DecodePngText(GetPngBytes(picture));
    ASSERT_NE(opaque.image, nullptr);
    EXPECT_FALSE(opaque.hasAlpha);
    EXPECT_FALSE(opaque.image->HasAlpha());
    EXPECT_EQ(GetWord(*opaque.image, 3, 2), Word(255, 3, 3, 3));

    // One pixel is enough, wherever it is.
    picture.sample = [](int x, int y, int channel) {
        return channel == 3 && x == 4 && y == 3 ? 254 : 255;
    };
    EXPECT_TRUE(DecodePngText(GetPngBytes(picture)).hasAlpha);
}

TEST(PngDecoderTest, ColoursWithoutAlphaAreOpaque) {
    const CPngPicture picture{3, 2, 8, kColour,
                              [](int x, int y, int channel) { return 80 * x + 10 * y + channel; }};
    const CLoadedImage loaded = DecodePngText(GetPngBytes(picture));
    ASSERT_NE(loaded.image, nullptr);
    EXPECT_FALSE(loaded.hasAlpha);
    EXPECT_EQ(GetWord(*loaded.image, 2, 1), Word(255, 170, 171, 172));
}

TEST(PngDecoderTest, GreyOfEachDepthIsSpreadOverTheRange) {
    for (const int depth : {1, 2, 4, 8, 16}) {
        const int top = (1 << depth) - 1;
        const CPngPicture picture{11, 3, depth, kGrey,
                                  [top](int x, int y, int) { return (x * 7 + y) % (top + 1); }};
        const CLoadedImage loaded = DecodePngText(GetPngBytes(picture));
        ASSERT_NE(loaded.image, nullptr) << depth;
        EXPECT_FALSE(loaded.hasAlpha);
        for (int y = 0; y < 3; ++y)
            for (int x = 0; x < 11; ++x) {
                const int sample = picture.sample(x, y, 0);
                const int grey = depth == 16 ? sample >> 8 : sample * 255 / top;
                EXPECT_EQ(GetWord(*loaded.image, x, y), Word(255, grey, grey, grey)) << depth;
            }
    }
}

TEST(PngDecoderTest, GreyWithAlphaIsPremultiplied) {
    for (const int depth : {8, 16}) {
        const CPngPicture picture{2, 1, depth, kGreyAlpha, [depth](int x, int, int channel) {
                                      const int value = channel == 1 ? 100 + x : 200;
                                      return depth == 16 ? value * 256 + 99 : value;
                                  }};
        const CLoadedImage loaded = DecodePngText(GetPngBytes(picture));
        ASSERT_NE(loaded.image, nullptr);
        EXPECT_TRUE(loaded.hasAlpha);
        EXPECT_EQ(GetWord(*loaded.image, 0, 0), Word(100, 78, 78, 78)); // 200 * 100 / 255
        EXPECT_EQ(GetWord(*loaded.image, 1, 0), Word(101, 79, 79, 79));
    }
}

TEST(PngDecoderTest, SixteenBitsKeepTheUpperEight) {
    for (const EPngType type : {kColour, kColourAlpha}) {
        const CPngPicture picture{2, 2, 16, type, [](int x, int, int channel) {
                                      return channel == 3 ? 0xFFFF : 0x1234 + 0x2000 * channel + x;
                                  }};
        const CLoadedImage loaded = DecodePngText(GetPngBytes(picture));
        ASSERT_NE(loaded.image, nullptr);
        EXPECT_EQ(GetWord(*loaded.image, 1, 1), Word(255, 0x12, 0x32, 0x52));
    }
}

TEST(PngDecoderTest, PalettesOfEachDepthLoad) {
    for (const int depth : {1, 2, 4, 8}) {
        CPngPicture picture{9, 2, depth, kPalette, [](int x, int y, int) { return (x + y) % 2; }};
        picture.beforeData = {{"PLTE", Bytes({10, 20, 30, 200, 100, 50})}};
        const CLoadedImage plain = DecodePngText(GetPngBytes(picture));
        ASSERT_NE(plain.image, nullptr) << depth << plain.problem;
        EXPECT_FALSE(plain.hasAlpha);
        EXPECT_EQ(GetWord(*plain.image, 0, 0), Word(255, 10, 20, 30));
        EXPECT_EQ(GetWord(*plain.image, 8, 1), Word(255, 200, 100, 50));

        picture.beforeData.push_back({"tRNS", Bytes({255, 51})});
        const CLoadedImage withAlpha = DecodePngText(GetPngBytes(picture));
        ASSERT_NE(withAlpha.image, nullptr);
        EXPECT_TRUE(withAlpha.hasAlpha);
        EXPECT_EQ(GetWord(*withAlpha.image, 0, 0), Word(255, 10, 20, 30));
        EXPECT_EQ(GetWord(*withAlpha.image, 8, 1), Word(51, 40, 20, 10));
    }
}

TEST(PngDecoderTest, ATransparentColourBecomesAlpha) {
    CPngPicture colour{2, 1, 8, kColour, [](int x, int, int channel) { return x * 9 + channel; }};
    colour.beforeData = {{"tRNS", Bytes({0, 9, 0, 10, 0, 11})}};
    const CLoadedImage loaded = DecodePngText(GetPngBytes(colour));
    ASSERT_NE(loaded.image, nullptr);
    EXPECT_TRUE(loaded.hasAlpha);
    EXPECT_EQ(GetWord(*loaded.image, 0, 0), Word(255, 0, 1, 2));
    EXPECT_EQ(GetWord(*loaded.image, 1, 0), 0u);

    CPngPicture grey{2, 1, 4, kGrey, [](int x, int, int) { return x * 15; }};
    grey.beforeData = {{"tRNS", Bytes({0, 15})}};
    const CLoadedImage loadedGrey = DecodePngText(GetPngBytes(grey));
    ASSERT_NE(loadedGrey.image, nullptr);
    EXPECT_EQ(GetWord(*loadedGrey.image, 0, 0), Word(255, 0, 0, 0));
    EXPECT_EQ(GetWord(*loadedGrey.image, 1, 0), 0u);
}

TEST(PngDecoderTest, InterlacedImagesOfEachTypeEqualPlainOnes) {
    for (const EPngType type : {kGrey, kColour, kPalette, kGreyAlpha, kColourAlpha})
        for (const Core::C2DSize& size : {Core::C2DSize{1, 1}, {3, 2}, {13, 9}, {8, 8}}) {
            CPngPicture picture{
                size.width, size.height, 8, type, [type](int x, int y, int channel) {
                    return type == kPalette ? (x + y) % 2 : (x * 19 + y * 7 + channel * 31) % 256;
                }};
            if (type == kPalette)
                picture.beforeData = {{"PLTE", Bytes({1, 2, 3, 4, 5, 6})}};
            const CLoadedImage plain = DecodePngText(GetPngBytes(picture));
            picture.interlaced = true;
            const CLoadedImage interlaced = DecodePngText(GetPngBytes(picture));
            ASSERT_NE(plain.image, nullptr);
            ASSERT_NE(interlaced.image, nullptr) << interlaced.problem;
            EXPECT_EQ(plain.hasAlpha, interlaced.hasAlpha);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x)
                    ASSERT_EQ(GetWord(*plain.image, x, y), GetWord(*interlaced.image, x, y));
        }
}

TEST(PngDecoderTest, AFileCutShortAnywhereBeforeItsEndIsRefused) {
    CPngPicture picture = GetSmallPicture();
    picture.beforeData = {{"tEXt", std::string("Comment\0nothing", 15)}};
    const std::string whole = GetPngBytes(picture);
    constexpr std::size_t kEndChunk = 12;
    for (const bool interlaced : {false, true}) {
        picture.interlaced = interlaced;
        const std::string bytes = GetPngBytes(picture);
        testing::internal::CaptureStderr();
        for (std::size_t length = 0; length < bytes.size() - kEndChunk; ++length) {
            const CLoadedImage loaded = DecodePngText(bytes.substr(0, length));
            ASSERT_EQ(loaded.image, nullptr) << length;
            ASSERT_FALSE(loaded.hasAlpha);
            ASSERT_NE(loaded.problem, "") << length;
        }
        // All pixels are there.
        for (std::size_t length = bytes.size() - kEndChunk; length <= bytes.size(); ++length)
            ASSERT_NE(DecodePngText(bytes.substr(0, length)).image, nullptr);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
}

TEST(PngDecoderTest, AWrongCheckSumOfWhatIsNeededIsRefused) {
    CPngPicture picture{4, 4, 8, kPalette, [](int x, int, int) { return x % 2; }};
    picture.beforeData = {{"PLTE", Bytes({1, 2, 3, 4, 5, 6})},
                          {"tEXt", std::string("Comment\0nothing", 15)}};
    const std::vector<CPngChunk> chunks = GetPngChunks(picture);
    testing::internal::CaptureStderr();
    for (const CPngChunk& damaged : chunks) {
        std::string bytes = GetPngSignature();
        for (const CPngChunk& chunk : chunks) {
            bytes += GetChunkBytes(chunk);
            if (chunk.type == damaged.type)
                bytes.back() = static_cast<char>(bytes.back() ^ 1);
        }
        const bool isNeeded = damaged.type != "tEXt" && damaged.type != "IEND";
        EXPECT_EQ(DecodePngText(bytes).image == nullptr, isNeeded) << damaged.type;
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(PngDecoderTest, AnyByteMayBeDamaged) {
    const std::string bytes = GetPngBytes(GetSmallPicture());
    testing::internal::CaptureStderr();
    for (std::size_t at = 0; at < bytes.size(); ++at)
        for (const int flip : {1, 0x80, 0xFF}) {
            std::string damaged = bytes;
            damaged[at] = static_cast<char>(damaged[at] ^ flip);
            const CLoadedImage loaded = DecodePngText(damaged);
            EXPECT_EQ(loaded.image == nullptr, !loaded.problem.empty());
        }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(PngDecoderTest, SizesBeyondTheLimitsAreRefusedBeforeMemoryIsTaken) {
    testing::internal::CaptureStderr();
    const std::string data = Compress(std::string(1000, '\0'));
    constexpr std::uint32_t kMost = 0x7FFFFFFF;
    for (const auto& [width, height] :
         std::vector<std::pair<std::uint32_t, std::uint32_t>>{{0, 0},
                                                              {0, 5},
                                                              {5, 0},
                                                              {kMost, kMost},
                                                              {kMost, 1},
                                                              {1, kMost},
                                                              {0x80000000u, 1},
                                                              {0xFFFFFFFFu, 0xFFFFFFFFu},
                                                              {20000, 20000},
                                                              {8193, 1},
                                                              {1, 8193},
                                                              {8192, 8192},
                                                              {4001, 4000}})
        for (const EPngType type : {kGrey, kColourAlpha})
            for (const bool interlaced : {false, true}) {
                const CLoadedImage loaded =
                    DecodePngText(GetPngBytes({GetHeaderChunk(width, height, 8, type, interlaced),
                                               {"IDAT", data},
                                               {"IEND", ""}}));
                EXPECT_EQ(loaded.image, nullptr) << width << " by " << height;
                EXPECT_NE(loaded.problem, "");
            }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(PngDecoderTest, TheLargestSizesLoad) {
    for (const auto& [width, height] :
         std::vector<std::pair<int, int>>{{8192, 1}, {1, 8192}, {8192, 1953}}) {
        const std::string rows(
            static_cast<std::size_t>((width + 7) / 8 + 1) * static_cast<std::size_t>(height), '\0');
        const CLoadedImage loaded =
            DecodePngText(GetPngBytes({GetHeaderChunk(static_cast<std::uint32_t>(width),
                                                      static_cast<std::uint32_t>(height), 1, kGrey),
                                       {"IDAT", Compress(rows)},
                                       {"IEND", ""}}));
        ASSERT_NE(loaded.image, nullptr) << loaded.problem;
        EXPECT_EQ(loaded.image->GetSize(), (Core::C2DSize{width, height}));
        EXPECT_EQ(GetWord(*loaded.image, width - 1, height - 1), 0xFF000000u);
    }
}

// What unpacks to far more than it is: data for an image of one pixel, and texts beside it.
TEST(PngDecoderTest, WhatIsPackedTooTightIsNotUnpacked) {
    const std::string flood = Compress(std::string(60'000'000, '\0'));
    const CPngPicture picture{1, 1, 8, kGrey, [](int, int, int) { return 7; }};
    testing::internal::CaptureStderr();
    const CLoadedImage data =
        DecodePngText(GetPngBytes({GetHeaderChunk(1, 1, 8, kGrey), {"IDAT", flood}, {"IEND", ""}}));
    EXPECT_TRUE(data.image || !data.problem.empty());
    for (const char* type : {"zTXt", "iCCP"}) {
        CPngPicture withText = picture;
        withText.beforeData.assign(20, {type, std::string("name\0\0", 6) + flood});
        const CLoadedImage loaded = DecodePngText(GetPngBytes(withText));
        ASSERT_NE(loaded.image, nullptr) << type << loaded.problem;
        EXPECT_EQ(GetWord(*loaded.image, 0, 0), Word(255, 7, 7, 7));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(PngDecoderTest, MissingAndRepeatedChunksAreRefusedOrHarmless) {
    const std::vector<CPngChunk> chunks = GetPngChunks(GetSmallPicture());
    testing::internal::CaptureStderr();
    EXPECT_EQ(DecodePngText(GetPngBytes({chunks[1], chunks[2]})).image, nullptr);
    EXPECT_EQ(DecodePngText(GetPngBytes({chunks[0], chunks[2]})).image, nullptr);
    EXPECT_EQ(DecodePngText(GetPngBytes({chunks[0], chunks[0], chunks[1], chunks[2]})).image,
              nullptr);
    EXPECT_EQ(DecodePngText(GetPngBytes(std::vector<CPngChunk>())).image, nullptr);
    // A palette image without its palette.
    CPngPicture picture{2, 2, 8, kPalette, [](int, int, int) { return 1; }};
    EXPECT_EQ(DecodePngText(GetPngBytes(picture)).image, nullptr);
    // An index beyond the palette shows some colour and does no harm.
    picture.beforeData = {{"PLTE", Bytes({1, 2, 3})}};
    EXPECT_NE(DecodePngText(GetPngBytes(picture)).image, nullptr);
    // A depth and a type that do not go together.
    EXPECT_EQ(DecodePngText(GetPngBytes({GetHeaderChunk(2, 2, 3, kGrey), chunks[1]})).image,
              nullptr);
    EXPECT_EQ(DecodePngText(GetPngBytes({GetHeaderChunk(2, 2, 4, kColour), chunks[1]})).image,
              nullptr);
    EXPECT_EQ(DecodePngText(GetPngBytes({GetHeaderChunk(2, 2, 8, 5), chunks[1]})).image, nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace Vorin::Graphics::Testing
