#pragma once

#include "datamodel/links/MultipleCaptureObjectLink.h"
#include "datamodel/links/MuxFunction.h"
#include "datamodel/links/ParamTransform.h"
#include "datamodel/objects/CaptureObject.h"

#include <limits>
#include <vector>

namespace Vorin::DataModel::Objects {

/// A parameter follows what a mux function makes of many others, on the way that a link has. With
/// normalized positions it is the positions of the sources that the mux function is given.
class CMultipleCaptureParamLink
    : public TParamLink<TMultipleCaptureObjectLink<IConstCaptureParam, ICaptureParam>> {
public:
    /// A word of FindMuxFunction. A change of it while the link runs writes the target, unless the
    /// link is differential: no source has moved.
    void SetMuxFunction(const char* word);

    /// The link passes nothing on while what the mux function gives lies below `min` or above
    /// `max`. At first it passes everything.
    void SetTriggerRange(double min, double max);

protected:
    void OnSourceChanged() override;
    void Resync() override { lastSourceValue = GetMuxed(); }
    void OnMappingChanged() override;

private:
    double GetMuxed();

    MuxFunction muxFunction = FindMuxFunction(nullptr);
    double lastSourceValue = 0.0; // of the mux function
    double triggerMin = -std::numeric_limits<double>::infinity();
    double triggerMax = std::numeric_limits<double>::infinity();
    std::vector<double> values; // one per source, kept so that a change allocates nothing
};

} // namespace Vorin::DataModel::Objects
