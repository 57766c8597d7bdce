#pragma once

#include "containers/Vector.h"
#include "datamodel/objects/CaptureObject.h"
#include "system/RealtimeEventProvider.h"

#include <atomic>
#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

/// A parameter as the host's side of the plug-in holds it: any thread may read and write it, the
/// audio thread included.
class IHostParam : public virtual DataModel::Objects::ICaptureParam {
public:
    /// Takes a value, within the info's range, and tells nobody. True when it differs from the one
    /// before; NaN is not taken. [any, audio]
    virtual bool Store(double value) = 0;

    /// Tells that the value changed: what follows a Store. [any, audio]
    virtual void NotifyChanged() = 0;

    /// Tells what the audio thread could not tell at the time, because another thread was
    /// connecting to the events just then. [any, audio]
    virtual void TellKept() = 0;
};

using IHostParams = Containers::IVector<IHostParam>;

/// The parameter itself. What listens to its events may be called on the audio thread. [any, audio]
class CHostParam : public virtual IHostParam {
public:
    /// Copies the info; the value is its default.
    explicit CHostParam(const DataModel::Objects::IConstParamInfo& source);
    CHostParam(const CHostParam&) = delete;
    CHostParam& operator=(const CHostParam&) = delete;

    const DataModel::Objects::IConstParamInfo& GetInfo() const override { return info; }
    Core::IEventProvider& GetValueChangedEvents() override { return valueChanged; }
    Core::IEventProvider& GetCaptureEvents() override { return captureEvents; }
    Core::IEventProvider& GetReleaseEvents() override { return releaseEvents; }

    // Acquire and release: a reader that sees a value also sees the mark set before it that a state
    // is being restored.
    double GetValue() const override { return value.load(std::memory_order_acquire); }
    bool IsCaptured() const override { return captured.load(std::memory_order_relaxed); }

    void SetValue(double newValue) override;
    void Capture() override;
    void Release() override;

    bool Store(double newValue) override;
    void NotifyChanged() override { valueChanged.Notify(); }
    void TellKept() override;

protected:
    /// A gesture has begun, or ended, of which the listeners are told next: once for each, whatever
    /// threads capture and release at once. [any, audio]
    virtual void OnCaptured() {}
    virtual void OnReleased() {}

private:
    const DataModel::Objects::CParamInfo info;
    std::atomic<double> value;
    std::atomic<bool> captured{false};
    System::CRealtimeEventProvider valueChanged;
    System::CRealtimeEventProvider captureEvents;
    System::CRealtimeEventProvider releaseEvents;
};

/// One parameter of class `T` per info; what `T` wants beside the info is handed on, the index
/// last.
template <class T>
class THostParams : public IHostParams {
public:
    template <class Infos, class... Args>
    explicit THostParams(const Infos& infos, Args&&... args) {
        for (int i = 0; i < infos.GetCount(); ++i) {
            if constexpr (sizeof...(Args) == 0) {
                params.push_back(std::make_unique<T>(infos.Get(i)));
            } else {
                params.push_back(std::make_unique<T>(infos.Get(i), args..., i));
            }
        }
    }

    int GetCount() const override { return static_cast<int>(params.size()); }
    const T& Get(int index) const override { return *params[static_cast<std::size_t>(index)]; }
    T& Get(int index) override { return *params[static_cast<std::size_t>(index)]; }

private:
    std::vector<std::unique_ptr<T>> params;
};

/// The parameters of a plug-in without a host, which the program itself sets.
using CHostParams = THostParams<CHostParam>;

} // namespace Vorin::Audio::Plugin
