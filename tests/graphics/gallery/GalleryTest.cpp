// Each picture of the gallery against the one that was looked at and found good.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>

#include "graphics/DIBBitmap.h"
#include "graphics/DIBPixelAccess.h"
#include "graphics/images/ImageFile.h"
#include "scenes/Scene.h"

namespace Vorin::Graphics::Testing {
namespace {

int GetDistance(const RGB& a, const RGB& b) {
    return std::max(
        {std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

class GalleryTest : public testing::TestWithParam<CScene> {};

// What Cairo blends may differ by its rounding.
constexpr int kTolerance = 2;

TEST_P(GalleryTest, LooksAsItShould) {
    const CScene& scene = GetParam();
    const std::string path = std::string(GALLERY_GOLDENS) + "/" + scene.name + ".png";
    const CLoadedImage golden = LoadImageFile(path.c_str());
    ASSERT_NE(golden.image, nullptr) << path << " " << golden.problem;
    ASSERT_EQ(golden.image->GetSize(), scene.size);

    CDIBBitmap bitmap(scene.size, 32);
    scene.draw(*bitmap.CreateSurface());
    const TDIBPixelAccess<CDIB32BGRIterator> expected(golden.image->GetBitmapContext());
    const auto drawn = bitmap.CreatePixelAccess();
    int different = 0;
    for (int y = 0; y < scene.size.height; ++y)
        for (int x = 0; x < scene.size.width; ++x)
            if (GetDistance(expected.GetPixel({x, y}), drawn->GetPixel({x, y})) > kTolerance &&
                different++ < 5)
                ADD_FAILURE() << "pixel " << x << ", " << y;
    EXPECT_EQ(different, 0) << "pixels of " << path;
}

INSTANTIATE_TEST_SUITE_P(Scenes, GalleryTest, testing::ValuesIn(GetScenes()),
                         [](const testing::TestParamInfo<CScene>& tested) {
                             std::string name = tested.param.name;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(GalleryNamesTest, EachSceneHasAFileOfItsOwn) {
    std::set<std::string> names;
    for (const CScene& scene : GetScenes())
        EXPECT_TRUE(names.insert(scene.name).second) << scene.name;
}

} // namespace
} // namespace Vorin::Graphics::Testing
