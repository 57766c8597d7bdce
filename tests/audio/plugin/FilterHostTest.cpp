#include "audio/plugin/FilterHost.h"

#include "audio/dsp/FilterTestKit.h"
#include "audio/dsp/TestMonoFilter.h"
#include "audio/plugin/LockHolder.h"
#include "audio/plugin/PluginTestKit.h"
#include "core/NonFinite.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace Vorin::Audio::Plugin {
namespace {

using namespace DSP;
using namespace DataModel::Objects;

/// The internals around a filter that writes down what it is asked for.
class FilterHostTest : public ::testing::Test {
protected:
    enum EParam { kBypass, kGain, kOffset };

    FilterHostTest() {
        auto owned = std::make_unique<CTestMonoFilter>();
        mono = owned.get();
        internals = std::make_unique<CFilterHost>(
            CFilterHost::CConfig{.filter = std::move(owned), .defaultRefreshRate = 25.0});
        values = std::make_unique<CHostParams>(internals->GetInputInfos());
        internals->Connect(*values);
    }

    bool Configure(double rate = 44100.0) { return internals->Configure({}, rate); }

    std::string TakeCalls() {
        std::string calls;
        calls.swap(mono->calls);
        return calls;
    }

    void Set(int param, double value) { values->Get(param).SetValue(value); }

    static double At(const IConstFilterPropertiesVariations& variations, int index) {
        return variations.GetVariation(0).GetInputParams().GetValue(index);
    }

