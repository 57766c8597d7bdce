#include "datamodel/SurfaceInfo.h"

#include "core/EventCounter.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

CParamInfo MakeSurfaceAxis(const char* name, double initial) {
    return CParamInfo(kParamReal, name, "", "", nullptr, nullptr, -1.0, 1.0, initial);
}

CSurfaceInfo MakeSurface() {
    return CSurfaceInfo("Spectrum", "over time", MakeSurfaceAxis("Frequency", 0.1),
                        MakeSurfaceAxis("Time", 0.2), MakeSurfaceAxis("Level", 0.3));
}

TEST(SurfaceInfoTest, HasANameOfItsOwnAndThoseOfItsAxes) {
    const CSurfaceInfo info = MakeSurface();
    EXPECT_STREQ(info.GetName(), "Spectrum");
    EXPECT_STREQ(info.GetComment(), "over time");
    EXPECT_STREQ(info.GetXName(), "Frequency");
    EXPECT_STREQ(info.GetYName(), "Time");
    EXPECT_STREQ(info.GetZName(), "Level");
}

TEST(SurfaceInfoTest, TheFallbackTakesTheDefaultOfYAndNotOfZ) {
    const CSurfaceInfo info = MakeSurface();
    EXPECT_EQ(info.GetDefaultValue().Evaluate(5.0, 6.0), 0.2);
    EXPECT_EQ(&info.GetDefaultValue(), &info.GetDefaultValue());
}

TEST(SurfaceInfoTest, EachAxisFiresTheEventOfTheWhole) {
    CSurfaceInfo info = MakeSurface();
    CEventCounter events(info.GetInfoChangedEvents());
    info.GetXInfo().SetName("a");
    EXPECT_EQ(events.Take(), 1);
    info.GetYInfo().SetName("b");
    EXPECT_EQ(events.Take(), 1);
    info.GetZInfo().SetName("c");
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetZName(), "c");
}

TEST(SurfaceInfoTest, CopiesTakeAllAxesAndTheExplicitDefault) {
    CSurfaceInfo source = MakeSurface();
    source.SetDefaultValue(new Math::TBinaryFunction<&Math::FunctionsLibrary::Sum>, Core::kOwn);
    CSurfaceInfo copy(source);
    copy.SetName("Spectrum (L)");
    EXPECT_STREQ(source.GetName(), "Spectrum");
    EXPECT_EQ(copy.GetDefaultValue().Evaluate(1.0, 2.0), 3.0);
    EXPECT_NE(&copy.GetDefaultValue(), &source.GetDefaultValue());

    CSurfaceInfo info;
    CEventCounter events(info.GetInfoChangedEvents());
    const IConstSurfaceInfo& reader = copy;
    info.CopyFrom(reader);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "Spectrum (L)");
    EXPECT_STREQ(info.GetZName(), "Level");
    EXPECT_EQ(info.GetDefaultValue().Evaluate(1.0, 2.0), 3.0);
    info = source;
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "Spectrum");
}

} // namespace
} // namespace Vorin::DataModel::Objects
