#pragma once

#include "SkinEngine/Model/CommonParams.h"
#include "SkinEngine/Model/LinkCommands.h"
#include "SkinEngine/Model/ModelElement.h"
#include "datamodel/links/CaptureObjectLink.h"
#include "datamodel/links/LinkSwitch.h"

#include <memory>
#include <utility>

namespace Vorin::AppEngine {

/// False, with an error that names the first one missing, unless "from" and "to" are there.
bool RequireEnds(CModelElement& element);

/// "trigger_condition".
void SetLinkTrigger(CModelElement& element, DataModel::CLinkSwitch& link);

/// Gives a link to the model, with what all links have: a trigger condition, and the switch
/// "enabled". The model keeps it, and runs it as `add` has it.
template <class L>
L& AddLink(CModelElement& element, std::unique_ptr<L> made = std::make_unique<L>(),
           void (CSkinModel::*add)(DataModel::IDisconnectAndPause&) = &CSkinModel::AddLink) {
    L& link = element.GetModel().Own(std::move(made));
    SetLinkTrigger(element, link);
    (element.GetModel().*add)(link);
    AddEnabledParam(element, link);
    return link;
}

/// Connects "from", by the interface `S`, and "to", by `T`, once all objects exist.
template <class L, class S, class T>
void ConnectLinkEnds(CModelElement& element, L& link) {
    using CBase = DataModel::TBaseCaptureObjectLink<S, T>;
    element.AddLinkCommand(std::make_unique<TConnectCommand<L, S, CBase>>(
        element.GetFactory(), element.Get("from"), link, &CBase::SetSource));
    element.AddLinkCommand(std::make_unique<TConnectCommand<L, T, CBase>>(
        element.GetFactory(), element.Get("to"), link, &CBase::SetTarget));
}

} // namespace Vorin::AppEngine
