#include "SkinEngine/Model/ObjectsUsage.h"

#include <gtest/gtest.h>

namespace ModelTests {
namespace {

using Vorin::AppEngine::CObjectsUsage;
using Vorin::AppEngine::GetUsageName;

TEST(ObjectsUsageTest, CountsUsesOfAnIdentifier) {
    CObjectsUsage usage;
    EXPECT_EQ(usage.GetParamCount("a"), 0);
    usage.Declare("a");
    usage.Declare("a");
    EXPECT_EQ(usage.GetParamCount("a"), 2);
    EXPECT_EQ(usage.GetStringCount("a"), 2);
    EXPECT_EQ(usage.GetCurveCount("a"), 2);
    EXPECT_EQ(usage.GetSurfaceCount("a"), 2);
    EXPECT_EQ(usage.GetParamCount("A"), 0) << "case counts";
    EXPECT_EQ(usage.GetParamCount(nullptr), 0);
}

TEST(ObjectsUsageTest, OneStarMeansEverything) {
    CObjectsUsage usage;
    usage.Declare("a");
    usage.Declare("a");
    usage.Declare("*");
    EXPECT_EQ(usage.GetParamCount("anything"), 1);
    EXPECT_EQ(usage.GetParamCount("a"), 2);
}

TEST(ObjectsUsageTest, TakesNoEmptyIdentifier) {
    CObjectsUsage usage;
    usage.Declare("");
    usage.Declare(nullptr);
    EXPECT_EQ(usage.GetParamCount(""), 0);
}

TEST(ObjectsUsageTest, AnItemAndTheNameForAllItemsAreOneAndTheSame) {
    CObjectsUsage declared;
    declared.Declare("bands[*].gain");
    EXPECT_EQ(declared.GetParamCount("bands[*].gain"), 1);
    EXPECT_EQ(declared.GetParamCount("bands[2].gain"), 1);
    EXPECT_EQ(declared.GetParamCount("bands[1234567890123].gain"), 1);
    EXPECT_EQ(declared.GetParamCount("bands.gain"), 0);
    EXPECT_EQ(declared.GetParamCount("bands[x].gain"), 0);

    CObjectsUsage concrete;
    concrete.Declare("bands[7].sub[0].gain");
    EXPECT_EQ(concrete.GetParamCount("bands[*].sub[*].gain"), 1);
    EXPECT_EQ(concrete.GetParamCount("bands[0].sub[12].gain"), 1);
}

TEST(ObjectsUsageTest, NamesKeepWhatIsNoIndex) {
    EXPECT_EQ(GetUsageName("a[12].b"), "a[*].b");
    EXPECT_EQ(GetUsageName("[3]"), "[*]");
    EXPECT_EQ(GetUsageName("a[]"), "a[]");
    EXPECT_EQ(GetUsageName("a[1"), "a[1");
    EXPECT_EQ(GetUsageName("a[1b]"), "a[1b]");
    EXPECT_EQ(GetUsageName("a[-1]"), "a[-1]");
    EXPECT_EQ(GetUsageName("a[[1]]"), "a[[*]]");
    EXPECT_EQ(GetUsageName(""), "");
}

TEST(ObjectsUsageTest, WhatComesWithAnObjectIsAUseOfTheObject) {
    for (const char* word :
         {"info", "x_info", "y_info", "z_info", "default", "min", "max", "paused", "enum_values",
          "x_enum_values", "y_enum_values", "z_enum_values"}) {
        CObjectsUsage usage;
        usage.Declare((std::string("a.b.") + word).c_str());
        EXPECT_EQ(usage.GetParamCount("a.b"), 1) << word;
        EXPECT_EQ(usage.GetParamCount("a"), 0) << word;
    }
    CObjectsUsage usage;
    usage.Declare("a.level");
    EXPECT_EQ(usage.GetParamCount("a"), 0);
}

} // namespace
} // namespace ModelTests
