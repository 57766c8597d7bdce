#pragma once

#include "datamodel/controls/StringViewer.h"
#include "datamodel/controls/TargetHold.h"

namespace Vorin::DataModel::Controls {

/// Shows a string and writes it.
///
/// A gesture in progress moves along to another target, and ends with the control. `Release` lets
/// go of what this control holds, never of what another one does.
class CStringControl : public CBaseStringViewer,
                       public virtual Objects::ICaptureString,
                       public virtual Core::TIConnect<Objects::ICaptureString> {
public:
    explicit CStringControl(Objects::ICaptureString& initialTarget)
        : CBaseStringViewer(initialTarget), target(&initialTarget), hold(initialTarget) {}

    void Connect(Objects::ICaptureString& newTarget) override {
        target = &newTarget;
        hold.MoveTo(newTarget);
        ConnectObject(newTarget);
    }

    void SetValue(const char* text) override { target->SetValue(text); }

    void Capture() override {
        GetOwnCapture().Capture();
        hold.Capture();
    }

    void Release() override {
        if (hold.IsHeld()) {
            GetOwnCapture().Release();
            hold.Release();
        }
    }

    Objects::ICaptureString& GetTarget() const { return *target; }

private:
    Objects::ICaptureString* target;
    CTargetHold hold;
};

} // namespace Vorin::DataModel::Controls
