#pragma once

#include "core/Command.h"
#include "datamodel/objects/CaptureProxyFace.h"
#include "datamodel/objects/InfoTraits.h"
#include "datamodel/objects/ProxyTarget.h"
#include "system/ThreadInvoker.h"

#include <atomic>
#include <cstring>
#include <memory>
#include <type_traits>
#include <utility>

namespace Vorin::DataModel::Objects {

/// Shows a model object that lives on another thread, at the pace of a timer. The target may be any
/// plain object: it is touched on its own thread alone, which an invoker leads to.
///
/// The proxy belongs to one thread, that of its timer provider; see TCaptureProxyFace. The info is
/// a copy, made at the construction.
///
/// Construction and `Disconnect` (which the destructor calls) wait for the target's thread, so that
/// thread must not be waiting for this one then. When the invoker reaches no thread any more, they
/// do their work on the spot. Once `Disconnect` has returned nothing of the proxy is known to the
/// target.
///
/// Target, invoker and timer provider are not owned. Invoker and timer provider outlive the proxy;
/// the target outlives the proxy or its `Disconnect`, after which the proxy must not be read or
/// written.
template <class T, class I>
class TConstCaptureValueMTProxy : public TCaptureProxyFace<T, I> {
    using Face = TCaptureProxyFace<T, I>;

public:
    TConstCaptureValueMTProxy(TConstProxyTarget<T, I> proxyTarget,
                              System::IThreadInvoker* threadInvoker,
                              System::ITimerProvider* timerProvider,
                              int refreshMilliseconds = Face::kDefaultRefreshTime)
        : Face(timerProvider, refreshMilliseconds), invoker(threadInvoker), target(proxyTarget) {
        RunThere(&TConstCaptureValueMTProxy::ConnectThere);
        TConstCaptureValueMTProxy::TakeValue();
        isConnected = true;
    }

    ~TConstCaptureValueMTProxy() override { TConstCaptureValueMTProxy::Disconnect(); }

    const I& GetInfo() const override { return info; }

    void Disconnect() override {
        if (std::exchange(isConnected, false)) {
            RunThere(&TConstCaptureValueMTProxy::DisconnectThere);
        }
    }

protected:
    bool IsConnected() const { return isConnected; }
    System::IThreadInvoker& GetInvoker() { return *invoker; }

    bool TakeValue() override {
        const Core::CAutoLock held(holderLock);
        return this->Cache().TakeFrom(holder);
    }

private:
    using Command = Core::TCommand<TConstCaptureValueMTProxy>;

    void RunThere(void (TConstCaptureValueMTProxy::*function)()) {
        Command command(this, function);
        if (!invoker->InvokeSync(&command, Core::kDontOwn)) {
            (this->*function)();
        }
    }

    // From here on: on the target's thread.

    void ConnectThere() {
        info.CopyFrom(target.GetInfo());
        target.GetValueChangedEvents().Connect(valueChanged);
        target.GetGesture().GetCaptureEvents().Connect(captured);
        target.GetGesture().GetReleaseEvents().Connect(released);
        this->StartCaptured(target.GetGesture());
        OnValueChanged();
    }

    void DisconnectThere() {
        target.GetGesture().GetReleaseEvents().Disconnect(released);
        target.GetGesture().GetCaptureEvents().Disconnect(captured);
        target.GetValueChangedEvents().Disconnect(valueChanged);
    }

    void OnValueChanged() {
        const Core::CAutoLock held(holderLock);
        target.ReadInto(holder);
    }
    void OnCaptured() { this->OnSourceCaptured(); }
    void OnReleased() { this->OnSourceReleased(); }

    typename TKindOf<I>::Info info;
    System::IThreadInvoker* invoker;
    TConstProxyTarget<T, I> target;
    bool isConnected = false;
    System::CCriticalSection holderLock; // innermost
    TValueHolder<T> holder;              // what the target had last; under holderLock
    Command valueChanged{this, &TConstCaptureValueMTProxy::OnValueChanged};
    Command captured{this, &TConstCaptureValueMTProxy::OnCaptured};
    Command released{this, &TConstCaptureValueMTProxy::OnReleased};
};

namespace Details {

/// A call on its way to another thread, counted until it ran or was dropped.
class CCountedCall final : public Core::ICommand {
public:
    CCountedCall(std::unique_ptr<Core::ICommand> counted, std::shared_ptr<std::atomic<int>> calls)
        : command(std::move(counted)), underWay(std::move(calls)) {
        ++*underWay;
    }
    ~CCountedCall() override { --*underWay; }
    CCountedCall(const CCountedCall&) = delete;
    CCountedCall& operator=(const CCountedCall&) = delete;

