#pragma once

#include "serialization/TextDataObject.h"
#include "serialization/XmlChildIndex.h"

#include <optional>

namespace Vorin::Serialization {

/// How the values of a data object stand in XML. A value named K is:
enum EXmlMode {
    kXmlAttributes = 0,   // the attribute K of the element
    kXmlElements = 1,     // a child element K that holds the value as its text
    kXmlTypedElements = 2 // the same with the type as its tag, "INTEGER", and the attribute "name"
};

/// A data object over one XML element, in one of three modes. A nested object is a child element
/// of the same mode: K, or "OBJECT" with the attribute "name".
///
/// A text comes back as it was written, except what XML cannot carry: a control character other
/// than tab, line feed and carriage return, U+FFFE, U+FFFF, and a byte that is no UTF-8 each become
/// U+FFFD. Null comes back as the empty text.
///
/// A key that cannot be the name of an element or attribute stands there as CKeyText says. An
/// element takes `kMaximumAttributes` attributes; further values of the attribute mode become child
/// elements, where reading looks too. A text or a nesting beyond the limits is not written.
///
/// Without an element every read and write is false. The element outlives the view.
class CXmlBaseDataObject : public CTextDataObject {
public:
    CXmlBaseDataObject(tinyxml2::XMLElement* viewedElement, EXmlMode viewMode);
    CXmlBaseDataObject(const CXmlBaseDataObject&) = delete;
    CXmlBaseDataObject& operator=(const CXmlBaseDataObject&) = delete;

    EXmlMode GetMode() const { return static_cast<EXmlMode>(mode); }

    bool ReadString(const char* name, char*& value) const override;
    bool ReadObject(const char* name, IDeSerialize& object) const override;
    bool Exists(const char* name) const override { return FindText(name) != nullptr; }

    bool WriteString(const char* name, const char* value) override;
    bool WriteObject(const char* name, const ISerialize& object) override;
    bool Remove(const char* name) override;
    bool Clear() override;

protected:
    /// Null for none.
    void SetElement(tinyxml2::XMLElement* viewedElement);

private:
    CXmlBaseDataObject(tinyxml2::XMLElement* viewedElement, int viewMode, int viewDepth);

    const char* FindText(const char* name) const override;
    tinyxml2::XMLElement* FindChild(const char* name) const;
    bool WriteText(const char* name, const char* typeTag, const char* text) override;
    tinyxml2::XMLElement* AppendChild(const char* key, const char* typeTag);

    tinyxml2::XMLElement* element;
    int mode;
    int depth; // of the element, the root being 1
    mutable std::optional<CXmlChildIndex> children;
};

} // namespace Vorin::Serialization
