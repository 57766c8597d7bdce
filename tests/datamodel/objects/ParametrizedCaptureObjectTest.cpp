#include "datamodel/objects/ParametrizedCaptureObject.h"

#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/ObjectsTestTools.h"
#include "math/FunctionsCombination.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using Math::CBinaryFunctionProxy;
using Math::CConstant;
using Math::CConstantBinaryFunction;
using Math::CConstantFunction;
using Math::CFunctionProxy;
using Math::IBinaryFunction;
using Math::IConstant;
using Math::IFunction;
using Math::TParametrizedFunction;
using Testing::CEventLog;
using Testing::CListener;
using Testing::MakeInfo;

/// The formula "a".
TParametrizedFunction<IConstant>* MakeConstantFormula() {
    auto* formula = new TParametrizedFunction<IConstant>;
    auto* place = new CConstant;
    formula->AddConstant("a", place);
    formula->SetFunction(place);
    return formula;
}

/// The formula "f(x)".
TParametrizedFunction<IFunction>* MakeCurveFormula() {
    auto* formula = new TParametrizedFunction<IFunction>;
    auto* place = new CFunctionProxy;
    formula->AddFunction("f", place);
    formula->SetFunction(place);
    return formula;
}

CCurveInfo MakeFormulaCurveInfo() { return {"Curve", "", MakeInfo(0.0, 1.0), MakeInfo(0.0, 1.0)}; }

TEST(ParametrizedCaptureObjectTest, ConnectingReadsTheValueAtOnceAndNotifies) {
    CCaptureParam input(MakeInfo(0.0, 10.0, 3.0));
    CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
    IConstCaptureParam& param = output;
    EXPECT_EQ(param.GetValue(), 0.0);
    CEventLog log(output);
    EXPECT_TRUE(output.Connect("a", input));
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(param.GetValue(), 3.0);
}

TEST(ParametrizedCaptureObjectTest, AChangeOfAnInputIsAChangeOfTheFormula) {
    CCaptureParam input(MakeInfo(0.0, 10.0, 3.0));
    CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
    output.Connect("a", input);
    double seen = -1.0;
    int events = 0;
    const CListener changed(output.GetValueChangedEvents(), [&] {
        seen = output.GetValue();
        ++events;
    });
    input.SetValue(4.0);
    EXPECT_EQ(seen, 4.0);
    EXPECT_EQ(events, 1);
    input.SetValue(4.0);
    EXPECT_EQ(events, 1);
}

TEST(ParametrizedCaptureObjectTest, AChangeOfAnInputsInfoIsOneToo) {
    CCaptureParam input(MakeInfo(0.0, 10.0, 8.0));
    CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
    output.Connect("a", input);
    CEventLog log(output);
    input.GetInfo().SetName("other");
    EXPECT_EQ(log.Take(), "value ");
    input.GetInfo().SetMax(5.0);
    EXPECT_EQ(output.GetValue(), 5.0);
    EXPECT_EQ(log.Take(), "value value "); // the value that moved, and the info
}

TEST(ParametrizedCaptureObjectTest, AnUnknownNameChangesNothing) {
    CCaptureParam input(MakeInfo(0.0, 10.0, 3.0));
    CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
    CEventLog log(output);
    EXPECT_FALSE(output.Connect("b", input));
    input.SetValue(4.0);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(output.GetValue(), 0.0);
}

TEST(ParametrizedCaptureObjectTest, ASecondObjectOfANameReplacesTheFirst) {
    CCaptureParam first(MakeInfo(0.0, 10.0, 1.0));
    CCaptureParam second(MakeInfo(0.0, 10.0, 2.0));
    CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
    output.Connect("a", first);
    output.Connect("a", second);
    EXPECT_EQ(output.GetValue(), 2.0);
    CEventLog log(output);
    first.SetValue(7.0);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(output.GetValue(), 2.0);
    output.Connect("a", second);
    second.SetValue(5.0);
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_EQ(output.GetValue(), 5.0);
}

TEST(ParametrizedCaptureObjectTest, AListenerMayReplaceTheInputThatCausedTheEvent) {
    CCaptureParam first(MakeInfo(0.0, 10.0, 1.0));
    CCaptureParam second(MakeInfo(0.0, 10.0, 2.0));
    CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
    output.Connect("a", first);
    const CListener changed(output.GetValueChangedEvents(), [&] { output.Connect("a", second); });
    first.SetValue(3.0);
    EXPECT_EQ(output.GetValue(), 2.0);
}

TEST(ParametrizedCaptureObjectTest, DisconnectAndDestructorLetGoOfTheInputs) {
    CCaptureParam input(MakeInfo(0.0, 10.0, 3.0));
    {
        CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
        output.Connect("a", input);
        CEventLog log(output);
        output.Disconnect();
        input.SetValue(4.0);
        EXPECT_EQ(log.Take(), "");
        EXPECT_EQ(output.GetValue(), 3.0);
        output.Connect("a", input);
        EXPECT_EQ(output.GetValue(), 4.0);
    }
    input.SetValue(5.0);
    input.GetInfo().SetName("still alive");
    EXPECT_EQ(input.GetValue(), 5.0);
}

