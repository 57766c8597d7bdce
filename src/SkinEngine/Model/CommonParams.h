#pragma once

#include "SkinEngine/Model/ModelElement.h"
#include "core/Enable.h"
#include "core/RefreshTime.h"
#include "core/Reverse.h"
#include "datamodel/ParamInfo.h"

#include <string>

namespace Vorin::AppEngine {

// The parameters that links, animators and histories have in common: under the identifier of the
// element, ".", and a word, when something uses them. Each of these also gives the object what the
// attribute of the same name says, with or without an identifier.

/// On, unless "enabled" is "false".
void AddEnabledParam(CModelElement& element, Core::IEnable& target);

void AddReverseParam(CModelElement& element, Core::IReverse& target);

/// In milliseconds; without the attribute the object keeps its own.
void AddRefreshTimeParam(CModelElement& element, Core::IRefreshTime& target);

/// The identifier of such a parameter; empty when it is not to be made.
std::string GetUsedSubId(CModelElement& element, const char* word);

/// The info of a switch: two labels parted by ";".
Objects::CParamInfo MakeSwitchInfo(const std::string& name, const char* labels, bool initial);

/// Makes a property of an object a parameter of the model, which owns the wrapper. It lets go of
/// the object with the model.
template <class W>
void AddPropertyParam(CModelElement& element, const std::string& id, W* wrapper) {
    element.GetModel().AddDisconnect(*wrapper);
    if (!element.GetModel().template AddObject<Objects::ICaptureParam>(id.c_str(), wrapper,
                                                                       Core::kOwn)) {
        element.SetFailed();
    }
}

} // namespace Vorin::AppEngine
