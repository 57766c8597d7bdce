#pragma once

#include "containers/CharString.h"
#include "containers/Count.h"
#include "containers/Iterator.h"
#include "containers/TextMap.h"

namespace Vorin::Containers {

class INamedAttributes;

/// One attribute, as an iterator shows it: texts that stay with the table.
class CNamedAttribute {
public:
    CNamedAttribute() = default;
    CNamedAttribute(const CCharString& attributeName, CCharString& attributeValue)
        : name(&attributeName), value(&attributeValue) {}

    const char* GetName() const { return name->Get(); }
    const char* GetValue() const { return value->Get(); }
    void SetValue(const char* text) { *value = text; }

private:
    const CCharString* name = nullptr;
    CCharString* value = nullptr;
};

/// A table from name to text, to read.
class IConstNamedAttributes : public virtual IConstCount {
public:
    /// Copies every attribute into `target`, over those of the same name; the others stay.
    virtual void Get(INamedAttributes& target) const = 0;

    /// The text, valid until the table changes; null for an absent name and for a null name.
    virtual const char* GetValue(const char* name) const = 0;

    /// A new cursor in the order of the table, which is no order of names or of time; the caller
    /// deletes it.
    virtual IConstIterator<CNamedAttribute>* CreateIterator() const = 0;
};

/// A table from name to text.
class INamedAttributes : public virtual IConstNamedAttributes {
public:
    using IConstNamedAttributes::CreateIterator;

    /// Becomes a copy of `source`.
    virtual void Set(const IConstNamedAttributes& source) = 0;

    /// A cursor whose attributes can be set; the caller deletes it.
    virtual IIterator<CNamedAttribute>* CreateIterator() = 0;

    /// False when there is no such name.
    virtual bool Remove(const char* name) = 0;

    /// Keeps copies of both texts. A null value removes the name; a null name does nothing.
    virtual void SetValue(const char* name, const char* value) = 0;
};

/// The attribute table: a hash map from name to text, names case-sensitive. No locks.
class CNamedAttributes : public virtual INamedAttributes {
public:
    int GetCount() const override { return attributes.GetCount(); }
    void Set(const IConstNamedAttributes& source) override;
    void Get(INamedAttributes& target) const override;
    const char* GetValue(const char* name) const override;
    IIterator<CNamedAttribute>* CreateIterator() override;
    IConstIterator<CNamedAttribute>* CreateIterator() const override;
    bool Remove(const char* name) override;
    void SetValue(const char* name, const char* value) override;

    void Clear() { attributes.Clear(); }

    /// Calls `visit` with the name and the text of each attribute, in the order of an iterator, but
    /// without making one. The visitor changes nothing of the table.
    template <class Visit>
    void ForEach(Visit visit) const {
        for (const auto* entry = attributes.GetFirst(); entry; entry = attributes.GetNext(entry)) {
            visit(entry->key.Get(), entry->value.Get());
        }
    }

    /// Calls `change` with each text, to be set to another one.
    template <class Change>
    void ForEachValue(Change change) {
        for (auto* entry = attributes.GetFirst(); entry; entry = attributes.GetNext(entry)) {
            change(entry->value);
        }
    }

private:
    TTextMap<CCharString> attributes;
};

} // namespace Vorin::Containers
