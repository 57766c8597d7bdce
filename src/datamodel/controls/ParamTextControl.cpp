#include "datamodel/controls/ParamTextControl.h"

#include "datamodel/objects/ParamRange.h"

#include <cmath>

namespace Vorin::DataModel::Controls {

CParamTextControl::CParamTextControl(Objects::ICaptureParam& initialTarget)
    : CBaseParamTextViewer(initialTarget), target(&initialTarget), hold(initialTarget) {}

void CParamTextControl::Connect(Objects::ICaptureParam& newTarget) {
    target = &newTarget;
    ConnectObject(newTarget);
    hold.MoveTo(newTarget);
}

void CParamTextControl::SetValue(const char* typed) {
    SetText(typed);
    const bool isWritten = WriteText();
    NotifyChanged();
    if (isWritten) {
        Update();
    }
}

/// Reads the text that was stored: storing it may have been the end of what was typed, when that
/// was this control's own text.
bool CParamTextControl::WriteText() {
    double value = 0.0;
    if (!GetDataToText().TextToValue(GetValue(), value) || std::isnan(value)) {
        return false;
    }
    target->SetValue(Objects::ClampToRange(value, GetDataToText().GetInfo()));
    return true;
}

} // namespace Vorin::DataModel::Controls
