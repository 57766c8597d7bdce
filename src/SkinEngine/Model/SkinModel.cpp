#include "SkinEngine/Model/SkinModel.h"

#include <utility>

namespace Vorin::AppEngine {

CSkinModel::CSkinModel() = default;

CSkinModel::~CSkinModel() {
    CSkinModel::Disconnect();
    // Last made, first destroyed: an object may have been made on top of an older one.
    objects.Clear();
    while (!owned.empty()) {
        owned.pop_back();
    }
}

bool CSkinModel::Register(const char* id, std::unique_ptr<CModelObject> object) {
    // By this type: once refused, the object must not be looked at for another one.
    Runtime::IDynamicObject* added = object.get();
    const bool isAdded = objects.Add(id, object.release(), Core::kOwn);
    if (!id || objects.GetOwn(id) != added) {
        return false;
    }
    const bool isAdopted = !parent || parent->Adopt({id, added});
    return isAdded && isAdopted;
}

bool CSkinModel::AddParam(const char* id, Objects::ICaptureParam* object, Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddCurve(const char* id, Objects::ICaptureCurve* object, Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddSurface(const char* id, Objects::ICaptureSurface* object,
                            Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddString(const char* id, Objects::ICaptureString* object,
                           Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddProperty(const char* id, Objects::ICaptureProperty* object,
                             Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddAction(const char* id, Objects::IAction* object, Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddCollection(const char* id, DataModel::ICollection* object,
                               Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddConstParam(const char* id, Objects::IConstCaptureParam* object,
                               Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddConstCurve(const char* id, Objects::IConstCaptureCurve* object,
                               Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddConstSurface(const char* id, Objects::IConstCaptureSurface* object,
                                 Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddConstString(const char* id, Objects::IConstCaptureString* object,
                                Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddConstProperty(const char* id, Objects::IConstCaptureProperty* object,
                                  Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddConstAction(const char* id, Objects::IConstAction* object,
                                Core::EOwnership owner) {
    return AddObject(id, object, owner);
}
bool CSkinModel::AddConstCollection(const char* id, DataModel::IConstCollection* object,
                                    Core::EOwnership owner) {
    return AddObject(id, object, owner);
}

namespace {

template <class I, class P>
I& GetOrPlaceholder(const CDynamicObjectsDictionary& objects, const char* id, P& placeholder) {
    I* object = FindModelObject<I>(objects, id);
    return object ? *object : placeholder;
}

/// Whether a state can carry the object's value.
bool IsWritableObject(Runtime::IDynamicObject* object) {
    return CastModelObject<Objects::ICaptureParam>(object) ||
           CastModelObject<Objects::ICaptureCurve>(object) ||
           CastModelObject<Objects::ICaptureSurface>(object) ||
           CastModelObject<Objects::ICaptureString>(object) ||
           CastModelObject<Objects::ICaptureProperty>(object) ||
           CastModelObject<DataModel::ICollection>(object);
}

} // namespace

Objects::ICaptureParam& CSkinModel::GetParam(const char* id) {
    return GetOrPlaceholder<Objects::ICaptureParam>(objects, id, placeholders.param);
}
Objects::IConstCaptureParam& CSkinModel::GetConstParam(const char* id) {
    return GetOrPlaceholder<Objects::IConstCaptureParam>(objects, id, placeholders.param);
}
Objects::ICaptureCurve& CSkinModel::GetCurve(const char* id) {
    return GetOrPlaceholder<Objects::ICaptureCurve>(objects, id, placeholders.curve);
}
Objects::IConstCaptureCurve& CSkinModel::GetConstCurve(const char* id) {
    return GetOrPlaceholder<Objects::IConstCaptureCurve>(objects, id, placeholders.curve);
}
Objects::ICaptureSurface& CSkinModel::GetSurface(const char* id) {
    return GetOrPlaceholder<Objects::ICaptureSurface>(objects, id, placeholders.surface);
}
Objects::IConstCaptureSurface& CSkinModel::GetConstSurface(const char* id) {
    return GetOrPlaceholder<Objects::IConstCaptureSurface>(objects, id, placeholders.surface);
}
Objects::ICaptureString& CSkinModel::GetString(const char* id) {
    return GetOrPlaceholder<Objects::ICaptureString>(objects, id, placeholders.string);
}
Objects::IConstCaptureString& CSkinModel::GetConstString(const char* id) {
    return GetOrPlaceholder<Objects::IConstCaptureString>(objects, id, placeholders.string);
}
Objects::IConstAction& CSkinModel::GetAction(const char* id) {
    return GetOrPlaceholder<Objects::IConstAction>(objects, id, placeholders.action);
}

bool CSkinModel::SetPersistent(const char* id) {
    Runtime::IDynamicObject* object = objects.GetOwn(id);
    if (!IsWritableObject(object) || persistentObjects.GetOwn(id)) {
        return false;
    }
    AdoptPersistent({id, object});
    return true;
}

void CSkinModel::AdoptPersistent(const Entry& entry) {
    if (objects.GetOwn(entry.id) == entry.object && !persistentObjects.GetOwn(entry.id)) {
        persistentObjects.Add(entry.id, entry.object, Core::kDontOwn);
    }
    if (parent) {
        parent->AdoptPersistent(entry);
    }
}

void CSkinModel::AddLink(DataModel::IDisconnectAndPause& link) {
    AddDisconnect(link);
    link.SetPaused(areLinksPaused);
    links.push_back(&link);
}

// What is told, here and below, may be foreign code that adds more.

void CSkinModel::PauseLinks(bool pause) {
    areLinksPaused = pause;
    for (std::size_t i = 0; i < links.size(); ++i) {
        links[i]->SetPaused(pause);
    }
}

void CSkinModel::AddTimeDriven(DataModel::IDisconnectAndPause& link) {
    AddDisconnect(link);
    AddResting([&link](bool rest) { link.SetPaused(rest); });
}

void CSkinModel::AddResting(std::function<void(bool)> setResting) {
    setResting(!IsEnabled());
    resting.push_back(std::move(setResting));
}

void CSkinModel::AddUse(CModelObject& object, std::function<void()> letGo) {
    uses.push_back(std::make_unique<CObjectUse>(object, std::move(letGo)));
}

void CSkinModel::Rest(bool rest) {
    for (std::size_t i = 0; i < resting.size(); ++i) {
        resting[i](rest);
    }
}

void CSkinModel::SetEnabled(bool enable) {
    if (enable != IsEnabled()) {
        Rest(!enable);
        enabled.SetEnabled(enable);
    }
}

bool CSkinModel::AttachTo(CSkinModel& parentModel) {
    parent = &parentModel;
    bool isWhole = true;
    for (const Entry& entry : objects.GetEntries()) {
        isWhole = parent->Adopt(entry) && isWhole;
    }
    for (const Entry& entry : persistentObjects.GetEntries()) {
        parent->AdoptPersistent(entry);
    }
    return isWhole;
}

/// The object of an item becomes known here, and wherever this model is attached to.
bool CSkinModel::Adopt(const Entry& entry) {
    const bool isAdded = objects.Add(entry.id, entry.object, Core::kDontOwn);
    const bool isAdopted = !parent || parent->Adopt(entry);
    return isAdded && isAdopted;
}

void CSkinModel::Forget(const Entry& entry) {
    // Another object may have the identifier here.
    if (objects.GetOwn(entry.id) == entry.object) {
        exposure.Remove(entry.id);
        persistentObjects.Remove(entry.id);
        objects.Remove(entry.id);
    }
    if (parent) {
        parent->Forget(entry);
    }
}

void CSkinModel::Detach() {
    for (const Entry& entry : objects.GetEntries()) {
        if (parent) {
            parent->Forget(entry);
        }
        dynamic_cast<CModelObject&>(*entry.object).NotifyRelease();
    }
    parent = nullptr;
}

void CSkinModel::Disconnect() {
    PauseLinks(true);
    Rest(true);
    uses.clear();
    for (Core::IDisconnect* connected : disconnects) {
        connected->Disconnect();
    }
    disconnects.clear();
    links.clear();
    resting.clear();
    Detach();
}

} // namespace Vorin::AppEngine
