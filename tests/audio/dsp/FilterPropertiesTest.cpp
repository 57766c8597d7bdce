#include "audio/dsp/FilterProperties.h"

#include "audio/dsp/FilterTestKit.h"
#include "audio/dsp/TestMonoFilter.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace Vorin::Audio::DSP {
namespace {

using namespace DataModel::Objects;

/// A property value that tells which one it is.
class CNumberedValue : public CEmptyDynamicPropertyValue {
public:
    explicit CNumberedValue(int which) : number(which) {}
    IDynamicPropertyValue* Clone() const override { return new CNumberedValue(number); }

    const int number;
};

/// A filter that declares two of each kind of input.
class CManyInputsFilter : public CTestMonoFilter {
public:
    CManyInputsFilter() {
        strings.Add(CStringInfo("A", "", false, "first"));
        strings.Add(CStringInfo("B", "", false, "second"));
        AddAxes();
        properties.Add(CCustomPropertyInfo("A", "", new CNumberedValue(7)));
        properties.Add(CCustomPropertyInfo("B", ""));
        SetInputStringInfos(strings);
        SetInputCurveInfos(curves);
        SetInputSurfaceInfos(surfaces);
        SetInputPropertyInfos(properties);
    }

private:
    void AddAxes() {
        const CParamInfo x;
        const CParamInfo y(kParamReal, "Y", "", "", nullptr, nullptr, 0.0, 1.0, 0.25);
        curves.Add(CCurveInfo("A", "", x, y));
        CCurveInfo curve("B", "", x, y);
        curve.SetDefaultValue(new Math::CConstantFunction(5.0), Core::kOwn);
        curves.Add(curve);
        surfaces.Add(CSurfaceInfo("A", "", x, y, y));
        CSurfaceInfo surface("B", "", x, y, y);
        surface.SetDefaultValue(new Math::CConstantBinaryFunction(6.0), Core::kOwn);
        surfaces.Add(surface);
    }

    CoreUtilities::TDynamicCollection<CStringInfo, IConstStringInfo> strings;
    CoreUtilities::TDynamicCollection<CCurveInfo, IConstCurveInfo> curves;
    CoreUtilities::TDynamicCollection<CSurfaceInfo, IConstSurfaceInfo> surfaces;
    CoreUtilities::TDynamicCollection<CCustomPropertyInfo, IConstCustomPropertyInfo> properties;
};

TEST(FilterPropertiesTest, IsBuiltEmpty) {
    const CFilterProperties properties;
    EXPECT_EQ(properties.GetInputParams().GetCount(), 0);
    EXPECT_EQ(properties.GetInputStrings().GetCount(), 0);
    EXPECT_EQ(properties.GetInputCurves().GetCount(), 0);
    EXPECT_EQ(properties.GetInputSurfaces().GetCount(), 0);
    EXPECT_EQ(properties.GetInputProperties().GetCount(), 0);
    EXPECT_EQ(properties.GetIOConfiguration(), -1);
}

TEST(FilterPropertiesTest, FillsEachGroupWithTheDefaultsOfTheFilter) {
    const CManyInputsFilter filter;
    CFilterProperties filled;
    filled.Fill(filter);
    const CFilterProperties& properties = filled;
    ASSERT_EQ(properties.GetInputParams().GetCount(), 2);
    EXPECT_EQ(properties.GetInputParams().GetValue(0), 2.0);
    EXPECT_EQ(properties.GetInputParams().GetValue(1), 0.5);
    ASSERT_EQ(properties.GetInputStrings().GetCount(), 2);
    EXPECT_STREQ(properties.GetInputStrings().GetValue(0), "first");
    EXPECT_STREQ(properties.GetInputStrings().GetValue(1), "second");
    ASSERT_EQ(properties.GetInputCurves().GetCount(), 2);
    EXPECT_EQ(properties.GetInputCurves().Get(0).Evaluate(0.0), 0.25);
    EXPECT_EQ(properties.GetInputCurves().Get(1).Evaluate(0.0), 5.0);
    ASSERT_EQ(properties.GetInputSurfaces().GetCount(), 2);
    EXPECT_EQ(properties.GetInputSurfaces().Get(1).Evaluate(0.0, 0.0), 6.0);
    ASSERT_EQ(properties.GetInputProperties().GetCount(), 2);
    const auto* value =
        dynamic_cast<const CNumberedValue*>(&properties.GetInputProperties().Get(0));
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->number, 7);
    // An info without a default gives an empty value, so that no element is missing.
    EXPECT_EQ(properties.GetInputProperties().Get(1).GetType(), nullptr);
}

TEST(FilterPropertiesTest, TakesTheCountsOfTheLastFilterItWasFilledFrom) {
    CFilterProperties properties;
    properties.Fill(CManyInputsFilter());
    properties.Fill(CTestMonoFilter());
    EXPECT_EQ(properties.GetInputStrings().GetCount(), 0);
    EXPECT_EQ(properties.GetInputCurves().GetCount(), 0);
    EXPECT_EQ(properties.GetInputSurfaces().GetCount(), 0);
    EXPECT_EQ(properties.GetInputProperties().GetCount(), 0);
    EXPECT_EQ(static_cast<const CFilterProperties&>(properties).GetInputParams().GetCount(), 2);
}

