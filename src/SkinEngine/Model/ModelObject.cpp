#include "SkinEngine/Model/ModelObject.h"

#include "datamodel/objects/CaptureValueWrapper.h"

#include <string_view>
#include <utility>

namespace Vorin::AppEngine {

namespace {

/// Whether `word` is one of `words`, which are parted by blanks.
bool IsDerivedWord(std::string_view words, std::string_view word) {
    while (!words.empty()) {
        const std::size_t end = words.find(' ');
        if (words.substr(0, end) == word) {
            return true;
        }
        words.remove_prefix(end == std::string_view::npos ? words.size() : end + 1);
    }
    return false;
}

std::unique_ptr<CModelObject> MakeInfoObject(const Objects::IConstParamInfo& info) {
    // Read-only everywhere: the kind says so. The info belongs to the object that it describes.
    return std::make_unique<TConstModelObject<Objects::IConstParamInfo>>(
        const_cast<Objects::IConstParamInfo&>(info));
}

/// One number of a parameter's info, as a parameter to read.
std::unique_ptr<CModelObject> MakeBoundObject(Objects::IConstCaptureParam& param,
                                              const char* suffix,
                                              double (Objects::IConstParamInfo::*getter)() const) {
    Objects::CParamInfo info;
    info.CopyFrom(param.GetInfo());
    info.SetName((std::string(info.GetName()) + suffix).c_str());
    const Objects::IConstParamInfo& source = param.GetInfo();
    using CBound =
        Objects::TConstCaptureValueWrapper<const Objects::IConstParamInfo, Objects::IConstParamInfo,
                                           Objects::CParamInfo, double>;
    auto bound = std::make_shared<CBound>(source, getter,
                                          &Objects::IConstObjectInfo::GetInfoChangedEvents, info);
    Objects::IConstCaptureParam& object = *bound;
    return std::make_unique<TConstModelObject<Objects::IConstCaptureParam>>(object,
                                                                            std::move(bound));
}

} // namespace

const char* GetModelObjectKindName(EModelObjectKind kind) {
    static constexpr const char* kNames[] = {"param",    "curve",  "surface",    "string",
                                             "property", "action", "collection", "info"};
    return kNames[kind];
}

CModelObject* CModelObject::GetDerived(const char* word) {
    if (!IsDerivedWord(GetDerivedWords(), word)) {
        return nullptr;
    }
    std::unique_ptr<CModelObject>& object = derived[word];
    if (!object) {
        object = MakeDerived(word);
    }
    return object.get();
}

void CModelObject::NotifyRelease() {
    for (auto& entry : derived) {
        entry.second->NotifyRelease();
    }
    releaseEvents.Notify();
}

std::unique_ptr<CModelObject> CModelObject::MakeDerived(const std::string&) { return nullptr; }

namespace Details {

std::unique_ptr<CModelObject> MakeDerivedObject(Objects::IConstCaptureParam& param,
                                                const std::string& word) {
    if (word == "info") {
        return MakeInfoObject(param.GetInfo());
    }
    if (word == "default") {
        return MakeBoundObject(param, " Default", &Objects::IConstParamInfo::GetDefault);
    }
    if (word == "min") {
        return MakeBoundObject(param, " Min", &Objects::IConstParamInfo::GetMin);
    }
    return MakeBoundObject(param, " Max", &Objects::IConstParamInfo::GetMax);
}

std::unique_ptr<CModelObject> MakeDerivedObject(Objects::IConstCaptureCurve& curve,
                                                const std::string& word) {
    const Objects::IConstCurveInfo& info = curve.GetInfo();
    return MakeInfoObject(word == "x_info" ? info.GetXInfo() : info.GetYInfo());
}

std::unique_ptr<CModelObject> MakeDerivedObject(Objects::IConstCaptureSurface& surface,
                                                const std::string& word) {
    const Objects::IConstSurfaceInfo& info = surface.GetInfo();
    return MakeInfoObject(word == "x_info"   ? info.GetXInfo()
                          : word == "y_info" ? info.GetYInfo()
                                             : info.GetZInfo());
}

} // namespace Details

} // namespace Vorin::AppEngine
