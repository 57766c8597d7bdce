// How texts, curves, surfaces and custom properties come to a filter, block by block.

#include "audio/plugin/InputsTestKit.h"
#include "audio/plugin/PluginTestKit.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

using Math::CConstantBinaryFunction;
using Math::CConstantFunction;

/// A text that runs a function of the test while its input is locked.
class CHookedText : public Core::IRefCountItem<const char*> {
public:
    void AddRef() override {
        ++references;
        if (const auto hook = std::exchange(whenReferred, nullptr)) {
            hook();
        }
    }
    void Release() override {
        if (--references == 0) {
            delete this;
        }
    }
    int GetRefCount() const override { return references; }
    const char* GetValue() const override { return "hooked"; }

    std::function<void()> whenReferred;

private:
    std::atomic<int> references{1};
};

class FilterHostInputsTest : public ::testing::Test {
protected:
    FilterHostInputsTest() : FilterHostInputsTest(std::make_unique<CAllInputsFilter>()) {}
    explicit FilterHostInputsTest(std::unique_ptr<CAllInputsFilter> owned)
        : filter(*owned), plugin(std::move(owned)), objects(plugin.internals.GetInputObjects()) {
        EXPECT_TRUE(plugin.Configure(48000.0, 16));
    }

    void Process() { plugin.Process(samples, samples, 16); }

    /// What runs on another thread while this one is inside the first text.
    void WhileTheFirstTextIsLocked(std::function<void()> function) {
        auto* text = new CHookedText;
        objects.GetStrings().Get(0).Store(CMTInputString::Item(text));
        text->whenReferred = [&function] { std::thread(function).join(); };
        objects.GetStrings().Get(0).GetItem();
    }

    float samples[16] = {};
    CAllInputsFilter& filter;
    CTestPlugin plugin;
    CInputObjects& objects;
};

TEST_F(FilterHostInputsTest, GivesTheFilterWhatStandsThereBeforeTheFirstBlock) {
    EXPECT_EQ(filter.given.count, 1);
    EXPECT_STREQ(filter.given.texts[0], "first");
    EXPECT_STREQ(filter.given.texts[1], "second");
    EXPECT_EQ(filter.given.curve, 2.0);
    EXPECT_EQ(filter.given.surface, 3.0);
    EXPECT_EQ(filter.given.number, 4.0);
    Process();
    EXPECT_EQ(filter.atEnd.count, 0); // no ramp
    EXPECT_EQ(filter.used, 2.0);
}

TEST_F(FilterHostInputsTest, ShowsOldAndNewValuesAtTheEndsOfTheRamp) {
    objects.GetStrings().Get(0).SetValue("new");
    objects.GetCurves().Get(0).SetValue(CConstantFunction(20.0));
    objects.GetSurfaces().Get(0).SetValue(CConstantBinaryFunction(30.0));
    objects.GetProperties().Get(0).SetValue(CNumberProperty(40.0));
    Process();
    EXPECT_EQ(filter.atStart.count, 1);
    EXPECT_STREQ(filter.atStart.texts[0], "first");
    EXPECT_EQ(filter.atStart.curve, 2.0);
    EXPECT_EQ(filter.atStart.surface, 3.0);
    EXPECT_EQ(filter.atStart.number, 4.0);
    EXPECT_EQ(filter.used, 2.0);
    EXPECT_STREQ(filter.atEnd.texts[0], "new");
    EXPECT_STREQ(filter.atEnd.texts[1], "second");
    EXPECT_EQ(filter.atEnd.curve, 20.0);
    EXPECT_EQ(filter.atEnd.surface, 30.0);
    EXPECT_EQ(filter.atEnd.number, 40.0);
    Process();
    EXPECT_EQ(filter.atEnd.count, 1); // nothing new
    EXPECT_EQ(filter.used, 20.0);
}

TEST_F(FilterHostInputsTest, LetsEachChangedValueBecomeTheNextStart) {
    objects.GetStrings().Get(0).SetValue("new");
    Process();
    objects.GetCurves().Get(0).SetValue(CConstantFunction(20.0));
    Process();
    EXPECT_STREQ(filter.atStart.texts[0], "new");
    EXPECT_EQ(filter.atStart.curve, 2.0);
    plugin.Set(1, 5.0);
    Process();
    EXPECT_EQ(filter.atStart.curve, 20.0);
    EXPECT_EQ(filter.atStart.gain, 1.0);
    EXPECT_EQ(filter.atEnd.gain, 5.0);
    EXPECT_EQ(filter.atEnd.count, 3);
}

