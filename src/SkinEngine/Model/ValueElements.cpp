// PARAM, CURVE, STRING, and the parameters that are read from curves and surfaces.

#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/InfoAttributes.h"
#include "SkinEngine/Model/LinkCommands.h"
#include "SkinEngine/Model/ModelElement.h"

#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/CaptureString.h"
#include "datamodel/time/CaptureCurveValueParam.h"
#include "datamodel/time/CaptureSurfaceValueParam.h"

namespace Vorin::AppEngine {

namespace {

/// Runs a script at each change of a value. The object outlives it, or its `Disconnect`.
class CValueScript : public virtual Core::IDisconnect {
public:
    CValueScript(IScriptHost& scriptHost, const char* scriptText,
                 Core::IValueChangedEventProvider& scriptedValue)
        : host(scriptHost), script(scriptText), value(scriptedValue) {
        value.GetValueChangedEvents().Connect(changed);
    }
    ~CValueScript() override { CValueScript::Disconnect(); }

    void Disconnect() override { value.GetValueChangedEvents().Disconnect(changed); }

private:
    void OnChanged() { static_cast<void>(host.Run(script.c_str())); }

    IScriptHost& host;
    const std::string script;
    Core::IValueChangedEventProvider& value;
    Core::TCommand<CValueScript> changed{this, &CValueScript::OnChanged};
};

void AddValueScript(CModelElement& element, Objects::CCaptureParam& param) {
    const char* script = element.GetText("on_value_changed_script");
    if (!*script) {
        return;
    }
    if (IScriptHost* host = element.GetServices().scriptHost) {
        auto& added = element.GetModel().Own(std::make_unique<CValueScript>(*host, script, param));
        element.GetModel().AddDisconnect(added);
    } else {
        element.Warn(std::string(element.GetId()) +
                     ": on_value_changed_script is ignored, current engine does not supports "
                     "scripts.");
    }
}

} // namespace

bool MakeParam(CModelElement& element) {
    if (!element.RequireId("Cannot create parameter, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetParamCount(element.GetId()) == 0) {
        return true;
    }
    Objects::CParamInfo info;
    ReadInfoAttributes(element, info);
    auto param = std::make_unique<Objects::CCaptureParam>(info);
    Objects::CCaptureParam& made = *param;
    if (!element.Add<Objects::ICaptureParam>(std::move(param))) {
        return false;
    }
    AddValueScript(element, made);
    return true;
}

bool MakeCurve(CModelElement& element) {
    if (!element.RequireId("Cannot create curve, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetCurveCount(element.GetId()) == 0) {
        return true;
    }
    // Without a value of its own the curve is the constant that the default of y says.
    Objects::CCurveInfo info;
    ReadCurveInfoAttributes(element, info);
    return element.Add<Objects::ICaptureCurve>(std::make_unique<Objects::CCaptureCurve>(info));
}

bool MakeString(CModelElement& element) {
    if (!element.RequireId("Cannot create string, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetStringCount(element.GetId()) == 0) {
        return true;
    }
    const Objects::CStringInfo info(element.GetText("name"), element.GetText("comment"), false,
                                    element.GetText("default"));
    return element.Add<Objects::ICaptureString>(std::make_unique<Objects::CCaptureString>(info));
}

bool MakeCurveValueParam(CModelElement& element) {
    if (!element.RequireId("Cannot create curve, id field is empty.")) {
        return false;
    }
    if (!*element.GetText("curve_id") || !*element.GetText("x_param_id")) {
        return element.Fail("Cannot create curve, an id field is missing.");
    }
    if (element.GetUsage().GetParamCount(element.GetId()) == 0) {
        return true;
    }
    auto made = std::make_unique<Objects::CCaptureCurveValueParam>();
    Objects::CCaptureCurveValueParam& param = *made;
    element.GetModel().AddDisconnect(param);
    if (!element.Add<Objects::IConstCaptureParam>(std::move(made))) {
        return false;
    }
    using Param = Objects::CCaptureCurveValueParam;
    element.AddLinkCommand(std::make_unique<TConnectCommand<Param, Objects::IConstCaptureCurve>>(
        element.GetFactory(), element.Get("curve_id"), param, &Param::SetCurve));
    element.AddLinkCommand(std::make_unique<TConnectCommand<Param, Objects::IConstCaptureParam>>(
        element.GetFactory(), element.Get("x_param_id"), param, &Param::SetXParam));
    return true;
}

bool MakeSurfaceValueParam(CModelElement& element) {
    if (!element.RequireId("Cannot create surface, id field is empty.")) {
        return false;
    }
    if (!*element.GetText("surface_id") || !*element.GetText("x_param_id") ||
        !*element.GetText("y_param_id")) {
        return element.Fail("Cannot create surface, an id field is missing.");
    }
    if (element.GetUsage().GetParamCount(element.GetId()) == 0) {
        return true;
    }
    auto made = std::make_unique<Objects::CCaptureSurfaceValueParam>();
    Objects::CCaptureSurfaceValueParam& param = *made;
    element.GetModel().AddDisconnect(param);
    if (!element.Add<Objects::IConstCaptureParam>(std::move(made))) {
        return false;
    }
    using Param = Objects::CCaptureSurfaceValueParam;
    element.AddLinkCommand(std::make_unique<TConnectCommand<Param, Objects::IConstCaptureSurface>>(
        element.GetFactory(), element.Get("surface_id"), param, &Param::SetSurface));
    element.AddLinkCommand(std::make_unique<TConnectCommand<Param, Objects::IConstCaptureParam>>(
        element.GetFactory(), element.Get("x_param_id"), param, &Param::SetXParam));
    element.AddLinkCommand(std::make_unique<TConnectCommand<Param, Objects::IConstCaptureParam>>(
        element.GetFactory(), element.Get("y_param_id"), param, &Param::SetYParam));
    return true;
}

} // namespace Vorin::AppEngine
