#include "serialization/XmlBaseDataObject.h"

#include "serialization/KeyText.h"
#include "serialization/Limits.h"
#include "serialization/XmlText.h"

#include <cstddef>
#include <cstring>
#include <string>

#include <tinyxml2.h>

namespace Vorin::Serialization {

namespace {

EKeyForm KeyFormOf(int mode) { return mode == kXmlTypedElements ? kXmlTextKey : kXmlNameKey; }

int DepthOf(const tinyxml2::XMLNode* element) {
    int depth = 0;
    for (const auto* node = element; node && node->ToElement(); node = node->Parent()) {
        ++depth;
    }
    return depth;
}

const char* TextOf(const tinyxml2::XMLElement* child) {
    const char* text = child->GetText();
    return text ? text : "";
}

bool IsTooLong(const char* text) { return std::strlen(text) > std::size_t{kMaximumTextBytes}; }

int AttributesOf(const tinyxml2::XMLElement* element) {
    int count = 0;
    for (const auto* attribute = element->FirstAttribute(); attribute;
         attribute = attribute->Next()) {
        ++count;
    }
    return count;
}

} // namespace

CXmlBaseDataObject::CXmlBaseDataObject(tinyxml2::XMLElement* viewedElement, EXmlMode viewMode)
    : CXmlBaseDataObject(viewedElement, viewMode, DepthOf(viewedElement)) {}

CXmlBaseDataObject::CXmlBaseDataObject(tinyxml2::XMLElement* viewedElement, int viewMode,
                                       int viewDepth)
    : element(viewedElement), mode(viewMode), depth(viewDepth) {
    if (element) {
        children.emplace(element, mode == kXmlTypedElements);
    }
}

void CXmlBaseDataObject::SetElement(tinyxml2::XMLElement* viewedElement) {
    element = viewedElement;
    depth = DepthOf(element);
    children.reset();
    if (element) {
        children.emplace(element, mode == kXmlTypedElements);
    }
}

tinyxml2::XMLElement* CXmlBaseDataObject::FindChild(const char* name) const {
    return element && name ? children->Find(CKeyText(name, KeyFormOf(mode)).Get()) : nullptr;
}

const char* CXmlBaseDataObject::FindText(const char* name) const {
    if (!element || !name) {
        return nullptr;
    }
    const CKeyText key(name, KeyFormOf(mode));
    if (mode == kXmlAttributes) {
        if (const char* text = element->Attribute(key.Get())) {
            return text;
        }
    }
    const tinyxml2::XMLElement* child = children->Find(key.Get());
    return child ? TextOf(child) : nullptr;
}

bool CXmlBaseDataObject::ReadString(const char* name, char*& value) const {
    const char* text = FindText(name);
    if (!text) {
        return false;
    }
    const std::size_t length = std::strlen(text) + 1;
    value = new char[length];
    std::memcpy(value, text, length);
    return true;
}

bool CXmlBaseDataObject::ReadObject(const char* name, IDeSerialize& object) const {
    tinyxml2::XMLElement* child = FindChild(name);
    return child && object.DeSerialize(CXmlBaseDataObject(child, mode, depth + 1));
}

bool CXmlBaseDataObject::WriteString(const char* name, const char* value) {
    std::string storage;
    return WriteText(name, "STRING", value ? CleanXmlText(value, storage) : "");
}

bool CXmlBaseDataObject::WriteText(const char* name, const char* typeTag, const char* text) {
    if (!Remove(name)) {
        return false;
    }
    const CKeyText key(name, KeyFormOf(mode));
    if (IsTooLong(key.Get()) || IsTooLong(text)) {
        return false;
    }
    if (mode == kXmlAttributes && AttributesOf(element) < kMaximumAttributes) {
        element->SetAttribute(key.Get(), text);
        return true;
    }
    tinyxml2::XMLElement* child = depth < kMaximumDepth ? AppendChild(key.Get(), typeTag) : nullptr;
    if (child && *text) {
        child->InsertEndChild(child->GetDocument()->NewText(text));
    }
    return child;
}

tinyxml2::XMLElement* CXmlBaseDataObject::AppendChild(const char* key, const char* typeTag) {
    tinyxml2::XMLElement* child =
        element->GetDocument()->NewElement(mode == kXmlTypedElements ? typeTag : key);
    if (mode == kXmlTypedElements) {
        child->SetAttribute("name", key);
    }
    children->Append(child);
    return child;
}

bool CXmlBaseDataObject::WriteObject(const char* name, const ISerialize& object) {
    if (!Remove(name) || depth >= kMaximumDepth) {
        return false;
    }
    const CKeyText key(name, KeyFormOf(mode));
    if (IsTooLong(key.Get())) {
        return false;
    }
    CXmlBaseDataObject nested(AppendChild(key.Get(), "OBJECT"), mode, depth + 1);
    const bool done = object.Serialize(nested);
    if (!done) {
        Remove(name);
    }
    return done;
}

bool CXmlBaseDataObject::Remove(const char* name) {
    if (!element || !name) {
        return false;
    }
    const CKeyText key(name, KeyFormOf(mode));
    if (mode == kXmlAttributes) {
        element->DeleteAttribute(key.Get());
    }
    children->Remove(key.Get());
    return true;
}

bool CXmlBaseDataObject::Clear() {
    if (!element) {
        return false;
    }
    if (mode == kXmlAttributes) {
        while (const tinyxml2::XMLAttribute* attribute = element->FirstAttribute()) {
            element->DeleteAttribute(attribute->Name());
        }
    }
    children->Clear();
    return true;
}

} // namespace Vorin::Serialization