TEST_F(FilterHostInputsTest, TakesTheLastOfSeveralValuesOfABlock) {
    objects.GetStrings().Get(0).SetValue("one");
    objects.GetStrings().Get(0).SetValue("two");
    Process();
    EXPECT_EQ(filter.atEnd.count, 1);
    EXPECT_STREQ(filter.atEnd.texts[0], "two");
    objects.GetStrings().Get(0).SetValue("two");
    Process();
    EXPECT_EQ(filter.atEnd.count, 1); // the same text is no change
}

TEST_F(FilterHostInputsTest, TellsWhenTheFilterGetsAValue) {
    CCounter counter;
    auto& input = objects.GetCurves().Get(0);
    input.GetFilterChange().Connect(counter.command);
    input.SetValue(CConstantFunction(20.0));
    EXPECT_EQ(counter.count, 0);
    Process();
    Process();
    EXPECT_EQ(counter.count, 1);
    input.SetValue(CConstantFunction(21.0));
    plugin.internals.ApplyPending();
    EXPECT_EQ(counter.count, 2);
    EXPECT_EQ(filter.given.curve, 21.0);
    input.GetFilterChange().Disconnect(counter.command);
}

TEST_F(FilterHostInputsTest, AValueThatCannotBeHadJustNowIsDueAtTheNextBlock) {
    objects.GetStrings().Get(1).SetValue("free");
    plugin.Set(1, 5.0);
    WhileTheFirstTextIsLocked([this] {
        Process();
        EXPECT_STREQ(filter.atEnd.texts[0], "first");
        EXPECT_STREQ(filter.atEnd.texts[1], "free"); // does not wait for the other one
        EXPECT_EQ(filter.atEnd.gain, 5.0);
    });
    EXPECT_EQ(filter.atEnd.count, 1);
    Process();
    EXPECT_STREQ(filter.atEnd.texts[0], "hooked");
}

TEST_F(FilterHostInputsTest, ValuesThatBelongTogetherWaitForEachOther) {
    plugin.internals.BeginChanges();
    objects.GetStrings().Get(1).SetValue("free");
    plugin.Set(1, 5.0);
    Process();
    EXPECT_EQ(filter.atEnd.count, 0);
    plugin.internals.EndChanges();
    WhileTheFirstTextIsLocked([this] {
        Process();
        EXPECT_EQ(filter.atEnd.count, 0);
    });
    Process();
    EXPECT_EQ(filter.atEnd.count, 1);
    EXPECT_STREQ(filter.atEnd.texts[0], "hooked");
    EXPECT_STREQ(filter.atEnd.texts[1], "free");
    EXPECT_EQ(filter.atEnd.gain, 5.0);
}

TEST_F(FilterHostInputsTest, GivesPropertiesTheSampleRateAndTellsNobody) {
    CCounter counter;
    auto& input = objects.GetProperties().Get(0);
    input.GetValueChangedEvents().Connect(counter.command);
    EXPECT_EQ(filter.given.rate, 48000.0);
    ASSERT_TRUE(plugin.Configure(96000.0, 16));
    EXPECT_EQ(filter.given.rate, 96000.0);
    EXPECT_EQ(filter.given.number, 4.0);
    EXPECT_EQ(input.GetItem()->GetRefCount(), 4); // the input, both ends and this one
    const auto before = input.GetItem();
    ASSERT_TRUE(plugin.Configure(96000.0, 16));
    EXPECT_EQ(input.GetItem().Get(), before.Get()); // it has the rate already
    EXPECT_EQ(counter.count, 0);
    input.GetValueChangedEvents().Disconnect(counter.command);
}

TEST_F(FilterHostInputsTest, LeavesPropertiesAloneThatDoNotAskForTheRate) {
    objects.GetProperties().Get(0).SetValue(CNamelessProperty());
    const auto before = objects.GetProperties().Get(0).GetItem();
    ASSERT_TRUE(plugin.Configure(96000.0, 16));
    EXPECT_EQ(objects.GetProperties().Get(0).GetItem().Get(), before.Get());
    EXPECT_EQ(filter.given.number, -1.0);
}

