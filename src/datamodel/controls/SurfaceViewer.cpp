#include "datamodel/controls/SurfaceViewer.h"

namespace Vorin::DataModel::Controls {

double CSurfaceViewer::GetValue(bool clamp, double xPosition, double yPosition) const {
    const double x = Axis<0>().CParamViewerConfig::PositionToValue(xPosition);
    const double y = Axis<1>().CParamViewerConfig::PositionToValue(yPosition);
    return Axis<2>().CParamViewerConfig::ValueToPosition(clamp,
                                                         GetObject().GetValue().Evaluate(x, y));
}

} // namespace Vorin::DataModel::Controls