    CTestMonoFilter* mono = nullptr;
    std::unique_ptr<CFilterHost> internals;
    std::unique_ptr<CHostParams> values;
};

TEST_F(FilterHostTest, PutsBypassBeforeTheParametersOfTheFilter) {
    const IConstParamInfos& infos = internals->GetInputInfos();
    ASSERT_EQ(infos.GetCount(), 3);
    EXPECT_STREQ(infos.Get(0).GetName(), "Bypass");
    EXPECT_EQ(static_cast<int>(infos.Get(0).GetType()), 0);
    EXPECT_EQ(infos.Get(0).GetMin(), 0.0);
    EXPECT_EQ(infos.Get(0).GetMax(), 1.0);
    EXPECT_EQ(infos.Get(0).GetDefault(), 0.0);
    Containers::CCharString text;
    infos.Get(0).GetValueToText().ValueToText(0.0, text);
    EXPECT_STREQ(text.Get(), "Off");
    infos.Get(0).GetValueToText().ValueToText(1.0, text);
    EXPECT_STREQ(text.Get(), "On");
    EXPECT_STREQ(infos.Get(1).GetName(), "Gain");
    EXPECT_STREQ(infos.Get(2).GetName(), "Offset");
}

TEST_F(FilterHostTest, SetsTheRefreshRateOfTheFilter) {
    EXPECT_EQ(mono->sync.GetRefreshRate(), 25.0);
    EXPECT_EQ(&internals->GetOutputDataSync(), static_cast<IOutputDataSync*>(&mono->sync));
}

/// A filter of several configurations.
class CManyWaysFilter : public CTestMonoFilter {
public:
    CManyWaysFilter() {
        info.AddConfiguration(CIOConfiguration(1, 6));
        info.AddConfiguration(CIOConfiguration(4, 1));
    }
    const IProcessInfo& GetIOConfigurations() const override { return info; }

private:
    CProcessInfo info{2, 2};
};

TEST(FilterHostFilterTest, CountsTheMostChannelsOfAllConfigurations) {
    const CFilterHost internals({.filter = std::make_unique<CManyWaysFilter>()});
    int inputs = 0;
    int outputs = 0;
    internals.GetIOChannels(inputs, outputs);
    EXPECT_EQ(inputs, 4);
    EXPECT_EQ(outputs, 6);
}

TEST_F(FilterHostTest, InitsTheFilterAndPublishesOnceWhenItIsConfigured) {
    EXPECT_TRUE(Configure());
    // The values are those that the filter has: they are not pushed again.
    EXPECT_EQ(TakeCalls(), "init;reset;updateParams;update;publish;");
    EXPECT_EQ(mono->GetRate(), 44100.0);
    EXPECT_NE(internals->GetOutputCurve(0).GetValue(), nullptr);
}

TEST_F(FilterHostTest, PushesChangedValuesBeforeTheFirstUpdate) {
    Set(kGain, 3.0);
    EXPECT_TRUE(Configure());
    EXPECT_EQ(TakeCalls(), "init;reset;params0(3,0.5);updateParams;update;publish;");
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
}

TEST_F(FilterHostTest, ResetsTheInputValuesWhenDefaultsAreAskedFor) {
    Set(kBypass, 1.0);
    Set(kGain, 3.0);
    ASSERT_TRUE(Configure());
    TakeCalls();
    EXPECT_TRUE(internals->Configure({.applyDefaults = true}, 44100.0));
    EXPECT_EQ(values->Get(kBypass).GetValue(), 0.0);
    EXPECT_EQ(values->Get(kGain).GetValue(), 2.0);
    // The filter is not asked for its defaults: it gets the values.
    EXPECT_EQ(TakeCalls(), "init;reset;params0(2,0.5);updateParams;update;publish;");
}

TEST_F(FilterHostTest, TellsOfTheSampleRateWhenItDiffers) {
    CCounter counter;
    internals->GetSampleRate().GetValueChangedEvents().Connect(counter.command);
    EXPECT_EQ(internals->GetSampleRate().GetValue(), 0.0);
    EXPECT_TRUE(Configure(44100.0));
    EXPECT_TRUE(Configure(44100.0));
    EXPECT_EQ(counter.count, 1);
    EXPECT_TRUE(Configure(48000.0));
    EXPECT_EQ(counter.count, 2);
    EXPECT_EQ(internals->GetSampleRate().GetValue(), 48000.0);
    internals->GetSampleRate().GetValueChangedEvents().Disconnect(counter.command);
}

TEST_F(FilterHostTest, RefusesSampleRatesThatAreNoneAndChangesNothing) {
    ASSERT_TRUE(Configure(44100.0));
    Set(kGain, 3.0);
    TakeCalls();
    for (const double rate : {0.0, -44100.0, kNaN, kInfinity, -kInfinity, 4194304.0, 1e300}) {
        EXPECT_FALSE(internals->Configure({.applyDefaults = true}, rate)) << rate;
    }
    EXPECT_EQ(TakeCalls(), "");
    EXPECT_EQ(internals->GetSampleRate().GetValue(), 44100.0);
    EXPECT_EQ(values->Get(kGain).GetValue(), 3.0);
    EXPECT_TRUE(Configure(4194303.0));
}

TEST_F(FilterHostTest, HasNoRampWhileNothingChanges) {
    ASSERT_TRUE(Configure());
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
}

TEST_F(FilterHostTest, HasNoRampForTheSameDoubleAgain) {
    ASSERT_TRUE(Configure());
    CCounter counter;
    internals->GetFilterChange(0).Connect(counter.command);
    Set(kGain, 2.0);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    Set(kGain, 3.0);
    ASSERT_NE(internals->PrepareBlock(), nullptr);
    internals->FinishRamp();
    Set(kGain, 3.0);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    Set(kGain, 4.0);
    Set(kGain, 3.0); // there and back within one block
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    EXPECT_EQ(counter.count, 1);
    internals->GetFilterChange(0).Disconnect(counter.command);
}

TEST_F(FilterHostTest, SeesTheSmallestChange) {
    ASSERT_TRUE(Configure());
    Set(kGain, std::nextafter(2.0, 3.0));
    EXPECT_NE(internals->PrepareBlock(), nullptr);
}

TEST_F(FilterHostTest, RampsFromTheLastBlocksValuesToThisOnes) {
    ASSERT_TRUE(Configure());
    Set(kGain, 3.0);
    const IConstInputRamp* ramp = internals->PrepareBlock();
    ASSERT_NE(ramp, nullptr);
    EXPECT_EQ(At(ramp->GetAtStart(), 0), 2.0);
    EXPECT_EQ(At(ramp->GetAtEnd(), 0), 3.0);
    EXPECT_EQ(At(ramp->GetAtStart(), 1), 0.5);
    EXPECT_EQ(At(ramp->GetAtEnd(), 1), 0.5);
    internals->FinishRamp();
    Set(kOffset, 7.0);
    ramp = internals->PrepareBlock();
    ASSERT_NE(ramp, nullptr);
    EXPECT_EQ(At(ramp->GetAtStart(), 0), 3.0);
    EXPECT_EQ(At(ramp->GetAtStart(), 1), 0.5);
    EXPECT_EQ(At(ramp->GetAtEnd(), 1), 7.0);
}

TEST_F(FilterHostTest, SamplesTheValuesOnceForABlock) {
    ASSERT_TRUE(Configure());
    Set(kGain, 3.0);
    const IConstInputRamp* ramp = internals->PrepareBlock();
    Set(kGain, 9.0);
    EXPECT_EQ(At(ramp->GetAtEnd(), 0), 3.0);
}

TEST_F(FilterHostTest, TellsOfEachValueThatTheFilterGets) {
    ASSERT_TRUE(Configure());
    CCounter gain;
    CCounter offset;
    internals->GetFilterChange(0).Connect(gain.command);
    internals->GetFilterChange(1).Connect(offset.command);
    Set(kGain, 3.0);
    EXPECT_EQ(gain.count, 0); // it has not got it yet
    internals->PrepareBlock();
    EXPECT_EQ(gain.count, 1);
    EXPECT_EQ(offset.count, 0);
    internals->FinishRamp();
    Set(kOffset, 4.0);
    internals->ApplyPending();
    EXPECT_EQ(gain.count, 1);
    EXPECT_EQ(offset.count, 1);
    internals->GetFilterChange(0).Disconnect(gain.command);
    internals->GetFilterChange(1).Disconnect(offset.command);
}

/// A command whose end takes until it may go on.
class CSlowToDie : public Core::ICommand {
public:
    explicit CSlowToDie(std::atomic<int>& deathPhase) : phase(deathPhase) {}
    CSlowToDie(const CSlowToDie&) = delete;
    CSlowToDie& operator=(const CSlowToDie&) = delete;
    ~CSlowToDie() override {
        phase = 1;
        phase.notify_all();
        phase.wait(1);
    }
    void Execute() override {}

private:
    std::atomic<int>& phase;
};

TEST_F(FilterHostTest, TellsWithALaterBlockWhereAnotherThreadDisconnectsJustNow) {
    ASSERT_TRUE(Configure());
    CCounter gain;
    internals->GetFilterChange(0).Connect(gain.command);
    std::atomic<int> phase{0};
    std::thread other([&] {
        Core::ICommand* command = new CSlowToDie(phase);
        internals->GetFilterChange(0).Connect(command);
        internals->GetFilterChange(0).Disconnect(command, true);
    });
    phase.wait(0);
    Set(kGain, 3.0);
    EXPECT_NE(internals->PrepareBlock(), nullptr); // which does not wait
    internals->FinishRamp();
    EXPECT_EQ(gain.count, 0);
    phase = 2;
    phase.notify_all();
    other.join();
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    EXPECT_EQ(gain.count, 1);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    EXPECT_EQ(gain.count, 1);
    internals->GetFilterChange(0).Disconnect(gain.command);
}

TEST_F(FilterHostTest, KeepsBypassFromTheFilter) {
    ASSERT_TRUE(Configure());
    Set(kBypass, 1.0);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
}

/// A parameter that has whatever it is told.
class COpenValue : public CHostParam {
public:
    using CHostParam::CHostParam;
    double GetValue() const override { return value; }

