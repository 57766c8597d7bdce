// Formulas as model objects that others are bound to by name.

#include "SkinEngine/Formula/FormulaTestTools.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/ParametrizedCaptureObject.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

namespace Vorin::AppEngine {
namespace {

using namespace DataModel;
using namespace DataModel::Objects;

CParamInfo FormulaParamInfo() {
    return {kParamReal, "Param", "", "", nullptr, nullptr, 0.0, 10.0, 0.0};
}
CCurveInfo FormulaAxesInfo() { return {"Curve", "", FormulaParamInfo(), FormulaParamInfo()}; }

/// Counts the changes of an object.
class CChanges {
public:
    template <class O>
    explicit CChanges(O& object) : events(object.GetValueChangedEvents()) {
        events.Connect(changed);
    }
    CChanges(const CChanges&) = delete;
    CChanges& operator=(const CChanges&) = delete;
    ~CChanges() { events.Disconnect(changed); }

    int count = 0;

private:
    void OnChanged() { ++count; }

    Core::IEventProvider& events;
    Core::TCommand<CChanges> changed{this, &CChanges::OnChanged};
};

TEST(FormulaInModelTest, FollowsTheParametersThatItNames) {
    CCaptureParam gain(FormulaParamInfo());
    CCaptureParam offset(FormulaParamInfo());
    CParametrizedCaptureParam formula(
        FormulaParamInfo(), ParseParametrizedConstant("dsp.gain*2+offset+dsp.gain").release());
    CChanges changes(formula);
    EXPECT_TRUE(formula.Connect("dsp.gain", gain));
    EXPECT_TRUE(formula.Connect("offset", offset));
    EXPECT_EQ(changes.count, 2);
    gain.SetValue(3.0);
    EXPECT_EQ(changes.count, 3);
    offset.SetValue(0.5);
    EXPECT_EQ(changes.count, 4);
    EXPECT_EQ(formula.GetValue(), 9.5);
    EXPECT_FALSE(formula.Connect("other", gain));
}

TEST(FormulaInModelTest, BindsOneNameToThreeThings) {
    CCaptureParam param(FormulaParamInfo());
    param.SetValue(5.0);
    const auto square = ParseFunctionFormula("x^2");
    CConstCaptureCurve curve(FormulaAxesInfo(), square.get(), Core::kDontOwn);
    const Math::TBinaryFunction<&Math::FunctionsLibrary::Product> product;
    const CSurfaceInfo surfaceInfo("", "", FormulaParamInfo(), FormulaParamInfo(),
                                   FormulaParamInfo());
    CConstCaptureSurface surface(surfaceInfo, &product, Core::kDontOwn);
    CParametrizedCaptureCurve formula(
        FormulaAxesInfo(), ParseParametrizedFunction("foo + foo(x) + foo(x, 10)").release());
    EXPECT_TRUE(formula.Connect("foo", param));
    EXPECT_TRUE(formula.Connect("foo", curve));
    EXPECT_TRUE(formula.Connect("foo", surface));
    EXPECT_EQ(formula.GetValue().Evaluate(3.0), 5.0 + 9.0 + 30.0);
    param.SetValue(6.0);
    EXPECT_EQ(formula.GetValue().Evaluate(3.0), 6.0 + 9.0 + 30.0);
}

TEST(FormulaInModelTest, WithoutOpenNamesNeverFires) {
    CCaptureParam param(FormulaParamInfo());
    CParametrizedCaptureParam formula(FormulaParamInfo(),
                                      ParseParametrizedConstant("2*pi").release());
    CChanges changes(formula);
    EXPECT_FALSE(formula.Connect("pi", param));
    param.SetValue(1.0);
    EXPECT_EQ(changes.count, 0);
}

} // namespace
} // namespace Vorin::AppEngine
