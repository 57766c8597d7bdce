#include "core/Value.h"

#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

class CValueCounter {
public:
    explicit CValueCounter(IEventProvider& source) : provider(source) { provider.Connect(command); }
    ~CValueCounter() { provider.Disconnect(command); }
    void OnChanged() { ++calls; }

    int calls = 0;

private:
    IEventProvider& provider;
    TCommand<CValueCounter> command{this, &CValueCounter::OnChanged};
};

enum class EState { kIdle, kPressed };

class IShape {
public:
    virtual ~IShape() = default;
    virtual int GetCorners() const = 0;
    virtual IShape* Clone() const = 0;
};

class CShape : public IShape {
public:
    CShape(int shapeCorners, int& livingCount) : corners(shapeCorners), living(livingCount) {
        ++living;
    }
    ~CShape() override { --living; }
    int GetCorners() const override { return corners; }
    IShape* Clone() const override { return corners < 0 ? nullptr : new CShape(corners, living); }

private:
    int corners;
    int& living;
};

TEST(ValueTest, StartsAsZeroOrAsGiven) {
    EXPECT_EQ(TValue<double>().GetValue(), 0.0);
    EXPECT_EQ(TValue<double>(2.5).GetValue(), 2.5);
    EXPECT_FALSE(TValue<bool>().GetValue());
    EXPECT_EQ(TValue<const char*>().GetValue(), nullptr);
}

TEST(ValueTest, DoubleNotifiesOnlyWhenLessOrGreater) {
    TValue<double> value(1.0);
    CValueCounter counter(value.GetValueChangedEvents());
    value.SetValue(1.0);
    EXPECT_EQ(counter.calls, 0);
    value.SetValue(1.5);
    EXPECT_EQ(counter.calls, 1);
    value.SetValue(0.5);
    EXPECT_EQ(counter.calls, 2);
    value.SetValue(infinity);
    value.SetValue(infinity);
    EXPECT_EQ(counter.calls, 3);
    EXPECT_EQ(value.GetValue(), infinity);
}

TEST(ValueTest, ZeroOfTheOtherSignIsNoChange) {
    TValue<double> value(0.0);
    CValueCounter counter(value.GetValueChangedEvents());
    value.SetValue(-0.0);
    EXPECT_EQ(counter.calls, 0);
    EXPECT_FALSE(std::signbit(value.GetValue()));
}

TEST(ValueTest, SetNaNLeavesTheValueAndSendsNothing) {
    TValue<double> value(1.0);
    CValueCounter counter(value.GetValueChangedEvents());
    value.SetValue(nan);
    EXPECT_EQ(value.GetValue(), 1.0);
    EXPECT_EQ(counter.calls, 0);
}

TEST(ValueTest, ValueThatHoldsNaNNeverChanges) {
    TValue<double> value(nan);
    CValueCounter counter(value.GetValueChangedEvents());
    value.SetValue(1.0);
    EXPECT_TRUE(std::isnan(value.GetValue()));
    EXPECT_EQ(counter.calls, 0);
}

TEST(ValueTest, BoolAndEnumNotifyWhenDifferent) {
    TValue<bool> flag(false);
    CValueCounter flagCounter(flag.GetValueChangedEvents());
    flag.SetValue(false);
    flag.SetValue(true);
    flag.SetValue(true);
    EXPECT_TRUE(flag.GetValue());
    EXPECT_EQ(flagCounter.calls, 1);

    TValue<EState> state(EState::kIdle);
    CValueCounter stateCounter(state.GetValueChangedEvents());
    state.SetValue(EState::kIdle);
    state.SetValue(EState::kPressed);
    EXPECT_EQ(state.GetValue(), EState::kPressed);
    EXPECT_EQ(stateCounter.calls, 1);
}

TEST(ValueTest, ListenersSeeTheNewValue) {
    class CReader {
    public:
        explicit CReader(TIValue<double>& source) : value(source) {
            value.GetValueChangedEvents().Connect(command);
        }
        void OnChanged() { seen = value.GetValue(); }

        TIValue<double>& value;
        double seen = 0.0;
        TCommand<CReader> command{this, &CReader::OnChanged};
    };
    TValue<double> value;
    CReader reader(value);
    value.SetValue(4.0);
    EXPECT_EQ(reader.seen, 4.0);
}

TEST(ValueTest, TextIsComparedByContentAndKeptAsACopy) {
    TValue<const char*> value("one");
    CValueCounter counter(value.GetValueChangedEvents());
    std::string text = "one";
    value.SetValue(text.c_str());
    EXPECT_EQ(counter.calls, 0);
    text = "two";
    value.SetValue(text.c_str());
    EXPECT_EQ(counter.calls, 1);
    text = "xxx";
    EXPECT_STREQ(value.GetValue(), "two");
}

TEST(ValueTest, TextMayBeSetFromItsOwnTail) {
    TValue<const char*> value("forward");
    value.SetValue(value.GetValue() + 3);
    EXPECT_STREQ(value.GetValue(), "ward");
}

TEST(ValueTest, ObjectIsClonedAndAlwaysNotifies) {
    int living = 0;
    {
        auto square = std::make_unique<CShape>(4, living);
        TValue<const IShape&> value(*square);
        CValueCounter counter(value.GetValueChangedEvents());
        value.SetValue(*square);
        value.SetValue(*square);
        EXPECT_EQ(counter.calls, 2);
        EXPECT_EQ(living, 2);
        square.reset();
        EXPECT_EQ(value.GetValue().GetCorners(), 4);
        value.SetValue(value.GetValue());
        EXPECT_EQ(value.GetValue().GetCorners(), 4);
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST(ValueTest, ObjectThatCannotBeClonedChangesNothing) {
    int living = 0;
    CShape square(4, living);
    CShape uncloneable(-1, living);
    TValue<const IShape&> value(square);
    CValueCounter counter(value.GetValueChangedEvents());
    value.SetValue(uncloneable);
    EXPECT_EQ(counter.calls, 0);
    EXPECT_EQ(value.GetValue().GetCorners(), 4);
}

} // namespace
