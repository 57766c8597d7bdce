#pragma once

#include "audio/plugin/midi/MIDICCMessage.h"
#include "core/Command.h"
#include "system/TimerProvider.h"

namespace Vorin::Audio::Plugin {

/// A message of the audio thread as the GUI thread sees it: a copy that follows at the ticks of a
/// timer, with events of its own on the timer's thread.
///
/// All messages between two ticks count as one, the last. At a tick after a message it fires
/// changed, when the numbers differ from the copy, and then received. The thread of the timer.
class CConstMIDICCMessageTimerProxy : public virtual IConstMIDICCMessage {
public:
    static constexpr int kPeriodMilliseconds = 40;

    /// Both are borrowed and outlive the proxy. The copy starts with the numbers as they are.
    CConstMIDICCMessageTimerProxy(IConstMIDICCMessage& message, System::ITimerProvider& provider,
                                  int periodMilliseconds = kPeriodMilliseconds);
    CConstMIDICCMessageTimerProxy(const CConstMIDICCMessageTimerProxy&) = delete;
    CConstMIDICCMessageTimerProxy& operator=(const CConstMIDICCMessageTimerProxy&) = delete;

    /// Not from a listener of the proxy.
    ~CConstMIDICCMessageTimerProxy() override;

    int GetChannel() const override { return values.channel; }
    int GetNumber() const override { return values.number; }
    int GetValue() const override { return values.value; }
    Core::IEventProvider& GetChangedEvent() override { return changed; }
    Core::IEventProvider& GetReceivedEvent() override { return received; }

private:
    void OnReceived() { isDue.store(true, std::memory_order_release); } // audio thread
    void OnTimer();
    CMIDICCValues ReadSource() const;

    IConstMIDICCMessage& source;
    System::ITimerProvider& timers;
    std::atomic<bool> isDue{false};
    CMIDICCValues values;
    Core::CEventProvider changed;
    Core::CEventProvider received;
    Core::TCommand<CConstMIDICCMessageTimerProxy> receivedCommand{
        this, &CConstMIDICCMessageTimerProxy::OnReceived};
    Core::TCommand<CConstMIDICCMessageTimerProxy> timerCommand{
        this, &CConstMIDICCMessageTimerProxy::OnTimer};
};

} // namespace Vorin::Audio::Plugin
