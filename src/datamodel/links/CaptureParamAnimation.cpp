#include "datamodel/links/CaptureParamAnimation.h"

#include "datamodel/objects/ChangePass.h"
#include "datamodel/objects/ParamRange.h"

#include <cmath>
#include <cstring>

namespace Vorin::DataModel::Objects {

bool FindAnimationEnd(const char* word, EAnimationEnd& end) {
    if (word && std::strcmp(word, "wrap") == 0) {
        end = kAnimationWrap;
        return true;
    }
    if (word && std::strcmp(word, "stop") == 0) {
        end = kAnimationStop;
        return true;
    }
    return false;
}

void CCaptureParamAnimation::Connect(ICaptureParam& object) {
    Disconnect();
    target = &object;
    target->GetValueChangedEvents().Connect(targetChanged);
    target->GetInfo().GetInfoChangedEvents().Connect(targetInfoChanged);
    info.CopyFrom(target->GetInfo());
    OnTargetChanged();
    covered = 0.0;
    Start();
}

void CCaptureParamAnimation::Disconnect() {
    if (!target) {
        return;
    }
    Stop();
    Release();
    target->GetInfo().GetInfoChangedEvents().Disconnect(targetInfoChanged);
    target->GetValueChangedEvents().Disconnect(targetChanged);
    target = nullptr;
}

void CCaptureParamAnimation::SetValue(double newValue) {
    if (!running && IsChange(newValue, value)) {
        Store(ClampToRange(newValue, info));
    }
}

void CCaptureParamAnimation::Capture() {
    if (!ExchangeCaptured(true)) {
        if (target) {
            target->Capture();
        }
        NotifyCaptured(true);
    }
}

void CCaptureParamAnimation::Release() {
    if (ExchangeCaptured(false)) {
        if (target) {
            target->Release();
        }
        NotifyCaptured(false);
    }
}

void CCaptureParamAnimation::SetEnabled(bool enable) {
    if (enable == enabled) {
        return;
    }
    enabled = enable;
    covered = 0.0;
    Stop();
    Start();
    enableEvents.Notify();
}

void CCaptureParamAnimation::SetPaused(bool pause) {
    if (pause == paused) {
        return;
    }
    covered = GetCoveredNow();
    paused = pause;
    Stop();
    Start();
}

// The way that is behind becomes the way that lies ahead; at the end all of it is.
void CCaptureParamAnimation::SetReversed(bool reverse) {
    if (reverse == reversed) {
        return;
    }
    const double before = GetCoveredNow();
    const bool hasEnded = !running && !paused;
    covered = hasEnded ? 0.0 : 1.0 - (before - std::floor(before));
    reversed = reverse;
    Stop();
    Start();
    reverseEvents.Notify();
}

void CCaptureParamAnimation::SetDuration(double milliseconds) {
    covered = GetCoveredNow();
    durationMs = milliseconds;
    if (running) {
        stopWatch.Start();
    }
}

void CCaptureParamAnimation::SetRefreshTime(int milliseconds) {
    if (milliseconds == refreshTime) {
        return;
    }
    refreshTime = milliseconds;
    if (running) {
        timer->RemoveTimer(&timerCommand, false);
        timer->AddTimer(refreshTime, &timerCommand);
    }
}

double CCaptureParamAnimation::GetCoveredNow() const {
    if (!running) {
        return covered;
    }
    const double now = covered + stopWatch.GetMilliseconds() / durationMs;
    // A duration next to nothing passes more runs than a double counts: the end, like none at all.
    return durationMs > 0.0 && std::isfinite(now) ? now : 1.0;
}

void CCaptureParamAnimation::Start() {
    if (enabled && !paused && target && (covered < 1.0 || end == kAnimationWrap)) {
        running = true;
        stopWatch.Start();
        timer->AddTimer(refreshTime, &timerCommand);
    }
}

void CCaptureParamAnimation::Stop() {
    if (running) {
        running = false;
        stopWatch.Stop();
        timer->RemoveTimer(&timerCommand, false);
    }
}

void CCaptureParamAnimation::Store(double newValue) {
    value = newValue;
    const CChangePass pass;
    if (target && pass.IsAllowed()) {
        const CScopedFlag writing(updating);
        target->SetValue(value);
    }
    NotifyValueChanged();
}

void CCaptureParamAnimation::OnTimer() {
    double position = GetCoveredNow();
    if (position >= 1.0 && (end == kAnimationStop || !(durationMs > 0.0))) {
        covered = position = 1.0;
        Stop();
    } else {
        position -= std::floor(position);
    }
    const double passed = reversed ? 1.0 - position : position;
    // Clamped for what rounding adds at the ends, and for a range that is too wide to go through.
    Store(ClampToRange(info.GetMin() + (info.GetMax() - info.GetMin()) * passed, info));
}

void CCaptureParamAnimation::OnTargetChanged() {
    // A listener of the info may have disconnected while Connect was at it.
    if (target && !updating && IsChange(target->GetValue(), value)) {
        value = target->GetValue();
        NotifyValueChanged();
    }
}

void CCaptureParamAnimation::OnTargetInfoChanged() { info.CopyFrom(target->GetInfo()); }

} // namespace Vorin::DataModel::Objects
