#pragma once

#include "SkinEngine/Model/DynamicObjectsDictionary.h"
#include "SkinEngine/Model/ObjectUse.h"
#include "SkinEngine/Model/PlaceholderObjects.h"
#include "SkinEngine/Model/SkinModelExposure.h"
#include "core/Disconnect.h"
#include "core/Enable.h"
#include "datamodel/links/DisconnectAndPause.h"
#include "serialization/Serializable.h"

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace Vorin::AppEngine {

/// A registry of named objects: what a skin has of its own, and what it reaches of others.
///
/// Belongs to one thread, that of its objects. Disabled at first; while it is, the objects that
/// time drives rest, and catch up when the model is enabled again. So a state is read with the
/// model disabled.
///
/// An object that is handed over with `kOwn` is the model's from then on, also when its identifier
/// is refused: false, with an error in the log, because another object has it. With `kDontOwn` it
/// outlives the model.
class ISkinModel : public virtual Serialization::ISerializable,
                   public virtual Core::IEnable,
                   public virtual Core::IDisconnect {
public:
    virtual bool AddParam(const char* id, Objects::ICaptureParam* object, Core::EOwnership) = 0;
    virtual bool AddCurve(const char* id, Objects::ICaptureCurve* object, Core::EOwnership) = 0;
    virtual bool AddSurface(const char* id, Objects::ICaptureSurface* object, Core::EOwnership) = 0;
    virtual bool AddString(const char* id, Objects::ICaptureString* object, Core::EOwnership) = 0;
    virtual bool AddProperty(const char* id, Objects::ICaptureProperty* object,
                             Core::EOwnership) = 0;
    virtual bool AddAction(const char* id, Objects::IAction* object, Core::EOwnership) = 0;
    virtual bool AddCollection(const char* id, DataModel::ICollection* object,
                               Core::EOwnership) = 0;

    virtual bool AddConstParam(const char* id, Objects::IConstCaptureParam* object,
                               Core::EOwnership) = 0;
    virtual bool AddConstCurve(const char* id, Objects::IConstCaptureCurve* object,
                               Core::EOwnership) = 0;
    virtual bool AddConstSurface(const char* id, Objects::IConstCaptureSurface* object,
                                 Core::EOwnership) = 0;
    virtual bool AddConstString(const char* id, Objects::IConstCaptureString* object,
                                Core::EOwnership) = 0;
    virtual bool AddConstProperty(const char* id, Objects::IConstCaptureProperty* object,
                                  Core::EOwnership) = 0;
    virtual bool AddConstAction(const char* id, Objects::IConstAction* object,
                                Core::EOwnership) = 0;
    virtual bool AddConstCollection(const char* id, DataModel::IConstCollection* object,
                                    Core::EOwnership) = 0;

    /// The objects by identifier; those of the items of collections are among them.
    virtual const ISkinDynamicObjectsDictionary& GetObjects() const = 0;

    /// The value of the object belongs to the state of the model from now on. False when it does so
    /// already, when there is no such object, and for one that cannot be written.
    virtual bool SetPersistent(const char* id) = 0;

    /// See ISkinModelExposure::MakeExposed.
    virtual bool SetExposed(const char* id) = 0;
    virtual const ISkinModelExposure& GetExposure() const = 0;
};

/// The object under an identifier by its interface `I`, or null.
template <class I>
I* FindModelObject(const Runtime::IDynamicObjectsDictionary& objects, const char* id) {
    return CastModelObject<I>(objects.Get(id));
}

class CSkinModel : public virtual ISkinModel {
public:
    /// The values of the persistent objects, as the model writes them under the key "state".
    class CState;

    CSkinModel();
    CSkinModel(const CSkinModel&) = delete;
    CSkinModel& operator=(const CSkinModel&) = delete;

    /// Disconnects first.
    ~CSkinModel() override;

    bool AddParam(const char* id, Objects::ICaptureParam* object, Core::EOwnership) override;
    bool AddCurve(const char* id, Objects::ICaptureCurve* object, Core::EOwnership) override;
    bool AddSurface(const char* id, Objects::ICaptureSurface* object, Core::EOwnership) override;
    bool AddString(const char* id, Objects::ICaptureString* object, Core::EOwnership) override;
    bool AddProperty(const char* id, Objects::ICaptureProperty* object, Core::EOwnership) override;
    bool AddAction(const char* id, Objects::IAction* object, Core::EOwnership) override;
    bool AddCollection(const char* id, DataModel::ICollection* object, Core::EOwnership) override;
    bool AddConstParam(const char* id, Objects::IConstCaptureParam* object,
                       Core::EOwnership) override;
    bool AddConstCurve(const char* id, Objects::IConstCaptureCurve* object,
                       Core::EOwnership) override;
    bool AddConstSurface(const char* id, Objects::IConstCaptureSurface* object,
                         Core::EOwnership) override;
    bool AddConstString(const char* id, Objects::IConstCaptureString* object,
                        Core::EOwnership) override;
    bool AddConstProperty(const char* id, Objects::IConstCaptureProperty* object,
                          Core::EOwnership) override;
    bool AddConstAction(const char* id, Objects::IConstAction* object, Core::EOwnership) override;
    bool AddConstCollection(const char* id, DataModel::IConstCollection* object,
                            Core::EOwnership) override;

    const CDynamicObjectsDictionary& GetObjects() const override { return objects; }
    bool SetPersistent(const char* id) override;
    bool SetExposed(const char* id) override { return exposure.MakeExposed(id); }
    const CSkinModelExposure& GetExposure() const override { return exposure; }

    /// The object, or a placeholder that lives as long as the model.
    Objects::ICaptureParam& GetParam(const char* id);
    Objects::IConstCaptureParam& GetConstParam(const char* id);
    Objects::ICaptureCurve& GetCurve(const char* id);
    Objects::IConstCaptureCurve& GetConstCurve(const char* id);
    Objects::ICaptureSurface& GetSurface(const char* id);
    Objects::IConstCaptureSurface& GetConstSurface(const char* id);
    Objects::ICaptureString& GetString(const char* id);
    Objects::IConstCaptureString& GetConstString(const char* id);
    Objects::IConstAction& GetAction(const char* id);
    CPlaceholderObjects& GetPlaceholders() { return placeholders; }

    /// The identifier of the model itself.
    const char* GetId() const { return modelId.c_str(); }
    void SetId(const char* id) { modelId = id; }

    /// Where refused identifiers are told; null, as it is at first: nowhere.
    void SetLog(Core::IMessageLog* log) { objects.SetLog(log); }

    // For who builds the model.

    /// What the operations by kind do: adds an object by its interface `I`.
    template <class I>
    bool AddObject(const char* id, I* object, Core::EOwnership ownership) {
        if (!object) {
            return false;
        }
        if (ownership == Core::kOwn) {
            owned.push_back(std::shared_ptr<I>(object));
        }
        if constexpr (std::is_same_v<I, typename TModelKind<I>::Const>) {
            return Register(id, std::make_unique<TConstModelObject<I>>(*object));
        } else {
            return Register(id, std::make_unique<TModelObject<I>>(*object));
        }
    }

    /// Keeps an object without a name as long as the model.
    template <class T>
    T& Own(std::unique_ptr<T> object) {
        T& kept = *object;
        owned.push_back(std::move(object));
        return kept;
    }

    /// Something that `Disconnect` disconnects. It lives as long as the model.
    void AddDisconnect(Core::IDisconnect& object) { disconnects.push_back(&object); }

    /// A link: disconnected by `Disconnect`, paused with the others.
    void AddLink(DataModel::IDisconnectAndPause& link);

    /// Paused at first, until all ends are connected. Then each passes what its source has.
    void PauseLinks(bool pause);

    /// A link that takes time: disconnected by `Disconnect`, paused while the model is disabled.
    void AddTimeDriven(DataModel::IDisconnectAndPause& link);

    /// Is told at once, and at each change, whether to rest.
    void AddResting(std::function<void(bool)> setResting);

    /// Runs `letGo` when the object of a dictionary goes before this model does.
    void AddUse(CModelObject& object, std::function<void()> letGo);

    /// Adds every object of this model, now and later, to the other one too, where they can be
    /// persistent as well. False when an identifier is refused there. The other model outlives this
    /// one or its `Disconnect`, which takes them out again.
    bool AttachTo(CSkinModel& parentModel);
    CSkinModel* GetParent() const { return parent; }

    bool IsEnabled() const override { return enabled.IsEnabled(); }
    Core::IEventProvider& GetEnableEvents() override { return enabled.GetEnableEvents(); }
    void SetEnabled(bool enable) override;

    /// Ends everything that goes on between the objects, and between them and others. They can
    /// still be read.
    void Disconnect() override;

    bool Serialize(Serialization::IWriteDataStream& stream) const override;

    /// A state is taken whole or not at all. Unknown names are ignored, and what has no value in it
    /// stays.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

private:
    using Entry = ISkinDynamicObjectsDictionary::Entry;

    bool Register(const char* id, std::unique_ptr<CModelObject> object);
    bool Adopt(const Entry& entry);
    void AdoptPersistent(const Entry& entry);
    void Forget(const Entry& entry);
    void Detach();
    void Rest(bool rest);

    std::string modelId;
    CPlaceholderObjects placeholders;
    std::vector<std::shared_ptr<void>> owned; // of any type; goes after the dictionaries
    CDynamicObjectsDictionary objects;
    CDynamicObjectsDictionary persistentObjects;
    CSkinModelExposure exposure{objects};
    std::vector<Core::IDisconnect*> disconnects;
    std::vector<DataModel::IDisconnectAndPause*> links;
    bool areLinksPaused = true;
    std::vector<std::function<void(bool)>> resting;
    std::vector<std::unique_ptr<CObjectUse>> uses;
    CSkinModel* parent = nullptr;
    Core::CEnable enabled{false};
};

} // namespace Vorin::AppEngine
