#pragma once

#include "SkinEngine/Model/ModelElement.h"
#include "datamodel/CurveInfo.h"
#include "datamodel/ParamInfo.h"
#include "datamodel/ParamValueCurve.h"
#include "datamodel/ParamValueToText.h"
#include "datamodel/SurfaceInfo.h"

namespace Vorin::AppEngine {

/// Reads the attributes that describe a parameter, or with a prefix such as "x_" an axis. The
/// labels of an enumeration become a text object of the model, when something uses it.
void ReadInfoAttributes(CModelElement& element, Objects::CParamInfo& info, const char* prefix = "");

/// The same for all axes, with the name and comment of the whole.
void ReadCurveInfoAttributes(CModelElement& element, Objects::CCurveInfo& info);
void ReadSurfaceInfoAttributes(CModelElement& element, Objects::CSurfaceInfo& info);

/// Reads the attributes that say how a value reads as text. `unit` is the text that "value_suffix"
/// adds.
void ReadValueTextAttributes(CModelElement& element, Objects::CParamValueToText& valueToText,
                             const std::string& unit, const char* prefix = "");

/// The response curve that an element asks for by "response_curve"; a straight line for none, and
/// for an unknown word.
Objects::EParamValueCurve GetResponseCurve(const CModelElement& element);

} // namespace Vorin::AppEngine
