#pragma once

#include "core/Command.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"
#include "datamodel/objects/ParamRange.h"
#include "system/MTEventProvider.h"

namespace Vorin::DataModel::Objects {

/// A parameter with an info and a value of its own, always within the info's range. `P` is the
/// event provider.
///
/// A range that shrinks moves the value and fires the change event. So does one that grows out from
/// under an odd range; see ClampToRange for those.
template <class P>
class TStoredCaptureParam : public TCapturable<TCaptureState<P>>, public virtual ICaptureParam {
public:
    /// The value 0, with a default info.
    TStoredCaptureParam() { Connect(); }

    /// Copies the info; the value starts at its default.
    explicit TStoredCaptureParam(const IConstParamInfo& source) {
        info.CopyFrom(source);
        Assign(info.GetDefault());
        Connect();
    }

    const IConstParamInfo& GetInfo() const override { return info; }

    /// To change the info.
    CParamInfo& GetInfo() { return info; }

    double GetValue() const override { return value; }

    /// Clamps, then stores and notifies when that is a change.
    void SetValue(double newValue) override { Assign(newValue); }

private:
    void Connect() { info.GetInfoChangedEvents().Connect(infoChanged); }

    void OnInfoChanged() { Assign(value); }

    void Assign(double newValue) {
        newValue = ClampToRange(newValue, info);
        if (IsChange(newValue, value)) {
            value = newValue;
            this->NotifyValueChanged();
        }
    }

    CParamInfo info;
    Core::TCommand<TStoredCaptureParam> infoChanged{this, &TStoredCaptureParam::OnInfoChanged};
    TStateField<double, P> value{0.0};
};

/// The parameter of one thread.
class CCaptureParam : public TStoredCaptureParam<Core::CEventProvider> {
public:
    using TStoredCaptureParam::TStoredCaptureParam;

    /// Notifies GetValueSetEvents in the end, whether the value changed or not.
    void SetValue(double newValue) override {
        TStoredCaptureParam::SetValue(newValue);
        valueSet.Notify();
    }

    /// Fired by each SetValue, not by a change of the range.
    Core::IEventProvider& GetValueSetEvents() { return valueSet; }

private:
    Core::CEventProvider valueSet;
};

/// A parameter that the audio thread and the GUI thread both write. [any]
///
/// Only the notification takes a lock, that of the event, and listeners run under it on the writing
/// thread: none of them may wait for a thread that may be writing. Of two threads that write at
/// once the later one wins, and both notify. The info is the owner's: it is changed while no other
/// thread writes.
class CMTCaptureParam : public TStoredCaptureParam<System::CMTEventProvider> {
public:
    using TStoredCaptureParam::TStoredCaptureParam;
};

} // namespace Vorin::DataModel::Objects
