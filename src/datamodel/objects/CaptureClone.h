#pragma once

#include "core/Command.h"
#include "core/Ownership.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"
#include "datamodel/objects/DefaultValue.h"

namespace Vorin::DataModel::Objects {

/// What read-only curves, surfaces and custom properties have in common: a value that is an object
/// of type `F`, described by an `Info` with the interface `I`. One thread.
///
/// Until there is a value the default of the info is shown, and each change of the info is a change
/// of the value. `GetValue` is valid until the next value, or without one until the next default.
template <class F, class I, class Info>
class TConstCaptureClone : public TCaptureState<>,
                           public virtual TIConstCaptureObject<const F&, I> {
public:
    using CValue = F;
    using CInfo = I;

    TConstCaptureClone() { Connect(); }

    /// Copies the info.
    explicit TConstCaptureClone(const I& source) {
        info.CopyFrom(source);
        Connect();
    }

    /// With `kOwn` takes `initial`, which may be null, over; with `kDontOwn` it outlives this
    /// object.
    TConstCaptureClone(const I& source, const F* initial, Core::EOwnership ownership)
        : value(initial, ownership) {
        info.CopyFrom(source);
        Connect();
    }

    const F& GetValue() const override {
        const F* held = value.Get();
        return held ? *held : GetDefaultOf(static_cast<const I&>(info));
    }

    const I& GetInfo() const override { return info; }

    /// To change the info.
    Info& GetInfo() { return info; }

protected:
    /// For derived classes that make the value. Null goes back to the default. Does not notify.
    void HoldValue(const F* newValue, Core::EOwnership ownership) {
        value.Set(newValue, ownership);
    }

private:
    void Connect() { info.GetInfoChangedEvents().Connect(infoChanged); }

    void OnInfoChanged() {
        if (!value.Get()) {
            NotifyValueChanged();
        }
    }

    Info info;
    Core::TCommand<TConstCaptureClone> infoChanged{this, &TConstCaptureClone::OnInfoChanged};
    Core::TOwnership<const F> value;
};

/// Makes `B`, a TConstCaptureClone, one to read and write.
template <class B>
class TCaptureClone : public TCapturable<B>,
                      public virtual TICaptureObject<const typename B::CValue&, typename B::CInfo> {
public:
    using TCapturable<B>::TCapturable;

    /// Keeps a clone and notifies. Objects are not compared: the value that is held already is
    /// cloned and told of like any other. One that gives no clone is ignored.
    void SetValue(const typename B::CValue& newValue) override {
        if (const auto* clone = newValue.Clone()) {
            this->HoldValue(clone, Core::kOwn);
            this->NotifyValueChanged();
        }
    }
};

} // namespace Vorin::DataModel::Objects
