#pragma once

#include "containers/CharString.h"

#include <memory>
#include <string>

namespace tinyxml2 {
class XMLDocument;
class XMLElement;
} // namespace tinyxml2

namespace Vorin::Serialization {

/// An XML document and its root. A document that cannot be parsed, or breaks a limit of Limits.h,
/// leaves no document and no root.
class CXmlDocHolder {
public:
    CXmlDocHolder();
    virtual ~CXmlDocHolder();
    CXmlDocHolder(const CXmlDocHolder&) = delete;
    CXmlDocHolder& operator=(const CXmlDocHolder&) = delete;

    /// `rootTag` null takes any root; with another root than that there is no document.
    bool ParseDocument(const void* data, int size, const char* rootTag);
    bool LoadDocument(const char* path, const char* rootTag);

    /// A declaration and an empty root. False, and no document, for a null tag.
    bool NewDocument(const char* rootTag);

    /// What is saved can be loaded: false without a document, and for one that breaks a limit.
    bool SaveFile(const char* path) const;
    bool SaveString(Containers::CCharString& text) const;

    /// Null without a document. Valid until the document changes as a whole.
    tinyxml2::XMLElement* GetRoot() { return root; }

private:
    bool Print(std::string& text) const;

    std::unique_ptr<tinyxml2::XMLDocument> document;
    tinyxml2::XMLElement* root = nullptr;
};

} // namespace Vorin::Serialization
