#include "audio/plugin/InputObjects.h"

#include "audio/plugin/InputsTestKit.h"
#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Vorin::Audio::Plugin {
namespace {

using namespace DataModel::Objects;
using DataModel::Objects::Testing::CCountedFunction;
using DataModel::Objects::Testing::CEventLog;
using DataModel::Objects::Testing::CListener;
using DataModel::Objects::Testing::CUniqueFunction;
using Math::CConstantFunction;

CStringInfo MakeStringInfo() { return {"Name", "", false, "first"}; }

std::string TextOf(const CMTInputString& input) {
    const std::unique_ptr<char[]> text(input.CreateValue());
    return text.get();
}

double ValueOf(const CMTInputCurve& input) {
    const std::unique_ptr<Math::IFunction> curve(input.CreateValue());
    return curve->Evaluate(0.0);
}

TEST(MTInputTest, StartsWithTheDefaultOfItsInfo) {
    const CMTInputString input(MakeStringInfo());
    EXPECT_STREQ(input.GetInfo().GetName(), "Name");
    EXPECT_EQ(TextOf(input), "first");
    const CMTInputProperty empty{CCustomPropertyInfo("Extra", "")};
    const std::unique_ptr<IDynamicPropertyValue> value(empty.CreateValue());
    EXPECT_NE(dynamic_cast<const CEmptyDynamicPropertyValue*>(value.get()), nullptr);
}

TEST(MTInputTest, KeepsACopyOfATextAndTellsOfChangesAlone) {
    CMTInputString input(MakeStringInfo());
    CEventLog log(input);
    char text[] = "other";
    input.SetValue(text);
    EXPECT_EQ(log.Take(), "value ");
    text[0] = 'X';
    EXPECT_EQ(TextOf(input), "other");
    input.SetValue("other");
    EXPECT_EQ(log.Take(), "");
}

TEST(MTInputTest, ANullTextIsAnEmptyOne) {
    CMTInputString input(MakeStringInfo());
    input.SetValue(nullptr);
    EXPECT_EQ(TextOf(input), "");
    EXPECT_STREQ(input.GetItem()->GetValue(), "");
}

TEST(MTInputTest, GivesEachReaderACopyOfItsOwn) {
    int living = 0;
    CMTInputCurve input{CCurveInfo()};
    input.SetValue(CCountedFunction(5.0, living));
    EXPECT_EQ(living, 1);
    const std::unique_ptr<Math::IFunction> one(input.CreateValue());
    const std::unique_ptr<Math::IFunction> two(input.CreateValue());
    EXPECT_NE(one.get(), two.get());
    EXPECT_EQ(living, 3);
    input.SetValue(CConstantFunction(6.0));
    EXPECT_EQ(one->Evaluate(0.0), 5.0);
}

TEST(MTInputTest, EverySettingOfAnObjectIsAChangeUnlessItCannotBeCloned) {
    CMTInputCurve input{CCurveInfo()};
    CEventLog log(input);
    input.SetValue(CConstantFunction(5.0));
    input.SetValue(CConstantFunction(5.0));
    EXPECT_EQ(log.Take(), "value value ");
    input.SetValue(CUniqueFunction());
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(ValueOf(input), 5.0);
}

TEST(MTInputTest, ListenersSeeTheNewValueAndMaySetAnother) {
    CMTInputString input(MakeStringInfo());
    std::string seen;
    const CListener changed(input.GetValueChangedEvents(), [&] {
        seen = TextOf(input);
        input.SetValue("last");
    });
    input.SetValue("next");
    EXPECT_EQ(seen, "next"); // a listener is not called again by what it does itself
    EXPECT_EQ(TextOf(input), "last");
}

TEST(MTInputTest, CanBeHeld) {
    CMTInputString input(MakeStringInfo());
    CEventLog log(input);
    input.Capture();
    input.Capture();
    EXPECT_TRUE(input.IsCaptured());
    input.SetValue("other");
    input.Release();
    EXPECT_FALSE(input.IsCaptured());
    EXPECT_EQ(log.Take(), "capture value release ");
}

TEST(MTInputTest, GoesBackToItsDefault) {
    CMTInputString input(MakeStringInfo());
    input.SetValue("other");
    input.SetDefault();
    EXPECT_EQ(TextOf(input), "first");
}

TEST(MTInputTest, ANewValueIsTakenOnce) {
    CMTInputString input(MakeStringInfo());
    CMTInputString::Item item;
    EXPECT_EQ(input.Take(item), CMTInputString::kNothingNew);
    EXPECT_FALSE(item);
    input.SetValue("one");
    input.SetValue("two");
    EXPECT_EQ(input.Take(item), CMTInputString::kTaken);
    EXPECT_STREQ(item->GetValue(), "two");
    EXPECT_EQ(input.Take(item), CMTInputString::kNothingNew);
    input.GiveBack();
    EXPECT_EQ(input.Take(item), CMTInputString::kTaken);
    EXPECT_STREQ(item->GetValue(), "two");
}

TEST(MTInputTest, AReplacedValueLivesWhileItIsReferredToAndDiesAtTheNextChange) {
    int living = 0;
    CMTInputCurve input{CCurveInfo()};
    input.SetValue(CCountedFunction(1.0, living));
    CMTInputCurve::Item item;
    ASSERT_EQ(input.Take(item), CMTInputCurve::kTaken);
    input.SetValue(CConstantFunction(2.0));
    input.SetValue(CConstantFunction(3.0));
    EXPECT_EQ(living, 1);
    EXPECT_EQ(item->GetValue().Evaluate(0.0), 1.0);
    EXPECT_EQ(item->GetRefCount(), 2); // the other one is the input's
    item = {};
    EXPECT_EQ(living, 1); // not the last reference
    input.SetValue(CConstantFunction(4.0));
    EXPECT_EQ(living, 0);
}

TEST(MTInputTest, ItsDestructorFreesWhatIsLeft) {
    int living = 0;
    auto input = std::make_unique<CMTInputCurve>(CCurveInfo());
    input->SetValue(CCountedFunction(1.0, living));
    CMTInputCurve::Item item;
    ASSERT_EQ(input->Take(item), CMTInputCurve::kTaken);
    input->SetValue(CCountedFunction(2.0, living));
    item = {};
    EXPECT_EQ(living, 2);
    input.reset();
    EXPECT_EQ(living, 0);
}

TEST(MTInputTest, AValueThatComesBackDiesToo) {
    int living = 0;
    CMTInputCurve input{CCurveInfo()};
    input.SetValue(CCountedFunction(1.0, living));
    CMTInputCurve::Item first = input.GetItem();
    for (int i = 0; i < 3; ++i) {
        input.SetValue(CConstantFunction(2.0));
        EXPECT_TRUE(input.Store(first));
        EXPECT_FALSE(input.Store(first)); // it stands here already
    }
    input.SetValue(CConstantFunction(2.0));
    first = {};
    input.SetValue(CConstantFunction(3.0));
    EXPECT_EQ(living, 0);
}

TEST(MTInputTest, StoresQuietlyAndInsteadOfAnExpectedValueAlone) {
    CMTInputString input(MakeStringInfo());
    CEventLog log(input);
    const CMTInputString::Item first = input.GetItem();
    EXPECT_TRUE(input.StoreInsteadOf(first, TInputItem<const char*>::Make("one")));
    EXPECT_FALSE(input.StoreInsteadOf(first, TInputItem<const char*>::Make("two")));
    EXPECT_FALSE(input.Store({}));
    EXPECT_EQ(TextOf(input), "one");
    EXPECT_EQ(log.Take(), "");
}

} // namespace
} // namespace Vorin::Audio::Plugin
