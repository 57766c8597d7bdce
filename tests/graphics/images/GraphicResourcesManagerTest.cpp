#include "graphics/images/GraphicResourcesManager.h"

#include <gtest/gtest.h>

#include "ImageBytes.h"
#include "PngBytes.h"
#include "files/TemporaryFolder.h"
#include "graphics/TestPicture.h"
#include "graphics/images/ImageGraphics.h"

namespace Vorin::Graphics::Testing {
namespace {

std::string GetPlainPng(int side, int alpha, int grey = 200) {
    return GetPngBytes(CPngPicture{side, side, 8, kGreyAlpha, [alpha, grey](int, int, int channel) {
                                       return channel == 1 ? alpha : grey;
                                   }});
}

int GetReferences(const IImage& image) {
    return image.GetSharedImage()->GetReferenceCount() - 1; // but for this one
}

TEST(GraphicResourcesManagerTest, TheSamePathGivesTheSameImage) {
    const TestFiles::CTemporaryFolder folder;
    const std::string path = folder.Write("a.png", GetPlainPng(4, 100));
    CGraphicResourcesManager manager;
    bool hasAlpha = false;
    const auto first = manager.GetImage(path.c_str(), hasAlpha);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(hasAlpha);
    EXPECT_EQ(GetReferences(*first), 2) << "the manager's and ours";
    hasAlpha = false;
    const auto second = manager.GetImage(path.c_str(), hasAlpha);
    EXPECT_TRUE(hasAlpha);
    EXPECT_EQ(second->GetPlatformImage(), first->GetPlatformImage());
    EXPECT_EQ(GetReferences(*first), 3);
    const auto third = first->Clone();
    EXPECT_EQ(GetReferences(*second), 4);
    EXPECT_EQ(manager.GetLoadsCount(), 1);
    EXPECT_EQ(manager.GetImagesCount(), 1);
    EXPECT_EQ(manager.GetDecodedBytes(), 4 * 4 * 4);
    EXPECT_EQ(manager.GetProblem(path.c_str()), "");
}

TEST(GraphicResourcesManagerTest, WhatNobodyHoldsIsForgotten) {
    const TestFiles::CTemporaryFolder folder;
    const std::string held = folder.Write("held.png", GetPlainPng(4, 255));
    const std::string unused = folder.Write("unused.png", GetPlainPng(8, 100));
    CGraphicResourcesManager manager;
    bool hasAlpha = true;
    auto image = manager.GetImage(held.c_str(), hasAlpha);
    EXPECT_FALSE(hasAlpha);
    manager.GetImage(unused.c_str(), hasAlpha);
    manager.GetAlphaImage(unused.c_str());
    EXPECT_EQ(manager.GetImagesCount(), 3);
    EXPECT_EQ(manager.GetDecodedBytes(), 64 + 256 + 256);
    manager.ReleaseUnused(false);
    EXPECT_EQ(manager.GetImagesCount(), 1);
    EXPECT_EQ(manager.GetDecodedBytes(), 64);
    manager.GetImage(held.c_str(), hasAlpha);
    EXPECT_EQ(manager.GetLoadsCount(), 2);
    manager.GetImage(unused.c_str(), hasAlpha);
    EXPECT_EQ(manager.GetLoadsCount(), 3) << "it had to be loaded again";
    manager.ReleaseUnused(true);
    EXPECT_EQ(manager.GetImagesCount(), 0);
    EXPECT_EQ(manager.GetDecodedBytes(), 0);
    EXPECT_EQ(GetReferences(*image), 1) << "who holds an image keeps it";
    EXPECT_EQ(image->GetSize(), (Core::C2DSize{4, 4}));
}

TEST(GraphicResourcesManagerTest, ImagesOutliveTheManager) {
    const TestFiles::CTemporaryFolder folder;
    const std::string path = folder.Write("a.png", GetPlainPng(4, 100));
    std::weak_ptr<CPlatformImage> pixels;
    std::unique_ptr<IImage> image;
    {
        CGraphicResourcesManager manager;
        bool hasAlpha = false;
        image = manager.GetImage(path.c_str(), hasAlpha);
        pixels = image->GetPlatformImage();
    }
    EXPECT_EQ(GetReferences(*image), 1);
    EXPECT_FALSE(pixels.expired());
    image.reset();
    EXPECT_TRUE(pixels.expired());
}

TEST(GraphicResourcesManagerTest, WhatCannotBeLoadedIsTriedOnce) {
    const TestFiles::CTemporaryFolder folder;
    const std::string path = folder.Path("none.png");
    CGraphicResourcesManager manager;
    bool hasAlpha = true;
    EXPECT_EQ(manager.GetImage(path.c_str(), hasAlpha), nullptr);
    EXPECT_FALSE(hasAlpha);
    EXPECT_EQ(manager.GetImage(path.c_str(), hasAlpha), nullptr);
    EXPECT_EQ(manager.GetAlphaImage(path.c_str()), nullptr);
    EXPECT_EQ(manager.GetLoadsCount(), 1);
    EXPECT_EQ(manager.GetImagesCount(), 0);
    EXPECT_EQ(manager.GetProblem(path.c_str()), "cannot be read: No such file or directory");
    folder.Write("none.png", GetPlainPng(2, 9));
    EXPECT_EQ(manager.GetImage(path.c_str(), hasAlpha), nullptr);
    manager.ReleaseUnused(false);
    EXPECT_NE(manager.GetImage(path.c_str(), hasAlpha), nullptr);
    EXPECT_TRUE(hasAlpha);
}

TEST(GraphicResourcesManagerTest, AnEmptyPathIsNoImage) {
    CGraphicResourcesManager manager;
    bool hasAlpha = true;
    EXPECT_EQ(manager.GetImage("", hasAlpha), nullptr);
    EXPECT_FALSE(hasAlpha);
    EXPECT_EQ(manager.GetImage(nullptr, hasAlpha), nullptr);
    EXPECT_EQ(manager.GetAlphaImage(""), nullptr);
    EXPECT_EQ(manager.GetAlphaImage(nullptr), nullptr);
    EXPECT_EQ(manager.GetProblem(""), "");
    EXPECT_EQ(manager.GetProblem("never asked for"), "");
    EXPECT_EQ(manager.GetLoadsCount(), 0);
}

TEST(GraphicResourcesManagerTest, AnAlphaImageIsThePictureOnBlackWithItsAlpha) {
    const TestFiles::CTemporaryFolder folder;
    const std::string path = folder.Write("a.png", GetPlainPng(3, 100));
    CGraphicResourcesManager manager;
    const auto derived = manager.GetAlphaImage(path.c_str());
    ASSERT_NE(derived, nullptr);
    bool hasAlpha = false;
    const auto original = manager.GetImage(path.c_str(), hasAlpha);
    EXPECT_EQ(manager.GetLoadsCount(), 1);
    EXPECT_NE(derived->GetPlatformImage(), original->GetPlatformImage());
    EXPECT_EQ(GetWord(*derived->GetPlatformImage(), 1, 1), 0x644E4E4Eu); // 200 * 100 / 255 = 78
    EXPECT_EQ(manager.GetAlphaImage(path.c_str())->GetPlatformImage(), derived->GetPlatformImage());
    EXPECT_EQ(manager.GetImagesCount(), 2);
}

TEST(GraphicResourcesManagerTest, AllImagesTogetherHaveALimit) {
    const TestFiles::CTemporaryFolder folder;
    CGraphicResourcesManager manager;
    std::vector<std::unique_ptr<IImage>> images;
    const std::string large =
        GetPngBytes({GetHeaderChunk(4000, 4000, 1, kGrey),
                     {"IDAT", Compress(std::string(std::size_t{501} * 4000, '\0'))},
                     {"IEND", ""}});
    bool hasAlpha = false;
    for (const char* name : {"a.png", "b.png", "c.png", "d.png"}) // 64 MB each
        images.push_back(manager.GetImage(folder.Write(name, large).c_str(), hasAlpha));
    ASSERT_NE(images.back(), nullptr);
    const std::string last = folder.Write("e.png", large);
    EXPECT_EQ(manager.GetImage(last.c_str(), hasAlpha), nullptr);
    EXPECT_NE(manager.GetProblem(last.c_str()), "");
    EXPECT_LE(manager.GetDecodedBytes(), CGraphicResourcesManager::kMaxDecodedBytes);
    images.pop_back();
    manager.ReleaseUnused(false);
    EXPECT_NE(manager.GetImage(last.c_str(), hasAlpha), nullptr);
}

// Watched by the leak checks of the sanitizer builds.
TEST(GraphicResourcesManagerTest, TenThousandLoadsAndDrawsLeaveNothing) {
    const TestFiles::CTemporaryFolder folder;
    const std::string path = folder.Write("a.png", GetPlainPng(16, 100));
    CGraphicResourcesManager manager;
    CTestPicture picture({40, 40});
    CImageGraphics graphics;
    graphics.SetSize({40, 40});
    for (int round = 0; round < 10000; ++round) {
        bool hasAlpha = false;
        graphics.SetElement(
            std::make_unique<CAlphaImageElement>(manager.GetImage(path.c_str(), hasAlpha), 200));
        graphics.SetDrawMode(round % 3);
        graphics.Draw(*picture, nullptr);
        graphics.SetElement(nullptr);
        manager.ReleaseUnused(false);
        ASSERT_EQ(manager.GetImagesCount(), 0);
        ASSERT_EQ(manager.GetDecodedBytes(), 0);
    }
    EXPECT_EQ(manager.GetLoadsCount(), 10000);
}

} // namespace
} // namespace Vorin::Graphics::Testing
