#include "datamodel/controls/ParamControl.h"

#include "datamodel/controls/ToInt.h"

#include <algorithm>
#include <cmath>

namespace Vorin::DataModel::Controls {

CParamControl::CParamControl(Objects::ICaptureParam& initialTarget)
    : CBaseParamViewer(initialTarget), target(&initialTarget), hold(initialTarget) {}

void CParamControl::Connect(Objects::ICaptureParam& newTarget) {
    SetFineMode(false);
    target = &newTarget;
    ConnectObject(newTarget);
    hold.MoveTo(newTarget);
}

void CParamControl::Capture() {
    GetOwnCapture().Capture();
    hold.Capture();
}

void CParamControl::Release() {
    GetOwnCapture().Release();
    hold.Release();
}

void CParamControl::SetPosition(double newPosition) {
    if (IsEnabled() && !std::isnan(newPosition)) {
        Write(PositionToValue(std::clamp(newPosition, 0.0, 1.0)));
    }
}

void CParamControl::SetToDefault() {
    if (IsEnabled()) {
        Write(GetInfo().GetDefault());
    }
}

/// A response curve or a mapper may have no value at a position. The object would take its NaN for
/// max: better that nothing moves.
void CParamControl::Write(double value) {
    if (!std::isnan(value)) {
        target->SetValue(value);
    }
}

void CParamControl::SetFineMode(bool enabled) {
    if (enabled == fine) {
        return;
    }
    fine = enabled;
    const int count = GetPositionsCount();
    if (count == kContinuous) {
        return;
    }
    if (fine) {
        RefineSteps();
    } else {
        SetPositionsCount((count - 1) / fineRatio + 1);
    }
}

void CParamControl::RefineSteps() {
    const int count = GetPositionsCount();
    const double wanted = static_cast<double>(count - 1) * fineRatio + 1.0;
    SetPositionsCount(ToInt(wanted));
    if (static_cast<double>(GetPositionsCount()) != wanted) {
        SetPositionsCount(count);
        fine = false;
    }
}

void CParamControl::SetFineRatio(int newRatio) {
    newRatio = std::max(newRatio, 1);
    if (newRatio == fineRatio) {
        return;
    }
    const bool wasFine = fine;
    if (wasFine) {
        SetFineMode(false);
    }
    fineRatio = newRatio;
    if (wasFine) {
        SetFineMode(true);
    }
}

} // namespace Vorin::DataModel::Controls
