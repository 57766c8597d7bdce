#include "datamodel/CurveInfo.h"

#include "core/EventCounter.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using Square = Math::TFunction<&Math::FunctionsLibrary::Square>;

CParamInfo MakeAxis(const char* name, double initial = 0.0) {
    return CParamInfo(kParamReal, name, "s", "", nullptr, nullptr, -1.0, 1.0, initial);
}

CCurveInfo MakeWaveform(double initial = 0.0) {
    return CCurveInfo("Waveform", "over time", MakeAxis("Time"), MakeAxis("Value", initial));
}

TEST(CurveInfoTest, HasANameOfItsOwnAndThoseOfItsAxes) {
    const CCurveInfo info = MakeWaveform();
    EXPECT_STREQ(info.GetName(), "Waveform");
    EXPECT_STREQ(info.GetComment(), "over time");
    EXPECT_STREQ(info.GetXName(), "Time");
    EXPECT_STREQ(info.GetYName(), "Value");
    EXPECT_STREQ(info.GetXInfo().GetUnit(), "s");
    EXPECT_EQ(info.GetYInfo().GetMin(), -1.0);
}

TEST(CurveInfoTest, AxisNamesFollowTheAxes) {
    CCurveInfo info = MakeWaveform();
    info.GetXInfo().SetName("Frequency");
    EXPECT_STREQ(info.GetXName(), "Frequency");
}

TEST(CurveInfoTest, AChangeOfNameOrOfAnAxisFiresOnce) {
    CCurveInfo info = MakeWaveform();
    CEventCounter events(info.GetInfoChangedEvents());
    info.SetName("Waveform");
    EXPECT_EQ(events.Take(), 1);
    info.GetXInfo().SetMin(-2.0);
    EXPECT_EQ(events.Take(), 1);
    info.GetYInfo().SetUnit("V");
    EXPECT_EQ(events.Take(), 1);
    info.GetYInfo().SetMax(1.0);
    EXPECT_EQ(events.Take(), 0);
}

TEST(CurveInfoTest, WithoutADefaultItIsTheConstantOfTheYDefault) {
    const CCurveInfo info = MakeWaveform(0.25);
    EXPECT_EQ(info.GetDefaultValue().Evaluate(-0.5), 0.25);
    EXPECT_STREQ(info.GetDefaultValue().GetType(), Math::CConstantFunction::kIdentifier);
}

TEST(CurveInfoTest, ASecondCallGivesTheSameFallback) {
    CCurveInfo info = MakeWaveform(0.25);
    const Math::IFunction* first = &info.GetDefaultValue();
    info.GetYInfo().SetDefault(0.75);
    EXPECT_EQ(&info.GetDefaultValue(), first);
    EXPECT_EQ(info.GetDefaultValue().Evaluate(0.0), 0.25); // as it was first asked for
}

TEST(CurveInfoTest, AnExplicitDefaultReplacesTheFallback) {
    CCurveInfo info = MakeWaveform(0.25);
    EXPECT_EQ(info.GetDefaultValue().Evaluate(3.0), 0.25);
    CEventCounter events(info.GetInfoChangedEvents());
    info.SetDefaultValue(new Square, Core::kOwn);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_EQ(info.GetDefaultValue().Evaluate(3.0), 9.0);
    info.GetYInfo().SetDefault(0.75);
    info.SetDefaultValue(nullptr, Core::kOwn);
    EXPECT_EQ(info.GetDefaultValue().Evaluate(3.0), 0.75);
}

TEST(CurveInfoTest, ACopyHasItsOwnAxesCommandAndDefaultAndNoListeners) {
    CCurveInfo info = MakeWaveform();
    info.SetDefaultValue(new Square, Core::kOwn);
    CEventCounter events(info.GetInfoChangedEvents());
    CEventCounter axisEvents(info.GetXInfo().GetInfoChangedEvents());
    CCurveInfo copy(info);
    CEventCounter copyEvents(copy.GetInfoChangedEvents());

    copy.SetName("Waveform (L)");
    EXPECT_EQ(copyEvents.Take(), 1);
    copy.GetXInfo().SetName("Other");
    EXPECT_EQ(copyEvents.Take(), 1);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(axisEvents.Take(), 0);
    EXPECT_STREQ(info.GetName(), "Waveform");
    EXPECT_STREQ(info.GetXName(), "Time");
    EXPECT_NE(&copy.GetDefaultValue(), &info.GetDefaultValue());
    EXPECT_EQ(copy.GetDefaultValue().Evaluate(3.0), 9.0);

    info.GetXInfo().SetUnit("ms");
    EXPECT_EQ(events.Take(), 1);
    EXPECT_EQ(copyEvents.Take(), 0);
}

TEST(CurveInfoTest, CopyFromTakesEverythingAndFiresOnce) {
    CCurveInfo source = MakeWaveform(0.5);
    CCurveInfo info;
    info.SetDefaultValue(new Square, Core::kOwn);
    CEventCounter events(info.GetInfoChangedEvents());
    const IConstCurveInfo& reader = source;
    info.CopyFrom(reader);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "Waveform");
    EXPECT_STREQ(info.GetComment(), "over time");
    EXPECT_STREQ(info.GetYName(), "Value");
    EXPECT_EQ(info.GetDefaultValue().Evaluate(3.0), 0.5);
    // The events of the axes are forwarded again.
    info.GetXInfo().SetName("x");
    EXPECT_EQ(events.Take(), 1);
}

TEST(CurveInfoTest, AFallbackIsMadeAnewByTheCopy) {
    CCurveInfo source = MakeWaveform(0.5);
    EXPECT_EQ(source.GetDefaultValue().Evaluate(0.0), 0.5);
    source.GetYInfo().SetDefault(0.75);
    CCurveInfo copy;
    copy.CopyFrom(source);
    EXPECT_EQ(copy.GetDefaultValue().Evaluate(0.0), 0.75);
}

TEST(CurveInfoTest, AssignmentAndSelfAssignment) {
    CCurveInfo info;
    CEventCounter events(info.GetInfoChangedEvents());
    CCurveInfo source = MakeWaveform();
    source.SetDefaultValue(new Square, Core::kOwn);
    info = source;
    EXPECT_EQ(events.Take(), 1);
    const CCurveInfo& itself = info;
    info = itself;
    EXPECT_STREQ(info.GetName(), "Waveform");
    EXPECT_EQ(info.GetDefaultValue().Evaluate(2.0), 4.0);
}

TEST(CurveInfoTest, ABorrowedDefaultIsNotDeleted) {
    Math::CConstantFunction borrowed(2.0);
    {
        CCurveInfo info;
        info.SetDefaultValue(&borrowed, Core::kDontOwn);
        EXPECT_EQ(&info.GetDefaultValue(), &borrowed);
    }
    EXPECT_EQ(borrowed.Evaluate(0.0), 2.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects
