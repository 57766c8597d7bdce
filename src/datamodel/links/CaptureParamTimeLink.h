#pragma once

#include "datamodel/links/CaptureObjectTimeLink.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel::Objects {

/// A parameter follows another one smoothly, in a straight line over time.
class CCaptureParamTimeLink : public TCaptureObjectTimeLink<IConstCaptureParam, ICaptureParam> {
public:
    using TCaptureObjectTimeLink::TCaptureObjectTimeLink;

protected:
    bool Prepare() override;
    bool Advance(double t) override;

private:
    double from = 0.0;
    double to = 0.0;
};

} // namespace Vorin::DataModel::Objects
