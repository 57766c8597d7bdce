#pragma once

#include "core/Capture.h"
#include "core/Value.h"

#include <atomic>
#include <type_traits>
#include <utility>

namespace Vorin::DataModel::Objects {

/// A plain field of an object with event providers of type `P`: atomic when that is one for several
/// threads.
template <class V, class P>
using TStateField = std::conditional_t<std::is_same_v<P, Core::CEventProvider>, V, std::atomic<V>>;

/// The part that all capture objects have in common: three events, and whether somebody holds the
/// object.
///
/// With `P` = `CEventProvider` one thread; with a provider for several threads [any]: listeners run
/// under the lock of the event, on the thread that caused it. Not copyable: listeners know its
/// address.
template <class P = Core::CEventProvider>
class TCaptureState : public virtual Core::IValueChangedEventProvider,
                      public virtual Core::IConstCapture {
public:
    TCaptureState() = default;
    TCaptureState(const TCaptureState&) = delete;
    TCaptureState& operator=(const TCaptureState&) = delete;

    Core::IEventProvider& GetValueChangedEvents() override { return valueChanged; }
    Core::IEventProvider& GetCaptureEvents() override { return captureEvents; }
    Core::IEventProvider& GetReleaseEvents() override { return releaseEvents; }
    bool IsCaptured() const override { return captured; }

protected:
    void NotifyValueChanged() { valueChanged.Notify(); }
    void NotifyCaptured(bool held) { (held ? captureEvents : releaseEvents).Notify(); }

    /// Stores the flag and says what it was.
    bool ExchangeCaptured(bool held) {
        if constexpr (std::is_same_v<decltype(captured), std::atomic<bool>>) {
            return captured.exchange(held);
        } else {
            return std::exchange(captured, held);
        }
    }

    /// Stores first, then notifies; a repeat is silent.
    void ChangeCaptured(bool held) {
        if (ExchangeCaptured(held) != held) {
            NotifyCaptured(held);
        }
    }

private:
    P valueChanged;
    P captureEvents;
    P releaseEvents;
    TStateField<bool, P> captured{false};
};

/// Makes `B`, which has a TCaptureState among its bases, an object that can be held.
template <class B>
class TCapturable : public B, public virtual Core::ICapture {
public:
    using B::B;

    void Capture() override { this->ChangeCaptured(true); }
    void Release() override { this->ChangeCaptured(false); }
};

} // namespace Vorin::DataModel::Objects
