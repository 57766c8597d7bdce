#include "datamodel/links/MultipleCaptureParamLink.h"

namespace Vorin::DataModel::Objects {

void CMultipleCaptureParamLink::SetMuxFunction(const char* word) {
    muxFunction = FindMuxFunction(word);
    OnMappingChanged();
    PassNow();
}

// Disconnected sources are not read: enabling takes them anew.
void CMultipleCaptureParamLink::OnMappingChanged() {
    if (IsEnabled()) {
        Resync();
    }
}

void CMultipleCaptureParamLink::SetTriggerRange(double min, double max) {
    triggerMin = min;
    triggerMax = max;
    PassNow();
}

void CMultipleCaptureParamLink::OnSourceChanged() {
    const double last = lastSourceValue;
    const double muxed = GetMuxed();
    lastSourceValue = muxed;
    if (IsUpdating() && muxed == last) {
        return;
    }
    if (muxed < triggerMin || muxed > triggerMax) {
        return;
    }
    Write(GetNextValue(last, muxed, *target));
}

// Each time from the sources themselves: a source that was changed by what this link set off is not
// told of, since its command is running then.
double CMultipleCaptureParamLink::GetMuxed() {
    const int count = GetSourcesCount();
    values.clear();
    for (int i = 0; i < count; ++i) {
        const IConstCaptureParam& source = GetSource(i);
        values.push_back(MapSourceValue(source.GetValue(), source.GetInfo(), IsNormalized()));
    }
    return muxFunction(values.data(), count);
}

} // namespace Vorin::DataModel::Objects
