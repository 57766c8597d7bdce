// The links from many objects to one.

#include "SkinEngine/Model/CommonParams.h"
#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/LinkElement.h"
#include "SkinEngine/Model/ModelElement.h"

#include "datamodel/links/MultipleCaptureCurveLink.h"
#include "datamodel/links/MultipleCaptureParamLink.h"
#include "datamodel/links/MultipleCaptureStringLink.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace Vorin::AppEngine {

namespace {

/// The sources of a link, which it takes one by one and drops all at once.
template <class S, class T>
class TLinkSources {
public:
    using CLink = DataModel::TMultipleCaptureObjectLink<S, T>;

    explicit TLinkSources(CLink& sourcesLink) : link(sourcesLink) {}

    void Add(const char*, S& source) {
        sources.push_back(&source);
        link.AddSource(&source);
    }

    void Remove(S& source) {
        std::erase(sources, &source);
        link.RemoveSources();
        for (S* left : sources) {
            link.AddSource(left);
        }
    }

private:
    CLink& link;
    std::vector<S*> sources;
};

/// Connects "from", a list, by the interface `S`, and "to", by `T`, once all objects exist.
template <class S, class T>
void ConnectMultiLinkEnds(CModelElement& element,
                          DataModel::TMultipleCaptureObjectLink<S, T>& link) {
    using CLink = DataModel::TMultipleCaptureObjectLink<S, T>;
    using CSources = TLinkSources<S, T>;
    auto& sources = element.GetModel().Own(std::make_unique<CSources>(link));
    for (const std::string& id : SplitIds(element.Get("from"))) {
        element.AddLinkCommand(std::make_unique<TConnectByRefWithIdCommand<CSources, S>>(
            element.GetFactory(), id.c_str(), sources, &CSources::Add,
            [&sources](const char*, S& source) { sources.Remove(source); }));
    }
    element.AddLinkCommand(std::make_unique<TConnectCommand<CLink, T>>(
        element.GetFactory(), element.Get("to"), link, &CLink::SetTarget));
}

/// Gives a link without switches of its own to the model. The model keeps it.
template <class L>
L& AddPlainMultiLink(CModelElement& element) {
    L& link = element.GetModel().Own(std::make_unique<L>());
    SetLinkTrigger(element, link);
    element.GetModel().AddLink(link);
    link.SetEnabled(true);
    return link;
}

} // namespace

bool MakeParamMultiLink(CModelElement& element) {
    if (!RequireEnds(element)) {
        return false;
    }
    auto made = std::make_unique<Objects::CMultipleCaptureParamLink>();
    made->SetMuxFunction(element.Get("mux_function"));
    made->SetNormalized(element.IsTrue("normalized"));
    double triggerMin = -std::numeric_limits<double>::infinity();
    double triggerMax = std::numeric_limits<double>::infinity();
    element.GetDouble("trigger_min", triggerMin);
    element.GetDouble("trigger_max", triggerMax);
    made->SetTriggerRange(triggerMin, triggerMax);
    auto& link = AddLink(element, std::move(made));
    AddReverseParam(element, link);
    ConnectMultiLinkEnds<Objects::IConstCaptureParam, Objects::ICaptureParam>(element, link);
    return true;
}

bool MakeCurveMultiLink(CModelElement& element) {
    if (!RequireEnds(element)) {
        return false;
    }
    auto& link = AddPlainMultiLink<Objects::CMultipleCaptureCurveLink>(element);
    link.SetMuxFunction(element.Get("mux_function"));
    ConnectMultiLinkEnds<Objects::IConstCaptureCurve, Objects::ICaptureCurve>(element, link);
    return true;
}

bool MakeStringMultiLink(CModelElement& element) {
    if (!RequireEnds(element)) {
        return false;
    }
    auto& link = AddPlainMultiLink<Objects::CMultipleCaptureStringLink>(element);
    link.SetSeparator(element.Get("separator"));
    ConnectMultiLinkEnds<Objects::IConstCaptureString, Objects::ICaptureString>(element, link);
    return true;
}

} // namespace Vorin::AppEngine
