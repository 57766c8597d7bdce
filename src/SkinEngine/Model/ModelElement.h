#pragma once

#include "SkinEngine/Model/SkinModelFactory.h"

#include <memory>
#include <string>

namespace Vorin::AppEngine {

struct CElementKind;

/// One element while it is being handled: its attributes, and what an element does with the model.
///
/// Numbers are written plainly, with a decimal point whatever the locale, or as a formula without
/// names. One that cannot be read is an error; the element goes on with what it would have had
/// without the attribute, and has failed.
class CModelElement {
public:
    CModelElement(CSkinModelFactory& modelFactory,
                  const Containers::IConstNamedAttributes& elementAttributes,
                  const CElementKind& elementKind)
        : factory(modelFactory), attributes(elementAttributes), kind(elementKind) {}

    CModelElement(const CModelElement&) = delete;
    CModelElement& operator=(const CModelElement&) = delete;

    const CElementKind& GetKind() const { return kind; }
    const char* GetName() const;
    CSkinModelFactory& GetFactory() { return factory; }
    CSkinModel& GetModel() { return factory.GetModel(); }
    IObjectsUsage& GetUsage() { return factory.GetUsage(); }
    const CSkinModelServices& GetServices() const { return factory.GetServices(); }
    const Containers::IConstNamedAttributes& GetAttributes() const { return attributes; }

    /// The attribute, or null.
    const char* Get(const char* name) const { return attributes.GetValue(name); }
    bool Has(const char* name) const { return Get(name) != nullptr; }

    /// The attribute, or the empty text.
    const char* GetText(const char* name) const { return Has(name) ? Get(name) : ""; }

    const char* GetId() const { return GetText("id"); }

    /// The identifier of what comes with the element's object; empty without an identifier.
    std::string GetSubId(const char* word) const;

    bool IsTrue(const char* name) const;

    /// For what is on unless it is switched off.
    bool IsNotFalse(const char* name) const;

    /// True when the attribute is there and is a number; otherwise `value` stays.
    bool GetDouble(const char* name, double& value);
    bool GetInteger(const char* name, int& value);

    /// Log; `Fail` gives false.
    bool Fail(const std::string& text) { return factory.LogError(text); }
    void Warn(const std::string& text) { factory.LogWarning(text); }

    /// Something in the element was wrong, though it was not dropped.
    bool HasFailed() const { return hasFailed; }
    void SetFailed() { hasFailed = true; }

    /// False, with the error, when the element has no identifier.
    bool RequireId(const char* error) { return *GetId() || Fail(error); }

    /// Adds an object under the identifier of the element, by its interface `I`, and does what
    /// "persistent" and "exposed" say.
    template <class I, class T>
    bool Add(std::unique_ptr<T> object) {
        return GetModel().template AddObject<I>(GetId(), object.release(), Core::kOwn) &&
               AddToLists();
    }

    /// "persistent" and "exposed". Always true.
    bool AddToLists();

    void AddLinkCommand(std::unique_ptr<CSkinModelFactory::CLinkCommand> command) {
        factory.AddLinkCommand(std::move(command));
    }

private:
    bool ReadNumber(const char* text, double& value);

    CSkinModelFactory& factory;
    const Containers::IConstNamedAttributes& attributes;
    const CElementKind& kind;
    bool hasFailed = false;
};

} // namespace Vorin::AppEngine
