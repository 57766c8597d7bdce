#pragma once

#include "core/Enable.h"
#include "datamodel/controls/ParamViewer.h"
#include "datamodel/controls/TargetHold.h"

namespace Vorin::DataModel::Controls {

/// A parameter as a position that can be set. [gui]
///
/// A gesture, as a drag is, runs so:
/// 1. `Capture` at its begin;
/// 2. any number of `SetPosition` and `SetToDefault`;
/// 3. `Release` at its end.
class IParamControl : public virtual IParamViewer,
                      public virtual Core::ICapture,
                      public virtual Core::IEnable {
public:
    /// What is written to; the same as what is shown.
    virtual Objects::ICaptureParam& GetTarget() const = 0;

    /// Moves the value to a position, limited to 0 to 1. A disabled control ignores it, and NaN is
    /// no position.
    virtual void SetPosition(double newPosition) = 0;
    virtual void SetToDefault() = 0;

    /// How far a page key moves the position.
    virtual double GetStep() const = 0;

    /// Fine mode: each step becomes as many as the fine ratio says. A parameter that has not so
    /// many values refuses it. A continuum has no steps: its widget moves more slowly instead.
    virtual void SetFineMode(bool enable) = 0;
    virtual bool GetFineMode() const = 0;

    /// At least 1.
    virtual void SetFineRatio(int newRatio) = 0;
    virtual int GetFineRatio() const = 0;

    /// Both show the source as captured, with nothing done to the source, until it is released. For
    /// a widget that has the gesture of another one to show.
    virtual void CaptureSource() = 0;
    virtual void HoldSource() = 0;
};

/// Shows a parameter and writes it.
///
/// Capture and release work when disabled too, so that no gesture stays open. A gesture in progress
/// moves along to another target, and ends with the control.
class CParamControl : public CBaseParamViewer,
                      public virtual IParamControl,
                      public virtual Core::TIConnect<Objects::ICaptureParam> {
public:
    explicit CParamControl(Objects::ICaptureParam& initialTarget);

    void SetEnabled(bool enabled) override { enable.SetEnabled(enabled); }
    bool IsEnabled() const override { return enable.IsEnabled(); }
    Core::IEventProvider& GetEnableEvents() override { return enable.GetEnableEvents(); }

    /// Ends fine mode: the steps to go back to are those of the previous object.
    void Connect(Objects::ICaptureParam& newTarget) override;

    void Capture() override;
    void SetPosition(double newPosition) override;
    void SetToDefault() override;
    void Release() override;
    Objects::ICaptureParam& GetTarget() const override { return *target; }
    double GetStep() const override { return step; }
    void SetFineMode(bool enabled) override;
    bool GetFineMode() const override { return fine; }
    void SetFineRatio(int newRatio) override;
    int GetFineRatio() const override { return fineRatio; }
    void CaptureSource() override { GetSourceMirror().Capture(); }
    void HoldSource() override { GetSourceMirror().Capture(); }

private:
    void RefineSteps();
    void Write(double value);

    Core::CEnable enable;
    Objects::ICaptureParam* target;
    double step = 5.0;
    int fineRatio = 10;
    bool fine = false;
    CTargetHold hold;
};

} // namespace Vorin::DataModel::Controls
