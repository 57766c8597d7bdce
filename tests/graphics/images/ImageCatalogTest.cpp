#include "graphics/images/ImageCatalog.h"

#include <gtest/gtest.h>

namespace Vorin::Graphics {
namespace {

TEST(ImageCatalogTest, AnEmptySlotIsTransparentAndHasNoSize) {
    const CImageCatalog catalog(2);
    for (int index : {-1, 0, 1, 2}) {
        EXPECT_EQ(catalog.GetElement(index), nullptr);
        EXPECT_EQ(catalog.GetImage(index), nullptr);
        EXPECT_EQ(catalog.GetElementSize(index), Core::C2DSize{});
        EXPECT_TRUE(catalog.IsTransparent(index));
        EXPECT_FALSE(catalog.HitTest(index, {0, 0}, {0, 0}, 0.2));
    }
    EXPECT_EQ(CImageCatalog(-3).GetCount(), 0);
}

} // namespace
} // namespace Vorin::Graphics
