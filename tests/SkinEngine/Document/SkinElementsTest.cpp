#include "SkinEngine/Document/SkinElements.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace DocumentTests {
namespace {

using namespace Vorin::AppEngine;

bool Has(std::span<const std::string_view> names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

TEST(SkinElementsTest, AreListedOnceAndInOrder) {
    const auto names = GetSkinElements();
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end(), std::greater_equal<>()), names.end());
    for (const char* name :
         {"SKIN", "MODEL", "PARAM", "FOREACH", "VIEW_3D", "XY_ZOOM_SELECT_PAD"}) {
        EXPECT_TRUE(Has(names, name)) << name;
    }
}

TEST(SkinElementsTest, AreNotThoseOfThePreprocessor) {
    for (const std::string_view name : GetPreprocessorElements()) {
        EXPECT_FALSE(Has(GetSkinElements(), name)) << name;
    }
    EXPECT_TRUE(Has(GetPreprocessorElements(), "REPEAT"));
}

} // namespace
} // namespace DocumentTests