    double value = 2.0;
};

/// One value less than there are infos.
class COpenValues : public IHostParams {
public:
    int GetCount() const override { return 2; }
    const IHostParam& Get(int index) const override {
        return values[static_cast<std::size_t>(index)];
    }
    IHostParam& Get(int index) override { return values[static_cast<std::size_t>(index)]; }

    CParamInfo info;
    COpenValue values[2] = {COpenValue(info), COpenValue(info)};
};

TEST_F(FilterHostTest, NeverTakesANaN) {
    COpenValues open;
    internals->Connect(open);
    ASSERT_TRUE(Configure());
    open.values[1].value = kNaN;
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    open.values[1].value = 5.0;
    const IConstInputRamp* ramp = internals->PrepareBlock();
    ASSERT_NE(ramp, nullptr);
    EXPECT_EQ(At(ramp->GetAtStart(), 0), 2.0);
    EXPECT_EQ(At(ramp->GetAtEnd(), 0), 5.0);
}

TEST_F(FilterHostTest, TakesValuesThatBelongTogetherAllAtOnce) {
    ASSERT_TRUE(Configure());
    internals->BeginChanges();
    values->Get(1).Store(0.5);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    internals->EndChanges();
    const IConstInputRamp* ramp = internals->PrepareBlock();
    ASSERT_NE(ramp, nullptr);
    EXPECT_EQ(At(ramp->GetAtEnd(), 0), 0.5);
}

/// Stores other values together while the filter's thread reads this one.
class CTearingValue : public CHostParam {
public:
    using CHostParam::CHostParam;
    double GetValue() const override {
        if (isTearing) {
            host->BeginChanges();
            host->EndChanges();
        }
        return 7.0;
    }

