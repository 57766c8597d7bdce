#include "serialization/XmlChildIndex.h"

#include <cstdint>
#include <cstring>

#include <tinyxml2.h>

namespace Vorin::Serialization {

const char* CXmlChildIndex::KeyOf(const tinyxml2::XMLElement* child) const {
    return isByName ? child->Attribute("name") : child->Name();
}

void* CXmlChildIndex::GetChangeCounter() const { return element->GetUserData(); }

void CXmlChildIndex::CountChange() {
    const auto count = reinterpret_cast<std::uintptr_t>(GetChangeCounter());
    const bool wasRight = hasMap && mapCounter == GetChangeCounter();
    element->SetUserData(reinterpret_cast<void*>(count + 1));
    if (wasRight) {
        mapCounter = GetChangeCounter();
    }
}

bool CXmlChildIndex::PrepareMap() {
    if (hasMap && mapCounter == GetChangeCounter()) {
        return true;
    }
    hasMap = false;
    children.clear();
    int count = 0;
    for (const auto* child = element->FirstChildElement(); child && count < kLongestWalk;
         child = child->NextSiblingElement()) {
        ++count;
    }
    if (count < kLongestWalk) {
        return false;
    }
    for (auto* child = element->FirstChildElement(); child; child = child->NextSiblingElement()) {
        if (const char* key = KeyOf(child)) {
            children[key].push_back(child);
        }
    }
    hasMap = true;
    mapCounter = GetChangeCounter();
    return true;
}

tinyxml2::XMLElement* CXmlChildIndex::FindByWalk(tinyxml2::XMLElement* child,
                                                 const char* key) const {
    for (; child; child = child->NextSiblingElement()) {
        const char* own = KeyOf(child);
        if (own && std::strcmp(own, key) == 0) {
            return child;
        }
    }
    return nullptr;
}

tinyxml2::XMLElement* CXmlChildIndex::Find(const char* key) {
    if (!PrepareMap()) {
        return FindByWalk(element->FirstChildElement(), key);
    }
    const auto found = children.find(key);
    return found == children.end() ? nullptr : found->second.front();
}

void CXmlChildIndex::Append(tinyxml2::XMLElement* child) {
    element->InsertEndChild(child);
    CountChange();
    if (hasMap && mapCounter == GetChangeCounter()) {
        if (const char* key = KeyOf(child)) {
            children[key].push_back(child);
        }
    }
}

void CXmlChildIndex::Remove(const char* key) {
    if (!PrepareMap()) {
        auto* child = FindByWalk(element->FirstChildElement(), key);
        while (child) {
            auto* next = child->NextSiblingElement();
            element->DeleteChild(child);
            CountChange();
            child = FindByWalk(next, key);
        }
        return;
    }
    const auto found = children.find(key);
    if (found == children.end()) {
        return;
    }
    // Out of the map first: its key is the text of one of them.
    const std::vector<tinyxml2::XMLElement*> removed = std::move(found->second);
    children.erase(found);
    for (tinyxml2::XMLElement* child : removed) {
        element->DeleteChild(child);
    }
    CountChange();
}

void CXmlChildIndex::Clear() {
    element->DeleteChildren();
    CountChange();
    hasMap = false;
    children.clear();
}

} // namespace Vorin::Serialization