TEST(FilterPropertiesTest, KeepsWhatIsSet) {
    CFilterProperties properties;
    properties.Fill(CTestMonoFilter());
    properties.GetInputParams().SetValue(1, 9.0);
    properties.SetIOConfiguration(3);
    const CFilterProperties copy = properties;
    properties.GetInputParams().SetValue(1, 1.0);
    EXPECT_EQ(copy.GetInputParams().GetValue(1), 9.0);
    EXPECT_EQ(copy.GetIOConfiguration(), 3);
}

TEST(FilterPropertiesTest, CopiesItsCurvesAsClones) {
    CFilterProperties properties;
    properties.Fill(CManyInputsFilter());
    const CFilterProperties copy = properties;
    EXPECT_NE(&copy.GetInputCurves().Get(0), &properties.GetInputCurves().Get(0));
    properties.Fill(CTestMonoFilter());
    EXPECT_EQ(copy.GetInputCurves().Get(1).Evaluate(0.0), 5.0);
}

TEST(FilterPropertiesAdapterTest, ShowsTheSecondHalfOfTenParameters) {
    const CTestValues values{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    CFilterPropertiesAdapter adapter(values);
    EXPECT_EQ(adapter.GetInputParams().GetCount(), 10);
    adapter.SetParamRange(5, 5);
    ASSERT_EQ(adapter.GetInputParams().GetCount(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(adapter.GetInputParams().GetValue(i), 5.0 + i);
    }
}

TEST(FilterPropertiesAdapterTest, ShowsNoMoreParametersThanThereAre) {
    const CTestValues values{0, 1, 2};
    CFilterPropertiesAdapter adapter(values);
    constexpr int largest = std::numeric_limits<int>::max();
    adapter.SetParamRange(1, largest);
    EXPECT_EQ(adapter.GetInputParams().GetCount(), 2);
    adapter.SetParamRange(7, 1);
    EXPECT_EQ(adapter.GetInputParams().GetCount(), 0);
    adapter.SetParamRange(-2, -3);
    EXPECT_EQ(adapter.GetInputParams().GetCount(), 0);
    adapter.SetParamRange(0, 3);
    EXPECT_EQ(adapter.GetInputParams().GetValue(2), 2.0);
}

TEST(FilterPropertiesAdapterTest, PassesTheOtherGroupsThrough) {
    CFilterProperties properties;
    properties.Fill(CManyInputsFilter());
    properties.SetIOConfiguration(2);
    const CFilterProperties& source = properties;
    const CFilterPropertiesAdapter adapter(source);
    EXPECT_EQ(&adapter.GetInputStrings(), &source.GetInputStrings());
    EXPECT_EQ(&adapter.GetInputCurves(), &source.GetInputCurves());
    EXPECT_EQ(&adapter.GetInputSurfaces(), &source.GetInputSurfaces());
    EXPECT_EQ(&adapter.GetInputProperties(), &source.GetInputProperties());
    EXPECT_EQ(adapter.GetIOConfiguration(), 2);
}

TEST(FilterPropertiesVariationsTest, HoldsOneSetAsOrderZero) {
    const CTestValues values{4};
    const CFilterPropertiesVariations variations(values);
    EXPECT_EQ(variations.GetCount(), 1);
    EXPECT_EQ(&variations.GetVariation(0), &values);
    EXPECT_TRUE(variations.HasOrder(0));
    EXPECT_FALSE(variations.HasOrder(1));
    EXPECT_FALSE(variations.HasOrder(-1));
}

TEST(FilterPropertiesVariationsTest, AdaptsEachOrder) {
    const CTestVariations source{CTestValues{1, 2, 3}, CTestValues{4, 5, 6}};
    const CFilterPropertiesVariationsAdapter adapter(source, 1, 2);
    ASSERT_EQ(adapter.GetCount(), 2);
    EXPECT_EQ(adapter.GetVariation(0).GetInputParams().GetCount(), 2);
    EXPECT_EQ(adapter.GetVariation(0).GetInputParams().GetValue(0), 2.0);
    EXPECT_EQ(adapter.GetVariation(1).GetInputParams().GetValue(1), 6.0);
    EXPECT_TRUE(adapter.HasOrder(1));
    EXPECT_FALSE(adapter.HasOrder(2));
}

TEST(FilterPropertiesVariationsTest, LeavesOutOrdersThatItHasNoRoomFor) {
    const CTestVariations source(std::vector<CTestValues>(6, CTestValues{1}));
    EXPECT_EQ(CFilterPropertiesVariationsAdapter(source, 0, 1).GetCount(), 4);
    EXPECT_EQ(CFilterPropertiesVariationsAdapter(CTestVariations{}, 0, 1).GetCount(), 0);
}

TEST(InputRampAdapterTest, AdaptsBothEnds) {
    const CTestRamp ramp({CTestValues{1, 2}}, {CTestValues{3, 4}});
    const CInputRampAdapter adapter(ramp, 1, 1);
    EXPECT_EQ(adapter.GetAtStart().GetVariation(0).GetInputParams().GetValue(0), 2.0);
    EXPECT_EQ(adapter.GetAtEnd().GetVariation(0).GetInputParams().GetValue(0), 4.0);
    EXPECT_EQ(adapter.GetAtEnd().GetVariation(0).GetInputParams().GetCount(), 1);
}

} // namespace
} // namespace Vorin::Audio::DSP