    CFilterHost* host = nullptr;
    bool isTearing = true;
};

TEST_F(FilterHostTest, TakesNothingOfAReadThatAChangeCutInto) {
    class CTearingValues : public COpenValues {
    public:
        IHostParam& Get(int index) override {
            return index == 1 ? static_cast<IHostParam&>(tearing) : COpenValues::Get(index);
        }
        CTearingValue tearing{info};
    } open;
    open.tearing.host = internals.get();
    internals->Connect(open);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
    open.tearing.isTearing = false;
    ASSERT_NE(internals->PrepareBlock(), nullptr);
}

TEST_F(FilterHostTest, RunsWithoutInputValues) {
    CFilterHost alone({.filter = std::make_unique<CTestMonoFilter>()});
    EXPECT_TRUE(alone.Configure({.applyDefaults = true}, 44100.0));
    EXPECT_EQ(alone.PrepareBlock(), nullptr);
    alone.ApplyPending();
}

TEST_F(FilterHostTest, BringsTheFilterItsValuesWhileIdle) {
    ASSERT_TRUE(Configure());
    TakeCalls();
    internals->ApplyPending();
    EXPECT_EQ(TakeCalls(), "");
    Set(kGain, 3.0);
    internals->ApplyPending();
    EXPECT_EQ(TakeCalls(), "params0(3,0.5);");
    // The ramp is finished: the next one starts there.
    Set(kGain, 4.0);
    EXPECT_EQ(At(internals->PrepareBlock()->GetAtStart(), 0), 3.0);
}

TEST_F(FilterHostTest, PacesAFilterThatHasNoSync) {
    mono->hasSync = false;
    internals->GetOutputDataSync().SetRefreshRate(10.0);
    ASSERT_TRUE(Configure(1000.0));
    internals->GetOutputDataSync().Reset();
    internals->NotifyProcessed(60);
    EXPECT_FALSE(internals->GetOutputDataSync().IsRefreshNeeded());
    internals->NotifyProcessed(-100);
    internals->NotifyProcessed(40);
    EXPECT_TRUE(internals->GetOutputDataSync().IsRefreshNeeded());
}

TEST_F(FilterHostTest, LeavesThePacingToAFilterThatHasASync) {
    ASSERT_TRUE(Configure(1000.0));
    mono->sync.SetSampleRate(1000.0);
    mono->sync.SetRefreshRate(10.0);
    mono->sync.Reset();
    internals->NotifyProcessed(1000);
    EXPECT_FALSE(internals->GetOutputDataSync().IsRefreshNeeded());
}

TEST_F(FilterHostTest, PublishesWhatTheFilterHasMarked) {
    ASSERT_TRUE(Configure());
    EXPECT_EQ(internals->GetOutputCurve(0).GetValue()->Evaluate(0.0), 0.0);
    CCounter counter;
    internals->GetOutputCurve(0).Connect(counter.command);
    CTestChannels inputs{{1, 2, 3}};
    CTestChannels outputs(1, 3);
    static_cast<IFilter&>(*mono).Process(MakeRecord(inputs, outputs, 3));
    EXPECT_TRUE(internals->TransferOutputs(false));
    EXPECT_EQ(internals->GetOutputCurve(0).GetValue()->Evaluate(0.0), 6.0);
    EXPECT_EQ(counter.count, 1);
    for (IChanges* changes :
         {&mono->GetOutputStringChanges(), &mono->GetOutputCurveChanges(),
          &mono->GetOutputSurfaceChanges(), &mono->GetOutputPropertyChanges()}) {
        EXPECT_FALSE(changes->Get(0).IsDirty());
    }
    internals->GetOutputCurve(0).Disconnect(counter.command);
}

TEST_F(FilterHostTest, LeavesWhatIsDueToTheNextCallWhileAReaderHoldsTheLock) {
    ASSERT_TRUE(Configure());
    CCounter counter;
    internals->GetOutputCurve(0).Connect(counter.command);
    TakeCalls();
    {
        const CLockHolder reader(internals->GetOutputsLock());
        EXPECT_FALSE(internals->TransferOutputs(false));
        EXPECT_FALSE(internals->TransferOutputs(false));
        EXPECT_EQ(TakeCalls(), "");
        EXPECT_EQ(counter.count, 0);
    }
    EXPECT_TRUE(internals->TransferOutputs(false));
    EXPECT_EQ(TakeCalls(), "publish;");
    EXPECT_EQ(counter.count, 1);
    internals->GetOutputCurve(0).Disconnect(counter.command);
}

TEST_F(FilterHostTest, WaitsForTheReaderWhenItMay) {
    ASSERT_TRUE(Configure());
    TakeCalls();
    auto reader = std::make_unique<CLockHolder>(internals->GetOutputsLock());
    std::atomic<bool> done{false};
    bool result = false;
    std::thread host([&] {
        result = internals->TransferOutputs(true);
        done = true;
    });
    // It cannot be through before the reader is, however long this thread takes.
    EXPECT_FALSE(done);
    reader.reset();
    host.join();
    EXPECT_TRUE(result);
    EXPECT_EQ(TakeCalls(), "publish;");
}

TEST_F(FilterHostTest, TellsItsListenersOutsideTheLock) {
    ASSERT_TRUE(Configure());
    class CReader {
    public:
        explicit CReader(CFilterHost& plugin) : target(plugin) {}
        void Read() {
            std::thread([this] {
                isFree = target.GetOutputsLock().TryLock();
                if (isFree) {
                    target.GetOutputsLock().Unlock();
                }
            }).join();
        }

        CFilterHost& target;
        bool isFree = false;
        Core::TCommand<CReader> command{this, &CReader::Read};
    } reader(*internals);
    internals->GetOutputCurve(0).Connect(reader.command);
    EXPECT_TRUE(internals->TransferOutputs(false));
    EXPECT_TRUE(reader.isFree);
    internals->GetOutputCurve(0).Disconnect(reader.command);
}

/// A filter that gives parameters alone.
class CSilentFilter : public CBaseCoreDSPFilter {
public:
    IFilter* Clone() const override { return new CSilentFilter(*this); }
    const IConstFilterProductInfo& GetProductInfo() const override {
        static const CFilterProductInfo info("", "", "", "", "", 0, "");
        return info;
    }
    const IProcessInfo& GetIOConfigurations() const override {
        static const CProcessInfo info(1, 1);
        return info;
    }
    void PublishOutputs() override { ++published; }

