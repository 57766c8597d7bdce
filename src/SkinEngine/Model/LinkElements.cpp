// The links between two objects.

#include "SkinEngine/Formula/ParseFormula.h"
#include "SkinEngine/Model/CommonParams.h"
#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/InfoAttributes.h"
#include "SkinEngine/Model/LinkElement.h"
#include "SkinEngine/Model/ModelElement.h"

#include "datamodel/links/CaptureParamConnection.h"
#include "datamodel/links/CaptureParamLink.h"
#include "datamodel/links/CaptureParamTimeLink.h"
#include "datamodel/links/CaptureParamToStringLink.h"
#include "datamodel/objects/CaptureValueWrapper.h"

#include <cstring>

namespace Vorin::AppEngine {

namespace {

bool IsDifferenceMode(const CModelElement& element) {
    return std::strcmp(element.GetText("mode"), "diff") == 0;
}

/// "id.mode".
void AddModeParam(CModelElement& element, Objects::CCaptureParamLink& link) {
    const std::string id = GetUsedSubId(element, "mode");
    if (!id.empty()) {
        AddPropertyParam(element, id,
                         new Objects::TCaptureValueWrapper(
                             link, &Objects::CCaptureParamLink::IsDifferential,
                             &Objects::CCaptureParamLink::SetDifferential,
                             MakeSwitchInfo(id, "normal;diff", IsDifferenceMode(element))));
    }
}

/// The transfer curve of a link: a formula, or else a response curve. False for an invalid formula.
bool SetLinkFunction(CModelElement& element, Objects::CCaptureParamLink& link) {
    if (!element.Has("formula")) {
        link.SetResponseCurve(GetResponseCurve(element));
        return true;
    }
    auto function = ParseFunctionFormula(element.Get("formula"), element.Get("variable"));
    if (!function) {
        return element.Fail("Cannot create curve for link, invalid formula.");
    }
    link.SetFunction(function.release(), Core::kOwn);
    return true;
}

/// Makes a link of which the ends are all there is to say.
template <class L, class S, class T>
bool MakePlainLink(CModelElement& element) {
    if (!RequireEnds(element)) {
        return false;
    }
    L& link = AddLink<L>(element);
    ConnectLinkEnds<L, S, T>(element, link);
    return true;
}

} // namespace

bool RequireEnds(CModelElement& element) {
    for (const char* end : {"from", "to"}) {
        if (!*element.GetText(end)) {
            return element.Fail(std::string(element.GetName()) + ": invalid link, missing " + end +
                                " attribute.");
        }
    }
    return true;
}

void SetLinkTrigger(CModelElement& element, DataModel::CLinkSwitch& link) {
    if (std::strcmp(element.GetText("trigger_condition"), "modify") == 0) {
        link.SetTrigger(DataModel::kLinkTriggerModify);
    }
}

bool MakeParamLink(CModelElement& element) {
    if (!RequireEnds(element)) {
        return false;
    }
    auto made = std::make_unique<Objects::CCaptureParamLink>();
    made->SetDifferential(IsDifferenceMode(element));
    made->SetNormalized(element.IsTrue("normalized"));
    if (!SetLinkFunction(element, *made)) {
        return false;
    }
    auto& link = AddLink(element, std::move(made));
    AddReverseParam(element, link);
    AddModeParam(element, link);
    ConnectLinkEnds<Objects::CCaptureParamLink, Objects::IConstCaptureParam,
                    Objects::ICaptureParam>(element, link);
    return true;
}

bool MakeParamToStringLink(CModelElement& element) {
    if (!RequireEnds(element)) {
        return false;
    }
    auto& link = AddLink(element, std::make_unique<Objects::CCaptureParamToStringLink>());
    // What the link writes by itself has the unit already.
    ReadValueTextAttributes(element, link.GetValueToText(), element.Has("content") ? "{unit}" : "");
    ConnectLinkEnds<Objects::CCaptureParamToStringLink, Objects::IConstCaptureParam,
                    Objects::ICaptureString>(element, link);
    return true;
}

bool MakeParamAnimatedLink(CModelElement& element) {
    if (!RequireEnds(element)) {
        return false;
    }
    auto made = std::make_unique<Objects::CCaptureParamTimeLink>(&element.GetServices().timers,
                                                                 element.GetServices().clock);
    auto& link = AddLink(element, std::move(made), &CSkinModel::AddTimeDriven);
    double duration = 0.0;
    if (element.GetDouble("duration_ms", duration)) {
        link.SetDuration(duration);
    }
    AddRefreshTimeParam(element, link);
    ConnectLinkEnds<Objects::CCaptureParamTimeLink, Objects::IConstCaptureParam,
                    Objects::ICaptureParam>(element, link);
    return true;
}

bool MakeCurveLink(CModelElement& element) {
    return MakePlainLink<Objects::CCaptureCurveLink, Objects::IConstCaptureCurve,
                         Objects::ICaptureCurve>(element);
}

bool MakeStringLink(CModelElement& element) {
    return MakePlainLink<Objects::CCaptureStringLink, Objects::IConstCaptureString,
                         Objects::ICaptureString>(element);
}

bool MakeParamConnection(CModelElement& element) {
    for (const char* end : {"id1", "id2"}) {
        if (!*element.GetText(end)) {
            return element.Fail(std::string(element.GetName()) + ": invalid connection, missing " +
                                end + " attribute.");
        }
    }
    using CConnection = Objects::CCaptureParamConnection;
    auto& connection = AddLink(element, std::make_unique<CConnection>());
    connection.SetResponseCurve(GetResponseCurve(element));
    connection.SetDifferential(IsDifferenceMode(element));
    connection.SetNormalized(element.IsTrue("normalized"));
    // Which end gives way to the other when they are connected.
    connection.SetSyncFromFirst(std::strcmp(element.GetText("constraint"), "id2") != 0);
    AddReverseParam(element, connection);
    element.AddLinkCommand(std::make_unique<TConnectCommand<CConnection, Objects::ICaptureParam>>(
        element.GetFactory(), element.Get("id1"), connection, &CConnection::SetObject1));
    element.AddLinkCommand(std::make_unique<TConnectCommand<CConnection, Objects::ICaptureParam>>(
        element.GetFactory(), element.Get("id2"), connection, &CConnection::SetObject2));
    return true;
}

} // namespace Vorin::AppEngine
