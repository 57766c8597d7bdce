#include "audio/plugin/HostParam.h"

#include <algorithm>
#include <cmath>

namespace Vorin::Audio::Plugin {

CHostParam::CHostParam(const DataModel::Objects::IConstParamInfo& source)
    : info([&source] {
          DataModel::Objects::CParamInfo copy;
          copy.CopyFrom(source);
          return copy;
      }()),
      value(info.GetDefault()) {}

bool CHostParam::Store(double newValue) {
    if (std::isnan(newValue)) {
        return false;
    }
    // Not std::clamp: an inverted range is not defined there.
    const double within = std::max(info.GetMin(), std::min(info.GetMax(), newValue));
    const double old = value.exchange(within, std::memory_order_acq_rel);
    return within < old || within > old;
}

void CHostParam::SetValue(double newValue) {
    if (Store(newValue)) {
        NotifyChanged();
    }
}

void CHostParam::Capture() {
    if (!captured.exchange(true)) {
        OnCaptured();
        captureEvents.Notify();
    }
}

void CHostParam::Release() {
    if (captured.exchange(false)) {
        OnReleased();
        releaseEvents.Notify();
    }
}

void CHostParam::TellKept() {
    captureEvents.NotifyIfKept();
    valueChanged.NotifyIfKept();
    releaseEvents.NotifyIfKept();
}

} // namespace Vorin::Audio::Plugin
