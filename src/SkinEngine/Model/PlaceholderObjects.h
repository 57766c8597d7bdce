#pragma once

#include "datamodel/objects/Action.h"
#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/CaptureString.h"
#include "datamodel/objects/CaptureSurface.h"

namespace Vorin::AppEngine {

/// What a model hands out for identifiers that it does not know, so that a skin with errors still
/// opens. They take values like any other object; the parameter has no range.
struct CPlaceholderObjects {
    CPlaceholderObjects() {
        param.GetInfo().SetName("?");
        param.GetInfo().SetComment("Parameter not found");
        curve.GetInfo().SetName("Curve not found");
        surface.GetInfo().SetName("Surface not found");
        string.SetValue("?");
        string.GetInfo().SetName("String not found");
        action.GetInfo().SetName("Action not found");
    }

    DataModel::Objects::CCaptureParam param;
    DataModel::Objects::CCaptureCurve curve;
    DataModel::Objects::CCaptureSurface surface;
    DataModel::Objects::CCaptureString string;
    DataModel::Objects::CAction action;
};

} // namespace Vorin::AppEngine
