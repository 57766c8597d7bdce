#pragma once

#include "core/Command.h"
#include "datamodel/links/CaptureForward.h"
#include "datamodel/links/LinkSwitch.h"
#include "datamodel/objects/ChangePass.h"

namespace Vorin::DataModel {

/// Listens to one source and writes to one target; how is up to the derived class. `S` and `T` are
/// the types of capture object at either end.
///
/// Whoever holds the source is seen to hold the target too, so that the target gets one gesture
/// around all changes. Either end may be null: then nothing happens. CLinkSwitch has the rules.
template <class S, class T>
class TBaseCaptureObjectLink : public CLinkSwitch {
public:
    TBaseCaptureObjectLink() = default;

    /// Releases the target and disconnects. A derived class that listens to more, or that must do
    /// more to stop, switches off in its own destructor.
    ~TBaseCaptureObjectLink() override { Switch(false); }

    S* GetSource() const { return source; }
    T* GetTarget() const { return target; }

    /// Both let go of the old end as a link that is switched off does, and start anew with the new
    /// one, which may be null.
    virtual void SetTarget(T* newTarget) {
        ChangeSwitchedOff([this, newTarget] {
            if (target) {
                OnDisconnectTarget();
            }
            target = newTarget;
            if (target) {
                OnConnectTarget();
            }
        });
    }

    virtual void SetSource(S* newSource) {
        ChangeSwitchedOff([this, newSource] {
            LetGoOfSource();
            source = newSource;
        });
    }

    void Disconnect() override {
        SetSource(nullptr);
        SetTarget(nullptr);
    }

protected:
    /// The source, which is not null, has a value to pass on. Not called while the link rests.
    virtual void OnSourceChanged() = 0;

    /// The link starts: takes note of the source as it stands, without writing.
    virtual void Resync() {}

    virtual void OnConnectSource() {
        source->GetValueChangedEvents().Connect(sourceChanged);
        source->GetCaptureEvents().Connect(sourceCaptured);
        source->GetReleaseEvents().Connect(sourceReleased);
    }

    virtual void OnDisconnectSource() {
        source->GetValueChangedEvents().Disconnect(sourceChanged);
        source->GetCaptureEvents().Disconnect(sourceCaptured);
        source->GetReleaseEvents().Disconnect(sourceReleased);
    }

    virtual void OnConnectTarget() {}
    virtual void OnDisconnectTarget() {}

    /// The source is held. An object that is linked to itself is held already.
    virtual void OnCapture() {
        const CChangePass pass;
        if (IsActive() && target && IdentityOf(source) != IdentityOf(target) && pass.IsAllowed()) {
            sourceCaptureForwarded.Open(*source, *target);
            target->Capture();
        }
    }

    /// Writes, unless it is a write of this link that brought us here.
    void OnEnabled() override {
        if (source && !updating) {
            OnSourceChanged();
        }
    }

    /// The source is held no more. Deliberately also while the link rests: what was opened has to
    /// be closed.
    virtual void OnRelease() {
        if (sourceCaptureForwarded.Close() && target) {
            target->Release();
        }
    }

    /// In this order; each step is foreign code, after which everything may be different.
    void TurnOn() override {
        if (!source) {
            return;
        }
        if (!connected) {
            connected = true;
            OnConnectSource();
        }
        if (source->IsCaptured()) {
            OnCapture();
        }
        if (IsEnabled() && source) {
            Resync();
        }
        PassNow();
    }

    void TurnOff() override {
        TBaseCaptureObjectLink::OnRelease();
        if (!IsEnabled()) {
            LetGoOfSource();
        }
    }

    template <class V>
    void Write(V&& value) {
        const CChangePass pass;
        if (target && pass.IsAllowed()) {
            const CScopedFlag writing(updating);
            target->SetValue(value);
        }
    }

    // Not owned; null without one.
    S* source = nullptr;
    T* target = nullptr;

    bool updating = false; // the target is being written
    CCaptureForward sourceCaptureForwarded;

private:
    void LetGoOfSource() {
        if (connected) {
            connected = false;
            OnDisconnectSource();
        }
    }

    void HandleChanged() {
        if (IsActive()) {
            OnSourceChanged();
        }
    }
    void HandleCaptured() { OnCapture(); }
    void HandleReleased() { OnRelease(); }

    using CLink = TBaseCaptureObjectLink;
    Core::TCommand<CLink> sourceChanged{this, &CLink::HandleChanged};
    Core::TCommand<CLink> sourceCaptured{this, &CLink::HandleCaptured};
    Core::TCommand<CLink> sourceReleased{this, &CLink::HandleReleased};
    bool connected = false; // to the source
};

} // namespace Vorin::DataModel
