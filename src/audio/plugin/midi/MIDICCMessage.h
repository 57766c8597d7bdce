#pragma once

#include "system/RealtimeEventProvider.h"

#include <atomic>

namespace Vorin::Audio::Plugin {

/// What a controller message says.
struct CMIDICCValues {
    int channel = 0; ///< 1 to 16, 0 for no message yet
    int number = 0;  ///< the controller, 0 to 127
    int value = 0;   ///< 0 to 127

    bool operator==(const CMIDICCValues&) const = default;
};

/// The last controller message, to read. Its numbers are read each by itself: those of two messages
/// may meet for a moment, and the event that follows puts it right.
class IConstMIDICCMessage {
public:
    virtual int GetChannel() const = 0;
    virtual int GetNumber() const = 0;
    virtual int GetValue() const = 0;

    /// After the numbers changed.
    virtual Core::IEventProvider& GetChangedEvent() = 0;
    /// After each message, whether it changed something or not.
    virtual Core::IEventProvider& GetReceivedEvent() = 0;

    virtual ~IConstMIDICCMessage() = default;
};

/// The last controller message, to write.
class IMIDICCMessage : public virtual IConstMIDICCMessage {
public:
    /// Stores the numbers and fires changed, then received. Without `force` the same numbers again
    /// fire received alone.
    virtual void Set(const CMIDICCValues& event, bool force) = 0;

    /// The same for the value alone, without force.
    virtual void SetValue(int newValue) = 0;
};

/// The message that the audio thread writes. One thread writes at a time; any may read. The events
/// fire on the thread that writes: see CRealtimeEventProvider. [audio]
class CMIDICCMessage : public virtual IMIDICCMessage {
public:
    CMIDICCMessage() = default;
    CMIDICCMessage(const CMIDICCMessage&) = delete;
    CMIDICCMessage& operator=(const CMIDICCMessage&) = delete;

    int GetChannel() const override { return channel.load(std::memory_order_relaxed); }
    int GetNumber() const override { return number.load(std::memory_order_relaxed); }
    int GetValue() const override { return value.load(std::memory_order_relaxed); }
    Core::IEventProvider& GetChangedEvent() override { return changed; }
    Core::IEventProvider& GetReceivedEvent() override { return received; }

    void Set(const CMIDICCValues& event, bool force) override;
    void SetValue(int newValue) override;

    /// Delivers events that could not be delivered at once. [any, audio]
    void NotifyIfKept();

private:
    std::atomic<int> channel{0};
    std::atomic<int> number{0};
    std::atomic<int> value{0};
    System::CRealtimeEventProvider changed;
    System::CRealtimeEventProvider received;
};

} // namespace Vorin::Audio::Plugin