TEST(ParametrizedCaptureObjectTest, ACurveIsReadWhenTheFormulaIsEvaluated) {
    CCaptureCurve input(MakeFormulaCurveInfo());
    input.SetValue(CConstantFunction(2.0));
    CParametrizedCaptureCurve output(MakeFormulaCurveInfo(), MakeCurveFormula());
    IConstCaptureCurve& curve = output;
    EXPECT_EQ(curve.GetValue().Evaluate(0.5), 0.5); // nothing connected: the identity
    CEventLog log(output);
    EXPECT_TRUE(output.Connect("f", input));
    EXPECT_EQ(curve.GetValue().Evaluate(0.5), 2.0);
    input.SetValue(CConstantFunction(3.0));
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_EQ(curve.GetValue().Evaluate(0.5), 3.0);
}

TEST(ParametrizedCaptureObjectTest, AnotherListenerMayEvaluateBeforeTheFormulaHeardOfTheNewCurve) {
    CCaptureCurve input(MakeFormulaCurveInfo());
    input.SetValue(CConstantFunction(2.0));
    CParametrizedCaptureCurve output(MakeFormulaCurveInfo(), MakeCurveFormula());
    double seen = -1.0;
    const CListener before(input.GetValueChangedEvents(),
                           [&] { seen = output.GetValue().Evaluate(0.0); });
    output.Connect("f", input);
    input.SetValue(CConstantFunction(3.0));
    EXPECT_EQ(seen, 3.0);
}

TEST(ParametrizedCaptureObjectTest, ACloneOfTheValueOutlivesTheInput) {
    CParametrizedCaptureCurve output(MakeFormulaCurveInfo(), MakeCurveFormula());
    std::unique_ptr<IFunction> clone;
    {
        CCaptureCurve input(MakeFormulaCurveInfo());
        input.SetValue(CConstantFunction(2.0));
        output.Connect("f", input);
        clone.reset(output.GetValue().Clone());
        output.Disconnect();
    }
    EXPECT_EQ(clone->Evaluate(0.5), 2.0);
    EXPECT_EQ(output.GetValue().Evaluate(0.5), 0.5); // the identity again
}

TEST(ParametrizedCaptureObjectTest, FormulasThatLeadBackToThemselvesEndAnyhow) {
    CParametrizedCaptureCurve first(MakeFormulaCurveInfo(), MakeCurveFormula());
    CParametrizedCaptureCurve second(MakeFormulaCurveInfo(), MakeCurveFormula());
    first.Connect("f", second);
    second.Connect("f", first);
    EXPECT_EQ(first.GetValue().Evaluate(0.5), 0.0);
    const std::unique_ptr<IFunction> clone(first.GetValue().Clone());
    EXPECT_NE(clone, nullptr);
    second.Connect("f", second);
    EXPECT_EQ(second.GetValue().Evaluate(0.5), 0.0);
    first.Disconnect();
    second.Disconnect();
}

TEST(ParametrizedCaptureObjectTest, ASurfaceAndAParameterMayHaveTheSameName) {
    auto* formula = new TParametrizedFunction<IBinaryFunction>;
    auto* surfacePlace = new CBinaryFunctionProxy;
    auto* constantPlace = new CConstantBinaryFunction;
    formula->AddBinaryFunction("g", surfacePlace);
    formula->AddConstant("g", constantPlace);
    auto* sum = new Math::CBinaryFunctionsCombination;
    sum->SetFunc1(surfacePlace, Core::kOwn);
    sum->SetFunc2(constantPlace, Core::kOwn);
    formula->SetFunction(sum);

    CCaptureSurface surface;
    surface.SetValue(CConstantBinaryFunction(2.0));
    CCaptureParam param(MakeInfo(0.0, 100.0, 30.0));
    CParametrizedCaptureSurface output(CSurfaceInfo(), formula);
    EXPECT_TRUE(output.Connect("g", surface));
    EXPECT_TRUE(output.Connect("g", param));
    EXPECT_EQ(output.GetValue().Evaluate(0.0, 0.0), 32.0);
    surface.SetValue(CConstantBinaryFunction(5.0));
    param.SetValue(40.0);
    EXPECT_EQ(output.GetValue().Evaluate(0.0, 0.0), 45.0);
}

TEST(ParametrizedCaptureObjectTest, TheNamesCanBeAskedFor) {
    CParametrizedCaptureParam output(MakeInfo(0.0, 1.0), MakeConstantFormula());
    const std::unique_ptr<Containers::IConstValueIterator<const char*>> names(
        output.GetFunction().CreateConstantIterator());
    ASSERT_FALSE(names->IsAtEnd());
    EXPECT_STREQ(names->GetValue(), "a");
}

} // namespace
} // namespace Vorin::DataModel::Objects
