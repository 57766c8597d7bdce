#include "vst/VSTParamAdapter.h"

#include <algorithm>
#include <cmath>

namespace VorinExt::VSTPlugin {

using namespace Vorin::DataModel::Objects;

CVSTParamAdapter::CVSTParamAdapter(const IConstParamInfo& source, AudioEffectX& hostedEffect,
                                   int firstHostIndex, int index)
    : CHostParam(source), effect(hostedEffect), hostIndex(firstHostIndex + index) {}

float CVSTParamAdapter::GetNormalised() const {
    const double position = GetInfo().GetPositionMapper().ValueToPosition(GetValue());
    // The order takes NaN to 0.
    return static_cast<float>(std::min(1.0, std::max(0.0, position)));
}

void CVSTParamAdapter::TakeNormalised(float normalised) {
    if (std::isnan(normalised) || normalised == GetNormalised()) {
        return;
    }
    const double position = std::clamp(normalised, 0.0F, 1.0F);
    if (Store(GetInfo().GetPositionMapper().PositionToValue(position))) {
        NotifyChanged();
    }
}

void CVSTParamAdapter::SetValue(double newValue) {
    const bool isChanged = Store(newValue);
    if (IsCaptured()) {
        effect.setParameterAutomated(hostIndex, GetNormalised());
    } else {
        effect.setParameter(hostIndex, GetNormalised());
    }
    if (isChanged) {
        NotifyChanged();
    }
}

} // namespace VorinExt::VSTPlugin
