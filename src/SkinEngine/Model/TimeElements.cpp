// What runs by time: histories and animators.

#include "SkinEngine/Model/CommonParams.h"
#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/InfoAttributes.h"
#include "SkinEngine/Model/LinkCommands.h"
#include "SkinEngine/Model/ModelElement.h"

#include "datamodel/links/CaptureParamAnimation.h"
#include "datamodel/objects/CaptureValueWrapper.h"
#include "datamodel/time/CaptureSurfaceFromCurveOverTime.h"
#include "datamodel/time/CurveFromParamOverTime.h"

namespace Vorin::AppEngine {

namespace {

/// A history runs while neither the skin has paused it nor the model rests.
template <class T>
class THistorySwitch {
public:
    explicit THistorySwitch(T& switchedHistory) : history(switchedHistory) {}

    bool IsPaused() const { return paused; }
    void SetPaused(bool pause) {
        paused = pause;
        Apply();
    }
    void SetResting(bool rest) {
        resting = rest;
        Apply();
    }

private:
    void Apply() { history.SetEnabled(!paused && !resting); }

    T& history;
    bool paused = false;
    bool resting = false;
};

/// "paused", with "id.paused".
template <class T>
void AddHistorySwitch(CModelElement& element, T& history) {
    CSkinModel& model = element.GetModel();
    using CSwitch = THistorySwitch<T>;
    auto& made = model.Own(std::make_unique<CSwitch>(history));
    made.SetPaused(element.IsTrue("paused"));
    model.AddResting([&made](bool rest) { made.SetResting(rest); });
    const std::string id = GetUsedSubId(element, "paused");
    if (!id.empty()) {
        AddPropertyParam(element, id,
                         new Objects::TCaptureValueWrapper(
                             made, &CSwitch::IsPaused, &CSwitch::SetPaused,
                             MakeSwitchInfo(id, "running;paused", made.IsPaused())));
    }
}

/// Adds a history by its interface `I`, and connects it to the object that `sourceAttribute` names,
/// by the interface `S`.
template <class I, class S, class T>
bool AddHistory(CModelElement& element, std::unique_ptr<T> made, const char* sourceAttribute) {
    T& history = *made;
    int milliseconds = 5000;
    element.GetInteger("duration_ms", milliseconds);
    history.SetDuration(milliseconds);
    element.GetModel().AddDisconnect(history);
    if (!element.Add<I>(std::move(made))) {
        return false;
    }
    AddRefreshTimeParam(element, history);
    AddHistorySwitch(element, history);
    element.AddLinkCommand(std::make_unique<TConnectByRefCommand<T, S>>(
        element.GetFactory(), element.GetText(sourceAttribute), history, &T::Connect,
        [&history] { history.Disconnect(); }));
    return true;
}

void SetHistoryTexts(CModelElement& element, Objects::CObjectInfo& info) {
    info.SetName(element.GetText("name"));
    info.SetComment(element.GetText("comment"));
}

} // namespace

bool MakeCurveFromParamOverTime(CModelElement& element) {
    if (!element.RequireId("Cannot create curve, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetCurveCount(element.GetId()) == 0) {
        return true;
    }
    auto made = std::make_unique<Objects::CCurveFromParamOverTime>(&element.GetServices().timers,
                                                                   element.GetServices().clock);
    SetHistoryTexts(element, made->GetInfo());
    // Until the parameter is connected, which the axis then follows.
    ReadInfoAttributes(element, made->GetInfo().GetYInfo());
    return AddHistory<Objects::IConstCaptureCurve, Objects::IConstCaptureParam>(
        element, std::move(made), "param_id");
}

bool MakeSurfaceFromCurveOverTime(CModelElement& element) {
    if (!element.RequireId("Cannot create surface, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetSurfaceCount(element.GetId()) == 0) {
        return true;
    }
    auto made = std::make_unique<Objects::CCaptureSurfaceFromCurveOverTime>(
        &element.GetServices().timers, element.GetServices().clock);
    SetHistoryTexts(element, made->GetInfo());
    ReadInfoAttributes(element, made->GetInfo().GetZInfo());
    return AddHistory<Objects::IConstCaptureSurface, Objects::IConstCaptureCurve>(
        element, std::move(made), "curve_id");
}

/// Made whether anything uses it or not: it moves another parameter.
bool MakeParamAnimator(CModelElement& element) {
    if (!element.RequireId("Cannot create parameter animator, id field is empty.")) {
        return false;
    }
    using CAnimation = Objects::CCaptureParamAnimation;
    auto made =
        std::make_unique<CAnimation>(&element.GetServices().timers, element.GetServices().clock);
    CAnimation& animation = *made;
    double duration = 0.0;
    if (element.GetDouble("duration_ms", duration)) {
        animation.SetDuration(duration);
    }
    Objects::EAnimationEnd end = animation.GetEnd();
    Objects::FindAnimationEnd(element.Get("end"), end);
    animation.SetEnd(end);
    if (!element.Add<Objects::ICaptureParam>(std::move(made))) {
        return false;
    }
    element.GetModel().AddTimeDriven(animation);
    AddReverseParam(element, animation);
    AddEnabledParam(element, animation);
    AddRefreshTimeParam(element, animation);
    element.AddLinkCommand(
        std::make_unique<TConnectByRefCommand<CAnimation, Objects::ICaptureParam>>(
            element.GetFactory(), element.GetText("param_id"), animation, &CAnimation::Connect,
            [&animation] { animation.Disconnect(); }));
    return true;
}

} // namespace Vorin::AppEngine
