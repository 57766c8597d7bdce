// MODEL, and the lists of identifiers.

#include "SkinEngine/Model/CommonParams.h"
#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/ModelElement.h"

#include "datamodel/objects/CaptureParam.h"

namespace Vorin::AppEngine {

namespace {

/// What the plug-in has put into the model before is refreshed as often as the model says.
void SetRefreshTimes(CModelElement& element) {
    int common = -1;
    const bool hasCommon = element.GetInteger("refresh_time_ms", common) && common >= 0;
    for (const auto& entry : element.GetModel().GetObjects().GetEntries()) {
        auto* object = dynamic_cast<CModelObject*>(entry.object);
        Core::IRefreshTime* refreshTime = object ? object->GetRefreshTime() : nullptr;
        if (!refreshTime) {
            continue;
        }
        int milliseconds = 0;
        if (element.GetInteger((std::string(entry.id) + "_refresh_time").c_str(), milliseconds)) {
            refreshTime->SetRefreshTime(milliseconds);
        } else if (hasCommon) {
            refreshTime->SetRefreshTime(common);
        }
    }
}

} // namespace

bool MakeModel(CModelElement& element) {
    SetRefreshTimes(element);
    element.GetModel().SetId(element.GetId());
    CSkinModelFactory& factory = element.GetFactory();
    if (factory.IsItem() || element.GetUsage().GetParamCount("alive") == 0) {
        return true;
    }
    auto alive =
        std::make_unique<Objects::CCaptureParam>(MakeSwitchInfo("alive", "asleep;alive", false));
    factory.SetAliveParam(alive.get());
    return element.GetModel().AddObject<Objects::IConstCaptureParam>("alive", alive.release(),
                                                                     Core::kOwn);
}

bool EndModel(CSkinModelFactory& factory) { return factory.Link(); }

bool MakePersistentObjects(CModelElement& element) {
    element.GetFactory().AddPersistentObjects(element.Has("param_ids") ? element.Get("param_ids")
                                                                       : element.Get("object_ids"));
    return true;
}

bool MakeExposedObjects(CModelElement& element) {
    element.GetFactory().AddExposedObjects(element.Get("object_ids"));
    return true;
}

} // namespace Vorin::AppEngine
