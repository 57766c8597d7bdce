#include "datamodel/controls/CurveViewer.h"

namespace Vorin::DataModel::Controls {

double CCurveViewer::GetValue(bool clamp, double position) const {
    const double x = Axis<0>().CParamViewerConfig::PositionToValue(position);
    return Axis<1>().CParamViewerConfig::ValueToPosition(clamp, GetObject().GetValue().Evaluate(x));
}

} // namespace Vorin::DataModel::Controls
