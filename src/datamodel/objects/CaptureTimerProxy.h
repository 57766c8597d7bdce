#pragma once

#include "datamodel/objects/CaptureProxyFace.h"
#include "datamodel/objects/ProxyTarget.h"

#include <atomic>
#include <utility>

namespace Vorin::DataModel::Objects {

/// Shows a model object that changes often, or on another thread, at the pace of a timer: however
/// often the target changes, listeners here are told at most once per tick, and the target's thread
/// pays one store per change.
///
/// The proxy belongs to one thread, that of its timer provider; see TCaptureProxyFace. The target
/// may change
/// - on the same thread: any model object will do;
/// - on other threads: then its events are CMTEventProviders, so that connecting and disconnecting
///   from here is safe and nothing of ours runs once `Disconnect` has returned, and its value may
///   be read from any thread (CMTCaptureParam, or a factory). Its info stands still.
///
/// Neither target nor provider is owned. The target outlives the proxy, or its `Disconnect`; after
/// that the proxy must not be read or written.
template <class T, class I>
class TConstCaptureObjectTimerProxy : public TCaptureProxyFace<T, I> {
    using Face = TCaptureProxyFace<T, I>;

public:
    TConstCaptureObjectTimerProxy(TConstProxyTarget<T, I> proxyTarget,
                                  System::ITimerProvider* timerProvider,
                                  int refreshMilliseconds = Face::kDefaultRefreshTime)
        : Face(timerProvider, refreshMilliseconds), target(proxyTarget) {
        target.GetValueChangedEvents().Connect(valueChanged);
        target.GetGesture().GetCaptureEvents().Connect(captured);
        target.GetGesture().GetReleaseEvents().Connect(released);
        isConnected = true;
        // Behind the connections: what changes from here on is noted.
        this->StartCaptured(target.GetGesture());
        target.ReadInto(this->Cache());
    }

    ~TConstCaptureObjectTimerProxy() override { TConstCaptureObjectTimerProxy::Disconnect(); }

    /// That of the target.
    const I& GetInfo() const override { return target.GetInfo(); }

    void Disconnect() override {
        if (std::exchange(isConnected, false)) {
            target.GetGesture().GetReleaseEvents().Disconnect(released);
            target.GetGesture().GetCaptureEvents().Disconnect(captured);
            target.GetValueChangedEvents().Disconnect(valueChanged);
            dirty = false;
        }
    }

protected:
    bool IsConnected() const { return isConnected; }

    /// Says whether the target changed since it was read last.
    bool TakeDirty() { return dirty.exchange(false); }
    void SetDirty() { dirty = true; }

    // Cleared before it is read: a change in between is noted again. The change is told of though
    // the value may be the same as before.
    bool TakeValue() override {
        if (!TakeDirty()) {
            return false;
        }
        target.ReadInto(this->Cache());
        return true;
    }

private:
    using Command = Core::TCommand<TConstCaptureObjectTimerProxy>;

    // On the target's thread.
    void OnValueChanged() { dirty = true; }
    void OnCaptured() { this->OnSourceCaptured(); }
    void OnReleased() { this->OnSourceReleased(); }

    TConstProxyTarget<T, I> target;
    bool isConnected = false;
    std::atomic<bool> dirty{false}; // the target changed and was not read yet
    Command valueChanged{this, &TConstCaptureObjectTimerProxy::OnValueChanged};
    Command captured{this, &TConstCaptureObjectTimerProxy::OnCaptured};
    Command released{this, &TConstCaptureObjectTimerProxy::OnReleased};
};

/// The same with a way to write. Writes and gestures go to the target at once, and are seen here at
/// once; what the target makes of them follows at the next tick.
template <class T, class I>
class TCaptureObjectTimerProxy
    : public TConstCaptureObjectTimerProxy<T, I>,
      public virtual TICaptureObjectTimerProxy<TIConstCaptureObject<T, I>, TICaptureObject<T, I>> {
    using Base = TConstCaptureObjectTimerProxy<T, I>;

public:
    TCaptureObjectTimerProxy(TProxyTarget<T, I> proxyTarget, System::ITimerProvider* timerProvider,
                             int refreshMilliseconds = Base::kDefaultRefreshTime)
        : Base(proxyTarget, timerProvider, refreshMilliseconds), target(proxyTarget) {}

    /// Clamps a number to the info, stores and writes the value, then notifies when it is a change
    /// or when a change of the target was still to be told of.
    void SetValue(T value) override {
        const bool differs = this->StoreOwn(value);
        bool wasDirty = false;
        if (this->IsConnected()) {
            // The stored one: what was handed in may have been a part of the cache.
            const T stored = this->GetValue();
            target.Visit([&stored](auto& object) { object.SetValue(stored); });
            wasDirty = this->TakeDirty();
            // A listener of the target may have disconnected: then it is not read again.
            if (this->IsConnected()) {
                NoteOtherValue(stored);
            }
        }
        if (differs || wasDirty) {
            this->NotifyValueChanged();
        }
    }

    void Capture() override { ForwardCaptured(true); }
    void Release() override { ForwardCaptured(false); }

private:
    // Another thread may have written behind us: that change must not go with the mark.
    void NoteOtherValue(T stored) {
        if constexpr (std::is_same_v<T, double>) {
            CParamFloatValueHolder there;
            target.ReadInto(there);
            if (there.Differs(stored)) {
                this->SetDirty();
            }
        }
    }

    void ForwardCaptured(bool held) {
        const bool wasHeld = this->ExchangeCaptured(held);
        if (this->IsConnected()) {
            target.Visit([held](auto& object) { held ? object.Capture() : object.Release(); });
        }
        if (wasHeld != held) {
            this->NotifyCaptured(held);
        }
    }

    TProxyTarget<T, I> target;
};

using CConstCaptureParamTimerProxy = TConstCaptureObjectTimerProxy<double, IConstParamInfo>;
using CCaptureParamTimerProxy = TCaptureObjectTimerProxy<double, IConstParamInfo>;

} // namespace Vorin::DataModel::Objects
