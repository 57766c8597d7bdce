#pragma once

#include "SkinEngine/Model/Collection.h"
#include "core/EventProvider.h"
#include "core/RefreshTime.h"
#include "datamodel/objects/Action.h"
#include "datamodel/objects/CaptureObject.h"
#include "runtime/DynamicObject.h"

#include <map>
#include <memory>
#include <string>

namespace Vorin::AppEngine {

namespace Objects = DataModel::Objects;

enum EModelObjectKind : int {
    kModelParam,
    kModelCurve,
    kModelSurface,
    kModelString,
    kModelProperty,
    kModelAction,
    kModelCollection,
    kModelParamInfo
};

/// The word of a kind in listings: one word, such as "param". Static text.
const char* GetModelObjectKindName(EModelObjectKind kind);

/// What a dictionary of a model holds under an identifier: one object with the interface of its
/// kind. One thread.
class CModelObject : public virtual Runtime::IDynamicObject {
public:
    CModelObject() = default;
    CModelObject(const CModelObject&) = delete;
    CModelObject& operator=(const CModelObject&) = delete;

    virtual EModelObjectKind GetKind() const = 0;

    /// What comes with the object, such as the "info" of a parameter: found under the identifier of
    /// the object, ".", and the word. Made when it is asked for, and kept. Null for an unknown
    /// word.
    CModelObject* GetDerived(const char* word);

    /// All words that GetDerived knows for objects of this kind, parted by blanks.
    virtual const char* GetDerivedWords() const { return ""; }

    /// The period at which the object is refreshed, or null when it has none.
    virtual Core::IRefreshTime* GetRefreshTime() { return nullptr; }

    /// Fired before the object goes: whoever is connected to it lets go.
    Core::IEventProvider& GetReleaseEvents() { return releaseEvents; }
    void NotifyRelease();

private:
    virtual std::unique_ptr<CModelObject> MakeDerived(const std::string& word);

    Core::CEventProvider releaseEvents;
    std::map<std::string, std::unique_ptr<CModelObject>> derived;
};

/// The kind of an interface of model objects: `Const` is the one to read, `kWord` what messages
/// call it.
template <class I>
struct TModelKind;

namespace Details {

template <class C, EModelObjectKind Kind>
struct TModelKindOf {
    using Const = C;
    static constexpr EModelObjectKind kKind = Kind;
};

std::unique_ptr<CModelObject> MakeDerivedObject(Objects::IConstCaptureParam& param,
                                                const std::string& word);
std::unique_ptr<CModelObject> MakeDerivedObject(Objects::IConstCaptureCurve& curve,
                                                const std::string& word);
std::unique_ptr<CModelObject> MakeDerivedObject(Objects::IConstCaptureSurface& surface,
                                                const std::string& word);

} // namespace Details

#define VORIN_MODEL_KIND(Interface, ConstInterface, Kind, Word, Derived)                           \
    template <>                                                                                    \
    struct TModelKind<Interface> : Details::TModelKindOf<ConstInterface, Kind> {                   \
        static constexpr const char* kWord = Word;                                                 \
        static constexpr const char* kDerived = Derived;                                           \
    };

VORIN_MODEL_KIND(Objects::IConstCaptureParam, Objects::IConstCaptureParam, kModelParam, "parameter",
                 "info default min max")
VORIN_MODEL_KIND(Objects::ICaptureParam, Objects::IConstCaptureParam, kModelParam, "parameter",
                 "info default min max")
VORIN_MODEL_KIND(Objects::IConstCaptureCurve, Objects::IConstCaptureCurve, kModelCurve, "curve",
                 "x_info y_info")
VORIN_MODEL_KIND(Objects::ICaptureCurve, Objects::IConstCaptureCurve, kModelCurve, "curve",
                 "x_info y_info")
VORIN_MODEL_KIND(Objects::IConstCaptureSurface, Objects::IConstCaptureSurface, kModelSurface,
                 "surface", "x_info y_info z_info")
VORIN_MODEL_KIND(Objects::ICaptureSurface, Objects::IConstCaptureSurface, kModelSurface, "surface",
                 "x_info y_info z_info")
VORIN_MODEL_KIND(Objects::IConstCaptureString, Objects::IConstCaptureString, kModelString, "string",
                 "")
VORIN_MODEL_KIND(Objects::ICaptureString, Objects::IConstCaptureString, kModelString, "string", "")
VORIN_MODEL_KIND(Objects::IConstCaptureProperty, Objects::IConstCaptureProperty, kModelProperty,
                 "custom property", "")
VORIN_MODEL_KIND(Objects::ICaptureProperty, Objects::IConstCaptureProperty, kModelProperty,
                 "custom property", "")
VORIN_MODEL_KIND(Objects::IConstAction, Objects::IConstAction, kModelAction, "action", "")
VORIN_MODEL_KIND(Objects::IAction, Objects::IConstAction, kModelAction, "action", "")
VORIN_MODEL_KIND(DataModel::IConstCollection, DataModel::IConstCollection, kModelCollection,
                 "collection", "")
VORIN_MODEL_KIND(DataModel::ICollection, DataModel::IConstCollection, kModelCollection,
                 "collection", "")
VORIN_MODEL_KIND(Objects::IConstParamInfo, Objects::IConstParamInfo, kModelParamInfo,
                 "parameter info", "")

#undef VORIN_MODEL_KIND

/// An object to read, by its interface `C`. The object is kept alive by `held`, or by its owner.
template <class C>
class TConstModelObject : public CModelObject {
public:
    explicit TConstModelObject(C& object, std::shared_ptr<void> held = nullptr)
        : keeper(std::move(held)), readable(object) {}

    EModelObjectKind GetKind() const override { return TModelKind<C>::kKind; }
    const char* GetDerivedWords() const override { return TModelKind<C>::kDerived; }
    C& GetConst() { return readable; }

    Core::IRefreshTime* GetRefreshTime() override {
        return dynamic_cast<Core::IRefreshTime*>(&readable);
    }

private:
    std::unique_ptr<CModelObject> MakeDerived(const std::string& word) override {
        if constexpr (requires { Details::MakeDerivedObject(readable, word); }) {
            return Details::MakeDerivedObject(readable, word);
        } else {
            return nullptr;
        }
    }

    std::shared_ptr<void> keeper;
    C& readable;
};

/// An object to read and write, by its interface `I`.
template <class I>
class TModelObject : public TConstModelObject<typename TModelKind<I>::Const> {
public:
    explicit TModelObject(I& object)
        : TConstModelObject<typename TModelKind<I>::Const>(object), writable(object) {}

    I& Get() { return writable; }

private:
    I& writable;
};

/// The object by the interface `I`; null when it is of another kind, and when `I` is one to write
/// and the object is only to be read. Null gives null.
template <class I>
I* CastModelObject(Runtime::IDynamicObject* object) {
    using Const = typename TModelKind<I>::Const;
    if constexpr (std::is_same_v<I, Const>) {
        auto* held = dynamic_cast<TConstModelObject<I>*>(object);
        return held ? &held->GetConst() : nullptr;
    } else {
        auto* held = dynamic_cast<TModelObject<I>*>(object);
        return held ? &held->Get() : nullptr;
    }
}

} // namespace Vorin::AppEngine
