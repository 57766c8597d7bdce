// That nothing that the audio thread runs of the MIDI control allocates, waits or calls the system.

#include "audio/plugin/midi/ConstMIDICCMessageTimerProxy.h"
#include "audio/plugin/midi/MIDITestKit.h"
#include "audio/plugin/realtime/RealTimeGuard.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"

#include <gtest/gtest.h>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;

/// Only counts: the audio thread's own receiver must not allocate either.
class CCountingReceiver : public virtual IMIDIValueReceiver {
public:
    void SetFromMIDI(int, double) override { ++count; }
    int count = 0;
};

TEST(MIDIRealTime, EveryEventAndEveryOutputUnderEveryCurve) {
    CInfos infos = MakeInfos(7);
    CInputMIDICCSettings globalInputs(infos);
    COutputMIDICCSettings globalOutputs(infos);
    CMIDIController controller(infos, globalInputs, infos, globalOutputs);
    System::CManualClock clock;
    System::CRunLoop loop(clock);
    System::CRunLoopTimerProvider timers(loop);
    CConstMIDICCMessageTimerProxy proxy(controller.GetLastMessage(), timers);
    globalInputs.Get(0).SetMIDIEnabled(true);
    globalOutputs.Get(0).SetMIDIEnabled(true);
    // The learner teaches a global setting, which the instance follows: the longest way.
    controller.GetLearner().SetTarget(&globalInputs.Get(0));
    controller.GetLearner().SetEnabled(true);

    MIDI::CMIDIEvent event;
    CCountingReceiver receiver;
    CMIDICCValues message;
    int sent = 0;
    RealTime::Forget();
    for (int curve = -1; curve <= DataModel::Objects::kParamValueCurvesCount; ++curve) {
        globalInputs.Get(0).SetCurve(static_cast<DataModel::Objects::EParamValueCurve>(curve));
        globalOutputs.Get(0).SetCurve(static_cast<DataModel::Objects::EParamValueCurve>(curve));
        for (int i = 0; i < 256 * 4; ++i) {
            const auto byte = static_cast<unsigned char>(i / 4);
            const unsigned char bytes[3] = {byte, byte, byte};
            const RealTime::CGuard guard;
            event.CopyFrom(bytes, i % 4);
            event.SetDeltaFrames(i);
            if (controller.ApplyMIDI(event, message, receiver)) {
                controller.GetLastMessage().Set(message, true);
                controller.ApplyMIDI(event, message, receiver);
            }
            event.SetSize(MIDI::CMIDIEvent::kLargestSize);
            sent += controller.MakeOutputCC(0, i % 100, event) ? 1 : 0;
            controller.ResetOutputCC();
        }
    }
    EXPECT_EQ(RealTime::GetViolationsCount(), 0) << RealTime::GetFirstViolation();
    EXPECT_GT(receiver.count, 0);
    EXPECT_EQ(sent, 15 * 256 * 4);
    EXPECT_EQ(controller.GetInputSettings().Get(0).GetChannel(), 16);
}

TEST(MIDIRealTime, TheGuardSeesAnAllocation) {
    RealTime::Forget();
    {
        const RealTime::CGuard guard;
        MIDI::CMIDIEvent event; // makes its block
    }
    EXPECT_GT(RealTime::GetViolationsCount(), 0);
    RealTime::Forget();
}

} // namespace
} // namespace Vorin::Audio::Plugin
