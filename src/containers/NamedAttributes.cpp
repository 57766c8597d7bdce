#include "containers/NamedAttributes.h"

#include <memory>

namespace Vorin::Containers {

namespace {

using Map = TTextMap<CCharString>;

// The cursor of both kinds: that of a const table is handed out by its const face alone.
class CNamedAttributesIterator final : public virtual IIterator<CNamedAttribute> {
public:
    explicit CNamedAttributesIterator(Map& walked) : map(walked) { MoveTo(map.GetFirst()); }

    void Reset() override { MoveTo(map.GetFirst()); }
    void Next() override {
        if (entry) {
            MoveTo(map.GetNext(entry));
        }
    }
    bool IsAtEnd() const override { return !entry; }
    const CNamedAttribute& Get() const override { return current; }
    CNamedAttribute& Get() override { return current; }

private:
    void MoveTo(Map::CEntry* next) {
        entry = next;
        current = entry ? CNamedAttribute(entry->key, entry->value) : CNamedAttribute();
    }

    Map& map;
    Map::CEntry* entry = nullptr;
    CNamedAttribute current;
};

} // namespace

void CNamedAttributes::Set(const IConstNamedAttributes& source) {
    if (&source != this) {
        CNamedAttributes copy;
        source.Get(copy);
        attributes.Swap(copy.attributes);
    }
}

void CNamedAttributes::Get(INamedAttributes& target) const {
    if (&target == this) {
        return;
    }
    for (const Map::CEntry* entry = attributes.GetFirst(); entry;
         entry = attributes.GetNext(entry)) {
        target.SetValue(entry->key.Get(), entry->value.Get());
    }
}

const char* CNamedAttributes::GetValue(const char* name) const {
    const Map::CEntry* entry = name ? attributes.Find(name) : nullptr;
    return entry ? entry->value.Get() : nullptr;
}

IIterator<CNamedAttribute>* CNamedAttributes::CreateIterator() {
    return new CNamedAttributesIterator(attributes);
}

IConstIterator<CNamedAttribute>* CNamedAttributes::CreateIterator() const {
    return new CNamedAttributesIterator(const_cast<Map&>(attributes));
}

bool CNamedAttributes::Remove(const char* name) { return name && attributes.Remove(name); }

void CNamedAttributes::SetValue(const char* name, const char* value) {
    if (!name) {
        return;
    }
    if (!value) {
        attributes.Remove(name);
        return;
    }
    attributes.Obtain(name).value = value;
}

} // namespace Vorin::Containers
