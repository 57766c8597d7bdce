#include "SkinEngine/Model/DynamicObjectsDictionary.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Vorin::AppEngine {

Runtime::IDynamicObject* CDynamicObjectsDictionary::GetOwn(const char* id) const {
    if (!id) {
        return nullptr;
    }
    const auto found = objects.find(std::string_view(id));
    // The holder hands out what it does not own as const alone.
    return found == objects.end() ? nullptr
                                  : const_cast<Runtime::IDynamicObject*>(found->second.Get());
}

Runtime::IDynamicObject* CDynamicObjectsDictionary::Get(const char* id) const {
    if (Runtime::IDynamicObject* object = GetOwn(id)) {
        return object;
    }
    const char* point = id ? std::strrchr(id, '.') : nullptr;
    if (!point) {
        return nullptr;
    }
    const std::string owner(id, point);
    auto* object = dynamic_cast<CModelObject*>(GetOwn(owner.c_str()));
    return object ? object->GetDerived(point + 1) : nullptr;
}

bool CDynamicObjectsDictionary::Add(const char* id, Runtime::IDynamicObject* object,
                                    Core::EOwnership ownership) {
    Core::TOwnership<Runtime::IDynamicObject> taken(object, ownership);
    if (!id || !object) {
        return false;
    }
    if (Get(id)) {
        return Refuse(id);
    }
    objects[id].Set(object, ownership);
    taken.Set(object, Core::kDontOwn);
    Entry entry{id, object};
    addedEvents.Notify(entry);
    return !RefuseDerivedOf(id, object);
}

bool CDynamicObjectsDictionary::Refuse(const char* id) {
    if (log) {
        const std::string text = std::string("'") + id +
                                 "' : this object identifier already exists, use another "
                                 "identifier.";
        log->Log(Core::kErrorMessage, text.c_str(), 0);
    }
    return false;
}

/// What stands already under an identifier that comes with a new object is an error too: it hides
/// that one.
bool CDynamicObjectsDictionary::RefuseDerivedOf(const char* id, Runtime::IDynamicObject* object) {
    const auto* modelObject = dynamic_cast<CModelObject*>(object);
    std::string_view words = modelObject ? modelObject->GetDerivedWords() : "";
    bool isHidden = false;
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        const std::string derived = std::string(id) + "." + std::string(words.substr(0, end));
        if (GetOwn(derived.c_str())) {
            Refuse(derived.c_str());
            isHidden = true;
        }
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return isHidden;
}

bool CDynamicObjectsDictionary::Remove(const char* id) {
    const auto found = id ? objects.find(std::string_view(id)) : objects.end();
    if (found == objects.end()) {
        return false;
    }
    objects.erase(found);
    return true;
}

std::vector<ISkinDynamicObjectsDictionary::Entry> CDynamicObjectsDictionary::GetEntries() const {
    std::vector<Entry> entries;
    entries.reserve(objects.size());
    for (const auto& [id, object] : objects) {
        entries.push_back({id.c_str(), const_cast<Runtime::IDynamicObject*>(object.Get())});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return std::strcmp(a.id, b.id) < 0; });
    return entries;
}

} // namespace Vorin::AppEngine
