#include "datamodel/links/CaptureParamLink.h"

namespace Vorin::DataModel::Objects {

void CCaptureParamLink::OnSourceChanged() {
    const double value = source->GetValue();
    const double last = lastSourceValue;
    // Stored ahead of the write: a target that feeds back into the source brings us here again, and
    // then the way from here is what counts.
    lastSourceValue = value;
    if (!target || (updating && value == last)) {
        return;
    }
    const IConstParamInfo& info = source->GetInfo();
    Write(GetNextValue(MapSourceValue(last, info, IsNormalized()),
                       MapSourceValue(value, info, IsNormalized()), *target));
}

} // namespace Vorin::DataModel::Objects