    int published = 0;
};

TEST(FilterHostFilterTest, NeverTakesTheLockForAFilterWithNothingToPublish) {
    auto owned = std::make_unique<CSilentFilter>();
    const CSilentFilter* filter = owned.get();
    CFilterHost internals({.filter = std::move(owned)});
    const CLockHolder reader(internals.GetOutputsLock());
    EXPECT_TRUE(internals.TransferOutputs(false));
    EXPECT_TRUE(internals.TransferOutputs(true)); // or this test would hang
    EXPECT_TRUE(internals.Configure({}, 44100.0));
    EXPECT_EQ(filter->published, 0);
}

TEST(FilterHostProductTest, RunsTwoInstancesApart) {
    CTestPlugin one;
    auto two = std::make_unique<CTestPlugin>();
    ASSERT_TRUE(one.Configure(100.0, 16));
    ASSERT_TRUE(two->Configure(200.0, 16));
    one.Set(CTestPlugin::kStereoMode, 1.0);
    std::vector<float> left(16, 1.0F);
    std::vector<float> right(16, 0.5F);
    for (int i = 0; i < 2; ++i) {
        one.Process(left.data(), right.data(), 16);
        two->Process(right.data(), left.data(), 16);
    }
    EXPECT_EQ(one.internals.GetOutputCurve(0).GetValue()->Evaluate(0.0), 0.75);
    EXPECT_EQ(two->internals.GetOutputCurve(0).GetValue()->Evaluate(0.0), 0.5);
    EXPECT_EQ(two->Get(CTestPlugin::kStereoMode), 0.0);
    EXPECT_EQ(one.internals.GetSampleRate().GetValue(), 100.0);
    two.reset();
    one.Process(right.data(), right.data(), 16);
    one.Process(right.data(), right.data(), 16);
    EXPECT_EQ(one.internals.GetOutputCurve(0).GetValue()->Evaluate(0.0), 0.5);
    EXPECT_STREQ(one.internals.GetOutputCurveInfos().Get(2).GetName(), "Waveform (2)");
}

TEST(FilterHostProductTest, DeclaresTheParametersOfTheProduct) {
    const CTestPlugin plugin;
    const IConstParamInfos& infos = plugin.internals.GetInputInfos();
    ASSERT_EQ(infos.GetCount(), static_cast<int>(CTestPlugin::kParamsCount));
    EXPECT_STREQ(infos.Get(CTestPlugin::kStereoMode).GetName(), "Stereo Mode");
    EXPECT_STREQ(infos.Get(CTestPlugin::kTriggerDirection).GetName(), "Trigger Direction");
    int inputs = 0;
    int outputs = -1;
    plugin.internals.GetIOChannels(inputs, outputs);
    EXPECT_EQ(inputs, 2);
    EXPECT_EQ(outputs, 0);
}

} // namespace
} // namespace Vorin::Audio::Plugin
