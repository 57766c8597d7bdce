#pragma once

#include "datamodel/controls/ParamTextViewer.h"
#include "datamodel/controls/TargetHold.h"

namespace Vorin::DataModel::Controls {

/// A parameter as text that can be typed. [gui]
class IParamTextControl : public virtual IParamTextViewer,
                          public virtual TICaptureValue<const char*> {};

/// Shows a parameter as text and writes what is typed.
///
/// A gesture in progress moves along to another target, and ends with the control.
class CParamTextControl : public CBaseParamTextViewer,
                          public virtual IParamTextControl,
                          public virtual Core::TIConnect<Objects::ICaptureParam> {
public:
    explicit CParamTextControl(Objects::ICaptureParam& initialTarget);

    void Connect(Objects::ICaptureParam& newTarget) override;

    /// A text that reads as a number sets the parameter, limited to its range, and the value as it
    /// was set takes its place. Any other text, null and "nan" among them, sets nothing and stays
    /// as it was typed up to the next update.
    void SetValue(const char* typed) override;
    void Capture() override { hold.Capture(); }
    void Release() override { hold.Release(); }

    Objects::ICaptureParam& GetTarget() const { return *target; }

private:
    bool WriteText();

    Objects::ICaptureParam* target;
    CTargetHold hold;
};

} // namespace Vorin::DataModel::Controls
