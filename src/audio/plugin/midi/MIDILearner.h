#pragma once

#include "audio/plugin/midi/MIDICCMessage.h"
#include "audio/plugin/midi/MIDICCSetting.h"
#include "core/Command.h"
#include "core/Enable.h"
#include "system/PollingLock.h"

#include <atomic>

namespace Vorin::Audio::Plugin {

/// Gives a setting the channel and the controller of what is moved: with each change of the last
/// message, as long as it is enabled. It starts disabled and without a target.
///
/// The GUI thread switches it and says the target; the target is written on the thread that writes
/// the message, which is the audio thread. Once SetEnabled(false), SetTarget or the destructor
/// returns, the former target is not written any more, and may go. A message that comes in during
/// one of them may be passed over.
class CMIDILearner : public virtual Core::IEnable {
public:
    /// The message is borrowed and outlives the learner.
    explicit CMIDILearner(IConstMIDICCMessage& source);
    CMIDILearner(const CMIDILearner&) = delete;
    CMIDILearner& operator=(const CMIDILearner&) = delete;
    ~CMIDILearner() override;

    bool IsEnabled() const override { return enabled.load(std::memory_order_relaxed); }
    Core::IEventProvider& GetEnableEvents() override { return enableChanged; }
    void SetEnabled(bool enable) override;

    /// Borrowed; null for none.
    void SetTarget(IMIDICCSetting* newTarget);
    IMIDICCSetting* GetTarget() const { return target; }

private:
    void OnMessageChanged();

    IConstMIDICCMessage& message;
    // Both are written by the GUI thread under the lock; the audio thread reads them under it.
    System::CPollingLock lock;
    IMIDICCSetting* target = nullptr;
    std::atomic<bool> enabled{false};
    Core::CEventProvider enableChanged;
    Core::TCommand<CMIDILearner> messageChangedCommand{this, &CMIDILearner::OnMessageChanged};
};

} // namespace Vorin::Audio::Plugin