TEST_F(FilterHostInputsTest, ResetsThemWhenDefaultsAreAskedFor) {
    objects.GetStrings().Get(0).SetValue("new");
    objects.GetCurves().Get(0).SetValue(CConstantFunction(20.0));
    ASSERT_TRUE(plugin.internals.Configure({.applyDefaults = true}, 48000.0));
    EXPECT_STREQ(filter.given.texts[0], "first");
    EXPECT_EQ(filter.given.curve, 2.0);
}

TEST_F(FilterHostInputsTest, HasNoneForAFilterThatTakesParametersAlone) {
    const CTestPlugin other;
    EXPECT_TRUE(other.internals.GetInputObjects().IsEmpty());
    EXPECT_FALSE(objects.IsEmpty());
}

TEST(FilterHostInputsLifeTest, NothingIsLeftOfThemInTheEnd) {
    const int before = CNumberProperty::living;
    {
        CTestPlugin plugin(std::make_unique<CAllInputsFilter>());
        ASSERT_TRUE(plugin.Configure(48000.0, 16));
        for (int i = 0; i < 5; ++i) {
            plugin.internals.GetInputObjects().GetProperties().Get(0).SetValue(CNumberProperty(i));
            float samples[16] = {};
            plugin.Process(samples, samples, 16);
        }
        EXPECT_GT(CNumberProperty::living, before);
    }
    EXPECT_EQ(CNumberProperty::living, before);
}

std::string MakeText(int round) {
    return std::string(static_cast<std::size_t>(1 + round % 50),
                       static_cast<char>('a' + round % 26));
}

/// Sets values one by one, as a user does.
void SetOneByOne(CInputObjects& objects, int rounds) {
    for (int i = 1; i <= rounds; ++i) {
        objects.GetStrings().Get(1).SetValue(MakeText(i).c_str());
        objects.GetSurfaces().Get(0).SetValue(CConstantBinaryFunction(i));
    }
}

/// Sets a parameter, a curve and a property to one number, as a state does.
void SetTogether(CTestPlugin& plugin, int rounds) {
    CInputObjects& objects = plugin.internals.GetInputObjects();
    for (int i = 1; i <= rounds; ++i) {
        CSharedInputs values;
        values.curves.items.push_back(
            TInputItem<const Math::IFunction&>::Make(CConstantFunction(i)));
        values.properties.items.push_back(
            TInputItem<const DataModel::Objects::IDynamicPropertyValue&>::Make(CNumberProperty(i)));
        plugin.internals.BeginChanges();
        plugin.values.Get(1).Store(i);
        objects.Store(values);
        plugin.internals.EndChanges();
        objects.NotifyChanged(values);
    }
}

// Two threads set, a third one reads, while this one processes; also for the thread sanitizer.
TEST_F(FilterHostInputsTest, ValuesCrossWholeAndDieOnOtherThreads) {
    constexpr int kRounds = 3000;
    plugin.Set(1, 2.0);
    objects.GetProperties().Get(0).SetValue(CNumberProperty(2.0));
    Process();
    const int diedBefore = CNumberProperty::diedOnAudio;
    std::atomic<int> running{2};
    std::thread user([&] { SetOneByOne(objects, kRounds), --running; });
    std::thread loader([&] { SetTogether(plugin, kRounds), --running; });
    std::thread reader([&] {
        while (running > 0) {
            const std::unique_ptr<char[]> text(objects.GetStrings().Get(1).CreateValue());
            const std::unique_ptr<Math::IFunction> curve(objects.GetCurves().Get(0).CreateValue());
            EXPECT_GE(curve->Evaluate(0.0), 2.0 - 1.0);
        }
    });
    CNumberProperty::isAudioThread = true;
    bool isLast = false;
    while (!isLast) {
        isLast = running == 0;
        Process();
        const CSeenInputs& end = filter.atEnd;
        EXPECT_EQ(end.curve, end.gain);
        EXPECT_EQ(end.number, end.gain);
        const std::string text = end.texts[1];
        EXPECT_TRUE(text == "second" || text == std::string(text.size(), text[0])) << text;
    }
    CNumberProperty::isAudioThread = false;
    user.join();
    loader.join();
    reader.join();
    EXPECT_EQ(filter.atEnd.gain, kRounds);
    EXPECT_EQ(filter.atEnd.surface, kRounds);
    EXPECT_EQ(filter.atEnd.texts[1], MakeText(kRounds));
    EXPECT_EQ(CNumberProperty::diedOnAudio, diedBefore);
}

} // namespace
} // namespace Vorin::Audio::Plugin