    void Execute() override { command->Execute(); }

private:
    std::unique_ptr<Core::ICommand> command;
    std::shared_ptr<std::atomic<int>> underWay;
};

/// A member function of `object` as a command with a copy of its argument.
template <class C, class T>
std::unique_ptr<Core::ICommand> MakeCall(std::type_identity_t<C>& object, void (C::*function)(T),
                                         std::type_identity_t<T> value) {
    using Call = Core::TArgCommand<C, T>;
    using Wrapper = Core::TArgCommandWrapper<Call>;
    const Call call(&object, function);
    if constexpr (std::is_same_v<T, const char*>) {
        const std::size_t bytes = std::strlen(value) + 1;
        auto copy = std::make_unique<char[]>(bytes);
        std::memcpy(copy.get(), value, bytes);
        return std::make_unique<Wrapper>(call, copy.release(), Core::kOwn);
    } else {
        return std::make_unique<Wrapper>(call, value);
    }
}

} // namespace Details

/// The same with a way to write. Writes and gestures are posted to the target's thread in their
/// order, and are seen here at once.
///
/// While something posted is on its way the target is behind, and nothing is taken from it: what is
/// seen here does not jump back to an older value or gesture and forth again.
///
/// What is posted knows the target alone, not the proxy. The target outlives it: it dies on its own
/// thread behind what was posted, or when the invoker is gone.
template <class T, class I>
class TCaptureValueMTProxy
    : public TConstCaptureValueMTProxy<T, I>,
      public virtual TICaptureObjectTimerProxy<TIConstCaptureObject<T, I>, TICaptureObject<T, I>> {
    using Base = TConstCaptureValueMTProxy<T, I>;

public:
    TCaptureValueMTProxy(TProxyTarget<T, I> proxyTarget, System::IThreadInvoker* threadInvoker,
                         System::ITimerProvider* timerProvider,
                         int refreshMilliseconds = Base::kDefaultRefreshTime)
        : Base(proxyTarget, threadInvoker, timerProvider, refreshMilliseconds),
          target(proxyTarget) {}

    /// Clamps a number to the info, stores the value, posts it in any case, and notifies when it is
    /// a change.
    void SetValue(T value) override {
        const bool differs = this->StoreOwn(value);
        const T stored = this->GetValue();
        Post(target.Visit([&stored](auto& object) {
            using Target = std::remove_reference_t<decltype(object)>;
            return Details::MakeCall(object, &Target::SetValue, stored);
        }));
        if (differs) {
            this->NotifyValueChanged();
        }
    }

    void Capture() override { PostCaptured(true, &Core::ICapture::Capture); }
    void Release() override { PostCaptured(false, &Core::ICapture::Release); }

    void OnTimer() override {
        if (!IsTargetBehind()) {
            Base::OnTimer();
        }
    }

protected:
    bool TakeValue() override { return !IsTargetBehind() && Base::TakeValue(); }

private:
    bool IsTargetBehind() const { return *underWay > 0; }

    void Post(std::unique_ptr<Core::ICommand> command) {
        if (this->IsConnected()) {
            // False says that there is no thread any more to take it: then it is dropped.
            static_cast<void>(this->GetInvoker().InvokeAsync(
                new Details::CCountedCall(std::move(command), underWay), Core::kOwn));
        }
    }

    void PostCaptured(bool held, void (Core::ICapture::*function)()) {
        const bool wasHeld = this->ExchangeCaptured(held);
        Post(target.Visit([function](Core::ICapture& object) -> std::unique_ptr<Core::ICommand> {
            return std::make_unique<Core::TCommand<Core::ICapture>>(&object, function);
        }));
        if (wasHeld != held) {
            this->NotifyCaptured(held);
        }
    }

    TProxyTarget<T, I> target;
    const std::shared_ptr<std::atomic<int>> underWay = std::make_shared<std::atomic<int>>(0);
};

/// The forms for curves and surfaces. Every change of the target counts as a new object.
template <class T, class I>
using TConstObjectMTProxy = TConstCaptureValueMTProxy<T, I>;
template <class T, class I>
using TObjectMTProxy = TCaptureValueMTProxy<T, I>;

} // namespace Vorin::DataModel::Objects
