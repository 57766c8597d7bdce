#include "SkinEngine/Model/CommonParams.h"

#include "datamodel/EnumToText.h"
#include "datamodel/objects/CaptureValueWrapper.h"

#include <algorithm>

namespace Vorin::AppEngine {

namespace {

constexpr int kLongestRefreshTime = 1000000; // milliseconds

} // namespace

std::string GetUsedSubId(CModelElement& element, const char* word) {
    std::string id = element.GetSubId(word);
    if (!id.empty() && element.GetUsage().GetParamCount(id.c_str()) == 0) {
        id.clear();
    }
    return id;
}

Objects::CParamInfo MakeSwitchInfo(const std::string& name, const char* labels, bool initial) {
    return {Objects::kParamBoolean,
            name.c_str(),
            "",
            "",
            new Objects::CEnumToText(labels),
            nullptr,
            0.0,
            1.0,
            initial ? 1.0 : 0.0};
}

void AddEnabledParam(CModelElement& element, Core::IEnable& target) {
    const bool initial = element.IsNotFalse("enabled");
    target.SetEnabled(initial);
    const std::string id = GetUsedSubId(element, "enabled");
    if (!id.empty()) {
        AddPropertyParam(element, id,
                         new Objects::TCaptureValueWrapper(
                             target, &Core::IEnable::IsEnabled, &Core::IEnable::SetEnabled,
                             &Core::IEnable::GetEnableEvents,
                             MakeSwitchInfo(id, "disabled;enabled", initial)));
    }
}

void AddReverseParam(CModelElement& element, Core::IReverse& target) {
    const bool initial = element.IsTrue("reverse");
    target.SetReversed(initial);
    const std::string id = GetUsedSubId(element, "reverse");
    if (!id.empty()) {
        AddPropertyParam(element, id,
                         new Objects::TCaptureValueWrapper(
                             target, &Core::IReverse::IsReversed, &Core::IReverse::SetReversed,
                             &Core::IReverse::GetReverseEvents,
                             MakeSwitchInfo(id, "normal;reverse", initial)));
    }
}

void AddRefreshTimeParam(CModelElement& element, Core::IRefreshTime& target) {
    int milliseconds = 0;
    if (element.GetInteger("refresh_time_ms", milliseconds)) {
        target.SetRefreshTime(std::clamp(milliseconds, 0, kLongestRefreshTime));
    }
    const std::string id = GetUsedSubId(element, "refresh_time_ms");
    if (!id.empty()) {
        const Objects::CParamInfo info(Objects::kParamInteger, id.c_str(), "ms", "", nullptr,
                                       nullptr, 0.0, kLongestRefreshTime, target.GetRefreshTime());
        AddPropertyParam(
            element, id,
            new Objects::TCaptureValueWrapper(target, &Core::IRefreshTime::GetRefreshTime,
                                              &Core::IRefreshTime::SetRefreshTime, info));
    }
}

} // namespace Vorin::AppEngine
