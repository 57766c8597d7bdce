// Image files of all kinds, and what is none.

#include "graphics/images/ImageFile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <gdk-pixbuf/gdk-pixbuf.h>

#include "ImageBytes.h"
#include "PngBytes.h"
#include "files/TemporaryFolder.h"

namespace Vorin::Graphics::Testing {
namespace {

using namespace std::string_literals;

constexpr Core::C2DSize kSize{24, 16};

std::string GetSomePng() {
    return GetPngBytes(CPngPicture{kSize.width, kSize.height, 8, kColour,
                                   [](int, int, int channel) { return channel * 100; }});
}

// One plain colour in a format that the platform writes: "jpeg", "bmp" or "tiff".
std::string GetForeignBytes(const char* format) {
    GdkPixbuf* pixels = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, kSize.width, kSize.height);
    gdk_pixbuf_fill(pixels, 0xC8643200u); // 200, 100, 50
    gchar* buffer = nullptr;
    gsize size = 0;
    gdk_pixbuf_save_to_bufferv(pixels, &buffer, &size, format, nullptr, nullptr, nullptr);
    g_object_unref(pixels);
    std::string bytes(buffer, size);
    g_free(buffer);
    return bytes;
}

// Two pixels, red and transparent: the smallest there is to write by hand.
std::string GetGifBytes() {
    const unsigned char bytes[] = {'G',  'I',  'F',  '8',  '9', 'a', 2, 0,   1, 0,
                                   0x80, 0,    0,    255,  0,   0,   0, 255, 0, // two colours
                                   0x21, 0xF9, 4,    1,    0,   0,   1, 0,      // 1 is transparent
                                   0x2C, 0,    0,    0,    0,   2,   0, 1,   0, 0, // the image
                                   2,    2,    0x44, 0x0A, 0,                      // 0, 1
                                   0x3B};
    return {bytes, bytes + sizeof bytes};
}

void ExpectPlainColour(const CLoadedImage& loaded, const char* kind) {
    ASSERT_NE(loaded.image, nullptr) << kind << ": " << loaded.problem;
    EXPECT_EQ(loaded.image->GetSize(), kSize) << kind;
    EXPECT_FALSE(loaded.hasAlpha) << kind;
    const std::uint32_t word = GetWord(*loaded.image, 23, 15);
    EXPECT_EQ(word >> 24, 0xFFu) << kind;
    EXPECT_NEAR((word >> 16) & 0xFF, 200, 3) << kind;
    EXPECT_NEAR((word >> 8) & 0xFF, 100, 3) << kind;
    EXPECT_NEAR(word & 0xFF, 50, 3) << kind;
}

TEST(ImageFileTest, ImagesOfOtherKindsLoad) {
    const TestFiles::CTemporaryFolder folder;
    for (const char* kind : {"jpeg", "bmp", "tiff"})
        ExpectPlainColour(
            LoadImageFile(folder.Write(std::string("a.") + kind, GetForeignBytes(kind)).c_str()),
            kind);
    const CLoadedImage gif = LoadImageFile(folder.Write("a.gif", GetGifBytes()).c_str());
    ASSERT_NE(gif.image, nullptr) << gif.problem;
    EXPECT_TRUE(gif.hasAlpha);
    EXPECT_EQ(GetWord(*gif.image, 0, 0), 0xFFFF0000u);
    EXPECT_EQ(GetWord(*gif.image, 1, 0), 0u);
}

TEST(ImageFileTest, ANameEndingInPngIsPngInWhateverCase) {
    const TestFiles::CTemporaryFolder folder;
    for (const char* name : {"a.png", "b.PNG", "c.Png", ".png"}) {
        EXPECT_NE(LoadImageFile(folder.Write(name, GetSomePng()).c_str()).image, nullptr) << name;
        EXPECT_EQ(LoadImageFile(folder.Write(name, GetForeignBytes("jpeg")).c_str()).image, nullptr)
            << name << " is a JPEG";
    }
}

TEST(ImageFileTest, APngOfAnotherNameIsKnownByItsContent) {
    const TestFiles::CTemporaryFolder folder;
    for (const char* name : {"a.jpg", "b", "png", "c.png.bak"}) {
        const CLoadedImage loaded = LoadImageFile(folder.Write(name, GetSomePng()).c_str());
        ASSERT_NE(loaded.image, nullptr) << name << loaded.problem;
        EXPECT_EQ(GetWord(*loaded.image, 3, 3), 0xFF0064C8u);
    }
}

TEST(ImageFileTest, WhatIsNoImageFileSaysSo) {
    const TestFiles::CTemporaryFolder folder;
    const auto getProblem = [](const std::string& path) {
        const CLoadedImage loaded = LoadImageFile(path.c_str());
        EXPECT_EQ(loaded.image, nullptr) << path;
        EXPECT_FALSE(loaded.hasAlpha);
        return loaded.problem;
    };
    EXPECT_EQ(getProblem(folder.Path("none.png")), "cannot be read: No such file or directory");
    EXPECT_EQ(getProblem(folder.Path("")), "is a folder, not an image file");
    EXPECT_EQ(getProblem(folder.Write("empty.png", "")), "is an empty file, not an image");
    EXPECT_EQ(getProblem(folder.Write("text.jpg", "no image")),
              "is not an image of a known kind; save it as PNG, JPEG, GIF, BMP or TIFF");
    EXPECT_EQ(getProblem(folder.Write("a.png", "no image")).rfind("is not a PNG image", 0), 0u);
    EXPECT_EQ(getProblem(folder.Write("a.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>")),
              "is not an image of a known kind; save it as PNG, JPEG, GIF, BMP or TIFF");
    ASSERT_EQ(mkfifo(folder.Path("pipe.png").c_str(), 0600), 0);
    EXPECT_EQ(getProblem(folder.Path("pipe.png")),
              "is not a regular file; images are read from files on disk");
    EXPECT_EQ(getProblem(std::string(10000, 'a')), "cannot be read: File name too long");
}

TEST(ImageFileTest, AFileBeyondTheLimitIsNotRead) {
    const TestFiles::CTemporaryFolder folder;
    const std::string path = folder.Write("large.png", GetSomePng());
    std::filesystem::resize_file(path, kMaxImageFileBytes);
    EXPECT_NE(LoadImageFile(path.c_str()).image, nullptr) << "what follows the image is ignored";
    std::filesystem::resize_file(path, kMaxImageFileBytes + 1);
    EXPECT_EQ(LoadImageFile(path.c_str()).problem, "is larger than 32 MB; use a smaller image");
}

TEST(ImageFileTest, CutAndDamagedImagesOfOtherKindsAreQuietlyRefusedOrShown) {
    testing::internal::CaptureStderr();
    for (const std::string& bytes : {GetForeignBytes("jpeg"), GetForeignBytes("bmp"),
                                     GetForeignBytes("tiff"), GetGifBytes()}) {
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            const CLoadedImage loaded = DecodeForeignText(bytes.substr(0, length));
            ASSERT_EQ(loaded.image == nullptr, !loaded.problem.empty()) << length;
        }
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            std::string damaged = bytes;
            damaged[at] = static_cast<char>(damaged[at] ^ 0xFF);
            const CLoadedImage loaded = DecodeForeignText(damaged);
            ASSERT_EQ(loaded.image == nullptr, !loaded.problem.empty()) << at;
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ImageFileTest, LargeImagesOfOtherKindsAreRefusedBeforeMemoryIsTaken) {
    testing::internal::CaptureStderr();
    std::string jpeg = GetForeignBytes("jpeg");
    const std::size_t frame = jpeg.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    jpeg.replace(frame + 5, 4, "\xFF\xDC\xFF\xDC"); // 65500 a side
    std::string bmp = GetForeignBytes("bmp");
    std::string gif = GetGifBytes();
    gif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    std::string tiff = GetForeignBytes("tiff");
    for (const char* side : {"\xFF\xFF\xFF\x7F", "\x20\x4E\x00\x00", "\x01\x20\x00\x00"}) {
        bmp.replace(18, 4, std::string(side, 4));
        bmp.replace(22, 4, std::string(side, 4));
        const CLoadedImage loaded = DecodeForeignText(bmp);
        EXPECT_EQ(loaded.image, nullptr);
        EXPECT_NE(loaded.problem, "");
    }
    EXPECT_EQ(DecodeForeignText(jpeg).problem,
              "is not an image that can be shown: it is larger than 8192 pixels a side or 16 "
              "million pixels");
    EXPECT_EQ(DecodeForeignText(gif).image, nullptr);
    // Sides of 0, which the library complains about; in a TIFF each stands in a field of its own.
    for (const std::size_t field : {std::size_t{18}, std::size_t{22}}) {
        std::string flat = GetForeignBytes("bmp");
        flat.replace(field, 4, std::string(4, '\0'));
        EXPECT_EQ(DecodeForeignText(flat).image, nullptr);
    }
    for (std::size_t at = 0; at + 12 <= tiff.size(); ++at) {
        const bool isSide = tiff[at + 1] == 1 && (tiff[at] == 0 || tiff[at] == 1);
        if (isSide) {
            std::string flat = tiff;
            flat.replace(at + 8, 4, std::string(4, '\0'));
            DecodeForeignText(flat);
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// The loader would take that much memory at once.
TEST(ImageFileTest, HeadersLongerThanTheFileAreRefused) {
    const std::string bmp = GetForeignBytes("bmp");
    for (const std::size_t field : {std::size_t{10}, std::size_t{14}}) {
        std::string damaged = bmp;
        damaged.replace(field, 4, "\xC4\x83\x83\x83");
        EXPECT_EQ(DecodeForeignText(damaged).problem,
                  "is not an image that can be shown: the data are damaged");
    }
    EXPECT_EQ(DecodeForeignText(bmp.substr(0, 17)).image, nullptr);
}

TEST(ImageFileTest, DecodingNothingIsNoImage) {
    EXPECT_EQ(DecodePng(nullptr, 0).image, nullptr);
    EXPECT_EQ(DecodeForeignImage(nullptr, 0).image, nullptr);
}

TEST(ImageFileTest, ABmpWithMoreColoursThanThereAreIsRefused) {
    std::string bmp = GetForeignBytes("bmp");
    bmp.replace(46, 4, "\xFF\x0F\x00\x00"s); // a remark only, in an image without a palette
    EXPECT_NE(DecodeForeignText(bmp).image, nullptr);
    bmp.replace(46, 4, "\xC8\x01\x00\xB9"s);
    EXPECT_EQ(DecodeForeignText(bmp).problem,
              "is not an image that can be shown: the data are damaged");
}

// Its header is shorter: where others tell the colours, it has pixels.
TEST(ImageFileTest, ABmpOfTheFirstVersionIsLoaded) {
    const std::string white(4 * 4 * 3, '\xFF');
    const std::string bmp = "BM\x4A\0\0\0\0\0\0\0\x1A\0\0\0"       // 74 bytes, pixels at 26
                            "\x0C\0\0\0\x04\0\x04\0\x01\0\x18\0"s; // 4 by 4, 24 bits each
    const CLoadedImage loaded = DecodeForeignText(bmp + white);
    ASSERT_NE(loaded.image, nullptr) << loaded.problem;
    EXPECT_EQ(GetWord(*loaded.image, 3, 3), 0xFFFFFFFFU);
}

} // namespace
} // namespace Vorin::Graphics::Testing
