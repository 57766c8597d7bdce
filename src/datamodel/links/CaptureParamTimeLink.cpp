#include "datamodel/links/CaptureParamTimeLink.h"

namespace Vorin::DataModel::Objects {

// A source of NaN is no way to go: it neither is clamped nor differs.
bool CCaptureParamTimeLink::Prepare() {
    const IConstParamInfo& info = target->GetInfo();
    from = target->GetValue();
    to = source->GetValue();
    to = info.GetMax() < to ? info.GetMax() : to;
    to = to < info.GetMin() ? info.GetMin() : to;
    return from < to || from > to;
}

bool CCaptureParamTimeLink::Advance(double t) {
    const bool arrives = t >= 1.0;
    if (target->GetValue() != to) {
        // In the end exactly the goal, whatever the sum would round to.
        Write(arrives ? to : from + (to - from) * t);
    }
    return arrives;
}

} // namespace Vorin::DataModel::Objects
