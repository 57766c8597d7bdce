#pragma once

#include "core/Command.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"
#include "datamodel/objects/ValueHolder.h"

#include <functional>
#include <type_traits>
#include <utility>

namespace Vorin::DataModel::Objects {

/// What the read-only value wrappers have in common: a model object over a function that reads a
/// value somewhere, and a change event beside it.
///
/// `GetValue` reads anew each time; a text lives as long as the target says. After `Disconnect` it
/// gives what was told last. The thread is that of the target, whatever `P` is.
template <class I, class IC, class T, class P>
class TConstCaptureValueAccess : public TCaptureState<P>,
                                 public virtual TIConstCaptureObjectWrapper<T, I> {
public:
    ~TConstCaptureValueAccess() override { TConstCaptureValueAccess::Disconnect(); }

    T GetValue() const override { return reads ? read() : told.Get(); }
    const I& GetInfo() const override { return info; }

    /// To change the info.
    IC& GetInfo() { return info; }

    /// Lets go of the target, which is not read again. A target with a change event lives until
    /// then.
    void Disconnect() override {
        if (targetEvents) {
            targetEvents->Disconnect(targetChanged);
            targetEvents = nullptr;
        }
        reads = false;
    }

protected:
    using Read = std::function<T()>;

    /// Copies the info. `events` may be null.
    TConstCaptureValueAccess(Read reader, Core::IEventProvider* events, const I& source)
        : read(std::move(reader)), told(read()), targetEvents(events) {
        info.CopyFrom(source);
        if (targetEvents) {
            targetEvents->Connect(targetChanged);
        }
    }

    bool HasTargetEvents() const { return targetEvents != nullptr; }

    /// `keepReading` false: the target does not have this value, which stands until its next event.
    void SetTold(T value, bool keepReading) {
        told.Set(value);
        reads = reads && keepReading;
    }

private:
    void OnTargetChanged() {
        reads = true;
        told.Set(read());
        this->NotifyValueChanged();
    }

    IC info;
    Read read;
    bool reads = true;
    TValueHolder<T> told;
    Core::IEventProvider* targetEvents; // null: none, or disconnected
    Core::TCommand<TConstCaptureValueAccess> targetChanged{
        this, &TConstCaptureValueAccess::OnTargetChanged};
};

/// The same with a function that writes, which may be null.
template <class I, class IC, class T, class P>
class TCaptureValueAccess : public TCapturable<TConstCaptureValueAccess<I, IC, T, P>>,
                            public virtual TICaptureObjectWrapper<T, I> {
    using Base = TConstCaptureValueAccess<I, IC, T, P>;

public:
    /// Clamps a number to the info. When that is no change of the value, nothing happens. Else the
    /// target is written, and listeners are told once: by the target's change event when it has
    /// one, otherwise from here. Without a write function the value is kept and told here.
    void SetValue(T value) override {
        if constexpr (std::is_same_v<T, double>) {
            value = ClampToRange(value, std::as_const(*this).GetInfo());
        }
        const TValueHolder<T> given(value); // the text may be what is about to be replaced
        if (!given.Differs(this->GetValue())) {
            return;
        }
        // A listener may disconnect: neither the function nor who tells may change meanwhile.
        const Write writer = write;
        const bool isToldByTarget = writer && this->HasTargetEvents();
        this->SetTold(given.Get(), static_cast<bool>(writer));
        if (writer) {
            writer(given.Get());
        }
        if (!isToldByTarget) {
            this->NotifyValueChanged();
        }
    }

    void Disconnect() override {
        Base::Disconnect();
        write = nullptr;
    }

protected:
    using Read = typename Base::Read;
    using Write = std::function<void(T)>;

    TCaptureValueAccess(Read reader, Write writer, Core::IEventProvider* events, const I& source)
        : TCapturable<Base>(std::move(reader), events, source), write(std::move(writer)) {}

private:
    Write write;
};

} // namespace Vorin::DataModel::Objects
