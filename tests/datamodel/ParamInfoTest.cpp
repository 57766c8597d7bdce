#include "datamodel/ParamInfo.h"

#include "core/EventCounter.h"
#include "datamodel/EnumToText.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace Vorin::DataModel::Objects {
namespace {

/// Maps everything to one position, and tells of its death.
class CFixedMapper : public virtual IParamPositionMapper {
public:
    CFixedMapper(double fixedPosition, int& deathCount)
        : position(fixedPosition), deaths(deathCount) {}
    ~CFixedMapper() override { ++deaths; }

    double ValueToPosition(double) const override { return position; }
    double PositionToValue(double) const override { return position; }
    IParamPositionMapper* Clone() const override { return new CFixedMapper(position, deaths); }

private:
    double position;
    int& deaths;
};

std::string TextOf(const IConstParamInfo& info, double value) {
    Containers::CCharString out;
    info.GetValueToText().ValueToText(value, out);
    return out.Get();
}

CParamInfo MakeDelay() {
    return CParamInfo(kParamReal, "Delay", "ms", "how long", nullptr, nullptr, 0.0, 300.0, 20.0);
}

TEST(ParamInfoTest, ANewOneIsARealWithoutRange) {
    const CParamInfo info;
    EXPECT_EQ(info.GetType(), kParamReal);
    EXPECT_STREQ(info.GetName(), "");
    EXPECT_STREQ(info.GetUnit(), "");
    EXPECT_STREQ(info.GetComment(), "");
    EXPECT_EQ(info.GetMin(), 0.0);
    EXPECT_EQ(info.GetMax(), 0.0);
    EXPECT_EQ(info.GetDefault(), 0.0);
    EXPECT_EQ(TextOf(info, 1.5), "1.50");
    EXPECT_EQ(info.GetPositionMapper().PositionToValue(0.7), 0.0);
}

TEST(ParamInfoTest, TheConstructorTakesAllFields) {
    const CParamInfo info(kParamInteger, "View Mode", "x", "which view",
                          new CEnumToText("Flow;Loop;Trigger"), nullptr, 0.0, 2.0, 1.0);
    EXPECT_EQ(info.GetType(), kParamInteger);
    EXPECT_STREQ(info.GetName(), "View Mode");
    EXPECT_STREQ(info.GetUnit(), "x");
    EXPECT_STREQ(info.GetComment(), "which view");
    EXPECT_EQ(TextOf(info, 2.0), "Trigger");
    EXPECT_EQ(info.GetMin(), 0.0);
    EXPECT_EQ(info.GetMax(), 2.0);
    EXPECT_EQ(info.GetDefault(), 1.0);
    EXPECT_EQ(info.GetPositionMapper().ValueToPosition(1.0), 0.5);
}

TEST(ParamInfoTest, TheTypeGivesTheDefaultFormat) {
    const auto textOfType = [](EParamType type) {
        return TextOf(CParamInfo(type, "", "", "", nullptr, nullptr, 0, 1, 0), 1.0);
    };
    EXPECT_EQ(textOfType(kParamBoolean), "1");
    EXPECT_EQ(textOfType(kParamInteger), "1");
    EXPECT_EQ(textOfType(kParamReal), "1.00");
    EXPECT_EQ(textOfType(kParamSwitch), "1");
}

TEST(ParamInfoTest, NullTextsAreEmpty) {
    const CParamInfo info(kParamReal, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 1, 0);
    EXPECT_STREQ(info.GetName(), "");
    EXPECT_STREQ(info.GetUnit(), "");
    EXPECT_STREQ(info.GetComment(), "");
}

TEST(ParamInfoTest, WithMinEqualToMaxEveryPositionIsMin) {
    const CParamInfo info(kParamReal, "", "", "", nullptr, nullptr, 4.0, 4.0, 4.0);
    EXPECT_EQ(info.GetPositionMapper().PositionToValue(0.0), 4.0);
    EXPECT_EQ(info.GetPositionMapper().PositionToValue(1.0), 4.0);
    EXPECT_EQ(info.GetPositionMapper().ValueToPosition(6.0), 2.0);
}

TEST(ParamInfoTest, TextSettersAlwaysFire) {
    CParamInfo info = MakeDelay();
    CEventCounter events(info.GetInfoChangedEvents());
    info.SetName("Delay");
    EXPECT_EQ(events.Take(), 1);
    info.SetUnit("ms");
    EXPECT_EQ(events.Take(), 1);
    info.SetComment("how long");
    EXPECT_EQ(events.Take(), 1);
    info.SetUnit(nullptr);
    EXPECT_STREQ(info.GetUnit(), "");
}

TEST(ParamInfoTest, NumbersAndTypeFireOnlyWhenTheyDiffer) {
    CParamInfo info = MakeDelay();
    CEventCounter events(info.GetInfoChangedEvents());
    info.SetMin(0.0);
    info.SetMax(300.0);
    info.SetDefault(20.0);
    info.SetType(kParamReal);
    EXPECT_EQ(events.Take(), 0);
    info.SetMin(1.0);
    EXPECT_EQ(events.Take(), 1);
    info.SetMax(200.0);
    EXPECT_EQ(events.Take(), 1);
    info.SetDefault(30.0);
    EXPECT_EQ(events.Take(), 1);
    info.SetType(kParamInteger);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_EQ(info.GetMin(), 1.0);
    EXPECT_EQ(info.GetMax(), 200.0);
    EXPECT_EQ(info.GetDefault(), 30.0);
    EXPECT_EQ(info.GetType(), kParamInteger);
}

TEST(ParamInfoTest, SettingNaNDoesNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    CParamInfo info = MakeDelay();
    CEventCounter events(info.GetInfoChangedEvents());
    info.SetMin(nan);
    info.SetMax(nan);
    info.SetDefault(nan);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(info.GetMin(), 0.0);
    EXPECT_EQ(info.GetMax(), 300.0);
    EXPECT_EQ(info.GetDefault(), 20.0);
}

TEST(ParamInfoTest, TheLinearMapperFollowsTypeAndRange) {
    CParamInfo info = MakeDelay();
    info.SetMin(100.0);
    EXPECT_EQ(info.GetPositionMapper().ValueToPosition(200.0), 0.5);
    info.SetMax(500.0);
    EXPECT_EQ(info.GetPositionMapper().ValueToPosition(200.0), 0.25);
    info.SetType(kParamBoolean);
    EXPECT_EQ(info.GetPositionMapper().PositionToValue(0.75), 500.0);
}

TEST(ParamInfoTest, ReplacedObjectsAreDeletedWhenOwnedAndEachSetterFires) {
    int deaths = 0;
    CFixedMapper borrowed(0.25, deaths);
    {
        CParamInfo info = MakeDelay();
        CEventCounter events(info.GetInfoChangedEvents());
        auto* owned = new CFixedMapper(0.5, deaths);
        info.SetPositionMapper(owned, Core::kOwn);
        EXPECT_EQ(events.Take(), 1);
        EXPECT_EQ(info.GetPositionMapper().ValueToPosition(0.0), 0.5);
        info.SetPositionMapper(owned, Core::kOwn);
        EXPECT_EQ(events.Take(), 1);
        EXPECT_EQ(deaths, 0);
        info.SetPositionMapper(&borrowed, Core::kDontOwn);
        EXPECT_EQ(deaths, 1);
        EXPECT_EQ(events.Take(), 1);

        CParamValueToText text("%.0f", false, "<{value}>");
        info.SetValueToText(&text, Core::kDontOwn);
        EXPECT_EQ(events.Take(), 1);
        EXPECT_EQ(TextOf(info, 3.0), "<3>");
    }
    EXPECT_EQ(deaths, 1);
}

TEST(ParamInfoTest, NullTakesBackValueTextAndMapperOfANewOne) {
    int deaths = 0;
    CParamInfo info(kParamInteger, "", "", "", new CEnumToText("a;b"),
                    new CFixedMapper(0.5, deaths), 0.0, 4.0, 0.0);
    info.SetValueToText(nullptr, Core::kOwn);
    info.SetPositionMapper(nullptr, Core::kOwn);
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(TextOf(info, 1.0), "1");
    EXPECT_EQ(info.GetPositionMapper().ValueToPosition(1.0), 0.25);
}

TEST(ParamInfoTest, TheConstructorOwnsWhatItIsGiven) {
    int deaths = 0;
    { CParamInfo info(kParamReal, "", "", "", nullptr, new CFixedMapper(0, deaths), 0, 1, 0); }
    EXPECT_EQ(deaths, 1);
}

TEST(ParamInfoTest, CopyFromTakesEverythingAndFiresOnce) {
    int deaths = 0;
    auto source = std::make_unique<CParamInfo>(kParamInteger, "n", "u", "c", new CEnumToText("a;b"),
                                               new CFixedMapper(0.5, deaths), 1.0, 2.0, 1.5);
    CParamInfo info = MakeDelay();
    CEventCounter events(info.GetInfoChangedEvents());
    info.CopyFrom(*source);
    source.reset();
    EXPECT_EQ(events.Take(), 1);
    EXPECT_EQ(info.GetType(), kParamInteger);
    EXPECT_STREQ(info.GetName(), "n");
    EXPECT_STREQ(info.GetUnit(), "u");
    EXPECT_STREQ(info.GetComment(), "c");
    EXPECT_EQ(info.GetMin(), 1.0);
    EXPECT_EQ(info.GetMax(), 2.0);
    EXPECT_EQ(info.GetDefault(), 1.5);
    EXPECT_EQ(TextOf(info, 1.0), "b");
    EXPECT_EQ(info.GetPositionMapper().ValueToPosition(9.0), 0.5);
    EXPECT_EQ(deaths, 1);
}

TEST(ParamInfoTest, ACopyOfALinearInfoFollowsItsOwnRange) {
    const CParamInfo source = MakeDelay();
    CParamInfo copy(source);
    copy.SetMax(600.0);
    EXPECT_EQ(copy.GetPositionMapper().ValueToPosition(150.0), 0.25);
    EXPECT_EQ(source.GetPositionMapper().ValueToPosition(150.0), 0.5);
}

TEST(ParamInfoTest, ACopyOfALinearMapperWithARangeOfItsOwnKeepsThatRange) {
    CParamInfo source = MakeDelay();
    source.SetPositionMapper(new CLinearPositionMapper(kParamReal, 0.0, 100.0), Core::kOwn);
    CParamInfo copy(source);
    copy.SetMax(600.0);
    EXPECT_EQ(copy.GetPositionMapper().ValueToPosition(25.0), 0.25);
}

TEST(ParamInfoTest, ACopyHasNoListeners) {
    CParamInfo info = MakeDelay();
    CEventCounter events(info.GetInfoChangedEvents());
    CParamInfo copy(info);
    copy.SetName("Delay (L)");
    EXPECT_EQ(events.Take(), 0);
    EXPECT_STREQ(info.GetName(), "Delay");
    EXPECT_STREQ(copy.GetName(), "Delay (L)");
}

TEST(ParamInfoTest, AssignmentNotifiesTheTargetOnceAndSelfAssignmentIsHarmless) {
    CParamInfo info;
    CEventCounter events(info.GetInfoChangedEvents());
    info = MakeDelay();
    EXPECT_EQ(events.Take(), 1);
    const CParamInfo& itself = info;
    info = itself;
    EXPECT_STREQ(info.GetName(), "Delay");
    EXPECT_EQ(TextOf(info, 1.0), "1.00");
    EXPECT_EQ(info.GetPositionMapper().ValueToPosition(150.0), 0.5);
}

} // namespace
} // namespace Vorin::DataModel::Objects
