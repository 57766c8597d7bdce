#include "datamodel/objects/CaptureCurve.h"

#include "datamodel/objects/CaptureProperty.h"
#include "datamodel/objects/CaptureSurface.h"
#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using Math::CConstantBinaryFunction;
using Math::CConstantFunction;
using Testing::CCountedFunction;
using Testing::CEventLog;
using Testing::CListener;
using Testing::CUniqueFunction;
using Testing::MakeInfo;

CCurveInfo MakeCurveInfo() { return {"Curve", "", MakeInfo(0.0, 1.0), MakeInfo(0.0, 1.0, 0.25)}; }

/// A read-only curve that its class changes.
class CMeasuredCurve : public CConstCaptureCurve {
public:
    using CConstCaptureCurve::CConstCaptureCurve;

    void Publish(const Math::IFunction* curve) {
        HoldValue(curve, Core::kOwn);
        NotifyValueChanged();
    }
};

TEST(CaptureCurveTest, ShowsTheDefaultOfItsInfoUntilItHasAValue) {
    CCaptureCurve curve(MakeCurveInfo());
    EXPECT_EQ(curve.GetValue().Evaluate(0.5), 0.25);
    EXPECT_STREQ(curve.GetInfo().GetName(), "Curve");
    curve.SetValue(CConstantFunction(0.75));
    EXPECT_EQ(curve.GetValue().Evaluate(0.5), 0.75);
}

TEST(CaptureCurveTest, AChangeOfTheInfoIsOneOfTheValueWhileTheDefaultIsShown) {
    CCaptureCurve curve(MakeCurveInfo());
    CEventLog log(curve);
    curve.GetInfo().SetDefaultValue(new CConstantFunction(0.5), Core::kOwn);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 0.5);
    curve.SetValue(CConstantFunction(0.75));
    EXPECT_EQ(log.Take(), "value ");
    curve.GetInfo().SetDefaultValue(new CConstantFunction(0.1), Core::kOwn);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 0.75);
}

TEST(CaptureCurveTest, KeepsACloneAndDeletesThePreviousOne) {
    int living = 0;
    {
        CCaptureCurve curve;
        {
            const CCountedFunction first(1.0, living);
            curve.SetValue(first);
            EXPECT_NE(&curve.GetValue(), &first);
        }
        EXPECT_EQ(living, 1);
        EXPECT_EQ(curve.GetValue().Evaluate(0.0), 1.0);
        curve.SetValue(CConstantFunction(2.0));
        EXPECT_EQ(living, 0);
        curve.SetValue(CCountedFunction(3.0, living));
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(CaptureCurveTest, SetToTheFunctionItHoldsItTakesANewCloneAndNotifies) {
    int living = 0;
    CCaptureCurve curve;
    curve.SetValue(CCountedFunction(1.0, living));
    const Math::IFunction* held = &curve.GetValue();
    CEventLog log(curve);
    curve.SetValue(curve.GetValue());
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_NE(&curve.GetValue(), held);
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 1.0);
    EXPECT_EQ(living, 1);
}

TEST(CaptureCurveTest, TheListenerSeesTheNewValue) {
    CCaptureCurve curve;
    double seen = -1.0;
    const CListener changed(curve.GetValueChangedEvents(),
                            [&] { seen = curve.GetValue().Evaluate(0.0); });
    curve.SetValue(CConstantFunction(4.0));
    EXPECT_EQ(seen, 4.0);
}

TEST(CaptureCurveTest, AFunctionThatGivesNoCloneIsIgnored) {
    CCaptureCurve curve;
    curve.SetValue(CConstantFunction(4.0));
    CEventLog log(curve);
    curve.SetValue(CUniqueFunction());
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 4.0);
}

TEST(CaptureCurveTest, CanBeHeld) {
    CCaptureCurve curve;
    CEventLog log(curve);
    curve.Capture();
    curve.Capture();
    EXPECT_TRUE(curve.IsCaptured());
    curve.Release();
    EXPECT_EQ(log.Take(), "capture release ");
}

TEST(CaptureCurveTest, AReadOnlyCurveTakesItsFunctionOrBorrowsIt) {
    int living = 0;
    CCountedFunction borrowed(2.0, living);
    {
        const CConstCaptureCurve owning(MakeCurveInfo(), new CCountedFunction(1.0, living),
                                        Core::kOwn);
        const CConstCaptureCurve borrowing(MakeCurveInfo(), &borrowed, Core::kDontOwn);
        EXPECT_EQ(living, 2);
        EXPECT_EQ(owning.GetValue().Evaluate(0.0), 1.0);
        EXPECT_EQ(&borrowing.GetValue(), &borrowed);
    }
    EXPECT_EQ(living, 1);
    const CConstCaptureCurve none(MakeCurveInfo(), nullptr, Core::kOwn);
    EXPECT_EQ(none.GetValue().Evaluate(0.0), 0.25);
}

TEST(CaptureCurveTest, AReadOnlyCurveIsGivenItsValueByItsClass) {
    CMeasuredCurve curve(MakeCurveInfo());
    CEventLog log(curve);
    curve.Publish(new CConstantFunction(0.5));
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 0.5);
    curve.Publish(nullptr);
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 0.25);
    EXPECT_EQ(log.Take(), "value value ");
}

TEST(CaptureSurfaceTest, KeepsACloneAndNotifiesAlways) {
    CCaptureSurface surface(CSurfaceInfo("Map", "", MakeInfo(0.0, 1.0), MakeInfo(0.0, 1.0, 0.5),
                                         MakeInfo(0.0, 1.0, 0.75)));
    EXPECT_EQ(surface.GetValue().Evaluate(0.0, 0.0), 0.5); // that of the second axis
    CEventLog log(surface);
    surface.SetValue(CConstantBinaryFunction(2.0));
    surface.SetValue(surface.GetValue());
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_EQ(surface.GetValue().Evaluate(0.0, 0.0), 2.0);
    ICaptureSurface& object = surface;
    object.Capture();
    object.Release();
    EXPECT_EQ(log.Take(), "capture release ");
}

class CNumber : public virtual IDynamicPropertyValue {
public:
    explicit CNumber(int initial) : number(initial) {}
    const char* GetType() const override { return "number"; }
    IDynamicPropertyValue* Clone() const override { return new CNumber(number); }
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteInt("number", number);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return stream.ReadInt("number", number);
    }

    int number;
};

int NumberOf(const IConstCaptureProperty& property) {
    const auto* value = dynamic_cast<const CNumber*>(&property.GetValue());
    return value ? value->number : -1;
}

TEST(CapturePropertyTest, ShowsTheNullObjectOrTheDefaultAndThenItsValue) {
    CCaptureProperty property;
    EXPECT_NE(dynamic_cast<const CEmptyDynamicPropertyValue*>(&property.GetValue()), nullptr);
    CEventLog log(property);
    property.GetInfo().SetDefaultValue(new CNumber(3));
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(NumberOf(property), 3);
    property.SetValue(CNumber(4));
    property.SetValue(CNumber(4));
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_EQ(NumberOf(property), 4);
}

TEST(CapturePropertyTest, CopiesTheInfoWithItsDefault) {
    const CConstCaptureProperty property(CCustomPropertyInfo("Map", "where", new CNumber(5)));
    EXPECT_EQ(NumberOf(property), 5);
    EXPECT_STREQ(property.GetInfo().GetName(), "Map");
}

} // namespace
} // namespace Vorin::DataModel::Objects
