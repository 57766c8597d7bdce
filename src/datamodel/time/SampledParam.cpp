#include "datamodel/time/SampledParam.h"

namespace Vorin::DataModel::Objects {

CSampledParam::~CSampledParam() { FollowInfo(nullptr); }

double CSampledParam::GetValue() const {
    double result = info.GetDefault();
    if (!sampling) {
        sampling = true;
        double sample = 0.0;
        if (Sample(sample)) {
            result = sample;
        }
        sampling = false;
    }
    return result;
}

void CSampledParam::FollowInfo(const IConstParamInfo* axis) {
    if (followed) {
        followed->GetInfoChangedEvents().Disconnect(axisChanged);
    }
    followed = axis;
    if (followed) {
        followed->GetInfoChangedEvents().Connect(axisChanged);
        OnAxisChanged();
    }
}

void CSampledParam::CEnd::Listen(Core::IValueChangedEventProvider* newValue,
                                 Core::IConstCapture* newCapture) {
    StopListening();
    value = newValue;
    capture = newCapture;
    if (value) {
        value->GetValueChangedEvents().Connect(valueCommand);
    }
    if (capture) {
        capture->GetCaptureEvents().Connect(captureCommand);
        capture->GetReleaseEvents().Connect(releaseCommand);
    }
    SetCaptured(capture && capture->IsCaptured());
}

void CSampledParam::CEnd::StopListening() {
    if (value) {
        value->GetValueChangedEvents().Disconnect(valueCommand);
    }
    if (capture) {
        capture->GetCaptureEvents().Disconnect(captureCommand);
        capture->GetReleaseEvents().Disconnect(releaseCommand);
    }
    value = nullptr;
    capture = nullptr;
}

void CSampledParam::CEnd::SetCaptured(bool isHeld) {
    if (isHeld == captured) {
        return;
    }
    captured = isHeld;
    owner.capturedEnds += isHeld ? 1 : -1;
    owner.ChangeCaptured(owner.capturedEnds > 0);
}

} // namespace Vorin::DataModel::Objects
