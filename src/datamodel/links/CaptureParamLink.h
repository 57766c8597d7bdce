#pragma once

#include "datamodel/links/CaptureObjectLink.h"
#include "datamodel/links/ParamTransform.h"

namespace Vorin::DataModel::Objects {

/// A parameter follows another one through a function, mirrored or not, by value or by position, or
/// takes part in its moves.
///
/// A ring of links ends by itself; CChangePass says what bounds chains.
class CCaptureParamLink : public TParamLink<TCaptureObjectLink<IConstCaptureParam, ICaptureParam>> {
protected:
    void OnSourceChanged() override;
    void Resync() override { lastSourceValue = source->GetValue(); }

private:
    double lastSourceValue = 0.0;
};

} // namespace Vorin::DataModel::Objects
